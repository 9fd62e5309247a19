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
  const double area = triangle_area(before, corner, after);
  const bool reflex = clockwise_parcel ? area < 0.0 : area > 0.0;
  return reflex ? kFullTurn - angle : angle;
}

// 1 when the corners a, b, c turn right, -1 left, 0 on a line.
int turn(const Point& a, const Point& b, const Point& c) {
  const double area = triangle_area(Point(0.0), Point(b - a), Point(c - a));  // rounded less than from afar
  return area > 0.0 ? 1 : area < 0.0 ? -1 : 0;
}

// For p on the line of a and b.
bool between(const Point& p, const Point& a, const Point& b) { return Point(a - p) * Point(b - p) <= 0.0; }

bool have_a_common_point(const Point& a, const Point& b, const Point& c, const Point& d) {
  const int abc = turn(a, b, c);
  const int abd = turn(a, b, d);
  const int cda = turn(c, d, a);
  const int cdb = turn(c, d, b);
  if (abc * abd < 0 && cda * cdb < 0) {
    return true;
  }
  return (abc == 0 && between(c, a, b)) || (abd == 0 && between(d, a, b)) || (cda == 0 && between(a, c, d)) ||
         (cdb == 0 && between(b, c, d));
}

}  // namespace

SidePair find_crossing(const std::vector<Corner>& corners) {
  const std::size_t n = corners.size();
  const auto at = [&](std::size_t k) -> const Point& { return corners[k % n].point; };
  for (std::size_t i = 0; i < n; ++i) {
    // Neighbours share a corner. They run back upon one another when the next corner lies on the side, or on its
    // continuation to the other end.
    if (turn(at(i), at(i + 1), at(i + 2)) == 0 && Point(at(i) - at(i + 1)) * Point(at(i + 2) - at(i + 1)) >= 0.0) {
      return {i, (i + 1) % n};
    }
    for (std::size_t k = i + 2; k < n && k + 1 < i + n; ++k) {
      if (have_a_common_point(at(i), at(i + 1), at(k), at(k + 1))) {
        return {i, k};
      }
    }
  }
  return {n, n};
}

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
  parcel.centroid = Point(moment / sum);
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
