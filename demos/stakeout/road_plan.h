#ifndef STAKEOUT_ROAD_PLAN_H
#define STAKEOUT_ROAD_PLAN_H

// What the input file says, before anything is constructed.

#include <istream>
#include <string>
#include <vector>

#include "common/page.h"
#include "common/record.h"

namespace stakeout {

// x is east, y is north. Relative to RoadPlan::origin, because constructions in grid coordinates of seven digits would
// cost the last millimetres.
using demo::InputError;
using demo::Place;
using demo::Point;

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
  double design_offset;
};

struct Corner {
  Place place;
  std::string name;
  Point point;
};

struct RoadPlan {
  std::string title = "Road";
  Point origin;
  double begin_station = 0.0;
  Point begin;
  std::vector<ElementRequest> elements;
  double interval = 10.0;
  Place interval_place;
  double offset_left = -3.5;  // to the right of the axis, as all offsets
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
