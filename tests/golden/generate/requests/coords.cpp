#include "reference/coords.h"

#include <cmath>

#include "golden/generate/requests.h"
#include "golden/generate/requests/awkward.h"

namespace generate {
namespace {

using golden::Tokens;

// A geocentric position near the surface, at sea, on a mountain or in orbit.
Tokens position(Requests& r) {
  const double latitude = r.uniform(-1.5707, 1.5707);
  const double longitude = r.uniform(0.0, 6.283);
  const double blh[3] = {latitude, longitude, r.below(4) == 0 ? r.uniform(-1e4, 4e7) : r.uniform(-100.0, 5000.0)};
  double xyz[3];
  reference::blh2xyz(blh, xyz);
  return Tokens().numbers(xyz, 3);
}

// A latitude at which it shows how e^2 sin^2 is associated: about one in two thousand.
double telling_latitude(Requests& r) {
  const reference::EllipsoidFields ellipsoid = reference::default_ellipsoid();
  for (;;) {
    const double latitude = r.uniform(-1.5708, 1.5708);
    const double s = std::sin(latitude);
    const double left = ellipsoid.a / std::sqrt(1.0 - (ellipsoid.e2 * s) * s);
    const double right = ellipsoid.a / std::sqrt(1.0 - ellipsoid.e2 * (s * s));
    if (left != right) {
      return latitude;
    }
  }
}

// Positions where a branch is taken: poles, the axis and its threshold, the centre, the equator, quadrants.
const double kSpecialPositions[][3] = {
    {6378137.0, 0.0, 0.0},
    {-6378137.0, 0.0, 0.0},
    {0.0, 6378137.0, 0.0},
    {0.0, -6378137.0, 0.0},
    {-6378137.0, -0.0, 0.0},
    {0.0, 0.0, 6356752.313989722},
    {0.0, 0.0, -7000000.0},
    {-0.0, -0.0, 6356752.0},
    {0.0, 0.0, 0.0},
    {0.0, 0.0, -0.0},
    {1e-11, 0.0, 5000.0},
    {1e-10, 0.0, 5000.0},
    {0x1.b7cdfd9d7bdbap-34, 0.0, 5000.0},
    {0.0, 1e-10, -5000.0},
    {7e-11, 7e-11, 6356752.0},
    {8e-11, 8e-11, 6356752.0},
    {1e-5, 1e-5, 6356752.0},
    {1.0, 0.0, 6356752.0},
    {3000000.0, -0.0001, 5500000.0},
    {3000000.0, -0.0, 5500000.0},
    {42000.0, 0.0, 0.0},
    {40000.0, 0.0, 10.0},
    {4000.0, 3000.0, 1000.0},
    {1e10, 1e10, -1e10},
    {1e150, 1e150, 1e150},
    {1e-200, 0.0, 1.0},
};

}  // namespace

Requests coordinates_requests(std::uint64_t round) {
  Requests r(101, round);
  r.add('A', "Coord()", {});
  r.add_numbers('A', "Coord=v", 1, 20);
  for (const char* two : {"Coord+Coord", "Coord-Coord", "Coord*Coord"}) {
    r.add_numbers('A', two, 6, 140);
  }
  for (const char* scaled : {"Coord*s", "Coord/s"}) {
    r.add_numbers('A', scaled, 4, 140);
  }
  for (const char* one : {"-Coord", "RR(Coord)", "R2(Coord)", "RR(a,b,c)", "GeoCoord::rad2deg", "GeoCoord::deg2rad",
                          "GeoCoord::Latitude", "GeoCoord::Longitude", "PolCoord::rad2deg", "PolCoord::deg2rad"}) {
    r.add_numbers('A', one, 3, 90);
  }
  return r;
}

Requests conversions_requests(std::uint64_t round) {
  Requests r(102, round);
  const double kInverseFlattening[] = {298.257223563, 298.3, 299.1528128, 297.0, 293.465};
  const double kSemiMajorAxis[] = {6378137.0, 6378245.0, 6377397.155, 6378388.0, 6378249.145};

  r.add('A', "DefaultEllipsoid", {});
  r.add('A', "Ellipsoid", Tokens().number(6378137.0).number(0.0818191913305));
  for (int i = 0; i < 60; ++i) {
    r.add('A', "Ellipsoid", Tokens().number(r.uniform(6e6, 7e6)).number(r.uniform(0.0, 0.1)));
    r.add_numbers('A', "Ellipsoid", 2, 1);
  }
  for (int i = 0; i < 900; ++i) {
    r.add('B', "Coord::blh2xyz",
          Tokens().number(r.uniform(-1.5708, 1.5708)).number(r.uniform(-3.15, 6.29)).number(r.uniform(-500.0, 9000.0)));
  }
  for (int i = 0; i < 6; ++i) {
    r.add('B', "Coord::blh2xyz", Tokens().number(telling_latitude(r)).number(r.uniform(0.0, 6.28)).number(0.0));
  }
  r.add_numbers('B', "Coord::blh2xyz", 3, 60);
  for (const auto& p : kSpecialPositions) {
    r.add('B', "GeoCoord::xyz2blh", Tokens().numbers(p, 3));
    r.add('B', "GeoCoord(Coord)", Tokens().numbers(p, 3));
  }
  for (int i = 0; i < 400; ++i) {
    r.add('B', "GeoCoord::xyz2blh", position(r));
  }
  for (int i = 0; i < 40; ++i) {
    r.add('B', "GeoCoord(x,y,z)", position(r));
    r.add('B', "GeoCoord(Coord)", position(r));
  }
  for (int i = 0; i < 40; ++i) {  // deep inside the ellipsoid many passes are needed
    r.add('B', "GeoCoord::xyz2blh",
          Tokens().number(r.uniform(-1e5, 1e5)).number(r.uniform(-1e5, 1e5)).number(r.uniform(-1e5, 1e5)));
  }
  for (const char* kind : {"short", "whole", "plain"}) {
    for (int i = 0; i < 10; ++i) {
      r.add('B', "GeoCoord::xyz2blh", r.numbers(kind, 3));
    }
  }
  for (int i = 0; i < 200; ++i) {
    Tokens geodetic;
    geodetic.integer(i % 7 == 0 ? -3 : 1).number(kSemiMajorAxis[i % 5]).number(1.0 / kInverseFlattening[i % 5]);
    const double lat = i % 10 == 0 ? 45.0 * (r.below(5) - 2) : r.uniform(-90.0, 90.0);
    const double lon = i % 10 == 0 ? 45.0 * r.below(9) : r.uniform(-180.0, 360.0);
    geodetic.number(lat).number(lon).number(r.uniform(-100.0, 9000.0)).number(0.0).number(0.0).number(0.0);
    r.add('B', "geod_to_xyz", geodetic);

    Tokens cartesian;
    cartesian.integer(0).number(kSemiMajorAxis[i % 5]).number(1.0 / kInverseFlattening[i % 5]);
    r.add('B', "geod_to_xyz", cartesian.number(0.0).number(0.0).number(0.0).append(position(r)));
  }
  for (const auto& p : kSpecialPositions) {
    r.add('B', "geod_to_xyz",
          Tokens().integer(0).number(6378137.0).number(1 / 298.257223563).number(1).number(2).number(3).numbers(p, 3));
  }
  for (int i = 0; i < 30; ++i) {  // anything, also for the ellipsoid
    r.add('B', "geod_to_xyz", Tokens().integer(i % 2).append(r.numbers(i % 3 == 0 ? "plain" : "nasty", 8)));
  }
  add_awkward_conversions(r, round);
  return r;
}

Requests local_frames_requests(std::uint64_t round) {
  Requests r(103, round);
  for (int i = 0; i < 220; ++i) {
    const double reach = i % 3 == 0 ? 1e7 : 2000.0;
    const Tokens station = position(r);
    golden::Arguments in(station.list());
    double target[3];
    for (double& v : target) {
      v = in.number() + r.uniform(-reach, reach);
    }
    r.add('B', "Coord::relatCoord", Tokens(station).numbers(target, 3));
    r.add('B', "Coord::offsetCoord",
          Tokens(station)
              .number(r.uniform(-reach, reach))
              .number(r.uniform(-reach, reach))
              .number(r.uniform(-100.0, 100.0)));
    r.add('B', "blh_to_neu",
          Tokens()
              .number(r.uniform(-1.5708, 1.5708))
              .number(r.uniform(0.0, 6.2832))
              .number(0.0)
              .append(r.numbers("plain", 3)));
    r.add('B', "neu_to_polar", r.numbers("plain", 3));
  }
  const double kAxes[][3] = {{0, 0, 100},  {0, 0, -100}, {0, 100, 0},     {0, -100, 0}, {100, 0, 0},
                             {-100, 0, 0}, {0, 0, 0},    {-0.0, -0.0, 0}, {3, 4, 0},    {-1e-300, 5, 1}};
  for (const auto& axis : kAxes) {
    r.add('B', "neu_to_polar", Tokens().numbers(axis, 3));
    for (const auto& p : kSpecialPositions) {
      const double target[3] = {p[0] + axis[0], p[1] + axis[1], p[2] + axis[2]};
      r.add('B', "Coord::relatCoord", Tokens().numbers(p, 3).numbers(target, 3));
    }
  }
  for (const auto& p : kSpecialPositions) {
    r.add('B', "Coord::offsetCoord", Tokens().numbers(p, 3).append(r.numbers("short", 3)));
  }
  r.add_numbers('B', "blh_to_neu", 6, 60);
  r.add_numbers('B', "neu_to_polar", 3, 80);
  add_awkward_local_frames(r, round);
  return r;
}

Requests angles_requests(std::uint64_t round) {
  Requests r(104, round);
  for (const double v : {0.0, -0.0, -0.5, -0.001, 12.5, -12.5, 10.999999, 29.9999999, 0.49999999, 359.99999999,
                         2147483647.5, 2147483648.0, -2147483648.5, -2147483649.0, 1e300}) {
    r.add('A', "deg_to_dms", Tokens().number(v));
  }
  for (int i = 0; i < 500; ++i) {
    r.add('A', "deg_to_dms", Tokens().number(r.uniform(-360.0, 360.0)));
    r.add('A', "dms_to_deg",
          Tokens().integer(r.between(-359, 359)).integer(r.between(-2, 61)).number(r.fraction(-5.0, 60.0)));
  }
  for (int i = 0; i < 200; ++i) {  // just below and above a whole minute, where the guard of 0.0001 acts
    r.add('A', "deg_to_dms", Tokens().number(r.between(-720, 720) / 60.0 + r.uniform(-3e-6, 3e-6)));
    r.add('A', "dms_to_deg", Tokens().integer(r.between(-1, 1)).integer(r.between(-1, 1)).number(r.number(r.kind())));
  }
  for (int minutes = 0; minutes <= 60; ++minutes) {  // nothing added that could hide the product's last bit
    r.add('A', "dms_to_deg", Tokens().integer(0).integer(minutes).number(0.0));
    r.add('A', "dms_to_deg", Tokens().integer(0).integer(0).number(minutes));
  }
  r.add_numbers('A', "deg_to_dms", 1, 80);
  for (int i = 0; i < 40; ++i) {
    r.add('A', "dms_to_deg", Tokens().integer(r.any_integer()).integer(r.any_integer()).number(r.number(r.kind())));
  }
  add_awkward_angles(r, round);
  return r;
}

}  // namespace generate
