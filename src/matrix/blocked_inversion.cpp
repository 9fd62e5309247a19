#include "matrix/blocked_inversion.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>

#include "matrix/inversion_progress.h"
#include "matrix/kernels/kernel_table.h"
#include "matrix/packed_index.h"
#include "matrix/plain/plain_inversion.h"
#include "strict_arithmetic.h"

namespace alidade {
namespace {

using kernels::FactorResult;
using kernels::KernelTable;
using kernels::kGrain;
using kernels::kInversionBlock;
using kernels::kInversionRows;
using kernels::kSingleBlock;
using kernels::SmallResult;
using kernels::Sparsity;

int factor_in_blocks(const KernelTable& fast, double* packed, std::ptrdiff_t n, Sparsity& sparsity, bool& usual,
                     const InversionProgress& progress) {
  for (std::ptrdiff_t first = 0; first < n; first += kInversionBlock) {
    const std::ptrdiff_t end = std::min(n, first + kInversionBlock);
    const FactorResult result = fast.factor_columns(packed, n, first, end, sparsity);
    if (!result.done) {
      usual = false;
      return plain::factorise(packed, n, first, progress);
    }
    const std::ptrdiff_t next = first + result.finished;
    for (std::ptrdiff_t k = first; k < std::min(end, next + 1); ++k) {
      progress.start_factor_row(k + 1);
    }
    if (next < end) {
      return static_cast<int>(next) + 1;
    }
    if (!result.usual) {
      usual = false;
      return plain::factorise(packed, n, end, progress);
    }
  }
  return 0;
}

void invert_factor_in_blocks(const KernelTable& fast, double* packed, std::ptrdiff_t n, Sparsity& sparsity,
                             double* sizes, bool& usual, const InversionProgress& progress) {
  for (std::ptrdiff_t first = 0; first < n; first += kInversionRows) {
    const std::ptrdiff_t end = std::min(n, first + kInversionRows);
    if (!usual || !fast.invert_rows(packed, first, end, sparsity, sizes)) {
      usual = false;
      plain::invert_factor(packed, first, n, progress);
      return;
    }
    for (std::ptrdiff_t k = std::max<std::ptrdiff_t>(first, 1); k < end; ++k) {
      progress.start_inverse_row(k + 1);
    }
  }
}

void multiply_in_blocks(const KernelTable& fast, double* packed, std::ptrdiff_t n, const Sparsity& sparsity, bool usual,
                        const InversionProgress& progress) {
  if (!usual || fast.starts_from_negative_zero(packed, n)) {
    plain::multiply_by_transpose(packed, n, progress);
    return;
  }
  for (std::ptrdiff_t first = 0; first < n; first += kInversionRows) {
    const std::ptrdiff_t end = std::min(n, first + kInversionRows);
    fast.multiply_rows(packed, n, first, end, sparsity);
    for (std::ptrdiff_t m = first; m < end; ++m) {
      progress.finish_product_row(m + 1);
    }
  }
}

int invert_single_block(const KernelTable& fast, double* packed, std::ptrdiff_t n, const InversionProgress& progress) {
  const SmallResult result = fast.invert_small(packed, n);
  if (result.done == SmallResult::kNothing) {
    return plain::invert_normal_matrix(packed, n, progress);
  }
  for (std::ptrdiff_t k = 0; k < std::min(n, result.finished + 1); ++k) {
    progress.start_factor_row(k + 1);
  }
  if (result.finished < n) {
    return static_cast<int>(result.finished) + 1;
  }
  if (result.done == SmallResult::kFactor) {
    plain::invert_factor(packed, 0, n, progress);
    plain::multiply_by_transpose(packed, n, progress);
    return 0;
  }
  for (std::ptrdiff_t k = 1; k < n; ++k) {
    progress.start_inverse_row(k + 1);
  }
  for (std::ptrdiff_t m = 0; m < n; ++m) {
    progress.finish_product_row(m + 1);
  }
  return 0;
}

}  // namespace

int invert_in_blocks(const kernels::KernelTable& fast, double* packed, std::ptrdiff_t n,
                     const InversionProgress& progress) {
  if (n <= kSingleBlock) {
    return invert_single_block(fast, packed, n, progress);
  }
  constexpr int kOnStack = 256;
  Sparsity sparsity;
  sparsity.chunk = kGrain * ((n + 64 * kGrain - 1) / (64 * kGrain));
  if (!fast.survey(packed, n, sparsity)) {
    return plain::invert_normal_matrix(packed, n, progress);
  }
  double small_sizes[kOnStack];
  const std::unique_ptr<double[]> large_sizes(n > kOnStack ? new double[static_cast<std::size_t>(n)] : nullptr);
  bool usual = true;
  const int failed = factor_in_blocks(fast, packed, n, sparsity, usual, progress);
  if (failed != 0) {
    return failed;
  }
  invert_factor_in_blocks(fast, packed, n, sparsity, n > kOnStack ? large_sizes.get() : small_sizes, usual, progress);
  multiply_in_blocks(fast, packed, n, sparsity, usual, progress);
  return 0;
}

}  // namespace alidade
