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
