#include "reference/blocks.h"

namespace reference {
namespace {

// One pair of a matrix element and a buffer element; each code is tested for itself.
void pair(double* element, double* buf, std::int64_t k, char op) {
  if (op == '+') {
    *element = *element + buf[k];
  }
  if (op == '-') {
    *element = *element - buf[k];
  }
  if (op == '0') {
    *element = 0.0;
  }
  if (op == '=') {
    *element = buf[k];
  }
  if (op == '>') {
    buf[k] = *element;
  }
}

std::int64_t triangle(std::int64_t i, std::int64_t j) {
  const std::int64_t larger = i < j ? j : i;
  const std::int64_t smaller = i < j ? i : j;
  return larger * (larger + 1) / 2 + smaller;
}

}  // namespace

void packed_block(double* s, int i0, int j0, int n1, int n2, char op, double* buf) {
  if (n2 < 1 || n1 < 1) {
    return;
  }
  for (int k = 0; k < n2; ++k) {
    for (int m = 0; m < n1; ++m) {
      pair(s + triangle(i0 + m, j0 + k), buf, m + static_cast<std::int64_t>(n1) * k, op);
    }
  }
}

void packed_diagonal_block(double* s, int k0, int nk, char op, double* buf) {
  if (nk < 1) {
    return;
  }
  for (int r = 0; r < nk; ++r) {
    for (int c = 0; c <= r; ++c) {
      pair(s + triangle(k0 + r, k0 + c), buf, triangle(r, c), op);
    }
  }
}

void dense_block(int ld, double* m, int i0, int j0, int n1, int n2, char op, double* buf) {
  if (n2 < 1 || n1 < 1) {
    return;
  }
  double* start = m + (i0 + static_cast<std::int64_t>(ld) * j0);
  std::int64_t k = 0;
  for (int jj = 0; jj < n2; ++jj) {
    for (int ii = 0; ii < n1; ++ii) {
      pair(start + (static_cast<std::int64_t>(ld) * jj + ii), buf, k, op);
      ++k;
    }
  }
}

std::int64_t locate(std::int64_t i, std::int64_t j, std::int64_t n, int ms) {
  if (ms < 1) {
    return i + (j - 1) * n;
  }
  if (ms == 1) {
    if (i < j) {
      return i + j * (j - 1) / 2;
    }
    return j + i * (i - 1) / 2;
  }
  if (i == j) {
    return i;
  }
  return 0;
}

void set_dimension(Shape& shape, int n1, int n2) {
  if (n1 == -1 && n2 <= shape.n2) {
    return;
  }
  if (n2 < 0) {
    if (n1 <= shape.n1) {
      shape.n1 = n1;
    }
    return;
  }
  const std::int64_t product = static_cast<std::int64_t>(n1) * static_cast<std::int64_t>(n2);
  if (product <= shape.capacity) {
    shape.n1 = n1;
    shape.n2 = n2;
  }
}

}  // namespace reference
