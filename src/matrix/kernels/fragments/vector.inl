#ifndef ALIDADE_SRC_MATRIX_KERNELS_FRAGMENTS_VECTOR_INL
#define ALIDADE_SRC_MATRIX_KERNELS_FRAGMENTS_VECTOR_INL

// What the fragments ask of an instruction set. A source with wider vectors brings its own, defines ALIDADE_OWN_VECTORS
// and includes table.inl. For the others, and for a fragment that is opened by itself, here are vectors of two doubles
// in the compiler's own notation. The fused forms are never asked for. All is inlined: Windows passes vectors through
// memory that GCC does not align.
//
// All fragments stand in a namespace named after the instruction set and use no inline function from elsewhere but
// compiler intrinsics and square_root, which leaves no copy: otherwise the linker might take, say, a std:: template
// compiled for AVX-512 into generic code.

#include <cstddef>

#include "strict_arithmetic.h"

#define ALIDADE_INLINE inline __attribute__((always_inline))
#define ALIDADE_UNROLL _Pragma("GCC unroll 8")

#ifndef ALIDADE_ISA
#define ALIDADE_ISA alone
#define ALIDADE_TILE_LINES 3
#endif

#ifndef ALIDADE_OWN_VECTORS

namespace alidade::kernels::ALIDADE_ISA {

using Vector = double __attribute__((vector_size(16)));
constexpr int kWidth = 2;
constexpr int kTileLines = ALIDADE_TILE_LINES;  // lines of the target held in registers,
constexpr int kTileVectors = 4;                 // by vectors of lanes

ALIDADE_INLINE Vector zero() { return Vector{}; }
ALIDADE_INLINE Vector broadcast(const double* p) { return Vector{*p, *p}; }
ALIDADE_INLINE Vector load(const double* p) {
  Vector v;
  __builtin_memcpy(&v, p, sizeof v);  // an unaligned load
  return v;
}
ALIDADE_INLINE void store(double* p, Vector v) { __builtin_memcpy(p, &v, sizeof v); }

// The first `count` lanes, 0 < count < kWidth; on loading lane 0 fills the others.
struct Mask {
  explicit Mask(std::ptrdiff_t) {}
};
ALIDADE_INLINE Vector load_first(const double* p, Mask) { return broadcast(p); }
ALIDADE_INLINE void store_first(double* p, Vector v, Mask) { *p = v[0]; }

ALIDADE_INLINE void transpose(Vector (&v)[kWidth]) {
  const Vector low = {v[0][0], v[1][0]};
  v[1] = Vector{v[0][1], v[1][1]};
  v[0] = low;
}

}  // namespace alidade::kernels::ALIDADE_ISA

#endif

#endif
