#ifndef ALIDADE_TESTS_REFERENCE_RECTANGLES_H
#define ALIDADE_TESTS_REFERENCE_RECTANGLES_H

namespace reference {

struct Rectangle {
  double left, top, right, bottom;
};

Rectangle rectangle_of_corner_and_size(double x, double y, double cx, double cy);
double rectangle_width(Rectangle r);
double rectangle_height(Rectangle r);
double rectangle_area(Rectangle r);
bool rectangle_is_empty(Rectangle r);
bool rectangle_is_valid(Rectangle r, double marker);
bool rectangle_contains_point(Rectangle r, double x, double y);
bool rectangle_contains(Rectangle r, Rectangle inner);
Rectangle rectangle_offset(Rectangle r, double dx, double dy);
Rectangle rectangle_move(Rectangle r, double x, double y);
Rectangle rectangle_inflate(Rectangle r, double dx, double dy);
Rectangle rectangle_normalize_in_place(Rectangle r);
Rectangle rectangle_normalized_copy(Rectangle r);
Rectangle rectangle_intersect(Rectangle r, Rectangle o);
Rectangle rectangle_unite(Rectangle r, Rectangle o);

}  // namespace reference

#endif
