#include <alidade/matrix.h>

#include "matrix/inversion.h"
#include "matrix/operators.h"
#include "matrix/packed_index.h"
#include "matrix/products.h"
#include "strict_arithmetic.h"

namespace alidade {

namespace {

// Narrows a matrix to its leading block and widens it again on every way out, a failed allocation included.
class NarrowedOrder {
public:
  NarrowedOrder(TSMatrix& matrix, int order) : matrix_(matrix), full_order_(matrix.GetDim1()) { matrix.SetDim1(order); }
  ~NarrowedOrder() { matrix_.SetDim1(full_order_); }
  NarrowedOrder(const NarrowedOrder&) = delete;
  NarrowedOrder& operator=(const NarrowedOrder&) = delete;

private:
  TSMatrix& matrix_;
  int full_order_;
};

double* data(TSMatrix& m) { return static_cast<double*>(m); }
double* data(TMatrix& m) { return static_cast<double*>(m); }

void set_identity(TSMatrix& m) {
  m = 0;
  for (int i = 0; i < m.GetDim1(); ++i) {
    data(m)[packed_index(i, i)] = 1.0;
  }
}

// The work on the leading block, `matrix` narrowed to order m. On success `coupling` (m x d) and `trailing` (order d)
// hold the two other blocks of the result; on failure, -1, the matrix is unchanged.
int pseudo_invert_blocks(TSMatrix& matrix, TMatrix& coupling, TSMatrix& trailing) {
  const int m = coupling.GetN1();
  const int d = coupling.GetN2();
  double* q = data(matrix);

  TMatrix h(m, d, 1);
  op_symmetric_dense(data(h), m, d, '=', q, data(coupling), m, d);

  TSMatrix normal(d, 1);  // I + H'H
  set_identity(normal);
  op_gram(data(normal), d, '+', data(h), m, d);
  if (invert_normal_matrix(data(normal), d, nullptr, 99) != 0) {
    return -1;
  }

  TMatrix k(m, d, 1);
  op_dense_symmetric(data(k), m, d, '=', data(h), m, d, data(normal));
  TMatrix qk(m, d, 1);
  op_symmetric_dense(data(qk), m, d, '=', q, data(k), m, d);
  op_transposed_congruence(data(trailing), d, '=', data(h), m, d, q);
  op_symmetrized_product(q, m, '-', data(h), data(qk), m, d);
  congruence_product(data(k), data(trailing), q, m, d, '+');

  op_symmetric_dense(data(coupling), m, d, '=', q, data(h), m, d);
  op_transposed_congruence(data(trailing), d, '=', data(h), m, d, q);
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
  {
    const NarrowedOrder leading_block(matrix, m);
    if (pseudo_invert_blocks(matrix, coupling, trailing) != 0) {
      return -1;
    }
  }
  matrix.BlockOper(0, m, '=', coupling);
  matrix.BlockOper(m, '=', trailing);
  return 0;
}

}  // namespace alidade

int PseudoInversion(TSMatrix& N, int d) { return alidade::pseudo_invert(N, d); }
