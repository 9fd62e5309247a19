// Addition and subtraction of doubles on ARM processors without floating-point unit.
//
// There the compiler calls its run-time library for every operation, and GCC's (seen with version 12) misrounds some
// differences: it aligns the smaller operand with one exact bit fewer than it needs when the operands lie exactly 33
// binary places apart, and loses it when the result falls below a power of two. 1.0 - 0x1.011dd78f9949ap-33 gives
// 0x1.fffffffefee22p-1 instead of 0x1.fffffffefee23p-1. So such operands, and some of their neighbours, are added by
// integers; all others by the run-time library. strict_arithmetic.h leads the library's sources here and a host's own
// additions are left alone. This source must not include it.
//
// The names of the run-time library and what its functions do are those of the Run-time ABI for the ARM Architecture
// (IHI 0043); doubles are passed as 64-bit integers are.

#include <cstdint>

#include "platform/arm/soft_addition.h"

namespace {

using alidade::soft::Bits;
using alidade::soft::kSign;

// Whether the exponents are 33 or 34 apart: 34, because those of subnormal numbers count one place too many. The rest
// of the upper words, and differences that wrap around, let some other pairs pass, which does no harm and spares masks.
bool needs_care(Bits a, Bits b) {
  constexpr std::uint32_t kPlace = 1U << 21;  // the exponent in an upper word without its sign
  const std::uint32_t difference = (static_cast<std::uint32_t>(a >> 32) - static_cast<std::uint32_t>(b >> 32)) << 1;
  const std::uint32_t if_negative = 0U - (difference >> 31);
  const std::uint32_t apart = difference ^ if_negative;  // in one's complement
  return apart - 32 * kPlace < 3 * kPlace;
}

[[gnu::noinline]] Bits by_integers(Bits a, Bits b) { return alidade::soft::sum(a, b); }

}  // namespace

extern "C" {

Bits __aeabi_dadd(Bits a, Bits b);
Bits __aeabi_dsub(Bits a, Bits b);
Bits __aeabi_drsub(Bits a, Bits b);

Bits alidade_dadd(Bits a, Bits b) { return needs_care(a, b) ? by_integers(a, b) : __aeabi_dadd(a, b); }
Bits alidade_dsub(Bits a, Bits b) { return needs_care(a, b) ? by_integers(a, b ^ kSign) : __aeabi_dsub(a, b); }
Bits alidade_drsub(Bits a, Bits b) { return needs_care(a, b) ? by_integers(b, a ^ kSign) : __aeabi_drsub(a, b); }

}  // extern "C"
