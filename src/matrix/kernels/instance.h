// Everything of one instruction set. Included by kernels_<isa>.cpp after vector_<isa>.h, with ALIDADE_ISA naming it.
//
// All of it stands in a namespace of that name and calls no inline function from elsewhere but compiler intrinsics and
// square_root: otherwise the linker might take, say, a std:: template compiled for AVX-512 into the generic code.

#include <utility>

#include "matrix/kernels/instances.h"
#include "matrix/kernels/walk.h"
#include "square_root.h"
#include "strict_arithmetic.h"

namespace alidade {
namespace kernels {
namespace ALIDADE_ISA {

// Each of these builds on those before it.
// clang-format off
#include "matrix/kernels/tile.h"
#include "matrix/kernels/pack.h"
#include "matrix/kernels/product.h"
#include "matrix/kernels/lanes.h"
#include "matrix/kernels/sparsity.h"
#include "matrix/kernels/square.h"
#include "matrix/kernels/chain.h"
#include "matrix/kernels/small_inversion.h"
#include "matrix/kernels/inversion.h"
#if defined(ALIDADE_LANES_OF_FOUR)
#include "matrix/kernels/order3_quads.h"
#else
#include "matrix/kernels/order3_pairs.h"
#endif
// clang-format on

#define ALIDADE_QUOTE(name) #name
#define ALIDADE_NAME_OF(name) ALIDADE_QUOTE(name)

const Kernels table = {ALIDADE_NAME_OF(ALIDADE_ISA),
                       kWidth,
                       kLeastInverted,
                       product,
                       product_of_product,
                       transposed_congruence,
                       symmetrized_product,
                       invert_small,
                       survey,
                       factor_columns,
                       invert_rows,
                       starts_from_negative_zero,
                       multiply_rows,
                       product3,
                       congruence3};

}  // namespace ALIDADE_ISA
}  // namespace kernels
}  // namespace alidade
