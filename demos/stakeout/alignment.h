#ifndef STAKEOUT_ALIGNMENT_H
#define STAKEOUT_ALIGNMENT_H

// The axis of the road: straights and arcs one after the other, addressed by the station, the length along the axis.

#include <alidade/geometry.h>

#include <vector>

#include "road_plan.h"

namespace stakeout {

// A place on the axis and the direction of travel there, a vector of length 1.
struct AxisPoint {
  Point point;
  Point direction;
};

struct Element {
  bool is_arc;
  bool turns_right;  // of an arc
  Point start;
  Point end;
  CArcParams arc;  // of an arc
  double sweep;    // of an arc: the angle at the centre, 0 to a full turn
  double length;
  double station;  // of the start

  double end_station() const { return station + length; }

  // The place at a distance from the start.
  AxisPoint at(double distance) const;
};

struct ClosestPoint {
  double station;
  double offset;  // to the right of the axis; negative to the left
  Point foot;
  bool beyond_an_end;  // no perpendicular meets the axis; the foot is one of its ends
};

class Alignment {
public:
  // Throws InputError where the points of an element make none, and where the axis becomes longer than 200 km.
  explicit Alignment(const RoadPlan& plan);

  const std::vector<Element>& elements() const { return elements_; }
  double begin_station() const { return elements_.front().station; }
  double end_station() const { return elements_.back().end_station(); }

  // The place at a station. Stations beyond an end continue the first or last element.
  AxisPoint at(double station) const;

  // The change of direction where element k begins, radians, positive to the right: 0 up to rounding in a road that
  // can be driven.
  double kink(std::size_t k) const;

  // The foot of the shortest perpendicular from a point to the axis.
  ClosestPoint closest(const Point& p) const;

private:
  std::vector<Element> elements_;
};

// A stake of the road.
struct Stake {
  double station;
  double offset;  // to the right of the axis; negative to the left
  Point point;
  double azimuth;  // of the axis, clockwise from north, 0 to a full turn
};

// Where stakes stand: at the main points and at the multiples of the interval in between, in order. Throws InputError
// when they are more than 100,000.
std::vector<double> stake_stations(const RoadPlan& plan, const Alignment& alignment);

Stake make_stake(const Alignment& alignment, double station, double offset);

// Clockwise from north, 0 to a full turn.
double azimuth_of(const Point& direction);

}  // namespace stakeout

#endif
