#ifndef ALIDADE_TESTS_REFERENCE_GEOMETRY_H
#define ALIDADE_TESTS_REFERENCE_GEOMETRY_H

// Plane constructions on plain numbers, step for step as they must be rounded. A line is {a, b, c}; an arc is
// {xc, yc, x1, y1, x2, y2, radius}. On false the result is untouched.

namespace reference {

bool line_coefficients(double x1, double y1, double x2, double y2, double line[3]);
bool perpendicular(const double line[3], double x, double y, double perp[3]);
bool lines_intersection(const double l1[3], const double l2[3], double p[2]);
bool bisector_of_span(double x1, double y1, double x2, double y2, double bisector[3]);
bool arc_tangent(const double p1[2], const double p2[2], const double p3[2], const double p4[2], double arc[7]);
bool arc_through_three(const double p1[2], const double p2[2], const double p3[2], double arc[7]);
double cosine_of_angle(const double p0[2], const double p1[2], const double p2[2]);
double area_of_triangle(double x1, double y1, double x2, double y2, double x3, double y3);

}  // namespace reference

#endif
