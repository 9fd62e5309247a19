#ifndef STAKEOUT_PARCEL_H
#define STAKEOUT_PARCEL_H

#include <cstddef>
#include <vector>

#include "road_plan.h"

namespace stakeout {

struct ParcelCorner {
  std::string name;
  double inner_angle;  // radians, 0 to a full turn
  double side;         // to the next corner
};

struct Parcel {
  std::vector<double> triangles;  // signed areas of the fan from the first corner, clockwise positive
  double area;
  bool clockwise;
  Point centroid;
  std::vector<ParcelCorner> corners;
};

// The first two sides that have a point in common without being neighbours, or that run back upon one another; side k
// begins at corner k. Both are the number of corners where there are none, and the corners enclose an area.
struct SidePair {
  std::size_t first;
  std::size_t second;
};
SidePair find_crossing(const std::vector<Corner>& corners);

// Of corners whose sides do not cross.
Parcel measure_parcel(const std::vector<Corner>& corners);

}  // namespace stakeout

#endif
