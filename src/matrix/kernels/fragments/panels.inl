#ifndef ALIDADE_SRC_MATRIX_KERNELS_FRAGMENTS_PANELS_INL
#define ALIDADE_SRC_MATRIX_KERNELS_FRAGMENTS_PANELS_INL

// The work space of a product: panels on the stack where they are small, else on the heap. No public function uses more
// than 16 KB of stack, and no product throws: where the heap has nothing left the panels on the stack have to do, with
// fewer terms at a time.

#include <cstddef>
#include <cstdint>

#include "matrix/kernels/fragments/pack.inl"
#include "matrix/kernels/work_space.h"

namespace alidade::kernels::ALIDADE_ISA {

template <int kCount>
class Panels {
public:
  // For blocks of at most kBlockLanes of `lanes` lanes by kBlockTerms of `terms` terms.
  Panels(std::ptrdiff_t lanes, std::ptrdiff_t terms)
      : ld_((smaller(lanes, kBlockLanes) + kWidth - 1) / kWidth * kWidth), terms_(smaller(terms, kBlockTerms)) {
    const std::ptrdiff_t size = kCount * ld_ * terms_;
    if (size > kOnStack) {
      constexpr std::size_t kCacheLine = 64;
      heap_ = take_work_space(static_cast<std::size_t>(size) * sizeof(double) + kCacheLine);
      if (heap_ != nullptr) {
        const std::size_t beyond = reinterpret_cast<std::uintptr_t>(heap_) % kCacheLine;
        values_ = static_cast<double*>(heap_) + (kCacheLine - beyond) / sizeof(double);
      } else {
        terms_ = kOnStack / (kCount * ld_);
      }
    }
  }
  ~Panels() {
    if (heap_ != nullptr) {
      return_work_space(heap_);
    }
  }
  Panels(const Panels&) = delete;
  Panels& operator=(const Panels&) = delete;

  Panel operator[](int k) const { return {values_ + k * ld_ * terms_, ld_, terms_}; }

private:
  static constexpr std::ptrdiff_t kOnStack = 896;  // 7 KB, so that the largest frame around it stays below 16
  static_assert(kOnStack >= kCount * kBlockLanes, "a term at a time at least");
  std::ptrdiff_t ld_;
  std::ptrdiff_t terms_;
  void* heap_ = nullptr;
  double* values_ = stack_;
  alignas(64) double stack_[kOnStack];
};

}  // namespace alidade::kernels::ALIDADE_ISA

#endif
