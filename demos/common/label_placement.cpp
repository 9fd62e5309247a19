#include "common/label_placement.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace demo {
namespace {

// Characters of common sans-serif fonts are at most this wide on average, in units of the font size.
constexpr double kCharacterWidth = 0.64;
constexpr double kBoldCharacterWidth = 0.7;
constexpr double kPadding = 2;
constexpr double kGaps[] = {0, 4, 9, 15, 22, 30, 40, 52, 66, 82};
constexpr int kDirections = 24;
constexpr double kLineCost = 5;
constexpr double kTurnedCost = 6;  // of a label beside its preferred direction; twice that behind
constexpr double kImpossible = std::numeric_limits<double>::infinity();

Label candidate(const LabelRequest& request, const Point& direction, double gap) {
  const LabelStyle& style = request.style;
  const double width = (style.bold ? kBoldCharacterWidth : kCharacterWidth) * style.size;
  const double half_width = width * static_cast<double>(request.text.size()) / 2 + kPadding;
  const double half_height = style.size / 2 + kPadding;
  // The centre goes out until the box keeps the distance, on an ellipse, so that labels stand beside their anchors.
  const double distance = request.clearance + gap;
  const Point out = request.centred
                        ? Point(direction * gap)
                        : Point(direction.x() * (distance + half_width), direction.y() * (distance + half_height));
  return {style, request.text, box_around(Point(request.anchor + out), half_width, half_height), request.anchor,
          !request.centred && gap >= request.leader_from};
}

bool hide_one_another(const Label& a, const Label& b) {
  return overlap(a.box, b.box) || (a.leader && crosses(leader_of(a), b.box)) ||
         (b.leader && crosses(leader_of(b), a.box));
}

// What a label at that place hides.
double cost(const Label& label, const std::vector<Label>& placed, const Obstacles& obstacles, double limit) {
  const Box& box = label.box;
  const auto hidden = [&](const Label& other) { return hide_one_another(label, other); };
  const auto covered = [&](const Box& other) { return overlap(box, other); };
  if (!obstacles.frame.Contains(box) || std::any_of(obstacles.solid.begin(), obstacles.solid.end(), covered) ||
      std::any_of(placed.begin(), placed.end(), hidden)) {
    return kImpossible;
  }
  double sum = 0;
  for (const auto& [other, weight] : obstacles.soft) {
    sum += overlap(box, other) ? weight : 0;
  }
  for (auto line = obstacles.lines.begin(); line != obstacles.lines.end() && sum < limit; ++line) {
    sum += crosses(*line, box) ? kLineCost : 0;
  }
  return sum;
}

}  // namespace

Segment leader_of(const Label& label) {
  return {label.anchor, Point(std::clamp(label.anchor.x(), label.box.left(), label.box.right()),
                              std::clamp(label.anchor.y(), label.box.top(), label.box.bottom()))};
}

std::vector<Label> place_labels(const std::vector<LabelRequest>& requests, const Obstacles& obstacles) {
  std::vector<Label> placed;
  for (std::size_t i = 0; i < std::min(requests.size(), kMostLabels); ++i) {
    const LabelRequest& request = requests[i];
    Label best{};
    double least = kImpossible;
    for (const double gap : kGaps) {
      for (int k = 0; k < kDirections && gap < least; ++k) {
        const double angle = k * 6.283185307179586 / kDirections;
        const Point direction(std::cos(angle), std::sin(angle));
        const double turned = request.preferred == 0.0 ? 0.0 : kTurnedCost * 2 * (1 - direction * request.preferred);
        const Label label = candidate(request, direction, gap);
        const double label_cost = gap + turned + cost(label, placed, obstacles, least);
        if (label_cost < least) {
          least = label_cost;
          best = label;
        }
      }
    }
    if (least < kImpossible) {
      placed.push_back(best);
    }
  }
  return placed;
}

}  // namespace demo
