#ifndef ALIDADE_SRC_MATRIX_KERNELS_FRAGMENTS_ORDER3_PAIRS_INL
#define ALIDADE_SRC_MATRIX_KERNELS_FRAGMENTS_ORDER3_PAIRS_INL

// Products of order three in vectors of two. matrix/products3.h has the same as plain sums.
//
// Two neighbours of the stored result are formed side by side, so that each result is stored once, by whole vectors.

#include <cstddef>

#include "matrix/kernels/fragments/tile.inl"
#include "matrix/kernels/kernel_table.h"

namespace alidade::kernels::ALIDADE_ISA {

// Starts at +0.0, which only tells where all three terms are -0.0.
ALIDADE_INLINE Vector sum_of_three(Vector x, Vector y, Vector z) { return ((zero() + x) + y) + z; }

static void product3(double* c, const double* a, const double* b) {
  const Vector low[3] = {load(a), load(a + 3), load(a + 6)};             // rows 0 and 1
  const Vector high[3] = {load(a + 1), load(a + 4), load(a + 7)};        // rows 1 and 2
  const Vector around[3] = {{a[2], a[0]}, {a[5], a[3]}, {a[8], a[6]}};   // rows 2 and 0
  const Vector between[3] = {{b[0], b[3]}, {b[1], b[4]}, {b[2], b[5]}};  // columns 0 and 1
  store(c, sum_of_three(low[0] * broadcast(b), low[1] * broadcast(b + 1), low[2] * broadcast(b + 2)));
  store(c + 2, sum_of_three(around[0] * between[0], around[1] * between[1], around[2] * between[2]));
  store(c + 4, sum_of_three(high[0] * broadcast(b + 3), high[1] * broadcast(b + 4), high[2] * broadcast(b + 5)));
  store(c + 6, sum_of_three(low[0] * broadcast(b + 6), low[1] * broadcast(b + 7), low[2] * broadcast(b + 8)));
  c[8] = ((0.0 + a[2] * b[6]) + a[5] * b[7]) + a[8] * b[8];
}

// T = A Q by columns, then C(i, j) = sum of A(i, l) T(j, l). The sums of T may start with their first term: a zero of T
// with the other sign only makes zeros of C's terms differ, and C's sums are never -0.0.
static void congruence3(double* c, const double* a, const double* q) {
  const Vector high[3] = {load(a + 1), load(a + 4), load(a + 7)};
  const Vector s[6] = {broadcast(q),     broadcast(q + 1), broadcast(q + 2),
                       broadcast(q + 3), broadcast(q + 4), broadcast(q + 5)};
  const Vector t0_of_01 = (broadcast(a) * load(q) + broadcast(a + 3) * load(q + 1)) + broadcast(a + 6) * load(q + 3);
  const double t0[3] = {t0_of_01[0], t0_of_01[1], (a[0] * q[3] + a[3] * q[4]) + a[6] * q[5]};
  const Vector t12[3] = {(high[0] * s[0] + high[1] * s[1]) + high[2] * s[3],
                         (high[0] * s[1] + high[1] * s[2]) + high[2] * s[4],
                         (high[0] * s[3] + high[1] * s[4]) + high[2] * s[5]};
  Vector c01 = zero();
  Vector c23 = zero();
  Vector c45 = zero();
  ALIDADE_UNROLL
  for (int l = 0; l < 3; ++l) {
    c01 = load(a + 3 * l) * Vector{t0[l], t0[l]} + c01;
    c23 = high[l] * Vector{t12[l][0], t0[l]} + c23;
    c45 = broadcast(a + 3 * l + 2) * t12[l] + c45;
  }
  store(c, c01);
  store(c + 2, c23);
  store(c + 4, c45);
}

}  // namespace alidade::kernels::ALIDADE_ISA

#endif
