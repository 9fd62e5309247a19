#include <alidade/matrix.h>

#include "matrix/multiply.h"
#include "matrix/products.h"
#include "strict_arithmetic.h"

namespace {

// P = S B for a packed S of order n.
void times_dense(const double* s, int n, const double* b, double* p, int columns) {
  using namespace alidade;
  multiply(dense_target(p, n), packed(s), dense(b, n), {n, columns, n}, {true, false});
}

}  // namespace

void TSMatrix::A_This_At(double* A, TSMatrix& R) {
  alidade::congruence_product(A, data_, R.data_, R.dim1_, dim1_, '\0');
}

// The fixed arguments decide the operation in both products: the code is accepted and not passed on.
void TSMatrix::MatrProduct(double* B, char op, double* P) {
  static_cast<void>(op);
  times_dense(data_, dim1_, B, P, 1);
}

void TSMatrix::MatrProduct(TMatrix& B, char op, TMatrix& P) {
  static_cast<void>(op);
  times_dense(data_, dim1_, B, P, B.GetN2());
}
