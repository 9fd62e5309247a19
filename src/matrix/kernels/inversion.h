// The three phases of the inversion of a packed normal matrix, a block of rows or columns at a time, in place. Included
// once per instruction set, after pack.h, inside namespace ALIDADE_ISA. matrix/inversion.cpp calls them in turn.
//
// The plain loops skip zeros, which the tiles do not. A skipped product of finite factors is a zero of either sign;
// added to a sum it changes no bit unless the sum is -0.0, and a sum that starts as anything else never becomes -0.0.
// So the bits agree as long as nothing is infinite, NaN or, at the start of a sum, -0.0. The caller has looked through
// the matrix; each phase makes sure of what it produces before it destroys what the plain loops would need.

// Which blocks of chunk x chunk elements may hold a nonzero: bit c of words[r] for rows chunk r, columns chunk c.
ALIDADE_INLINE std::uint64_t column_bits(const Sparsity& s, std::ptrdiff_t first, std::ptrdiff_t end) {
  const std::ptrdiff_t low = first / s.chunk;
  const std::ptrdiff_t count = (end - 1) / s.chunk - low + 1;
  return (~std::uint64_t{0} >> (64 - count)) << low;
}
ALIDADE_INLINE std::uint64_t row_bits(const Sparsity& s, std::ptrdiff_t first, std::ptrdiff_t end) {
  std::uint64_t bits = 0;
  for (std::ptrdiff_t r = first / s.chunk; r <= (end - 1) / s.chunk; ++r) {
    bits |= s.words[r];
  }
  return bits;
}
ALIDADE_INLINE void add_row_bits(Sparsity& s, std::ptrdiff_t first, std::ptrdiff_t end, std::uint64_t bits) {
  for (std::ptrdiff_t r = first / s.chunk; r <= (end - 1) / s.chunk; ++r) {
    s.words[r] |= bits;
  }
}

// Calls function(first, end) for every stretch of [first, end) whose chunks have their bits set.
template <typename Function>
ALIDADE_INLINE void for_each_stretch(const Sparsity& s, std::uint64_t bits, std::ptrdiff_t first, std::ptrdiff_t end,
                                     Function function) {
  while (first < end) {
    std::ptrdiff_t chunk = first / s.chunk;
    const bool set = bits >> chunk & 1;
    while (++chunk * s.chunk < end && (bits >> chunk & 1) == set) {
    }
    const std::ptrdiff_t stop = smaller(chunk * s.chunk, end);
    if (set) {
      function(first, stop);
    }
    first = stop;
  }
}

// A small square of coefficients, element (row, column) at row * kSquare + column.
constexpr std::ptrdiff_t kSquare = kInversionBlock;
struct Square {
  alignas(64) double values[kSquare * kSquare];
};

// Zero times anything finite is zero: tells whether all of the values multiplied into the lanes were finite.
ALIDADE_INLINE bool all_zero(Vector check) {
  double lanes[kWidth];
  store(lanes, check);
  bool zeros = true;
  for (double x : lanes) {
    zeros = zeros && x == 0.0;
  }
  return zeros;
}

// Lines of a tile that depend on each other, each multiplied by its factor, all lanes at once:
// forward:  line k = (line k + sum over j < k of c(k, j) line j) factor(k), k ascending;
// backward: line k = line k factor(k) + sum over j > k of c(j, k) line j, with the lines j as they were.
// Returns false when a result is not finite.
template <int V, bool kForward>
bool chain_lanes(double* tile, std::ptrdiff_t lines, const double* c, const double* factor) {
  Vector check = zero();
  for (std::ptrdiff_t k = 0; k < lines; ++k) {
    Vector sums[V];
    const Vector f = broadcast(factor + k);
    ALIDADE_UNROLL
    for (int v = 0; v < V; ++v) {
      sums[v] = load(tile + k * kBlockLanes + v * kWidth);
      sums[v] = kForward ? sums[v] : sums[v] * f;
    }
    const std::ptrdiff_t end = kForward ? k : lines;
    for (std::ptrdiff_t j = kForward ? 0 : k + 1; j < end; ++j) {
      const Vector b = broadcast(c + (kForward ? k * kSquare + j : j * kSquare + k));
      ALIDADE_UNROLL
      for (int v = 0; v < V; ++v) {
        sums[v] = load(tile + j * kBlockLanes + v * kWidth) * b + sums[v];
      }
    }
    ALIDADE_UNROLL
    for (int v = 0; v < V; ++v) {
      sums[v] = kForward ? sums[v] * f : sums[v];
      store(tile + k * kBlockLanes + v * kWidth, sums[v]);
      check = sums[v] * zero() + check;
    }
  }
  return all_zero(check);
}

template <bool kForward>
static bool chain(double* tile, std::ptrdiff_t lanes, std::ptrdiff_t lines, const double* c, const double* factor) {
  constexpr bool (*kRun[])(double*, std::ptrdiff_t, const double*, const double*) = {nullptr,
                                                                                     chain_lanes<1, kForward>,
                                                                                     chain_lanes<2, kForward>,
                                                                                     chain_lanes<3, kForward>,
                                                                                     chain_lanes<4, kForward>,
                                                                                     chain_lanes<5, kForward>,
                                                                                     chain_lanes<6, kForward>};
  bool finite = true;
  for (std::ptrdiff_t lane = 0; lane < lanes;) {
    const std::ptrdiff_t vectors = next_piece((lanes - lane + kWidth - 1) / kWidth, 6);
    finite = kRun[vectors](tile + lane, lines, c, factor) && finite;
    lane += vectors * kWidth;
  }
  return finite;
}

// Rows of the packed matrix into a tile, one line each, zeros right of the diagonal; and back.
static void copy_rows(double* tile, const double* packed, std::ptrdiff_t row, std::ptrdiff_t rows,
                      std::ptrdiff_t column, std::ptrdiff_t lanes) {
  for (std::ptrdiff_t i = row; i < row + rows; ++i, tile += kBlockLanes) {
    const std::ptrdiff_t stored = smaller(lanes, i + 1 - column);
    const double* p = packed + packed_row(i) + column;
    for (std::ptrdiff_t lane = 0; lane < lanes; lane += kWidth) {
      store(tile + lane, zero());
      for (std::ptrdiff_t j = lane; j < smaller(lane + kWidth, stored) && lane + kWidth > stored; ++j) {
        tile[j] = p[j];
      }
      if (lane + kWidth <= stored) {
        store(tile + lane, load(p + lane));
      }
    }
  }
}
static void store_rows(const double* tile, double* packed, std::ptrdiff_t row, std::ptrdiff_t rows,
                       std::ptrdiff_t column, std::ptrdiff_t lanes) {
  for (std::ptrdiff_t i = row; i < row + rows; ++i, tile += kBlockLanes) {
    const std::ptrdiff_t stored = smaller(lanes, i + 1 - column);
    double* p = packed + packed_row(i) + column;
    for (std::ptrdiff_t lane = 0; lane < stored; lane += kWidth) {
      store_lanes(p + lane, load(tile + lane), stored - lane);
    }
  }
}

// ---- Phase 1: N = L L', a block of columns [first, end) against the finished columns on its left.

// Factorises the diagonal block, column k at square + k * kSquare, rows ascending. The number of finished columns;
// `reciprocal` gets the reciprocals of their diagonal. finite becomes false when a value of the factor is not finite.
static std::ptrdiff_t factor_square(double* square, std::ptrdiff_t order, double* reciprocal, bool& finite) {
  Vector check = zero();
  std::ptrdiff_t k = 0;
  for (; k < order; ++k) {
    double* column = square + k * kSquare;
    if (!(column[k] > 0.0)) {
      break;
    }
    const double r = 1.0 / __builtin_sqrt(column[k]);
    reciprocal[k] = r;
    const Vector factor = broadcast(&r);
    const std::ptrdiff_t end = (order + kWidth - 1) / kWidth * kWidth;
    for (std::ptrdiff_t i = k / kWidth * kWidth; i < end; i += kWidth) {
      const Vector l = load(column + i) * factor;
      check = l * zero() + check;
      store(column + i, l);
    }
    for (std::ptrdiff_t j = k + 1; j < order; ++j) {
      const double minus = -column[j];
      const Vector l = broadcast(&minus);
      double* other = square + j * kSquare;
      for (std::ptrdiff_t i = j / kWidth * kWidth; i < end; i += kWidth) {
        store(other + i, load(column + i) * l + load(other + i));
      }
    }
  }
  finite = all_zero(check);
  return k;
}

// Row `row`, of which the part left of the block has been used up, with the plain rule: zeros are skipped.
static void finish_row_plainly(double* row, const double* square, const double* reciprocal, std::ptrdiff_t columns) {
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
    row[k] = nonzero ? reciprocal[k] * work : 0.0;
  }
}

// The block's rows as the tile's negated a, for the terms [term, term + terms).
static void pack_block_rows(double* tile, const double* packed, std::ptrdiff_t first, std::ptrdiff_t lanes,
                            std::ptrdiff_t term, std::ptrdiff_t terms) {
  transpose_lanes(tile, packed_rows(packed, first, term), lanes, terms, true);
}

static void factor_diagonal_block(const double* packed, std::ptrdiff_t first, std::ptrdiff_t order, const Sparsity& s,
                                  StackTile& tile, double* square) {
  for (std::ptrdiff_t k = 0; k < kSquare * kSquare; k += kWidth) {
    store(square + k, zero());
  }
  for (std::ptrdiff_t i = 0; i < order; ++i) {
    const double* row = packed + packed_row(first + i) + first;
    for (std::ptrdiff_t k = 0; k <= i; ++k) {
      square[k * kSquare + i] = row[k];
    }
  }
  const std::uint64_t bits = row_bits(s, first, first + order);
  for (std::ptrdiff_t term = 0; term < first; term += kBlockTerms) {
    const std::ptrdiff_t end = smaller(first, term + kBlockTerms);
    for_each_stretch(s, bits, term, end, [&](std::ptrdiff_t t0, std::ptrdiff_t t1) {
      pack_block_rows(tile.values, packed, first, order, t0, t1 - t0);
      for (std::ptrdiff_t line = 0; line < order;) {
        const std::ptrdiff_t lines = next_piece(order - line, kTileLines);
        run_lines<kColumns>({{tile.values, kBlockLanes, 0},
                             packed_rows(packed, first + line, t0),
                             t1 - t0,
                             {square + line * kSquare, kSquare, 0},
                             order,
                             0,
                             order,
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
        add_row_bits(s, row, row + lines, own);
      });
      row += lines;
    }
  }
}

// The columns of the block below its diagonal block: rows as lanes.
static bool finish_rows_below(double* packed, std::ptrdiff_t n, std::ptrdiff_t first, std::ptrdiff_t end,
                              std::ptrdiff_t columns, Sparsity& s, StackTile& tile, const double* square,
                              const double* reciprocal) {
  Square negated;
  for (std::ptrdiff_t k = 0; k < columns; ++k) {
    for (std::ptrdiff_t j = 0; j < k; ++j) {
      negated.values[k * kSquare + j] = -square[j * kSquare + k];
    }
  }
  bool all_finite = true;
  const std::uint64_t own = column_bits(s, first, end);
  for (std::ptrdiff_t row = end; row < n; row += kBlockLanes) {
    const std::ptrdiff_t rows = smaller(kBlockLanes, n - row);
    if ((row_bits(s, row, row + rows) & own) == 0) {
      continue;
    }
    // The columns of the block fill each other in: a nonzero in one of its chunks may leave nonzeros in all of them.
    add_row_bits(s, row, row + rows, own);
    transpose_lanes(tile.values, packed_rows(packed, row, first), rows, columns, false);
    if (!chain<true>(tile.values, rows, columns, negated.values, reciprocal)) {
      for (std::ptrdiff_t i = row; i < row + rows; ++i) {
        finish_row_plainly(packed + packed_row(i) + first, square, reciprocal, columns);
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
  Square square;
  double reciprocal[kSquare];
  const std::ptrdiff_t order = end - first;
  factor_diagonal_block(packed, first, order, s, tile, square.values);
  bool finite = true;
  const std::ptrdiff_t finished = factor_square(square.values, order, reciprocal, finite);
  if (!finite) {
    return {0, false, false};
  }
  for (std::ptrdiff_t i = 0; i < order; ++i) {
    double* row = packed + packed_row(first + i) + first;
    for (std::ptrdiff_t k = 0; k < smaller(i, finished); ++k) {
      row[k] = square.values[k * kSquare + i];
    }
    if (i < finished) {
      row[i] = reciprocal[i];
    }
  }
  add_row_bits(s, first, end, column_bits(s, first, end));
  bool usual = true;
  if (finished > 0) {
    update_rows_below(packed, n, first, end, finished, s, tile);
    usual = finish_rows_below(packed, n, first, end, finished, s, tile, square.values, reciprocal);
  }
  return {finished, true, usual};
}

// ---- Phase 2: X = inverse of L, a block of rows [first, end): every row is a combination of the rows above it.

using Bits = long long __attribute__((vector_size(8 * kWidth)));

// A bound of the sum of |x[i]| y[i]; y null for ones. Only a bound: the order of this sum is of no account.
static double absolute_sum(const double* x, const double* y, std::ptrdiff_t count) {
  Vector sum = zero();
  std::ptrdiff_t i = 0;
  for (; i + kWidth <= count; i += kWidth) {
    const auto v = reinterpret_cast<Vector>(reinterpret_cast<Bits>(load(x + i)) & 0x7fffffffffffffffLL);
    sum = sum + (y == nullptr ? v : v * load(y + i));
  }
  double sums[kWidth];
  store(sums, sum);
  double total = 0.0;
  for (double part : sums) {
    total += part;
  }
  for (; i < count; ++i) {
    total += __builtin_fabs(x[i]) * (y == nullptr ? 1.0 : y[i]);
  }
  return total;
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
      copy_rows(tile.values, packed, lane, lanes, lane, lanes);
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

// The terms from inside a block of at most kInversionBlock rows, which depend on each other: whole rows at a time.
static void chain_rows(double* packed, std::ptrdiff_t first, std::ptrdiff_t end, const Sparsity& s,
                       std::uint64_t result_bits, StackTile& tile) {
  Square factors;
  double ones[kSquare];
  for (std::ptrdiff_t k = first; k < end; ++k) {
    const double* row = packed + packed_row(k);
    for (std::ptrdiff_t j = first; j < k; ++j) {
      factors.values[(k - first) * kSquare + j - first] = row[j];
    }
    ones[k - first] = 1.0;
  }
  for (std::ptrdiff_t lane = 0; lane < first; lane += kBlockLanes) {
    const std::ptrdiff_t lanes = smaller(kBlockLanes, first - lane);
    if (result_bits & column_bits(s, lane, lane + lanes)) {
      copy_rows(tile.values, packed, first, end - first, lane, lanes);
      chain<true>(tile.values, lanes, end - first, factors.values, ones);
      store_rows(tile.values, packed, first, end - first, lane, lanes);
    }
  }
  for (std::ptrdiff_t k = first; k < end; ++k) {
    double* line = tile.values + (k - first) * kBlockLanes;
    for (std::ptrdiff_t i = 0; i < kSquare; ++i) {
      line[i] = i == k - first ? packed[packed_row(k) + k] : 0.0;
    }
  }
  chain<true>(tile.values, kSquare, end - first, factors.values, ones);
  store_rows(tile.values, packed, first, end - first, first, end - first);
}

static bool invert_rows(double* packed, std::ptrdiff_t first, std::ptrdiff_t end, Sparsity& s, double* sizes) {
  constexpr double kSafe = 1e290;  // no partial sum below this bound can overflow
  const std::uint64_t factor_bits = row_bits(s, first, end);
  for (std::ptrdiff_t k = first; k < end; ++k) {
    const double* row = packed + packed_row(k);
    double sum = 1.0;
    for_each_stretch(s, factor_bits, 0, k,
                     [&](std::ptrdiff_t j, std::ptrdiff_t stop) { sum += absolute_sum(row + j, sizes + j, stop - j); });
    sizes[k] = row[k] * sum;
    if (!(sizes[k] < kSafe && row[k] < kSafe)) {
      return false;
    }
  }
  for (std::ptrdiff_t k = first; k < end; ++k) {
    double* row = packed + packed_row(k);
    const double minus = -row[k];
    const Vector factor = broadcast(&minus);
    for_each_stretch(s, factor_bits, 0, k, [&](std::ptrdiff_t j, std::ptrdiff_t stop) {
      for (; j + kWidth <= stop; j += kWidth) {
        store(row + j, factor * load(row + j));
      }
      for (; j < stop; ++j) {
        row[j] = minus * row[j];
      }
    });
  }
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
  for (std::ptrdiff_t k = first; k < end; ++k) {
    sizes[k] = 0.0;
    for_each_stretch(s, result_bits, 0, k + 1, [&](std::ptrdiff_t j, std::ptrdiff_t stop) {
      sizes[k] += absolute_sum(packed + packed_row(k) + j, nullptr, stop - j);
    });
  }
  return true;
}

// ---- Phase 3: X' X, a block of rows [first, end) of the result; the rows below still hold X.

// Would a first contribution to row k be -0.0?
static bool starts_from_negative_zero(const double* packed, std::ptrdiff_t k) {
  const double* row = packed + packed_row(k);
  Bits found = {};
  const Bits negative_zero = Bits{} + static_cast<long long>(0x8000000000000000ULL);
  const Vector factor = broadcast(row + k);
  std::ptrdiff_t j = 0;
  for (; j + kWidth <= k; j += kWidth) {
    found |= reinterpret_cast<Bits>(load(row + j) * factor) == negative_zero;
  }
  bool any = false;
  for (int lane = 0; lane < kWidth; ++lane) {
    any = any || found[lane] != 0;
  }
  for (; j < k; ++j) {
    const double product = row[j] * row[k];
    any = any || (product == 0.0 && __builtin_signbit(product));
  }
  return any;
}

// The terms from inside a block of at most kInversionBlock rows.
static void multiply_inside(double* packed, std::ptrdiff_t first, std::ptrdiff_t end, const Sparsity& s,
                            StackTile& tile) {
  Square inside;
  double diagonal[kSquare];
  const std::ptrdiff_t rows = end - first;
  for (std::ptrdiff_t m = 0; m < rows; ++m) {
    const double* row = packed + packed_row(first + m) + first;
    for (std::ptrdiff_t p = 0; p <= m; ++p) {
      inside.values[m * kSquare + p] = row[p];
    }
    diagonal[m] = row[m];
  }
  const std::uint64_t bits = row_bits(s, first, end);
  for (std::ptrdiff_t lane = 0; lane < end; lane += kBlockLanes) {
    const std::ptrdiff_t lanes = smaller(kBlockLanes, end - lane);
    if (bits & column_bits(s, lane, lane + lanes)) {
      copy_rows(tile.values, packed, first, rows, lane, lanes);
      chain<false>(tile.values, lanes, rows, inside.values, diagonal);
      store_rows(tile.values, packed, first, rows, lane, lanes);
    }
  }
}

// Rows [first, end) receive the terms of rows [term, term_end) below them.
static void add_terms_below(double* packed, std::ptrdiff_t first, std::ptrdiff_t end, std::ptrdiff_t term,
                            std::ptrdiff_t term_end, const Sparsity& s, StackTile& tile) {
  const std::uint64_t own = column_bits(s, first, end);
  const bool pack = end - first > kInversionBlock;
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
      const Walk rows = packed_rows(packed, t0, lane);
      if (on && pack) {
        copy_lanes(tile.values, rows, lanes, t1 - t0, false);
      }
      for (std::ptrdiff_t line = first; on && line < end;) {
        const std::ptrdiff_t lines = next_piece(end - line, kTileLines);
        run_lines<kRows>({pack ? Walk{tile.values, kBlockLanes, 0} : rows, packed_rows(packed, t0, line), t1 - t0,
                          target_rows(packed, line, lane), line + 1 - lane, 1, lanes, false},
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
      add_terms_below(packed, block, block_end, block_end, end, s, tile);
    }
  }
  for (std::ptrdiff_t term = end; term < n; term += kBlockTerms) {
    add_terms_below(packed, first, end, term, smaller(n, term + kBlockTerms), s, tile);
  }
}
