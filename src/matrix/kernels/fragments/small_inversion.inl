#ifndef ALIDADE_SRC_MATRIX_KERNELS_FRAGMENTS_SMALL_INVERSION_INL
#define ALIDADE_SRC_MATRIX_KERNELS_FRAGMENTS_SMALL_INVERSION_INL

// The inversion of a matrix that is a single block, all three phases in one tile: nothing is written to the matrix
// before it is known to stand.
//
// As in inversion.inl zeros are not skipped, and the matrix is left to the plain loops where that could show.

#include <cstddef>

#include "matrix/kernels/fragments/chain.inl"
#include "matrix/kernels/kernel_table.h"

namespace alidade::kernels::ALIDADE_ISA {

// The smallest order for which this gains on the plain loops.
constexpr std::ptrdiff_t kLeastInverted = kWidth == 2 ? 16 : 8;

// The rows of X = inverse of L, lower triangle, and what they are made of, upper triangle, share one tile: the second
// stands kAside lanes to the right of its place, so that whole vectors of the one never reach the other.

// Puts X where phase 2 starts from: row k holds nothing but x(k, k), and the factor becomes the multipliers
// -x(k, k) l(k, j), by which row k takes row j, at j * ld + k.
static void start_inverse(double* rows, double* factor, std::ptrdiff_t ld, std::ptrdiff_t n) {
  const std::ptrdiff_t padded = ld - kAside;
  double minus[kSingleBlock];
  for (std::ptrdiff_t k = 0; k < padded; ++k) {
    minus[k] = k < n ? -factor[k * ld + k] : 0.0;
  }
  for (std::ptrdiff_t j = 0; j < n; ++j) {
    double* column = factor + j * ld;
    for (std::ptrdiff_t k = 0; k < smaller(padded, j / kStrip * kStrip + kAside); k += kWidth) {
      store(rows + j * ld + k, unit_lane(j - k, -minus[j]));
    }
    for (std::ptrdiff_t k = j / kWidth * kWidth; k < padded; k += kWidth) {
      store(column + k, load(minus + k) * load(column + k));
    }
  }
}

// Takes the diagonal out of X. False when a first contribution to the product is -0.0.
static bool start_product(const double* rows, std::ptrdiff_t ld, std::ptrdiff_t n, double* diagonal) {
  Bits found = {};
  for (std::ptrdiff_t k = 0; k < n; ++k) {
    const double* row = rows + k * ld;
    diagonal[k] = row[k];
    for (std::ptrdiff_t i = 0; i <= k; i += kWidth) {
      found |= negative_zeros(load(row + i) * broadcast(diagonal + k));
    }
  }
  return !any_bit(found);
}

static SmallResult invert_small(double* packed, std::ptrdiff_t n, double* room) {
  const std::ptrdiff_t ld = (n + kStrip - 1) / kStrip * kStrip + kAside;
  double* factor = room + kAside;
  load_square(factor, ld, packed, 0, n);
  if (!usual_square(factor, ld, n)) {
    return {0, false};
  }
  const std::ptrdiff_t finished = factor_square(factor, ld, n);
  if (finished < n) {
    if (!all_finite(factor, ld, n, finished)) {
      return {0, false};
    }
    store_square(factor, ld, packed, 0, n, finished);
    return {finished, true};
  }
  double diagonal[kSingleBlock];
  const TargetWalk lines = {room, ld, 0};
  start_inverse(room, factor, ld, n);
  if (!chain<true, true>(lines, n, n, factor, ld, nullptr) || !start_product(room, ld, n, diagonal)) {
    return {0, false};
  }
  chain<false, true>(lines, n, n, room, ld, diagonal);
  store_rows(room, ld, packed, 0, n, 0, n);
  return {n, true};
}

}  // namespace alidade::kernels::ALIDADE_ISA

#endif
