#ifndef ALIDADE_TOOLS_GENERATE_REFERENCE_H
#define ALIDADE_TOOLS_GENERATE_REFERENCE_H

#include "reference/inversion.h"
#include "reference/operators.h"
#include "reference/products.h"

namespace generate {

// The literal reference as golden/cases/ call it; verify/library.h holds the other side.
struct Reference {
  using Dense = reference::Dense;
  using Packed = reference::Packed;

  // Of a packed matrix that holds more rows the reference is told only the active ones.
  struct PackedTarget : reference::Packed {
    PackedTarget(double* elements, int active, int /*narrowed*/) : reference::Packed{elements, active} {}
  };

  static int order(const Packed& matrix) { return matrix.order; }
  static int rare_inversion(Packed matrix, int* progress, int span) {
    return reference::rare_inversion(matrix.data, matrix.order, progress, span);
  }
  static int pseudo_inversion(Packed matrix, int defect) {
    return reference::pseudo_inversion(matrix.data, matrix.order, defect);
  }

  static constexpr auto matrix_product = &reference::matrix_product;
  static constexpr auto transposed_product = &reference::transposed_product;
  static constexpr auto mixed_product = &reference::mixed_product;
  static constexpr auto congruence_product = &reference::congruence_product;
  static constexpr auto transposed_congruence_vector = &reference::transposed_congruence_vector;

  // The members pass fixed arguments to the kernels, whatever operation code they are given.
  static void a_this_at(const double* a, const double* q, double* c, int n, int m) {
    reference::congruence_product(a, q, c, n, m, '\0');
  }
  static void packed_times_column(const double* s, const double* b, char op, double* p, int n) {
    packed_times_dense(s, b, op, p, n, 1);
  }
  static void packed_times_dense(const double* s, const double* b, char /*op*/, double* p, int n, int k) {
    reference::mixed_product(s, b, p, n, n, 1, 0, k);
  }
};

}  // namespace generate

#endif
