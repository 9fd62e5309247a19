#ifndef ALIDADE_SRC_MATRIX_KERNELS_FRAGMENTS_SQUARE_INL
#define ALIDADE_SRC_MATRIX_KERNELS_FRAGMENTS_SQUARE_INL

// A diagonal block of a packed matrix in a stack tile: loading, storing, factorising.

#include <cstddef>
#include <utility>

#include "matrix/kernels/fragments/lanes.inl"
#include "matrix/kernels/fragments/pack.inl"
#include "matrix/kernels/kernel_table.h"
#include "square_root.h"

namespace alidade::kernels::ALIDADE_ISA {

// A small square of coefficients, line by line.
constexpr std::ptrdiff_t kSquare = kSingleBlock;
struct Square {
  alignas(64) double values[kSquare * kSquare];
};
struct BlockSquare {  // as many lines as a block of a larger matrix has
  alignas(64) double values[kInversionBlock * kSquare];
};
constexpr std::ptrdiff_t kStrip = 8;  // its rows and columns are padded to multiples of this
constexpr int kStripVectors = static_cast<int>(kStrip) / kWidth;

// Rows of the packed matrix into a tile, one line each, zeros right of the diagonal; and back.
static void copy_rows(double* tile, std::ptrdiff_t stride, const double* packed, std::ptrdiff_t row,
                      std::ptrdiff_t rows, std::ptrdiff_t column, std::ptrdiff_t lanes) {
  for (std::ptrdiff_t i = row; i < row + rows; ++i, tile += stride) {
    const std::ptrdiff_t stored = smaller(lanes, i + 1 - column);
    const double* p = packed + packed_row(i) + column;
    std::ptrdiff_t lane = 0;
    for (; lane + kWidth <= stored; lane += kWidth) {
      store(tile + lane, load(p + lane));
    }
    for (; lane < lanes; lane += kWidth) {
      store(tile + lane, load_lanes_or_zero(p + lane, stored - lane));
    }
  }
}
static void store_rows(const double* tile, std::ptrdiff_t stride, double* packed, std::ptrdiff_t row,
                       std::ptrdiff_t rows, std::ptrdiff_t column, std::ptrdiff_t lanes) {
  for (std::ptrdiff_t i = row; i < row + rows; ++i, tile += stride) {
    const std::ptrdiff_t stored = smaller(lanes, i + 1 - column);
    double* p = packed + packed_row(i) + column;
    for (std::ptrdiff_t lane = 0; lane < stored; lane += kWidth) {
      store_lanes(p + lane, load(tile + lane), stored - lane);
    }
  }
}

// The diagonal block of rows [first, first + order) in columns: element (i, k) at k * kSquare + i, zeros above the
// diagonal and below the last row as far as strips reach.
static void load_square(double* square, const double* packed, std::ptrdiff_t first, std::ptrdiff_t order) {
  const std::ptrdiff_t padded = (order + kStrip - 1) / kStrip * kStrip;
  for (std::ptrdiff_t i = 0; i < padded; i += kWidth) {
    const double* p = packed + packed_row(first + i) + first;
    for (std::ptrdiff_t k = 0; k < (i / kStrip + 1) * kStrip; k += kWidth) {
      Vector block[kWidth];
      ALIDADE_UNROLL
      for (int r = 0; r < kWidth; ++r) {
        const double* row = p + r * (first + i) + r * (r + 1) / 2 + k;
        block[r] = i + r >= order || k > i ? zero() : k < i ? load(row) : load_lanes_or_zero(row, r + 1);
      }
      transpose(block);
      ALIDADE_UNROLL
      for (int r = 0; r < kWidth; ++r) {
        store(square + (k + r) * kSquare + i, block[r]);
      }
    }
  }
}

// The first `columns` columns of it back into the matrix.
static void store_square(const double* square, double* packed, std::ptrdiff_t first, std::ptrdiff_t order,
                         std::ptrdiff_t columns) {
  for (std::ptrdiff_t i = 0; i < order; i += kWidth) {
    for (std::ptrdiff_t k = 0; k < smaller(i + 1, columns); k += kWidth) {
      Vector block[kWidth];
      ALIDADE_UNROLL
      for (int r = 0; r < kWidth; ++r) {
        block[r] = load(square + (k + r) * kSquare + i);
      }
      transpose(block);
      ALIDADE_UNROLL
      for (int r = 0; r < kWidth; ++r) {
        if (i + r < order) {
          store_lanes(packed + packed_row(first + i + r) + first + k, block[r], smaller(i + r + 1, columns) - k);
        }
      }
    }
  }
}

// A column of S strips that loses a multiple of the column l.
template <int S>
ALIDADE_INLINE void subtract_column(double* other, const Vector* l, const double* factor) {
  const Vector f = broadcast(factor);
  ALIDADE_UNROLL
  for (int v = 0; v < S * kStripVectors; ++v) {
    store(other + v * kWidth, load(other + v * kWidth) - l[v] * f);
  }
}
// The columns of the strips below, of which the T-th has S - T strips left.
template <int S, int T>
ALIDADE_INLINE void subtract_strip(double* square, std::ptrdiff_t order, const double* column, const Vector* l) {
  const std::ptrdiff_t end = smaller(order, (T + 1) * kStrip);
  for (std::ptrdiff_t j = T * kStrip; j < end; ++j) {
    subtract_column<S - T>(square + j * kSquare + T * kStrip, l + T * kStripVectors, column + j);
  }
}
template <int S, int... kBefore>
ALIDADE_INLINE void subtract_strips([[maybe_unused]] double* square, [[maybe_unused]] std::ptrdiff_t order,
                                    [[maybe_unused]] const double* column, [[maybe_unused]] const Vector* l,
                                    std::integer_sequence<int, kBefore...>) {
  (subtract_strip<S, kBefore + 1>(square, order, column, l), ...);
}

// Factorises the columns of the first of S strips, which is on the diagonal, and then those of the others: as many as
// have a positive pivot.
template <int S>
std::ptrdiff_t factor_strips(double* square, std::ptrdiff_t order) {
  const std::ptrdiff_t own = smaller(order, kStrip);
  for (std::ptrdiff_t k = 0; k < own; ++k) {
    double* column = square + k * kSquare;
    if (!(column[k] > 0.0)) {
      return k;
    }
    const double reciprocal = 1.0 / alidade::square_root(column[k]);
    const Vector factor = broadcast(&reciprocal);
    Vector l[S * kStripVectors];
    ALIDADE_UNROLL
    for (int v = 0; v < S * kStripVectors; ++v) {
      l[v] = load(column + v * kWidth) * factor;
      store(column + v * kWidth, l[v]);
    }
    for (std::ptrdiff_t j = k + 1; j < own; ++j) {
      subtract_column<S>(square + j * kSquare, l, column + j);
    }
    subtract_strips<S>(square, order, column, l, std::make_integer_sequence<int, S - 1>());
    column[k] = reciprocal;
  }
  if constexpr (S > 1) {
    return own + factor_strips<S - 1>(square + kStrip * kSquare + kStrip, order - own);
  } else {
    return own;
  }
}

// Factorises the block, rows ascending; its diagonal gets the reciprocals. The number of finished columns. A value of
// the factor that is not finite makes the pivot of its row fail.
static std::ptrdiff_t factor_square(double* square, std::ptrdiff_t order) {
  constexpr std::ptrdiff_t (*kRun[])(double*, std::ptrdiff_t) = {factor_strips<1>, factor_strips<2>, factor_strips<3>,
                                                                 factor_strips<4>, factor_strips<5>, factor_strips<6>,
                                                                 factor_strips<7>, factor_strips<8>};
  static_assert(kSquare == 8 * kStrip, "an instance for each number of strips");
  return kRun[(order - 1) / kStrip](square, order);
}

// Neither an infinity nor a NaN nor a -0.0?
static bool usual_square(const double* square, std::ptrdiff_t order) {
  Bits found = {};
  Vector check = zero();
  for (std::ptrdiff_t k = 0; k < order; ++k) {
    for (std::ptrdiff_t i = k / kWidth * kWidth; i < order; i += kWidth) {
      const Vector v = load(square + k * kSquare + i);
      found |= negative_zeros(v);
      check = v * zero() + check;
    }
  }
  return all_zero(check) && !any_bit(found);
}

static bool all_finite(const double* square, std::ptrdiff_t order, std::ptrdiff_t columns) {
  Vector check = zero();
  for (std::ptrdiff_t k = 0; k < columns; ++k) {
    for (std::ptrdiff_t i = k / kWidth * kWidth; i < order; i += kWidth) {
      check = load(square + k * kSquare + i) * zero() + check;
    }
  }
  return all_zero(check);
}

}  // namespace alidade::kernels::ALIDADE_ISA

#endif
