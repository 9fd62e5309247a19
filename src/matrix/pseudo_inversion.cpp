#include <alidade/matrix.h>

#include "matrix/inversion.h"
#include "matrix/multiply.h"
#include "matrix/packed_index.h"
#include "matrix/products.h"
#include "strict_arithmetic.h"

namespace alidade {
namespace {

constexpr Mode kAssign = {true, false};
constexpr Mode kAdd = {false, false};
constexpr Mode kSubtract = {false, true};

double* data(TSMatrix& m) { return static_cast<double*>(m); }

void set_identity(TSMatrix& m) {
  m = 0;
  for (int i = 0; i < m.GetDim1(); ++i) {
    data(m)[packed_index(i, i)] = 1.0;
  }
}

// The work on the leading block q of order m. On success `coupling` (m x d) and `trailing` (order d) hold the two other
// blocks of the result; on failure, -1, q is unchanged. So it is when memory runs out: nothing is had after q is first
// written to.
int pseudo_invert_blocks(double* q, TMatrix& coupling, TSMatrix& trailing) {
  const int m = coupling.GetN1();
  const int d = coupling.GetN2();

  TMatrix h(m, d, 1);
  TMatrix k(m, d, 1);
  TMatrix qk(m, d, 1);
  TSMatrix normal(d, 1);

  multiply(dense_target(h, m), packed(q), dense(coupling, m), {m, d, m}, kAssign);

  set_identity(normal);  // I + H'H
  multiply(packed_target(normal), transposed(h, m), dense(h, m), {d, d, m}, kAdd);
  if (invert_normal_matrix(data(normal), d, nullptr, 99) != 0) {
    return -1;
  }

  multiply(dense_target(k, m), dense(h, m), packed(normal), {m, d, d}, kAssign);
  multiply(dense_target(qk, m), packed(q), dense(k, m), {m, d, m}, kAssign);
  multiply_on_right(packed_target(trailing), transposed(h, m), packed(q), m, dense(h, m), {d, d, m}, kAssign);
  multiply_symmetrized(packed_target(q), dense(h, m), dense(qk, m), {m, m, d}, kSubtract);
  congruence_product(k, trailing, q, m, d, '+');

  multiply(dense_target(coupling, m), packed(q), dense(h, m), {m, d, m}, kAssign);
  multiply_on_right(packed_target(trailing), transposed(h, m), packed(q), m, dense(h, m), {d, d, m}, kAssign);
  return 0;
}

}  // namespace

int pseudo_invert(TSMatrix& matrix, int defect) {
  if (defect < 1) {
    return 0;
  }
  const int m = matrix.GetDim1() - defect;
  if (m < 0) {
    return -1;
  }
  TMatrix coupling(m, defect, 1);
  TSMatrix trailing(defect, 1);
  matrix.BlockOper(0, m, '>', coupling);
  if (pseudo_invert_blocks(data(matrix), coupling, trailing) != 0) {
    return -1;
  }
  matrix.BlockOper(0, m, '=', coupling);
  matrix.BlockOper(m, '=', trailing);
  return 0;
}

}  // namespace alidade

int PseudoInversion(TSMatrix& N, int d) { return alidade::pseudo_invert(N, d); }
