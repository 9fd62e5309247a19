// Addition and subtraction of doubles on ARM processors without floating-point unit.
//
// There the compiler calls its run-time library for every operation, and GCC's (seen with version 12) misrounds some
// differences: when the operands lie exactly 33 binary places apart and the result falls below a power of two, one bit
// of the smaller operand is lost. 1.0 - 0x1.011dd78f9949ap-33 gives 0x1.fffffffefee22p-1 instead of
// 0x1.fffffffefee23p-1. Hence the library brings its own. These are all the functions of one member of GCC's library,
// so that the linker never takes that member beside them; the names and what they do are those of the Run-time ABI for
// the ARM Architecture (IHI 0043) and of GCC. Nothing here may add or convert doubles except by integers.

#include <cstdint>
#include <cstring>

#include "environment/soft_addition.h"
#include "strict_arithmetic.h"

namespace {

using alidade::soft::Bits;

Bits bits_of(double x) {
  Bits bits = 0;
  std::memcpy(&bits, &x, sizeof bits);
  return bits;
}

double double_of(Bits bits) {
  double x;
  std::memcpy(&x, &bits, sizeof x);
  return x;
}

}  // namespace

extern "C" {

double __aeabi_dadd(double a, double b) { return double_of(alidade::soft::sum(bits_of(a), bits_of(b))); }
double __aeabi_dsub(double a, double b) {
  return double_of(alidade::soft::sum(bits_of(a), bits_of(b) ^ alidade::soft::kSign));
}
double __aeabi_drsub(double a, double b) {
  return double_of(alidade::soft::sum(bits_of(b), bits_of(a) ^ alidade::soft::kSign));
}
double __aeabi_i2d(std::int32_t x) { return double_of(alidade::soft::from_signed(x)); }
double __aeabi_l2d(std::int64_t x) { return double_of(alidade::soft::from_signed(x)); }
double __aeabi_ui2d(std::uint32_t x) { return double_of(alidade::soft::from_integer(x, false)); }
double __aeabi_ul2d(std::uint64_t x) { return double_of(alidade::soft::from_integer(x, false)); }
double __aeabi_f2d(float x) {
  std::uint32_t bits = 0;
  std::memcpy(&bits, &x, sizeof bits);
  return double_of(alidade::soft::from_float(bits));
}

double __adddf3(double a, double b) __attribute__((alias("__aeabi_dadd")));
double __subdf3(double a, double b) __attribute__((alias("__aeabi_dsub")));
double __floatsidf(std::int32_t x) __attribute__((alias("__aeabi_i2d")));
double __floatdidf(std::int64_t x) __attribute__((alias("__aeabi_l2d")));
double __floatunsidf(std::uint32_t x) __attribute__((alias("__aeabi_ui2d")));
double __floatundidf(std::uint64_t x) __attribute__((alias("__aeabi_ul2d")));
double __extendsfdf2(float x) __attribute__((alias("__aeabi_f2d")));

}  // extern "C"
