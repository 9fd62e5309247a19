#ifndef ALIDADE_DEMOS_PAGE_H
#define ALIDADE_DEMOS_PAGE_H

// Points, boxes and lines on a page: x to the right, y downwards, in pixels. A box runs from its left top corner to its
// right bottom one.

#include <alidade/points.h>

namespace demo {

using Point = TAbstractPoint2<double>;
using Box = TAbstractRect<double>;

struct Segment {
  Point from;
  Point to;
};

inline Point centre_of(const Box& box) { return {(box.left() + box.right()) / 2, (box.top() + box.bottom()) / 2}; }

inline Box box_around(const Point& p, double half_width, double half_height) {
  return {p.x() - half_width, p.y() - half_height, p.x() + half_width, p.y() + half_height};
}

// Have they more than an edge in common?
inline bool overlap(const Box& a, const Box& b) {
  return a.left() < b.right() && b.left() < a.right() && a.top() < b.bottom() && b.top() < a.bottom();
}

// Does the segment meet the box?
bool crosses(const Segment& segment, const Box& box);

// The largest of 1, 2, 5, 10, 20, ... (times powers of ten) that is not above value > 0.
double round_down(double value);

}  // namespace demo

#endif
