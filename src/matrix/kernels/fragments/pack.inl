#ifndef ALIDADE_SRC_MATRIX_KERNELS_FRAGMENTS_PACK_INL
#define ALIDADE_SRC_MATRIX_KERNELS_FRAGMENTS_PACK_INL

// Panels: blocks of an operand put so that the lanes of a term are contiguous.

#include <cstddef>

#include "matrix/kernels/fragments/tile.inl"
#include "matrix/kernels/kernel_table.h"

namespace alidade::kernels::ALIDADE_ISA {

constexpr std::ptrdiff_t kBlockLanes = 48;  // a multiple of the width of every tile
constexpr std::ptrdiff_t kBlockTerms = 128;

ALIDADE_INLINE std::ptrdiff_t larger(std::ptrdiff_t x, std::ptrdiff_t y) { return x > y ? x : y; }
ALIDADE_INLINE std::ptrdiff_t packed_row(std::ptrdiff_t i) { return i * (i + 1) / 2; }

// Rows of a packed triangle from row i on, seen from their element in the given column.
ALIDADE_INLINE Walk packed_rows(const double* packed, std::ptrdiff_t i, std::ptrdiff_t column) {
  return {packed + packed_row(i) + column, i + 1, 1};
}
ALIDADE_INLINE TargetWalk target_rows(double* packed, std::ptrdiff_t i, std::ptrdiff_t column) {
  return {packed + packed_row(i) + column, i + 1, 1};
}

ALIDADE_INLINE Vector signed_as(Vector v, bool negate) { return negate ? -v : v; }

ALIDADE_INLINE void pad_lanes(double* to, std::ptrdiff_t lanes) {
  for (std::ptrdiff_t i = lanes; i % kWidth != 0; ++i) {
    to[i] = to[0];
  }
}

// From terms that lie contiguous in lanes.
static void copy_lanes(double* to, const Walk& term_walk, std::ptrdiff_t lanes, std::ptrdiff_t terms, bool negate,
                       std::ptrdiff_t ld) {
  for (std::ptrdiff_t t = 0; t < terms; ++t, to += ld) {
    const double* p = at(term_walk, t);
    std::ptrdiff_t i = 0;
    for (; i + kWidth <= lanes; i += kWidth) {
      store(to + i, signed_as(load(p + i), negate));
    }
    if (i < lanes) {
      store(to + i, signed_as(load_first(p + i, Mask(lanes - i)), negate));
    }
  }
}

// From lanes that lie contiguous in terms: transposed block by block in registers.
static void transpose_lanes(double* to, const Walk& lane_walk, std::ptrdiff_t lanes, std::ptrdiff_t terms, bool negate,
                            std::ptrdiff_t ld) {
  for (std::ptrdiff_t i = 0; i < lanes; i += kWidth) {
    const double* p[kWidth];
    for (int r = 0; r < kWidth; ++r) {
      p[r] = at(lane_walk, smaller(i + r, lanes - 1));
    }
    for (std::ptrdiff_t t = 0; t < terms; t += kWidth) {
      Vector block[kWidth];
      ALIDADE_UNROLL
      for (int r = 0; r < kWidth; ++r) {
        block[r] = signed_as(load_lanes(p[r] + t, terms - t), negate);
      }
      transpose(block);
      ALIDADE_UNROLL
      for (int r = 0; r < kWidth; ++r) {
        if (t + r < terms) {
          store(to + (t + r) * ld + i, block[r]);
        }
      }
    }
  }
}

// Where a block of an operand is put: element (lane, term) at lane + term * ld. Lanes up to the next whole vector
// repeat one of the real ones.
struct Panel {
  double* values;
  std::ptrdiff_t ld;     // room for as many lanes
  std::ptrdiff_t terms;  // and terms
};

// From a packed symmetric matrix: its element (row + lane, column + term). Left of the diagonal block rows are
// transposed, right of it the mirrored elements are contiguous already.
static void pack_symmetric(const Panel& panel, const double* packed, std::ptrdiff_t row, std::ptrdiff_t column,
                           std::ptrdiff_t lanes, std::ptrdiff_t terms, bool negate) {
  const std::ptrdiff_t left = smaller(terms, larger(0, row - column));
  const std::ptrdiff_t right = smaller(terms, larger(left, row + lanes - column));
  transpose_lanes(panel.values, packed_rows(packed, row, column), lanes, left, negate, panel.ld);
  for (std::ptrdiff_t t = left; t < right; ++t) {
    const std::ptrdiff_t j = column + t;
    double* to = panel.values + t * panel.ld;
    for (std::ptrdiff_t i = row; i < row + lanes; ++i) {
      const double value = packed[i < j ? packed_row(j) + i : packed_row(i) + j];
      to[i - row] = negate ? -value : value;
    }
    pad_lanes(to, lanes);
  }
  copy_lanes(panel.values + right * panel.ld, packed_rows(packed, column + right, row), lanes, terms - right, negate,
             panel.ld);
}

// A block of an operand as the tile's a, element (row + lane, column + term).
static void pack(const Panel& panel, const Operand& a, std::ptrdiff_t row, std::ptrdiff_t column, std::ptrdiff_t lanes,
                 std::ptrdiff_t terms, bool negate) {
  row += a.row0;
  column += a.column0;
  if (a.layout == Operand::kDense) {
    copy_lanes(panel.values, {a.data + row + column * a.ld, a.ld, 0}, lanes, terms, negate, panel.ld);
  } else if (a.layout == Operand::kTransposed) {
    transpose_lanes(panel.values, {a.data + column + row * a.ld, a.ld, 0}, lanes, terms, negate, panel.ld);
  } else {
    pack_symmetric(panel, a.data, row, column, lanes, terms, negate);
  }
}

}  // namespace alidade::kernels::ALIDADE_ISA

#endif
