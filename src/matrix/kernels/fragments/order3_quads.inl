#ifndef ALIDADE_SRC_MATRIX_KERNELS_FRAGMENTS_ORDER3_QUADS_INL
#define ALIDADE_SRC_MATRIX_KERNELS_FRAGMENTS_ORDER3_QUADS_INL

// Products of order three in vectors of four, for AVX2 and beyond. matrix/products3.h has the same as plain sums.
//
// A column takes one vector. The results are put together to whole vectors, each stored once: the usual next step is to
// copy them, and a load that needs two recent stores has to wait for both.

#include <immintrin.h>

#include <cstddef>

#include "matrix/kernels/fragments/tile.inl"
#include "matrix/kernels/kernel_table.h"

namespace alidade::kernels::ALIDADE_ISA {

using Quad = __m256d;

// Columns of a with their last element twice: the spare lane repeats what is computed anyway and so raises no exception
// of its own. Nothing beyond the nine elements is read.
ALIDADE_INLINE Quad column(const double* a, int j) {
  return j < 2 ? _mm256_permute4x64_pd(_mm256_loadu_pd(a + 3 * j), 0xa4)
               : _mm256_permute4x64_pd(_mm256_loadu_pd(a + 5), 0xf9);
}
ALIDADE_INLINE Quad four_of(const double* p) { return _mm256_broadcast_sd(p); }

static void product3(double* c, const double* a, const double* b) {
  const Quad a0 = column(a, 0);
  const Quad a1 = column(a, 1);
  const Quad a2 = column(a, 2);
  // Starting at +0.0 only tells where all three terms are -0.0.
  const auto product = [&](const double* f) {
    return ((_mm256_setzero_pd() + a0 * four_of(f)) + a1 * four_of(f + 1)) + a2 * four_of(f + 2);
  };
  const Quad c0 = product(b);
  const Quad c1 = product(b + 3);
  const Quad c2 = product(b + 6);
  _mm256_storeu_pd(c, _mm256_blend_pd(c0, _mm256_permute4x64_pd(c1, 0x00), 0x8));
  _mm256_storeu_pd(c + 4, _mm256_insertf128_pd(_mm256_permute4x64_pd(c1, 0x09), _mm256_castpd256_pd128(c2), 1));
  _mm_store_sd(c + 8, _mm256_extractf128_pd(c2, 1));
}

// T = A Q by columns, then C(i, j) = sum of A(i, l) T(j, l). The sums of T may start with their first term: a zero of T
// with the other sign only makes zeros of C's terms differ, and C's sums are never -0.0.
static void congruence3(double* c, const double* a, const double* q) {
  const Quad a_columns[3] = {column(a, 0), column(a, 1), column(a, 2)};
  const auto t_column = [&](Quad q0, Quad q1, Quad q2) {
    return (a_columns[0] * q0 + a_columns[1] * q1) + a_columns[2] * q2;
  };
  const Quad q10 = four_of(q + 1);
  const Quad q20 = four_of(q + 3);
  const Quad q21 = four_of(q + 4);
  const Quad t_columns[3] = {t_column(four_of(q), q10, q20), t_column(q10, four_of(q + 2), q21),
                             t_column(q20, q21, four_of(q + 5))};
  Quad c0123 = _mm256_setzero_pd();  // C(0, 0), C(1, 0), C(1, 1), C(2, 0)
  __m128d c45 = _mm_setzero_pd();    // C(2, 1), C(2, 2)
  for (int l = 0; l < 3; ++l) {
    const Quad a0112 = _mm256_permute4x64_pd(a_columns[l], 0x94);
    const Quad t0010 = _mm256_permute4x64_pd(t_columns[l], 0x10);
    const __m128d t12 = _mm256_castpd256_pd128(_mm256_permute4x64_pd(t_columns[l], 0x09));
    c0123 = a0112 * t0010 + c0123;
    c45 = _mm_loaddup_pd(a + 3 * l + 2) * t12 + c45;
  }
  _mm256_storeu_pd(c, c0123);
  _mm_storeu_pd(c + 4, c45);
}

}  // namespace alidade::kernels::ALIDADE_ISA

#endif
