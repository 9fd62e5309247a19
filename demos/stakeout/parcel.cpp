#include "parcel.h"

#include <alidade/geometry.h>

#include <algorithm>
#include <cmath>

namespace stakeout {

namespace {

constexpr double kFullTurn = 6.283185307179586;

// cosphi is not clamped and knows no side: the turning sense at the corner tells a reflex angle.
double inner_angle(const Point& before, const Point& corner, const Point& after, bool clockwise_parcel) {
  const double angle = std::acos(std::clamp(cosphi(corner, before, after), -1.0, 1.0));
  const double turn = triangle_area(before, corner, after);
  const bool reflex = clockwise_parcel ? turn < 0.0 : turn > 0.0;
  return reflex ? kFullTurn - angle : angle;
}

}  // namespace

Parcel measure_parcel(const std::vector<Corner>& corners) {
  Parcel parcel{};
  const std::size_t n = corners.size();
  double sum = 0.0;
  Point moment(0.0);
  for (std::size_t i = 1; i + 1 < n; ++i) {
    const double area = triangle_area(corners[0].point, corners[i].point, corners[i + 1].point);
    parcel.triangles.push_back(area);
    sum += area;
    moment += (corners[0].point + corners[i].point + corners[i + 1].point) * (area / 3.0);
  }
  parcel.area = std::fabs(sum);
  parcel.clockwise = sum > 0.0;
  parcel.centroid = sum == 0.0 ? corners[0].point : Point(moment / sum);
  for (std::size_t i = 0; i < n; ++i) {
    const Point& corner = corners[i].point;
    const Point& after = corners[(i + 1) % n].point;
    parcel.corners.push_back({corners[i].name,
                              inner_angle(corners[(i + n - 1) % n].point, corner, after, parcel.clockwise),
                              Point(after - corner).Module()});
  }
  return parcel;
}

}  // namespace stakeout
