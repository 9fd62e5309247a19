#ifndef STAKEOUT_ROAD_PLAN_H
#define STAKEOUT_ROAD_PLAN_H

// What the input file says, before anything is constructed.

#include <alidade/points.h>

#include <istream>
#include <string>
#include <vector>

#include "record.h"

namespace stakeout {

// x is east, y is north. Relative to RoadPlan::origin, because constructions in grid coordinates of seven digits would
// cost the last millimetres.
using Point = TAbstractPoint2<double>;

enum class ElementKind { kTangent, kArcThroughPoint, kArcFromTangent, kArcToTangent };

struct ElementRequest {
  ElementKind kind;
  Place place;
  Point via;  // of kArcThroughPoint
  Point end;
};

struct AsBuiltPoint {
  std::string name;
  Point point;
  double design_offset;  // to the right of the axis; negative to the left
};

struct Corner {
  std::string name;
  Point point;
};

struct RoadPlan {
  Place place;  // of BEGIN
  std::string title = "Road";
  Point origin;
  double begin_station = 0.0;
  Point begin;
  std::vector<ElementRequest> elements;
  double interval = 10.0;
  double offset_left = 3.5;
  double offset_right = 3.5;
  std::vector<AsBuiltPoint> as_built;
  std::vector<Corner> parcel;
};

// Reads the format that help_text() describes. Throws InputError for the first fault. name is how messages call the
// input.
RoadPlan read_road_plan(std::istream& input, const std::string& name);

// The same from a file.
RoadPlan read_road_plan_file(const std::string& path);

}  // namespace stakeout

#endif
