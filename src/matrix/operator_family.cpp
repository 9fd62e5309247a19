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

// Most targets are cleared by their own size and not by that of the product. Where the two agree the product does it;
// else zeros come first, and the product is added.
Mode clear_whole(double* t, std::ptrdiff_t size, bool agrees, char op) {
  if (clears(op) && !agrees) {
    std::fill_n(t, std::max<std::ptrdiff_t>(size, 0), 0.0);
  }
  return {clears(op) && agrees, subtracts(op)};
}
Mode clear_whole(TSMatrix& T, char op, const Extent& extent) {
  const int n = T.GetDim1();
  return clear_whole(T, n > 0 ? packed_size(n) : 0, n == extent.lines, op);
}
Mode clear_whole(TMatrix& T, char op, const Extent& extent) {
  const int n1 = T.GetN1();
  const int n2 = T.GetN2();
  return clear_whole(T, n1 > 0 && n2 > 0 ? dense_size(n1, n2) : 0, n1 == extent.lanes && n2 == extent.lines, op);
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
  const Extent extent = {R.GetN2(), R.GetN2(), R.GetN1()};
  multiply_on_right(target(T), transpose_of(R), operand(S), R.GetN1(), operand(R), extent, clear_whole(T, op, extent));
}

void SMATRopRt_R(TSMatrix& T, char op, const TMatrix& R) {
  const Extent extent = {R.GetN2(), R.GetN2(), R.GetN1()};
  multiply(target(T), transpose_of(R), operand(R), extent, clear_whole(T, op, extent));
}

void SMATRopABti(TSMatrix& T, char op, const TMatrix& A, const TMatrix& B) {
  const Extent extent = {A.GetN1(), A.GetN1(), A.GetN2()};
  multiply_symmetrized(target(T), operand(A), dense(B, A.GetN1()), extent, clear_whole(T, op, extent));
}

void SMATRopS1_S2(TSMatrix& T, char op, const TSMatrix& S1, const TSMatrix& S2) {
  const Extent extent = {S1.GetDim1(), S1.GetDim1(), S1.GetDim1()};
  multiply(target(T), operand(S2), operand(S1), extent, clear_whole(T, op, extent));
}

void SMATRopR_S_Rt(TSMatrix& T, char op, const TMatrix& R, const TSMatrix& S) {
  congruence_product(R, S, T, R.GetN1(), R.GetN2(), op);
}

void MATRopS_R(TMatrix& T, char op, const TSMatrix& S, const TMatrix& R) {
  const Extent extent = {R.GetN1(), R.GetN2(), R.GetN1()};
  multiply(target(T, T.GetN1()), operand(S), operand(R), extent, clear_whole(T, op, extent));
}

void MATRopR_S(TMatrix& T, char op, const TMatrix& R, const TSMatrix& S) {
  const Extent extent = {R.GetN1(), R.GetN2(), R.GetN2()};
  multiply(target(T, T.GetN1()), operand(R), operand(S), extent, clear_whole(T, op, extent));
}

void MATRopR1t_R(TMatrix& T, char op, const TMatrix& R1, const TMatrix& R2) {
  const Extent extent = {R1.GetN2(), R2.GetN2(), R1.GetN1()};
  multiply(target(T, T.GetN1()), transpose_of(R1), operand(R2), extent, clear_whole(T, op, extent));
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
