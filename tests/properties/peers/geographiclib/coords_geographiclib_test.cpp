// Conversions and local frames against GeographicLib, on the library's own ellipsoid.

#include <alidade/coords.h>
#include <gtest/gtest.h>

#include <GeographicLib/Geocentric.hpp>
#include <GeographicLib/LocalCartesian.hpp>
#include <cmath>

#include "support/coords_inputs.h"

namespace {

constexpr double kEpsilon = 0x1p-52;
constexpr double kDegree = 0.017453292519943295;

// The eccentricity defines the ellipsoid: f = 1 - sqrt(1 - e^2), written so that nothing cancels.
double flattening() {
  const double e2 = DefaultEllipsoid.e2;
  return e2 / (1.0 + std::sqrt(1.0 - e2));
}

const GeographicLib::Geocentric& earth() {
  static const GeographicLib::Geocentric geocentric(DefaultEllipsoid.a, flattening());
  return geocentric;
}

// What the stop at 1e-10 in the tangent t of the latitude leaves. The iteration contracts by L per pass, L = dF/dt; the
// tangent is wrong by up to L/(1 - L) 1e-10 when it stops. At a fixed distance p from the axis p (1 - L) =
// (M + h) cos(lat), M the radius of curvature of the meridian, so that to the north the position is wrong by
// p L cos(lat) 1e-10 = e^2 c V cos(lat) / (V + t^2)^(3/2) 1e-10 with V = 1 + e'^2: at most e^2 a 1e-10 = 4.27e-6 m, at
// the equator, whatever the height. The height follows with the sine of the latitude: 1.4e-6 m at most.
// To this come a few roundings of the distance from the centre.
constexpr double kNorthBound = 4.3e-6;
constexpr double kUpBound = 1.5e-6;
double rounding(double distance) { return 4 * kEpsilon * distance; }

TEST(CoordsGeographicLib, Xyz2Blh) {
  inputs::Source source(21);
  double worst = 0;
  for (int i = 0; i < 100000; ++i) {
    // From 100 km below the ground to the height of the navigation satellites, and by the equator.
    const double radius = i % 2 == 0 ? source.uniform(6.26e6, 6.4e6) : source.uniform(6.4e6, 4.3e7);
    const inputs::Vector v =
        i % 5 == 0 ? source.around_axis(radius, source.uniform(-2e5, 2e5)) : source.on_sphere(radius);
    double lat = 0;
    double lon = 0;
    double h = 0;
    earth().Reverse(v[0], v[1], v[2], lat, lon, h);
    const GeoCoord g(v[0], v[1], v[2]);
    const double distance = std::hypot(v[0], v[1], v[2]);
    const double north = (g.b - lat * kDegree) * distance;
    const double p = std::hypot(v[0], v[1]);
    const double east = std::remainder(g.l - lon * kDegree, 6.283185307179586) * p;
    EXPECT_NEAR(north, 0.0, kNorthBound + rounding(distance));
    EXPECT_NEAR(east, 0.0, rounding(distance));
    EXPECT_NEAR(g.h - h, 0.0, kUpBound + rounding(distance));
    worst = std::fmax(worst, std::fabs(north));
  }
  EXPECT_GT(worst, 1e-8);  // the stop is seen: the bound is about it, not about rounding
}

TEST(CoordsGeographicLib, NearThePoles) {
  inputs::Source source(22);
  for (int i = 0; i < 20000; ++i) {
    const inputs::Vector v = source.around_axis(source.magnitude(-6.0, 3.0), (i % 2 == 0 ? 1 : -1) * 6.36e6);
    double lat = 0;
    double lon = 0;
    double h = 0;
    earth().Reverse(v[0], v[1], v[2], lat, lon, h);
    const GeoCoord g(v[0], v[1], v[2]);
    // The latitude is kept in a double: 90 degrees is known to a unit in its last place.
    EXPECT_NEAR((g.b - lat * kDegree) * 6.36e6, 0.0, rounding(6.36e6));
    EXPECT_NEAR(g.h, h, 4 * rounding(6.36e6));  // sqrt(1 + t^2) times the distance from the axis
  }
}

TEST(CoordsGeographicLib, Blh2Xyz) {
  inputs::Source source(23);
  for (int i = 0; i < 100000; ++i) {
    const double lat = source.uniform(-90.0, 90.0);
    const double lon = source.uniform(0.0, 360.0);
    const double h = i % 2 == 0 ? source.uniform(-1e4, 1e4) : source.uniform(0.0, 4e7);
    double x = 0;
    double y = 0;
    double z = 0;
    earth().Forward(lat, lon, h, x, y, z);
    GeoCoord g;
    g.b = lat;
    g.l = lon;
    g.h = h;
    g.deg2rad();
    Coord c;
    c.blh2xyz(g);
    // Radians of up to a full turn are rounded: half a unit of 6 in the longitude, then a few roundings.
    EXPECT_NEAR(RR(c - Coord(x, y, z)), 0.0, 2 * rounding(6.4e6 + h));
  }
}

// The degrees of geod_to_xyz are one unit too large: a full turn is 1.2e-15 too long, 8e-9 m at the ground.
TEST(CoordsGeographicLib, GeodToXyz) {
  inputs::Source source(24);
  for (int i = 0; i < 100000; ++i) {
    const double a = source.uniform(6.3e6, 6.4e6);
    const double f = i % 3 == 0 ? 1.0 / 298.257223563 : source.uniform(0.0, 0.01);
    const GeographicLib::Geocentric geocentric(a, f);
    double lat = source.uniform(-90.0, 90.0);
    double lon = source.uniform(0.0, 360.0);
    double h = source.uniform(-1e4, 1e6);
    double x = 0;
    double y = 0;
    double z = 0;
    geod_to_xyz(1, a, f, &lat, &lon, &h, &x, &y, &z);
    double peer_x = 0;
    double peer_y = 0;
    double peer_z = 0;
    geocentric.Forward(lat, lon, h, peer_x, peer_y, peer_z);
    EXPECT_NEAR(RR(Coord(x, y, z) - Coord(peer_x, peer_y, peer_z)), 0.0, 3 * rounding(a + h));

    double back_lat = 0;
    double back_lon = 0;
    double back_h = 0;
    geod_to_xyz(0, a, f, &back_lat, &back_lon, &back_h, &x, &y, &z);
    double peer_lat = 0;
    double peer_lon = 0;
    double peer_h = 0;
    geocentric.Reverse(x, y, z, peer_lat, peer_lon, peer_h);
    // Stops when the correction of the latitude is below 1e-14, 6.4e-8 m.
    EXPECT_NEAR((back_lat - peer_lat) * kDegree * a, 0.0, 1e-14 * a + rounding(a + h));
    // Up to a full turn: the turn is added, scaled and kept in degrees, each to half a unit of 2 pi or 360, and the two
    // constants are themselves rounded. Below three units in the last place of 2 pi together.
    const double longitude = std::remainder(back_lon - peer_lon, 360.0) * kDegree;
    EXPECT_NEAR(longitude * std::hypot(x, y), 0.0, 3 * 0x1p-50 * std::hypot(x, y));
    EXPECT_NEAR(back_h, peer_h, 1e-14 * a + rounding(a + h));
  }
}

TEST(CoordsGeographicLib, LocalFrame) {
  inputs::Source source(25);
  for (int i = 0; i < 20000; ++i) {
    const inputs::Vector s = source.on_sphere(source.uniform(6.35e6, 6.4e6));
    const Coord station(s[0], s[1], s[2]);
    const double reach = source.magnitude(0.0, 6.0);
    const Coord target(s[0] + source.uniform(-reach, reach), s[1] + source.uniform(-reach, reach),
                       s[2] + source.uniform(-reach, reach));
    double lat = 0;
    double lon = 0;
    double h = 0;
    earth().Reverse(s[0], s[1], s[2], lat, lon, h);
    const GeographicLib::LocalCartesian frame(lat, lon, h, earth());
    double east = 0;
    double north = 0;
    double up = 0;
    double target_lat = 0;
    double target_lon = 0;
    double target_h = 0;
    earth().Reverse(target.x, target.y, target.z, target_lat, target_lon, target_h);
    frame.Forward(target_lat, target_lon, target_h, east, north, up);
    Coord neu;
    PolCoord polar;
    station.relatCoord(target, neu, polar);
    // The frame is tilted by the error of the latitude, 4.3e-6 m over the radius of the Earth; the peer goes through
    // the geodetic coordinates of both points and rounds each a few times.
    const double bound = 4.3e-6 / 6.3e6 * 2 * reach + 6 * rounding(6.4e6 + reach);
    EXPECT_NEAR(neu.x, north, bound);
    EXPECT_NEAR(neu.y, east, bound);
    EXPECT_NEAR(neu.z, up, bound);
  }
}

}  // namespace
