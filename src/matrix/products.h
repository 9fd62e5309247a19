#ifndef ALIDADE_SRC_MATRIX_PRODUCTS_H
#define ALIDADE_SRC_MATRIX_PRODUCTS_H

#include "strict_arithmetic.h"

namespace alidade {

// c op a q a': a is n x m dense, q and c are packed. SMatrProductAQAt of include/alidade/matrix.h.
void congruence_product(const double* a, const double* q, double* c, int n, int m, char op);

}  // namespace alidade

#endif
