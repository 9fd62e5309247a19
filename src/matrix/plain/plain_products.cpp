#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "matrix/packed_index.h"
#include "matrix/plain/ordered_sums.h"
#include "matrix/plain/plain_kernels.h"
#include "strict_arithmetic.h"

namespace alidade::plain {

namespace {

// c(i) += f a(i, l) for the elements of column l that the storage mode holds.
void add_scaled_mode_column(double* c, const double* a, int mode, std::ptrdiff_t l, double f, std::ptrdiff_t n) {
  if (mode < 1) {
    add_scaled<false>(c, a + l * n, f, n);
  } else if (mode > 1) {
    if (l < n) {
      c[l] = add_term<false>(c[l], a[l] * f);
    }
  } else {
    add_scaled<false>(c, a + packed_size(l), f, std::min(l, n));
    for (std::ptrdiff_t i = l; i < n; ++i) {
      c[i] = add_term<false>(c[i], a[packed_size(i) + l] * f);
    }
  }
}

// Rows j of A Q for a block of j, one column l at a time, then spread over the rows i >= j of the packed target, whose
// elements of one row are neighbours.
template <bool kSubtract>
void add_congruence(const double* a, const double* q, double* c, std::ptrdiff_t n, std::ptrdiff_t m) {
  double t[kBlock];
  for (std::ptrdiff_t first = 0; first < n; first += kBlock) {
    const std::ptrdiff_t count = std::min(kBlock, n - first);
    for (std::ptrdiff_t l = 0; l < m; ++l) {
      clear(t, count);
      for (std::ptrdiff_t p = 0; p < m; ++p) {
        add_scaled<false>(t, a + p * n + first, q[packed_index(p, l)], count);
      }
      for (std::ptrdiff_t i = first; i < n; ++i) {
        add_scaled<kSubtract>(c + packed_size(i) + first, t, a[l * n + i], std::min(count, i - first + 1));
      }
    }
  }
}

}  // namespace

void matrix_product(const double* a, const double* b, double* c, int n, int m, int k) {
  const std::ptrdiff_t rows = n;
  const std::ptrdiff_t terms = m;
  clear_dense(c, n, k);
  for (std::ptrdiff_t j = 0; j < k; ++j) {
    for (std::ptrdiff_t l = 0; l < terms; ++l) {
      add_scaled<false>(c + j * rows, a + l * rows, b[j * terms + l], rows);
    }
  }
}

void transposed_product(const double* a, const double* b, double* c, int n, int m, int k) {
  const std::ptrdiff_t terms = n;
  const std::ptrdiff_t rows = m;
  clear_dense(c, m, k);
  for (std::ptrdiff_t j = 0; j < k; ++j) {
    add_dots<false>(c + j * rows, a, terms, rows, b + j * terms, terms);
  }
}

void mixed_product(const double* a, const double* b, double* c, int n, int m, int modeA, int modeB, int k) {
  // The sum of the two digits decides, whatever the modes: (3, 3) is no product of diagonals here, (1, 12) is one.
  const std::int64_t code = std::int64_t{modeA} * 10 + modeB;
  if (code == 22) {
    for (std::ptrdiff_t i = 0; i < n; ++i) {
      c[i] = a[i] * b[i];
    }
    return;
  }
  if (code == 0) {
    matrix_product(a, b, c, n, m, k);
    return;
  }
  const std::ptrdiff_t rows = n;
  const std::ptrdiff_t terms = m;
  clear_dense(c, n, k);
  for (std::ptrdiff_t j = 0; j < k; ++j) {
    double* column = c + j * rows;
    if (modeA == 1 && modeB < 1) {
      add_symmetric_rows<false>(column, a, 0, rows, b + j * terms, terms);
      continue;
    }
    for (std::ptrdiff_t l = 0; l < terms; ++l) {
      const std::int64_t location = mode_location(l + 1, j + 1, m, modeB);
      if (location != 0) {
        add_scaled_mode_column(column, a, modeA, l, b[location - 1], rows);
      }
    }
  }
}

void congruence_product(const double* a, const double* q, double* c, int n, int m, char op) {
  if (op != '+' && op != '-') {
    clear_packed(c, n);
  }
  if (op == '-' || op == '|') {
    add_congruence<true>(a, q, c, n, m);
  } else {
    add_congruence<false>(a, q, c, n, m);
  }
}

void transposed_congruence_vector(double* r, char op, const double* a, const double* q, const double* l, int n, int m) {
  if (op != '+') {
    clear(r, m);
  }
  double t[kBlock];
  for (std::ptrdiff_t i = 0; i < m; ++i) {
    for (std::ptrdiff_t first = 0; first < n; first += kBlock) {
      const std::ptrdiff_t count = std::min(kBlock, n - first);
      clear(t, count);
      add_symmetric_rows<false>(t, q, first, count, a + i * n, n);
      r[i] = add_dot<false>(r[i], l + first, t, count);
    }
  }
}

}  // namespace alidade::plain
