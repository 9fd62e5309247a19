// Degrees, minutes and seconds.

#include <alidade/coords.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/bits.h"

namespace {

constexpr int kIntMin = std::numeric_limits<int>::min();

struct Dms {
  int d = 7;
  int m = 7;
  double s = 7.0;
};

Dms split(double degrees) {
  Dms r;
  deg_to_dms(degrees, &r.d, &r.m, &r.s);
  return r;
}

void expect_dms(double degrees, int d, int m, double s, double tolerance) {
  const Dms r = split(degrees);
  EXPECT_EQ(r.d, d) << degrees;
  EXPECT_EQ(r.m, m) << degrees;
  EXPECT_NEAR(r.s, s, tolerance) << degrees;
}

// deg_to_dms (1).
TEST(CoordDms, SignStandsOnTheFirstPartThatIsNotZero) {
  expect_dms(-0.5, 0, -30, 0.0, 0.0);
  expect_dms(-0.001, 0, 0, -3.6, 1e-14);
  expect_dms(12.5, 12, 30, 0.0, 0.0);
  expect_dms(-12.5, -12, 30, 0.0, 0.0);
  CHECK_BITS(split(-12.5).s, 0.0);
  CHECK_BITS(split(-0.5).s, 0.0);
}

// deg_to_dms (2).
TEST(CoordDms, NoCarry) {
  // 10.999999 degrees are 10 degrees 59.99994 minutes: within the guard of the next minute, 0.0036 seconds below it.
  expect_dms(10.999999, 10, 60, 0.0036, 1e-9);
  expect_dms(-10.999999, -10, 60, 0.0036, 1e-9);
  // 29.99995 minutes: the minutes are the next, the seconds the positive distance below them.
  expect_dms(5 + 29.99995 / 60, 5, 30, 0.003, 1e-9);
  expect_dms(29.9998 / 60, 0, 29, 59.988, 1e-9);
}

TEST(CoordDms, Zeros) {
  CHECK_BITS(split(0.0).s, 0.0);
  CHECK_BITS(split(-0.0).s, 0.0);
  EXPECT_EQ(split(-0.0).d, 0);
  CHECK_BITS(split(-0x1p-1074).s, -(0x1p-1074 * 3600.0));
  CHECK_BITS(dms_to_deg(0, 0, 0.0), 0.0);
  CHECK_BITS(dms_to_deg(0, 0, -0.0), 0.0);
}

// Outside the range of int the whole degrees are the smallest int, on every machine; its opposite is itself.
// deg_to_dms (3).
TEST(CoordDms, OutsideTheRangeOfInt) {
  for (const double huge :
       {2147483648.0, 1e300, std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
    EXPECT_EQ(split(huge).d, kIntMin);
    EXPECT_EQ(split(-huge).d, kIntMin);
    EXPECT_EQ(split(huge).m, kIntMin);
  }
  EXPECT_EQ(split(2147483647.5).d, 2147483647);
  EXPECT_EQ(split(-2147483647.5).d, -2147483647);
}

TEST(CoordDms, Joining) {
  CHECK_BITS(dms_to_deg(0, -30, 0), -0.5);
  CHECK_BITS(dms_to_deg(0, 0, -36), -0.01);
  CHECK_BITS(dms_to_deg(-10, 30, 0), -10.5);
  CHECK_BITS(dms_to_deg(10, -30, 0), -10.5);
  CHECK_BITS(dms_to_deg(-10, -30, -36), -10.51);
  CHECK_BITS(dms_to_deg(10, 0, -36), -10.01);
}

TEST(CoordDms, FactorsByBitPattern) {
  CHECK_BITS(dms_to_deg(0, 0, 1.0), bits::from(0x3F323456789ABCDF));
  CHECK_BITS(dms_to_deg(0, 1, 0.0), bits::from(0x3F91111111111111));
  // Multiplied, never divided: a case where the two differ.
  int minutes = 1;
  while (minutes * bits::from(0x3F91111111111111) == minutes / 60.0) {
    ++minutes;
  }
  CHECK_BITS(dms_to_deg(0, minutes, 0.0), minutes * bits::from(0x3F91111111111111));
}

TEST(CoordDms, WholeRangeOfInt) {
  CHECK_BITS(dms_to_deg(kIntMin, 0, 0.0), -2147483648.0);
  CHECK_BITS(dms_to_deg(0, kIntMin, 0.0), -(2147483648.0 * bits::from(0x3F91111111111111)));
  CHECK_BITS(dms_to_deg(kIntMin, kIntMin, 0.0), -(2147483648.0 * bits::from(0x3F91111111111111) + 2147483648.0));
}

TEST(CoordDms, ThereAndBack) {
  expect_dms(dms_to_deg(12, 30, 0), 12, 30, 0.0, 0.0);
  for (int d = -359; d <= 359; d += 7) {
    for (int m = 0; m < 60; m += 7) {
      for (double s = 0.25; s < 59.9; s += 7.25) {
        const double degrees = dms_to_deg(d, m, s);
        const Dms r = split(degrees);
        EXPECT_EQ(r.d, d);
        if (d != 0) {
          EXPECT_EQ(r.m, m);
          EXPECT_NEAR(r.s, s, 3600 * 4 * 360 * 0x1p-53);  // four roundings of up to 360 degrees
        }
      }
    }
  }
}

}  // namespace
