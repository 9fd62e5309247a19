#include "alignment.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "common/text.h"

namespace stakeout {
namespace {

constexpr double kFullTurn = 6.283185307179586;

// Points that are on a line but for the rounding of their coordinates make a circle of some size. No road is that
// straight and yet an arc.
constexpr double kLargestRadius = 1e7;

constexpr double kMostStakes = 1e5;
constexpr double kLongestAxis = 200e3;  // more is a wrong digit, and would make millions of stakes

// 90 degrees to the right of a direction.
Point to_the_right(const Point& direction) { return Point(direction.y(), -direction.x()); }

double length_of(const Point& v) { return v.Module(); }

// The angle at the centre from start to end in the sense of travel.
double sweep_of(const CArcParams& arc, bool turns_right) {
  const Point from(arc.start - arc.centre);
  const Point to(arc.end - arc.centre);
  const double counter_clockwise = std::atan2(from.x() * to.y() - from.y() * to.x(), from * to);
  const double sweep = turns_right ? -counter_clockwise : counter_clockwise;
  return sweep < 0.0 ? sweep + kFullTurn : sweep;
}

Element make_tangent(const ElementRequest& request, const Point& start) {
  const double length = length_of(Point(request.end - start));
  CLineCoeffs line;
  if (!FindLineCoeffs(start, request.end, line)) {
    fail(request.place, "expected a point other than the end of the element before");
  }
  return {false, false, start, request.end, CArcParams(), 0.0, length, 0.0};
}

Element make_arc(const ElementRequest& request, const CArcParams& arc, bool turns_right) {
  if (!(arc.radius < kLargestRadius)) {
    fail(request.place, "expected an arc, found points on a line");
  }
  const double sweep = sweep_of(arc, turns_right);
  return {true, turns_right, arc.start, arc.end, arc, sweep, sweep * arc.radius, 0.0};
}

Element make_arc_through_point(const ElementRequest& request, const Point& start) {
  CArcParams arc;
  if (!GetArc3PointsParams(start, request.end, request.via, arc)) {
    fail(request.place, "expected three different points of an arc, found points on a line");
  }
  return make_arc(request, arc, clockwise(start, request.via, request.end));
}

// The arc from start to the end asked for that touches the line of two points, in the order of travel, where the arc
// and the line meet.
Element make_tangent_arc(const ElementRequest& request, const Point& start, const Point& line_from,
                         const Point& line_to, const Point& touching) {
  const Point& other = touching == line_from ? line_to : line_from;
  CArcParams arc;
  if (!GetArcTangentParams(start, request.end, touching, other, arc)) {
    fail(request.place, "expected an arc that touches the tangent, found its ends on one line with it");
  }
  // The road bends to the side of the centre.
  return make_arc(request, arc, clockwise(line_from, line_to, arc.centre));
}

bool is_tangent(const std::vector<ElementRequest>& requests, std::size_t k) {
  return k < requests.size() && requests[k].kind == ElementKind::kTangent;
}

Element make_element(const RoadPlan& plan, std::size_t k, const Point& start, const std::vector<Element>& before) {
  const std::vector<ElementRequest>& requests = plan.elements;
  const ElementRequest& request = requests[k];
  switch (request.kind) {
    case ElementKind::kArcThroughPoint:
      return make_arc_through_point(request, start);
    case ElementKind::kArcFromTangent:
      if (k == 0 || !is_tangent(requests, k - 1)) {
        fail(request.place, "expected a TANGENT before ARC_FROM_TANGENT");
      }
      return make_tangent_arc(request, start, before.back().start, start, start);
    case ElementKind::kArcToTangent:
      if (!is_tangent(requests, k + 1)) {
        fail(request.place, "expected a TANGENT after ARC_TO_TANGENT");
      }
      return make_tangent_arc(request, start, request.end, requests[k + 1].end, request.end);
    case ElementKind::kTangent:
      break;
  }
  return make_tangent(request, start);
}

// The foot of the perpendicular from p, as a distance from the element's start; negative or more than the element's
// length where the foot is not on it.
double foot_on_straight(const Element& element, const Point& p) {
  CLineCoeffs line;
  CLineCoeffs perpendicular;
  Point foot = element.start;
  FindLineCoeffs(element.start, element.end, line);
  FindPerpendicular(line, p, perpendicular);
  FindLinesIntersection(line, perpendicular, foot);
  return Point(foot - element.start) * element.at(0.0).direction;
}

// On a circle the perpendicular is the radius through p.
double foot_on_arc(const Element& element, const Point& p) {
  CArcParams to_p = element.arc;
  to_p.end = p;
  const double angle = sweep_of(to_p, element.turns_right);
  // Beyond the end, or before the start: the nearer of the two.
  const double beyond = angle - element.sweep;
  const double before = kFullTurn - angle;
  return (beyond > 0.0 && before < beyond ? -before : angle) * element.arc.radius;
}

}  // namespace

AxisPoint Element::at(double distance) const {
  if (!is_arc) {
    const Point direction(Point(end - start) / length);
    return {Point(start + direction * distance), direction};
  }
  const Point from(start - arc.centre);
  const double turned = (turns_right ? -distance : distance) / arc.radius;
  const double angle = std::atan2(from.y(), from.x()) + turned;
  const Point outwards(std::cos(angle), std::sin(angle));
  const Point right = to_the_right(outwards);
  return {Point(arc.centre + outwards * arc.radius), turns_right ? right : Point(-right)};
}

Alignment::Alignment(const RoadPlan& plan) {
  Point start = plan.begin;
  double station = plan.begin_station;
  for (std::size_t k = 0; k < plan.elements.size(); ++k) {
    Element element = make_element(plan, k, start, elements_);
    element.station = station;
    start = element.end;
    station = element.end_station();
    const double length = station - plan.begin_station;
    if (length > kLongestAxis) {
      fail(plan.elements[k].place, demo::format("expected an axis of at most %.0f km, found one of %.0f km where this "
                                                "element ends",
                                                kLongestAxis / 1e3, length / 1e3));
    }
    elements_.push_back(element);
  }
}

AxisPoint Alignment::at(double station) const {
  const auto behind = std::upper_bound(elements_.begin() + 1, elements_.end(), station,
                                       [](double s, const Element& element) { return s < element.station; });
  const Element& element = *(behind - 1);
  return element.at(station - element.station);
}

double Alignment::kink(std::size_t k) const {
  if (k == 0) {
    return 0.0;
  }
  const Point in = elements_[k - 1].at(elements_[k - 1].length).direction;
  const Point out = elements_[k].at(0.0).direction;
  return -std::atan2(in.x() * out.y() - in.y() * out.x(), in * out);
}

ClosestPoint Alignment::closest(const Point& p) const {
  ClosestPoint best{};
  double best_distance = std::numeric_limits<double>::infinity();
  for (const Element& element : elements_) {
    const double foot = element.is_arc ? foot_on_arc(element, p) : foot_on_straight(element, p);
    const double on_element = std::clamp(foot, 0.0, element.length);
    const AxisPoint axis = element.at(on_element);
    const double distance = length_of(Point(p - axis.point));
    if (distance < best_distance) {
      best_distance = distance;
      const bool right = clockwise(axis.point, Point(axis.point + axis.direction), p);
      best = {element.station + on_element, right ? distance : -distance, axis.point, false};
      const bool before = &element == &elements_.front() && foot < 0.0;
      const bool behind = &element == &elements_.back() && foot > element.length;
      best.beyond_an_end = before || behind;
    }
  }
  return best;
}

std::vector<double> stake_stations(const RoadPlan& plan, const Alignment& alignment) {
  const double length = alignment.end_station() - alignment.begin_station();
  if (length / plan.interval > kMostStakes) {
    fail(plan.interval_place, demo::format("expected an interval of at least %.1f m for a road of %.0f m, or more than "
                                           "%.0f stakes would stand on it",
                                           std::ceil(length / kMostStakes * 10.0) / 10.0, length, kMostStakes));
  }
  std::vector<double> stations;
  for (const Element& element : alignment.elements()) {
    stations.push_back(element.station);
  }
  stations.push_back(alignment.end_station());
  // Counted, not added up: the thousandth station is as good as the first.
  const double first = std::ceil(alignment.begin_station() / plan.interval);
  for (double k = first; k * plan.interval <= alignment.end_station(); ++k) {
    stations.push_back(k * plan.interval);
  }
  std::sort(stations.begin(), stations.end());
  constexpr double kSame = 0.0005;  // half of the last digit printed
  stations.erase(std::unique(stations.begin(), stations.end(), [](double a, double b) { return b - a < kSame; }),
                 stations.end());
  return stations;
}

Stake make_stake(const Alignment& alignment, double station, double offset) {
  const AxisPoint axis = alignment.at(station);
  return {station, offset, Point(axis.point + to_the_right(axis.direction) * offset), azimuth_of(axis.direction)};
}

double azimuth_of(const Point& direction) {
  const double azimuth = std::atan2(direction.x(), direction.y());
  return azimuth < 0.0 ? azimuth + kFullTurn : azimuth;
}

}  // namespace stakeout
