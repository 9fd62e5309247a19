#ifndef STAKEOUT_SITE_PLAN_H
#define STAKEOUT_SITE_PLAN_H

// The drawing, laid out in picture units (x to the right, y down) but not yet written in any language.

#include <string>
#include <vector>

#include "alignment.h"
#include "common/label_placement.h"
#include "common/page.h"

namespace stakeout {

using demo::Box;
using demo::Label;
using demo::LabelStyle;
using demo::Segment;

constexpr LabelStyle kStationStyle{"label-station", 11, false};
constexpr LabelStyle kMainPointStyle{"label-main", 12, true};
constexpr LabelStyle kElementStyle{"label-element", 12, false};
constexpr LabelStyle kAsBuiltStyle{"label-asbuilt", 11, false};
constexpr LabelStyle kParcelStyle{"label-parcel", 13, true};
constexpr double kScaleBar = 160;  // pixels at most

// Consecutive straights and arcs, to be drawn as one line.
struct PathStep {
  bool is_arc;
  Point to;
  double radius;
  bool large;  // more than half a turn
  bool clockwise_on_page;
};

struct Path {
  Point from;
  std::vector<PathStep> steps;
};

struct SitePlan {
  std::string title;
  std::string subtitle;
  double width;
  double height;
  double scale;  // pixels per metre
  Box frame;
  std::vector<Point> parcel;
  Path axis;
  std::vector<Path> edges;
  std::vector<Segment> stakes;       // across the axis, from offset to offset
  std::vector<Point> stake_marks;    // the ends of the segments
  std::vector<Segment> main_points;  // longer ticks
  std::vector<Point> as_built;
  std::vector<Segment> perpendiculars;  // from as-built points that are off the road to the axis
  std::vector<Label> labels;
  Point north_arrow;  // its tip
  Point scale_bar;    // its left end
  Point legend;       // left end of its line
};

SitePlan make_site_plan(const RoadPlan& plan, const Alignment& alignment);

}  // namespace stakeout

#endif
