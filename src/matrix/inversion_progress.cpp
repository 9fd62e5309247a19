#include "matrix/inversion_progress.h"

#include <cstddef>

#include "strict_arithmetic.h"
#include "truncate.h"

namespace alidade {
namespace {

double cube(std::ptrdiff_t rows) {
  const auto x = static_cast<double>(rows);
  return (x * x) * x;
}

// Rounded to the nearest whole per cent, 99 at most: 100 is the caller's to write when all is done.
int percentage(double value) {
  const double rounded = value + 0.5;
  return rounded >= 100.0 ? 99 : truncate_to_int(rounded);
}

// As a whole and at once, so that another thread may watch. std::atomic_ref would say the same from C++20 on.
void store(int* target, int value) {  // NOLINT(readability-non-const-parameter): clang-tidy 14 sees no store below
#if defined(__GNUC__)
  __atomic_store_n(target, value, __ATOMIC_RELAXED);
#else
  *static_cast<volatile int*>(target) = value;
#endif
}

}  // namespace

InversionProgress::InversionProgress(int* target, int span, int n) : target_(target), order_(n) {
  if (target == nullptr) {
    return;
  }
  start_ = *target;
  third_ = span * (1.0 / 3.0);
  unit_ = ((third_ / n) / n) / n;
}

void InversionProgress::report_factor_row(std::ptrdiff_t k) const {
  store(target_, percentage(start_ + (third_ - cube(order_ - k + 1) * unit_)));
}

void InversionProgress::report_inverse_row(std::ptrdiff_t k) const {
  store(target_, percentage((start_ + third_) + cube(k) * unit_));
}

void InversionProgress::report_product_row(std::ptrdiff_t m) const {
  store(target_, percentage(((start_ + third_) + third_) + cube(m) * unit_));
}

}  // namespace alidade
