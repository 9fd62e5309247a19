#include <algorithm>
#include <cstddef>

#include "matrix/packed_index.h"
#include "matrix/plain/ordered_sums.h"
#include "matrix/plain/plain_kernels.h"
#include "strict_arithmetic.h"

namespace alidade::plain {

namespace {

bool clears(char op) { return op == '=' || op == '|'; }
bool subtracts(char op) { return op == '-' || op == '|'; }

template <bool kSubtract>
void add_transposed_congruence(double* t, const double* r, std::ptrdiff_t a, std::ptrdiff_t b, const double* s) {
  double sr[kBlock];
  for (std::ptrdiff_t first = 0; first < a; first += kBlock) {
    const std::ptrdiff_t count = std::min(kBlock, a - first);
    for (std::ptrdiff_t k = 0; k < b; ++k) {
      clear(sr, count);
      add_symmetric_rows<false>(sr, s, first, count, r + k * a, a);
      add_dots<kSubtract>(t + packed_size(k), r + first, a, k + 1, sr, count);
    }
  }
}

template <bool kSubtract>
void add_gram(double* t, const double* r, std::ptrdiff_t a, std::ptrdiff_t b) {
  for (std::ptrdiff_t k = 0; k < b; ++k) {
    add_dots<kSubtract>(t + packed_size(k), r, a, k + 1, r + k * a, a);
  }
}

// The two products of one term are summed before they meet the target.
template <bool kSubtract>
void add_symmetrized_product(double* t, const double* a, const double* b, std::ptrdiff_t rows, std::ptrdiff_t cols) {
  for (std::ptrdiff_t k = 0; k < rows; ++k) {
    double* row = t + packed_size(k);
    for (std::ptrdiff_t l = 0; l < cols; ++l) {
      const double* al = a + l * rows;
      const double* bl = b + l * rows;
      const double ak = al[k];
      const double bk = bl[k];
      for (std::ptrdiff_t i = 0; i <= k; ++i) {
        row[i] = add_term<kSubtract>(row[i], ak * bl[i] + al[i] * bk);
      }
    }
  }
}

// Row k of S1 against the columns i <= k of S2. Row p of S2 gives element p its terms 0 ... p and then, as column p,
// every earlier element its term p.
template <bool kSubtract>
void add_symmetric_product(double* t, const double* s1, const double* s2, std::ptrdiff_t n) {
  for (std::ptrdiff_t k = 0; k < n; ++k) {
    double* row = t + packed_size(k);
    for (std::ptrdiff_t p = 0; p < n; ++p) {
      const double* s2_row = s2 + packed_size(p);
      if (p <= k) {
        row[p] = add_dot<kSubtract>(row[p], s1 + packed_size(k), s2_row, p + 1);
      }
      add_scaled<kSubtract>(row, s2_row, s1[packed_index(k, p)], std::min(p, k + 1));
    }
  }
}

template <bool kSubtract>
void add_symmetric_dense(double* t, std::ptrdiff_t t_rows, const double* s, const double* r, std::ptrdiff_t a,
                         std::ptrdiff_t b) {
  for (std::ptrdiff_t j = 0; j < b; ++j) {
    add_symmetric_rows<kSubtract>(t + j * t_rows, s, 0, a, r + j * a, a);
  }
}

template <bool kSubtract>
void add_dense_symmetric(double* t, std::ptrdiff_t t_rows, const double* r, std::ptrdiff_t a, std::ptrdiff_t b,
                         const double* s) {
  for (std::ptrdiff_t j = 0; j < b; ++j) {
    for (std::ptrdiff_t l = 0; l < b; ++l) {
      add_scaled<kSubtract>(t + j * t_rows, r + l * a, s[packed_index(l, j)], a);
    }
  }
}

template <bool kSubtract>
void add_transposed_dense(double* t, std::ptrdiff_t t_rows, const double* r1, std::ptrdiff_t a, std::ptrdiff_t b,
                          const double* r2, std::ptrdiff_t r2_rows, std::ptrdiff_t c) {
  for (std::ptrdiff_t j = 0; j < c; ++j) {
    add_dots<kSubtract>(t + j * t_rows, r1, a, b, r2 + j * r2_rows, a);
  }
}

template <bool kSubtract>
void add_dense_dense(double* t, const double* r1, std::ptrdiff_t a, std::ptrdiff_t b, const double* r2,
                     std::ptrdiff_t r2_rows, std::ptrdiff_t c) {
  for (std::ptrdiff_t j = 0; j < c; ++j) {
    for (std::ptrdiff_t l = 0; l < b; ++l) {
      add_scaled<kSubtract>(t + j * a, r1 + l * a, r2[j * r2_rows + l], a);
    }
  }
}

template <bool kSubtract>
void add_dense_transposed(double* t, const double* r1, std::ptrdiff_t a, const double* r2, std::ptrdiff_t c,
                          std::ptrdiff_t b) {
  for (std::ptrdiff_t j = 0; j < c; ++j) {
    for (std::ptrdiff_t l = 0; l < b; ++l) {
      add_scaled<kSubtract>(t + j * a, r1 + l * a, r2[l * c + j], a);
    }
  }
}

// t += R1 M R2' for a middle matrix M given by its elements m(l, j): `inner` rows, `b` columns; R2 is c x b. The
// elements (R1 M)(i, j) of a block of rows i are formed for one j and spread over the c columns of t.
template <bool kSubtract, class Middle>
void add_three_factors(double* t, const double* r1, std::ptrdiff_t a, Middle m, std::ptrdiff_t inner, const double* r2,
                       std::ptrdiff_t c, std::ptrdiff_t b) {
  double left[kBlock];
  for (std::ptrdiff_t first = 0; first < a; first += kBlock) {
    const std::ptrdiff_t count = std::min(kBlock, a - first);
    for (std::ptrdiff_t j = 0; j < b; ++j) {
      clear(left, count);
      for (std::ptrdiff_t l = 0; l < inner; ++l) {
        add_scaled<false>(left, r1 + l * a + first, m(l, j), count);
      }
      for (std::ptrdiff_t p = 0; p < c; ++p) {
        add_scaled<kSubtract>(t + p * a + first, left, r2[j * c + p], count);
      }
    }
  }
}

}  // namespace

void op_transposed_congruence(double* t, int t_order, char op, const double* r, int a, int b, const double* s) {
  if (clears(op)) {
    clear_packed(t, t_order);
  }
  subtracts(op) ? add_transposed_congruence<true>(t, r, a, b, s) : add_transposed_congruence<false>(t, r, a, b, s);
}

void op_gram(double* t, int t_order, char op, const double* r, int a, int b) {
  if (clears(op)) {
    clear_packed(t, t_order);
  }
  subtracts(op) ? add_gram<true>(t, r, a, b) : add_gram<false>(t, r, a, b);
}

void op_symmetrized_product(double* t, int t_order, char op, const double* a, const double* b, int rows, int cols) {
  if (clears(op)) {
    clear_packed(t, t_order);
  }
  subtracts(op) ? add_symmetrized_product<true>(t, a, b, rows, cols)
                : add_symmetrized_product<false>(t, a, b, rows, cols);
}

void op_symmetric_product(double* t, int t_order, char op, const double* s1, const double* s2, int n) {
  if (clears(op)) {
    clear_packed(t, t_order);
  }
  subtracts(op) ? add_symmetric_product<true>(t, s1, s2, n) : add_symmetric_product<false>(t, s1, s2, n);
}

void op_symmetric_dense(double* t, int t_rows, int t_cols, char op, const double* s, const double* r, int a, int b) {
  if (clears(op)) {
    clear_dense(t, t_rows, t_cols);
  }
  subtracts(op) ? add_symmetric_dense<true>(t, t_rows, s, r, a, b) : add_symmetric_dense<false>(t, t_rows, s, r, a, b);
}

void op_dense_symmetric(double* t, int t_rows, int t_cols, char op, const double* r, int a, int b, const double* s) {
  if (clears(op)) {
    clear_dense(t, t_rows, t_cols);
  }
  subtracts(op) ? add_dense_symmetric<true>(t, t_rows, r, a, b, s) : add_dense_symmetric<false>(t, t_rows, r, a, b, s);
}

void op_transposed_dense(double* t, int t_rows, int t_cols, char op, const double* r1, int a, int b, const double* r2,
                         int r2_rows, int c) {
  if (clears(op)) {
    clear_dense(t, t_rows, t_cols);
  }
  subtracts(op) ? add_transposed_dense<true>(t, t_rows, r1, a, b, r2, r2_rows, c)
                : add_transposed_dense<false>(t, t_rows, r1, a, b, r2, r2_rows, c);
}

void op_dense_dense(double* t, char op, const double* r1, int a, int b, const double* r2, int r2_rows, int c) {
  if (clears(op)) {
    clear_dense(t, a, c);
  }
  subtracts(op) ? add_dense_dense<true>(t, r1, a, b, r2, r2_rows, c)
                : add_dense_dense<false>(t, r1, a, b, r2, r2_rows, c);
}

void op_dense_transposed(double* t, char op, const double* r1, int a, const double* r2, int c, int b) {
  if (clears(op)) {
    clear_dense(t, a, c);
  }
  subtracts(op) ? add_dense_transposed<true>(t, r1, a, r2, c, b) : add_dense_transposed<false>(t, r1, a, r2, c, b);
}

void op_dense_symmetric_transposed(double* t, char op, const double* r1, int a, const double* s, const double* r2,
                                   int c, int b) {
  if (clears(op)) {
    clear_dense(t, a, c);
  }
  const auto middle = [s](std::ptrdiff_t l, std::ptrdiff_t j) { return s[packed_index(l, j)]; };
  subtracts(op) ? add_three_factors<true>(t, r1, a, middle, b, r2, c, b)
                : add_three_factors<false>(t, r1, a, middle, b, r2, c, b);
}

void op_dense_dense_transposed(double* t, char op, const double* r1, int a, const double* r2, int b, const double* r3,
                               int d, int c) {
  if (clears(op)) {
    clear_dense(t, a, d);
  }
  const auto middle = [r2, b](std::ptrdiff_t l, std::ptrdiff_t j) { return r2[dense_index(l, j, b)]; };
  subtracts(op) ? add_three_factors<true>(t, r1, a, middle, b, r3, d, c)
                : add_three_factors<false>(t, r1, a, middle, b, r3, d, c);
}

}  // namespace alidade::plain
