#include "reference/scalars.h"

#include <alidade/matrix.h>

#include <climits>
#include <cmath>
#include <cstdint>
#include <limits>

#include "support/bits.h"

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

TEST(CountedMinimumAndMaximum, PublishedCases) {
  EXPECT_EQ(min1(3, 5, 2, 9), 2);
  EXPECT_EQ(max1(2, 4, 4), 4);
  EXPECT_EQ(max1(3, 5, 2, 9), 9);
  EXPECT_EQ(amin1(3, 5.0, 2.0, 9.0), 2.0);
  EXPECT_EQ(amax1(3, 5.0, 2.0, 9.0), 9.0);
}

// The second value is read whatever the count; later values only as far as the count goes. Compiled at -O3 for s390x
// the loop once took the third value, too, for the smallest int as count, and for that alone; both the third and the
// fourth are there to be seen.
TEST(CountedMinimumAndMaximum, ReadAtLeastTwoValues) {
  EXPECT_EQ(min1(1, 7, 3), 3);
  for (int n : {INT_MIN, INT_MIN + 1, -2, -1, 0, 1, 2}) {
    EXPECT_EQ(min1(n, 7, 3, -100, -200), 3) << n;
    EXPECT_EQ(max1(n, 3, 7, 100, 200), 7) << n;
    EXPECT_EQ(amin1(n, 7.0, 3.0, -100.0, -200.0), 3.0) << n;
    EXPECT_EQ(amax1(n, 3.0, 7.0, 100.0, 200.0), 7.0) << n;
  }
}

TEST(CountedMinimumAndMaximum, LongLists) {
  EXPECT_EQ(min1(20, 20, 19, 18, 17, 16, 15, 14, 13, 12, 11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1, -1), 1);
  EXPECT_EQ(max1(20, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21), 20);
  for (int n = 2; n <= 20; ++n) {
    EXPECT_EQ(amax1(n, 1., 2., 3., 4., 5., 6., 7., 8., 9., 10., 11., 12., 13., 14., 15., 16., 17., 18., 19., 20.), n);
    EXPECT_EQ(amin1(n, -1., -2., -3., -4., -5., -6., -7., -8., -9., -10., -11., -12., -13., -14., -15., -16., -17.,
                    -18., -19., -20.),
              -n);
  }
}

TEST(CountedMinimumAndMaximum, TiesAndNaNKeepTheEarlierValue) {
  CHECK_BITS(amin1(2, 0.0, -0.0), 0.0);
  CHECK_BITS(amax1(2, -0.0, 0.0), -0.0);
  CHECK_BITS(amin1(4, 0.0, 5.0, -0.0, 0.0), 0.0);
  CHECK_BITS(amin1(3, 2.0, 1.0, kNaN), 1.0);
  CHECK_BITS(amax1(3, 2.0, 1.0, kNaN), 2.0);
  CHECK_BITS(amin1(2, 1.0, kNaN), 1.0);
  CHECK_BITS(amin1(3, kNaN, 1.0, 2.0), kNaN);  // nothing compares below a NaN that stands first
}

TEST(PowerOfDouble, PublishedCases) {
  CHECK_BITS(power(2.0, -3), 0.125);
  CHECK_BITS(power(2.0, 40), 0x1p40);
  CHECK_BITS(power(0.0, 0), 1.0);
  CHECK_BITS(power(kNaN, 0), 1.0);
  CHECK_BITS(power(0.0, -1), kInfinity);
  CHECK_BITS(power(-0.0, -1), -kInfinity);
  CHECK_BITS(power(-0.0, -2), kInfinity);
  CHECK_BITS(power(1.5, 1), 1.5);
  CHECK_BITS(power(0.5, INT_MIN), kInfinity);
  CHECK_BITS(power(-1.0, INT_MAX), -1.0);
}

// Up to 31 factors one after the other, from 32 on the math library: the two differ in the last bits.
TEST(PowerOfDouble, MultipliesUpTo31) {
  double (*volatile library_pow)(double, double) = std::pow;
  for (int n = -70; n <= 70; ++n) {
    const int factors = n < 0 ? -n : n;
    double product = 1.1;
    for (int i = 1; i < factors; ++i) {
      product *= 1.1;
    }
    const double multiplied = n == 0 ? 1.0 : n > 0 ? product : 1.0 / product;
    CHECK_BITS(power(1.1, n), factors <= 31 ? multiplied : library_pow(1.1, n)) << n;
  }
#if defined(__GLIBC__)
  // A pow that is right to half a unit differs from the products on either side of the limit, which is therefore seen.
  EXPECT_NE(bits::of(power(1.1, 31)), bits::of(library_pow(1.1, 31)));
  EXPECT_NE(bits::of(power(1.1, 32)), bits::of(power(1.1, 31) * 1.1));
#endif
  // The product overflows before it is inverted.
  CHECK_BITS(power(1e-11, -30), 1.0 / power(1e-11, 30));
  CHECK_BITS(power(1e11, -30), 0.0);
}

TEST(PowerOfInt, PublishedCases) {
  EXPECT_EQ(power(5, -1), 0);
  EXPECT_EQ(power(1, -4), 1);
  EXPECT_EQ(power(-1, 3), -1);
  EXPECT_EQ(power(2, 32), 2147483647);
  EXPECT_EQ(power(-2, 40), 2147483647);
  EXPECT_EQ(power(2, 31), INT_MIN);
  EXPECT_EQ(power(3, 21), static_cast<int>(10460353203LL - 2 * 4294967296LL));
  EXPECT_EQ(power(7, 0), 1);
}

TEST(PowerOfInt, TheOrderOfTheQuestions) {
  EXPECT_EQ(power(0, 0), 0);
  EXPECT_EQ(power(0, -5), 0);
  EXPECT_EQ(power(-1, -3), 0);
  EXPECT_EQ(power(-1, 0), 1);
  EXPECT_EQ(power(-1, 1000), 1);
  EXPECT_EQ(power(-1, INT_MAX), -1);
  EXPECT_EQ(power(-3, 32), INT_MAX);
  EXPECT_EQ(power(INT_MIN, 2), 0);
  EXPECT_EQ(power(INT_MIN, 1), INT_MIN);
}

TEST(PowerOfInt, EveryExponentForManyBases) {
  for (int a : {INT_MIN, INT_MIN + 1, -65536, -46341, -1000, -7, -3, -2, -1, 0, 1, 2, 3, 5, 10, 46341, INT_MAX}) {
    for (int n = -40; n <= 80; ++n) {
      ASSERT_EQ(power(a, n), reference::integer_power(a, n)) << a << '^' << n;
    }
  }
}

TEST(Sign, PublishedCases) {
  EXPECT_EQ(sign(3, 0), 3);
  EXPECT_EQ(sign(-3, 0), 3);
  EXPECT_EQ(sign(3, -1), -3);
  EXPECT_EQ(sign(-3, -1), -3);
  EXPECT_EQ(sign(INT_MIN, 1), INT_MIN);
  EXPECT_EQ(sign(INT_MIN, -1), INT_MIN);
  CHECK_BITS(sign(-3.0, -0.0), 3.0);
  CHECK_BITS(sign(3.0, kNaN), -3.0);
  CHECK_BITS(sign(-0.0, 1.0), 0.0);
  CHECK_BITS(sign(0.0, -1.0), -0.0);
  CHECK_BITS(sign(-kInfinity, 1.0), kInfinity);
}

// The sign of a NaN is cleared and set like any other.
TEST(Sign, OfNaN) {
  EXPECT_FALSE(std::signbit(sign(std::copysign(kNaN, -1.0), 1.0)));
  EXPECT_TRUE(std::signbit(sign(std::copysign(kNaN, 1.0), -1.0)));
}

TEST(Sign, EveryPairOfSmallInts) {
  for (int a = -70; a <= 70; ++a) {
    for (int b : {INT_MIN, -70, -1, 0, 1, 70, INT_MAX}) {
      ASSERT_EQ(sign(a, b), reference::sign_transfer(a, b));
    }
  }
}

int rotated_long(long v, int s) { return ishc(v, s); }
int rotated_short(int v, int s) {
  auto narrow = static_cast<short>(v);
  const short before = narrow;
  const int shift_before = s;
  const int result = ishc(narrow, s);
  EXPECT_EQ(narrow, before);
  EXPECT_EQ(s, shift_before);
  return result;
}
int rotated_char(int v, int s) {
  auto narrow = static_cast<char>(v);
  return ishc(narrow, s);
}

TEST(CircularShift, PublishedCases) {
  EXPECT_EQ(rotated_long(1, -1), INT_MIN);
  EXPECT_EQ(rotated_long(1, 33), 2);
  EXPECT_EQ(rotated_char(0x81, 1), 0x03);
  EXPECT_EQ(rotated_char(0x81, -1), 0xC0);
  EXPECT_EQ(rotated_short(0x0001, -1), 0x0001);
  EXPECT_EQ(rotated_short(0x0001, 17), 0x0002);
}

TEST(CircularShift, LeavesItsArguments) {
  long v = -5;
  int s = 3;
  ishc(v, s);
  EXPECT_EQ(v, -5);
  EXPECT_EQ(s, 3);
  char c = 'a';
  ishc(c, s);
  EXPECT_EQ(c, 'a');
  EXPECT_EQ(s, 3);
}

TEST(CircularShift, EveryCharByEveryShift) {
  for (int v = 0; v < 256; ++v) {
    for (int s = -64; s <= 64; ++s) {
      ASSERT_EQ(rotated_char(v, s), reference::rotate(v, 8, s, true)) << v << ' ' << s;
    }
    for (int s : {INT_MIN, INT_MIN + 1, INT_MIN + 7, INT_MAX, INT_MAX - 6}) {
      ASSERT_EQ(rotated_char(v, s), reference::rotate(v, 8, s, true)) << v << ' ' << s;
    }
  }
}

TEST(CircularShift, EveryShort) {
  for (int v = 0; v < 65536; ++v) {
    for (int s = -18; s <= 33; ++s) {
      ASSERT_EQ(rotated_short(v, s), reference::rotate(v, 16, s, false)) << v << ' ' << s;
    }
    for (int s : {INT_MIN, INT_MIN + 5, INT_MAX, INT_MAX - 3}) {
      ASSERT_EQ(rotated_short(v, s), reference::rotate(v, 16, s, false)) << v << ' ' << s;
    }
  }
}

// 32 bits whatever the width of long: the upper half of a 64-bit long is not looked at.
TEST(CircularShift, LongByEveryShift) {
  const long long values[] = {0, 1, -1, 0x12345678, INT_MIN, INT_MAX, 0x80000001LL, 0x123456789abcdefLL, LLONG_MIN};
  for (long long v : values) {
    for (int s = -70; s <= 70; ++s) {
      const auto argument = static_cast<long>(v);
      ASSERT_EQ(rotated_long(argument, s), reference::rotate(argument, 32, s, true)) << v << ' ' << s;
    }
    for (int s : {INT_MIN, INT_MIN + 1, INT_MIN + 31, INT_MAX, INT_MAX - 30}) {
      const auto argument = static_cast<long>(v);
      ASSERT_EQ(rotated_long(argument, s), reference::rotate(argument, 32, s, true)) << v << ' ' << s;
    }
  }
}

TEST(Nearest, PublishedCases) {
  CHECK_BITS(nearest(1.0, 1.0), 1.0);  // 1 + 2^-54, rounded
  CHECK_BITS(nearest(0.0, 1.0), 0x1p-55);
  CHECK_BITS(nearest(0.0, -1.0), -0x1p-55);
  CHECK_BITS(nearest(-0.0, -0.0), 0x1p-55);
  CHECK_BITS(nearest(0.0, kNaN), -0x1p-55);
}

// Where a quarter of a spacing moves a double: just above a power of two going down, where the spacing halves, the step
// is half a spacing and the tie goes to even.
TEST(Nearest, DoublesMostlyStay) {
  CHECK_BITS(nearest(1.0, -1.0), 1.0);
  CHECK_BITS(nearest(0x1.8p0, -1.0), 0x1.8p0);
  CHECK_BITS(nearest(0x1.0000000000001p0, -1.0), 0x1.0000000000001p0);
}

TEST(Nearest, StepHasALeast) {
  // From 2^-966 downwards the step is 2^-1021, which is many spacings of the smaller numbers.
  CHECK_BITS(nearest(0x1p-1000, 1.0), 0x1p-1000 + 0x1p-1021);
  CHECK_BITS(nearest(0x1p-1074, 1.0), 0x1p-1074 + 0x1p-1021);
  CHECK_BITS(nearest(0x1p-1022, -1.0), -0x1p-1022);
  CHECK_BITS(nearest(0x1p-110F, 1.0F), 0x1p-110F + 0x1p-125F);
  CHECK_BITS(nearest(0x1p-149F, -1.0F), 0x1p-149F - 0x1p-125F);
}

TEST(Nearest, FloatsMoveTwoSpacings) {
  CHECK_BITS(nearest(1.0F, 1.0F), 0x1.000004p0F);
  CHECK_BITS(nearest(1.0F, -1.0F), 0x1.fffff8p-1F);
  CHECK_BITS(nearest(0.0F, 1.0F), 0x1p-23F);
  CHECK_BITS(nearest(-0.0F, -0.0F), 0x1p-23F);
  CHECK_BITS(nearest(1.0F, std::numeric_limits<float>::quiet_NaN()), 0x1.fffff8p-1F);
}

// The exponent of a NaN or an infinity counts as 0, which the sum does not show.
TEST(Nearest, OfNaNAndInfinity) {
  CHECK_BITS(nearest(kNaN, 1.0), kNaN);
  CHECK_BITS(nearest(kInfinity, -1.0), kInfinity);
  CHECK_BITS(nearest(-kInfinity, 1.0), -kInfinity);
  CHECK_BITS(nearest(std::numeric_limits<float>::infinity(), -1.0F), std::numeric_limits<float>::infinity());
  CHECK_BITS(nearest(std::numeric_limits<float>::quiet_NaN(), 1.0F), std::numeric_limits<float>::quiet_NaN());
  CHECK_BITS(nearest(std::numeric_limits<double>::max(), 1.0), std::numeric_limits<double>::max());
  // Two spacings beyond the largest float there is only infinity.
  CHECK_BITS(nearest(std::numeric_limits<float>::max(), 1.0F), std::numeric_limits<float>::infinity());
}

TEST(Nearest, EveryExponent) {
  for (int e = -1074; e <= 1023; ++e) {
    for (double m : {1.0, 1.25, -1.9999999999999998}) {
      const double x = std::ldexp(m, e);
      for (double s : {1.0, -1.0}) {
        CHECK_BITS(nearest(x, s), reference::step_double(x, s));
      }
    }
  }
  for (int e = -149; e <= 127; ++e) {
    for (float m : {1.0F, 1.25F, -1.9999999F}) {
      const float x = std::ldexp(m, e);
      for (float s : {1.0F, -1.0F}) {
        CHECK_BITS(nearest(x, s), reference::step_float(x, s));
      }
    }
  }
}

}  // namespace
