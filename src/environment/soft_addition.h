#ifndef ALIDADE_SRC_ENVIRONMENT_SOFT_ADDITION_H
#define ALIDADE_SRC_ENVIRONMENT_SOFT_ADDITION_H

// Additions of IEEE 754 doubles, rounded to nearest, ties to even, out of integer operations alone; and the conversions
// to double that share their rounding. For processors without floating-point unit whose run-time library rounds
// wrongly, see arm_run_time.cpp. The steps are those of Muller et al., Handbook of Floating-Point Arithmetic, 2nd
// edition, section 7.3: align with three extra bits, the last of them sticky; add; normalise; round once.

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

constexpr int leading_zeros(Bits x) {
  int zeros = 0;
  for (int step = 32; step > 0; step /= 2) {
    if (x >> (64 - step) == 0) {
      x <<= step;
      zeros += step;
    }
  }
  return zeros;
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
  if (difference >= kTop) {  // the usual case, and leading zeros are costly to count
    return rounded(sign, exponent, difference);
  }
  if (difference == 0) {
    return 0;
  }
  const int wanted = leading_zeros(difference) - leading_zeros(kTop);
  const int places = wanted < exponent ? wanted : exponent - 1;
  return rounded(sign, exponent - places, difference << places);
}

constexpr Bits from_integer(Bits magnitude, bool negative) {
  if (magnitude == 0) {
    return 0;
  }
  const int zeros = leading_zeros(magnitude);
  return rounded(negative ? kSign : 0, 1023 + 63 - zeros, shifted_sticky(magnitude << zeros, leading_zeros(kTop)));
}

constexpr Bits from_signed(std::int64_t x) {
  const Bits bits = static_cast<Bits>(x);
  return x < 0 ? from_integer(0 - bits, true) : from_integer(bits, false);
}

constexpr Bits from_float(std::uint32_t x) {
  const Bits sign = static_cast<Bits>(x >> 31) << 63;
  const int field = static_cast<int>(x >> 23 & 0xff);
  const Bits fraction = x & 0x7fffff;
  if (field == 0xff) {
    return sign | kInfinity | fraction << 29 | (fraction != 0 ? kQuietNan : 0);
  }
  if (field == 0) {  // fraction times 2 to the power -149
    return sign | (fraction == 0 ? 0 : from_integer(fraction, false) - (Bits{149} << 52));
  }
  return sign | static_cast<Bits>(field + 1023 - 127) << 52 | fraction << 29;
}

}  // namespace alidade::soft

#endif
