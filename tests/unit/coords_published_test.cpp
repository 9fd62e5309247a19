// Published positions and reductions. The files and their sources are described in the heads of tests/data/*.txt.

#include <alidade/coords.h>
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace {

constexpr double kSemiMajorAxis = 6378137.0;
constexpr double kFlatteningWgs84 = 1.0 / 298.257223563;
constexpr double kFlatteningGrs80 = 1.0 / 298.257222101;
constexpr double kFlatteningHere = 1.0 / 298.25722;
constexpr double kDegree = 0.017453292519943295;

struct Geodetic {
  double lat;
  double lon;
  double h;
};

// The records of a data file that begin with the given word, without that word.
std::vector<std::istringstream> records(const std::string& file, const std::string& type) {
  std::ifstream in(std::string(ALIDADE_TEST_DATA) + "/" + file);
  EXPECT_TRUE(in.is_open()) << file;
  std::vector<std::istringstream> found;
  std::string line;
  while (std::getline(in, line)) {
    std::istringstream fields(line);
    std::string word;
    if (fields >> word && word == type) {
      found.push_back(std::move(fields));
    }
  }
  return found;
}

Coord to_cartesian(double flattening, Geodetic g) {
  Coord c;
  geod_to_xyz(1, kSemiMajorAxis, flattening, &g.lat, &g.lon, &g.h, &c.x, &c.y, &c.z);
  return c;
}

Geodetic to_geodetic(double flattening, Coord c) {
  Geodetic g;
  geod_to_xyz(0, kSemiMajorAxis, flattening, &g.lat, &g.lon, &g.h, &c.x, &c.y, &c.z);
  return g;
}

Geodetic in_degrees(const Coord& c) {
  GeoCoord g(c);
  g.rad2deg();
  return {g.b, g.l, g.h};
}

Coord from_degrees(const Geodetic& g) {
  GeoCoord radians;
  radians.b = g.lat;
  radians.l = g.lon;
  radians.h = g.h;
  radians.deg2rad();
  Coord c;
  c.blh2xyz(radians);
  return c;
}

// How far two geodetic positions are apart, in metres, the longitude modulo a full turn.
double separation(const Geodetic& a, const Geodetic& b) {
  const double north = (a.lat - b.lat) * kDegree * 6.4e6;
  const double east = std::remainder(a.lon - b.lon, 360.0) * kDegree * 6.4e6 * std::cos(a.lat * kDegree);
  return std::sqrt(north * north + east * east + (a.h - b.h) * (a.h - b.h));
}

// How far a position at the ground moves when the library's ellipsoid is taken for one of another flattening. With
// d = a |f1 - f2|: up by d sin^2(lat), north by d sin(2 lat), together at most 2/sqrt(3) d. That is 0.30 mm for WGS 84
// (d = 0.26 mm) and 0.17 mm for GRS 80; one per cent is added for the terms of second order.
double ellipsoid_difference(double flattening) {
  return 1.01 * 2.0 / std::sqrt(3.0) * kSemiMajorAxis * std::fabs(kFlatteningHere - flattening);
}

// Angles printed to 1e-8 degree are right to 0.56 mm, height and X, Y, Z to 0.5 mm: together below 2 mm.
constexpr double kGigsRounding = 0.002;

TEST(CoordsPublished, Gigs5201) {
  auto lines = records("coords_gigs5201.txt", "GIGS");
  EXPECT_EQ(lines.size(), 27U);
  for (auto& line : lines) {
    Coord c;
    Geodetic g;
    ASSERT_TRUE(line >> c.x >> c.y >> c.z >> g.lat >> g.lon >> g.h) << line.str();
    EXPECT_LT(RR(to_cartesian(kFlatteningWgs84, g) - c), kGigsRounding) << line.str();
    EXPECT_LT(separation(to_geodetic(kFlatteningWgs84, c), g), kGigsRounding) << line.str();
    const double bound = kGigsRounding + ellipsoid_difference(kFlatteningWgs84);
    EXPECT_LT(RR(from_degrees(g) - c), bound) << line.str();
    EXPECT_LT(separation(in_degrees(c), g), bound) << line.str();
    EXPECT_GE(in_degrees(c).lon, 0.0);
  }
}

// X, Y, Z and h are printed to 0.01 mm, angles to 1e-10 degree: a vector of roundings below 0.015 mm.
constexpr double kStationRounding = 1.5e-5;

TEST(CoordsPublished, PermanentStations) {
  auto lines = records("coords_gnss_stations.txt", "XYZBLH");
  EXPECT_EQ(lines.size(), 17U);
  for (auto& line : lines) {
    std::string station;
    std::string frame;
    Coord c;
    Geodetic g;
    ASSERT_TRUE(line >> station >> frame >> c.x >> c.y >> c.z >> g.lat >> g.lon >> g.h) << line.str();
    EXPECT_LT(RR(to_cartesian(kFlatteningGrs80, g) - c), kStationRounding) << station;
    EXPECT_LT(separation(to_geodetic(kFlatteningGrs80, c), g), kStationRounding) << station;
    // The stop of the iteration adds 4.3e-6 m.
    const double bound = kStationRounding + 4.3e-6 + ellipsoid_difference(kFlatteningGrs80);
    EXPECT_LT(RR(from_degrees(g) - c), bound) << station;
    EXPECT_LT(separation(in_degrees(c), g), bound) << station;
  }
}

double degrees_of(std::istringstream& line) {
  int d = 0;
  int m = 0;
  double s = 0.0;
  line >> d >> m >> s;
  return dms_to_deg(d, m, s);
}

// Seconds printed to 0.001 are right to 1.6 cm, X, Y, Z to 0.1 mm or 1 mm.
TEST(CoordsPublished, GeographicToGeocentricExample) {
  auto lines = records("topocentric_examples.txt", "BLHXYZ");
  EXPECT_EQ(lines.size(), 2U);
  for (auto& line : lines) {
    std::string id;
    Geodetic g;
    Coord c;
    line >> id;
    g.lat = degrees_of(line);
    g.lon = degrees_of(line);
    ASSERT_TRUE(line >> g.h >> c.x >> c.y >> c.z) << line.str();
    EXPECT_LT(RR(to_cartesian(kFlatteningWgs84, g) - c), 0.025) << id;
    EXPECT_LT(RR(from_degrees(g) - c), 0.025) << id;
  }
}

// E, N, U and the target are printed to 1 mm: half of that in six numbers. The station's latitude differs by 4e-11
// between the two ellipsoids, which over 230 km is 0.01 mm; the station itself is printed to 0.1 mm.
constexpr double kTopocentricRounding = 0.0013;

TEST(CoordsPublished, GeocentricToTopocentricExample) {
  auto lines = records("topocentric_examples.txt", "ENU");
  EXPECT_EQ(lines.size(), 1U);
  for (auto& line : lines) {
    std::string id;
    Coord station;
    Coord target;
    double east = 0;
    double north = 0;
    double up = 0;
    ASSERT_TRUE(line >> id >> station.x >> station.y >> station.z >> target.x >> target.y >> target.z >> east >>
                north >> up);
    Coord neu;
    PolCoord polar;
    station.relatCoord(target, neu, polar);
    EXPECT_LT(RR(neu - Coord(north, east, up)), kTopocentricRounding);
    const GeoCoord g(station);
    const Coord d = target - station;
    const TAbstractPoint3<double> enu =
        blh_to_neu(TAbstractPoint3<double>(g.b, g.l, g.h), TAbstractPoint3<double>(d.x, d.y, d.z));
    EXPECT_LT(RR(Coord(enu[0], enu[1], enu[2]) - Coord(east, north, up)), kTopocentricRounding);
    Coord placed;
    EXPECT_LT(RR(placed.offsetCoord(station, Coord(north, east, up)) - target), kTopocentricRounding);
  }
}

TEST(CoordsPublished, GeographicToTopocentricExample) {
  auto lines = records("topocentric_examples.txt", "ENUB");
  EXPECT_EQ(lines.size(), 1U);
  for (auto& line : lines) {
    std::string id;
    Geodetic station;
    Geodetic target;
    double east = 0;
    double north = 0;
    double up = 0;
    ASSERT_TRUE(line >> id >> station.lat >> station.lon >> station.h >> target.lat >> target.lon >> target.h >> east >>
                north >> up);
    Coord neu;
    PolCoord polar;
    from_degrees(station).relatCoord(from_degrees(target), neu, polar);
    EXPECT_LT(RR(neu - Coord(north, east, up)), kTopocentricRounding + ellipsoid_difference(kFlatteningWgs84));
  }
}

// Five significant digits: half a unit of the last in each.
TEST(CoordsPublished, AzimuthElevationRangeExample) {
  auto lines = records("topocentric_examples.txt", "AER");
  EXPECT_EQ(lines.size(), 1U);
  for (auto& line : lines) {
    std::string id;
    Geodetic station;
    Geodetic target;
    double azimuth = 0;
    double elevation = 0;
    double range = 0;
    ASSERT_TRUE(line >> id >> station.lat >> station.lon >> station.h >> target.lat >> target.lon >> target.h >>
                azimuth >> elevation >> range);
    Coord neu;
    PolCoord polar;
    from_degrees(station).relatCoord(from_degrees(target), neu, polar);
    polar.rad2deg();
    EXPECT_NEAR(polar.azimuth, azimuth, 0.005);
    EXPECT_NEAR(polar.elevation, elevation, 0.0005);
    EXPECT_NEAR(polar.distance, range, 0.05);
    const TAbstractPoint3<double> free_form = neu_to_polar(TAbstractPoint3<double>(neu.y, neu.x, neu.z));
    EXPECT_NEAR(free_form[0] / kDegree, elevation, 0.0005);
    EXPECT_NEAR(free_form[1] / kDegree, azimuth, 0.005);
    EXPECT_NEAR(free_form[2], range, 0.05);
  }
}

}  // namespace
