#define ALIDADE_ISA avx512
// Each of these builds on those before it.
// clang-format off
#include "matrix/kernels/vector_avx512.h"
#include "matrix/kernels/instance.h"
