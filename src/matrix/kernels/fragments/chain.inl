#ifndef ALIDADE_SRC_MATRIX_KERNELS_FRAGMENTS_CHAIN_INL
#define ALIDADE_SRC_MATRIX_KERNELS_FRAGMENTS_CHAIN_INL

// Lines that depend on each other: the inside of every block of an inversion.

#include <cstddef>

#include "matrix/kernels/fragments/square.inl"
#include "matrix/kernels/kernel_table.h"

namespace alidade::kernels::ALIDADE_ISA {

// Lines that depend on each other, each multiplied by its factor, all lanes at once:
// forward:  line k = (line k + sum over j < k of c(j, k) line j) factor(k), k ascending; no factors: null;
// backward: line k = line k factor(k) + sum over j > k of c(j, k) line j, with the lines j as they were;
// c(j, k) stands at j * ld + k. R lines from line k on; the terms from among themselves stay in registers.
template <int R, int V, bool kForward>
void chain_group(const TargetWalk& lines, std::ptrdiff_t k, std::ptrdiff_t count, const double* c, std::ptrdiff_t ld,
                 const double* factor, Vector& check) {
  const TargetWalk group = from(lines, k);
  Vector sums[R][V];
  const auto add = [&](int r, std::ptrdiff_t j, const Vector(&line)[V]) {
    const Vector b = broadcast(c + j * ld + k + r);
    ALIDADE_UNROLL
    for (int v = 0; v < V; ++v) {
      sums[r][v] = line[v] * b + sums[r][v];
    }
  };
  const auto add_lines = [&](std::ptrdiff_t begin, std::ptrdiff_t end) {
    const TargetWalk rest = from(lines, begin);
    const double* p = rest.start;
    std::ptrdiff_t step = rest.step;
    for (std::ptrdiff_t j = begin; j < end; ++j) {
      Vector line[V];
      ALIDADE_UNROLL
      for (int v = 0; v < V; ++v) {
        line[v] = load(p + v * kWidth);
      }
      ALIDADE_UNROLL
      for (int r = 0; r < R; ++r) {
        add(r, j, line);
      }
      p += step;
      step += rest.growth;
    }
  };
  ALIDADE_UNROLL
  for (int r = 0; r < R; ++r) {
    ALIDADE_UNROLL
    for (int v = 0; v < V; ++v) {
      sums[r][v] = load(at(group, r) + v * kWidth);
    }
  }
  if (kForward) {
    add_lines(0, k);
  }
  ALIDADE_UNROLL
  for (int r = 0; r < R; ++r) {
    ALIDADE_UNROLL
    for (int q = 0; q < r; ++q) {
      if (kForward) {
        add(r, k + q, sums[q]);
      } else {  // line k + r is not yet used up
        add(q, k + r, sums[r]);
      }
    }
    ALIDADE_UNROLL
    for (int v = 0; factor != nullptr && v < V; ++v) {
      sums[r][v] = sums[r][v] * broadcast(factor + k + r);
    }
  }
  if (!kForward) {
    add_lines(k + R, count);
  }
  ALIDADE_UNROLL
  for (int r = 0; r < R; ++r) {
    ALIDADE_UNROLL
    for (int v = 0; v < V; ++v) {
      store(at(group, r) + v * kWidth, sums[r][v]);
      check = sums[r][v] * zero() + check;
    }
  }
}

// Returns false when a result is not finite.
template <int V, bool kForward>
bool chain_lanes(const TargetWalk& lines, std::ptrdiff_t count, const double* c, std::ptrdiff_t ld,
                 const double* factor) {
  constexpr int kGroup = kTileLines < 4 ? kTileLines : 4;
  Vector check = zero();
  std::ptrdiff_t k = 0;
  for (; k + kGroup <= count; k += kGroup) {
    chain_group<kGroup, V, kForward>(lines, k, count, c, ld, factor, check);
  }
  for (; k < count; ++k) {
    chain_group<1, V, kForward>(lines, k, count, c, ld, factor, check);
  }
  return all_zero(check);
}

template <int V, bool kForward>
ALIDADE_INLINE bool chain_piece(std::ptrdiff_t vectors, const TargetWalk& lines, std::ptrdiff_t count, const double* c,
                                std::ptrdiff_t ld, const double* factor) {
  if constexpr (V > 1) {
    if (vectors < V) {
      return chain_piece<V - 1, kForward>(vectors, lines, count, c, ld, factor);
    }
  }
  return chain_lanes<V, kForward>(lines, count, c, ld, factor);
}

// Whole vectors of lanes. `kSquareLanes`: the lines are those of a diagonal block, line k having no lanes beyond lane
// k. Backward these lines may be their own coefficients: line k takes from lines that have not changed yet.
template <bool kForward, bool kSquareLanes>
static bool chain(const TargetWalk& lines, std::ptrdiff_t lanes, std::ptrdiff_t count, const double* c,
                  std::ptrdiff_t ld, const double* factor) {
  constexpr int kVectors = kWidth == 8 ? (kSquareLanes ? 2 : 4) : kTileVectors;
  static_assert(!kSquareLanes || kVectors * kWidth <= kAside, "line k has no more lanes beyond lane k");
  bool finite = true;
  for (std::ptrdiff_t lane = 0; lane < lanes;) {
    const std::ptrdiff_t vectors = next_piece((lanes - lane + kWidth - 1) / kWidth, kVectors);
    const std::ptrdiff_t first = kSquareLanes ? lane : 0;
    TargetWalk piece = from(lines, first);
    piece.start += lane;
    finite = chain_piece<kVectors, kForward>(vectors, piece, count - first, c + first * ld + first, ld,
                                             factor == nullptr ? nullptr : factor + first) &&
             finite;
    lane += vectors * kWidth;
  }
  return finite;
}

}  // namespace alidade::kernels::ALIDADE_ISA

#endif
