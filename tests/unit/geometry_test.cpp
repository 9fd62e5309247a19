#include <alidade/geometry.h>

#include <cmath>
#include <fstream>
#include <limits>
#include <new>
#include <sstream>
#include <string>
#include <type_traits>

#include "support/bits.h"

namespace {

using Point2 = TAbstractPoint2<double>;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kDenormMin = std::numeric_limits<double>::denorm_min();
constexpr double kPi = 3.141592653589793;

CLineCoeffs line(double a, double b, double c) {
  CLineCoeffs l;
  l.a() = a;
  l.b() = b;
  l.c() = c;
  return l;
}

testing::AssertionResult is(const CLineCoeffs& l, double a, double b, double c) {
  const double actual[3] = {l.a(), l.b(), l.c()};
  const double expected[3] = {a, b, c};
  return bits::equal_arrays(actual, expected, 3);
}

testing::AssertionResult is(const Point2& p, double x, double y) {
  const double expected[2] = {x, y};
  return bits::equal_arrays(p, expected, 2);
}

testing::AssertionResult is(const CArcParams& arc, Point2 centre, Point2 start, Point2 end, double radius) {
  const double actual[7] = {arc.centre.x(), arc.centre.y(), arc.start.x(), arc.start.y(),
                            arc.end.x(),    arc.end.y(),    arc.radius};
  const double expected[7] = {centre.x(), centre.y(), start.x(), start.y(), end.x(), end.y(), radius};
  return bits::equal_arrays(actual, expected, 7);
}

void construct_line_by_default(void* memory) { new (memory) CLineCoeffs; }

TEST(Lines, AreThreeNumbersInOrder) {
  static_assert(sizeof(CLineCoeffs) == 3 * sizeof(double), "layout");
  static_assert(std::is_trivially_copyable<CLineCoeffs>::value, "a plain value");
  CLineCoeffs l = line(1.0, 2.0, 3.0);
  const double in_order[3] = {1.0, 2.0, 3.0};
  EXPECT_TRUE(bits::equal_arrays(reinterpret_cast<const double*>(&l), in_order, 3));
  CLineCoeffs copy = line(0.0, 0.0, 0.0);
  EXPECT_EQ(&(copy = l), &copy);
  EXPECT_TRUE(is(copy, 1.0, 2.0, 3.0));
  // The default constructor does no work. Called through a volatile pointer, because a compiler that sees the call may
  // drop the filling.
  double memory[3] = {1.0, 2.0, 3.0};
  void (*volatile construct)(void*) = construct_line_by_default;
  construct(memory);
  EXPECT_TRUE(bits::equal_arrays(memory, in_order, 3));
}

TEST(Lines, ThroughTwoPoints) {
  CLineCoeffs l = line(9.0, 9.0, 9.0);
  EXPECT_TRUE(FindLineCoeffs(Point2(0.0, 0.0), Point2(2.0, 4.0), l));
  EXPECT_TRUE(is(l, 2.0, -1.0, 0.0));
  EXPECT_TRUE(FindLineCoeffs(Point2(3.0, 1.0), Point2(3.0, 5.0), l));
  EXPECT_TRUE(is(l, -1.0, 0.0, 3.0));
  l = line(9.0, 8.0, 7.0);
  EXPECT_FALSE(FindLineCoeffs(Point2(3.0, 1.0), Point2(3.0, 1.0), l));
  EXPECT_TRUE(is(l, 9.0, 8.0, 7.0));
}

TEST(Lines, ADifferenceBelowTheZeroTestMakesAVerticalLineThroughTheSecondPoint) {
  CLineCoeffs l = line(9.0, 8.0, 7.0);
  EXPECT_TRUE(FindLineCoeffs(Point2(0.0, 1.0), Point2(kDenormMin, 5.0), l));
  EXPECT_TRUE(is(l, -1.0, 0.0, kDenormMin));
  EXPECT_TRUE(FindLineCoeffs(Point2(kDenormMin, 1.0), Point2(0.0, 5.0), l));
  EXPECT_TRUE(is(l, -1.0, 0.0, 0.0));

  // 2^-1021 itself is not below the test; its neighbour is.
  const double zero_test = 0x1p-1021;
  const double below = std::nextafter(zero_test, 0.0);
  EXPECT_TRUE(FindLineCoeffs(Point2(0.0, 0.0), Point2(below, 1.0), l));
  EXPECT_TRUE(is(l, -1.0, 0.0, below));
  EXPECT_TRUE(FindLineCoeffs(Point2(0.0, 0.0), Point2(zero_test, 1.0), l));
  EXPECT_TRUE(is(l, 0x1p1021, -1.0, 0.0));
  EXPECT_TRUE(FindLineCoeffs(Point2(0.0, 0.0), Point2(-zero_test, 1.0), l));
  EXPECT_TRUE(is(l, -0x1p1021, -1.0, 0.0));

  // The same test decides whether the points coincide.
  l = line(9.0, 8.0, 7.0);
  EXPECT_FALSE(FindLineCoeffs(Point2(0.0, 0.0), Point2(0.0, below), l));
  EXPECT_FALSE(FindLineCoeffs(Point2(0.0, 0.0), Point2(below, -below), l));
  EXPECT_TRUE(is(l, 9.0, 8.0, 7.0));
  EXPECT_TRUE(FindLineCoeffs(Point2(0.0, 0.0), Point2(0.0, zero_test), l));
  EXPECT_TRUE(is(l, -1.0, 0.0, 0.0));
}

TEST(Lines, ANaNIsNotZero) {
  CLineCoeffs l = line(9.0, 8.0, 7.0);
  EXPECT_TRUE(FindLineCoeffs(Point2(kNaN, 0.0), Point2(1.0, 1.0), l));
  EXPECT_TRUE(is(l, kNaN, -1.0, kNaN));
  EXPECT_TRUE(FindLineCoeffs(Point2(1.0, kNaN), Point2(1.0, 1.0), l));
  EXPECT_TRUE(is(l, -1.0, 0.0, 1.0));
  EXPECT_TRUE(FindLineCoeffs(Point2(kInfinity, 0.0), Point2(kInfinity, 0.0), l));  // their difference is a NaN
  EXPECT_TRUE(is(l, kNaN, -1.0, kNaN));
}

TEST(Lines, Perpendicular) {
  CLineCoeffs l = line(9.0, 9.0, 9.0);
  EXPECT_TRUE(FindPerpendicular(line(0.0, -1.0, 2.0), Point2(5.0, 7.0), l));
  EXPECT_TRUE(is(l, -1.0, 0.0, 5.0));
  EXPECT_TRUE(FindPerpendicular(line(-1.0, 0.0, 3.0), Point2(5.0, 7.0), l));
  EXPECT_TRUE(is(l, -0.0, -1.0, 7.0));
  EXPECT_TRUE(FindPerpendicular(line(2.0, -1.0, kNaN), Point2(2.0, 3.0), l));  // c is not read
  EXPECT_TRUE(is(l, -0.5, -1.0, 4.0));
  EXPECT_TRUE(FindPerpendicular(line(0.0, 0.0, 0.0), Point2(2.0, 3.0), l));  // not a line: taken as horizontal
  EXPECT_TRUE(is(l, -1.0, 0.0, 2.0));
}

// The zero test of the slope is half as large again as that of differences.
TEST(Lines, PerpendicularHasItsOwnZeroTest) {
  CLineCoeffs l = line(9.0, 9.0, 9.0);
  const double zero_test = 0x1.8p-1021;
  const double below = std::nextafter(zero_test, 0.0);
  for (double a : {below, -below, 0x1p-1021, kDenormMin}) {
    EXPECT_TRUE(FindPerpendicular(line(a, -1.0, 0.0), Point2(5.0, 7.0), l));
    EXPECT_TRUE(is(l, -1.0, 0.0, 5.0)) << a;
  }
  for (double a : {zero_test, -zero_test}) {
    EXPECT_TRUE(FindPerpendicular(line(a, -1.0, 0.0), Point2(0.0, 7.0), l));
    EXPECT_TRUE(is(l, -1.0 / a, -1.0, 7.0)) << a;
  }
  EXPECT_TRUE(FindPerpendicular(line(kNaN, -1.0, 0.0), Point2(5.0, 7.0), l));
  EXPECT_TRUE(is(l, kNaN, -1.0, kNaN));
}

TEST(Lines, Intersection) {
  Point2 p(9.0, 8.0);
  EXPECT_TRUE(FindLinesIntersection(line(1.0, -1.0, 0.0), line(-1.0, -1.0, 2.0), p));
  EXPECT_TRUE(is(p, 1.0, 1.0));
  p = Point2(9.0, 8.0);
  EXPECT_FALSE(FindLinesIntersection(line(0.1, -1.0, 0.0), line(0.1, -1.0, 2.0), p));
  EXPECT_TRUE(is(p, 9.0, 8.0));
  EXPECT_FALSE(FindLinesIntersection(line(-1.0, 0.0, 1.0), line(-1.0, 0.0, 1.0), p));  // coincident
  EXPECT_TRUE(is(p, 9.0, 8.0));
  // The determinant's zero test.
  EXPECT_FALSE(FindLinesIntersection(line(0.0, -1.0, 0.0), line(std::nextafter(0x1p-1021, 0.0), -1.0, 0.0), p));
  EXPECT_TRUE(is(p, 9.0, 8.0));
  EXPECT_TRUE(FindLinesIntersection(line(0.0, -1.0, 0.0), line(0x1p-1021, -1.0, 0.0), p));
  EXPECT_TRUE(is(p, 0.0, 0.0));
}

// One reciprocal and two products: here 5/49 would be another double.
TEST(Lines, IntersectionMultipliesByTheReciprocal) {
  Point2 p(0.0);
  ASSERT_NE(5.0 / 49.0, 5.0 * (1.0 / 49.0));
  EXPECT_TRUE(FindLinesIntersection(line(49.0, 0.0, -5.0), line(0.0, 1.0, 0.0), p));
  CHECK_BITS(p.x(), 5.0 * (1.0 / 49.0));
}

TEST(Lines, SpanPerpendicular) {
  CLineCoeffs l = line(9.0, 8.0, 7.0);
  EXPECT_TRUE(GetSpanPerpendicular(Point2(0.0, 0.0), Point2(2.0, 0.0), l));
  EXPECT_TRUE(is(l, -1.0, 0.0, 1.0));
  EXPECT_TRUE(GetSpanPerpendicular(Point2(3.0, 1.0), Point2(3.0, 5.0), l));
  EXPECT_TRUE(is(l, -0.0, -1.0, 3.0));
  l = line(9.0, 8.0, 7.0);
  EXPECT_FALSE(GetSpanPerpendicular(Point2(3.0, 1.0), Point2(3.0, 1.0), l));
  EXPECT_TRUE(is(l, 9.0, 8.0, 7.0));
  // The middle is x1 + (x2 - x1)/2, which the sum of the two would overflow.
  EXPECT_TRUE(GetSpanPerpendicular(Point2(1.5e308, 0.0), Point2(1.75e308, 0.0), l));
  EXPECT_TRUE(is(l, -1.0, 0.0, (1.75e308 - 1.5e308) * 0.5 + 1.5e308));
}

TEST(Arcs, DefaultIsMarkedAsNotComputed) {
  static_assert(sizeof(CArcParams) == 7 * sizeof(double), "layout");
  static_assert(std::is_trivially_copyable<CArcParams>::value, "a plain value");
  const CArcParams arc;
  EXPECT_TRUE(is(arc, Point2(0.0), Point2(0.0), Point2(0.0), 1.7976931348623157e308));
  const double* numbers = reinterpret_cast<const double*>(&arc);
  EXPECT_EQ(numbers, static_cast<const double*>(arc.centre));
  EXPECT_EQ(numbers + 2, static_cast<const double*>(arc.start));
  EXPECT_EQ(numbers + 4, static_cast<const double*>(arc.end));
  EXPECT_EQ(numbers + 6, &arc.radius);
  CArcParams copy;
  CArcParams filled;
  filled.centre = Point2(1.0, 2.0);
  filled.start = Point2(3.0, 4.0);
  filled.end = Point2(5.0, 6.0);
  filled.radius = 7.0;
  EXPECT_EQ(&(copy = filled), &copy);
  EXPECT_TRUE(is(copy, Point2(1.0, 2.0), Point2(3.0, 4.0), Point2(5.0, 6.0), 7.0));
}

TEST(Arcs, ThroughThreePoints) {
  CArcParams arc;
  EXPECT_TRUE(GetArc3PointsParams(Point2(0.0, 0.0), Point2(2.0, 0.0), Point2(1.0, 1.0), arc));
  EXPECT_TRUE(is(arc, Point2(1.0, 0.0), Point2(0.0, 0.0), Point2(2.0, 0.0), 1.0));
}

class ArcFailures : public testing::Test {
protected:
  ArcFailures() {
    arc.centre = Point2(1.0, 2.0);
    arc.start = Point2(3.0, 4.0);
    arc.end = Point2(5.0, 6.0);
    arc.radius = 7.0;
  }
  void expect_untouched() const { EXPECT_TRUE(is(arc, Point2(1.0, 2.0), Point2(3.0, 4.0), Point2(5.0, 6.0), 7.0)); }
  CArcParams arc;
};

TEST_F(ArcFailures, ThreePointsOnALine) {
  EXPECT_FALSE(GetArc3PointsParams(Point2(0.0, 0.0), Point2(1.0, 1.0), Point2(2.0, 2.0), arc));
  EXPECT_FALSE(GetArc3PointsParams(Point2(0.0, 0.0), Point2(1.0, 0.0), Point2(5.0, 0.0), arc));
  EXPECT_FALSE(GetArc3PointsParams(Point2(4.0, 0.0), Point2(4.0, 1.0), Point2(4.0, -5.0), arc));
  expect_untouched();
}

TEST_F(ArcFailures, CoincidentPoints) {
  EXPECT_FALSE(GetArc3PointsParams(Point2(0.0, 0.0), Point2(0.0, 0.0), Point2(1.0, 1.0), arc));
  EXPECT_FALSE(GetArc3PointsParams(Point2(0.0, 0.0), Point2(1.0, 1.0), Point2(1.0, 1.0), arc));
  EXPECT_FALSE(GetArcTangentParams(Point2(0.0, 0.0), Point2(0.0, 0.0), Point2(0.0, 0.0), Point2(0.0, 1.0), arc));
  EXPECT_FALSE(GetArcTangentParams(Point2(0.0, 0.0), Point2(2.0, 2.0), Point2(1.0, 1.0), Point2(1.0, 1.0), arc));
  expect_untouched();
}

TEST_F(ArcFailures, ChordAlongTheTangent) {
  EXPECT_FALSE(GetArcTangentParams(Point2(0.0, 0.0), Point2(2.0, 0.0), Point2(0.0, 0.0), Point2(1.0, 0.0), arc));
  expect_untouched();
}

TEST(Arcs, TangentToALine) {
  CArcParams arc;
  EXPECT_TRUE(GetArcTangentParams(Point2(0.0, 0.0), Point2(2.0, 2.0), Point2(0.0, 0.0), Point2(0.0, 1.0), arc));
  EXPECT_TRUE(is(arc, Point2(2.0, 0.0), Point2(0.0, 0.0), Point2(2.0, 2.0), 2.0));
}

TEST(Triangles, CosineOfAnAngle) {
  CHECK_BITS(cosphi(Point2(0.0, 0.0), Point2(1.0, 0.0), Point2(0.0, 1.0)), 0.0);
  CHECK_BITS(cosphi(Point2(0.0, 0.0), Point2(0.0, 0.0), Point2(3.0, 4.0)), 1.0);
  CHECK_BITS(cosphi(Point2(0.0, 0.0), Point2(3.0, 4.0), Point2(0.0, 0.0)), 1.0);
  CHECK_BITS(cosphi(Point2(1.0, 1.0), Point2(2.0, 1.0), Point2(-4.0, 1.0)), -1.0);
  CHECK_BITS(cosphi(Point2(0.0, 0.0), Point2(kNaN, 0.0), Point2(0.0, 1.0)), kNaN);
  // Rays so short that the product of their lengths underflows count as no angle.
  CHECK_BITS(cosphi(Point2(0.0, 0.0), Point2(1e-162, 0.0), Point2(0.0, 1e-162)), 1.0);
}

// Rounding may carry the quotient past 1; nothing clamps it, so acos of it would be a NaN.
TEST(Triangles, CosineIsNotClamped) {
  double largest = 0.0;
  for (int i = 1; i < 200; ++i) {
    const Point2 ray(i * 0.1, i * 0.37);
    largest = std::fmax(largest, cosphi(Point2(0.0, 0.0), ray, ray));
  }
  EXPECT_GT(largest, 1.0);
  EXPECT_LE(largest, 1.0 + 4.0 * std::numeric_limits<double>::epsilon());
}

TEST(Triangles, AreaIsPositiveClockwise) {
  CHECK_BITS(triangle_area(Point2(0.0, 0.0), Point2(0.0, 1.0), Point2(1.0, 0.0)), 0.5);
  EXPECT_TRUE(clockwise(Point2(0.0, 0.0), Point2(0.0, 1.0), Point2(1.0, 0.0)));
  CHECK_BITS(triangle_area(Point2(0.0, 0.0), Point2(1.0, 0.0), Point2(0.0, 1.0)), -0.5);
  CHECK_BITS(triangle_area(0.0, 0.0, 1.0, 0.0, 0.0, 1.0), -0.5);
  EXPECT_FALSE(clockwise(Point2(0.0, 0.0), Point2(1.0, 0.0), Point2(0.0, 1.0)));
  EXPECT_FALSE(clockwise(Point2(0.0, 0.0), Point2(1.0, 1.0), Point2(2.0, 2.0)));
  EXPECT_FALSE(clockwise(Point2(kNaN, 0.0), Point2(0.0, 1.0), Point2(1.0, 0.0)));
}

// Each of the six products alone is swallowed or kept according to its place in the sum.
TEST(Triangles, AreaAddsItsProductsInOrder) {
  // x1*y3 = 1 is lost in -y1*x3 = -2^60, which y1*x2 = 2^60 takes away again.
  CHECK_BITS(triangle_area(1.0, 0x1p30, 0x1p30, 0.0, 0x1p30, 1.0),
             ((((1.0 - 0x1p60) + 0x1p60) - 0.0) + 0.0 - 0x1p30) * 0.5);
}

// Published worked examples of a surveying course; the source and the digits stand in the file.
TEST(PlaneGeometryExamples, MeetThePublishedValues) {
  std::ifstream file(std::string(ALIDADE_TEST_DATA) + "/plane_geometry_examples.txt");
  ASSERT_TRUE(file);
  int arcs = 0;
  int intersections = 0;
  int distances = 0;
  // The line through a point at an azimuth, clockwise from north; x is east, y is north.
  const auto ray = [](double north, double east, double d, double m, double s) {
    const double azimuth = (d + m / 60.0 + s / 3600.0) * kPi / 180.0;
    CLineCoeffs l;
    EXPECT_TRUE(FindLineCoeffs(Point2(east, north),
                               Point2(east + 1000.0 * std::sin(azimuth), north + 1000.0 * std::cos(azimuth)), l));
    return l;
  };
  std::string text;
  while (std::getline(file, text)) {
    std::istringstream fields(text);
    std::string type;
    if (!(fields >> type) || type[0] == '#') {
      continue;
    }
    double v[12];
    int n = 0;
    while (n < 12 && fields >> v[n]) {
      ++n;
    }
    if (type == "ARC3") {
      ASSERT_EQ(n, 9);
      ++arcs;
      CArcParams arc;
      ASSERT_TRUE(GetArc3PointsParams(Point2(v[1], v[0]), Point2(v[3], v[2]), Point2(v[5], v[4]), arc));
      EXPECT_NEAR(arc.centre.y(), v[6], 0.005);  // half a unit of the published digit
      EXPECT_NEAR(arc.centre.x(), v[7], 0.005);
      EXPECT_NEAR(arc.radius, v[8], 0.005);
    } else if (type == "XDIR") {
      ASSERT_EQ(n, 12);
      ++intersections;
      Point2 p(0.0);
      ASSERT_TRUE(FindLinesIntersection(ray(v[0], v[1], v[2], v[3], v[4]), ray(v[5], v[6], v[7], v[8], v[9]), p));
      EXPECT_NEAR(p.y(), v[10], 0.002);  // the azimuths are given to a second: 0.5" over some 600 ft, oblique
      EXPECT_NEAR(p.x(), v[11], 0.002);
    } else if (type == "DISTP") {
      ASSERT_EQ(n, 5);
      ++distances;
      EXPECT_NEAR(Point2((Point2(v[1], v[0]) - Point2(v[3], v[2]))).Module(), v[4], 0.0015);
    } else {
      FAIL() << "unknown record " << type;
    }
  }
  EXPECT_EQ(arcs, 1);
  EXPECT_EQ(intersections, 2);
  EXPECT_EQ(distances, 1);
}

}  // namespace
