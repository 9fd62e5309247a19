#ifndef ALIDADE_SRC_MATRIX_PACKED_INDEX_H
#define ALIDADE_SRC_MATRIX_PACKED_INDEX_H

// Where the elements of a matrix lie, in 64 bits: n * (n + 1) leaves int from n = 46,341 on, while a packed triangle of
// order 65,535 (16 GiB) is a matrix like any other.

#include <cstddef>
#include <cstdint>

#include "strict_arithmetic.h"

namespace alidade {

// Number of elements in the packed triangle of order n. Equally the position of element (n, 0), the first of row n.
inline std::ptrdiff_t packed_size(std::int64_t n) { return static_cast<std::ptrdiff_t>(n * (n + 1) / 2); }

// Position of element (i, j), zero-based, in the lower triangle packed row by row; (i, j) and (j, i) are one element.
inline std::ptrdiff_t packed_index(std::int64_t i, std::int64_t j) {
  return i > j ? packed_size(i) + static_cast<std::ptrdiff_t>(j) : packed_size(j) + static_cast<std::ptrdiff_t>(i);
}

// Number of elements in `columns` whole columns of `rows` rows. Equally the position of element (0, columns).
inline std::ptrdiff_t dense_size(std::int64_t rows, std::int64_t columns) {
  return static_cast<std::ptrdiff_t>(rows * columns);
}

// Position of element (i, j), zero-based, of a matrix with `rows` rows stored column by column.
inline std::ptrdiff_t dense_index(std::int64_t i, std::int64_t j, std::int64_t rows) {
  return static_cast<std::ptrdiff_t>(i + j * rows);
}

// Position, counted from 1, of element (i, j), also counted from 1, of a matrix stored in the given mode; 0 where that
// mode stores no such element. Mode 1: packed triangle; above 1: diagonal alone; below 1: n rows, column by column.
inline std::int64_t mode_location(std::int64_t i, std::int64_t j, std::int64_t n, int mode) {
  if (mode < 1) {
    return i + (j - 1) * n;
  }
  if (mode > 1) {
    return i == j ? i : 0;
  }
  return i < j ? i + j * (j - 1) / 2 : j + i * (i - 1) / 2;
}

}  // namespace alidade

#endif
