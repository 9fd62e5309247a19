// Eight doubles. The fused forms are never asked for.

#include <immintrin.h>

#include <cstddef>

#define ALIDADE_ISA avx512
#define ALIDADE_OWN_VECTORS
#include "matrix/kernels/fragments/vector.inl"

namespace alidade::kernels::avx512 {

using Vector = __m512d;
constexpr int kWidth = 8;
constexpr int kTileLines = 8;    // lines of the target held in registers,
constexpr int kTileVectors = 3;  // by vectors of lanes

ALIDADE_INLINE Vector zero() { return _mm512_setzero_pd(); }
ALIDADE_INLINE Vector broadcast(const double* p) { return _mm512_set1_pd(*p); }
ALIDADE_INLINE Vector load(const double* p) { return _mm512_loadu_pd(p); }
ALIDADE_INLINE void store(double* p, Vector v) { _mm512_storeu_pd(p, v); }

// The first `count` lanes, 0 < count < kWidth; on loading lane 0 fills the others.
struct Mask {
  ALIDADE_INLINE explicit Mask(std::ptrdiff_t count) : lanes(static_cast<__mmask8>((1U << count) - 1U)) {}
  __mmask8 lanes;
};
ALIDADE_INLINE Vector load_first(const double* p, Mask m) { return _mm512_mask_loadu_pd(broadcast(p), m.lanes, p); }
ALIDADE_INLINE void store_first(double* p, Vector v, Mask m) { _mm512_mask_storeu_pd(p, m.lanes, v); }

// Three rounds of exchanges: neighbours, pairs within 256 bits, halves.
ALIDADE_INLINE void transpose(Vector (&v)[kWidth]) {
  Vector a[8];
  for (int i = 0; i < 8; i += 2) {
    a[i] = _mm512_unpacklo_pd(v[i], v[i + 1]);
    a[i + 1] = _mm512_unpackhi_pd(v[i], v[i + 1]);
  }
  Vector b[8];
  for (int h = 0; h < 8; h += 4) {
    for (int i = 0; i < 2; ++i) {
      b[h + i] = _mm512_shuffle_f64x2(a[h + i], a[h + i + 2], 0x88);
      b[h + i + 2] = _mm512_shuffle_f64x2(a[h + i], a[h + i + 2], 0xdd);
    }
  }
  for (int i = 0; i < 4; ++i) {
    v[i] = _mm512_shuffle_f64x2(b[i], b[i + 4], 0x88);
    v[i + 4] = _mm512_shuffle_f64x2(b[i], b[i + 4], 0xdd);
  }
}

}  // namespace alidade::kernels::avx512

#include "matrix/kernels/fragments/table.inl"
