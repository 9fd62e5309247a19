#include <alidade/environment.h>

#include <cstdint>
#include <cstring>

#include "held_environment.h"
#include "strict_arithmetic.h"

namespace alidade {
namespace {

// Operands are read through volatile objects, so that each operation is carried out when the function runs and not by
// the compiler, whose own environment is always in order.

bool rounds_to_nearest() {
  volatile double one = 1.0;
  volatile double tiny = 0x1p-60;       // far below half a unit in the last place of 1
  volatile double half_unit = 0x1p-53;  // exactly half of one: the tie goes to the even neighbour
  volatile double three_halves = 0x1.8p-52;
  const bool not_up = one + tiny == 1.0;            // upward gives 1 + 2^-52
  const bool not_down = one - tiny == 1.0;          // downward and towards zero give 1 - 2^-53
  const bool tie_to_even = one + half_unit == 1.0;  // away from zero gives 1 + 2^-52
  const bool tie_from_odd = one + three_halves == 1.0 + 0x1p-51;
  return not_up && not_down && tie_to_even && tie_from_odd;
}

// The product is looked at as bits: a comparison would read a subnormal product as zero when only
// denormals-are-zero is set.
bool flushes_to_zero() {
  volatile double smallest_normal = 0x1p-1022;
  volatile double half = 0.5;
  const double product = smallest_normal * half;
  std::uint64_t product_bits = 0;
  std::memcpy(&product_bits, &product, sizeof product_bits);
  return product_bits == 0;
}

// The operand is subnormal and the result would be normal, so that flush-to-zero alone does not show here.
bool reads_denormals_as_zero() {
  volatile double subnormal = 0x0.8p-1022;
  volatile double scale = 0x1p+100;
  return subnormal * scale == 0.0;
}

// 2^600 * 2^600 is infinite in double and stays so; in an extended register it comes back as 2^600.
bool keeps_excess_precision() {
  volatile double large = 0x1p+600;
  volatile double small = 0x1p-600;
  volatile double one = 1.0;
  volatile double tiny = 0x1p-60;
  const bool wide_range = (large * large) * small == 0x1p+600;
  const bool wide_mantissa = (one + tiny) - one != 0.0;
  return wide_range || wide_mantissa;
}

}  // namespace

unsigned environment_faults() {
  // The probes underflow, overflow and are inexact: a host that traps these must not notice.
  const HeldEnvironment held;
  unsigned faults = 0;
  const bool nearest = rounds_to_nearest();
  if (!nearest) {
    faults |= kRoundingNotToNearest;
  }
  if (flushes_to_zero()) {
    faults |= kFlushesToZero;
  }
  if (reads_denormals_as_zero()) {
    faults |= kDenormalsAreZero;
  }
  // With another rounding mode (1 + 2^-60) - 1 is not zero either, and says nothing about the precision.
  if (nearest && keeps_excess_precision()) {
    faults |= kExcessPrecision;
  }
  return faults;
}

}  // namespace alidade
