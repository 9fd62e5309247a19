// The exported operator family.

#include <alidade/matrix.h>

#include <algorithm>
#include <cstddef>

#include "matrix/multiply.h"
#include "matrix/packed_index.h"
#include "matrix/products.h"
#include "strict_arithmetic.h"

using namespace alidade;

namespace {

bool clears(char op) { return op == '=' || op == '|'; }
bool subtracts(char op) { return op == '-' || op == '|'; }

// Most targets are cleared by their own size and not by that of the product: zeros first, then the product is added.
Mode clear_whole(double* t, std::ptrdiff_t size, char op) {
  if (clears(op)) {
    std::fill_n(t, std::max<std::ptrdiff_t>(size, 0), 0.0);
  }
  return {false, subtracts(op)};
}
Mode clear_whole(TSMatrix& T, char op) { return clear_whole(T, T.GetDim1() > 0 ? packed_size(T.GetDim1()) : 0, op); }
Mode clear_whole(TMatrix& T, char op) {
  return clear_whole(T, T.GetN1() > 0 && T.GetN2() > 0 ? dense_size(T.GetN1(), T.GetN2()) : 0, op);
}

// Of the others only the product's extent is cleared.
Mode clear_extent(char op) { return {clears(op), subtracts(op)}; }

Target target(TSMatrix& T) { return packed_target(T); }
Target target(TMatrix& T, int rows) { return dense_target(T, rows); }
Operand operand(const TSMatrix& S) { return packed(S); }
Operand operand(const TMatrix& R) { return dense(R, R.GetN1()); }
Operand transpose_of(const TMatrix& R) { return transposed(R, R.GetN1()); }

}  // namespace

void SMATRopRt_S_R(TSMatrix& T, char op, const TMatrix& R, const TSMatrix& S) {
  const Mode mode = clear_whole(T, op);
  multiply_on_right(target(T), transpose_of(R), operand(S), R.GetN1(), operand(R), {R.GetN2(), R.GetN2(), R.GetN1()},
                    mode);
}

void SMATRopRt_R(TSMatrix& T, char op, const TMatrix& R) {
  const Mode mode = clear_whole(T, op);
  multiply(target(T), transpose_of(R), operand(R), {R.GetN2(), R.GetN2(), R.GetN1()}, mode);
}

void SMATRopABti(TSMatrix& T, char op, const TMatrix& A, const TMatrix& B) {
  const Mode mode = clear_whole(T, op);
  multiply_symmetrized(target(T), operand(A), dense(B, A.GetN1()), {A.GetN1(), A.GetN1(), A.GetN2()}, mode);
}

void SMATRopS1_S2(TSMatrix& T, char op, const TSMatrix& S1, const TSMatrix& S2) {
  const Mode mode = clear_whole(T, op);
  const int n = S1.GetDim1();
  multiply(target(T), operand(S2), operand(S1), {n, n, n}, mode);
}

void SMATRopR_S_Rt(TSMatrix& T, char op, const TMatrix& R, const TSMatrix& S) {
  congruence_product(R, S, T, R.GetN1(), R.GetN2(), op);
}

void MATRopS_R(TMatrix& T, char op, const TSMatrix& S, const TMatrix& R) {
  const Mode mode = clear_whole(T, op);
  multiply(target(T, T.GetN1()), operand(S), operand(R), {R.GetN1(), R.GetN2(), R.GetN1()}, mode);
}

void MATRopR_S(TMatrix& T, char op, const TMatrix& R, const TSMatrix& S) {
  const Mode mode = clear_whole(T, op);
  multiply(target(T, T.GetN1()), operand(R), operand(S), {R.GetN1(), R.GetN2(), R.GetN2()}, mode);
}

void MATRopR1t_R(TMatrix& T, char op, const TMatrix& R1, const TMatrix& R2) {
  const Mode mode = clear_whole(T, op);
  multiply(target(T, T.GetN1()), transpose_of(R1), operand(R2), {R1.GetN2(), R2.GetN2(), R1.GetN1()}, mode);
}

void MATRopR1_R2(TMatrix& T, char op, const TMatrix& R1, const TMatrix& R2) {
  multiply(target(T, R1.GetN1()), operand(R1), operand(R2), {R1.GetN1(), R2.GetN2(), R1.GetN2()}, clear_extent(op));
}

void MATRopR1_R2t(TMatrix& T, char op, const TMatrix& R1, const TMatrix& R2) {
  multiply(target(T, R1.GetN1()), operand(R1), transpose_of(R2), {R1.GetN1(), R2.GetN1(), R2.GetN2()},
           clear_extent(op));
}

void MATRopR1_S_R2t(TMatrix& T, char op, const TMatrix& R1, const TSMatrix& S, const TMatrix& R2) {
  multiply_on_left(target(T, R1.GetN1()), operand(R1), operand(S), R2.GetN2(), transpose_of(R2),
                   {R1.GetN1(), R2.GetN1(), R2.GetN2()}, clear_extent(op));
}

void MATRopR1_R2_R3t(TMatrix& T, char op, const TMatrix& R1, const TMatrix& R2, const TMatrix& R3) {
  multiply_on_left(target(T, R1.GetN1()), operand(R1), operand(R2), R2.GetN1(), transpose_of(R3),
                   {R1.GetN1(), R3.GetN1(), R3.GetN2()}, clear_extent(op));
}
