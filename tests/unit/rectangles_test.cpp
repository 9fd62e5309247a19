#include <alidade/points.h>

#include <climits>
#include <limits>
#include <new>
#include <type_traits>

#include "support/bits.h"

namespace {

using Rect = TAbstractRect<double>;
using Point2 = TAbstractPoint2<double>;
using Size2 = TAbstractSize2<double>;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

testing::AssertionResult is(const Rect& r, double left, double top, double right, double bottom) {
  const double actual[4] = {r.left(), r.top(), r.right(), r.bottom()};
  const double expected[4] = {left, top, right, bottom};
  return bits::equal_arrays(actual, expected, 4);
}

TEST(Rectangles, AreFourNumbersInOrder) {
  static_assert(sizeof(Rect) == 4 * sizeof(double), "layout");
  static_assert(std::is_trivially_copyable<Rect>::value && std::is_standard_layout<Rect>::value, "a plain value");
}

void construct_by_default(void* memory) { new (memory) Rect; }

// The call goes through a volatile pointer, because a compiler that sees it may drop the filling.
TEST(Rectangles, DefaultConstructorLeavesTheFields) {
  double memory[4] = {1.0, 2.0, 3.0, 4.0};
  void (*volatile construct)(void*) = construct_by_default;
  construct(memory);
  const double expected[4] = {1.0, 2.0, 3.0, 4.0};
  EXPECT_TRUE(bits::equal_arrays(memory, expected, 4));
}

TEST(Rectangles, Constructors) {
  EXPECT_TRUE(is(Rect(1.0, 2.0, 3.0, -0.0), 1.0, 2.0, 3.0, -0.0));
  EXPECT_TRUE(is(Rect(Point2(10.0, 20.0), Point2(5.0, 6.0)), 10.0, 20.0, 5.0, 6.0));  // not normalised
  EXPECT_TRUE(is(Rect(Point2(10.0, 20.0), Size2(5.0, -6.0)), 10.0, 20.0, 15.0, 14.0));
  EXPECT_TRUE(is(Rect(CRect(INT_MIN, 2, 3, INT_MAX)), -2147483648.0, 2.0, 3.0, 2147483647.0));
  Rect r(0.0, 0.0, 0.0, 0.0);
  EXPECT_EQ(&(r = Rect(1.0, 2.0, 3.0, 4.0)), &r);
  EXPECT_TRUE(is(r, 1.0, 2.0, 3.0, 4.0));
}

TEST(Rectangles, FrameworkRectangle) {
  const CRect r = Rect(1.9, -1.9, 2.5, -2.5);
  EXPECT_EQ(r.left, 1);
  EXPECT_EQ(r.top, -1);
  EXPECT_EQ(r.right, 2);
  EXPECT_EQ(r.bottom, -2);
  const CRect outside = Rect(2147483648.0, -2147483649.0, kNaN, kInfinity);
  EXPECT_EQ(outside.left, INT_MIN);
  EXPECT_EQ(outside.top, INT_MIN);
  EXPECT_EQ(outside.right, INT_MIN);
  EXPECT_EQ(outside.bottom, INT_MIN);
}

TEST(Rectangles, BothSpellingsReachTheSameFields) {
  Rect r(0.0, 0.0, 0.0, 0.0);
  r.left() = 1.0;
  r.top() = 2.0;
  r.right() = 3.0;
  r.bottom() = 4.0;
  const Rect& c = r;
  EXPECT_EQ(c.Left(), 1.0);
  EXPECT_EQ(c.Top(), 2.0);
  EXPECT_EQ(c.Right(), 3.0);
  EXPECT_EQ(c.Bottom(), 4.0);
  r.Left() = 5.0;
  r.Top() = 6.0;
  r.Right() = 7.0;
  r.Bottom() = 8.0;
  EXPECT_TRUE(is(c, 5.0, 6.0, 7.0, 8.0));
}

TEST(Rectangles, MeasuresAreSigned) {
  const Rect inverted(10.0, 10.0, 0.0, 0.0);
  EXPECT_EQ(inverted.Width(), -10.0);
  EXPECT_EQ(inverted.Height(), -10.0);
  EXPECT_EQ(inverted.Area(), 100.0);
  EXPECT_TRUE(inverted.IsEmpty());
  EXPECT_EQ(Rect(10.0, 0.0, 0.0, 10.0).Area(), -100.0);
  EXPECT_EQ(Rect(1.0, 2.0, 4.0, 9.0).Size(), Size2(3.0, 7.0));
  EXPECT_EQ(Rect(1.0, 2.0, 4.0, 9.0).BottomLeft(), Point2(1.0, 9.0));
  EXPECT_EQ(Rect(1.0, 2.0, 4.0, 9.0).TopRight(), Point2(4.0, 2.0));
}

TEST(Rectangles, Empty) {
  EXPECT_FALSE(Rect(0.0, 0.0, 1.0, 1.0).IsEmpty());
  EXPECT_TRUE(Rect(0.0, 0.0, 0.0, 1.0).IsEmpty());
  EXPECT_TRUE(Rect(0.0, 0.0, 1.0, 0.0).IsEmpty());
  EXPECT_TRUE(Rect(-0.0, 0.0, 0.0, 1.0).IsEmpty());
  EXPECT_TRUE(Rect(kNaN, 0.0, 1.0, 1.0).IsEmpty());
  EXPECT_TRUE(Rect(0.0, 0.0, 1.0, kNaN).IsEmpty());
  EXPECT_FALSE(Rect(-kInfinity, -kInfinity, kInfinity, kInfinity).IsEmpty());
}

TEST(Rectangles, ValidWithoutTheMarker) {
  const double marker = std::numeric_limits<double>::max();
  EXPECT_TRUE(Rect(1.0, 2.0, 3.0, 4.0).IsValid(marker));
  EXPECT_FALSE(Rect(marker, 2.0, 3.0, 4.0).IsValid(marker));
  EXPECT_FALSE(Rect(1.0, marker, 3.0, 4.0).IsValid(marker));
  EXPECT_FALSE(Rect(1.0, 2.0, marker, 4.0).IsValid(marker));
  EXPECT_FALSE(Rect(1.0, 2.0, 3.0, marker).IsValid(marker));
  EXPECT_FALSE(Rect(0.0, 2.0, 3.0, 4.0).IsValid(-0.0));     // equal as numbers
  EXPECT_TRUE(Rect(kNaN, kNaN, kNaN, kNaN).IsValid(kNaN));  // a NaN equals nothing
}

TEST(Rectangles, ContainsItsEdges) {
  const Rect r(1.0, 2.0, 5.0, 7.0);
  for (double x : {1.0, 3.0, 5.0}) {
    for (double y : {2.0, 4.0, 7.0}) {
      EXPECT_TRUE(r.Contains(Point2(x, y))) << x << ' ' << y;
    }
  }
  EXPECT_FALSE(r.Contains(Point2(std::nextafter(1.0, 0.0), 4.0)));
  EXPECT_FALSE(r.Contains(Point2(std::nextafter(5.0, 6.0), 4.0)));
  EXPECT_FALSE(r.Contains(Point2(3.0, std::nextafter(2.0, 0.0))));
  EXPECT_FALSE(r.Contains(Point2(3.0, std::nextafter(7.0, 8.0))));
  EXPECT_FALSE(r.Contains(Point2(kNaN, 4.0)));
  EXPECT_TRUE(r.Contains(r));
  EXPECT_TRUE(r.Contains(Rect(2.0, 3.0, 3.0, 4.0)));
  EXPECT_FALSE(r.Contains(Rect(2.0, 3.0, 6.0, 4.0)));
  EXPECT_FALSE(r.Contains(Rect(0.0, 3.0, 3.0, 4.0)));
  EXPECT_TRUE(r.Contains(Rect(3.0, 4.0, 2.0, 3.0)));  // two corners count, inverted or not
  EXPECT_FALSE(Rect(5.0, 7.0, 1.0, 2.0).Contains(Point2(3.0, 4.0)));
}

TEST(Rectangles, OffsetInAllItsForms) {
  Rect r(1.0, 2.0, 3.0, 4.0);
  EXPECT_EQ(&r.Offset(10.0, 20.0), &r);
  EXPECT_TRUE(is(r, 11.0, 22.0, 13.0, 24.0));
  EXPECT_EQ(&r.Offset(Point2(-10.0, -20.0)), &r);
  EXPECT_TRUE(is(r, 1.0, 2.0, 3.0, 4.0));
  EXPECT_TRUE(is(r.OffsetBy(1.0, 2.0), 2.0, 4.0, 4.0, 6.0));
  EXPECT_TRUE(is(r.OffsetBy(Point2(1.0, 2.0)), 2.0, 4.0, 4.0, 6.0));
  EXPECT_TRUE(is(r, 1.0, 2.0, 3.0, 4.0));
  EXPECT_EQ(&(r += Size2(1.0, 2.0)), &r);
  EXPECT_TRUE(is(r, 2.0, 4.0, 4.0, 6.0));
  EXPECT_EQ(&(r -= Size2(2.0, 4.0)), &r);
  EXPECT_TRUE(is(r, 0.0, 0.0, 2.0, 2.0));
}

TEST(Rectangles, MoveInAllItsForms) {
  Rect r(1.0, 2.0, 3.0, 5.0);
  EXPECT_EQ(&r.MoveTo(10.0, 20.0), &r);
  EXPECT_TRUE(is(r, 10.0, 20.0, 12.0, 23.0));
  EXPECT_EQ(&r.MoveTo(Point2(0.0, 0.0)), &r);
  EXPECT_TRUE(is(r, 0.0, 0.0, 2.0, 3.0));
  EXPECT_TRUE(is(r.MovedTo(5.0, 6.0), 5.0, 6.0, 7.0, 9.0));
  EXPECT_TRUE(is(r.MovedTo(Point2(5.0, 6.0)), 5.0, 6.0, 7.0, 9.0));
  EXPECT_TRUE(is(r, 0.0, 0.0, 2.0, 3.0));
  // The corner is reached through its difference, so it may miss the point by a rounding.
  EXPECT_TRUE(is(Rect(1e16, 0.0, 1e16, 1.0).MovedTo(1.0, 0.0), 1e16 + (1.0 - 1e16), 0.0, 1e16 + (1.0 - 1e16), 1.0));
}

TEST(Rectangles, InflateInAllItsForms) {
  Rect r(1.0, 2.0, 3.0, 5.0);
  EXPECT_EQ(&r.Inflate(1.0, 2.0), &r);
  EXPECT_TRUE(is(r, 0.0, 0.0, 4.0, 7.0));
  EXPECT_EQ(&r.Inflate(Size2(-1.0, -2.0)), &r);
  EXPECT_TRUE(is(r, 1.0, 2.0, 3.0, 5.0));
  EXPECT_TRUE(is(r.InflatedBy(1.0, 2.0), 0.0, 0.0, 4.0, 7.0));
  EXPECT_TRUE(is(r.InflatedBy(Size2(1.0, 2.0)), 0.0, 0.0, 4.0, 7.0));
  EXPECT_TRUE(is(r, 1.0, 2.0, 3.0, 5.0));
}

TEST(Rectangles, Normalize) {
  Rect r(10.0, 10.0, 0.0, 0.0);
  EXPECT_TRUE(is(r.Normalized(), 0.0, 0.0, 10.0, 10.0));
  EXPECT_TRUE(is(r, 10.0, 10.0, 0.0, 0.0));
  EXPECT_EQ(&r.Normalize(), &r);
  EXPECT_TRUE(is(r, 0.0, 0.0, 10.0, 10.0));
  EXPECT_TRUE(is(Rect(1.0, 9.0, 2.0, 3.0).Normalize(), 1.0, 3.0, 2.0, 9.0));
  // In place nothing is exchanged for a NaN or for zeros of both signs; the copying form decides edge by edge: its
  // right edge falls back to the left one.
  EXPECT_TRUE(is(Rect(1.0, 0.0, kNaN, -0.0).Normalize(), 1.0, 0.0, kNaN, -0.0));
  EXPECT_TRUE(is(Rect(1.0, 0.0, kNaN, -0.0).Normalized(), 1.0, 0.0, 1.0, 0.0));
}

TEST(Rectangles, Intersection) {
  Rect r(0.0, 0.0, 10.0, 10.0);
  EXPECT_EQ(&(r &= Rect(20.0, 20.0, 30.0, 30.0)), &r);
  EXPECT_TRUE(is(r, 20.0, 20.0, 10.0, 10.0));  // disjoint: inverted, nothing is clamped
  EXPECT_TRUE(r.IsEmpty());
  EXPECT_TRUE(is(Rect(0.0, 0.0, 10.0, 10.0) &= Rect(5.0, -5.0, 15.0, 5.0), 5.0, 0.0, 10.0, 5.0));
  // Ties and NaN keep this rectangle's value.
  EXPECT_TRUE(is(Rect(0.0, -0.0, 0.0, -0.0) &= Rect(-0.0, 0.0, -0.0, 0.0), 0.0, -0.0, 0.0, -0.0));
  EXPECT_TRUE(is(Rect(1.0, kNaN, 2.0, kNaN) &= Rect(kNaN, 1.0, kNaN, 2.0), 1.0, kNaN, 2.0, kNaN));
}

TEST(Rectangles, Union) {
  Rect r(0.0, 0.0, 0.0, 0.0);
  EXPECT_EQ(&(r |= Rect(5.0, 5.0, 6.0, 6.0)), &r);
  EXPECT_TRUE(is(r, 0.0, 0.0, 6.0, 6.0));  // the empty rectangle counts
  EXPECT_TRUE(is(Rect(0.0, 0.0, 1.0, 1.0) |= Rect(9.0, 9.0, 8.0, 8.0), 0.0, 0.0, 8.0, 8.0));
  EXPECT_TRUE(is(Rect(0.0, -0.0, 0.0, -0.0) |= Rect(-0.0, 0.0, -0.0, 0.0), 0.0, -0.0, 0.0, -0.0));
  EXPECT_TRUE(is(Rect(1.0, kNaN, 2.0, kNaN) |= Rect(kNaN, 1.0, kNaN, 2.0), 1.0, kNaN, 2.0, kNaN));
}

}  // namespace
