#ifndef ALIDADE_SRC_MATRIX_PRODUCTS_H
#define ALIDADE_SRC_MATRIX_PRODUCTS_H

// The product kernels as the library itself calls them. include/alidade/matrix.h documents the exported names.

#include "strict_arithmetic.h"

namespace alidade {

// c = a b: a is n x m, b is m x k, all dense. MatrixProduct.
void matrix_product(const double* a, const double* b, double* c, int n, int m, int k);

// c = a' b: a is n x m, b is n x k, all dense. MAtB.
void transposed_product(const double* a, const double* b, double* c, int n, int m, int k);

// c = a b: a is n x m, b is m x k, each in its own storage mode. SMatrProduct.
void mixed_product(const double* a, const double* b, double* c, int n, int m, int modeA, int modeB, int k);

// c op a q a': a is n x m dense, q and c are packed. SMatrProductAQAt.
void congruence_product(const double* a, const double* q, double* c, int n, int m, char op);

// r op a' q l: a is n x m dense, q packed of order n. MRAtQL.
void transposed_congruence_vector(double* r, char op, const double* a, const double* q, const double* l, int n, int m);

}  // namespace alidade

#endif
