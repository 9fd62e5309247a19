#ifndef ALIDADE_SRC_MATRIX_PLAIN_PLAIN_KERNELS_H
#define ALIDADE_SRC_MATRIX_PLAIN_PLAIN_KERNELS_H

// The kernels as plain loops, for any machine. Arguments and effects are those of the functions of the same names in
// matrix/products.h, matrix/operators.h and matrix/inversion.h.
//
// Every element receives its terms in the documented order. The loops around the elements are arranged so that the
// innermost one runs over independent elements, or over consecutive addresses, or both.

#include <cstddef>

#include "matrix/inversion_progress.h"
#include "strict_arithmetic.h"

namespace alidade::plain {

void matrix_product(const double* a, const double* b, double* c, int n, int m, int k);
void transposed_product(const double* a, const double* b, double* c, int n, int m, int k);
void mixed_product(const double* a, const double* b, double* c, int n, int m, int modeA, int modeB, int k);
void congruence_product(const double* a, const double* q, double* c, int n, int m, char op);
void transposed_congruence_vector(double* r, char op, const double* a, const double* q, const double* l, int n, int m);

void op_transposed_congruence(double* t, int t_order, char op, const double* r, int a, int b, const double* s);
void op_gram(double* t, int t_order, char op, const double* r, int a, int b);
void op_symmetrized_product(double* t, int t_order, char op, const double* a, const double* b, int rows, int cols);
void op_symmetric_product(double* t, int t_order, char op, const double* s1, const double* s2, int n);
void op_symmetric_dense(double* t, int t_rows, int t_cols, char op, const double* s, const double* r, int a, int b);
void op_dense_symmetric(double* t, int t_rows, int t_cols, char op, const double* r, int a, int b, const double* s);
void op_transposed_dense(double* t, int t_rows, int t_cols, char op, const double* r1, int a, int b, const double* r2,
                         int r2_rows, int c);
void op_dense_dense(double* t, char op, const double* r1, int a, int b, const double* r2, int r2_rows, int c);
void op_dense_transposed(double* t, char op, const double* r1, int a, const double* r2, int c, int b);
void op_dense_symmetric_transposed(double* t, char op, const double* r1, int a, const double* s, const double* r2,
                                   int c, int b);
void op_dense_dense_transposed(double* t, char op, const double* r1, int a, const double* r2, int b, const double* r3,
                               int d, int c);

// The three phases of the inversion, so that other kernels may leave a rest to the plain loops: columns first ... n - 1
// of the factor, rows first ... end - 1 of its inverse, and the product. factorise returns like invert_normal_matrix.
int factorise(double* matrix, std::ptrdiff_t n, std::ptrdiff_t first, const InversionProgress& progress);
void invert_factor(double* matrix, std::ptrdiff_t first, std::ptrdiff_t end, const InversionProgress& progress);
void multiply_by_transpose(double* matrix, std::ptrdiff_t n, const InversionProgress& progress);

int invert_normal_matrix(double* packed, std::ptrdiff_t n, const InversionProgress& progress);

}  // namespace alidade::plain

#endif
