#include <limits>

#include "geometry/lines.h"
#include "square_root.h"
#include "strict_arithmetic.h"

namespace alidade {
namespace {

double distance(const Point2& p, const Point2& centre) {
  const double dy = p.y() - centre.y();
  const double dx = p.x() - centre.x();
  return square_root(dy * dy + dx * dx);
}

// The arc from `start` to `end` about the point that the two lines have in common.
bool arc_about_intersection(const CLineCoeffs& l1, const CLineCoeffs& l2, const Point2& start, const Point2& end,
                            CArcParams& arc) {
  if (!intersection(l1, l2, arc.centre)) {
    return false;
  }
  arc.start = start;
  arc.end = end;
  arc.radius = distance(start, arc.centre);
  return true;
}

bool tangent_arc(const Point2& p1, const Point2& p2, const Point2& p3, const Point2& p4, CArcParams& arc) {
  CLineCoeffs bisector;
  CLineCoeffs tangent;
  if (!span_bisector(p1, p2, bisector) || !line_through(p3, p4, tangent)) {
    return false;
  }
  CLineCoeffs normal;
  perpendicular_through(tangent, p3, normal);
  return arc_about_intersection(bisector, normal, p1, p2, arc);
}

bool three_point_arc(const Point2& p1, const Point2& p2, const Point2& p3, CArcParams& arc) {
  CLineCoeffs bisector12;
  CLineCoeffs bisector23;
  if (!span_bisector(p1, p2, bisector12) || !span_bisector(p2, p3, bisector23)) {
    return false;
  }
  return arc_about_intersection(bisector12, bisector23, p1, p2, arc);
}

}  // namespace

}  // namespace alidade

CArcParams::CArcParams() : centre(0.0), start(0.0), end(0.0), radius(std::numeric_limits<double>::max()) {}

bool GetArcTangentParams(TAbstractPoint2<double> p1, TAbstractPoint2<double> p2, TAbstractPoint2<double> p3,
                         TAbstractPoint2<double> p4, CArcParams& arc) {
  return alidade::tangent_arc(p1, p2, p3, p4, arc);
}

bool GetArc3PointsParams(TAbstractPoint2<double> p1, TAbstractPoint2<double> p2, TAbstractPoint2<double> p3,
                         CArcParams& arc) {
  return alidade::three_point_arc(p1, p2, p3, arc);
}
