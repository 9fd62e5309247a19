#ifndef ALIDADE_SRC_MATRIX_PLAIN_PLAIN_PRODUCTS_H
#define ALIDADE_SRC_MATRIX_PLAIN_PLAIN_PRODUCTS_H

#include "matrix/kernels/operands.h"
#include "strict_arithmetic.h"

namespace alidade::plain {

// Products as plain loops, for any machine and any layout. Every element receives its terms in the documented order.
// The loops around the elements are arranged so that the innermost one runs over independent elements, or over
// consecutive addresses, or both. Lines are finished one by one, so that the bits are determined even where the lines
// of a target overlap.
extern const ProductLoops product_loops;

}  // namespace alidade::plain

#endif
