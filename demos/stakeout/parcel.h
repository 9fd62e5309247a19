#ifndef STAKEOUT_PARCEL_H
#define STAKEOUT_PARCEL_H

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

Parcel measure_parcel(const std::vector<Corner>& corners);

}  // namespace stakeout

#endif
