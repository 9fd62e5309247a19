#ifndef ALIDADE_TESTS_GOLDEN_LITERAL_GEOMETRY_H
#define ALIDADE_TESTS_GOLDEN_LITERAL_GEOMETRY_H

#include "golden/literal/points.h"
#include "reference/geometry.h"

struct CLineCoeffs : Elements<3> {};

struct CArcParams : Elements<7> {
  CArcParams() : Elements<7>{{0, 0, 0, 0, 0, 0, 1.7976931348623157e308}} {}
};

namespace literal {
using P = const TAbstractPoint2<double>&;
}

inline bool FindLineCoeffs(literal::P p, literal::P q, CLineCoeffs& line) {
  return reference::line_coefficients(p.x(), p.y(), q.x(), q.y(), line.v);
}
inline bool FindPerpendicular(const CLineCoeffs& line, literal::P p, CLineCoeffs& perpendicular) {
  return reference::perpendicular(line.v, p.x(), p.y(), perpendicular.v);
}
inline bool FindLinesIntersection(const CLineCoeffs& l1, const CLineCoeffs& l2, TAbstractPoint2<double>& p) {
  return reference::lines_intersection(l1.v, l2.v, p.v);
}
inline bool GetSpanPerpendicular(literal::P p, literal::P q, CLineCoeffs& bisector) {
  return reference::bisector_of_span(p.x(), p.y(), q.x(), q.y(), bisector.v);
}
inline bool GetArcTangentParams(literal::P p1, literal::P p2, literal::P p3, literal::P p4, CArcParams& arc) {
  return reference::arc_tangent(p1.v, p2.v, p3.v, p4.v, arc.v);
}
inline bool GetArc3PointsParams(literal::P p1, literal::P p2, literal::P p3, CArcParams& arc) {
  return reference::arc_through_three(p1.v, p2.v, p3.v, arc.v);
}
inline double cosphi(literal::P p0, literal::P p1, literal::P p2) {
  return reference::cosine_of_angle(p0.v, p1.v, p2.v);
}
inline double triangle_area(double x1, double y1, double x2, double y2, double x3, double y3) {
  return reference::area_of_triangle(x1, y1, x2, y2, x3, y3);
}
inline double triangle_area(literal::P a, literal::P b, literal::P c) {
  return triangle_area(a.x(), a.y(), b.x(), b.y(), c.x(), c.y());
}
inline bool clockwise(literal::P a, literal::P b, literal::P c) { return triangle_area(a, b, c) > 0.0; }

#endif
