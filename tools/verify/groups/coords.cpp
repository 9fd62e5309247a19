#include <alidade/coords.h>

#include "verify/groups/groups.h"

namespace verify {
namespace {

using golden::Arguments;
using golden::Tokens;

Coord read_coord(Arguments& in) {
  Coord c;
  c.x = in.number();
  c.y = in.number();
  c.z = in.number();
  return c;
}

TAbstractPoint3<double> read_point(Arguments& in) {
  double c[3];
  in.numbers(c, 3);
  return TAbstractPoint3<double>(c);
}

// Fields are set one by one: the constructor of three doubles converts a Cartesian position.
GeoCoord read_geo(Arguments& in) {
  GeoCoord g;
  g.b = in.number();
  g.l = in.number();
  g.h = in.number();
  return g;
}

PolCoord read_polar(Arguments& in) {
  PolCoord p;
  p.azimuth = in.number();
  p.elevation = in.number();
  p.distance = in.number();
  return p;
}

void write(Tokens& out, const Coord& c) { out.number(c.x).number(c.y).number(c.z); }
void write(Tokens& out, const GeoCoord& g) { out.number(g.b).number(g.l).number(g.h); }
void write(Tokens& out, const PolCoord& p) { out.number(p.azimuth).number(p.elevation).number(p.distance); }
void write(Tokens& out, const TAbstractPoint3<double>& p) { out.number(p[0]).number(p[1]).number(p[2]); }

}  // namespace

golden::Group coordinates() {
  return {"coordinates",
          "coordinate records: arithmetic, lengths, unit switches",
          {
              {"Coord()", [](Arguments&, Tokens& out) { write(out, Coord()); }},
              {"Coord=v",
               [](Arguments& in, Tokens& out) {
                 Coord c(1, 2, 3);
                 c = in.number();
                 write(out, c);
               }},
              {"Coord+Coord",
               [](Arguments& in, Tokens& out) {
                 const Coord a = read_coord(in);
                 const Coord b = read_coord(in);
                 write(out, a + b);
                 Coord c = a;
                 write(out, c += b);
               }},
              {"Coord-Coord",
               [](Arguments& in, Tokens& out) {
                 const Coord a = read_coord(in);
                 const Coord b = read_coord(in);
                 write(out, a - b);
                 Coord c = a;
                 write(out, c -= b);
               }},
              {"-Coord", [](Arguments& in, Tokens& out) { write(out, -read_coord(in)); }},
              {"Coord*s",
               [](Arguments& in, Tokens& out) {
                 const Coord a = read_coord(in);
                 const double s = in.number();
                 write(out, a * s);
                 Coord c = a;
                 write(out, c *= s);
               }},
              {"Coord/s",
               [](Arguments& in, Tokens& out) {
                 const Coord a = read_coord(in);
                 const double s = in.number();
                 write(out, a / s);
                 Coord c = a;
                 write(out, c /= s);
               }},
              {"Coord*Coord",
               [](Arguments& in, Tokens& out) {
                 const Coord a = read_coord(in);
                 const Coord b = read_coord(in);
                 out.number(a * b);
               }},
              {"RR(Coord)", [](Arguments& in, Tokens& out) { out.number(RR(read_coord(in))); }},
              {"R2(Coord)", [](Arguments& in, Tokens& out) { out.number(R2(read_coord(in))); }},
              {"RR(a,b,c)",
               [](Arguments& in, Tokens& out) {
                 const Coord c = read_coord(in);
                 out.number(RR(c.x, c.y, c.z));
               }},
              {"GeoCoord::rad2deg",
               [](Arguments& in, Tokens& out) {
                 GeoCoord g = read_geo(in);
                 g.rad2deg();
                 write(out, g);
               }},
              {"GeoCoord::deg2rad",
               [](Arguments& in, Tokens& out) {
                 GeoCoord g = read_geo(in);
                 g.deg2rad();
                 write(out, g);
               }},
              {"GeoCoord::Latitude", [](Arguments& in, Tokens& out) { out.number(read_geo(in).Latitude()); }},
              {"GeoCoord::Longitude", [](Arguments& in, Tokens& out) { out.number(read_geo(in).Longitude()); }},
              {"PolCoord::rad2deg",
               [](Arguments& in, Tokens& out) {
                 PolCoord p = read_polar(in);
                 p.rad2deg();
                 write(out, p);
               }},
              {"PolCoord::deg2rad",
               [](Arguments& in, Tokens& out) {
                 PolCoord p = read_polar(in);
                 p.deg2rad();
                 write(out, p);
               }},
          }};
}

golden::Group conversions() {
  return {"conversions",
          "ellipsoid, geodetic to geocentric coordinates and back",
          {
              {"Ellipsoid",
               [](Arguments& in, Tokens& out) {
                 const double a = in.number();
                 const double e = in.number();
                 const Ellipsoid s(a, e);
                 out.number(s.a).number(s.e).number(s.e2).number(s.ep2).number(s.onePlusEp2).number(s.c);
               }},
              {"DefaultEllipsoid",
               [](Arguments&, Tokens& out) {
                 const Ellipsoid& s = DefaultEllipsoid;
                 out.number(s.a).number(s.e).number(s.e2).number(s.ep2).number(s.onePlusEp2).number(s.c);
               }},
              {"Coord::blh2xyz",
               [](Arguments& in, Tokens& out) {
                 const GeoCoord g = read_geo(in);
                 Coord c;
                 write(out, c.blh2xyz(g));
               }},
              {"GeoCoord::xyz2blh",
               [](Arguments& in, Tokens& out) {
                 const Coord c = read_coord(in);
                 GeoCoord g;
                 write(out, g.xyz2blh(c));
               }},
              {"GeoCoord(x,y,z)",
               [](Arguments& in, Tokens& out) {
                 const Coord c = read_coord(in);
                 write(out, GeoCoord(c.x, c.y, c.z));
               }},
              {"GeoCoord(Coord)", [](Arguments& in, Tokens& out) { write(out, GeoCoord(read_coord(in))); }},
              {"geod_to_xyz",
               [](Arguments& in, Tokens& out) {
                 const int to_cartesian = in.integer();
                 const double a = in.number();
                 const double f = in.number();
                 double v[6];
                 in.numbers(v, 6);
                 geod_to_xyz(to_cartesian, a, f, &v[0], &v[1], &v[2], &v[3], &v[4], &v[5]);
                 out.numbers(v, 6);
               }},
          }};
}

golden::Group local_frames() {
  return {"local_frames",
          "north, east, up and azimuth, elevation, distance",
          {
              {"Coord::relatCoord",
               [](Arguments& in, Tokens& out) {
                 const Coord station = read_coord(in);
                 const Coord target = read_coord(in);
                 Coord neu;
                 PolCoord polar;
                 station.relatCoord(target, neu, polar);
                 write(out, neu);
                 write(out, polar);
               }},
              {"Coord::offsetCoord",
               [](Arguments& in, Tokens& out) {
                 const Coord station = read_coord(in);
                 const Coord neu = read_coord(in);
                 Coord target;
                 write(out, target.offsetCoord(station, neu));
               }},
              {"blh_to_neu",
               [](Arguments& in, Tokens& out) {
                 const TAbstractPoint3<double> blh = read_point(in);
                 const TAbstractPoint3<double> d = read_point(in);
                 write(out, blh_to_neu(blh, d));
               }},
              {"neu_to_polar", [](Arguments& in, Tokens& out) { write(out, neu_to_polar(read_point(in))); }},
          }};
}

golden::Group angles() {
  return {"angles",
          "decimal degrees to degrees, minutes, seconds and back",
          {
              {"deg_to_dms",
               [](Arguments& in, Tokens& out) {
                 int d = 0;
                 int m = 0;
                 double s = 0;
                 deg_to_dms(in.number(), &d, &m, &s);
                 out.integer(d).integer(m).number(s);
               }},
              {"dms_to_deg",
               [](Arguments& in, Tokens& out) {
                 const auto [d, m] = in.integers<2>();
                 const double s = in.number();
                 out.number(dms_to_deg(d, m, s));
               }},
          }};
}

}  // namespace verify
