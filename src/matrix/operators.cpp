#include "matrix/operators.h"

#include "matrix/plain/plain_kernels.h"
#include "strict_arithmetic.h"

namespace alidade {

void op_transposed_congruence(double* t, int t_order, char op, const double* r, int a, int b, const double* s) {
  plain::op_transposed_congruence(t, t_order, op, r, a, b, s);
}

void op_gram(double* t, int t_order, char op, const double* r, int a, int b) {
  plain::op_gram(t, t_order, op, r, a, b);
}

void op_symmetrized_product(double* t, int t_order, char op, const double* a, const double* b, int rows, int cols) {
  plain::op_symmetrized_product(t, t_order, op, a, b, rows, cols);
}

void op_symmetric_product(double* t, int t_order, char op, const double* s1, const double* s2, int n) {
  plain::op_symmetric_product(t, t_order, op, s1, s2, n);
}

void op_symmetric_dense(double* t, int t_rows, int t_cols, char op, const double* s, const double* r, int a, int b) {
  plain::op_symmetric_dense(t, t_rows, t_cols, op, s, r, a, b);
}

void op_dense_symmetric(double* t, int t_rows, int t_cols, char op, const double* r, int a, int b, const double* s) {
  plain::op_dense_symmetric(t, t_rows, t_cols, op, r, a, b, s);
}

void op_transposed_dense(double* t, int t_rows, int t_cols, char op, const double* r1, int a, int b, const double* r2,
                         int r2_rows, int c) {
  plain::op_transposed_dense(t, t_rows, t_cols, op, r1, a, b, r2, r2_rows, c);
}

void op_dense_dense(double* t, char op, const double* r1, int a, int b, const double* r2, int r2_rows, int c) {
  plain::op_dense_dense(t, op, r1, a, b, r2, r2_rows, c);
}

void op_dense_transposed(double* t, char op, const double* r1, int a, const double* r2, int c, int b) {
  plain::op_dense_transposed(t, op, r1, a, r2, c, b);
}

void op_dense_symmetric_transposed(double* t, char op, const double* r1, int a, const double* s, const double* r2,
                                   int c, int b) {
  plain::op_dense_symmetric_transposed(t, op, r1, a, s, r2, c, b);
}

void op_dense_dense_transposed(double* t, char op, const double* r1, int a, const double* r2, int b, const double* r3,
                               int d, int c) {
  plain::op_dense_dense_transposed(t, op, r1, a, r2, b, r3, d, c);
}

}  // namespace alidade
