#include "label_placement.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace stakeout {

namespace {

// Digits and small letters of common sans-serif fonts are at most this wide on average, in units of the font size.
constexpr double kCharacterWidth = 0.6;
constexpr double kBoldCharacterWidth = 0.68;
constexpr double kPadding = 2.0;
constexpr double kLeaderFrom = 10.0;  // gap from which a line to the anchor is drawn
constexpr double kGaps[] = {0.0, 4.0, 9.0, 15.0, 22.0, 30.0, 40.0, 52.0, 66.0};
constexpr int kDirections = 24;
constexpr double kImpossible = std::numeric_limits<double>::infinity();

double text_width(LabelStyle style, const std::string& text) {
  const bool bold = style == LabelStyle::kMainPoint || style == LabelStyle::kParcel;
  return (bold ? kBoldCharacterWidth : kCharacterWidth) * font_size(style) * static_cast<double>(text.size());
}

Label candidate(const LabelRequest& request, const Point& direction, double gap) {
  const Point half(text_width(request.style, request.text) / 2.0 + kPadding, font_size(request.style) / 2.0 + kPadding);
  const bool on_anchor = request.preferred == 0.0;
  const double distance = on_anchor ? gap : request.clearance + gap;
  // The centre goes out until the box, not the centre, keeps the distance.
  const double reach = on_anchor ? 0.0
                                 : std::min(half.x() / std::max(std::fabs(direction.x()), 1e-9),
                                            half.y() / std::max(std::fabs(direction.y()), 1e-9));
  const Point centre(request.anchor + direction * (distance + reach));
  return {request.style, request.text, Box(Point(centre - half), Point(centre + half)), request.anchor,
          !on_anchor && gap >= kLeaderFrom};
}

double cost(const LabelRequest& request, const Label& label, const Point& direction, double gap,
            const std::vector<Label>& placed, const Obstacles& obstacles) {
  if (!obstacles.frame.Contains(label.box)) {
    return kImpossible;
  }
  const auto hits = [&label](const Box& box) { return overlap(label.box, box); };
  if (std::any_of(placed.begin(), placed.end(), [&hits](const Label& other) { return hits(other.box); }) ||
      std::any_of(obstacles.solid.begin(), obstacles.solid.end(), hits)) {
    return kImpossible;
  }
  const auto covered = std::count_if(obstacles.sparing.begin(), obstacles.sparing.end(), hits);
  const double turned = 1.0 - direction * request.preferred;  // 0 ahead, 2 behind
  return gap + 12.0 * turned + 8.0 * static_cast<double>(covered);
}

}  // namespace

double font_size(LabelStyle style) {
  switch (style) {
    case LabelStyle::kParcel:
      return 13.0;
    case LabelStyle::kMainPoint:
    case LabelStyle::kElement:
      return 12.0;
    default:
      return 11.0;
  }
}

bool overlap(const Box& a, const Box& b) {
  Box common(a);
  common &= b;
  return !common.IsEmpty();
}

std::vector<Label> place_labels(const std::vector<LabelRequest>& requests, const Obstacles& obstacles) {
  std::vector<Label> placed;
  for (const LabelRequest& request : requests) {
    Label best{};
    double least = kImpossible;
    for (const double gap : kGaps) {
      for (int k = 0; k < kDirections; ++k) {
        const double angle = k * 6.283185307179586 / kDirections;
        const Point direction(std::cos(angle), std::sin(angle));
        const Label label = candidate(request, direction, gap);
        const double label_cost = cost(request, label, direction, gap, placed, obstacles);
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

}  // namespace stakeout
