// The percentages on the way, which a caller of the inversion sees from another thread only. Expected values by hand.

#include "matrix/inversion_progress.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

TEST(InversionProgress, ThreePhasesOfOrderSixteen) {
  int percent = 10;
  const alidade::InversionProgress progress(&percent, 60, 16);  // 20 for each phase, 20 / 4096 for each cubed row
  progress.start_factor_row(7);
  EXPECT_EQ(percent, 10);
  progress.start_factor_row(8);  // 10 + 20 - 20 * 9^3 / 4096 = 26.44
  EXPECT_EQ(percent, 26);
  progress.start_factor_row(16);  // 10 + 20 - 20 / 4096 = 29.995
  EXPECT_EQ(percent, 30);
  progress.start_inverse_row(8);  // 30 + 20 / 8 = 32.5, rounded up
  EXPECT_EQ(percent, 33);
  progress.start_inverse_row(15);
  EXPECT_EQ(percent, 33);
  progress.start_inverse_row(16);
  EXPECT_EQ(percent, 50);
  progress.finish_product_row(8);  // 50 + 2.5
  EXPECT_EQ(percent, 53);
  progress.finish_product_row(16);
  EXPECT_EQ(percent, 70);
}

// The rule, bracket by bracket. A third is a factor of 1/3 here, which is no division by three.
TEST(InversionProgress, FollowsTheRule) {
  const double third = 1.0 / 3.0;
  const auto whole = [](double v) { return v + 0.5 >= 100.0 ? 99 : static_cast<int>(v + 0.5); };
  for (int n = 8; n <= 120; ++n) {
    for (int span = -30; span <= 300; ++span) {
      const int start = span % 7;
      const double b = start;
      const double t = span * third;
      const double u = ((t / n) / n) / n;
      for (int k = 8; k <= n; k += 8) {
        const double left = n - k + 1;
        const double done = k;
        int percent = start;
        const alidade::InversionProgress progress(&percent, span, n);
        progress.start_factor_row(k);
        ASSERT_EQ(percent, whole(b + (t - ((left * left) * left) * u))) << n << " " << span << " " << k;
        progress.start_inverse_row(k);
        ASSERT_EQ(percent, whole((b + t) + ((done * done) * done) * u)) << n << " " << span << " " << k;
        progress.finish_product_row(k);
        ASSERT_EQ(percent, whole(((b + t) + t) + ((done * done) * done) * u)) << n << " " << span << " " << k;
      }
    }
  }
}

// Values so close to half a per cent that the last bit decides: with other brackets, or with one division by the cube
// of n in place of three by n, each of these is different by one. Found by a search in another language.
TEST(InversionProgress, LastBitsDecide) {
  struct Case {
    int n, row, span, start, percent;
  };
  for (const Case& c : {Case{20, 16, 32, 12, 23}, Case{40, 16, 256, -48, 17}}) {
    int percent = c.start;
    alidade::InversionProgress(&percent, c.span, c.n).start_factor_row(c.row);
    EXPECT_EQ(percent, c.percent) << c.n << " " << c.row;
  }
  for (const Case& c : {Case{48, 24, 92, -26, 8}, Case{80, 40, 132, -51, 0}, Case{48, 24, 300, -125, -11}}) {
    int percent = c.start;
    alidade::InversionProgress(&percent, c.span, c.n).start_inverse_row(c.row);
    EXPECT_EQ(percent, c.percent) << c.n << " " << c.row;
  }
  for (const Case& c : {Case{160, 40, -32, -154, -174}, Case{96, 24, -32, 87, 65}}) {
    int percent = c.start;
    alidade::InversionProgress(&percent, c.span, c.n).finish_product_row(c.row);
    EXPECT_EQ(percent, c.percent) << c.n << " " << c.row;
  }
}

TEST(InversionProgress, StaysWithinInt) {
  int percent = INT_MIN;
  const alidade::InversionProgress progress(&percent, INT_MIN, 8);
  progress.finish_product_row(8);
  EXPECT_EQ(percent, INT_MIN);
  percent = INT_MAX;
  const alidade::InversionProgress capped(&percent, INT_MAX, 8);
  capped.finish_product_row(8);
  EXPECT_EQ(percent, 99);
}

TEST(InversionProgress, WithoutATargetNothingIsReported) {
  const alidade::InversionProgress progress(nullptr, 99, 8);
  progress.start_factor_row(8);
  progress.start_inverse_row(8);
  progress.finish_product_row(8);
}

}  // namespace
