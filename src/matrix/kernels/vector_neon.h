#ifndef ALIDADE_SRC_MATRIX_KERNELS_VECTOR_NEON_H
#define ALIDADE_SRC_MATRIX_KERNELS_VECTOR_NEON_H

// Two doubles of 64-bit ARM, with 32 registers. What tile.h and pack.h ask of an instruction set.

#include <arm_neon.h>

#include <cstddef>

namespace alidade {
namespace kernels {
namespace neon {

using Vector = float64x2_t;
constexpr int kWidth = 2;
constexpr int kTileLines = 6;    // lines of the target held in registers,
constexpr int kTileVectors = 4;  // by vectors of lanes

inline Vector zero() { return vdupq_n_f64(0.0); }
inline Vector broadcast(const double* p) { return vld1q_dup_f64(p); }
inline Vector load(const double* p) { return vld1q_f64(p); }
inline void store(double* p, Vector v) { vst1q_f64(p, v); }

// The first `count` lanes, 0 < count < kWidth; on loading lane 0 fills the others.
struct Mask {
  explicit Mask(std::ptrdiff_t) {}
};
inline Vector load_first(const double* p, Mask) { return vld1q_dup_f64(p); }
inline void store_first(double* p, Vector v, Mask) { vst1q_lane_f64(p, v, 0); }

inline void transpose(Vector (&v)[kWidth]) {
  const Vector low = vtrn1q_f64(v[0], v[1]);
  v[1] = vtrn2q_f64(v[0], v[1]);
  v[0] = low;
}

}  // namespace neon
}  // namespace kernels
}  // namespace alidade

#endif
