#include "reference/geometry.h"

#include "generate/requests.h"

namespace generate {
namespace {

using golden::Arguments;
using golden::Tokens;

// What an output argument holds before the call: a failing function must leave it so.
constexpr double kUntouched = 7.5;

struct Pair {
  double v[2];
  explicit Pair(Arguments& in) { in.numbers(v, 2); }
};

struct Line {
  double v[3] = {kUntouched, kUntouched, kUntouched};
  Line() = default;
  explicit Line(Arguments& in) { in.numbers(v, 3); }
};

struct Arc {
  double v[7] = {kUntouched, kUntouched, kUntouched, kUntouched, kUntouched, kUntouched, kUntouched};
};

// Points a surveyor meets: grid coordinates some hundred metres apart, written to the millimetre.
Tokens grid_points(Requests& r, int n) {
  Tokens tokens;
  for (int i = 0; i < n; ++i) {
    tokens.number(r.between(400000, 900000) / 1000.0).number(r.between(5000000, 5400000) / 1000.0);
  }
  return tokens;
}

// Points of a small lattice: many coincide, lie on one line or on a vertical one.
Tokens lattice_points(Requests& r, int n) {
  Tokens tokens;
  for (int i = 0; i < 2 * n; ++i) {
    tokens.number(r.between(-2, 2));
  }
  return tokens;
}

void add_points(Requests& r, const char* function, int n) {
  for (int i = 0; i < 90; ++i) {
    r.add('A', function, grid_points(r, n));
    r.add('A', function, lattice_points(r, n));
  }
  r.add_numbers('A', function, 2 * n, 80);
}

}  // namespace

Source lines() {
  Source s = {{"lines",
               "lines, perpendiculars, intersections",
               {
                   {"FindLineCoeffs",
                    [](Arguments& in, Tokens& out) {
                      const Pair p(in);
                      const Pair q(in);
                      Line line;
                      out.integer(reference::line_coefficients(p.v[0], p.v[1], q.v[0], q.v[1], line.v));
                      out.numbers(line.v, 3);
                    }},
                   {"FindPerpendicular",
                    [](Arguments& in, Tokens& out) {
                      const Line line(in);
                      const Pair p(in);
                      Line perpendicular;
                      out.integer(reference::perpendicular(line.v, p.v[0], p.v[1], perpendicular.v));
                      out.numbers(perpendicular.v, 3);
                    }},
                   {"FindLinesIntersection",
                    [](Arguments& in, Tokens& out) {
                      const Line l1(in);
                      const Line l2(in);
                      double p[2] = {kUntouched, kUntouched};
                      out.integer(reference::lines_intersection(l1.v, l2.v, p));
                      out.numbers(p, 2);
                    }},
                   {"GetSpanPerpendicular",
                    [](Arguments& in, Tokens& out) {
                      const Pair p(in);
                      const Pair q(in);
                      Line bisector;
                      out.integer(reference::bisector_of_span(p.v[0], p.v[1], q.v[0], q.v[1], bisector.v));
                      out.numbers(bisector.v, 3);
                    }},
               }},
              Requests(301)};
  Requests& r = s.requests;
  add_points(r, "FindLineCoeffs", 2);
  add_points(r, "GetSpanPerpendicular", 2);
  for (int i = 0; i < 120; ++i) {
    r.add('A', "FindPerpendicular", r.numbers(i % 2 == 0 ? "whole" : "short", 5));
    r.add('A', "FindLinesIntersection", r.numbers(i % 2 == 0 ? "whole" : "short", 6));
  }
  r.add_numbers('A', "FindPerpendicular", 5, 120);
  r.add_numbers('A', "FindLinesIntersection", 6, 120);
  // On both sides of the two zero tests, 2^-1021 and 1.5 * 2^-1021.
  for (const double v : {0x1p-1022, 0x1.fffffffffffffp-1022, 0x1p-1021, 0x1.0000000000001p-1021,
                         0x1.7ffffffffffffp-1021, 0x1.8p-1021, 0x1.8000000000001p-1021, 0x1p-1020}) {
    for (const double sign : {1.0, -1.0}) {
      r.add('A', "FindLineCoeffs", Tokens().number(0).number(1).number(sign * v).number(3));
      r.add('A', "FindLineCoeffs", Tokens().number(5).number(0).number(5).number(sign * v));
      r.add('A', "FindLineCoeffs", Tokens().number(0).number(0).number(0).number(sign * v));
      r.add('A', "GetSpanPerpendicular", Tokens().number(0).number(1).number(sign * v).number(3));
      r.add('A', "FindPerpendicular", Tokens().number(sign * v).number(-1).number(2).number(5).number(7));
      r.add('A', "FindLinesIntersection", Tokens().number(1).number(0).number(2).number(4).number(sign * v).number(-3));
    }
  }
  return s;
}

Source arcs() {
  Source s = {{"arcs",
               "arcs, angles, triangles",
               {
                   {"CArcParams()",
                    [](Arguments&, Tokens& out) {
                      const double defaults[7] = {0, 0, 0, 0, 0, 0, 1.7976931348623157e308};
                      out.numbers(defaults, 7);
                    }},
                   {"GetArcTangentParams",
                    [](Arguments& in, Tokens& out) {
                      const Pair p1(in);
                      const Pair p2(in);
                      const Pair p3(in);
                      const Pair p4(in);
                      Arc arc;
                      out.integer(reference::arc_tangent(p1.v, p2.v, p3.v, p4.v, arc.v));
                      out.numbers(arc.v, 7);
                    }},
                   {"GetArc3PointsParams",
                    [](Arguments& in, Tokens& out) {
                      const Pair p1(in);
                      const Pair p2(in);
                      const Pair p3(in);
                      Arc arc;
                      out.integer(reference::arc_through_three(p1.v, p2.v, p3.v, arc.v));
                      out.numbers(arc.v, 7);
                    }},
                   {"cosphi",
                    [](Arguments& in, Tokens& out) {
                      const Pair p0(in);
                      const Pair p1(in);
                      const Pair p2(in);
                      out.number(reference::cosine_of_angle(p0.v, p1.v, p2.v));
                    }},
                   {"triangle_area",
                    [](Arguments& in, Tokens& out) {
                      double v[6];
                      in.numbers(v, 6);
                      const double area = reference::area_of_triangle(v[0], v[1], v[2], v[3], v[4], v[5]);
                      out.number(area).number(area).integer(area > 0.0);
                    }},
               }},
              Requests(302)};
  Requests& r = s.requests;
  r.add('A', "CArcParams()", {});
  add_points(r, "GetArcTangentParams", 4);
  add_points(r, "GetArc3PointsParams", 3);
  add_points(r, "cosphi", 3);
  add_points(r, "triangle_area", 3);
  return s;
}

}  // namespace generate
