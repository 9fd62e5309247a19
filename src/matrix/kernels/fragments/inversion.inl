#ifndef ALIDADE_SRC_MATRIX_KERNELS_FRAGMENTS_INVERSION_INL
#define ALIDADE_SRC_MATRIX_KERNELS_FRAGMENTS_INVERSION_INL

// The three phases of the inversion of a packed normal matrix, a block of rows or columns at a time, in place.
// blocked_inversion.cpp calls them in turn.
//
// The plain loops skip zeros, which the tiles do not. A skipped product of finite factors is a zero of either sign;
// added to a sum it changes no bit unless the sum is -0.0, and a sum that starts as anything else never becomes -0.0.
// So the bits agree as long as nothing is infinite, NaN or, at the start of a sum, -0.0. The caller has looked through
// the matrix; each phase tells whether what it produced is finite, before it destroys what the plain loops would need
// or where the caller has kept it.

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
      const double l = square[j * kInversionBlock + k];
      if (l != 0.0 && row[j] != 0.0) {
        work -= row[j] * l;
        nonzero = true;
      }
    }
    row[k] = nonzero ? square[k * kInversionBlock + k] * work : 0.0;
  }
}

// The block's rows as the tile's negated a, for the terms [term, term + terms).
static void pack_block_rows(double* tile, const double* packed, std::ptrdiff_t first, std::ptrdiff_t lanes,
                            std::ptrdiff_t term, std::ptrdiff_t terms) {
  transpose_lanes(tile, packed_rows(packed, first, term), lanes, terms, true, kInversionLanes);
}

static void factor_diagonal_block(const double* packed, std::ptrdiff_t first, std::ptrdiff_t order, const Sparsity& s,
                                  double* tile, double* square) {
  load_square(square, kInversionBlock, packed, first, order);
  const std::uint64_t bits = row_bits(s, first, first + order);
  for (std::ptrdiff_t term = 0; term < first; term += kInversionTerms) {
    const std::ptrdiff_t end = smaller(first, term + kInversionTerms);
    for_each_stretch(s, bits, term, end, [&](std::ptrdiff_t t0, std::ptrdiff_t t1) {
      pack_block_rows(tile, packed, first, order, t0, t1 - t0);
      for (std::ptrdiff_t line = 0; line < order;) {
        const std::ptrdiff_t lines = next_piece(order - line, kTileLines);
        const std::ptrdiff_t lane = line / kWidth * kWidth;
        run_lines<kColumns>({{tile + lane, kInversionLanes, 0},
                             packed_rows(packed, first + line, t0),
                             t1 - t0,
                             {square + line * kInversionBlock + lane, kInversionBlock, 0},
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
                              std::ptrdiff_t columns, Sparsity& s, double* tile) {
  const std::uint64_t bits = row_bits(s, first, end);
  const std::uint64_t own = column_bits(s, first, end);
  for (std::ptrdiff_t term = 0; term < first; term += kInversionTerms) {
    const std::ptrdiff_t terms_end = smaller(first, term + kInversionTerms);
    if ((bits & column_bits(s, term, terms_end)) == 0) {
      continue;
    }
    pack_block_rows(tile, packed, first, end - first, term, terms_end - term);
    for (std::ptrdiff_t row = end; row < n;) {
      const std::ptrdiff_t lines = next_piece(n - row, kTileLines);
      const std::uint64_t common = bits & row_bits(s, row, row + lines);
      for_each_stretch(s, common, term, terms_end, [&](std::ptrdiff_t t0, std::ptrdiff_t t1) {
        run_lines<kColumns>({{tile + (t0 - term) * kInversionLanes, kInversionLanes, 0},
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
                              std::ptrdiff_t columns, Sparsity& s, double* tile, const double* square,
                              double* negated) {
  double reciprocal[kInversionBlock];
  for (std::ptrdiff_t j = 0; j < columns; ++j) {
    for (std::ptrdiff_t k = j / kWidth * kWidth; k < columns; k += kWidth) {
      store(negated + j * kInversionBlock + k, -load(square + j * kInversionBlock + k));
    }
    reciprocal[j] = square[j * kInversionBlock + j];
  }
  bool all_finite = true;
  const std::uint64_t own = column_bits(s, first, end);
  std::ptrdiff_t rows = 0;
  for (std::ptrdiff_t row = end; row < n; row += rows) {
    rows = smaller(n, (row / s.chunk + 1) * s.chunk) - row;
    if ((s.words[row / s.chunk] & own) == 0) {
      continue;
    }
    while (rows < kInversionLanes && row + rows < n && (s.words[(row + rows) / s.chunk] & own) != 0) {
      rows += smaller(s.chunk, n - row - rows);
    }
    rows = smaller(rows, kInversionLanes);
    // The columns of the block fill each other in: a nonzero in one of its chunks may leave nonzeros in all of them.
    add_row_bits(s, row, row + rows, own);
    transpose_lanes(tile, packed_rows(packed, row, first), rows, columns, false, kInversionLanes);
    if (!chain<true, false>({tile, kInversionLanes, 0}, rows, columns, negated, kInversionBlock, reciprocal)) {
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
          block[r] = load(tile + (k + r) * kInversionLanes + i);
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
                                   Sparsity& s, const InversionTiles& tiles) {
  const std::ptrdiff_t order = end - first;
  double* square = tiles.squares;
  factor_diagonal_block(packed, first, order, s, tiles.tile, square);
  const std::ptrdiff_t finished = factor_square(square, kInversionBlock, order);
  if (finished < order && !all_finite(square, kInversionBlock, order, finished)) {
    return {0, false, false};
  }
  store_square(square, kInversionBlock, packed, first, order, finished);
  add_row_bits(s, first, end, column_bits(s, first, end));
  bool usual = true;
  if (finished > 0) {
    update_rows_below(packed, n, first, end, finished, s, tiles.tile);
    usual = finish_rows_below(packed, n, first, end, finished, s, tiles.tile, square,
                              square + kInversionBlock * kInversionBlock);
  }
  return {finished, true, usual};
}

// ---- Phase 2: X = inverse of L, a block of rows [first, end): every row is a combination of the rows above it.

// Rows [first, end) receive the terms [term, term_end), all left of the block; factors stand where the results go.
// Lanes ascend, so that a lane's result overwrites factors that no later lane needs.
static void add_terms_above(double* packed, std::ptrdiff_t first, std::ptrdiff_t end, std::ptrdiff_t term,
                            std::ptrdiff_t term_end, const Sparsity& s, std::uint64_t factor_bits,
                            std::uint64_t& result_bits, double* tile) {
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
    const std::ptrdiff_t lanes = diagonal ? smaller(kPiece, term_end - lane) : smaller(kInversionLanes, term - lane);
    std::ptrdiff_t below = term;
    const std::uint64_t own = column_bits(s, lane, lane + lanes);
    if (diagonal) {
      below = lane + lanes;
    }
    if (diagonal && (factor_bits & own) != 0) {
      copy_rows(tile, kInversionLanes, packed, lane, lanes, lane, lanes);
      add({tile, kInversionLanes, 0}, lane, lanes, lane, lane + lanes, true);
      result_bits |= own;
    }
    for_each_stretch(s, factor_bits, below, term_end, [&](std::ptrdiff_t t0, std::ptrdiff_t t1) {
      if (row_bits(s, t0, t1) & own) {
        const Walk rows = packed_rows(packed, t0, lane);
        if (pack) {
          copy_lanes(tile, rows, lanes, t1 - t0, false, kInversionLanes);
        }
        add(pack ? Walk{tile, kInversionLanes, 0} : rows, lane, lanes, t0, t1, false);
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
// False when a result is not finite.
static bool chain_rows(double* packed, std::ptrdiff_t first, std::ptrdiff_t end, const Sparsity& s,
                       std::uint64_t result_bits, const InversionTiles& tiles) {
  const std::ptrdiff_t rows = end - first;
  double* factors = tiles.squares;
  load_square(factors, kInversionBlock, packed, first, rows);
  bool finite = true;
  for (std::ptrdiff_t lane = 0; lane < first; lane += kInversionLanes) {
    const std::ptrdiff_t lanes = smaller(kInversionLanes, first - lane);
    if (result_bits & column_bits(s, lane, lane + lanes)) {
      finite = chain<true, false>(target_rows(packed, first, lane), lanes, rows, factors, kInversionBlock, nullptr) &&
               finite;
    }
  }
  for (std::ptrdiff_t k = 0; k < rows; ++k) {
    double* line = tiles.tile + k * kInversionLanes;
    for (std::ptrdiff_t i = 0; i < rows; i += kWidth) {
      store(line + i, unit_lane(k - i, packed[packed_row(first + k) + first + k]));
    }
  }
  finite = chain<true, true>({tiles.tile, kInversionLanes, 0}, rows, rows, factors, kInversionBlock, nullptr) && finite;
  store_rows(tiles.tile, kInversionLanes, packed, first, rows, first, rows);
  return finite;
}

// An overflow shows in the result: what a sum has become, infinite or NaN, it stays until it is stored.
static bool invert_rows(double* packed, std::ptrdiff_t first, std::ptrdiff_t end, Sparsity& s,
                        const InversionTiles& tiles) {
  const std::uint64_t factor_bits = row_bits(s, first, end);
  std::uint64_t before[kInversionRows / kGrain + 2];
  for (std::ptrdiff_t r = first / s.chunk; r <= (end - 1) / s.chunk; ++r) {
    before[r - first / s.chunk] = s.words[r];
  }
  scale_rows(packed, first, end, s, factor_bits);
  std::uint64_t result_bits = 0;
  for (std::ptrdiff_t term = 0; term < first; term += kInversionTerms) {
    const std::ptrdiff_t term_end = smaller(first, term + kInversionTerms);
    add_terms_above(packed, first, end, term, term_end, s, factor_bits, result_bits, tiles.tile);
  }
  bool finite = true;
  for (std::ptrdiff_t block = first; block < end; block += kInversionBlock) {
    const std::ptrdiff_t block_end = smaller(end, block + kInversionBlock);
    if (block > first) {
      add_terms_above(packed, block, block_end, first, block, s, factor_bits, result_bits, tiles.tile);
    }
    result_bits |= column_bits(s, block, block_end);
    finite = chain_rows(packed, block, block_end, s, result_bits, tiles) && finite;
    add_row_bits(s, block, block_end, result_bits);
  }
  survey_again(packed, first, end, s, before);
  return finite;
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

// The terms from inside a block of at most kInversionBlock rows. The tile holds the rows' own columns, by which they
// multiply, and takes their results last.
static void multiply_inside(double* packed, std::ptrdiff_t first, std::ptrdiff_t end, const Sparsity& s, double* tile) {
  double diagonal[kInversionBlock];
  const std::ptrdiff_t rows = end - first;
  copy_rows(tile, kInversionLanes, packed, first, rows, first, rows);
  for (std::ptrdiff_t m = 0; m < rows; ++m) {
    diagonal[m] = tile[m * kInversionLanes + m];
  }
  const std::uint64_t bits = row_bits(s, first, end);
  for (std::ptrdiff_t lane = 0; lane < first; lane += kInversionLanes) {
    const std::ptrdiff_t lanes = smaller(kInversionLanes, first - lane);
    if (bits & column_bits(s, lane, lane + lanes)) {
      chain<false, false>(target_rows(packed, first, lane), lanes, rows, tile, kInversionLanes, diagonal);
    }
  }
  chain<false, true>({tile, kInversionLanes, 0}, rows, rows, tile, kInversionLanes, diagonal);
  store_rows(tile, kInversionLanes, packed, first, rows, first, rows);
}

// Terms are taken kRowTerms at a time from far below: their columns beside a block of rows go into a second tile.
static void pack_columns(double* tile, const double* packed, std::ptrdiff_t column, std::ptrdiff_t columns,
                         std::ptrdiff_t term, std::ptrdiff_t terms) {
  for (std::ptrdiff_t t = 0; t < terms; ++t) {
    const double* row = packed + packed_row(term + t) + column;
    for (std::ptrdiff_t i = 0; i < columns; i += kWidth) {
      store(tile + t * kInversionRows + i, load_lanes(row + i, columns - i));
    }
  }
}

// Rows [first, end) receive the terms of rows [term, term_end) below them; through tiles if there is a second one.
static void add_terms_below(double* packed, std::ptrdiff_t first, std::ptrdiff_t end, std::ptrdiff_t term,
                            std::ptrdiff_t term_end, const Sparsity& s, double* tile, double* columns) {
  const std::uint64_t own = column_bits(s, first, end);
  if ((row_bits(s, term, term_end) & own) == 0) {
    return;
  }
  if (columns != nullptr) {
    pack_columns(columns, packed, first, end - first, term, term_end - term);
  }
  for (std::ptrdiff_t lane = 0; lane < end; lane += kInversionLanes) {
    const std::ptrdiff_t lanes = smaller(kInversionLanes, end - lane);
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
        copy_lanes(tile, rows, lanes, t1 - t0, false, kInversionLanes);
        rows = {tile, kInversionLanes, 0};
      }
      for (std::ptrdiff_t line = first; on && line < end;) {
        const std::ptrdiff_t lines = next_piece(end - line, kTileLines);
        const Walk factors = columns == nullptr
                                 ? packed_rows(packed, t0, line)
                                 : Walk{columns + (t0 - term) * kInversionRows + line - first, kInversionRows, 0};
        run_lines<kRows>({rows, factors, t1 - t0, target_rows(packed, line, lane), line + 1 - lane, 1, lanes, false},
                         lines, true);
        line += lines;
      }
      t0 = t1;
    }
  }
}

static void multiply_rows(double* packed, std::ptrdiff_t n, std::ptrdiff_t first, std::ptrdiff_t end, const Sparsity& s,
                          const InversionTiles& tiles) {
  for (std::ptrdiff_t block = first; block < end; block += kInversionBlock) {
    const std::ptrdiff_t block_end = smaller(end, block + kInversionBlock);
    multiply_inside(packed, block, block_end, s, tiles.tile);
    if (block_end < end) {
      add_terms_below(packed, block, block_end, block_end, end, s, tiles.tile, nullptr);
    }
  }
  for (std::ptrdiff_t term = end; term < n; term += kRowTerms) {
    add_terms_below(packed, first, end, term, smaller(n, term + kRowTerms), s, tiles.tile, tiles.columns);
  }
}

}  // namespace alidade::kernels::ALIDADE_ISA

#endif
