#ifndef ALIDADE_SRC_STRICT_ARITHMETIC_H
#define ALIDADE_SRC_STRICT_ARITHMETIC_H

// Included by every source of the library: refuses a build whose results would not be the documented bits.

#include <cfloat>

#if defined(__FAST_MATH__)
#error "alidade's results are fixed to the bit: build without -ffast-math"
#endif
#if defined(FLT_EVAL_METHOD) && FLT_EVAL_METHOD != 0
#error "alidade's results are fixed to the bit: on 32-bit x86 build with -msse2 -mfpmath=sse"
#endif

#endif
