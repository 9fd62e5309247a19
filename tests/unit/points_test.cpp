#include "reference/points.h"

#include <alidade/points.h>

#include <climits>
#include <cmath>
#include <limits>
#include <new>
#include <type_traits>

#include "support/bits.h"

namespace {

using Vector2 = TAbstractPoint<double, 2>;
using Vector3 = TAbstractPoint<double, 3>;
using Point2 = TAbstractPoint2<double>;
using Point3 = TAbstractPoint3<double>;
using Size2 = TAbstractSize2<double>;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

testing::AssertionResult is(const Vector2& p, double x, double y) {
  const double expected[2] = {x, y};
  return bits::equal_arrays(p, expected, 2);
}

testing::AssertionResult is(const Vector3& p, double x, double y, double z) {
  const double expected[3] = {x, y, z};
  return bits::equal_arrays(p, expected, 3);
}

TEST(Points, HoldTheirComponentsAndNothingElse) {
  static_assert(sizeof(Vector2) == 2 * sizeof(double), "layout");
  static_assert(sizeof(Vector3) == 3 * sizeof(double), "layout");
  static_assert(sizeof(Point2) == sizeof(Vector2) && sizeof(Size2) == sizeof(Vector2), "no further fields");
  static_assert(sizeof(Point3) == sizeof(Vector3), "no further fields");
  static_assert(std::is_trivially_copyable<Point2>::value && std::is_trivially_copyable<Point3>::value, "plain values");
  static_assert(!std::is_polymorphic<Point3>::value, "no virtual functions");
  static_assert(std::is_base_of<Vector2, Point2>::value && std::is_base_of<Vector2, Size2>::value, "derived");
  static_assert(std::is_base_of<Vector3, Point3>::value, "derived");
}

template <class T>
void construct_by_default(void* memory) {
  new (memory) T;
}

// Whether a default constructor placed over a filled buffer leaves what is there. The call goes through a volatile
// pointer, because a compiler that sees it may drop the filling.
template <class T>
testing::AssertionResult default_constructor_leaves_memory() {
  double memory[3] = {1.5, -2.5, 3.5};
  void (*volatile construct)(void*) = construct_by_default<T>;
  construct(memory);
  const double expected[3] = {1.5, -2.5, 3.5};
  return bits::equal_arrays(memory, expected, 3);
}

TEST(Points, DefaultConstructorsLeaveTheComponents) {
  EXPECT_TRUE(default_constructor_leaves_memory<Vector2>());
  EXPECT_TRUE(default_constructor_leaves_memory<Vector3>());
  EXPECT_TRUE(default_constructor_leaves_memory<Point2>());
  EXPECT_TRUE(default_constructor_leaves_memory<Point3>());
  EXPECT_TRUE(default_constructor_leaves_memory<Size2>());
}

TEST(Points, Constructors) {
  const double values[3] = {1.0, -0.0, 3.0};
  EXPECT_TRUE(is(Vector2(values), 1.0, -0.0));
  EXPECT_TRUE(is(Vector3(values), 1.0, -0.0, 3.0));
  EXPECT_TRUE(is(Point2(values), 1.0, -0.0));
  EXPECT_TRUE(is(Point3(values), 1.0, -0.0, 3.0));
  EXPECT_TRUE(is(Vector2(7.0), 7.0, 7.0));
  EXPECT_TRUE(is(Vector3(7.0), 7.0, 7.0, 7.0));
  EXPECT_TRUE(is(Point2(7.0), 7.0, 7.0));
  EXPECT_TRUE(is(Point3(7.0), 7.0, 7.0, 7.0));
  EXPECT_TRUE(is(Point2(4.0, 5.0), 4.0, 5.0));
  EXPECT_TRUE(is(Point3(4.0, 5.0, 6.0), 4.0, 5.0, 6.0));
  EXPECT_TRUE(is(Size2(4.0, 5.0), 4.0, 5.0));
  EXPECT_TRUE(is(Point2(Vector2(values)), 1.0, -0.0));
  EXPECT_TRUE(is(Point3(Vector3(values)), 1.0, -0.0, 3.0));
  EXPECT_TRUE(is(Size2(Vector2(values)), 1.0, -0.0));
}

TEST(Points, AssignmentCopiesAndReturnsTheTarget) {
  Vector2 v(0.0);
  Vector3 w(0.0);
  Point2 p(0.0);
  Point3 q(0.0);
  Size2 s(0.0, 0.0);
  EXPECT_EQ(&(v = Vector2(1.0)), &v);
  EXPECT_EQ(&(w = Vector3(2.0)), &w);
  EXPECT_EQ(&(p = Point2(3.0)), &p);
  EXPECT_EQ(&(q = Point3(4.0)), &q);
  EXPECT_EQ(&(s = Size2(5.0, 6.0)), &s);
  EXPECT_TRUE(is(v, 1.0, 1.0));
  EXPECT_TRUE(is(w, 2.0, 2.0, 2.0));
  EXPECT_TRUE(is(p, 3.0, 3.0));
  EXPECT_TRUE(is(q, 4.0, 4.0, 4.0));
  EXPECT_TRUE(is(s, 5.0, 6.0));
}

TEST(Points, AccessorsReadAndWriteTheSameComponents) {
  Point2 p(1.0, 2.0);
  p.X() = 3.0;
  p.Y() = 4.0;
  EXPECT_TRUE(is(p, 3.0, 4.0));
  p.x() = 5.0;
  p.y() = 6.0;
  const Point2& cp = p;
  EXPECT_EQ(cp.X(), 5.0);
  EXPECT_EQ(cp.x(), 5.0);
  EXPECT_EQ(cp.Y(), 6.0);
  EXPECT_EQ(cp.y(), 6.0);

  Point3 q(1.0, 2.0, 3.0);
  q.X() = 4.0;
  q.Y() = 5.0;
  q.Z() = 6.0;
  EXPECT_TRUE(is(q, 4.0, 5.0, 6.0));
  q.x() = 7.0;
  q.y() = 8.0;
  q.z() = 9.0;
  const Point3& cq = q;
  EXPECT_EQ(cq.X(), 7.0);
  EXPECT_EQ(cq.x(), 7.0);
  EXPECT_EQ(cq.Y(), 8.0);
  EXPECT_EQ(cq.y(), 8.0);
  EXPECT_EQ(cq.Z(), 9.0);
  EXPECT_EQ(cq.z(), 9.0);

  Size2 s(1.0, 2.0);
  s.cx() = 3.0;
  s.cy() = 4.0;
  const Size2& cs = s;
  EXPECT_EQ(cs.cx(), 3.0);
  EXPECT_EQ(cs.cy(), 4.0);

  q[2] = 10.0;
  EXPECT_EQ(cq[2], 10.0);
  double* first = q;
  const double* const_first = cq;
  EXPECT_EQ(first, const_first);
  EXPECT_EQ(first, &q.X());
  EXPECT_EQ(first + 2, &q.Z());
}

TEST(Points, FrameworkPoint) {
  const CPoint truncated = Point2(2.9, -2.9);
  EXPECT_EQ(truncated.x, 2);
  EXPECT_EQ(truncated.y, -2);
  EXPECT_TRUE(is(Point2(CPoint(INT_MAX, INT_MIN)), 2147483647.0, -2147483648.0));
}

// Outside the range of int the language defines nothing; the library's answer is the smallest int.
TEST(Points, FrameworkPointOutsideTheRangeOfInt) {
  const double inside[] = {2147483647.0, 2147483647.9999998, -2147483648.0, -2147483648.9999995, 0.9, -0.9, -0.0};
  for (double v : inside) {
    const CPoint p = Point2(v, -1.0);
    EXPECT_EQ(p.x, static_cast<int>(std::trunc(v))) << v;
    EXPECT_EQ(p.x, reference::to_int(v)) << v;
  }
  for (double v : {2147483648.0, -2147483649.0, 1e300, -1e300, kInfinity, -kInfinity, kNaN}) {
    const CPoint p = Point2(1.0, v);
    EXPECT_EQ(p.x, 1);
    EXPECT_EQ(p.y, INT_MIN) << v;
  }
}

TEST(Points, EqualityIsExact) {
  EXPECT_FALSE(Point2(1.0, 2.0) == 1.0);
  EXPECT_TRUE(Point2(1.0, 1.0) == 1.0);
  EXPECT_TRUE(Point2(1.0, 2.0) != 1.0);
  EXPECT_FALSE(Point2(1.0, 1.0) != 1.0);
  EXPECT_FALSE(Point2(0.1 + 0.2, 0.0) == Point2(0.3, 0.0));
  EXPECT_TRUE(Point2(0.1 + 0.2, 0.0) != Point2(0.3, 0.0));
  EXPECT_TRUE(Point3(0.0, -0.0, 0.0) == Point3(-0.0, 0.0, 0.0));
  EXPECT_TRUE(Point3(1.0, 2.0, 3.0) != Point3(1.0, 2.0, 4.0));
  const Point3 undefined(1.0, 2.0, kNaN);
  EXPECT_FALSE(undefined == undefined);
  EXPECT_TRUE(undefined != undefined);
  EXPECT_FALSE(Point2(kNaN, kNaN) == kNaN);
  EXPECT_TRUE(Point2(kNaN, kNaN) != kNaN);
}

TEST(Points, MaximumAndMinimum) {
  EXPECT_TRUE(is(Point2(1.0, 2.0).maximum(Point2(1.0, 3.0)), 1.0, 3.0));
  EXPECT_TRUE(is(Point2(1.0, 2.0).minimum(Point2(1.0, 3.0)), 1.0, 2.0));
  // Ties and NaN: the maximum takes the argument's component, the minimum keeps this one's.
  EXPECT_TRUE(is(Point2(0.0, -0.0).maximum(Point2(-0.0, 0.0)), -0.0, 0.0));
  EXPECT_TRUE(is(Point2(0.0, -0.0).minimum(Point2(-0.0, 0.0)), 0.0, -0.0));
  EXPECT_TRUE(is(Point2(kNaN, 1.0).maximum(Point2(1.0, kNaN)), 1.0, kNaN));
  EXPECT_TRUE(is(Point2(kNaN, 1.0).minimum(Point2(1.0, kNaN)), kNaN, 1.0));
}

TEST(Points, AbsNegatesWhatIsNotGreaterThanZero) {
  EXPECT_TRUE(is(Point3(-1.0, 0.0, 2.0).abs(), 1.0, -0.0, 2.0));
  EXPECT_TRUE(is(Point3(-0.0, -kInfinity, 0x1p-1074).abs(), 0.0, kInfinity, 0x1p-1074));
  const Point2 flipped = Point2(std::copysign(kNaN, 1.0), std::copysign(kNaN, -1.0)).abs();
  EXPECT_TRUE(std::isnan(flipped[0]) && std::signbit(flipped[0]));
  EXPECT_TRUE(std::isnan(flipped[1]) && !std::signbit(flipped[1]));
}

TEST(Points, Reductions) {
  EXPECT_EQ(Point2(3.0, 4.0).Module(), 5.0);
  EXPECT_EQ(Point2(3.0, 4.0).ModuleSq(), 25.0);
  EXPECT_EQ(Point2(3.0, 4.0).sum(), 7.0);
  EXPECT_EQ(Point3(1.0, 2.0, 3.0) * Point3(4.0, 5.0, 6.0), 32.0);
  // From left to right: the other order would lose neither term.
  CHECK_BITS(Point3(1e16, 1.0, 1.0).sum(), 1e16);
  CHECK_BITS(Point3(1.0, 1.0, 1e16).sum(), 1e16 + 2.0);
  CHECK_BITS(Point2(-0.0, -0.0).sum(), -0.0);
  CHECK_BITS(Point2(-0.0, -0.0) * Point2(1.0, 1.0), -0.0);
  // No scaling: the squares overflow and underflow.
  CHECK_BITS(Point2(1e200, 0.0).Module(), kInfinity);
  CHECK_BITS(Point2(1e-200, 0.0).Module(), 0.0);
}

double calls[3];
int call_count;
double record(double v) {
  calls[call_count++] = v;
  return v * 2.0;
}

TEST(Points, FunctionIsAppliedInIndexOrder) {
  const Point3 p(3.0, 1.0, 2.0);
  call_count = 0;
  EXPECT_TRUE(is(p.f(record), 6.0, 2.0, 4.0));
  EXPECT_EQ(call_count, 3);
  EXPECT_TRUE(is(Vector3(calls), 3.0, 1.0, 2.0));
  EXPECT_TRUE(is(p, 3.0, 1.0, 2.0));
}

TEST(Points, DivisionByAScalarMultipliesByItsReciprocal) {
  // 5/49 differs from 5*(1/49) in the last bit.
  ASSERT_NE(5.0 / 49.0, 5.0 * (1.0 / 49.0));
  EXPECT_TRUE(is(Point2(5.0, 49.0) / 49.0, 5.0 * (1.0 / 49.0), 49.0 * (1.0 / 49.0)));
  Point2 p(5.0, -0.0);
  EXPECT_EQ(static_cast<Vector2*>(&p), &(p /= 49.0));
  EXPECT_TRUE(is(p, 5.0 * (1.0 / 49.0), -0.0));
  EXPECT_TRUE(is(Point2(1.0, 0.0) / 0.0, kInfinity, kNaN));
  EXPECT_TRUE(is(Point2(1.0, 0x1p-1074) / 0x1p-1074, kInfinity, kInfinity));  // the reciprocal overflows
}

TEST(Points, InPlaceOperatorsReturnTheTarget) {
  Vector2 p(Point2(1.0, 2.0));
  EXPECT_EQ(&(p += Point2(3.0, 4.0)), &p);
  EXPECT_TRUE(is(p, 4.0, 6.0));
  EXPECT_EQ(&(p -= Point2(1.0, 1.0)), &p);
  EXPECT_TRUE(is(p, 3.0, 5.0));
  EXPECT_EQ(&(p *= 2.0), &p);
  EXPECT_TRUE(is(p, 6.0, 10.0));
  EXPECT_EQ(&(p *= Point2(2.0, 3.0)), &p);
  EXPECT_TRUE(is(p, 12.0, 30.0));
  EXPECT_EQ(&(p /= Point2(3.0, 4.0)), &p);
  EXPECT_TRUE(is(p, 4.0, 7.5));
  EXPECT_EQ(&p.uminus(), &p);
  EXPECT_TRUE(is(p, -4.0, -7.5));
}

TEST(Points, AnArgumentMayBeTheObjectItself) {
  Vector3 p(Point3(1.0, -2.0, 3.0));
  const Vector3& same = p;
  p += same;
  EXPECT_TRUE(is(p, 2.0, -4.0, 6.0));
  p *= same;
  EXPECT_TRUE(is(p, 4.0, 16.0, 36.0));
  p /= p[0];
  EXPECT_TRUE(is(p, 1.0, 4.0, 9.0));
  p /= same;
  EXPECT_TRUE(is(p, 1.0, 1.0, 1.0));
  p -= same;
  EXPECT_TRUE(is(p, 0.0, 0.0, 0.0));
}

}  // namespace
