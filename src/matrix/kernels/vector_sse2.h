#ifndef ALIDADE_SRC_MATRIX_KERNELS_VECTOR_SSE2_H
#define ALIDADE_SRC_MATRIX_KERNELS_VECTOR_SSE2_H

// Two doubles: the vector every x86-64 processor has. What tile.h and pack.h ask of an instruction set.

#include <emmintrin.h>

#include <cstddef>

namespace alidade {
namespace kernels {
namespace sse2 {

using Vector = __m128d;
constexpr int kWidth = 2;
constexpr int kTileLines = 3;    // lines of the target held in registers,
constexpr int kTileVectors = 4;  // by vectors of lanes

inline Vector zero() { return _mm_setzero_pd(); }
inline Vector broadcast(const double* p) { return _mm_set1_pd(*p); }
inline Vector load(const double* p) { return _mm_loadu_pd(p); }
inline void store(double* p, Vector v) { _mm_storeu_pd(p, v); }

// The first `count` lanes, 0 < count < kWidth; on loading lane 0 fills the others.
struct Mask {
  explicit Mask(std::ptrdiff_t) {}
};
inline Vector load_first(const double* p, Mask) { return _mm_set1_pd(*p); }
inline void store_first(double* p, Vector v, Mask) { _mm_store_sd(p, v); }

inline void transpose(Vector (&v)[kWidth]) {
  const Vector low = _mm_unpacklo_pd(v[0], v[1]);
  v[1] = _mm_unpackhi_pd(v[0], v[1]);
  v[0] = low;
}

}  // namespace sse2
}  // namespace kernels
}  // namespace alidade

#endif
