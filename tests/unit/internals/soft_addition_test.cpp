// Additions by integers against the processor's own; on ARM without floating-point unit against what the library has
// in the place of the run-time library's, and both against known results.

#include "platform/arm/soft_addition.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>

#include "strict_arithmetic.h"
#include "support/bits.h"
#include "support/nasty.h"
#include "support/sizes.h"

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
    const volatile double a = c.a;  // else the compiler adds
    CHECK_BITS(sum(c.a, c.b), c.result);
    CHECK_BITS(sum(c.b, c.a), c.result);
    CHECK_BITS(a + c.b, c.result);
    CHECK_BITS(c.b + a, c.result);
    CHECK_BITS(a - -c.b, c.result);
    CHECK_BITS(c.b - -a, c.result);
  }
  EXPECT_TRUE(std::isnan(sum(kInf, -kInf)));
  EXPECT_TRUE(std::isnan(sum(kNan, 1.0)));
  EXPECT_TRUE(std::isnan(sum(-kInf, kNan)));
}

// The fraction of a double: zero, one bit, runs of zeros and ones that end anywhere, or any bits at all. Such operands
// give ties and sums next to ties, where a lost bit shows.
Bits hard_fraction(std::uint64_t random) {
  const Bits all = random & 0xfffffffffffffULL;
  const Bits ones = (Bits{1} << (random >> 52) % 53) - 1;
  switch ((random >> 60) % 8) {
    case 0:
      return 0;
    case 1:
      return ones & ~(ones >> 1);
    case 2:
      return ones;
    case 3:
      return ones ^ 0xfffffffffffffULL;
    case 4:
      return all & ones;
    case 5:
      return all | ones;
    case 6:
      return (all & 0xffU) ^ ones;
    default:
      return all;
  }
}

// Exponents up to 80 places apart, among them the extremes; one in 32 pairs as far apart as it falls. On the processors
// without floating-point unit the other side is what + and - of the library's sources are there.
TEST(SoftAddition, EveryDistance) {
  constexpr int kPairs = sizes::all_or_few(100000000, 1000000);
  nasty::Random random(33);
  int shown = 0;
  for (int i = 0; i < kPairs && shown < 10; ++i) {
    const std::uint64_t choice = random.bits();
    const int any = static_cast<int>(choice % 2047);
    const int higher = i % 3 == 0 ? any : i % 3 == 1 ? 1023 : i % 200;
    const int distance = choice >> 59 == 0 ? static_cast<int>((choice >> 20) % 2047) : i % 81;
    const int lower = higher > distance ? higher - distance : 0;
    const std::uint64_t x = random.bits();
    const std::uint64_t y = random.bits();
    const double a = bits::from((choice & 1U << 30) << 33 | static_cast<Bits>(higher) << 52 | hard_fraction(x));
    const double b = bits::from((choice & 1U << 31) << 32 | static_cast<Bits>(lower) << 52 | hard_fraction(y));
    if (!bits::same(sum(a, b), a + b) || !bits::same(sum(b, -a), b - a)) {
      CHECK_BITS(sum(a, b), a + b) << bits::text(a) << " + " << bits::text(b);
      CHECK_BITS(sum(b, -a), b - a) << bits::text(b) << " - " << bits::text(a);
      ++shown;
    }
  }
}

}  // namespace
