#ifndef ALIDADE_SRC_MATRIX_PRODUCTS3_H
#define ALIDADE_SRC_MATRIX_PRODUCTS3_H

// Products of order three, written out. Every sum starts at +0.0 and takes its terms in ascending order, as the
// products of any order do, so that the bits are theirs: without the leading 0.0 a sum of negative zeros would be -0.0.

#include "matrix/kernels/kernels.h"
#include "strict_arithmetic.h"

namespace alidade {

inline double ordered_dot3(double a0, double b0, double a1, double b1, double a2, double b2) {
  return ((0.0 + a0 * b0) + a1 * b1) + a2 * b2;
}

// y = A x, A dense and column by column.
inline void dense_times_vector3(const double* a, const double* x, double* y) {
  for (int i = 0; i < 3; ++i) {
    y[i] = ordered_dot3(a[i], x[0], a[i + 3], x[1], a[i + 6], x[2]);
  }
}

// C = A B, all dense and column by column. C must not overlap A or B.
inline void dense_product3(const double* a, const double* b, double* c) {
  if (const kernels::KernelTable* fast = kernels::active()) {
    fast->product3(c, a, b);
    return;
  }
  dense_times_vector3(a, b, c);
  dense_times_vector3(a, b + 3, c + 3);
  dense_times_vector3(a, b + 6, c + 6);
}

// y = S x, S packed.
inline void packed_times_vector3(const double* s, const double* x, double* y) {
  y[0] = ordered_dot3(s[0], x[0], s[1], x[1], s[3], x[2]);
  y[1] = ordered_dot3(s[1], x[0], s[2], x[1], s[4], x[2]);
  y[2] = ordered_dot3(s[3], x[0], s[4], x[1], s[5], x[2]);
}

// C = A Q A', Q and C packed, A dense; C may overlap neither. T = A Q comes first, summed over Q's rows; then C(i, j)
// is the sum of A(i, l) T(j, l).
inline void congruence_product3(const double* a, const double* q, double* c) {
  if (const kernels::KernelTable* fast = kernels::active()) {
    fast->congruence3(c, a, q);
    return;
  }
  double t[9];
  for (int j = 0; j < 3; ++j) {
    t[j] = ordered_dot3(a[j], q[0], a[j + 3], q[1], a[j + 6], q[3]);
    t[j + 3] = ordered_dot3(a[j], q[1], a[j + 3], q[2], a[j + 6], q[4]);
    t[j + 6] = ordered_dot3(a[j], q[3], a[j + 3], q[4], a[j + 6], q[5]);
  }
  for (int i = 0, k = 0; i < 3; ++i) {
    for (int j = 0; j <= i; ++j, ++k) {
      c[k] = ordered_dot3(a[i], t[j], a[i + 3], t[j + 3], a[i + 6], t[j + 6]);
    }
  }
}

}  // namespace alidade

#endif
