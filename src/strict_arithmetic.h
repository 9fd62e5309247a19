#ifndef ALIDADE_SRC_STRICT_ARITHMETIC_H
#define ALIDADE_SRC_STRICT_ARITHMETIC_H

// Included by every source of the library: refuses a build whose results would not be the documented bits, and leads
// additions to a correct one where the compiler's would not give them.

#include <cfloat>

#if defined(__FAST_MATH__) || defined(__ASSOCIATIVE_MATH__) || defined(__RECIPROCAL_MATH__) || \
    (defined(__FINITE_MATH_ONLY__) && __FINITE_MATH_ONLY__)
#error "alidade's results are fixed to the bit: build without -ffast-math and its parts"
#endif
#if defined(FLT_EVAL_METHOD) && FLT_EVAL_METHOD != 0
#error "alidade's results are fixed to the bit: on 32-bit x86 build with -msse2 -mfpmath=sse"
#endif

// Where the compiler's run-time library misrounds: see platform/arm/addition.cpp.
#if defined(__GNUC__) && defined(__ARM_EABI__) && defined(__SOFTFP__)
asm("__aeabi_dadd = alidade_dadd");
asm("__aeabi_dsub = alidade_dsub");
asm("__aeabi_drsub = alidade_drsub");
#endif

#endif
