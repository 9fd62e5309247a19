#ifndef ALIDADE_SRC_MATRIX_KERNELS_FRAGMENTS_TILE_INL
#define ALIDADE_SRC_MATRIX_KERNELS_FRAGMENTS_TILE_INL

// The register tile.
//
// The plain loop in words. A target element is a sum of products whose terms arrive in a fixed order, each product and
// each partial sum rounded to double:
//
//     for every line, for every lane:   t = 0.0 or the old element
//       for term = 0, 1, 2, ...:        t = a(lane, term) * b(term, line) + t
//
// Why the tile keeps the order. Elements are independent of each other; only the terms of one element are ordered. The
// tile holds a block of elements in registers, consecutive lanes side by side in a vector, and runs over the terms
// once: every element sees its own terms one by one, ascending, with the same two roundings. Nothing is summed across
// lanes, and a sum may be put down and taken up again between any two terms, which blocking for the caches does.
//
// The edges. A last vector that is only partly inside the matrix is loaded with lane 0 repeated: the spare lanes repeat
// a computation that is done anyway, so they read nothing outside and raise no exception of their own, and they are
// not stored. In a packed target a tile on the diagonal computes lanes beyond it, that is elements of the upper
// triangle, and drops them: these may raise exceptions that no element of the target raises.

#include <cstddef>
#include <utility>

#include "matrix/kernels/fragments/vector.inl"
#include "matrix/kernels/kernel_table.h"

namespace alidade::kernels::ALIDADE_ISA {

// Where the k-th of a family of contiguous stretches starts: columns of a dense matrix lie a constant step apart
// (growth 0), rows of a packed triangle one element further each time (growth 1).
template <typename T>
struct BasicWalk {
  T* start;
  std::ptrdiff_t step;
  std::ptrdiff_t growth;
};
using Walk = BasicWalk<const double>;
using TargetWalk = BasicWalk<double>;

template <typename T>
ALIDADE_INLINE T* at(const BasicWalk<T>& walk, std::ptrdiff_t k) {
  return walk.start + k * walk.step + walk.growth * (k * (k - 1) / 2);
}

// The same family seen from its k-th member.
template <typename T>
ALIDADE_INLINE BasicWalk<T> from(const BasicWalk<T>& walk, std::ptrdiff_t k) {
  return {at(walk, k), walk.step + k * walk.growth, walk.growth};
}

ALIDADE_INLINE std::ptrdiff_t smaller(std::ptrdiff_t x, std::ptrdiff_t y) { return x < y ? x : y; }

// How the tile finds b(term, line).
enum Supply {
  kColumns,           // each line is a contiguous stretch of terms
  kRows,              // each term is a contiguous stretch of lines
  kTwoRows,           // kRows for the sum of two products, a(lane) b(line) + a2(lane) b2(line)
  kTwoRowsSubtracted  // that sum subtracted, which is not the sum of the negated products where it is zero
};

struct Tile {
  Walk a;  // a member per term, contiguous in lanes
  Walk b;  // a member per line (kColumns) or per term (kRows)
  std::ptrdiff_t terms;
  TargetWalk target;         // a member per line
  std::ptrdiff_t lanes;      // of line 0; may be zero or negative on the diagonal
  std::ptrdiff_t more;       // lanes that each further line has more, 0 or 1,
  std::ptrdiff_t max_lanes;  // up to this many
  bool clear;                // sums start at +0.0, else at the target
  Walk a2 = {nullptr, 0, 0};
  Walk b2 = {nullptr, 0, 0};
};

template <int R, int V>
using Sums = Vector[R][V];

// Lanes 0 ... count - 1 of a vector that may lie partly or wholly beyond the line.
ALIDADE_INLINE Vector load_lanes(const double* p, std::ptrdiff_t count) {
  return count >= kWidth ? load(p) : count > 0 ? load_first(p, Mask(count)) : zero();
}
ALIDADE_INLINE void store_lanes(double* p, Vector v, std::ptrdiff_t count) {
  if (count >= kWidth) {
    store(p, v);
  } else if (count > 0) {
    store_first(p, v, Mask(count));
  }
}

// Is a term a sum of two products?
template <Supply kSupply>
constexpr bool kIsTwo = kSupply == kTwoRows || kSupply == kTwoRowsSubtracted;

// Runs over the terms. With kEdge the last of the vectors ends early, in a and in the target.
template <int R, int V, Supply kSupply, bool kEdge>
ALIDADE_INLINE void add_terms(const Tile& tile, [[maybe_unused]] Mask edge, Sums<R, V>& sums) {
  const double* a = tile.a.start;
  constexpr bool kTwo = kIsTwo<kSupply>;
  const double* a2 = tile.a2.start;
  std::ptrdiff_t a_step = tile.a.step;
  const double* b[R];
  ALIDADE_UNROLL
  for (int r = 0; r < R; ++r) {
    b[r] = kSupply == kColumns ? at(tile.b, r) : nullptr;
  }
  const double* row = tile.b.start;
  const double* row2 = tile.b2.start;
  std::ptrdiff_t row_step = tile.b.step;
  for (std::ptrdiff_t term = 0; term < tile.terms; ++term) {
    Vector lanes[V];
    Vector lanes2[V];
    ALIDADE_UNROLL
    for (int v = 0; v < V; ++v) {
      const bool partial = kEdge && v == V - 1;
      lanes[v] = partial ? load_first(a + v * kWidth, edge) : load(a + v * kWidth);
      if (kTwo) {
        lanes2[v] = partial ? load_first(a2 + v * kWidth, edge) : load(a2 + v * kWidth);
      }
    }
    ALIDADE_UNROLL
    for (int r = 0; r < R; ++r) {
      const Vector factor = broadcast(kSupply == kColumns ? b[r] + term : row + r);
      ALIDADE_UNROLL
      for (int v = 0; v < V; ++v) {
        if (kTwo) {
          const Vector both = lanes[v] * factor + lanes2[v] * broadcast(row2 + r);
          sums[r][v] = kSupply == kTwoRows ? both + sums[r][v] : sums[r][v] - both;
        } else {
          sums[r][v] = lanes[v] * factor + sums[r][v];
        }
      }
    }
    a += a_step;
    a2 += kTwo ? a_step : 0;
    a_step += tile.a.growth;
    row += row_step;
    row2 += kTwo ? row_step : 0;
    row_step += tile.b.growth;
  }
}

// `lines`: those of the tile, or others in their place.
template <int R, int V, Supply kSupply, bool kEdge>
void run_tile(const Tile& tile, const TargetWalk& lines) {
  Sums<R, V> sums;
  const Mask edge(kEdge ? tile.max_lanes - (V - 1) * kWidth : 1);
  ALIDADE_UNROLL
  for (int r = 0; r < R; ++r) {
    const double* line = at(lines, r);
    ALIDADE_UNROLL
    for (int v = 0; v < V; ++v) {
      const bool partial = kEdge && v == V - 1;
      sums[r][v] = tile.clear ? zero() : partial ? load_first(line + v * kWidth, edge) : load(line + v * kWidth);
    }
  }
  add_terms<R, V, kSupply, kEdge>(tile, edge, sums);
  ALIDADE_UNROLL
  for (int r = 0; r < R; ++r) {
    double* line = at(lines, r);
    ALIDADE_UNROLL
    for (int v = 0; v < V; ++v) {
      if (kEdge && v == V - 1) {
        store_first(line + v * kWidth, sums[r][v], edge);
      } else {
        store(line + v * kWidth, sums[r][v]);
      }
    }
  }
}

// Largest tile of a supply. A sum of two products keeps the processor busy with fewer sums at a time.
template <Supply kSupply>
constexpr int kMostLines = kIsTwo<kSupply> ? (kWidth == 8 ? 4 : 3) : kTileLines;
template <Supply kSupply>
constexpr int kMostVectors = kIsTwo<kSupply>&& kTileVectors == 4 ? 2 : kTileVectors;

// Every height and width a remainder can have, as a table of functions.
using TileFunction = void (*)(const Tile&, const TargetWalk&);

template <Supply kSupply, bool kEdge>
struct TileTable {
  TileFunction run[kMostLines<kSupply> + 1][kMostVectors<kSupply> + 1] = {};

  constexpr TileTable() { add_lines(std::make_integer_sequence<int, kMostLines<kSupply>>()); }

private:
  template <int... kLess>
  constexpr void add_lines(std::integer_sequence<int, kLess...>) {
    (add_vectors<kLess + 1>(std::make_integer_sequence<int, kMostVectors<kSupply>>()), ...);
  }
  template <int R, int... kLess>
  constexpr void add_vectors(std::integer_sequence<int, kLess...>) {
    ((run[R][kLess + 1] = run_tile<R, kLess + 1, kSupply, kEdge>), ...);
  }
};

template <Supply kSupply>
constexpr TileTable<kSupply, false> kTiles;
template <Supply kSupply>
constexpr TileTable<kSupply, true> kEdgeTiles;

// Size of the next of the pieces that `rest` is cut into: `full`, the last two pieces alike.
ALIDADE_INLINE std::ptrdiff_t next_piece(std::ptrdiff_t rest, std::ptrdiff_t full) {
  return rest >= 2 * full ? full : rest > full ? (rest + 1) / 2 : rest;
}

// In the place of lines of which some end before the others, at the diagonal.
struct WholeLines {
  static constexpr std::ptrdiff_t kStride = kTileVectors * kWidth;
  alignas(64) double values[kTileLines * kStride];
};

// Calls with_line(line, stand-in, count) for the lines of the tile: how many of its `lanes` lanes are in the line.
template <typename Function>
ALIDADE_INLINE void for_each_line(WholeLines& whole, const Tile& tile, std::ptrdiff_t lines, std::ptrdiff_t lanes,
                                  Function with_line) {
  double* line = tile.target.start;
  std::ptrdiff_t step = tile.target.step;
  std::ptrdiff_t reach = tile.lanes;
  for (std::ptrdiff_t r = 0; r < lines; ++r) {
    with_line(line, whole.values + r * WholeLines::kStride, smaller(lanes, smaller(reach, tile.max_lanes)));
    line += step;
    step += tile.target.growth;
    reach += tile.more;
  }
}

static void load_whole_lines(WholeLines& whole, const Tile& tile, std::ptrdiff_t lines, std::ptrdiff_t lanes) {
  for_each_line(whole, tile, lines, lanes, [lanes](const double* line, double* to, std::ptrdiff_t count) {
    for (std::ptrdiff_t lane = 0; lane < lanes; lane += kWidth) {
      store(to + lane, load_lanes(line + lane, count - lane));
    }
  });
}

static void store_whole_lines(WholeLines& whole, const Tile& tile, std::ptrdiff_t lines, std::ptrdiff_t lanes) {
  for_each_line(whole, tile, lines, lanes, [](double* line, const double* from, std::ptrdiff_t count) {
    std::ptrdiff_t lane = 0;
    for (; lane + kWidth <= count; lane += kWidth) {
      store(line + lane, load(from + lane));
    }
    if (lane < count) {
      store_first(line + lane, load(from + lane), Mask(count - lane));
    }
  });
}

// `vectors` by `lines` sums from the beginning of the tile.
template <Supply kSupply>
ALIDADE_INLINE void run_piece(const Tile& tile, std::ptrdiff_t lines, std::ptrdiff_t vectors, bool padded) {
  const std::ptrdiff_t lanes = vectors * kWidth;
  if (tile.lanes >= lanes && tile.max_lanes >= lanes) {
    kTiles<kSupply>.run[lines][vectors](tile, tile.target);
    return;
  }
  TileFunction run = kTiles<kSupply>.run[lines][vectors];
  if constexpr (!kIsTwo<kSupply>) {
    if (tile.lanes == tile.max_lanes && tile.more == 0) {
      kEdgeTiles<kSupply>.run[lines][vectors](tile, tile.target);
      return;
    }
    if (!padded && tile.max_lanes < lanes) {
      run = kEdgeTiles<kSupply>.run[lines][vectors];
    }
  }
  WholeLines whole;
  if (!tile.clear) {
    load_whole_lines(whole, tile, lines, lanes);
  }
  run(tile, {whole.values, WholeLines::kStride, 0});
  store_whole_lines(whole, tile, lines, lanes);
}

// One group of at most kMostLines lines over all its lanes; `whole` describes it as if it were one tile. `padded`: a
// may be read up to whole vectors. Not inlined, so that its lines aside are
// on the stack once.
template <Supply kSupply>
__attribute__((noinline)) static void run_lines(const Tile& whole, std::ptrdiff_t lines, bool padded) {
  const std::ptrdiff_t reach = smaller(whole.max_lanes, whole.lanes + (lines - 1) * whole.more);
  Tile tile = whole;
  for (std::ptrdiff_t lane = 0; lane < reach;) {
    const std::ptrdiff_t vectors = next_piece((reach - lane + kWidth - 1) / kWidth, kMostVectors<kSupply>);
    run_piece<kSupply>(tile, lines, vectors, padded);
    const std::ptrdiff_t done = vectors * kWidth;
    lane += done;
    tile.a.start += done;
    if (tile.a2.start != nullptr) {
      tile.a2.start += done;
    }
    tile.target.start += done;
    tile.lanes -= done;
    tile.max_lanes -= done;
  }
}

}  // namespace alidade::kernels::ALIDADE_ISA

#endif
