#ifndef ALIDADE_DEMOS_LABEL_PLACEMENT_H
#define ALIDADE_DEMOS_LABEL_PLACEMENT_H

#include <string>
#include <utility>
#include <vector>

#include "common/page.h"

namespace demo {

struct LabelStyle {
  const char* name;  // class of the style sheet
  double size;       // of the font
  bool bold;
};

struct Label {
  LabelStyle style;
  std::string text;
  Box box;       // the text stands in it, from edge to edge
  Point anchor;  // what it names
  bool leader;   // a line joins the two
};

struct LabelRequest {
  LabelStyle style;
  std::string text;
  Point anchor;
  double clearance;              // distance that the label keeps from its anchor at least
  Point preferred = Point(0.0);  // direction in which it should stand, of length 1; zero: any
  double leader_from = 10;       // gap beyond the clearance from which a line joins the two
  bool centred = false;          // stands on the anchor itself if it can
};

// What labels do not cover.
struct Obstacles {
  Box frame;                                 // its outside never
  std::vector<Box> solid;                    // never
  std::vector<std::pair<Box, double>> soft;  // if it can be helped: box and cost
  std::vector<Segment> lines;                // likewise
};

constexpr std::size_t kMostLabels = 300;  // nobody reads more in one plan, and each costs the time of all before it

// Places the labels one after the other, each where it hides least of some positions around its anchor. None overlaps
// another one or its leader. A label for which there is no room is left out, and so are all beyond the first
// kMostLabels.
std::vector<Label> place_labels(const std::vector<LabelRequest>& requests, const Obstacles& obstacles);

// Where a label's leader runs.
Segment leader_of(const Label& label);

}  // namespace demo

#endif
