// Quantiles and classes against their literal versions, bit for bit.

#include <alidade/stats.h>
#include <gtest/gtest.h>

#include "reference/stats.h"
#include "support/bits.h"
#include "support/coords_inputs.h"
#include "support/sizes.h"

namespace {

constexpr int kCases = sizes::all_or_few(120000, 20000);

TEST(StatsReference, ChiSquare) {
  inputs::Source source(11);
  const int levels[] = {68, 95, 99};
  for (int i = 0; i < kCases; ++i) {
    const int level = i % 4 == 0 ? static_cast<int>(source.bits()) : levels[source.below(3)];
    const int df = i % 3 == 0 ? static_cast<int>(source.bits()) : source.below(3000) - 20;
    ASSERT_TRUE(bits::same(CHI_1SDE(level, df), reference::chi_one_sided(level, df))) << level << ' ' << df;
    float ours[2] = {1.0F, 2.0F};
    float expected[2];
    CHI_2SDE(level, df, ours);
    reference::chi_two_sided(level, df, expected);
    ASSERT_TRUE(bits::same(ours[0], expected[0])) << level << ' ' << df;
    ASSERT_TRUE(bits::same(ours[1], expected[1])) << level << ' ' << df;
  }
}

TEST(StatsReference, Tau) {
  inputs::Source source(12);
  for (int i = 0; i < kCases; ++i) {
    int n = 1 + source.below(500);
    const int f = source.below(i % 50 == 0 ? 2000 : 60) - 2;
    double alpha = source.uniform(0.0, 1.01);
    switch (source.below(6)) {
      case 0:
        alpha = source.magnitude(-20.0, 0.0);
        break;
      case 1:
        alpha = source.nasty();
        break;
      case 2:
        n = static_cast<int>(source.bits());
        break;
      default:
        break;
    }
    ASSERT_TRUE(bits::same(TAU(n, f, alpha), reference::tau(n, f, alpha))) << n << ' ' << f << ' ' << bits::text(alpha);
  }
}

TEST(StatsReference, AccuracyClass) {
  inputs::Source source(13);
  for (int i = 0; i < kCases; ++i) {
    const double rms = i % 2 == 0 ? source.magnitude(-3.0, 3.0) : source.nasty();
    ASSERT_EQ(RmsToKnown(rms), reference::accuracy_class(rms)) << bits::text(rms);
  }
}

}  // namespace
