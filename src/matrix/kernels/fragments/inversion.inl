#ifndef ALIDADE_SRC_MATRIX_KERNELS_FRAGMENTS_INVERSION_INL
#define ALIDADE_SRC_MATRIX_KERNELS_FRAGMENTS_INVERSION_INL

// The three phases of the inversion of a packed normal matrix, a block of rows or columns at a time, in place.
// blocked_inversion.cpp calls them in turn.
//
// The plain loops skip zeros, which the tiles do not. A skipped product of finite factors is a zero of either sign;
// added to a sum it changes no bit unless the sum is -0.0, and a sum that starts as anything else never becomes -0.0.
// So the bits agree as long as nothing is infinite, NaN or, at the start of a sum, -0.0. The caller has looked through
// the matrix; each phase makes sure of what it produces before it destroys what the plain loops would need.

#include <cstddef>
#include <cstdint>

#include "matrix/kernels/fragments/chain.inl"
#include "matrix/kernels/fragments/pack.inl"
#include "matrix/kernels/fragments/sparsity.inl"
#include "matrix/kernels/kernel_table.h"

namespace alidade::kernels::ALIDADE_ISA {

// ---- Phase 1: N = L L', a block of columns [first, end) against the finished columns on its left.

// Row `row`, of which the part left of the block has been used up, with the plain rule: zeros are skipped.
static void finish_row_plainly(double* row, const double* square, std::ptrdiff_t columns) {
  for (std::ptrdiff_t k = 0; k < columns; ++k) {
    double work = row[k];
    bool nonzero = work != 0.0;
    for (std::ptrdiff_t j = 0; j < k; ++j) {
      const double l = square[j * kSquare + k];
      if (l != 0.0 && row[j] != 0.0) {
        work -= row[j] * l;
        nonzero = true;
      }
    }
    row[k] = nonzero ? square[k * kSquare + k] * work : 0.0;
  }
}

// The block's rows as the tile's negated a, for the terms [term, term + terms).
static void pack_block_rows(double* tile, const double* packed, std::ptrdiff_t first, std::ptrdiff_t lanes,
                            std::ptrdiff_t term, std::ptrdiff_t terms) {
  transpose_lanes(tile, packed_rows(packed, first, term), lanes, terms, true);
}

static void factor_diagonal_block(const double* packed, std::ptrdiff_t first, std::ptrdiff_t order, const Sparsity& s,
                                  StackTile& tile, double* square) {
  load_square(square, packed, first, order);
  const std::uint64_t bits = row_bits(s, first, first + order);
  for (std::ptrdiff_t term = 0; term < first; term += kBlockTerms) {
    const std::ptrdiff_t end = smaller(first, term + kBlockTerms);
    for_each_stretch(s, bits, term, end, [&](std::ptrdiff_t t0, std::ptrdiff_t t1) {
      pack_block_rows(tile.values, packed, first, order, t0, t1 - t0);
      for (std::ptrdiff_t line = 0; line < order;) {
        const std::ptrdiff_t lines = next_piece(order - line, kTileLines);
        const std::ptrdiff_t lane = line / kWidth * kWidth;
        run_lines<kColumns>({{tile.values + lane, kBlockLanes, 0},
                             packed_rows(packed, first + line, t0),
                             t1 - t0,
                             {square + line * kSquare + lane, kSquare, 0},
                             order - lane,
                             0,
                             order - lane,
                             false},
                            lines, true);
        line += lines;
      }
    });
  }
}

// All rows below the block receive the terms left of it, in place.
static void update_rows_below(double* packed, std::ptrdiff_t n, std::ptrdiff_t first, std::ptrdiff_t end,
                              std::ptrdiff_t columns, Sparsity& s, StackTile& tile) {
  const std::uint64_t bits = row_bits(s, first, end);
  const std::uint64_t own = column_bits(s, first, end);
  for (std::ptrdiff_t term = 0; term < first; term += kBlockTerms) {
    const std::ptrdiff_t terms_end = smaller(first, term + kBlockTerms);
    if ((bits & column_bits(s, term, terms_end)) == 0) {
      continue;
    }
    pack_block_rows(tile.values, packed, first, end - first, term, terms_end - term);
    for (std::ptrdiff_t row = end; row < n;) {
      const std::ptrdiff_t lines = next_piece(n - row, kTileLines);
      const std::uint64_t common = bits & row_bits(s, row, row + lines);
      for_each_stretch(s, common, term, terms_end, [&](std::ptrdiff_t t0, std::ptrdiff_t t1) {
        run_lines<kColumns>({{tile.values + (t0 - term) * kBlockLanes, kBlockLanes, 0},
                             packed_rows(packed, row, t0),
                             t1 - t0,
                             target_rows(packed, row, first),
                             columns,
                             0,
                             columns,
                             false},
                            lines, true);
        spread_row_bits(s, row, row + lines, bits & column_bits(s, t0, t1), own);
      });
      row += lines;
    }
  }
}

// The columns of the block below its diagonal block: rows as lanes.
static bool finish_rows_below(double* packed, std::ptrdiff_t n, std::ptrdiff_t first, std::ptrdiff_t end,
                              std::ptrdiff_t columns, Sparsity& s, StackTile& tile, const double* square) {
  BlockSquare negated;
  double reciprocal[kSquare];
  for (std::ptrdiff_t j = 0; j < columns; ++j) {
    for (std::ptrdiff_t k = j / kWidth * kWidth; k < columns; k += kWidth) {
      store(negated.values + j * kSquare + k, -load(square + j * kSquare + k));
    }
    reciprocal[j] = square[j * kSquare + j];
  }
  bool all_finite = true;
  const std::uint64_t own = column_bits(s, first, end);
  std::ptrdiff_t rows = 0;
  for (std::ptrdiff_t row = end; row < n; row += rows) {
    rows = smaller(n, (row / s.chunk + 1) * s.chunk) - row;
    if ((s.words[row / s.chunk] & own) == 0) {
      continue;
    }
    while (rows < kBlockLanes && row + rows < n && (s.words[(row + rows) / s.chunk] & own) != 0) {
      rows += smaller(s.chunk, n - row - rows);
    }
    rows = smaller(rows, kBlockLanes);
    // The columns of the block fill each other in: a nonzero in one of its chunks may leave nonzeros in all of them.
    add_row_bits(s, row, row + rows, own);
    transpose_lanes(tile.values, packed_rows(packed, row, first), rows, columns, false);
    if (!chain<true, false>({tile.values, kBlockLanes, 0}, rows, columns, negated.values, reciprocal)) {
      for (std::ptrdiff_t i = row; i < row + rows; ++i) {
        finish_row_plainly(packed + packed_row(i) + first, square, columns);
      }
      all_finite = false;
      continue;
    }
    for (std::ptrdiff_t i = 0; i < rows; i += kWidth) {
      for (std::ptrdiff_t k = 0; k < columns; k += kWidth) {
        Vector block[kWidth];
        ALIDADE_UNROLL
        for (int r = 0; r < kWidth; ++r) {
          block[r] = load(tile.values + (k + r) * kBlockLanes + i);
        }
        transpose(block);
        ALIDADE_UNROLL
        for (int r = 0; r < kWidth; ++r) {
          if (i + r < rows) {
            store_lanes(packed + packed_row(row + i + r) + first + k, block[r], columns - k);
          }
        }
      }
    }
  }
  return all_finite;
}

static FactorResult factor_columns(double* packed, std::ptrdiff_t n, std::ptrdiff_t first, std::ptrdiff_t end,
                                   Sparsity& s) {
  StackTile tile;
  BlockSquare square;
  const std::ptrdiff_t order = end - first;
  factor_diagonal_block(packed, first, order, s, tile, square.values);
  const std::ptrdiff_t finished = factor_square(square.values, order);
  if (finished < order && !all_finite(square.values, order, finished)) {
    return {0, false, false};
  }
  store_square(square.values, packed, first, order, finished);
  add_row_bits(s, first, end, column_bits(s, first, end));
  bool usual = true;
  if (finished > 0) {
    update_rows_below(packed, n, first, end, finished, s, tile);
    usual = finish_rows_below(packed, n, first, end, finished, s, tile, square.values);
  }
  return {finished, true, usual};
}

// ---- Phase 2: X = inverse of L, a block of rows [first, end): every row is a combination of the rows above it.

// Bounds of the sums of |row[j]| weights[j], or of |row[j]| alone, for the `rows` rows from `first` on, over the
// columns left of `first`; at most kWidth rows. Only bounds: the order of these sums is of no account.
template <bool kWeighted>
static void absolute_sums(double* sums, const double* packed, std::ptrdiff_t first, std::ptrdiff_t rows,
                          const Sparsity& s, std::uint64_t bits, const double* weights) {
  const double* p[kWidth];
  Vector totals[kWidth];
  for (int r = 0; r < kWidth; ++r) {
    p[r] = packed + packed_row(first + smaller(r, rows - 1));
    totals[r] = zero();
  }
  for_each_stretch(s, bits, 0, first, [&](std::ptrdiff_t j, std::ptrdiff_t stop) {
    for (; j < stop; j += kWidth) {
      const Vector weight = kWeighted ? load_lanes(weights + j, stop - j) : zero();
      ALIDADE_UNROLL
      for (int r = 0; r < kWidth; ++r) {
        const Vector v = magnitude(load_lanes(p[r] + j, stop - j));
        totals[r] = (kWeighted ? v * weight : v) + totals[r];
      }
    }
  });
  transpose(totals);
  ALIDADE_UNROLL
  for (int r = 1; r < kWidth; ++r) {
    totals[0] = totals[0] + totals[r];
  }
  store(sums, totals[0]);
}

// Could a sum in rows [first, end) of X overflow? `sizes`: bounds of the absolute sums of the rows, known above
// `first`.
static bool may_overflow(const double* packed, std::ptrdiff_t first, std::ptrdiff_t end, const Sparsity& s,
                         std::uint64_t factor_bits, double* sizes) {
  constexpr double kSafe = 1e290;  // no partial sum below this bound can overflow
  bool safe = true;
  for (std::ptrdiff_t k = first; k < end; k += kWidth) {
    const std::ptrdiff_t rows = smaller(kWidth, end - k);
    double sums[kWidth];
    absolute_sums<true>(sums, packed, k, rows, s, factor_bits, sizes);
    for (std::ptrdiff_t r = 0; r < rows; ++r) {
      const double* row = packed + packed_row(k + r) + k;
      double sum = 1.0 + sums[r];
      for (std::ptrdiff_t q = 0; q < r; ++q) {
        sum += __builtin_fabs(row[q]) * sizes[k + q];
      }
      sizes[k + r] = row[r] * sum;
      safe = safe && sizes[k + r] < kSafe && row[r] < kSafe;
    }
  }
  return !safe;
}

static void measure_rows(const double* packed, std::ptrdiff_t first, std::ptrdiff_t end, const Sparsity& s,
                         double* sizes) {
  const std::uint64_t bits = row_bits(s, first, end);
  for (std::ptrdiff_t k = first; k < end; k += kWidth) {
    const std::ptrdiff_t rows = smaller(kWidth, end - k);
    double sums[kWidth];
    absolute_sums<false>(sums, packed, k, rows, s, bits, nullptr);
    for (std::ptrdiff_t r = 0; r < rows; ++r) {
      const double* row = packed + packed_row(k + r) + k;
      for (std::ptrdiff_t q = 0; q <= r; ++q) {
        sums[r] += __builtin_fabs(row[q]);
      }
      sizes[k + r] = sums[r];
    }
  }
}

// Rows [first, end) receive the terms [term, term_end), all left of the block; factors stand where the results go.
// Lanes ascend, so that a lane's result overwrites factors that no later lane needs.
static void add_terms_above(double* packed, std::ptrdiff_t first, std::ptrdiff_t end, std::ptrdiff_t term,
                            std::ptrdiff_t term_end, const Sparsity& s, std::uint64_t factor_bits,
                            std::uint64_t& result_bits, StackTile& tile) {
  constexpr std::ptrdiff_t kPiece = kTileVectors * kWidth;  // one tile: lanes beside it still need their factors
  const bool pack = end - first > kInversionBlock;
  const auto add = [&](const Walk& a, std::ptrdiff_t lane, std::ptrdiff_t lanes, std::ptrdiff_t t0, std::ptrdiff_t t1,
                       bool clear) {
    for (std::ptrdiff_t row = first; row < end;) {
      const std::ptrdiff_t lines = next_piece(end - row, kTileLines);
      run_lines<kColumns>(
          {a, packed_rows(packed, row, t0), t1 - t0, target_rows(packed, row, lane), lanes, 0, lanes, clear}, lines,
          true);
      row += lines;
    }
  };
  for (std::ptrdiff_t lane = 0; lane < term_end;) {
    const bool diagonal = lane >= term;
    const std::ptrdiff_t lanes = diagonal ? smaller(kPiece, term_end - lane) : smaller(kBlockLanes, term - lane);
    std::ptrdiff_t below = term;
    const std::uint64_t own = column_bits(s, lane, lane + lanes);
    if (diagonal) {
      below = lane + lanes;
    }
    if (diagonal && (factor_bits & own) != 0) {
      copy_rows(tile.values, kBlockLanes, packed, lane, lanes, lane, lanes);
      add({tile.values, kBlockLanes, 0}, lane, lanes, lane, lane + lanes, true);
      result_bits |= own;
    }
    for_each_stretch(s, factor_bits, below, term_end, [&](std::ptrdiff_t t0, std::ptrdiff_t t1) {
      if (row_bits(s, t0, t1) & own) {
        const Walk rows = packed_rows(packed, t0, lane);
        if (pack) {
          copy_lanes(tile.values, rows, lanes, t1 - t0, false);
        }
        add(pack ? Walk{tile.values, kBlockLanes, 0} : rows, lane, lanes, t0, t1, false);
        result_bits |= own;
      }
    });
    lane += lanes;
  }
}

// Element (k, j) of the factor becomes the multiplier -x(k, k) l(k, j) of row j in row k of X.
static void scale_rows(double* packed, std::ptrdiff_t first, std::ptrdiff_t end, const Sparsity& s,
                       std::uint64_t factor_bits) {
  for (std::ptrdiff_t k = first; k < end; k += kWidth) {
    const std::ptrdiff_t rows = smaller(kWidth, end - k);
    double minus[kWidth];
    for (std::ptrdiff_t r = 0; r < rows; ++r) {
      double* row = packed + packed_row(k + r) + k;
      minus[r] = -row[r];
      store_lanes(row, broadcast(minus + r) * load_lanes(row, r), r);
    }
    for_each_stretch(s, factor_bits, 0, k, [&](std::ptrdiff_t j, std::ptrdiff_t stop) {
      for (std::ptrdiff_t r = 0; r < rows; ++r) {
        double* row = packed + packed_row(k + r);
        const Vector factor = broadcast(minus + r);
        for (std::ptrdiff_t i = j; i < stop; i += kWidth) {
          store_lanes(row + i, factor * load_lanes(row + i, stop - i), stop - i);
        }
      }
    });
  }
}

// The terms from inside a block of at most kInversionBlock rows, which depend on each other: whole rows at a time.
static void chain_rows(double* packed, std::ptrdiff_t first, std::ptrdiff_t end, const Sparsity& s,
                       std::uint64_t result_bits, StackTile& tile) {
  BlockSquare factors;
  const std::ptrdiff_t rows = end - first;
  load_square(factors.values, packed, first, rows);
  for (std::ptrdiff_t lane = 0; lane < first; lane += kBlockLanes) {
    const std::ptrdiff_t lanes = smaller(kBlockLanes, first - lane);
    if (result_bits & column_bits(s, lane, lane + lanes)) {
      chain<true, false>(target_rows(packed, first, lane), lanes, rows, factors.values, nullptr);
    }
  }
  for (std::ptrdiff_t k = 0; k < rows; ++k) {
    double* line = tile.values + k * kBlockLanes;
    for (std::ptrdiff_t i = 0; i < rows; i += kWidth) {
      store(line + i, unit_lane(k - i, packed[packed_row(first + k) + first + k]));
    }
  }
  chain<true, true>({tile.values, kBlockLanes, 0}, rows, rows, factors.values, nullptr);
  store_rows(tile.values, kBlockLanes, packed, first, rows, first, rows);
}

static bool invert_rows(double* packed, std::ptrdiff_t first, std::ptrdiff_t end, Sparsity& s, double* sizes) {
  const std::uint64_t factor_bits = row_bits(s, first, end);
  if (first > 0) {
    measure_rows(packed, first - kInversionRows, first, s, sizes);
  }
  if (may_overflow(packed, first, end, s, factor_bits, sizes)) {
    return false;
  }
  std::uint64_t before[kInversionRows / kGrain + 2];
  for (std::ptrdiff_t r = first / s.chunk; r <= (end - 1) / s.chunk; ++r) {
    before[r - first / s.chunk] = s.words[r];
  }
  scale_rows(packed, first, end, s, factor_bits);
  StackTile tile;
  std::uint64_t result_bits = 0;
  for (std::ptrdiff_t term = 0; term < first; term += kBlockTerms) {
    const std::ptrdiff_t term_end = smaller(first, term + kBlockTerms);
    add_terms_above(packed, first, end, term, term_end, s, factor_bits, result_bits, tile);
  }
  for (std::ptrdiff_t block = first; block < end; block += kInversionBlock) {
    const std::ptrdiff_t block_end = smaller(end, block + kInversionBlock);
    if (block > first) {
      add_terms_above(packed, block, block_end, first, block, s, factor_bits, result_bits, tile);
    }
    result_bits |= column_bits(s, block, block_end);
    chain_rows(packed, block, block_end, s, result_bits, tile);
    add_row_bits(s, block, block_end, result_bits);
  }
  survey_again(packed, first, end, s, before);
  return true;
}

// ---- Phase 3: X' X, a block of rows [first, end) of the result; the rows below still hold X.

// Would a first contribution to an element be -0.0?
static bool starts_from_negative_zero(const double* packed, std::ptrdiff_t n) {
  Bits found = {};
  for (std::ptrdiff_t k = 0; k < n; ++k) {
    const double* row = packed + packed_row(k);
    const Vector factor = broadcast(row + k);
    for (std::ptrdiff_t j = 0; j < k; j += kWidth) {
      found |= negative_zeros(load_lanes(row + j, k - j) * factor);
    }
  }
  return any_bit(found);
}

// The terms from inside a block of at most kInversionBlock rows.
static void multiply_inside(double* packed, std::ptrdiff_t first, std::ptrdiff_t end, const Sparsity& s,
                            StackTile& tile) {
  BlockSquare inside;
  double diagonal[kSquare];
  const std::ptrdiff_t rows = end - first;
  for (std::ptrdiff_t m = 0; m < rows; ++m) {
    const double* row = packed + packed_row(first + m) + first;
    for (std::ptrdiff_t p = 0; p < m; p += kWidth) {
      store(inside.values + m * kSquare + p, load_lanes(row + p, m - p));
    }
    diagonal[m] = row[m];
  }
  const std::uint64_t bits = row_bits(s, first, end);
  for (std::ptrdiff_t lane = 0; lane < first; lane += kBlockLanes) {
    const std::ptrdiff_t lanes = smaller(kBlockLanes, first - lane);
    if (bits & column_bits(s, lane, lane + lanes)) {
      chain<false, false>(target_rows(packed, first, lane), lanes, rows, inside.values, diagonal);
    }
  }
  copy_rows(tile.values, kBlockLanes, packed, first, rows, first, rows);
  chain<false, true>({tile.values, kBlockLanes, 0}, rows, rows, inside.values, diagonal);
  store_rows(tile.values, kBlockLanes, packed, first, rows, first, rows);
}

// Terms taken at a time from far below: their columns beside a block of rows go into a second tile.
constexpr std::ptrdiff_t kRowTerms = 64;
struct RowTile {
  alignas(64) double values[kInversionRows * kRowTerms];
};

static void pack_columns(RowTile& tile, const double* packed, std::ptrdiff_t column, std::ptrdiff_t columns,
                         std::ptrdiff_t term, std::ptrdiff_t terms) {
  for (std::ptrdiff_t t = 0; t < terms; ++t) {
    const double* row = packed + packed_row(term + t) + column;
    for (std::ptrdiff_t i = 0; i < columns; i += kWidth) {
      store(tile.values + t * kInversionRows + i, load_lanes(row + i, columns - i));
    }
  }
}

// Rows [first, end) receive the terms of rows [term, term_end) below them; through tiles if there is a second one.
static void add_terms_below(double* packed, std::ptrdiff_t first, std::ptrdiff_t end, std::ptrdiff_t term,
                            std::ptrdiff_t term_end, const Sparsity& s, StackTile& tile, RowTile* columns) {
  const std::uint64_t own = column_bits(s, first, end);
  if ((row_bits(s, term, term_end) & own) == 0) {
    return;
  }
  if (columns != nullptr) {
    pack_columns(*columns, packed, first, end - first, term, term_end - term);
  }
  for (std::ptrdiff_t lane = 0; lane < end; lane += kBlockLanes) {
    const std::ptrdiff_t lanes = smaller(kBlockLanes, end - lane);
    const std::uint64_t across = column_bits(s, lane, lane + lanes);
    const auto joins = [&](std::ptrdiff_t t) {  // row t has nonzeros in both groups of columns
      const std::uint64_t bits = s.words[t / s.chunk];
      return (bits & own) != 0 && (bits & across) != 0;
    };
    for (std::ptrdiff_t t0 = term; t0 < term_end;) {
      const bool on = joins(t0);
      std::ptrdiff_t t1 = t0;
      do {
        t1 = smaller(term_end, (t1 / s.chunk + 1) * s.chunk);
      } while (t1 < term_end && joins(t1) == on);
      Walk rows = packed_rows(packed, t0, lane);
      if (on && columns != nullptr) {
        copy_lanes(tile.values, rows, lanes, t1 - t0, false);
        rows = {tile.values, kBlockLanes, 0};
      }
      for (std::ptrdiff_t line = first; on && line < end;) {
        const std::ptrdiff_t lines = next_piece(end - line, kTileLines);
        const Walk factors =
            columns == nullptr ? packed_rows(packed, t0, line)
                               : Walk{columns->values + (t0 - term) * kInversionRows + line - first, kInversionRows, 0};
        run_lines<kRows>({rows, factors, t1 - t0, target_rows(packed, line, lane), line + 1 - lane, 1, lanes, false},
                         lines, true);
        line += lines;
      }
      t0 = t1;
    }
  }
}

static void multiply_rows(double* packed, std::ptrdiff_t n, std::ptrdiff_t first, std::ptrdiff_t end,
                          const Sparsity& s) {
  StackTile tile;
  for (std::ptrdiff_t block = first; block < end; block += kInversionBlock) {
    const std::ptrdiff_t block_end = smaller(end, block + kInversionBlock);
    multiply_inside(packed, block, block_end, s, tile);
    if (block_end < end) {
      add_terms_below(packed, block, block_end, block_end, end, s, tile, nullptr);
    }
  }
  RowTile columns;
  for (std::ptrdiff_t term = end; term < n; term += kRowTerms) {
    add_terms_below(packed, first, end, term, smaller(n, term + kRowTerms), s, tile, &columns);
  }
}

}  // namespace alidade::kernels::ALIDADE_ISA

#endif
