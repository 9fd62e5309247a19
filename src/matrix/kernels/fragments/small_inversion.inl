#ifndef ALIDADE_SRC_MATRIX_KERNELS_FRAGMENTS_SMALL_INVERSION_INL
#define ALIDADE_SRC_MATRIX_KERNELS_FRAGMENTS_SMALL_INVERSION_INL

// The inversion of a matrix that is a single block, all three phases in stack tiles: nothing is written to it before it
// is known to stand.
//
// As in inversion.inl zeros are not skipped, and the matrix is left to the plain loops where that could show.

#include <cstddef>

#include "matrix/kernels/fragments/chain.inl"
#include "matrix/kernels/kernel_table.h"

namespace alidade::kernels::ALIDADE_ISA {

// The smallest order for which this gains on the plain loops.
constexpr std::ptrdiff_t kLeastInverted = kWidth == 2 ? 16 : 8;

// Puts X = inverse of L where phase 2 starts from: row k of `rows` holds nothing but x(k, k), and `multipliers` holds
// -x(k, k) l(k, j), by which row k takes row j, at j * kSquare + k.
static void start_inverse(const Square& factor, std::ptrdiff_t n, Square& rows, Square& multipliers) {
  const std::ptrdiff_t padded = (n + kStrip - 1) / kStrip * kStrip;
  alignas(64) double minus[kSquare];
  for (std::ptrdiff_t k = 0; k < padded; ++k) {
    minus[k] = k < n ? -factor.values[k * kSquare + k] : 0.0;
  }
  for (std::ptrdiff_t j = 0; j < n; ++j) {
    const double* column = factor.values + j * kSquare;
    for (std::ptrdiff_t k = 0; k < padded; k += kWidth) {
      store(rows.values + j * kSquare + k, unit_lane(j - k, column[j]));
      if (k + kWidth > j) {
        store(multipliers.values + j * kSquare + k, load(minus + k) * load(column + k));
      }
    }
  }
}

// X as multipliers of its own rows. False when a first contribution to the product is -0.0.
static bool start_product(const Square& x, std::ptrdiff_t n, Square& multipliers, double* diagonal) {
  Bits found = {};
  for (std::ptrdiff_t k = 0; k < n; ++k) {
    const double* row = x.values + k * kSquare;
    diagonal[k] = row[k];
    for (std::ptrdiff_t i = 0; i <= k; i += kWidth) {
      const Vector v = load(row + i);
      store(multipliers.values + k * kSquare + i, v);
      found |= negative_zeros(v * broadcast(diagonal + k));
    }
  }
  return !any_bit(found);
}

static SmallResult invert_small(double* packed, std::ptrdiff_t n) {
  Square factor;
  load_square(factor.values, packed, 0, n);
  if (!usual_square(factor.values, n)) {
    return {0, SmallResult::kNothing};
  }
  const std::ptrdiff_t finished = factor_square(factor.values, n);
  if (finished < n && !all_finite(factor.values, n, finished)) {
    return {0, SmallResult::kNothing};
  }
  if (finished == n) {
    Square rows;
    Square multipliers;
    double diagonal[kSquare];
    const TargetWalk lines = {rows.values, kSquare, 0};
    start_inverse(factor, n, rows, multipliers);
    if (chain<true, true>(lines, n, n, multipliers.values, nullptr) && start_product(rows, n, multipliers, diagonal)) {
      chain<false, true>(lines, n, n, multipliers.values, diagonal);
      store_rows(rows.values, kSquare, packed, 0, n, 0, n);
      return {n, SmallResult::kInverse};
    }
  }
  store_square(factor.values, packed, 0, n, finished);
  return {finished, SmallResult::kFactor};
}

}  // namespace alidade::kernels::ALIDADE_ISA

#endif
