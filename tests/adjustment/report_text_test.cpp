// The example's texts: angles, progress, scale bars.

#include <alidade/coords.h>
#include <gtest/gtest.h>

#include <cmath>

#include "plan.h"
#include "progress_bar.h"
#include "text.h"

namespace {

using network::format_dms;

TEST(FormatDms, SplitsAndRounds) {
  EXPECT_EQ(format_dms(0, 5), "  0 00 00.00000");
  EXPECT_EQ(format_dms(145.96139081111107, 5), "145 57 41.00692");
  EXPECT_EQ(format_dms(359.999999999999, 5), "360 00 00.00000");
  EXPECT_EQ(format_dms(12.5, 2), " 12 30 00.00");
  EXPECT_EQ(format_dms(0.5 / 3600, 1), "  0 00 00.5");
}

// Where deg_to_dms shows the next minute with the distance below it, and minute 60 without a carry.
TEST(FormatDms, JustBelowAWholeMinute) {
  EXPECT_EQ(format_dms(10 + 59 / 60.0 + 59.9964 / 3600, 5), " 10 59 59.99640");
  EXPECT_EQ(format_dms(10 + 29 / 60.0 + 59.998 / 3600, 5), " 10 29 59.99800");
  EXPECT_EQ(format_dms(10 + 59 / 60.0 + 59.9999999 / 3600, 5), " 11 00 00.00000");
}

TEST(FormatDms, PrintedDigitsAddUp) {
  // Steps through the neighbourhood of many whole minutes.
  for (int k = 0; k < 20000; ++k) {
    const double degrees = 20 + k / 600.0 + (k % 7 - 3) * 0.3e-6;
    int d = 0;
    int m = 0;
    double s = 0;
    ASSERT_EQ(std::sscanf(format_dms(degrees, 5).c_str(), "%d %d %lf", &d, &m, &s), 3);
    ASSERT_LT(m, 60);
    ASSERT_LT(s, 60);
    ASSERT_NEAR(d + m / 60.0 + s / 3600, degrees, 0.51e-5 / 3600) << format_dms(degrees, 5);
  }
}

TEST(ProgressLine, FillsUp) {
  EXPECT_EQ(network::progress_line("work", 0), "work [........................................]   0 %");
  EXPECT_EQ(network::progress_line("work", 50), "work [####################....................]  50 %");
  EXPECT_EQ(network::progress_line("work", 100), "work [########################################] 100 %");
  EXPECT_EQ(network::progress_line("work", -2147483647), network::progress_line("work", 0));
  EXPECT_EQ(network::progress_line("work", 1000), network::progress_line("work", 100));
}

TEST(ProgressBar, StaysSilentWithoutATerminal) {
  network::ProgressBar bar("work");
  EXPECT_EQ(bar.percentage(), nullptr);
  bar.finish();
  bar.finish();
}

TEST(RoundDown, OneTwoFive) {
  EXPECT_EQ(network::round_down(1), 1);
  EXPECT_EQ(network::round_down(1.99), 1);
  EXPECT_EQ(network::round_down(2), 2);
  EXPECT_EQ(network::round_down(4.9), 2);
  EXPECT_EQ(network::round_down(7), 5);
  EXPECT_EQ(network::round_down(23456), 20000);
  EXPECT_DOUBLE_EQ(network::round_down(0.07), 0.05);
}

}  // namespace
