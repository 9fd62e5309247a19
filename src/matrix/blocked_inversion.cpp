#include "matrix/blocked_inversion.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>

#include "floating_class.h"
#include "held_environment.h"
#include "matrix/inversion_choice.h"
#include "matrix/inversion_progress.h"
#include "matrix/inversion_work.h"
#include "matrix/kernels/kernel_table.h"
#include "matrix/packed_index.h"
#include "matrix/plain/plain_inversion.h"
#include "strict_arithmetic.h"

namespace alidade {
namespace {

using kernels::FactorResult;
using kernels::InversionTiles;
using kernels::KernelTable;
using kernels::kGrain;
using kernels::kInversionBlock;
using kernels::kInversionRows;
using kernels::kSingleBlock;
using kernels::SmallResult;
using kernels::Sparsity;

// What the kernels leave to the plain loops.
struct Rest {
  enum Phase { kFactor, kInverse, kProduct, kNothing };
  Phase phase = kFactor;
  std::ptrdiff_t first = 0;  // column or row from which on, in the first two phases
  int failed = 0;            // the result, if nothing is left

  bool all() const { return phase == kFactor && first == 0; }
};

int do_rest(const Rest& rest, double* packed, std::ptrdiff_t n, const InversionWork& work,
            const InversionProgress& progress) {
  if (rest.phase == Rest::kFactor) {
    const int failed = plain::factorise(packed, n, rest.first, work, progress);
    if (failed != 0) {
      return failed;
    }
  }
  if (rest.phase <= Rest::kInverse) {
    plain::invert_factor(packed, rest.phase == Rest::kInverse ? rest.first : 0, n, work, progress);
  }
  if (rest.phase <= Rest::kProduct) {
    plain::multiply_by_transpose(packed, n, progress);
  }
  return rest.failed;
}

// Each phase returns false when the plain loops have to go on, or when all is done.

bool factor_in_blocks(const KernelTable& fast, double* packed, std::ptrdiff_t n, Sparsity& sparsity,
                      const InversionTiles& tiles, Rest& rest, const InversionProgress& progress) {
  for (std::ptrdiff_t first = 0; first < n; first += kInversionBlock) {
    const std::ptrdiff_t end = std::min(n, first + kInversionBlock);
    const FactorResult result = fast.factor_columns(packed, n, first, end, sparsity, tiles);
    if (!result.done) {
      rest = {Rest::kFactor, first};
      return false;
    }
    const std::ptrdiff_t next = first + result.finished;
    for (std::ptrdiff_t k = first; k < std::min(end, next + 1); ++k) {
      progress.start_factor_row(k + 1);
    }
    if (next < end) {
      rest = {Rest::kNothing, 0, static_cast<int>(next) + 1};
      return false;
    }
    if (!result.usual) {
      rest = {Rest::kFactor, end};
      return false;
    }
  }
  return true;
}

bool invert_factor_in_blocks(const KernelTable& fast, double* packed, std::ptrdiff_t n, Sparsity& sparsity,
                             const InversionTiles& tiles, Rest& rest, const InversionProgress& progress) {
  for (std::ptrdiff_t first = 0; first < n; first += kInversionRows) {
    const std::ptrdiff_t end = std::min(n, first + kInversionRows);
    double* rows = packed + packed_size(first);
    const std::ptrdiff_t count = packed_size(end) - packed_size(first);
    std::copy_n(rows, count, tiles.columns);
    if (!fast.invert_rows(packed, first, end, sparsity, tiles)) {
      std::copy_n(tiles.columns, count, rows);
      rest = {Rest::kInverse, first};
      return false;
    }
    for (std::ptrdiff_t k = std::max<std::ptrdiff_t>(first, 1); k < end; ++k) {
      progress.start_inverse_row(k + 1);
    }
  }
  return true;
}

bool multiply_in_blocks(const KernelTable& fast, double* packed, std::ptrdiff_t n, const Sparsity& sparsity,
                        const InversionTiles& tiles, Rest& rest, const InversionProgress& progress) {
  if (fast.starts_from_negative_zero(packed, n)) {
    rest = {Rest::kProduct};
    return false;
  }
  for (std::ptrdiff_t first = 0; first < n; first += kInversionRows) {
    const std::ptrdiff_t end = std::min(n, first + kInversionRows);
    fast.multiply_rows(packed, n, first, end, sparsity, tiles);
    for (std::ptrdiff_t m = first; m < end; ++m) {
      progress.finish_product_row(m + 1);
    }
  }
  return true;
}

Rest invert_several_blocks(const KernelTable& fast, double* packed, std::ptrdiff_t n, const InversionWork& work,
                           const InversionProgress& progress) {
  Rest rest;
  Sparsity sparsity;
  sparsity.chunk = kGrain * ((n + 64 * kGrain - 1) / (64 * kGrain));
  if (!fast.survey(packed, n, sparsity) ||
      (sparse_matrices_are_told && plain_loops_do_less(packed, n, sparsity, fast.width, work.indices))) {
    return rest;
  }
  const InversionTiles tiles = tiles_in(work, n);
  if (factor_in_blocks(fast, packed, n, sparsity, tiles, rest, progress) &&
      invert_factor_in_blocks(fast, packed, n, sparsity, tiles, rest, progress) &&
      multiply_in_blocks(fast, packed, n, sparsity, tiles, rest, progress)) {
    rest = {Rest::kNothing};
  }
  return rest;
}

Rest invert_single_block(const KernelTable& fast, double* packed, std::ptrdiff_t n, const InversionWork& work,
                         const InversionProgress& progress) {
  const SmallResult result = fast.invert_small(packed, n, work.values);
  if (!result.done) {
    return {};
  }
  for (std::ptrdiff_t k = 0; k < std::min(n, result.finished + 1); ++k) {
    progress.start_factor_row(k + 1);
  }
  if (result.finished < n) {
    return {Rest::kNothing, 0, static_cast<int>(result.finished) + 1};
  }
  for (std::ptrdiff_t k = 1; k < n; ++k) {
    progress.start_inverse_row(k + 1);
  }
  for (std::ptrdiff_t m = 0; m < n; ++m) {
    progress.finish_product_row(m + 1);
  }
  return {Rest::kNothing};
}

// Raises what has led to the infinities and NaN in a matrix that held none: an overflow is the first of them, and a NaN
// comes of an invalid operation.
void raise_cause(const double* packed, std::ptrdiff_t n) {
  const double* end = packed + packed_size(n);
  if (!std::all_of(packed, end, is_finite)) {
    volatile double v = std::numeric_limits<double>::max();
    v = v * v;
  }
  if (std::any_of(packed, end, is_nan)) {
    volatile double v = std::numeric_limits<double>::infinity();
    v = v - v;
  }
}

}  // namespace

// Tiles multiply zeros that the plain loops skip, and compute lanes that are dropped. So the kernels' exceptions are
// withheld. Those of the plain loops are known without them: from finite elements a first infinity comes of an overflow
// and a first NaN of an invalid operation, neither ever becomes finite again, and a division by zero there is none.
int invert_in_blocks(const KernelTable& fast, double* packed, std::ptrdiff_t n, const InversionWork& work,
                     const InversionProgress& progress) {
  Rest rest;
  bool raised = false;
  {
    HeldEnvironment held;
    rest = n <= kSingleBlock ? invert_single_block(fast, packed, n, work, progress)
                             : invert_several_blocks(fast, packed, n, work, progress);
    raised = held.overflow_or_invalid();
    held.keep_underflow_and_inexact();
  }
  if (raised && !rest.all()) {
    raise_cause(packed, n);
  }
  return do_rest(rest, packed, n, work, progress);
}

}  // namespace alidade
