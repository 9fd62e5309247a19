#include "golden/generate/requests.h"
#include "golden/generate/requests/awkward.h"

namespace generate {
namespace {

using golden::Tokens;

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

Requests lines_requests(std::uint64_t round) {
  Requests r(301, round);
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
  add_awkward_lines(r, round);
  return r;
}

Requests arcs_requests(std::uint64_t round) {
  Requests r(302, round);
  r.add('A', "CArcParams()", {});
  add_points(r, "GetArcTangentParams", 4);
  add_points(r, "GetArc3PointsParams", 3);
  add_points(r, "cosphi", 3);
  add_points(r, "triangle_area", 3);
  add_awkward_arcs(r, round);
  return r;
}

}  // namespace generate
