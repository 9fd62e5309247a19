#ifndef NETWORK_ADJUSTMENT_LABEL_PLACEMENT_H
#define NETWORK_ADJUSTMENT_LABEL_PLACEMENT_H

#include <string>
#include <utility>
#include <vector>

#include "plan.h"

namespace network {

constexpr double kFontSize = 11;

// What labels keep clear of: never of the frame's outside and of one another, the rest as far as possible.
struct Surroundings {
  Box frame;
  std::vector<Box> symbols;
  std::vector<Box> ellipses;
  std::vector<std::pair<Point, Point>> lines;
};

struct LabelRequest {
  std::string text;
  Point anchor;
  double clearance;  // distance that the label keeps from its anchor at least
};

// Places as many of the labels as there is room for, the most crowded anchors first. Greedy: each label takes the best
// free one of some positions around its anchor.
std::vector<Label> place_labels(const std::vector<LabelRequest>& requests, const Surroundings& surroundings);

}  // namespace network

#endif
