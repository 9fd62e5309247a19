#include "golden/functions.h"
#include "subject.h"

namespace golden {

using Point3 = TAbstractPoint3<double>;

Group coordinates() {
  return {"coordinates",
          "coordinate records: arithmetic, lengths, unit switches",
          {
              {"Coord()", [] { return Coord(); }},
              {"Coord=v",
               [](double v) {
                 Coord c(1, 2, 3);
                 return c = v;
               }},
              {"Coord+Coord",
               [](Coord a, Coord b) {
                 return std::tuple{a + b, a += b};
               }},
              {"Coord-Coord",
               [](Coord a, Coord b) {
                 return std::tuple{a - b, a -= b};
               }},
              {"-Coord", [](Coord a) { return -a; }},
              {"Coord*s",
               [](Coord a, double s) {
                 return std::tuple{a * s, a *= s};
               }},
              {"Coord/s",
               [](Coord a, double s) {
                 return std::tuple{a / s, a /= s};
               }},
              {"Coord*Coord", [](Coord a, Coord b) { return a * b; }},
              {"RR(Coord)", [](Coord c) { return RR(c); }},
              {"R2(Coord)", [](Coord c) { return R2(c); }},
              {"RR(a,b,c)", [](double a, double b, double c) { return RR(a, b, c); }},
              {"GeoCoord::rad2deg", [](GeoCoord g) { return g.rad2deg(), g; }},
              {"GeoCoord::deg2rad", [](GeoCoord g) { return g.deg2rad(), g; }},
              {"GeoCoord::Latitude", [](GeoCoord g) { return g.Latitude(); }},
              {"GeoCoord::Longitude", [](GeoCoord g) { return g.Longitude(); }},
              {"PolCoord::rad2deg", [](PolCoord p) { return p.rad2deg(), p; }},
              {"PolCoord::deg2rad", [](PolCoord p) { return p.deg2rad(), p; }},
          }};
}

Group conversions() {
  return {"conversions",
          "ellipsoid, geodetic to geocentric coordinates and back",
          {
              {"Ellipsoid", [](double a, double e) { return Ellipsoid(a, e); }},
              {"DefaultEllipsoid", [] { return DefaultEllipsoid; }},
              {"Coord::blh2xyz", [](GeoCoord g) { return Coord().blh2xyz(g); }},
              {"GeoCoord::xyz2blh", [](Coord c) { return GeoCoord().xyz2blh(c); }},
              {"GeoCoord(x,y,z)", [](double x, double y, double z) { return GeoCoord(x, y, z); }},
              {"GeoCoord(Coord)", [](Coord c) { return GeoCoord(c); }},
              {"geod_to_xyz",
               [](int to_cartesian, double a, double f, std::array<double, 6> v) {
                 geod_to_xyz(to_cartesian, a, f, &v[0], &v[1], &v[2], &v[3], &v[4], &v[5]);
                 return v;
               }},
          }};
}

Group local_frames() {
  return {"local_frames",
          "north, east, up and azimuth, elevation, distance",
          {
              {"Coord::relatCoord",
               [](Coord station, Coord target) {
                 Coord neu;
                 PolCoord polar;
                 station.relatCoord(target, neu, polar);
                 return std::tuple{neu, polar};
               }},
              {"Coord::offsetCoord", [](Coord station, Coord neu) { return Coord().offsetCoord(station, neu); }},
              {"blh_to_neu", [](Point3 blh, Point3 d) { return blh_to_neu(blh, d); }},
              {"neu_to_polar", [](Point3 neu) { return neu_to_polar(neu); }},
          }};
}

Group angles() {
  return {"angles",
          "decimal degrees to degrees, minutes, seconds and back",
          {
              {"deg_to_dms",
               [](double degrees) {
                 int d = 0;
                 int m = 0;
                 double s = 0;
                 deg_to_dms(degrees, &d, &m, &s);
                 return std::tuple{d, m, s};
               }},
              {"dms_to_deg", [](int d, int m, double s) { return dms_to_deg(d, m, s); }},
          }};
}

}  // namespace golden
