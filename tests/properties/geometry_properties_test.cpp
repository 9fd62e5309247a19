// What holds of the constructions of plane geometry in general.

#include <alidade/geometry.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "support/bits.h"
#include "support/plane_inputs.h"
#include "support/sizes.h"

namespace {

constexpr int kCases = sizes::all_or_few(120000, 20000);
constexpr double kEpsilon = std::numeric_limits<double>::epsilon();

using Point2 = TAbstractPoint2<double>;

CLineCoeffs to_line(const double l[3]) {
  CLineCoeffs r;
  r.a() = l[0];
  r.b() = l[1];
  r.c() = l[2];
  return r;
}

// The distance of p from the line, over the rounding that the coefficients and the point can carry.
double residual(const CLineCoeffs& l, const Point2& p) {
  const double scale = std::fabs(l.a() * p.x()) + std::fabs(l.b() * p.y()) + std::fabs(l.c());
  return std::fabs(l.a() * p.x() + l.b() * p.y() + l.c()) / (kEpsilon * scale);
}

// a x + b y + c: two products, each rounded once (1/2 unit each of its term), two sums. The constant term is a
// difference of two products over dx: three more roundings, of terms up to |y1 x2| + |y2 x1| over |dx|, which is taken
// into the scale by hand.
TEST(LinesProperties, ALineHoldsItsTwoPoints) {
  PlaneInputs inputs(3301);
  for (int i = 0; i < kCases; ++i) {
    const Point2 p1(inputs.survey(), inputs.survey());
    const Point2 p2(inputs.survey(), inputs.survey());
    CLineCoeffs l;
    ASSERT_TRUE(FindLineCoeffs(p1, p2, l));
    if (l.b() == 0.0) {
      ASSERT_EQ(p1.x(), p2.x());
      continue;
    }
    const double terms = (std::fabs(p1.y() * p2.x()) + std::fabs(p2.y() * p1.x())) / std::fabs(p2.x() - p1.x());
    for (const Point2& p : {p1, p2}) {
      const double off = std::fabs(l.a() * p.x() - p.y() + l.c());
      const double scale = std::fabs(l.a() * p.x()) + std::fabs(p.y()) + terms;
      ASSERT_LE(off, 4.0 * kEpsilon * scale) << i;
    }
  }
}

TEST(LinesProperties, ThePerpendicularHoldsThePointAndIsPerpendicular) {
  PlaneInputs inputs(3302);
  for (int i = 0; i < kCases; ++i) {
    const double given[3] = {inputs.fraction() * 100.0, -1.0, inputs.survey()};
    const CLineCoeffs line = to_line(given);
    const Point2 p(inputs.survey(), inputs.survey());
    CLineCoeffs l;
    ASSERT_TRUE(FindPerpendicular(line, p, l));
    ASSERT_LE(residual(l, p), 2.0) << i;  // c' has exactly the terms of the test, each rounded at most twice
    const double dot = line.a() * l.a() + line.b() * l.b();
    ASSERT_LE(std::fabs(dot), 2.0 * kEpsilon * (std::fabs(line.a() * l.a()) + std::fabs(line.b() * l.b()))) << i;
  }
}

// The coordinates carry the rounding of their numerators, of the determinant and of the reciprocal; the determinant's
// own cancellation magnifies it by its condition number.
TEST(LinesProperties, TheIntersectionLiesOnBothLines) {
  PlaneInputs inputs(3303);
  for (int i = 0; i < kCases; ++i) {
    const double l1[3] = {inputs.fraction() * 10.0, -1.0, inputs.survey()};
    const double l2[3] = {inputs.fraction() * 10.0, -1.0, inputs.survey()};
    const double det = l1[0] * l2[1] - l1[1] * l2[0];
    if (std::fabs(det) < 1e-6) {
      continue;
    }
    Point2 p(0.0);
    ASSERT_TRUE(FindLinesIntersection(to_line(l1), to_line(l2), p));
    const double condition = (std::fabs(l1[0]) + std::fabs(l2[0])) / std::fabs(det);
    const double size = std::max(std::fabs(l1[2]), std::fabs(l2[2]));
    for (const double* l : {l1, l2}) {
      // x is off by at most 4 roundings of (|c1| + |c2|)/det, y likewise of (|c1 a2| + |c2 a1|)/det.
      const double bound = 4.0 * kEpsilon * size * (2.0 * std::fabs(l[0]) / std::fabs(det) + condition) +
                           2.0 * kEpsilon * (std::fabs(l[0] * p.x()) + std::fabs(p.y()) + size) * (1.0 + condition);
      ASSERT_LE(std::fabs(l[0] * p.x() - p.y() + l[2]), bound) << i;
    }
  }
}

// Forward error of the crossing of two bisectors a x - y + c = 0, to first order. Slope and constant of each carry at
// most four roundings of the terms they are made of, so that the line misses the true crossing by 4 eps S, where
// S = |a| (|x middle| + |x centre|) + |y middle| + |c|. Solving for the crossing divides by det = a2 - a1 and adds,
// with its own numerators, determinant, reciprocal and product, as much again.
struct CentreError {
  double x, y;
};

CentreError centre_error(const Point2& p1, const Point2& p2, const Point2& p3, const Point2& centre) {
  CLineCoeffs l1;
  CLineCoeffs l2;
  EXPECT_TRUE(GetSpanPerpendicular(p1, p2, l1));
  EXPECT_TRUE(GetSpanPerpendicular(p2, p3, l2));
  const auto size = [&centre](const CLineCoeffs& l, const Point2& a, const Point2& b) {
    const Point2 middle((a + b) * 0.5);
    return std::fabs(l.a()) * (std::fabs(middle.x()) + std::fabs(centre.x())) + std::fabs(middle.y()) +
           std::fabs(l.c());
  };
  const double s1 = size(l1, p1, p2);
  const double s2 = size(l2, p2, p3);
  const double det = std::fabs(l2.a() - l1.a());
  return {8.0 * kEpsilon * (s1 + s2) / det, 8.0 * kEpsilon * (std::fabs(l2.a()) * s1 + std::fabs(l1.a()) * s2) / det};
}

TEST(ArcsProperties, TheThreePointsLieOnTheCircle) {
  PlaneInputs inputs(3304);
  double largest = 0.0;
  for (int i = 0; i < kCases; ++i) {
    const auto draw = [&inputs] { return Point2(inputs.survey() * 1e-3, inputs.survey() * 1e-3); };
    const Point2 p1 = draw();
    const Point2 p2 = draw();
    const Point2 p3 = draw();
    CArcParams arc;
    ASSERT_TRUE(GetArc3PointsParams(p1, p2, p3, arc));
    const CentreError error = centre_error(p1, p2, p3, arc.centre);
    // A displaced centre changes each of two distances by at most its displacement.
    const double bound = 2.0 * (error.x + error.y) + 4.0 * kEpsilon * arc.radius;
    for (const Point2& p : {p1, p2, p3}) {
      const double off = std::fabs(Point2(p - arc.centre).Module() - arc.radius);
      ASSERT_LE(off, bound) << i;
      largest = std::max(largest, off / bound);
    }
  }
  EXPECT_GT(largest, 0.01);  // the bound is of the size of what it bounds
}

TEST(TrianglesProperties, AreaChangesSignWithOrientation) {
  PlaneInputs inputs(3305);
  for (int i = 0; i < kCases; ++i) {
    // Whole millimetres below 2^25: all products and sums are exact, so that the identities are.
    const auto whole = [&inputs] { return static_cast<double>(inputs.below(1 << 25)); };
    const Point2 a(whole(), whole());
    const Point2 b(whole(), whole());
    const Point2 c(whole(), whole());
    const double area = triangle_area(a, b, c);
    ASSERT_EQ(triangle_area(a, c, b), -area) << i;
    ASSERT_EQ(triangle_area(b, a, c), -area) << i;
    ASSERT_EQ(triangle_area(b, c, a), area) << i;
    ASSERT_EQ(clockwise(a, b, c), area > 0.0);
    ASSERT_EQ(clockwise(a, c, b), area < 0.0);
    ASSERT_FALSE(clockwise(a, b, a));
  }
}

TEST(TrianglesProperties, CosineMeetsTheLawOfCosines) {
  PlaneInputs inputs(3306);
  for (int i = 0; i < kCases; ++i) {
    const Point2 a(inputs.survey(), inputs.survey());
    const Point2 b(inputs.survey(), inputs.survey());
    const Point2 c(inputs.survey(), inputs.survey());
    const double ab = Point2(b - a).Module();
    const double ac = Point2(c - a).Module();
    const double bc = Point2(c - b).Module();
    const double cosine = (ab * ab + ac * ac - bc * bc) / (2.0 * ab * ac);
    const double scale = (ab * ab + ac * ac + bc * bc) / (2.0 * ab * ac);
    ASSERT_NEAR(cosphi(a, b, c), cosine, 8.0 * kEpsilon * scale) << i;
  }
}

}  // namespace
