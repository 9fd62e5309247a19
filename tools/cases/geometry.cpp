#include "golden/functions.h"
#include "subject.h"

namespace golden {
namespace {

using Point2 = TAbstractPoint2<double>;

// An output argument as it is before the call: a failing function must leave it so.
template <class T>
T untouched() {
  T record;
  for (double* field : fields(record)) {
    *field = 7.5;
  }
  return record;
}

}  // namespace

Group lines() {
  return {"lines",
          "lines, perpendiculars, intersections",
          {
              {"FindLineCoeffs",
               [](Point2 p1, Point2 p2) {
                 auto line = untouched<CLineCoeffs>();
                 const bool found = FindLineCoeffs(p1, p2, line);
                 return std::tuple{found, line};
               }},
              {"FindPerpendicular",
               [](CLineCoeffs line, Point2 p) {
                 auto perpendicular = untouched<CLineCoeffs>();
                 const bool found = FindPerpendicular(line, p, perpendicular);
                 return std::tuple{found, perpendicular};
               }},
              {"FindLinesIntersection",
               [](CLineCoeffs l1, CLineCoeffs l2) {
                 auto p = untouched<Point2>();
                 const bool found = FindLinesIntersection(l1, l2, p);
                 return std::tuple{found, p};
               }},
              {"GetSpanPerpendicular",
               [](Point2 p1, Point2 p2) {
                 auto bisector = untouched<CLineCoeffs>();
                 const bool found = GetSpanPerpendicular(p1, p2, bisector);
                 return std::tuple{found, bisector};
               }},
          }};
}

Group arcs() {
  return {"arcs",
          "arcs, angles, triangles",
          {
              {"CArcParams()", [] { return CArcParams(); }},
              {"GetArcTangentParams",
               [](Point2 p1, Point2 p2, Point2 p3, Point2 p4) {
                 auto arc = untouched<CArcParams>();
                 const bool found = GetArcTangentParams(p1, p2, p3, p4, arc);
                 return std::tuple{found, arc};
               }},
              {"GetArc3PointsParams",
               [](Point2 p1, Point2 p2, Point2 p3) {
                 auto arc = untouched<CArcParams>();
                 const bool found = GetArc3PointsParams(p1, p2, p3, arc);
                 return std::tuple{found, arc};
               }},
              {"cosphi", [](Point2 p0, Point2 p1, Point2 p2) { return cosphi(p0, p1, p2); }},
              {"triangle_area",
               [](Point2 a, Point2 b, Point2 c) {
                 return std::tuple{triangle_area(a.x(), a.y(), b.x(), b.y(), c.x(), c.y()), triangle_area(a, b, c),
                                   clockwise(a, b, c)};
               }},
          }};
}

}  // namespace golden
