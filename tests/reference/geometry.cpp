#include "reference/geometry.h"

#include <cmath>

namespace reference {

bool line_coefficients(double x1, double y1, double x2, double y2, double line[3]) {
  const double dx = x2 - x1;
  if (std::fabs(dx) < 4.450147717014403e-308) {
    const double dy = y2 - y1;
    if (std::fabs(dy) < 4.450147717014403e-308) {
      return false;
    }
    line[0] = -1.0;
    line[1] = 0.0;
    line[2] = x2;
    return true;
  }
  line[0] = (y2 - y1) / dx;
  line[2] = (y1 * x2 - y2 * x1) / dx;
  line[1] = -1.0;
  return true;
}

bool perpendicular(const double line[3], double x, double y, double perp[3]) {
  double a, b;
  if (std::fabs(line[0]) < 6.675221575521604e-308) {
    a = -1.0;
    b = 0.0;
  } else {
    a = line[1] / line[0];
    b = -1.0;
  }
  const double by = b * y;
  const double ax = a * x;
  perp[0] = a;
  perp[1] = b;
  perp[2] = -by - ax;
  return true;
}

bool lines_intersection(const double l1[3], const double l2[3], double p[2]) {
  const double a1 = l1[0], b1 = l1[1], c1 = l1[2];
  const double a2 = l2[0], b2 = l2[1], c2 = l2[2];
  const double det = a1 * b2 - b1 * a2;
  if (std::fabs(det) < 4.450147717014403e-308) {
    return false;
  }
  const double r = 1.0 / det;
  p[0] = (c2 * b1 - c1 * b2) * r;
  p[1] = (c1 * a2 - c2 * a1) * r;
  return true;
}

bool bisector_of_span(double x1, double y1, double x2, double y2, double bisector[3]) {
  double line[3];
  if (!line_coefficients(x1, y1, x2, y2, line)) {
    return false;
  }
  const double xm = (x2 - x1) * 0.5 + x1;
  const double ym = (y2 - y1) * 0.5 + y1;
  return perpendicular(line, xm, ym, bisector);
}

bool arc_tangent(const double p1[2], const double p2[2], const double p3[2], const double p4[2], double arc[7]) {
  double bisector[3], tangent[3], normal[3], centre[2];
  if (!bisector_of_span(p1[0], p1[1], p2[0], p2[1], bisector)) {
    return false;
  }
  if (!line_coefficients(p3[0], p3[1], p4[0], p4[1], tangent)) {
    return false;
  }
  perpendicular(tangent, p3[0], p3[1], normal);
  if (!lines_intersection(bisector, normal, centre)) {
    return false;
  }
  arc[0] = centre[0];
  arc[1] = centre[1];
  arc[2] = p1[0];
  arc[3] = p1[1];
  arc[4] = p2[0];
  arc[5] = p2[1];
  arc[6] = std::sqrt((p1[1] - centre[1]) * (p1[1] - centre[1]) + (p1[0] - centre[0]) * (p1[0] - centre[0]));
  return true;
}

bool arc_through_three(const double p1[2], const double p2[2], const double p3[2], double arc[7]) {
  double first[3], second[3], centre[2];
  if (!bisector_of_span(p1[0], p1[1], p2[0], p2[1], first)) {
    return false;
  }
  if (!bisector_of_span(p2[0], p2[1], p3[0], p3[1], second)) {
    return false;
  }
  if (!lines_intersection(first, second, centre)) {
    return false;
  }
  const double dy = p1[1] - centre[1];
  const double dx = p1[0] - centre[0];
  arc[0] = centre[0];
  arc[1] = centre[1];
  arc[2] = p1[0];
  arc[3] = p1[1];
  arc[4] = p2[0];
  arc[5] = p2[1];
  arc[6] = std::sqrt(dy * dy + dx * dx);
  return true;
}

double cosine_of_angle(const double p0[2], const double p1[2], const double p2[2]) {
  const double dx1 = p1[0] - p0[0];
  const double dy1 = p1[1] - p0[1];
  const double l1 = std::sqrt(dy1 * dy1 + dx1 * dx1);
  const double dx2 = p2[0] - p0[0];
  const double dy2 = p2[1] - p0[1];
  const double d = std::sqrt(dy2 * dy2 + dx2 * dx2) * l1;
  if (d == 0.0) {
    return 1.0;
  }
  return (dy2 * dy1 + dx2 * dx1) / d;
}

double area_of_triangle(double x1, double y1, double x2, double y2, double x3, double y3) {
  return (((((x1 * y3 - y1 * x3) + y1 * x2) - x1 * y2) + y2 * x3) - x2 * y3) * 0.5;
}

}  // namespace reference
