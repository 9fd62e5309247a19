#include "reference/rectangles.h"

namespace reference {

Rectangle rectangle_of_corner_and_size(double x, double y, double cx, double cy) { return {x, y, x + cx, y + cy}; }

double rectangle_width(Rectangle r) { return r.right - r.left; }

double rectangle_height(Rectangle r) { return r.bottom - r.top; }

double rectangle_area(Rectangle r) { return (r.bottom - r.top) * (r.right - r.left); }

bool rectangle_is_empty(Rectangle r) {
  if (r.left < r.right) {
    if (r.top < r.bottom) {
      return false;
    }
  }
  return true;
}

bool rectangle_is_valid(Rectangle r, double marker) {
  if (r.left == marker) {
    return false;
  }
  if (r.top == marker) {
    return false;
  }
  if (r.right == marker) {
    return false;
  }
  if (r.bottom == marker) {
    return false;
  }
  return true;
}

bool rectangle_contains_point(Rectangle r, double x, double y) {
  bool inside = r.left <= x;
  inside = inside && x <= r.right;
  inside = inside && r.top <= y;
  inside = inside && y <= r.bottom;
  return inside;
}

bool rectangle_contains(Rectangle r, Rectangle inner) {
  const bool first = rectangle_contains_point(r, inner.left, inner.top);
  const bool second = rectangle_contains_point(r, inner.right, inner.bottom);
  return first && second;
}

Rectangle rectangle_offset(Rectangle r, double dx, double dy) {
  r.left += dx;
  r.right += dx;
  r.top += dy;
  r.bottom += dy;
  return r;
}

Rectangle rectangle_move(Rectangle r, double x, double y) {
  const double dx = x - r.left;
  const double dy = y - r.top;
  return {r.left + dx, r.top + dy, r.right + dx, r.bottom + dy};
}

Rectangle rectangle_inflate(Rectangle r, double dx, double dy) {
  r.left -= dx;
  r.top -= dy;
  r.right += dx;
  r.bottom += dy;
  return r;
}

Rectangle rectangle_normalize_in_place(Rectangle r) {
  Rectangle n = r;
  if (r.left > r.right) {
    n.left = r.right;
    n.right = r.left;
  }
  if (r.top > r.bottom) {
    n.top = r.bottom;
    n.bottom = r.top;
  }
  return n;
}

Rectangle rectangle_normalized_copy(Rectangle r) {
  Rectangle n;
  n.left = (r.right < r.left) ? r.right : r.left;
  n.right = (r.left < r.right) ? r.right : r.left;
  n.top = (r.bottom < r.top) ? r.bottom : r.top;
  n.bottom = (r.top < r.bottom) ? r.bottom : r.top;
  return n;
}

Rectangle rectangle_intersect(Rectangle r, Rectangle o) {
  Rectangle n = r;
  if (o.left > r.left) {
    n.left = o.left;
  }
  if (o.top > r.top) {
    n.top = o.top;
  }
  if (o.right < r.right) {
    n.right = o.right;
  }
  if (o.bottom < r.bottom) {
    n.bottom = o.bottom;
  }
  return n;
}

Rectangle rectangle_unite(Rectangle r, Rectangle o) {
  Rectangle n = r;
  if (o.left < r.left) {
    n.left = o.left;
  }
  if (o.top < r.top) {
    n.top = o.top;
  }
  if (o.right > r.right) {
    n.right = o.right;
  }
  if (o.bottom > r.bottom) {
    n.bottom = o.bottom;
  }
  return n;
}

}  // namespace reference
