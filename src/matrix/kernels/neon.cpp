// 64-bit ARM, which has 32 registers.

#define ALIDADE_ISA neon
#define ALIDADE_TILE_LINES 6
#include "matrix/kernels/fragments/table.inl"
