#ifndef ALIDADE_SRC_MATRIX_PLAIN_PLAIN_INVERSION_H
#define ALIDADE_SRC_MATRIX_PLAIN_PLAIN_INVERSION_H

#include <cstddef>

#include "matrix/inversion_progress.h"
#include "matrix/inversion_work.h"
#include "strict_arithmetic.h"

namespace alidade::plain {

// The inversion of a packed normal matrix of order n as plain loops. Its three phases can be called by themselves, so
// that others may leave a rest to them: columns first ... n - 1 of the factor, rows first ... end - 1 of its inverse,
// and the product. factorise returns like invert_normal_matrix of matrix/inversion.h.
int factorise(double* matrix, std::ptrdiff_t n, std::ptrdiff_t first, const InversionWork& work,
              const InversionProgress& progress);
void invert_factor(double* matrix, std::ptrdiff_t first, std::ptrdiff_t end, const InversionWork& work,
                   const InversionProgress& progress);
void multiply_by_transpose(double* matrix, std::ptrdiff_t n, const InversionProgress& progress);

int invert_normal_matrix(double* packed, std::ptrdiff_t n, const InversionWork& work,
                         const InversionProgress& progress);

}  // namespace alidade::plain

#endif
