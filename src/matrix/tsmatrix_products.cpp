#include <alidade/matrix.h>

#include "matrix/products.h"
#include "strict_arithmetic.h"

void TSMatrix::A_This_At(double* A, TSMatrix& R) {
  alidade::congruence_product(A, data_, R.data_, R.dim1_, dim1_, '\0');
}

// The fixed arguments decide the operation in both products: the code is accepted and not passed on.
void TSMatrix::MatrProduct(double* B, char op, double* P) {
  static_cast<void>(op);
  alidade::mixed_product(data_, B, P, dim1_, dim1_, 1, 0, 1);
}

void TSMatrix::MatrProduct(TMatrix& B, char op, TMatrix& P) {
  static_cast<void>(op);
  alidade::mixed_product(data_, B, P, dim1_, dim1_, 1, 0, B.GetN2());
}
