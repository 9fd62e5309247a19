#include "common/page.h"

#include <algorithm>
#include <cmath>

namespace demo {

// Clips the segment's parameter range to the box, side by side (Liang and Barsky).
bool crosses(const Segment& segment, const Box& box) {
  const double dx = segment.to.x() - segment.from.x();
  const double dy = segment.to.y() - segment.from.y();
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
  return clip(-dx, segment.from.x() - box.left()) && clip(dx, box.right() - segment.from.x()) &&
         clip(-dy, segment.from.y() - box.top()) && clip(dy, box.bottom() - segment.from.y());
}

double round_down(double value) {
  const double decade = std::pow(10.0, std::floor(std::log10(value)));
  for (const double step : {5.0, 2.0}) {
    if (step * decade <= value) {
      return step * decade;
    }
  }
  return decade;
}

}  // namespace demo
