#include "matrix/kernels/blocked_inversion.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>

#include "matrix/inversion_progress.h"
#include "matrix/packed_index.h"
#include "matrix/plain/plain_kernels.h"
#include "strict_arithmetic.h"

namespace alidade::kernels {

namespace {

std::uint64_t bits_of(double x) {
  std::uint64_t bits = 0;
  std::memcpy(&bits, &x, sizeof bits);
  return bits;
}

struct Findings {
  bool nonzero;
  bool unusual;  // -0.0, an infinity or a NaN
};

// Integers, so that the compiler makes vectors of them.
Findings look_through(const double* x, std::ptrdiff_t count) {
  constexpr std::uint64_t kSign = 0x8000000000000000U;
  constexpr std::uint64_t kExponent = 0x7ff0000000000000U;
  std::uint64_t any = 0;
  std::uint64_t unusual = 0;
  for (std::ptrdiff_t i = 0; i < count; ++i) {
    const std::uint64_t bits = bits_of(x[i]);
    any |= bits;
    unusual |= static_cast<std::uint64_t>(bits == kSign) | static_cast<std::uint64_t>((bits & kExponent) == kExponent);
  }
  return {any != 0, unusual != 0};
}

// Finds the blocks with nonzeros; false when the matrix holds anything unusual.
bool survey(const double* packed, std::ptrdiff_t n, Sparsity& sparsity) {
  constexpr std::ptrdiff_t kGrain = 16;
  sparsity.chunk = kGrain * ((n + 64 * kGrain - 1) / (64 * kGrain));
  std::fill_n(sparsity.words, 64, std::uint64_t{0});
  for (std::ptrdiff_t i = 0; i < n; ++i) {
    const double* row = packed + packed_size(i);
    if (look_through(row, i + 1).unusual) {
      return false;
    }
    std::uint64_t& word = sparsity.words[i / sparsity.chunk];
    for (std::ptrdiff_t c = 0; c * sparsity.chunk <= i; ++c) {
      const std::ptrdiff_t j = c * sparsity.chunk;
      if ((word >> c & 1) == 0) {
        word |= static_cast<std::uint64_t>(look_through(row + j, std::min(sparsity.chunk, i + 1 - j)).nonzero) << c;
      }
    }
  }
  return true;
}

int factor_in_blocks(const Kernels& fast, double* packed, std::ptrdiff_t n, Sparsity& sparsity, bool& usual,
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

void invert_factor_in_blocks(const Kernels& fast, double* packed, std::ptrdiff_t n, Sparsity& sparsity, double* sizes,
                             bool& usual, const InversionProgress& progress) {
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

void multiply_in_blocks(const Kernels& fast, double* packed, std::ptrdiff_t n, const Sparsity& sparsity, bool usual,
                        const InversionProgress& progress) {
  for (std::ptrdiff_t k = 0; k < n && usual; ++k) {
    usual = !fast.starts_from_negative_zero(packed, k);
  }
  if (!usual) {
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

}  // namespace

int invert_in_blocks(const Kernels& fast, double* packed, int n, int* progress, int span) {
  constexpr int kOnStack = 256;
  Sparsity sparsity;
  if (!survey(packed, n, sparsity)) {
    return plain::invert_normal_matrix(packed, n, progress, span);
  }
  double small_sizes[kOnStack];
  const std::unique_ptr<double[]> large_sizes(n > kOnStack ? new double[static_cast<std::size_t>(n)] : nullptr);
  const InversionProgress report(progress, span, n);
  bool usual = true;
  const int failed = factor_in_blocks(fast, packed, n, sparsity, usual, report);
  if (failed != 0) {
    return failed;
  }
  invert_factor_in_blocks(fast, packed, n, sparsity, n > kOnStack ? large_sizes.get() : small_sizes, usual, report);
  multiply_in_blocks(fast, packed, n, sparsity, usual, report);
  return 0;
}

}  // namespace alidade::kernels
