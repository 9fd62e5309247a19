// The component-wise division of points by points on a host that traps floating-point exceptions.

#include <alidade/points.h>

#include <cfenv>
#include <csignal>
#include <limits>

#include "support/bits.h"

#if defined(_WIN32)
#include <float.h>
#endif

namespace {

using Vector2 = TAbstractPoint<double, 2>;
using Point2 = TAbstractPoint2<double>;
using Point3 = TAbstractPoint3<double>;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

testing::AssertionResult is(const Vector2& p, double x, double y) {
  const double expected[2] = {x, y};
  return bits::equal_arrays(p, expected, 2);
}

TEST(GuardedDivision, WithTrapsMaskedTheQuotientStands) {
  EXPECT_TRUE(is(Point2(1.0, 1.0) / Point2(0.0, 2.0), kInfinity, 0.5));
  EXPECT_TRUE(is(Point2(-1.0, 0.0) / Point2(0.0, 0.0), -kInfinity, kNaN));
  EXPECT_TRUE(is(Point2(kInfinity, kNaN) / Point2(kInfinity, 1.0), kNaN, kNaN));
  Point2 p(1.0, 6.0);
  p /= Point2(-0.0, 4.0);
  EXPECT_TRUE(is(p, -kInfinity, 1.5));
}

// Not the product with a reciprocal, unlike the division by a scalar.
TEST(GuardedDivision, DividesEachComponent) {
  ASSERT_NE(5.0 / 49.0, 5.0 * (1.0 / 49.0));
  EXPECT_TRUE(is(Point2(5.0, 5.0) / Point2(49.0, 49.0), 5.0 / 49.0, 5.0 / 49.0));
}

TEST(GuardedDivision, LeavesTheFlagsAsTheyWere) {
  std::feclearexcept(FE_ALL_EXCEPT);
  EXPECT_TRUE(is(Point2(1.0, 0.0) / Point2(0.0, 0.0), kInfinity, kNaN));
  EXPECT_EQ(std::fetestexcept(FE_ALL_EXCEPT), 0);
#if FE_ALL_EXCEPT  // WebAssembly has no flags
  std::feraiseexcept(FE_UNDERFLOW | FE_INVALID);
#endif
  const int before = std::fetestexcept(FE_ALL_EXCEPT);
  EXPECT_TRUE(is(Point2(1.0, 1.0) / Point2(0.0, 3.0), kInfinity, 1.0 / 3.0));
  EXPECT_EQ(std::fetestexcept(FE_ALL_EXCEPT), before);
  std::feclearexcept(FE_ALL_EXCEPT);
}

TEST(GuardedDivision, DividesInTheHostsRoundingMode) {
#if defined(__SOFTFP__) || !defined(FE_UPWARD)
  GTEST_SKIP() << "arithmetic in software rounds to nearest only, whatever mode a floating-point unit is set to";
#else
  if (std::fesetround(FE_UPWARD) != 0 || std::fegetround() != FE_UPWARD) {
    GTEST_SKIP() << "this processor rounds to nearest only";
  }
  const Point2 up = Point2(1.0, 2.0) / Point2(3.0, 3.0);
  const int mode = std::fegetround();
  std::fesetround(FE_TONEAREST);
  EXPECT_EQ(mode, FE_UPWARD);
  EXPECT_TRUE(is(up, std::nextafter(1.0 / 3.0, 1.0), std::nextafter(2.0 / 3.0, 1.0)));
#endif
}

// Traps exist on x86, under glibc and on Windows; elsewhere there is none to test (on ARM they are not implemented).
#if (defined(__GLIBC__) && (defined(__x86_64__) || defined(__i386__))) || (defined(_WIN32) && defined(__x86_64__))

#if defined(_WIN32)
constexpr int kDivisionByZero = _EM_ZERODIVIDE;
constexpr int kInvalid = _EM_INVALID;
constexpr int kOverflow = _EM_OVERFLOW;
constexpr int kUnderflow = _EM_UNDERFLOW;
constexpr int kInexact = _EM_INEXACT;
int trapped() { return static_cast<int>(~_controlfp(0, 0) & _MCW_EM); }
void trap(int exceptions) {
  _clearfp();                         // the flags of the SSE unit,
  std::feclearexcept(FE_ALL_EXCEPT);  // and of the x87, where MinGW's feraiseexcept puts them
  _controlfp(_MCW_EM & ~static_cast<unsigned>(exceptions), _MCW_EM);
}
#else
constexpr int kDivisionByZero = FE_DIVBYZERO;
constexpr int kInvalid = FE_INVALID;
constexpr int kOverflow = FE_OVERFLOW;
constexpr int kUnderflow = FE_UNDERFLOW;
constexpr int kInexact = FE_INEXACT;
int trapped() { return fegetexcept(); }
void trap(int exceptions) {
  std::feclearexcept(FE_ALL_EXCEPT);
  fedisableexcept(FE_ALL_EXCEPT);
  feenableexcept(exceptions);
}
#endif

// Enables traps for its life; a trap that is taken ends the test program.
class Traps {
public:
  explicit Traps(int exceptions) : before_(trapped()) { trap(exceptions); }
  ~Traps() { trap(before_); }
  Traps(const Traps&) = delete;
  Traps& operator=(const Traps&) = delete;

private:
  int before_;
};

TEST(GuardedDivision, ATrappedDivisionByZeroGivesZero) {
  Point2 quotient(7.0);
  Point2 in_place(1.0, 1.0);
  {
    const Traps traps(kDivisionByZero);
    quotient = Point2(1.0, 1.0) / Point2(0.0, 2.0);
    in_place /= Point2(-0.0, 2.0);
  }
  EXPECT_TRUE(is(quotient, 0.0, 0.5));
  EXPECT_TRUE(is(in_place, 0.0, 0.5));
}

TEST(GuardedDivision, ATrappedInvalidOperationGivesZero) {
  Point3 quotient(7.0);
  {
    const Traps traps(kInvalid);
    quotient = Point3(0.0, kInfinity, 6.0) / Point3(0.0, kInfinity, 2.0);
  }
  const double expected[3] = {0.0, 0.0, 3.0};
  EXPECT_TRUE(bits::equal_arrays(quotient, expected, 3));
}

TEST(GuardedDivision, OnlyTheTrappedExceptionCounts) {
  Point2 zero_by_zero(7.0);
  Point2 one_by_zero(7.0);
  {
    const Traps traps(kDivisionByZero);
    zero_by_zero = Point2(0.0, 1.0) / Point2(0.0, 0.0);
  }
  {
    const Traps traps(kInvalid);
    one_by_zero = Point2(1.0, 0.0) / Point2(0.0, 0.0);
  }
  EXPECT_TRUE(is(zero_by_zero, kNaN, 0.0));
  EXPECT_TRUE(is(one_by_zero, kInfinity, 0.0));
}

// A quiet NaN and an infinite dividend raise nothing, so nothing is guarded.
TEST(GuardedDivision, WhatRaisesNothingStandsUnderTraps) {
  Point3 quotient(7.0);
  {
    const Traps traps(kDivisionByZero | kInvalid);
    quotient = Point3(kNaN, kInfinity, 1.0) / Point3(0.0, 0.0, kInfinity);
  }
  const double expected[3] = {kNaN, kInfinity, 0.0};
  EXPECT_TRUE(bits::equal_arrays(quotient, expected, 3));
}

// Overflow, underflow and inexact are not among the guarded exceptions; their traps are not taken either.
TEST(GuardedDivision, OtherTrappedExceptionsLeaveTheQuotient) {
  Point3 quotient(7.0);
  {
    const Traps traps(kOverflow | kUnderflow | kInexact);
    quotient = Point3(1e300, 1e-300, 1.0) / Point3(1e-300, 1e300, 3.0);
  }
  const double expected[3] = {kInfinity, 0.0, 1.0 / 3.0};
  EXPECT_TRUE(bits::equal_arrays(quotient, expected, 3));
}

// A flag that stood before the division is not this division's.
TEST(GuardedDivision, AStandingFlagDoesNotCount) {
  Point2 quotient(7.0);
  int flags = 0;
  {
    const Traps traps(kInvalid);
    std::feraiseexcept(FE_DIVBYZERO);
    quotient = Point2(1.0, 8.0) / Point2(0.0, 2.0);
    flags = std::fetestexcept(FE_ALL_EXCEPT);
  }
  EXPECT_TRUE(is(quotient, kInfinity, 4.0));
  EXPECT_EQ(flags, FE_DIVBYZERO);
}

extern "C" void never_called(int) {}

TEST(GuardedDivision, LeavesMaskFlagsRoundingAndHandlers) {
  void (*const handler_before)(int) = std::signal(SIGFPE, never_called);
  int mask_before = 0;
  int mask_after = 0;
  int flags = 0;
  int mode = 0;
  {
    const Traps traps(kDivisionByZero | kInvalid | kOverflow);
    std::fesetround(FE_DOWNWARD);
    mask_before = trapped();
    Point2 p(1.0, 0.0);
    p /= Point2(0.0, 0.0);
    mask_after = trapped();
    flags = std::fetestexcept(FE_ALL_EXCEPT);
    mode = std::fegetround();
    std::fesetround(FE_TONEAREST);
  }
  EXPECT_EQ(mask_before, kDivisionByZero | kInvalid | kOverflow);
  EXPECT_EQ(mask_after, mask_before);
  EXPECT_EQ(flags, 0);
  EXPECT_EQ(mode, FE_DOWNWARD);
  EXPECT_EQ(std::signal(SIGFPE, handler_before), &never_called);
}

#endif

}  // namespace
