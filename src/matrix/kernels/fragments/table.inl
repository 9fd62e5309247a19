#ifndef ALIDADE_SRC_MATRIX_KERNELS_FRAGMENTS_TABLE_INL
#define ALIDADE_SRC_MATRIX_KERNELS_FRAGMENTS_TABLE_INL

// The entry points of one instruction set; the source that includes this names it with ALIDADE_ISA.

#include "matrix/kernels/fragments/inversion.inl"
#include "matrix/kernels/fragments/product.inl"
#include "matrix/kernels/fragments/small_inversion.inl"
#include "matrix/kernels/kernel_table.h"

#if defined(ALIDADE_OWN_VECTORS)
#include "matrix/kernels/fragments/order3_quads.inl"
#else
#include "matrix/kernels/fragments/order3_pairs.inl"
#endif

namespace alidade::kernels::ALIDADE_ISA {

const KernelTable table = {kWidth,         {product, product_on_left, product_on_right, symmetrized_product},
                           kLeastInverted, invert_small,
                           survey,         factor_columns,
                           invert_rows,    starts_from_negative_zero,
                           multiply_rows,  product3,
                           congruence3};

}  // namespace alidade::kernels::ALIDADE_ISA

#endif
