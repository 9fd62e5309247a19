#ifndef ALIDADE_SRC_MATRIX_OPERATORS_H
#define ALIDADE_SRC_MATRIX_OPERATORS_H

// The operator family on bare buffers, as the library itself calls it. include/alidade/matrix.h documents the exported
// names. Targets come first; where '=' and '|' clear the target by its own size, that size follows it.

#include "strict_arithmetic.h"

namespace alidade {

// t op R'SR: R is a x b, S of order a, t of order at least b. SMATRopRt_S_R.
void op_transposed_congruence(double* t, int t_order, char op, const double* r, int a, int b, const double* s);

// t op R'R: R is a x b, t of order at least b. SMATRopRt_R.
void op_gram(double* t, int t_order, char op, const double* r, int a, int b);

// t op AB' + BA': A and B are rows x cols, t of order at least rows. SMATRopABti.
void op_symmetrized_product(double* t, int t_order, char op, const double* a, const double* b, int rows, int cols);

// t op lower triangle of S1 S2, both of order n. SMATRopS1_S2.
void op_symmetric_product(double* t, int t_order, char op, const double* s1, const double* s2, int n);

// t op SR: R is a x b, S of order a. MATRopS_R.
void op_symmetric_dense(double* t, int t_rows, int t_cols, char op, const double* s, const double* r, int a, int b);

// t op RS: R is a x b, S of order b. MATRopR_S.
void op_dense_symmetric(double* t, int t_rows, int t_cols, char op, const double* r, int a, int b, const double* s);

// t op R1'R2: R1 is a x b, R2 has c columns of r2_rows rows. MATRopR1t_R.
void op_transposed_dense(double* t, int t_rows, int t_cols, char op, const double* r1, int a, int b, const double* r2,
                         int r2_rows, int c);

// t op R1 R2: R1 is a x b, R2 has c columns of r2_rows rows; t has a rows. MATRopR1_R2.
void op_dense_dense(double* t, char op, const double* r1, int a, int b, const double* r2, int r2_rows, int c);

// t op R1 R2': R1 has a rows, R2 is c x b; t is a x c. MATRopR1_R2t.
void op_dense_transposed(double* t, char op, const double* r1, int a, const double* r2, int c, int b);

// t op R1 S R2': R1 has a rows, R2 is c x b; t is a x c. MATRopR1_S_R2t.
void op_dense_symmetric_transposed(double* t, char op, const double* r1, int a, const double* s, const double* r2,
                                   int c, int b);

// t op R1 R2 R3': R1 has a rows, R2 has b rows, R3 is d x c; t is a x d. MATRopR1_R2_R3t.
void op_dense_dense_transposed(double* t, char op, const double* r1, int a, const double* r2, int b, const double* r3,
                               int d, int c);

}  // namespace alidade

#endif
