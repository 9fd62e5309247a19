#define ALIDADE_ISA avx2
// Each of these builds on those before it.
// clang-format off
#include "matrix/kernels/vector_avx2.h"
#include "matrix/kernels/instance.h"
