#ifndef ALIDADE_TOOLS_VERIFY_LIBRARY_H
#define ALIDADE_TOOLS_VERIFY_LIBRARY_H

#include <alidade/matrix.h>

namespace verify {

// The library as golden/cases/ call it; generate/reference.h holds the other side.
struct Library {
  using Dense = TMatrix;
  using Packed = TSMatrix;

  // A view of active + narrowed rows, of which the first are active.
  struct PackedTarget : TSMatrix {
    PackedTarget(double* elements, int active, int narrowed) : TSMatrix(elements, active + narrowed) {
      SetDim1(active);
    }
  };

  static int order(const TSMatrix& matrix) { return matrix.GetDim1(); }

  // Not constexpr: the address of a function imported from a DLL is only known at run time.
  static inline const auto rare_inversion = &RareInversion;
  static inline const auto pseudo_inversion = &PseudoInversion;
  static inline const auto matrix_product = &MatrixProduct;
  static inline const auto transposed_product = &MAtB;
  static inline const auto mixed_product = &SMatrProduct;
  static inline const auto congruence_product = &SMatrProductAQAt;
  static inline const auto transposed_congruence_vector = &MRAtQL;

  static void a_this_at(double* a, double* q, double* c, int n, int m) {
    TSMatrix target(c, n);
    TSMatrix(q, m).A_This_At(a, target);
  }
  static void packed_times_column(double* s, double* b, char op, double* p, int n) {
    TSMatrix(s, n).MatrProduct(b, op, p);
  }
  static void packed_times_dense(double* s, double* b, char op, double* p, int n, int k) {
    TMatrix right(b, n, k);
    TMatrix product(p, n, k);
    TSMatrix(s, n).MatrProduct(right, op, product);
  }
};

}  // namespace verify

#endif
