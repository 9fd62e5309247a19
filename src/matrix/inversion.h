#ifndef ALIDADE_SRC_MATRIX_INVERSION_H
#define ALIDADE_SRC_MATRIX_INVERSION_H

// The inversions as the library itself calls them. include/alidade/matrix.h documents the exported names.

#include "strict_arithmetic.h"

class TSMatrix;

namespace alidade {

// Inverts a packed positive definite matrix of order n in place; 0, or the row, from 1, whose pivot was not positive.
// RareInversion.
int invert_normal_matrix(double* packed, int n, int* progress, int span);

// PseudoInversion.
int pseudo_invert(TSMatrix& matrix, int defect);

}  // namespace alidade

#endif
