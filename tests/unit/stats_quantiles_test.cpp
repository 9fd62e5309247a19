// Chi-square and tau quantiles, accuracy classes.

#include <alidade/stats.h>
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>

#include "reference/stats.h"
#include "support/bits.h"

namespace {

struct Interval {
  float guard_before = -1.0F;
  float bound[2] = {-1.0F, -1.0F};
  float guard_after = -1.0F;
};

Interval two_sided(int level, int df) {
  Interval r;
  CHI_2SDE(level, df, r.bound);
  EXPECT_EQ(r.guard_before, -1.0F);
  EXPECT_EQ(r.guard_after, -1.0F);
  return r;
}

const int kLevels[] = {68, 95, 99, 50, 0, -1, 100, 9999, INT_MAX, INT_MIN};

// Every cell of every table, by the bit pattern of the independently typed tables of the reference.
TEST(StatsChiSquare, EveryCell) {
  for (const int level : kLevels) {
    for (int df = 1; df <= 30; ++df) {
      CHECK_BITS(CHI_1SDE(level, df), reference::chi_one_sided(level, df));
      float expected[2];
      reference::chi_two_sided(level, df, expected);
      const Interval r = two_sided(level, df);
      CHECK_BITS(r.bound[0], expected[0]);
      CHECK_BITS(r.bound[1], expected[1]);
    }
  }
}

TEST(StatsChiSquare, AboveTheTables) {
  for (const int level : kLevels) {
    for (int df = 31; df < 20000; df = df < 2000 ? df + 1 : df + 97) {
      CHECK_BITS(CHI_1SDE(level, df), reference::chi_one_sided(level, df));
      float expected[2];
      reference::chi_two_sided(level, df, expected);
      const Interval r = two_sided(level, df);
      CHECK_BITS(r.bound[0], expected[0]);
      CHECK_BITS(r.bound[1], expected[1]);
    }
    CHECK_BITS(CHI_1SDE(level, INT_MAX), reference::chi_one_sided(level, INT_MAX));
  }
}

TEST(StatsChiSquare, OneSidedExamples) {
  CHECK_BITS(CHI_1SDE(95, 1), 3.84F);
  CHECK_BITS(CHI_1SDE(99, 30), 50.89F);
  CHECK_BITS(CHI_1SDE(50, 5), 11.07F);
  const double h = 0.2222222222222222 / 31;
  const double w = 1.64 * std::sqrt(h) + (1.0 - h);
  CHECK_BITS(CHI_1SDE(95, 31), static_cast<float>(31 * w * w * w));
  EXPECT_NEAR(CHI_1SDE(95, 31), 44.9, 0.05);
}

TEST(StatsChiSquare, MisprintForSeventeenDegreesOfFreedomIsKept) {
  const Interval r = two_sided(99, 17);
  CHECK_BITS(r.bound[0], 5.7F);
  CHECK_BITS(r.bound[1], 36.72F);
  EXPECT_NEAR(two_sided(99, 18).bound[1] - r.bound[1], 0.44, 1e-5);
}

TEST(StatsChiSquare, NoDegreesOfFreedom) {
  for (const int level : kLevels) {
    for (const int df : {0, -1, INT_MIN}) {
      CHECK_BITS(two_sided(level, df).bound[0], 0.0F);
      CHECK_BITS(two_sided(level, df).bound[1], 0.0F);
      CHECK_BITS(CHI_1SDE(level, df), 0.0F);
    }
  }
}

// In the tables an unknown level is 95 %, above them 68 %.
TEST(StatsChiSquare, UnknownLevelIsTreatedInTwoWays) {
  CHECK_BITS(two_sided(50, 10).bound[0], 3.25F);
  CHECK_BITS(two_sided(50, 10).bound[1], 20.48F);
  CHECK_BITS(two_sided(50, 40).bound[0], two_sided(68, 40).bound[0]);
  CHECK_BITS(two_sided(50, 40).bound[1], two_sided(68, 40).bound[1]);
  EXPECT_NE(two_sided(50, 40).bound[1], two_sided(95, 40).bound[1]);
  const double h = 0.2222222222222222 / 40;
  const double above = (1.0 - h) + 0.99 * std::sqrt(h);
  CHECK_BITS(two_sided(50, 40).bound[1], static_cast<float>(40 * above * above * above));
}

TEST(StatsChiSquare, LowerBoundStaysPositiveAboveTheTables) {
  for (const int level : {68, 95, 99}) {
    const Interval r = two_sided(level, 31);
    EXPECT_GT(r.bound[0], 0.0F);
    EXPECT_LT(r.bound[0], 31.0F);
    EXPECT_GT(r.bound[1], 31.0F);
  }
}

TEST(StatsTau, LimitsOfTheLevel) {
  for (const int n : {1, 10, 1000}) {
    for (const int f : {1, 2, 3, 50}) {
      CHECK_BITS(TAU(n, f, 0.0), std::sqrt(static_cast<double>(f)));
      CHECK_BITS(TAU(n, f, -0.0), std::sqrt(static_cast<double>(f)));
      CHECK_BITS(TAU(n, f, -1.0), std::sqrt(static_cast<double>(f)));
      CHECK_BITS(TAU(n, f, 1.5), 0.0);
      CHECK_BITS(TAU(n, f, 1.0000000000000002), 0.0);
    }
  }
}

TEST(StatsTau, TwoDegreesOfFreedomIsASine) {
  for (const double alpha : {0.001, 0.01, 0.05, 0.25, 0.5}) {
    CHECK_BITS(TAU(1, 2, alpha), std::sin((1.0 - alpha) * 1.5707963267948966) * 1.4142135623730951);
    CHECK_BITS(TAU(1, 1, alpha), TAU(1, 2, alpha));
  }
}

// With one residual the series is alpha itself: its second term is zero.
TEST(StatsTau, OneResidualNeedsNoCorrection) {
  CHECK_BITS(TAU(1, 2, 0.3), std::sin((1.0 - 0.3) * 1.5707963267948966) * 1.4142135623730951);
  // 1 - (1 - 0.3) is not 0.3: the closed form would be seen here.
  ASSERT_NE(1.0 - (1.0 - 0.3), 0.3);
  EXPECT_LT(TAU(1, 20, 0.05), TAU(20, 20, 0.05));
}

// TAU (1).
TEST(StatsTau, CertaintyGivesZeroUpToRounding) {
  for (const int n : {1, 2, 10, 1000}) {
    for (int f = 2; f <= 3000; ++f) {
      ASSERT_LT(std::fabs(TAU(n, f, 1.0)), 1e-20) << n << " " << f;
    }
  }
}

// TAU (2) and TAU (3).
TEST(StatsTau, UnguardedArgumentsEnd) {
  for (const int n : {0, -1, INT_MIN, 1, INT_MAX}) {
    for (const int f : {INT_MIN, -3, 0, 1, 2, 3, 4, 5}) {
      for (const double alpha :
           {0x1p-1074, 1e-300, 1e-16, 0.05, 0.5, 0.75, 1.0, std::numeric_limits<double>::quiet_NaN()}) {
        CHECK_BITS(TAU(n, f, alpha), reference::tau(n, f, alpha));
      }
    }
  }
  for (const int f : {INT_MIN, -3, 0, 1}) {
    CHECK_BITS(TAU(10, f, 0.05), TAU(10, 2, 0.05));
  }
  EXPECT_TRUE(std::isnan(TAU(1, -1, 0.0)));
  EXPECT_TRUE(std::isnan(TAU(0, 2, 0.05)));
}

TEST(StatsAccuracyClass, Thresholds) {
  const double thresholds[] = {0.01, 0.05, 0.1, 0.5, 1.0, 5.0, 10.0, 200.0};
  for (int i = 0; i < 8; ++i) {
    EXPECT_EQ(RmsToKnown(thresholds[i]), i + 1);  // a value on a threshold belongs to the finer class
    EXPECT_EQ(RmsToKnown(std::nextafter(thresholds[i], 1e9)), i + 2);
    EXPECT_EQ(RmsToKnown(std::nextafter(thresholds[i], 0.0)), i + 1);
  }
}

TEST(StatsAccuracyClass, Examples) {
  EXPECT_EQ(RmsToKnown(0.01), 1);
  EXPECT_EQ(RmsToKnown(0.0100001), 2);
  EXPECT_EQ(RmsToKnown(200.0), 8);
  EXPECT_EQ(RmsToKnown(1000.0), 9);
  EXPECT_EQ(RmsToKnown(std::numeric_limits<double>::infinity()), 9);
  EXPECT_EQ(RmsToKnown(std::numeric_limits<double>::quiet_NaN()), 1);
  EXPECT_EQ(RmsToKnown(-1000.0), 1);
  EXPECT_EQ(RmsToKnown(0.0), 1);
}

}  // namespace
