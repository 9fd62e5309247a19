#ifndef ALIDADE_SRC_MATRIX_KERNELS_FRAGMENTS_PRODUCT_INL
#define ALIDADE_SRC_MATRIX_KERNELS_FRAGMENTS_PRODUCT_INL

// Products of whole operands: blocks of lanes and terms, each swept by tiles.h, inside namespace ALIDADE_ISA.

#include <cstddef>

#include "matrix/kernels/fragments/pack.inl"
#include "matrix/kernels/kernel_table.h"

namespace alidade::kernels::ALIDADE_ISA {

// The part of a product that one block of a takes part in.
struct Block {
  std::ptrdiff_t lane0, lanes;
  std::ptrdiff_t term0, terms;
};

ALIDADE_INLINE TargetWalk target_lines(const Target& target, std::ptrdiff_t line, std::ptrdiff_t lane) {
  return target.triangle ? target_rows(target.data, line, lane)
                         : TargetWalk{target.data + lane + line * target.ld, target.ld, 0};
}

// A group of lines against a packed symmetric b, element (term, line): up to the diagonal the lines are rows of the
// triangle, beyond it the terms are, and the small square between is copied.
static void run_symmetric_lines(Tile& tile, const Operand& b, std::ptrdiff_t term0, std::ptrdiff_t line,
                                std::ptrdiff_t lines, bool padded) {
  const Walk a = tile.a;
  const std::ptrdiff_t terms = tile.terms;
  const std::ptrdiff_t row = b.row0 + term0;
  const std::ptrdiff_t column = b.column0 + line;
  const std::ptrdiff_t above = smaller(terms, larger(0, column - row));
  const std::ptrdiff_t below = smaller(terms, larger(above, column + lines - row));
  if (above > 0 || terms == 0) {
    tile.b = packed_rows(b.data, column, row);
    tile.terms = above;
    run_lines<kColumns>(tile, lines, padded);
    tile.clear = false;
  }
  if (below > above) {
    double square[kTileLines * kTileLines];
    for (std::ptrdiff_t t = above; t < below; ++t) {
      for (std::ptrdiff_t k = 0; k < lines; ++k) {
        const std::ptrdiff_t i = row + t;
        const std::ptrdiff_t j = column + k;
        square[(t - above) * kTileLines + k] = b.data[i < j ? packed_row(j) + i : packed_row(i) + j];
      }
    }
    tile.a = from(a, above);
    tile.b = {square, kTileLines, 0};
    tile.terms = below - above;
    run_lines<kRows>(tile, lines, padded);
    tile.clear = false;
  }
  if (terms > below) {
    tile.a = from(a, below);
    tile.b = packed_rows(b.data, row + below, column);
    tile.terms = terms - below;
    run_lines<kRows>(tile, lines, padded);
  }
}

// Lines line0 ... line1 - 1 of the target receive the block's terms. a: the block, lanes contiguous, a member per term.
static void sweep(const Target& target, const Walk& a, bool padded, const Operand& b, const Block& block,
                  std::ptrdiff_t line0, std::ptrdiff_t line1, bool clear) {
  for (std::ptrdiff_t line = line0; line < line1;) {
    const std::ptrdiff_t lines = next_piece(line1 - line, kTileLines);
    Tile tile = {a,
                 {b.data, b.ld, 0},
                 block.terms,
                 target_lines(target, line, block.lane0),
                 target.triangle ? line + 1 - block.lane0 : block.lanes,
                 target.triangle,
                 block.lanes,
                 clear};
    const std::ptrdiff_t row = b.row0 + block.term0;
    const std::ptrdiff_t column = b.column0 + line;
    if (b.layout == Operand::kDense) {
      tile.b.start += row + column * b.ld;
      run_lines<kColumns>(tile, lines, padded);
    } else if (b.layout == Operand::kTransposed) {
      tile.b.start += column + row * b.ld;
      run_lines<kRows>(tile, lines, padded);
    } else {
      run_symmetric_lines(tile, b, block.term0, line, lines, padded);
    }
    line += lines;
  }
}

// Calls with_block(block, clear) for every block of lanes and terms, terms ascending within the lanes; at least once
// for each lane, so that a sum of no terms is cleared.
template <typename Function>
ALIDADE_INLINE void for_each_block(Extent extent, std::ptrdiff_t most_lanes, std::ptrdiff_t most_terms, bool clear,
                                   Function with_block) {
  for (std::ptrdiff_t lane = 0; lane < extent.lanes; lane += most_lanes) {
    std::ptrdiff_t term = 0;
    do {
      const std::ptrdiff_t terms = larger(0, smaller(most_terms, extent.terms - term));
      with_block(Block{lane, smaller(most_lanes, extent.lanes - lane), term, terms}, clear && term == 0);
      term += most_terms;
    } while (term < extent.terms);
  }
}

ALIDADE_INLINE std::ptrdiff_t first_line(const Target& target, const Block& block) {
  return target.triangle ? block.lane0 : 0;
}

// Below this many elements, or for this few lines, a dense a is used where it lies: a copy would not pay.
constexpr std::ptrdiff_t kDirectElements = 64 * 64;
constexpr std::ptrdiff_t kDirectLines = 24;

// As many lines at a time as leave the part of b that they need, kBlockTerms of each, in the second cache level while
// the blocks of lanes pass by.
constexpr std::ptrdiff_t kBlockLines = 384;

static void packed_product(const Target& target, const Operand& a, const Operand& b, Extent extent, Mode mode) {
  StackTile tile;
  for (std::ptrdiff_t line = 0; line < extent.lines;) {
    const std::ptrdiff_t lines = next_piece(extent.lines - line, kBlockLines);
    std::ptrdiff_t term = 0;
    do {
      const std::ptrdiff_t terms = larger(0, smaller(kBlockTerms, extent.terms - term));
      const std::ptrdiff_t reach = target.triangle ? smaller(extent.lanes, line + lines) : extent.lanes;
      for (std::ptrdiff_t lane = 0; lane < reach; lane += kBlockLanes) {
        const Block block = {lane, smaller(kBlockLanes, extent.lanes - lane), term, terms};
        pack(tile.values, a, block.lane0, block.term0, block.lanes, block.terms, mode.negate);
        sweep(target, {tile.values, kBlockLanes, 0}, true, b, block, larger(line, first_line(target, block)),
              line + lines, mode.clear && term == 0);
      }
      term += kBlockTerms;
    } while (term < extent.terms);
    line += lines;
  }
}

static void product(const Target& target, const Operand& a, const Operand& b, Extent extent, Mode mode) {
  if (a.layout == Operand::kDense && !mode.negate &&
      (extent.terms * a.ld < kDirectElements || extent.lines < kDirectLines)) {
    for_each_block(extent, kBlockLanes, larger(extent.terms, 1), mode.clear, [&](const Block& block, bool clear) {
      const Walk walk = {a.data + (a.row0 + block.lane0) + (a.column0 + block.term0) * a.ld, a.ld, 0};
      sweep(target, walk, false, b, block, first_line(target, block), extent.lines, clear);
    });
    return;
  }
  packed_product(target, a, b, extent, mode);
}

ALIDADE_INLINE Operand shifted(Operand operand, std::ptrdiff_t rows, std::ptrdiff_t columns) {
  operand.row0 += rows;
  operand.column0 += columns;
  return operand;
}

// The stack tile is filled by a product instead of a copy: each of its elements is formed once.
static void product_of_product(const Target& target, const Operand& x, const Operand& y, std::ptrdiff_t inner,
                               const Operand& b, Extent extent, Mode mode) {
  StackTile tile;
  for_each_block(extent, kBlockLanes, kBlockTerms, mode.clear, [&](const Block& block, bool clear) {
    product({tile.values, kBlockLanes, false}, shifted(x, block.lane0, 0), shifted(y, 0, block.term0),
            {block.lanes, block.terms, inner}, {true, false});
    for (std::ptrdiff_t t = 0; t < block.terms; ++t) {
      double* lanes = tile.values + t * kBlockLanes;
      pad_lanes(lanes, block.lanes);
      for (std::ptrdiff_t i = 0; mode.negate && i < block.lanes; i += kWidth) {
        store(lanes + i, -load(lanes + i));
      }
    }
    sweep(target, {tile.values, kBlockLanes, 0}, true, b, block, first_line(target, block), extent.lines, clear);
  });
}

// s r is needed by lines here: blocks of its transpose, r' s, serve as b.
static void transposed_congruence(double* target, const double* r, const double* s, std::ptrdiff_t a, std::ptrdiff_t b,
                                  Mode mode) {
  StackTile factor;
  const Operand transposed = {Operand::kTransposed, r, a};
  const Operand symmetric = {Operand::kPacked, s, 0};
  const Target packed = {target, 0, true};
  for_each_block({b, 0, a}, kBlockLanes, kBlockTerms, mode.clear, [&](const Block& lines, bool clear) {
    product({factor.values, kBlockLanes, false}, shifted(transposed, lines.lane0, 0),
            shifted(symmetric, 0, lines.term0), {lines.lanes, lines.terms, a}, {true, false});
    const std::ptrdiff_t end = lines.lane0 + lines.lanes;
    Operand rows = {Operand::kTransposed, factor.values, kBlockLanes};
    rows.row0 = -lines.term0;
    rows.column0 = -lines.lane0;
    StackTile tile;
    for (std::ptrdiff_t lane = 0; lane < end; lane += kBlockLanes) {
      const Block block = {lane, smaller(kBlockLanes, end - lane), lines.term0, lines.terms};
      pack(tile.values, transposed, lane, block.term0, block.lanes, block.terms, mode.negate);
      sweep(packed, {tile.values, kBlockLanes, 0}, true, rows, block, larger(lane, lines.lane0), end, clear);
    }
  });
}

static void symmetrized_product(double* target, const double* a, const double* b, std::ptrdiff_t rows,
                                std::ptrdiff_t columns, Mode mode) {
  StackTile a_tile;
  StackTile b_tile;
  const Target packed = {target, 0, true};
  for_each_block({rows, 0, columns}, kBlockLanes, kBlockTerms, mode.clear, [&](const Block& block, bool clear) {
    const std::ptrdiff_t corner = block.lane0 + block.term0 * rows;
    copy_lanes(a_tile.values, {a + corner, rows, 0}, block.lanes, block.terms, false);
    copy_lanes(b_tile.values, {b + corner, rows, 0}, block.lanes, block.terms, false);
    for (std::ptrdiff_t line = block.lane0; line < rows;) {
      const std::ptrdiff_t lines = next_piece(rows - line, kTileLines);
      const std::ptrdiff_t column = line + block.term0 * rows;
      const Tile tile = {{b_tile.values, kBlockLanes, 0},
                         {a + column, rows, 0},
                         block.terms,
                         target_lines(packed, line, block.lane0),
                         line + 1 - block.lane0,
                         1,
                         block.lanes,
                         clear,
                         {a_tile.values, kBlockLanes, 0},
                         {b + column, rows, 0}};
      mode.negate ? run_lines<kTwoRowsSubtracted>(tile, lines, true) : run_lines<kTwoRows>(tile, lines, true);
      line += lines;
    }
  });
}

}  // namespace alidade::kernels::ALIDADE_ISA

#endif
