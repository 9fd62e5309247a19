#ifndef ALIDADE_SRC_MATRIX_INVERSION_PROGRESS_H
#define ALIDADE_SRC_MATRIX_INVERSION_PROGRESS_H

#include <cstddef>

#include "strict_arithmetic.h"

namespace alidade {

// Percentage of an inversion of order n, written to the caller's int at every eighth row of its three phases. Each
// phase adds a third of the span; within a phase the work done grows with the cube of the rows. Rows count from 1.
class InversionProgress {
public:
  // target: null for no reports, else the percentage to start from.
  InversionProgress(int* target, int span, int n);

  void start_factor_row(std::ptrdiff_t k) const {
    if (due(k)) {
      report_factor_row(k);
    }
  }
  void start_inverse_row(std::ptrdiff_t k) const {
    if (due(k)) {
      report_inverse_row(k);
    }
  }
  void finish_product_row(std::ptrdiff_t m) const {
    if (due(m)) {
      report_product_row(m);
    }
  }

private:
  bool due(std::ptrdiff_t row) const { return target_ != nullptr && row % 8 == 0; }
  void report_factor_row(std::ptrdiff_t k) const;
  void report_inverse_row(std::ptrdiff_t k) const;
  void report_product_row(std::ptrdiff_t m) const;

  int* target_;
  int order_;
  double start_ = 0.0;
  double third_ = 0.0;
  double unit_ = 0.0;
};

}  // namespace alidade

#endif
