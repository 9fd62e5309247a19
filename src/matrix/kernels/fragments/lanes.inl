#ifndef ALIDADE_SRC_MATRIX_KERNELS_FRAGMENTS_LANES_INL
#define ALIDADE_SRC_MATRIX_KERNELS_FRAGMENTS_LANES_INL

// The bits of a vector's lanes, and what is asked about them.

#include <cstddef>

#include "matrix/kernels/fragments/tile.inl"
#include "matrix/kernels/kernel_table.h"

namespace alidade::kernels::ALIDADE_ISA {

using Bits = long long __attribute__((vector_size(8 * kWidth)));

ALIDADE_INLINE Bits bits_of(Vector v) { return reinterpret_cast<Bits>(v); }
ALIDADE_INLINE bool any_bit(Bits bits) {
  long long any = 0;
  for (int lane = 0; lane < kWidth; ++lane) {
    any |= bits[lane];
  }
  return any != 0;
}
ALIDADE_INLINE Bits negative_zeros(Vector v) {
  return bits_of(v) == Bits{} + static_cast<long long>(0x8000000000000000ULL);
}
ALIDADE_INLINE Vector magnitude(Vector v) { return reinterpret_cast<Vector>(bits_of(v) & 0x7fffffffffffffffLL); }

ALIDADE_INLINE Bits lane_numbers() {
  Bits lanes = {};
  for (int i = 0; i < kWidth; ++i) {
    lanes[i] = i;
  }
  return lanes;
}

// The first `count` lanes of p, zeros in the others.
ALIDADE_INLINE Vector load_lanes_or_zero(const double* p, std::ptrdiff_t count) {
  return reinterpret_cast<Vector>(bits_of(load_lanes(p, count)) & (lane_numbers() < Bits{} + count));
}

// x in one lane, zeros in the others; zeros alone if there is no such lane.
ALIDADE_INLINE Vector unit_lane(std::ptrdiff_t lane, double x) {
  return reinterpret_cast<Vector>(bits_of(broadcast(&x)) & (lane_numbers() == Bits{} + lane));
}

// Zero times anything finite is zero: tells whether all of the values multiplied into the lanes were finite.
ALIDADE_INLINE bool all_zero(Vector check) { return !any_bit(bits_of(check) & 0x7fffffffffffffffLL); }

}  // namespace alidade::kernels::ALIDADE_ISA

#endif
