// SSE2, which every x86-64 processor has.

#define ALIDADE_ISA sse2
#define ALIDADE_TILE_LINES 3
#include "matrix/kernels/fragments/table.inl"
