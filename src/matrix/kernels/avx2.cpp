// Four doubles. Compiled without FMA.

#include <immintrin.h>

#include <cstddef>

#define ALIDADE_ISA avx2
#define ALIDADE_OWN_VECTORS
#include "matrix/kernels/fragments/vector.inl"

namespace alidade::kernels::avx2 {

using Vector = __m256d;
constexpr int kWidth = 4;
constexpr int kTileLines = 6;    // lines of the target held in registers,
constexpr int kTileVectors = 2;  // by vectors of lanes

ALIDADE_INLINE Vector zero() { return _mm256_setzero_pd(); }
ALIDADE_INLINE Vector broadcast(const double* p) { return _mm256_broadcast_sd(p); }
ALIDADE_INLINE Vector load(const double* p) { return _mm256_loadu_pd(p); }
ALIDADE_INLINE void store(double* p, Vector v) { _mm256_storeu_pd(p, v); }

// The first `count` lanes, 0 < count < kWidth; on loading lane 0 fills the others.
struct Mask {
  ALIDADE_INLINE explicit Mask(std::ptrdiff_t count)
      : lanes(_mm256_cmpgt_epi64(_mm256_set1_epi64x(count), _mm256_setr_epi64x(0, 1, 2, 3))) {}
  __m256i lanes;
};
ALIDADE_INLINE Vector load_first(const double* p, Mask m) {
  return _mm256_blendv_pd(broadcast(p), _mm256_maskload_pd(p, m.lanes), _mm256_castsi256_pd(m.lanes));
}
ALIDADE_INLINE void store_first(double* p, Vector v, Mask m) { _mm256_maskstore_pd(p, m.lanes, v); }

ALIDADE_INLINE void transpose(Vector (&v)[kWidth]) {
  const Vector a = _mm256_unpacklo_pd(v[0], v[1]);
  const Vector b = _mm256_unpackhi_pd(v[0], v[1]);
  const Vector c = _mm256_unpacklo_pd(v[2], v[3]);
  const Vector d = _mm256_unpackhi_pd(v[2], v[3]);
  v[0] = _mm256_permute2f128_pd(a, c, 0x20);
  v[1] = _mm256_permute2f128_pd(b, d, 0x20);
  v[2] = _mm256_permute2f128_pd(a, c, 0x31);
  v[3] = _mm256_permute2f128_pd(b, d, 0x31);
}

}  // namespace alidade::kernels::avx2

#include "matrix/kernels/fragments/table.inl"
