// Two straights of a road meet at a point that cannot be reached. Where is it, where does a curve of radius 200 m begin
// and end, and where do stakes stand on the curve every 25 m?

#include <alidade/geometry.h>

#include <cmath>
#include <cstdio>

using Point = TAbstractPoint2<double>;  // x east, y north

namespace {

void print(const char* label, const Point& p) { std::printf("%-12s east %9.3f  north %9.3f\n", label, p.x(), p.y()); }

Point towards(const Point& from, const Point& to, double distance) {
  const Point difference(to - from);
  return Point(from + difference * (distance / difference.Module()));
}

}  // namespace

int main() {
  // Two points of each straight, in the order of travel, metres from a point of the site.
  const Point a(120.000, 80.000), b(262.500, 154.300), c(587.200, 131.900), d(702.400, 60.500);
  const double radius = 200.0;

  CLineCoeffs first, second;
  Point meeting;
  if (!FindLineCoeffs(a, b, first) || !FindLineCoeffs(c, d, second) || !FindLinesIntersection(first, second, meeting)) {
    return 1;
  }
  print("intersection", meeting);

  // The tangents are as long as the radius times the tangent of half the turn.
  const double turn = std::acos(-cosphi(meeting, a, d));
  const double tangent = radius * std::tan(turn / 2.0);
  const Point begin = towards(meeting, a, tangent);
  const Point end = towards(meeting, d, tangent);
  print("begin", begin);
  print("end", end);

  // The arc between the two that touches the first straight at its begin; so it touches the second one, too.
  CArcParams arc;
  if (!GetArcTangentParams(begin, end, begin, meeting, arc)) {
    return 1;
  }
  print("centre", arc.centre);
  const bool right = clockwise(a, meeting, d);
  std::printf("turns %s by %.4f degrees, radius %.3f m, length %.3f m\n", right ? "right" : "left",
              turn * 57.29577951308232, arc.radius, radius * turn);

  const Point out(begin - arc.centre);
  for (int k = 1; 25.0 * k < radius * turn; ++k) {
    const double angle = (right ? -1.0 : 1.0) * 25.0 * k / radius;
    const Point stake(arc.centre.x() + out.x() * std::cos(angle) - out.y() * std::sin(angle),
                      arc.centre.y() + out.x() * std::sin(angle) + out.y() * std::cos(angle));
    std::printf("stake at %3d m: east %9.3f  north %9.3f\n", 25 * k, stake.x(), stake.y());
  }
  return 0;
}
