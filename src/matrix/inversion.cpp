#include "matrix/inversion.h"

#include <alidade/matrix.h>

#include <cstddef>
#include <cstdint>
#include <memory>

#include "matrix/blocked_inversion.h"
#include "matrix/inversion_progress.h"
#include "matrix/inversion_work.h"
#include "matrix/kernels/kernel_table.h"
#include "matrix/kernels/kernels.h"
#include "matrix/plain/plain_inversion.h"
#include "strict_arithmetic.h"

namespace alidade {
namespace {

constexpr std::size_t kAlignment = 64;  // of a cache line and of the longest vector

// `fast`: null where the plain loops serve.
int invert_with(const kernels::KernelTable* fast, const InversionWork& work, double* packed, std::ptrdiff_t n,
                const InversionProgress& progress) {
  return fast != nullptr ? invert_in_blocks(*fast, packed, n, work, progress)
                         : plain::invert_normal_matrix(packed, n, work, progress);
}

// A small matrix takes its work memory from the stack: an allocation costs as much as a small inversion.
constexpr int kFew = kernels::kThereAreKernels ? 24 : 64;
int invert_few(const kernels::KernelTable* fast, double* packed, int n, const InversionProgress& progress) {
  alignas(kAlignment) double values[kernels::kThereAreKernels ? single_block_size(kFew) : kFew];
  std::ptrdiff_t indices[kFew];
  return invert_with(fast, {values, indices}, packed, n, progress);
}

int invert_many(const kernels::KernelTable* fast, double* packed, int n, const InversionProgress& progress) {
  constexpr std::ptrdiff_t kSpare = kAlignment / sizeof(double) - 1;
  const auto value_count = static_cast<std::size_t>(fast != nullptr ? values_needed(n) + kSpare : n);
  const auto index_count = static_cast<std::size_t>(fast != nullptr ? indices_needed(n) : n);
  const std::unique_ptr<double[]> values(new double[value_count]);
  const std::unique_ptr<std::ptrdiff_t[]> indices(new std::ptrdiff_t[index_count]);
  const std::size_t beyond = fast != nullptr ? reinterpret_cast<std::uintptr_t>(values.get()) % kAlignment : 0;
  const std::size_t skipped = beyond == 0 ? 0 : (kAlignment - beyond) / sizeof(double);
  return invert_with(fast, {values.get() + skipped, indices.get()}, packed, n, progress);
}

}  // namespace

int invert_normal_matrix(double* packed, int n, int* progress, int span) {
  if (n < 1) {
    return 0;
  }
  const InversionProgress report(progress, span, n);
  const kernels::KernelTable* active = kernels::active();
  const kernels::KernelTable* fast = active != nullptr && n >= active->least_inverted ? active : nullptr;
  return n <= kFew ? invert_few(fast, packed, n, report) : invert_many(fast, packed, n, report);
}

}  // namespace alidade

int RareInversion(TSMatrix& N, int* progress, int span) {
  return alidade::invert_normal_matrix(static_cast<double*>(N), N.GetDim1(), progress, span);
}
