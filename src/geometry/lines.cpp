#include "geometry/lines.h"

#include <cmath>

#include "strict_arithmetic.h"

namespace alidade {
namespace {

// The two zero tests catch zeros and values without full precision; they are not relative tolerances. They differ, and
// the difference decides a few inputs between the two, so neither may take the other's place.
constexpr double kZeroOfDifference = 0x1p-1021;  // twice the smallest normal double
constexpr double kZeroOfSlope = 0x1.8p-1021;     // three times the smallest normal double

// A NaN is not below any limit, hence not zero.
bool is_zero_difference(double v) { return std::fabs(v) < kZeroOfDifference; }
bool is_zero_slope(double v) { return std::fabs(v) < kZeroOfSlope; }

CLineCoeffs line(double a, double b, double c) {
  CLineCoeffs l;
  l.a() = a;
  l.b() = b;
  l.c() = c;
  return l;
}

}  // namespace

bool line_through(const Point2& p1, const Point2& p2, CLineCoeffs& l) {
  const double dx = p2.x() - p1.x();
  const double dy = p2.y() - p1.y();
  if (!is_zero_difference(dx)) {
    l = line(dy / dx, -1.0, (p1.y() * p2.x() - p2.y() * p1.x()) / dx);
    return true;
  }
  if (is_zero_difference(dy)) {
    return false;
  }
  l = line(-1.0, 0.0, p2.x());  // the second point's x; the first may differ from it by less than the zero test
  return true;
}

void perpendicular_through(const CLineCoeffs& l, const Point2& p, CLineCoeffs& perpendicular) {
  const bool horizontal = is_zero_slope(l.a());
  const double a = horizontal ? -1.0 : l.b() / l.a();
  const double b = horizontal ? 0.0 : -1.0;
  perpendicular = line(a, b, -(b * p.y()) - a * p.x());
}

bool intersection(const CLineCoeffs& l1, const CLineCoeffs& l2, Point2& p) {
  const double det = l1.a() * l2.b() - l1.b() * l2.a();
  if (is_zero_difference(det)) {
    return false;
  }
  const double reciprocal = 1.0 / det;  // one division for both coordinates; two would round differently
  const double x = (l2.c() * l1.b() - l1.c() * l2.b()) * reciprocal;
  const double y = (l1.c() * l2.a() - l2.c() * l1.a()) * reciprocal;
  p = Point2(x, y);
  return true;
}

bool span_bisector(const Point2& p1, const Point2& p2, CLineCoeffs& bisector) {
  CLineCoeffs span;
  if (!line_through(p1, p2, span)) {
    return false;
  }
  // Not (x1 + x2)/2: this form rounds differently, and does not overflow where the sum would.
  const Point2 middle((p2.x() - p1.x()) * 0.5 + p1.x(), (p2.y() - p1.y()) * 0.5 + p1.y());
  perpendicular_through(span, middle, bisector);
  return true;
}

}  // namespace alidade

bool FindLineCoeffs(TAbstractPoint2<double> p1, TAbstractPoint2<double> p2, CLineCoeffs& line) {
  return alidade::line_through(p1, p2, line);
}

bool FindPerpendicular(CLineCoeffs line, TAbstractPoint2<double> p, CLineCoeffs& perp) {
  alidade::perpendicular_through(line, p, perp);
  return true;
}

bool FindLinesIntersection(CLineCoeffs l1, CLineCoeffs l2, TAbstractPoint2<double>& p) {
  return alidade::intersection(l1, l2, p);
}

bool GetSpanPerpendicular(TAbstractPoint2<double> p1, TAbstractPoint2<double> p2, CLineCoeffs& bisector) {
  return alidade::span_bisector(p1, p2, bisector);
}
