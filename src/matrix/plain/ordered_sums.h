#ifndef ALIDADE_SRC_MATRIX_PLAIN_ORDERED_SUMS_H
#define ALIDADE_SRC_MATRIX_PLAIN_ORDERED_SUMS_H

// What the plain loops are made of. Each adds terms to running sums, and each sum receives its terms in
// ascending order of their index, every addition rounded: the bits are those of the element-by-element loop.

#include <algorithm>
#include <cstddef>

#include "matrix/packed_index.h"
#include "strict_arithmetic.h"

namespace alidade::plain {

// Partial products of a product of three are kept for this many rows at a time, on the stack.
constexpr std::ptrdiff_t kBlock = 64;

template <bool kSubtract>
inline double add_term(double sum, double term) {
  return kSubtract ? sum - term : sum + term;
}

// y[i] += f x[i], or -=.
template <bool kSubtract>
inline void add_scaled(double* y, const double* x, double f, std::ptrdiff_t n) {
  for (std::ptrdiff_t i = 0; i < n; ++i) {
    y[i] = add_term<kSubtract>(y[i], x[i] * f);
  }
}

// sum += x[0] y[0] + ... + x[n-1] y[n-1], first to last, or -=.
template <bool kSubtract>
inline double add_dot(double sum, const double* x, const double* y, std::ptrdiff_t n) {
  for (std::ptrdiff_t l = 0; l < n; ++l) {
    sum = add_term<kSubtract>(sum, x[l] * y[l]);
  }
  return sum;
}

// y[i] += column i . x for `count` columns that lie `stride` apart, or -=. Four sums advance together, because one
// alone would wait for its own last addition.
template <bool kSubtract>
void add_dots(double* y, const double* columns, std::ptrdiff_t stride, std::ptrdiff_t count, const double* x,
              std::ptrdiff_t n) {
  std::ptrdiff_t i = 0;
  for (; i + 4 <= count; i += 4) {
    const double* c0 = columns + i * stride;
    const double* c1 = c0 + stride;
    const double* c2 = c1 + stride;
    const double* c3 = c2 + stride;
    double s0 = y[i], s1 = y[i + 1], s2 = y[i + 2], s3 = y[i + 3];
    for (std::ptrdiff_t l = 0; l < n; ++l) {
      s0 = add_term<kSubtract>(s0, c0[l] * x[l]);
      s1 = add_term<kSubtract>(s1, c1[l] * x[l]);
      s2 = add_term<kSubtract>(s2, c2[l] * x[l]);
      s3 = add_term<kSubtract>(s3, c3[l] * x[l]);
    }
    y[i] = s0;
    y[i + 1] = s1;
    y[i + 2] = s2;
    y[i + 3] = s3;
  }
  for (; i < count; ++i) {
    y[i] = add_dot<kSubtract>(y[i], columns + i * stride, x, n);
  }
}

// A column that multiplies a packed matrix: its first elements in sequence, and any element.
struct DenseColumn {
  const double* data;
  const double* head() const { return data; }
  double at(std::ptrdiff_t p) const { return data[p]; }
};
struct PackedColumn {  // column k of a packed matrix; in sequence are the elements 0 ... k
  const double* packed;
  std::ptrdiff_t k;
  const double* head() const { return packed + packed_size(k); }
  double at(std::ptrdiff_t p) const { return packed[packed_index(p, k)]; }
};

// y[i] += row (first + i) of S times x for `count` rows, or -=; x has `terms` elements, as many in sequence as there
// are rows. One pass over the packed rows: row p gives y its terms 0 ... p as a dot product and then, as column p,
// every earlier element its term p.
template <bool kSubtract, class Column>
void add_symmetric_rows(double* y, const double* s, std::ptrdiff_t first, std::ptrdiff_t count, const Column& x,
                        std::ptrdiff_t terms) {
  const std::ptrdiff_t end = first + count;
  for (std::ptrdiff_t p = first; p < std::max(end, terms); ++p) {
    const double* row = s + packed_size(p);
    if (p < end) {
      y[p - first] = add_dot<kSubtract>(y[p - first], row, x.head(), std::min(p + 1, terms));
    }
    if (p < terms) {
      add_scaled<kSubtract>(y, row + first, x.at(p), std::min(p - first, count));
    }
  }
}

inline void clear(double* p, std::ptrdiff_t n) {
  if (n > 0) {
    std::fill_n(p, n, 0.0);
  }
}

}  // namespace alidade::plain

#endif
