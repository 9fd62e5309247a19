#include <alidade/geometry.h>

#include "verify/groups/groups.h"

namespace verify {
namespace {

using golden::Arguments;
using golden::Tokens;
using Point2 = TAbstractPoint2<double>;

// What an output argument holds before the call: a failing function must leave it so.
constexpr double kUntouched = 7.5;

Point2 read_point(Arguments& in) {
  double c[2];
  in.numbers(c, 2);
  return Point2(c);
}

CLineCoeffs read_line(Arguments& in) {
  CLineCoeffs line;
  line.a() = in.number();
  line.b() = in.number();
  line.c() = in.number();
  return line;
}

CLineCoeffs untouched_line() {
  CLineCoeffs line;
  line.a() = kUntouched;
  line.b() = kUntouched;
  line.c() = kUntouched;
  return line;
}

CArcParams untouched_arc() {
  CArcParams arc;
  arc.centre = Point2(kUntouched);
  arc.start = Point2(kUntouched);
  arc.end = Point2(kUntouched);
  arc.radius = kUntouched;
  return arc;
}

void write(Tokens& out, const CLineCoeffs& line) { out.number(line.a()).number(line.b()).number(line.c()); }
void write(Tokens& out, const Point2& p) { out.number(p.x()).number(p.y()); }

void write(Tokens& out, const CArcParams& arc) {
  write(out, arc.centre);
  write(out, arc.start);
  write(out, arc.end);
  out.number(arc.radius);
}

}  // namespace

golden::Group lines() {
  return {"lines",
          "lines, perpendiculars, intersections",
          {
              {"FindLineCoeffs",
               [](Arguments& in, Tokens& out) {
                 const Point2 p1 = read_point(in);
                 const Point2 p2 = read_point(in);
                 CLineCoeffs line = untouched_line();
                 out.integer(FindLineCoeffs(p1, p2, line));
                 write(out, line);
               }},
              {"FindPerpendicular",
               [](Arguments& in, Tokens& out) {
                 const CLineCoeffs line = read_line(in);
                 const Point2 p = read_point(in);
                 CLineCoeffs perpendicular = untouched_line();
                 out.integer(FindPerpendicular(line, p, perpendicular));
                 write(out, perpendicular);
               }},
              {"FindLinesIntersection",
               [](Arguments& in, Tokens& out) {
                 const CLineCoeffs l1 = read_line(in);
                 const CLineCoeffs l2 = read_line(in);
                 Point2 p(kUntouched);
                 out.integer(FindLinesIntersection(l1, l2, p));
                 write(out, p);
               }},
              {"GetSpanPerpendicular",
               [](Arguments& in, Tokens& out) {
                 const Point2 p1 = read_point(in);
                 const Point2 p2 = read_point(in);
                 CLineCoeffs bisector = untouched_line();
                 out.integer(GetSpanPerpendicular(p1, p2, bisector));
                 write(out, bisector);
               }},
          }};
}

golden::Group arcs() {
  return {"arcs",
          "arcs, angles, triangles",
          {
              {"CArcParams()", [](Arguments&, Tokens& out) { write(out, CArcParams()); }},
              {"GetArcTangentParams",
               [](Arguments& in, Tokens& out) {
                 const Point2 p1 = read_point(in);
                 const Point2 p2 = read_point(in);
                 const Point2 p3 = read_point(in);
                 const Point2 p4 = read_point(in);
                 CArcParams arc = untouched_arc();
                 out.integer(GetArcTangentParams(p1, p2, p3, p4, arc));
                 write(out, arc);
               }},
              {"GetArc3PointsParams",
               [](Arguments& in, Tokens& out) {
                 const Point2 p1 = read_point(in);
                 const Point2 p2 = read_point(in);
                 const Point2 p3 = read_point(in);
                 CArcParams arc = untouched_arc();
                 out.integer(GetArc3PointsParams(p1, p2, p3, arc));
                 write(out, arc);
               }},
              {"cosphi",
               [](Arguments& in, Tokens& out) {
                 const Point2 p0 = read_point(in);
                 const Point2 p1 = read_point(in);
                 const Point2 p2 = read_point(in);
                 out.number(cosphi(p0, p1, p2));
               }},
              {"triangle_area",
               [](Arguments& in, Tokens& out) {
                 const Point2 p1 = read_point(in);
                 const Point2 p2 = read_point(in);
                 const Point2 p3 = read_point(in);
                 out.number(triangle_area(p1.x(), p1.y(), p2.x(), p2.y(), p3.x(), p3.y()));
                 out.number(triangle_area(p1, p2, p3));
                 out.integer(clockwise(p1, p2, p3));
               }},
          }};
}

}  // namespace verify
