#ifndef ALIDADE_SRC_SQUARE_ROOT_H
#define ALIDADE_SRC_SQUARE_ROOT_H

// The square root, rounded once. std::sqrt is not that everywhere: without optimisation, or optimised for size, it
// calls the C library's sqrt, and MinGW's computes in the registers of the x87, whose result is rounded a second time
// on its way to a double. The square root of 1 - 2^-53 is 1 there. x86 has an instruction for it; elsewhere the C
// library's is the processor's or rounds correctly by itself.

#include <cmath>

#if defined(__SSE2__) || defined(_M_X64)
#include <emmintrin.h>
#endif

#include "strict_arithmetic.h"

namespace alidade {

// Always inlined, so that the sources compiled for other processors leave no copy for the linker to take.
[[gnu::always_inline]] inline double square_root(double x) {
#if defined(__SSE2__) || defined(_M_X64)
  const __m128d both = _mm_set_sd(x);
  return _mm_cvtsd_f64(_mm_sqrt_sd(both, both));
#else
  return std::sqrt(x);
#endif
}

}  // namespace alidade

#endif
