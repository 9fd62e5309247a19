#ifndef ALIDADE_SRC_MATRIX_INVERSION_CHOICE_H
#define ALIDADE_SRC_MATRIX_INVERSION_CHOICE_H

#include <cstddef>

#include "matrix/kernels/kernel_table.h"
#include "strict_arithmetic.h"

namespace alidade {

// Is a packed matrix so sparse that the plain loops, which skip every zero, have less to do than tiles of `width`
// lanes, which skip blocks of zeros? A wrong answer costs time, never bits. `indices`: room for 3 n.
bool plain_loops_do_less(const double* packed, std::ptrdiff_t n, const kernels::Sparsity& sparsity,
                         std::ptrdiff_t width, std::ptrdiff_t* indices);

// For tests: whether it is asked at all. If not, tiles do every matrix of several blocks.
extern bool sparse_matrices_are_told;

}  // namespace alidade

#endif
