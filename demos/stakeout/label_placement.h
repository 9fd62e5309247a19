#ifndef STAKEOUT_LABEL_PLACEMENT_H
#define STAKEOUT_LABEL_PLACEMENT_H

#include <string>
#include <vector>

#include "site_plan.h"

namespace stakeout {

struct LabelRequest {
  LabelStyle style;
  std::string text;
  Point anchor;
  Point preferred;   // direction in which the label should stand, of length 1, or zero: on the anchor itself
  double clearance;  // distance that it keeps from the anchor at least
};

// What labels do not cover.
struct Obstacles {
  Box frame;
  std::vector<Box> solid;    // never
  std::vector<Box> sparing;  // if it can be helped
};

// Places the labels one after the other, each where it hides least; none overlaps another, and a label for which there
// is no room is left out.
std::vector<Label> place_labels(const std::vector<LabelRequest>& requests, const Obstacles& obstacles);

double font_size(LabelStyle style);

// True when the two have more than an edge in common.
bool overlap(const Box& a, const Box& b);

}  // namespace stakeout

#endif
