#ifndef ALIDADE_SRC_MATRIX_KERNELS_INSTANCES_H
#define ALIDADE_SRC_MATRIX_KERNELS_INSTANCES_H

// The tables that kernels_<isa>.cpp define; which exist in a build is dispatch.cpp's business.

#include "matrix/kernels/walk.h"
#include "strict_arithmetic.h"

namespace alidade::kernels {

namespace sse2 {
extern const Kernels table;
}
namespace avx2 {
extern const Kernels table;
}
namespace avx512 {
extern const Kernels table;
}
namespace neon {
extern const Kernels table;
}

}  // namespace alidade::kernels

#endif
