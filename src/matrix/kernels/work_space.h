#ifndef ALIDADE_SRC_MATRIX_KERNELS_WORK_SPACE_H
#define ALIDADE_SRC_MATRIX_KERNELS_WORK_SPACE_H

#include <cstddef>

#include "strict_arithmetic.h"

namespace alidade::kernels {

// Room on the heap; null where there is none.
void* take_work_space(std::size_t bytes) noexcept;
void return_work_space(void* p) noexcept;

}  // namespace alidade::kernels

#endif
