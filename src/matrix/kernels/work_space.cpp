#include "matrix/kernels/work_space.h"

#include <cstddef>
#include <new>

#include "strict_arithmetic.h"

namespace alidade::kernels {

void* take_work_space(std::size_t bytes) noexcept { return ::operator new(bytes, std::nothrow); }

void return_work_space(void* p) noexcept { ::operator delete(p); }

}  // namespace alidade::kernels
