#define ALIDADE_ISA neon
// Each of these builds on those before it.
// clang-format off
#include "matrix/kernels/vector_neon.h"
#include "matrix/kernels/instance.h"
