#ifndef ALIDADE_SRC_MATRIX_KERNELS_FRAGMENTS_PRODUCT_INL
#define ALIDADE_SRC_MATRIX_KERNELS_FRAGMENTS_PRODUCT_INL

// Products of whole operands: blocks of lanes and terms, each swept by tiles.

#include <cstddef>

#include "matrix/kernels/fragments/panels.inl"
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
  if (above > 0) {
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

// Calls with_block(block, clear) for every block of lanes and terms, terms ascending within the lanes.
template <typename Function>
ALIDADE_INLINE void for_each_block(const Extent& extent, std::ptrdiff_t most_terms, bool clear, Function with_block) {
  for (std::ptrdiff_t lane = 0; lane < extent.lanes; lane += kBlockLanes) {
    for (std::ptrdiff_t term = 0; term < extent.terms; term += most_terms) {
      const std::ptrdiff_t terms = smaller(most_terms, extent.terms - term);
      with_block(Block{lane, smaller(kBlockLanes, extent.lanes - lane), term, terms}, clear && term == 0);
    }
  }
}

ALIDADE_INLINE std::ptrdiff_t first_line(const Target& target, const Block& block) {
  return target.triangle ? block.lane0 : 0;
}

// Below this many elements, or for this few lines, a dense a is used where it lies: a copy would not pay.
constexpr std::ptrdiff_t kDirectElements = 64 * 64;
constexpr std::ptrdiff_t kDirectLines = 24;

ALIDADE_INLINE bool used_where_it_lies(const Operand& a, const Extent& extent, Mode mode) {
  return a.layout == Operand::kDense && !mode.negate &&
         (extent.terms * a.ld < kDirectElements || extent.lines < kDirectLines);
}

// As many lines at a time as leave the part of b that they need, kBlockTerms of each, in the second cache level while
// the blocks of lanes pass by.
constexpr std::ptrdiff_t kBlockLines = 384;

static void packed_product(const Panel& panel, const Target& target, const Operand& a, const Operand& b,
                           const Extent& extent, Mode mode) {
  for (std::ptrdiff_t line = 0; line < extent.lines;) {
    const std::ptrdiff_t lines = next_piece(extent.lines - line, kBlockLines);
    const std::ptrdiff_t reach = target.triangle ? smaller(extent.lanes, line + lines) : extent.lanes;
    for (std::ptrdiff_t term = 0; term < extent.terms; term += panel.terms) {
      const std::ptrdiff_t terms = smaller(panel.terms, extent.terms - term);
      for (std::ptrdiff_t lane = 0; lane < reach; lane += kBlockLanes) {
        const Block block = {lane, smaller(kBlockLanes, extent.lanes - lane), term, terms};
        pack(panel, a, block.lane0, block.term0, block.lanes, block.terms, mode.negate);
        sweep(target, {panel.values, panel.ld, 0}, true, b, block, larger(line, first_line(target, block)),
              line + lines, mode.clear && term == 0);
      }
    }
    line += lines;
  }
}

// A dense target no wider than a tile, and operands that are used where they lie: nothing but tiles below each other.
ALIDADE_INLINE bool is_one_tile_wide(const Target& target, const Operand& b, const Extent& extent) {
  return !target.triangle && b.layout != Operand::kPacked && extent.lanes <= kTileVectors * kWidth;
}

static void product_one_tile_wide(const Target& target, const Operand& a, const Operand& b, const Extent& extent,
                                  Mode mode) {
  const bool columns = b.layout == Operand::kDense;
  const bool edge = extent.lanes % kWidth != 0;
  const auto& run = columns ? (edge ? kEdgeTiles<kColumns>.run : kTiles<kColumns>.run)
                            : (edge ? kEdgeTiles<kRows>.run : kTiles<kRows>.run);
  const std::ptrdiff_t vectors = (extent.lanes + kWidth - 1) / kWidth;
  Tile tile = {{a.data + a.row0 + a.column0 * a.ld, a.ld, 0},
               {b.data + (columns ? b.row0 + b.column0 * b.ld : b.column0 + b.row0 * b.ld), b.ld, 0},
               extent.terms,
               {target.data, target.ld, 0},
               extent.lanes,
               0,
               extent.lanes,
               mode.clear};
  for (std::ptrdiff_t line = 0; line < extent.lines;) {
    const std::ptrdiff_t lines = next_piece(extent.lines - line, kTileLines);
    run[lines][vectors](tile, tile.target);
    tile.b.start += columns ? lines * b.ld : lines;
    tile.target.start += lines * target.ld;
    line += lines;
  }
}

// With a panel at hand for a.
static void product_by_panel(const Panel& panel, const Target& target, const Operand& a, const Operand& b,
                             const Extent& extent, Mode mode) {
  if (!used_where_it_lies(a, extent, mode)) {
    packed_product(panel, target, a, b, extent, mode);
    return;
  }
  if (is_one_tile_wide(target, b, extent)) {
    product_one_tile_wide(target, a, b, extent, mode);
    return;
  }
  for_each_block(extent, extent.terms, mode.clear, [&](const Block& block, bool clear) {
    const Walk walk = {a.data + (a.row0 + block.lane0) + (a.column0 + block.term0) * a.ld, a.ld, 0};
    sweep(target, walk, false, b, block, first_line(target, block), extent.lines, clear);
  });
}

static void product(const Target& target, const Operand& a, const Operand& b, const Extent& extent, Mode mode) {
  if (used_where_it_lies(a, extent, mode)) {
    product_by_panel({}, target, a, b, extent, mode);
  } else {
    const Panels<1> panels(extent.lanes, extent.terms);
    packed_product(panels[0], target, a, b, extent, mode);
  }
}

ALIDADE_INLINE Operand shifted(Operand operand, std::ptrdiff_t rows, std::ptrdiff_t columns) {
  operand.row0 += rows;
  operand.column0 += columns;
  return operand;
}

// A panel is filled by the inner product instead of a copy: each of its elements is formed once.
static void product_on_left(const Target& target, const Operand& x, const Operand& y, std::ptrdiff_t inner,
                            const Operand& b, const Extent& extent, Mode mode) {
  const Panels<2> panels(extent.lanes, larger(extent.terms, inner));
  const Panel& left = panels[0];
  for_each_block(extent, left.terms, mode.clear, [&](const Block& block, bool clear) {
    product_by_panel(panels[1], {left.values, left.ld, false}, shifted(x, block.lane0, 0), shifted(y, 0, block.term0),
                     {block.lanes, block.terms, inner}, {true, false});
    for (std::ptrdiff_t t = 0; t < block.terms; ++t) {
      double* lanes = left.values + t * left.ld;
      pad_lanes(lanes, block.lanes);
      for (std::ptrdiff_t i = 0; mode.negate && i < block.lanes; i += kWidth) {
        store(lanes + i, -load(lanes + i));
      }
    }
    sweep(target, {left.values, left.ld, 0}, true, b, block, first_line(target, block), extent.lines, clear);
  });
}

ALIDADE_INLINE Operand transpose_of(const Operand& operand) {
  const Operand::Layout layout = operand.layout == Operand::kDense        ? Operand::kTransposed
                                 : operand.layout == Operand::kTransposed ? Operand::kDense
                                                                          : operand.layout;
  return {layout, operand.data, operand.ld, operand.column0, operand.row0};
}

// y z is needed by lines here: blocks of its transpose, z' y', serve as b.
static void product_on_right(const Target& target, const Operand& a, const Operand& y, std::ptrdiff_t inner,
                             const Operand& z, const Extent& extent, Mode mode) {
  const Panels<2> panels(larger(extent.lanes, extent.lines), larger(extent.terms, inner));
  const Panel& right = panels[0];
  const Panel& panel = panels[1];
  for_each_block({extent.lines, 0, extent.terms}, right.terms, mode.clear, [&](const Block& lines, bool clear) {
    product_by_panel(panel, {right.values, right.ld, false}, shifted(transpose_of(z), lines.lane0, 0),
                     shifted(transpose_of(y), 0, lines.term0), {lines.lanes, lines.terms, inner}, {true, false});
    const std::ptrdiff_t end = lines.lane0 + lines.lanes;
    const Operand rows = {Operand::kTransposed, right.values, right.ld, -lines.term0, -lines.lane0};
    const std::ptrdiff_t reach = target.triangle ? end : extent.lanes;
    for (std::ptrdiff_t lane = 0; lane < reach; lane += kBlockLanes) {
      const Block block = {lane, smaller(kBlockLanes, reach - lane), lines.term0, lines.terms};
      pack(panel, a, lane, block.term0, block.lanes, block.terms, mode.negate);
      sweep(target, {panel.values, panel.ld, 0}, true, rows, block, larger(lines.lane0, first_line(target, block)), end,
            clear);
    }
  });
}

static void symmetrized_product(const Target& target, const Operand& a, const Operand& b, const Extent& extent,
                                Mode mode) {
  const Panels<2> panels(extent.lanes, extent.terms);
  for_each_block(extent, panels[0].terms, mode.clear, [&](const Block& block, bool clear) {
    pack(panels[0], a, block.lane0, block.term0, block.lanes, block.terms, false);
    pack(panels[1], b, block.lane0, block.term0, block.lanes, block.terms, false);
    for (std::ptrdiff_t line = first_line(target, block); line < extent.lines;) {
      const std::ptrdiff_t lines = next_piece(extent.lines - line, kMostLines<kTwoRows>);
      const Tile tile = {{panels[1].values, panels[1].ld, 0},
                         {a.data + line + block.term0 * a.ld, a.ld, 0},
                         block.terms,
                         target_lines(target, line, block.lane0),
                         target.triangle ? line + 1 - block.lane0 : block.lanes,
                         target.triangle,
                         block.lanes,
                         clear,
                         {panels[0].values, panels[0].ld, 0},
                         {b.data + line + block.term0 * b.ld, b.ld, 0}};
      mode.negate ? run_lines<kTwoRowsSubtracted>(tile, lines, true) : run_lines<kTwoRows>(tile, lines, true);
      line += lines;
    }
  });
}

}  // namespace alidade::kernels::ALIDADE_ISA

#endif
