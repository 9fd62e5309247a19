// Points and rectangles against the plain reference, bit for bit, and what holds of them in general.

#include <alidade/points.h>

#include <cmath>

#include "reference/points.h"
#include "reference/rectangles.h"
#include "support/bits.h"
#include "support/plane_inputs.h"
#include "support/sizes.h"

namespace {

constexpr int kCases = sizes::all_or_few(100000, 16666);

using Rect = TAbstractRect<double>;
using Point2 = TAbstractPoint2<double>;
using Size2 = TAbstractSize2<double>;

template <int N>
class PointsAgainstReference {
public:
  using Vector = TAbstractPoint<double, N>;

  explicit PointsAgainstReference(std::uint64_t seed) : inputs_(seed) {}

  void run() {
    for (int i = 0; i < kCases && !testing::Test::HasFailure(); ++i) {
      SCOPED_TRACE(i);
      draw();
      binary_operations();
      scalar_operations();
      reductions();
      comparisons();
    }
  }

private:
  void draw() {
    const bool same_scale = inputs_.below(2) == 0;
    for (int k = 0; k < N; ++k) {
      a_[k] = same_scale ? inputs_.survey() : inputs_.number();
      b_[k] = inputs_.below(4) == 0 ? a_[k] : same_scale ? inputs_.survey() : inputs_.number();
    }
    s_ = inputs_.number();
  }

  void check(const char* what, const Vector& result) { ASSERT_TRUE(bits::equal_arrays(result, expected_, N)) << what; }

  void binary_operations() {
    const Vector a(a_);
    const Vector b(b_);
    Vector r;
    reference::point_add(N, a_, b_, expected_);
    check("+", a + b);
    check("+=", (r = a) += b);
    reference::point_subtract(N, a_, b_, expected_);
    check("-", a - b);
    check("-=", (r = a) -= b);
    reference::point_multiply(N, a_, b_, expected_);
    check("*=", (r = a) *= b);
    reference::point_divide(N, a_, b_, expected_);
    check("/", a / b);
    check("/=", (r = a) /= b);
    reference::point_maximum(N, a_, b_, expected_);
    check("maximum", a.maximum(b));
    reference::point_minimum(N, a_, b_, expected_);
    check("minimum", a.minimum(b));
  }

  void scalar_operations() {
    const Vector a(a_);
    Vector r;
    reference::point_scale(N, a_, s_, expected_);
    check("* scalar", a * s_);
    check("*= scalar", (r = a) *= s_);
    reference::point_divide_by_scalar(N, a_, s_, expected_);
    check("/ scalar", a / s_);
    check("/= scalar", (r = a) /= s_);
    reference::point_negate(N, a_, expected_);
    check("unary -", -a);
    check("uminus", (r = a).uminus());
    reference::point_abs(N, a_, expected_);
    check("abs", a.abs());
    for (int k = 0; k < N; ++k) {
      expected_[k] = std::fabs(a_[k]);
    }
    check("f", a.f([](double v) { return std::fabs(v); }));
  }

  void reductions() {
    const Vector a(a_);
    const Vector b(b_);
    CHECK_BITS(a * b, reference::point_dot(N, a_, b_));
    CHECK_BITS(a.ModuleSq(), reference::point_square(N, a_));
    CHECK_BITS(a.Module(), reference::point_length(N, a_));
    CHECK_BITS(a.sum(), reference::point_sum(N, a_));
  }

  void comparisons() {
    const Vector a(a_);
    const Vector b(b_);
    double all[3] = {s_, s_, s_};
    ASSERT_EQ(a == b, reference::point_equal(N, a_, b_));
    ASSERT_EQ(a != b, !reference::point_equal(N, a_, b_));
    ASSERT_EQ(a == s_, reference::point_equal(N, a_, all));
    ASSERT_EQ(a != s_, !reference::point_equal(N, a_, all));
    ASSERT_EQ(a == a_[0], reference::point_equal(N, a_, Vector(a_[0])));
  }

  PlaneInputs inputs_;
  double a_[3] = {};
  double b_[3] = {};
  double s_ = 0.0;
  double expected_[3] = {};
};

TEST(PointsDifferential, TwoComponents) { PointsAgainstReference<2>(2101).run(); }

TEST(PointsDifferential, ThreeComponents) { PointsAgainstReference<3>(2102).run(); }

TEST(PointsDifferential, ConversionToInt) {
  PlaneInputs inputs(2103);
  for (int i = 0; i < kCases; ++i) {
    // Around the ends of int as well.
    const double x = inputs.below(2) == 0 ? inputs.number() : inputs.fraction() * 0x1.00001p31;
    const double y = std::nextafter(inputs.below(2) == 0 ? 2147483648.0 : -2147483649.0, inputs.number());
    const CPoint p = Point2(x, y);
    ASSERT_EQ(p.x, reference::to_int(x)) << x;
    ASSERT_EQ(p.y, reference::to_int(y)) << y;
    const CRect r = Rect(x, y, y, x);
    ASSERT_EQ(r.left, reference::to_int(x));
    ASSERT_EQ(r.top, reference::to_int(y));
    ASSERT_EQ(r.right, reference::to_int(y));
    ASSERT_EQ(r.bottom, reference::to_int(x));
    const auto back = static_cast<int>(inputs.word());
    ASSERT_EQ(Point2(CPoint(back, -1)).x(), static_cast<double>(back));
  }
}

// A rectangle that is normalised, inverted, empty, or made of anything at all.
reference::Rectangle draw_rectangle(PlaneInputs& inputs) {
  switch (inputs.below(4)) {
    case 0:
      return {inputs.whole(), inputs.whole(), inputs.whole(), inputs.whole()};
    case 1:
      return {inputs.number(), inputs.number(), inputs.number(), inputs.number()};
    default:
      return {inputs.survey(), inputs.survey(), inputs.survey(), inputs.survey()};
  }
}

Rect to_rect(const reference::Rectangle& r) { return Rect(r.left, r.top, r.right, r.bottom); }

void check(const char* what, const Rect& r, const reference::Rectangle& e) {
  const double actual[4] = {r.left(), r.top(), r.right(), r.bottom()};
  const double expected[4] = {e.left, e.top, e.right, e.bottom};
  ASSERT_TRUE(bits::equal_arrays(actual, expected, 4)) << what;
}

TEST(RectanglesDifferential, Measures) {
  PlaneInputs inputs(2201);
  for (int i = 0; i < kCases && !HasFailure(); ++i) {
    SCOPED_TRACE(i);
    const reference::Rectangle e = draw_rectangle(inputs);
    const Rect r = to_rect(e);
    CHECK_BITS(r.Width(), reference::rectangle_width(e));
    CHECK_BITS(r.Height(), reference::rectangle_height(e));
    CHECK_BITS(r.Size().cx(), reference::rectangle_width(e));
    CHECK_BITS(r.Size().cy(), reference::rectangle_height(e));
    CHECK_BITS(r.Area(), reference::rectangle_area(e));
    CHECK_BITS(r.BottomLeft().x(), e.left);
    CHECK_BITS(r.BottomLeft().y(), e.bottom);
    CHECK_BITS(r.TopRight().x(), e.right);
    CHECK_BITS(r.TopRight().y(), e.top);
    ASSERT_EQ(r.IsEmpty(), reference::rectangle_is_empty(e));
    const double marker = inputs.below(2) == 0 ? e.top : inputs.number();
    ASSERT_EQ(r.IsValid(marker), reference::rectangle_is_valid(e, marker));
    const double x = inputs.below(3) == 0 ? e.right : inputs.number();
    const double y = inputs.below(3) == 0 ? e.top : inputs.number();
    ASSERT_EQ(r.Contains(Point2(x, y)), reference::rectangle_contains_point(e, x, y));
    const reference::Rectangle inner = inputs.below(2) == 0
                                           ? reference::Rectangle{e.left + 1.0, e.top, e.right, e.bottom - 1.0}
                                           : draw_rectangle(inputs);
    ASSERT_EQ(r.Contains(to_rect(inner)), reference::rectangle_contains(e, inner));
  }
}

TEST(RectanglesDifferential, Modifiers) {
  PlaneInputs inputs(2202);
  for (int i = 0; i < kCases && !HasFailure(); ++i) {
    SCOPED_TRACE(i);
    const reference::Rectangle e = draw_rectangle(inputs);
    const Rect r = to_rect(e);
    const double dx = inputs.number();
    const double dy = inputs.number();
    const Point2 d(dx, dy);
    const Size2 size(dx, dy);
    Rect t;
    check("corner and size", Rect(d, Size2(e.right, e.bottom)),
          reference::rectangle_of_corner_and_size(dx, dy, e.right, e.bottom));
    const reference::Rectangle offset = reference::rectangle_offset(e, dx, dy);
    check("Offset", (t = r).Offset(dx, dy), offset);
    check("Offset point", (t = r).Offset(d), offset);
    check("OffsetBy", r.OffsetBy(dx, dy), offset);
    check("OffsetBy point", r.OffsetBy(d), offset);
    check("+=", (t = r) += size, offset);
    check("-=", (t = r) -= size, reference::rectangle_offset(e, -dx, -dy));
    const reference::Rectangle moved = reference::rectangle_move(e, dx, dy);
    check("MoveTo", (t = r).MoveTo(dx, dy), moved);
    check("MoveTo point", (t = r).MoveTo(d), moved);
    check("MovedTo", r.MovedTo(dx, dy), moved);
    check("MovedTo point", r.MovedTo(d), moved);
    const reference::Rectangle inflated = reference::rectangle_inflate(e, dx, dy);
    check("Inflate", (t = r).Inflate(dx, dy), inflated);
    check("Inflate size", (t = r).Inflate(size), inflated);
    check("InflatedBy", r.InflatedBy(dx, dy), inflated);
    check("InflatedBy size", r.InflatedBy(size), inflated);
    check("Normalize", (t = r).Normalize(), reference::rectangle_normalize_in_place(e));
    check("Normalized", r.Normalized(), reference::rectangle_normalized_copy(e));
  }
}

TEST(RectanglesDifferential, SetOperations) {
  PlaneInputs inputs(2203);
  for (int i = 0; i < kCases && !HasFailure(); ++i) {
    SCOPED_TRACE(i);
    const reference::Rectangle e = draw_rectangle(inputs);
    reference::Rectangle o = draw_rectangle(inputs);
    if (inputs.below(3) == 0) {
      o.left = inputs.below(2) == 0 ? e.left : -e.left;  // a tie, or zeros of both signs
      o.bottom = e.bottom;
    }
    Rect t;
    check("&=", (t = to_rect(e)) &= to_rect(o), reference::rectangle_intersect(e, o));
    check("|=", (t = to_rect(e)) |= to_rect(o), reference::rectangle_unite(e, o));
    check("&= itself", (t = to_rect(e)) &= t, e);
    check("|= itself", (t = to_rect(e)) |= t, e);
  }
}

TEST(RectanglesProperties, UnionContainsBothAndIntersectionLiesInBoth) {
  PlaneInputs inputs(2204);
  int overlapping = 0;
  for (int i = 0; i < kCases; ++i) {
    const Rect a = Rect(inputs.survey(), inputs.survey(), inputs.survey(), inputs.survey()).Normalized();
    const Rect b = Rect(inputs.survey(), inputs.survey(), inputs.survey(), inputs.survey()).Normalized();
    Rect both(a);
    both |= b;
    ASSERT_TRUE(both.Contains(a) && both.Contains(b)) << i;
    Rect common(a);
    common &= b;
    if (!common.IsEmpty()) {
      ++overlapping;
      ASSERT_TRUE(a.Contains(common) && b.Contains(common)) << i;
    }
  }
  EXPECT_GT(overlapping, kCases / 10);
}

}  // namespace
