#define ALIDADE_ISA sse2
// Each of these builds on those before it.
// clang-format off
#include "matrix/kernels/vector_sse2.h"
#include "matrix/kernels/instance.h"
