// The exported operator family: takes sizes and buffers out of the matrix classes.

#include <alidade/matrix.h>

#include "matrix/operators.h"
#include "matrix/products.h"
#include "strict_arithmetic.h"

namespace {

double* data(TSMatrix& m) { return static_cast<double*>(m); }
double* data(TMatrix& m) { return static_cast<double*>(m); }
const double* data(const TSMatrix& m) { return static_cast<double const*>(m); }
const double* data(const TMatrix& m) { return static_cast<double const*>(m); }

}  // namespace

void SMATRopRt_S_R(TSMatrix& T, char op, const TMatrix& R, const TSMatrix& S) {
  alidade::op_transposed_congruence(data(T), T.GetDim1(), op, data(R), R.GetN1(), R.GetN2(), data(S));
}

void SMATRopRt_R(TSMatrix& T, char op, const TMatrix& R) {
  alidade::op_gram(data(T), T.GetDim1(), op, data(R), R.GetN1(), R.GetN2());
}

void SMATRopABti(TSMatrix& T, char op, const TMatrix& A, const TMatrix& B) {
  alidade::op_symmetrized_product(data(T), T.GetDim1(), op, data(A), data(B), A.GetN1(), A.GetN2());
}

void SMATRopS1_S2(TSMatrix& T, char op, const TSMatrix& S1, const TSMatrix& S2) {
  alidade::op_symmetric_product(data(T), T.GetDim1(), op, data(S1), data(S2), S1.GetDim1());
}

void SMATRopR_S_Rt(TSMatrix& T, char op, const TMatrix& R, const TSMatrix& S) {
  alidade::congruence_product(data(R), data(S), data(T), R.GetN1(), R.GetN2(), op);
}

void MATRopS_R(TMatrix& T, char op, const TSMatrix& S, const TMatrix& R) {
  alidade::op_symmetric_dense(data(T), T.GetN1(), T.GetN2(), op, data(S), data(R), R.GetN1(), R.GetN2());
}

void MATRopR_S(TMatrix& T, char op, const TMatrix& R, const TSMatrix& S) {
  alidade::op_dense_symmetric(data(T), T.GetN1(), T.GetN2(), op, data(R), R.GetN1(), R.GetN2(), data(S));
}

void MATRopR1t_R(TMatrix& T, char op, const TMatrix& R1, const TMatrix& R2) {
  alidade::op_transposed_dense(data(T), T.GetN1(), T.GetN2(), op, data(R1), R1.GetN1(), R1.GetN2(), data(R2),
                               R2.GetN1(), R2.GetN2());
}

void MATRopR1_R2(TMatrix& T, char op, const TMatrix& R1, const TMatrix& R2) {
  alidade::op_dense_dense(data(T), op, data(R1), R1.GetN1(), R1.GetN2(), data(R2), R2.GetN1(), R2.GetN2());
}

void MATRopR1_R2t(TMatrix& T, char op, const TMatrix& R1, const TMatrix& R2) {
  alidade::op_dense_transposed(data(T), op, data(R1), R1.GetN1(), data(R2), R2.GetN1(), R2.GetN2());
}

void MATRopR1_S_R2t(TMatrix& T, char op, const TMatrix& R1, const TSMatrix& S, const TMatrix& R2) {
  alidade::op_dense_symmetric_transposed(data(T), op, data(R1), R1.GetN1(), data(S), data(R2), R2.GetN1(), R2.GetN2());
}

void MATRopR1_R2_R3t(TMatrix& T, char op, const TMatrix& R1, const TMatrix& R2, const TMatrix& R3) {
  alidade::op_dense_dense_transposed(data(T), op, data(R1), R1.GetN1(), data(R2), R2.GetN1(), data(R3), R3.GetN1(),
                                     R3.GetN2());
}
