#ifndef ALIDADE_SRC_MATRIX_KERNELS_FRAGMENTS_SQUARE_INL
#define ALIDADE_SRC_MATRIX_KERNELS_FRAGMENTS_SQUARE_INL

// A diagonal block of a packed matrix in a tile: loading, storing, factorising.

#include <cstddef>

#include "matrix/kernels/fragments/lanes.inl"
#include "matrix/kernels/fragments/pack.inl"
#include "matrix/kernels/kernel_table.h"
#include "square_root.h"

namespace alidade::kernels::ALIDADE_ISA {

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

// The diagonal block of rows [first, first + order) in columns: element (i, k) at k * ld + i, zeros above the diagonal
// and beyond the last row and column as far as strips reach.
static void load_square(double* square, std::ptrdiff_t ld, const double* packed, std::ptrdiff_t first,
                        std::ptrdiff_t order) {
  const std::ptrdiff_t padded = (order + kStrip - 1) / kStrip * kStrip;
  for (std::ptrdiff_t i = 0; i < padded; i += kWidth) {
    const double* p = packed + packed_row(first + i) + first;
    for (std::ptrdiff_t k = 0; k < padded; k += kWidth) {
      Vector block[kWidth];
      ALIDADE_UNROLL
      for (int r = 0; r < kWidth; ++r) {
        const double* row = p + r * (first + i) + r * (r + 1) / 2 + k;
        block[r] = i + r >= order || k > i ? zero() : k < i ? load(row) : load_lanes_or_zero(row, r + 1);
      }
      transpose(block);
      ALIDADE_UNROLL
      for (int r = 0; r < kWidth; ++r) {
        store(square + (k + r) * ld + i, block[r]);
      }
    }
  }
}

// The first `columns` columns of it back into the matrix.
static void store_square(const double* square, std::ptrdiff_t ld, double* packed, std::ptrdiff_t first,
                         std::ptrdiff_t order, std::ptrdiff_t columns) {
  for (std::ptrdiff_t i = 0; i < order; i += kWidth) {
    for (std::ptrdiff_t k = 0; k < smaller(i + 1, columns); k += kWidth) {
      Vector block[kWidth];
      ALIDADE_UNROLL
      for (int r = 0; r < kWidth; ++r) {
        block[r] = load(square + (k + r) * ld + i);
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

// Columns are finished kWidth at a time, in registers, V vectors of lanes together.
template <int V>
using Strip = Vector[kWidth][V];

// The first C columns of the strip from column k on, lanes from `lane` on, less the products of the columns before it.
template <int V, int C>
ALIDADE_INLINE void load_strip(const double* square, std::ptrdiff_t ld, std::ptrdiff_t k, std::ptrdiff_t lane,
                               Strip<V>& strip) {
  ALIDADE_UNROLL
  for (int c = 0; c < C; ++c) {
    ALIDADE_UNROLL
    for (int v = 0; v < V; ++v) {
      strip[c][v] = load(square + (k + c) * ld + lane + v * kWidth);
    }
  }
  for (std::ptrdiff_t j = 0; j < k; ++j, square += ld) {
    Vector l[V];
    ALIDADE_UNROLL
    for (int v = 0; v < V; ++v) {
      l[v] = load(square + lane + v * kWidth);
    }
    ALIDADE_UNROLL
    for (int c = 0; c < C; ++c) {
      const Vector factor = broadcast(square + k + c);
      ALIDADE_UNROLL
      for (int v = 0; v < V; ++v) {
        strip[c][v] = strip[c][v] - l[v] * factor;
      }
    }
  }
}
template <int V, int C>
ALIDADE_INLINE void store_strip(double* square, std::ptrdiff_t ld, std::ptrdiff_t k, std::ptrdiff_t lane,
                                const Strip<V>& strip) {
  ALIDADE_UNROLL
  for (int c = 0; c < C; ++c) {
    ALIDADE_UNROLL
    for (int v = 0; v < V; ++v) {
      store(square + (k + c) * ld + lane + v * kWidth, strip[c][v]);
    }
  }
}

// Column c of a strip is done but for its factor; those after it lose its products.
template <int V>
ALIDADE_INLINE void finish_column(Strip<V>& strip, int c, const double* reciprocal) {
  ALIDADE_UNROLL
  for (int v = 0; v < V; ++v) {
    strip[c][v] = strip[c][v] * broadcast(reciprocal);
  }
}
template <int V>
ALIDADE_INLINE void subtract_column(Strip<V>& strip, int c, int other, const double* factor) {
  ALIDADE_UNROLL
  for (int v = 0; v < V; ++v) {
    strip[other][v] = strip[other][v] - strip[c][v] * broadcast(factor);
  }
}

// The lanes of a strip of at most C columns that begin with those on the diagonal; as many of its columns as have a
// positive pivot.
template <int V, int C>
int factor_on_diagonal(double* square, std::ptrdiff_t ld, std::ptrdiff_t k, std::ptrdiff_t order) {
  Strip<V> strip;
  load_strip<V, C>(square, ld, k, k, strip);
  double reciprocals[kWidth];
  int finished = 0;
  double pivot = strip[0][0][0];
  ALIDADE_UNROLL
  for (int c = 0; c < C; ++c) {
    if (finished < c || k + c >= order || !(pivot > 0.0)) {
      continue;
    }
    reciprocals[c] = 1.0 / alidade::square_root(pivot);
    if (c + 1 < C) {  // the next pivot by itself: its root is what the next column waits for
      const double below = strip[c][0][c + 1] * reciprocals[c];
      pivot = strip[c + 1][0][c + 1] - below * below;
    }
    finish_column<V>(strip, c, reciprocals + c);
    ALIDADE_UNROLL
    for (int other = c + 1; other < C; ++other) {
      const double factor = strip[c][0][other];
      subtract_column<V>(strip, c, other, &factor);
    }
    finished = c + 1;
  }
  store_strip<V, C>(square, ld, k, k, strip);
  for (int c = 0; c < finished; ++c) {
    square[(k + c) * ld + k + c] = reciprocals[c];
  }
  return finished;
}

// Its lanes below, for whole strips.
template <int V>
void factor_below(double* square, std::ptrdiff_t ld, std::ptrdiff_t k, std::ptrdiff_t lane) {
  Strip<V> strip;
  load_strip<V, kWidth>(square, ld, k, lane, strip);
  const double* column = square + k * ld + k;
  ALIDADE_UNROLL
  for (int c = 0; c < kWidth; ++c, column += ld) {
    finish_column<V>(strip, c, column + c);
    ALIDADE_UNROLL
    for (int other = c + 1; other < kWidth; ++other) {
      subtract_column<V>(strip, c, other, column + other);
    }
  }
  store_strip<V, kWidth>(square, ld, k, lane, strip);
}

// Factorises the block, rows ascending; its diagonal gets the reciprocals. The number of finished columns. A value of
// the factor that is not finite makes the pivot of its row fail.
static std::ptrdiff_t factor_square(double* square, std::ptrdiff_t ld, std::ptrdiff_t order) {
  std::ptrdiff_t finished = 0;
  for (std::ptrdiff_t k = 0; k < order; k += kWidth) {
    const std::ptrdiff_t rest = order - k;
    const int columns = (rest > kWidth       ? factor_on_diagonal<2, kWidth>
                         : rest > kWidth / 2 ? factor_on_diagonal<1, kWidth>
                                             : factor_on_diagonal<1, kWidth / 2>)(square, ld, k, order);
    finished += columns;
    for (std::ptrdiff_t lane = k + 2 * kWidth; lane < order;) {
      const std::ptrdiff_t vectors = next_piece((order - lane + kWidth - 1) / kWidth, 3);
      (vectors == 3 ? factor_below<3> : vectors == 2 ? factor_below<2> : factor_below<1>)(square, ld, k, lane);
      lane += vectors * kWidth;
    }
    if (columns < kWidth) {
      break;
    }
  }
  return finished;
}

// Neither an infinity nor a NaN nor a -0.0?
static bool usual_square(const double* square, std::ptrdiff_t ld, std::ptrdiff_t order) {
  Bits found = {};
  Vector check = zero();
  for (std::ptrdiff_t k = 0; k < order; ++k) {
    for (std::ptrdiff_t i = k / kWidth * kWidth; i < order; i += kWidth) {
      const Vector v = load(square + k * ld + i);
      found |= negative_zeros(v);
      check = v * zero() + check;
    }
  }
  return all_zero(check) && !any_bit(found);
}

// Are the finished columns and the pivot that ended them, if one did?
static bool all_finite(const double* square, std::ptrdiff_t ld, std::ptrdiff_t order, std::ptrdiff_t finished) {
  Vector check = zero();
  for (std::ptrdiff_t k = 0; k < smaller(order, finished + 1); ++k) {
    for (std::ptrdiff_t i = k / kWidth * kWidth; i < order; i += kWidth) {
      check = load(square + k * ld + i) * zero() + check;
    }
  }
  return all_zero(check);
}

}  // namespace alidade::kernels::ALIDADE_ISA

#endif
