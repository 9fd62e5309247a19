#ifndef ALIDADE_SRC_MATRIX_BLOCKED_INVERSION_H
#define ALIDADE_SRC_MATRIX_BLOCKED_INVERSION_H

#include <cstddef>

#include "matrix/inversion_progress.h"
#include "matrix/inversion_work.h"
#include "matrix/kernels/kernel_table.h"
#include "strict_arithmetic.h"

namespace alidade {

// invert_normal_matrix of matrix/inversion.h in blocks, for n > 0. Whatever is out of the ordinary (infinities, NaN,
// -0.0, an overflow) goes to the plain loops, from the block on where it appears.
int invert_in_blocks(const kernels::KernelTable& fast, double* packed, std::ptrdiff_t n, const InversionWork& work,
                     const InversionProgress& progress);

}  // namespace alidade

#endif
