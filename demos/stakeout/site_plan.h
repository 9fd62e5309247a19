#ifndef STAKEOUT_SITE_PLAN_H
#define STAKEOUT_SITE_PLAN_H

// The drawing, laid out in picture units (x to the right, y down) but not yet written in any language.

#include <alidade/points.h>

#include <string>
#include <vector>

#include "alignment.h"

namespace stakeout {

using Box = TAbstractRect<double>;

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

struct Segment {
  Point from;
  Point to;
};

enum class LabelStyle { kStation, kMainPoint, kElement, kAsBuilt, kParcel };

struct Label {
  LabelStyle style;
  std::string text;
  Box box;       // the text stands in it, from edge to edge
  Point anchor;  // what it names
  bool leader;   // a line joins the two
};

struct SitePlan {
  std::string title;
  std::string subtitle;
  double width;
  double height;
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
  double scale_bar_length;
  double scale_bar_metres;
  Point legend;  // left end of its line
};

SitePlan make_site_plan(const RoadPlan& plan, const Alignment& alignment);

}  // namespace stakeout

#endif
