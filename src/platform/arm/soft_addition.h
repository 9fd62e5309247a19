#ifndef ALIDADE_SRC_PLATFORM_ARM_SOFT_ADDITION_H
#define ALIDADE_SRC_PLATFORM_ARM_SOFT_ADDITION_H

// Additions of IEEE 754 doubles, rounded to nearest, ties to even, out of integer operations alone: see addition.cpp.
// The steps are those of Muller et al., Handbook of Floating-Point Arithmetic, 2nd edition, section 7.3: align with
// three extra bits, the last of them sticky; add; normalise; round once.

#include <cstdint>

namespace alidade::soft {

using Bits = std::uint64_t;

constexpr Bits kSign = Bits{1} << 63;
constexpr Bits kInfinity = Bits{0x7ff} << 52;
constexpr Bits kHiddenBit = Bits{1} << 52;
constexpr Bits kQuietNan = kInfinity | kHiddenBit >> 1;
constexpr int kExtraBits = 3;
constexpr Bits kTop = kHiddenBit << kExtraBits;  // the leading bit of a normal significand with its extra bits

// Shifted right, with what falls off gathered in the last bit.
constexpr Bits shifted_sticky(Bits significand, int places) {
  if (places > 63) {
    return significand != 0 ? 1 : 0;
  }
  const Bits lost = significand & ((Bits{1} << places) - 1);
  return significand >> places | (lost != 0 ? 1 : 0);
}

// The double of a significand with extra bits: its leading bit is kTop, or below if the biased exponent is 1.
constexpr Bits rounded(Bits sign, int exponent, Bits significand) {
  const Bits extra = significand & 7;
  Bits kept = significand >> kExtraBits;
  if (extra > 4 || (extra == 4 && kept % 2 == 1)) {
    ++kept;
  }
  // The hidden bit, and a carry out of the rounding, count in the exponent.
  const Bits magnitude = (static_cast<Bits>(exponent - 1) << 52) + kept;
  return sign | (exponent >= 0x7ff || magnitude >= kInfinity ? kInfinity : magnitude);
}

constexpr Bits sum(Bits a, Bits b) {
  if ((a & ~kSign) < (b & ~kSign)) {
    const Bits larger = b;
    b = a;
    a = larger;
  }
  const Bits sign = a & kSign;
  const bool opposite = sign != (b & kSign);
  const Bits a_magnitude = a & ~kSign;
  const Bits b_magnitude = b & ~kSign;
  if (a_magnitude >= kInfinity) {
    if (a_magnitude > kInfinity) {
      return a | kQuietNan;
    }
    return b_magnitude == kInfinity && opposite ? kQuietNan : a;
  }
  if (b_magnitude == 0) {
    return a_magnitude == 0 ? a & b : a;
  }
  const int a_field = static_cast<int>(a_magnitude >> 52);
  const int b_field = static_cast<int>(b_magnitude >> 52);
  int exponent = a_field > 0 ? a_field : 1;
  const int b_exponent = b_field > 0 ? b_field : 1;
  const Bits a_significand = ((a & (kHiddenBit - 1)) | (a_field > 0 ? kHiddenBit : 0)) << kExtraBits;
  const Bits b_significand =
      shifted_sticky(((b & (kHiddenBit - 1)) | (b_field > 0 ? kHiddenBit : 0)) << kExtraBits, exponent - b_exponent);
  if (!opposite) {
    Bits total = a_significand + b_significand;
    if (total >= 2 * kTop) {
      total = shifted_sticky(total, 1);
      ++exponent;
    }
    return rounded(sign, exponent, total);
  }
  Bits difference = a_significand - b_significand;
  if (difference == 0) {
    return 0;
  }
  const int wanted = __builtin_clzll(difference) - __builtin_clzll(kTop);
  const int places = wanted < exponent ? wanted : exponent - 1;
  return rounded(sign, exponent - places, difference << places);
}

}  // namespace alidade::soft

#endif
