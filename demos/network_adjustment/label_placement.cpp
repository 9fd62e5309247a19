#include "label_placement.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace network {
namespace {

// Digits and capitals of common sans-serif fonts are at most this wide, in units of the font size.
constexpr double kCharacterWidth = 0.66;
constexpr double kPadding = 2;
constexpr double kLeaderFrom = 12;  // gap from which a line to the anchor is drawn
constexpr double kCrowded = 26;     // anchors nearer than this get lines at any gap
constexpr double kGaps[] = {0, 4, 9, 15, 22, 30, 40, 52, 66, 82};
constexpr int kDirections = 24;
constexpr double kNone = std::numeric_limits<double>::infinity();

using Segment = std::pair<Point, Point>;

bool inside(const Box& box, const Box& frame) {
  return box.left >= frame.left && box.right <= frame.right && box.top >= frame.top && box.bottom <= frame.bottom;
}

// Clips the segment's parameter range to the box, side by side (Liang and Barsky).
bool crosses(const Segment& segment, const Box& box) {
  const double dx = segment.second.x - segment.first.x;
  const double dy = segment.second.y - segment.first.y;
  double from = 0;
  double to = 1;
  const auto clip = [&](double direction, double distance) {
    if (direction == 0) {
      return distance >= 0;
    }
    const double at = distance / direction;
    if (direction < 0) {
      from = std::max(from, at);
    } else {
      to = std::min(to, at);
    }
    return from <= to;
  };
  return clip(-dx, segment.first.x - box.left) && clip(dx, box.right - segment.first.x) &&
         clip(-dy, segment.first.y - box.top) && clip(dy, box.bottom - segment.first.y);
}

Segment leader_of(const Label& label) {
  const Point end{std::clamp(label.anchor.x, label.box.left, label.box.right),
                  std::clamp(label.anchor.y, label.box.top, label.box.bottom)};
  return {label.anchor, end};
}

// Close neighbours leave a reader in doubt which one a label means.
bool is_crowded(const LabelRequest& request, const std::vector<LabelRequest>& requests) {
  return std::count_if(requests.begin(), requests.end(), [&](const LabelRequest& other) {
           return std::hypot(request.anchor.x - other.anchor.x, request.anchor.y - other.anchor.y) < kCrowded;
         }) > 1;
}

Label candidate(const LabelRequest& request, bool crowded, double gap, int direction) {
  const double width = kCharacterWidth * kFontSize * static_cast<double>(request.text.size()) + 2 * kPadding;
  const double height = kFontSize + 2 * kPadding;
  const double angle = direction * 6.283185307179586 / kDirections;
  const double distance = request.clearance + gap;
  const Point centre{request.anchor.x + std::cos(angle) * (distance + width / 2),
                     request.anchor.y + std::sin(angle) * (distance + height / 2)};
  return {request.text,
          {centre.x - width / 2, centre.y - height / 2, centre.x + width / 2, centre.y + height / 2},
          request.anchor,
          crowded || gap >= kLeaderFrom};
}

// What a label at that place hides; kNone where it must not stand.
double cost(const Label& label, double gap, const std::vector<Label>& placed, const Surroundings& surroundings) {
  if (!inside(label.box, surroundings.frame)) {
    return kNone;
  }
  const Segment leader = leader_of(label);
  double sum = gap;
  for (const Label& other : placed) {
    if (overlap(label.box, other.box)) {
      return kNone;
    }
    if (label.leader && crosses(leader, other.box)) {
      return kNone;
    }
    if (other.leader && crosses(leader_of(other), label.box)) {
      return kNone;
    }
  }
  for (const Box& symbol : surroundings.symbols) {
    sum += overlap(label.box, symbol) ? 200 : 0;
  }
  for (const Box& ellipse : surroundings.ellipses) {
    sum += overlap(label.box, ellipse) ? 80 : 0;
  }
  for (const Segment& line : surroundings.lines) {
    sum += crosses(line, label.box) ? 5 : 0;
  }
  return sum;
}

double crowding(const Point& anchor, const std::vector<LabelRequest>& requests) {
  double sum = 0;
  for (const LabelRequest& other : requests) {
    const double dx = (anchor.x - other.anchor.x) / 60;
    const double dy = (anchor.y - other.anchor.y) / 25;
    sum += 1 / (1 + dx * dx + dy * dy);
  }
  return sum;
}

}  // namespace

std::vector<Label> place_labels(const std::vector<LabelRequest>& requests, const Surroundings& surroundings) {
  std::vector<LabelRequest> order = requests;
  std::stable_sort(order.begin(), order.end(), [&](const LabelRequest& a, const LabelRequest& b) {
    return crowding(a.anchor, requests) > crowding(b.anchor, requests);
  });
  std::vector<Label> placed;
  for (const LabelRequest& request : order) {
    Label best{};
    double best_cost = kNone;
    const bool crowded = is_crowded(request, requests);
    for (const double gap : kGaps) {
      for (int direction = 0; direction < kDirections; ++direction) {
        const Label label = candidate(request, crowded, gap, direction);
        const double label_cost = cost(label, gap, placed, surroundings);
        if (label_cost < best_cost) {
          best = label;
          best_cost = label_cost;
        }
      }
    }
    if (best_cost < kNone) {
      placed.push_back(best);
    }
  }
  return placed;
}

}  // namespace network
