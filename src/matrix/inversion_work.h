#ifndef ALIDADE_SRC_MATRIX_INVERSION_WORK_H
#define ALIDADE_SRC_MATRIX_INVERSION_WORK_H

#include <algorithm>
#include <cstddef>

#include "matrix/kernels/kernel_table.h"
#include "matrix/packed_index.h"
#include "strict_arithmetic.h"

namespace alidade {

// The work memory of an inversion, whichever loops do it. All of it is had before anything is written, so that a failed
// allocation leaves everything as it was.
struct InversionWork {
  double* values;           // values_needed, the first at a multiple of 64 bytes; for the plain loops the order
  std::ptrdiff_t* indices;  // indices_needed; for the plain loops the order
};

// Elements of the tile of a single block.
constexpr std::ptrdiff_t single_block_size(std::ptrdiff_t n) {
  const std::ptrdiff_t padded = (n + kernels::kStrip - 1) / kernels::kStrip * kernels::kStrip;
  return padded * (padded + kernels::kAside);
}

// The kernels' tiles, in one piece. The last of them holds, in the second phase, a block of rows as they were.
constexpr std::ptrdiff_t kSquaresSize = 2 * kernels::kInversionBlock * kernels::kInversionBlock;
inline std::ptrdiff_t tile_size(std::ptrdiff_t n) {
  return std::min(n, kernels::kInversionTerms) * kernels::kInversionLanes;
}
inline std::ptrdiff_t rows_size(std::ptrdiff_t n) {
  return packed_size(n) - packed_size(std::max<std::ptrdiff_t>(n - kernels::kInversionRows, 0));
}
inline kernels::InversionTiles tiles_in(const InversionWork& work, std::ptrdiff_t n) {
  return {work.values, work.values + tile_size(n), work.values + tile_size(n) + kSquaresSize};
}

inline std::ptrdiff_t values_needed(std::ptrdiff_t n) {
  return n <= kernels::kSingleBlock ? single_block_size(n) : tile_size(n) + kSquaresSize + rows_size(n);
}
inline std::ptrdiff_t indices_needed(std::ptrdiff_t n) { return n <= kernels::kSingleBlock ? n : 3 * n; }

}  // namespace alidade

#endif
