// Additions by integers against the processor's own, and against known results where the processor has none: there the
// functions under test are its addition.

#include "environment/soft_addition.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>

#include "support/bits.h"
#include "support/nasty.h"

namespace {

using alidade::soft::Bits;

double sum(double a, double b) { return bits::from(alidade::soft::sum(bits::of(a), bits::of(b))); }

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kLeast = std::numeric_limits<double>::denorm_min();
constexpr double kMost = std::numeric_limits<double>::max();

TEST(SoftAddition, KnownSums) {
  struct {
    double a, b, result;
  } const cases[] = {
      {1.0, -0x1.011dd78f9949ap-33, 0x1.fffffffefee23p-1},  // GCC's run-time library for ARM gives ...22
      {1.0, 0x1p-53, 1.0},                                  // a tie goes to the even neighbour
      {1.0, 0x1.0000000000001p-53, 0x1.0000000000001p+0},
      {0x1.0000000000001p+0, 0x1p-53, 0x1.0000000000002p+0},
      {1.0, -0x1p-54, 1.0},
      {1.0, -0x1.0000000000001p-54, 0x1.fffffffffffffp-1},
      {1.0, -0x1p-53, 0x1.fffffffffffffp-1},
      {1.0, -0x1p-1000, 1.0},
      {1.0, -1.0, 0.0},
      {-1.0, 1.0, 0.0},
      {0.0, -0.0, 0.0},
      {-0.0, -0.0, -0.0},
      {0.0, -3.0, -3.0},
      {kLeast, kLeast, 2 * kLeast},
      {0x1p-1022, -kLeast, 0x0.fffffffffffffp-1022},
      {0x0.fffffffffffffp-1022, kLeast, 0x1p-1022},
      {kMost, kMost, kInf},
      {kMost, 0x1p970, kInf},
      {kMost, 0x1.fffffffffffffp969, kMost},
      {-kMost, -kMost, -kInf},
      {kInf, -kMost, kInf},
      {-kInf, -kInf, -kInf},
  };
  for (const auto& c : cases) {
    CHECK_BITS(sum(c.a, c.b), c.result);
    CHECK_BITS(sum(c.b, c.a), c.result);
  }
  EXPECT_TRUE(std::isnan(sum(kInf, -kInf)));
  EXPECT_TRUE(std::isnan(sum(kNan, 1.0)));
  EXPECT_TRUE(std::isnan(sum(-kInf, kNan)));
}

// Fractions with long runs of zeros and ones; exponents up to 80 places apart, the extremes among them.
TEST(SoftAddition, EveryDistance) {
  nasty::Random random(33);
  const auto fraction = [&random]() -> Bits {
    const Bits all = random.bits() & 0xfffffffffffffULL;
    switch (random.bits() % 6) {
      case 0:
        return 0;
      case 1:
        return all & 0xffULL;
      case 2:
        return all & 0xffffff0000000ULL;
      case 3:
        return all | 0xfffffff000000ULL;
      case 4:
        return all | 0xfffffffULL;
      default:
        return all;
    }
  };
  for (int i = 0; i < 400000; ++i) {
    const int higher = i % 3 == 0 ? static_cast<int>(random.bits() % 2047) : i % 3 == 1 ? 1023 : i % 200;
    const int lower = higher > i % 81 ? higher - i % 81 : 0;
    double a = bits::from(random.bits() << 63 | static_cast<Bits>(higher) << 52 | fraction());
    double b = bits::from(random.bits() << 63 | static_cast<Bits>(lower) << 52 | fraction());
    CHECK_BITS(sum(a, b), a + b) << a << " " << b;
    CHECK_BITS(sum(b, -a), b - a) << a << " " << b;
  }
}

TEST(SoftAddition, ConversionsToDouble) {
  nasty::Random random(34);
  for (int i = 0; i < 100000; ++i) {
    const std::uint64_t x = random.bits() >> i % 64;
    const auto as_signed = static_cast<std::int64_t>(i % 2 == 0 ? x : ~x);
    CHECK_BITS(bits::from(alidade::soft::from_integer(x, false)), static_cast<double>(x)) << x;
    CHECK_BITS(bits::from(alidade::soft::from_signed(as_signed)), static_cast<double>(as_signed)) << as_signed;
    const auto any = static_cast<std::uint32_t>(random.bits());
    const std::uint32_t field = i % 4 == 0 ? any & 0x807fffffU : any;  // one in four is subnormal
    float f = 0;
    std::memcpy(&f, &field, sizeof f);
    CHECK_BITS(bits::from(alidade::soft::from_float(field)), static_cast<double>(f)) << f;
  }
  CHECK_BITS(bits::from(alidade::soft::from_integer(0, false)), 0.0);
  CHECK_BITS(bits::from(alidade::soft::from_signed(std::numeric_limits<std::int64_t>::min())), -0x1p63);
  CHECK_BITS(bits::from(alidade::soft::from_integer(0x20000000000001ULL, false)), 0x1p53);
  CHECK_BITS(bits::from(alidade::soft::from_integer(0x20000000000003ULL, false)), 0x1.0000000000002p53);
  CHECK_BITS(bits::from(alidade::soft::from_float(0x00000001U)), 0x1p-149);
  CHECK_BITS(bits::from(alidade::soft::from_float(0xff800000U)), -kInf);
  EXPECT_TRUE(std::isnan(bits::from(alidade::soft::from_float(0x7f800001U))));
}

}  // namespace
