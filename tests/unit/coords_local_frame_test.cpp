// Local frames: north, east, up and azimuth, elevation, distance.

#include <alidade/coords.h>
#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>

#include "support/bits.h"
#include "support/coords_inputs.h"

namespace {

constexpr double kHalfPi = 1.5707963267948966;
constexpr double kFullTurn = 6.283185307179586;
const Coord kStation(6378137, 0, 0);

struct Reduction {
  Coord neu;
  PolCoord polar;
};

Reduction reduce(const Coord& station, const Coord& target) {
  Reduction r;
  station.relatCoord(target, r.neu, r.polar);
  return r;
}

void expect_neu(const Reduction& r, double north, double east, double up) {
  EXPECT_EQ(r.neu.x, north);
  EXPECT_EQ(r.neu.y, east);
  EXPECT_EQ(r.neu.z, up);
}

TEST(CoordLocalFrame, North) {
  const Reduction r = reduce(kStation, Coord(6378137, 0, 100));
  expect_neu(r, 100.0, 0.0, 0.0);
  CHECK_BITS(r.polar.azimuth, 0.0);
  CHECK_BITS(r.polar.elevation, 0.0);
  CHECK_BITS(r.polar.distance, 100.0);
}

TEST(CoordLocalFrame, East) {
  const Reduction r = reduce(kStation, Coord(6378137, 100, 0));
  expect_neu(r, 0.0, 100.0, 0.0);
  CHECK_BITS(r.polar.azimuth, kHalfPi);
}

TEST(CoordLocalFrame, WestIsShiftedIntoTheFullTurn) {
  const Reduction r = reduce(kStation, Coord(6378137, -100, 0));
  CHECK_BITS(r.polar.azimuth, -kHalfPi + kFullTurn);
}

TEST(CoordLocalFrame, Up) {
  const Reduction r = reduce(kStation, Coord(6378237, 0, 0));
  expect_neu(r, 0.0, 0.0, 100.0);
  CHECK_BITS(r.polar.elevation, kHalfPi);
}

TEST(CoordLocalFrame, TargetEqualToStationIsNotGuarded) {
  const Reduction r = reduce(kStation, kStation);
  CHECK_BITS(r.polar.distance, 0.0);
  CHECK_BITS(r.polar.elevation, std::atan2(r.neu.z, std::sqrt(r.neu.x * r.neu.x + r.neu.y * r.neu.y)));
  EXPECT_EQ(r.polar.azimuth, 0.0);
}

// On the axis the longitude counts as 0: east is the direction of y.
TEST(CoordLocalFrame, StationOnTheAxis) {
  const Reduction r = reduce(Coord(0, 0, 7000000), Coord(0, 50, 7000000));
  EXPECT_EQ(r.neu.y, 50.0);
  EXPECT_NEAR(r.neu.x, 0.0, 1e-14);
  EXPECT_NEAR(r.polar.azimuth, kHalfPi, 1e-15);
  const Reduction towards_x = reduce(Coord(0, 0, 7000000), Coord(50, 0, 7000000));
  EXPECT_NEAR(towards_x.neu.x, -50.0, 1e-13);  // north, at the pole seen from longitude 0, is away from x
}

TEST(CoordLocalFrame, StationAtTheCentre) {
  const Reduction r = reduce(Coord(), Coord(3, 4, 12));
  expect_neu(r, 12.0, 4.0, 3.0);
  CHECK_BITS(r.polar.distance, 13.0);
}

// The distance is the length of the geocentric difference, (x^2 + y^2) + z^2, not of the rotated vector.
TEST(CoordLocalFrame, DistanceIsOfTheDifference) {
  inputs::Source source(20260102);
  int differing = 0;
  for (int i = 0; i < 1000; ++i) {
    const inputs::Vector s = source.on_sphere(6.37e6);
    const Coord station(s[0], s[1], s[2]);
    const Coord target(s[0] + source.uniform(-1e4, 1e4), s[1] + source.uniform(-1e4, 1e4),
                       s[2] + source.uniform(-1e4, 1e4));
    const Reduction r = reduce(station, target);
    CHECK_BITS(r.polar.distance, RR(target - station));
    if (r.polar.distance != RR(r.neu)) {
      ++differing;
    }
  }
  EXPECT_GT(differing, 0);
}

TEST(CoordLocalFrame, OffsetIsTheInverse) {
  inputs::Source source(20260103);
  for (int i = 0; i < 10000; ++i) {
    const inputs::Vector s = source.on_sphere(source.uniform(6.3e6, 4.3e7));
    const Coord station(s[0], s[1], s[2]);
    const double reach = source.magnitude(0.0, 6.0);
    const Coord target(s[0] + source.uniform(-reach, reach), s[1] + source.uniform(-reach, reach),
                       s[2] + source.uniform(-reach, reach));
    const Reduction r = reduce(station, target);
    Coord back;
    EXPECT_EQ(&back.offsetCoord(station, r.neu), &back);
    // Ten roundings of the offset in each rotation, two of the position.
    const double bound = 20 * 0x1p-53 * reach * 2 + 4 * 0x1p-53 * 4.5e7;
    EXPECT_NEAR(RR(back - target), 0.0, bound);
  }
}

// All that is read is read before anything is written.
TEST(CoordLocalFrame, ObjectsMayCoincide) {
  const Coord station(-2862122.55, -1540662.12, 5469360.37);
  const Coord target(-2861845.12, -1541212.39, 5469368.90);
  const Reduction expected = reduce(station, target);
  PolCoord polar;
  Coord both = station;
  both.relatCoord(target, both, polar);
  CHECK_BITS(both.x, expected.neu.x);
  CHECK_BITS(both.z, expected.neu.z);
  CHECK_BITS(polar.distance, expected.polar.distance);
  both = target;
  station.relatCoord(both, both, polar);
  CHECK_BITS(both.y, expected.neu.y);
  CHECK_BITS(polar.distance, expected.polar.distance);

  Coord apart;
  apart.offsetCoord(station, expected.neu);
  Coord onto_station = station;
  onto_station.offsetCoord(onto_station, expected.neu);
  Coord onto_offset = expected.neu;
  onto_offset.offsetCoord(station, onto_offset);
  for (const Coord* c : {&onto_station, &onto_offset}) {
    CHECK_BITS(c->x, apart.x);
    CHECK_BITS(c->y, apart.y);
    CHECK_BITS(c->z, apart.z);
  }
}

TEST(CoordLocalFrame, FreeFunctionPutsEastFirst) {
  const TAbstractPoint3<double> enu =
      blh_to_neu(TAbstractPoint3<double>(0.0, 0.0, 1e9), TAbstractPoint3<double>(0.0, 0.0, 1.0));
  EXPECT_EQ(enu[0], 0.0);
  EXPECT_EQ(enu[1], 1.0);
  EXPECT_EQ(enu[2], 0.0);
}

// neu_to_polar (1).
TEST(CoordLocalFrame, PolarOfZeroIsMarkedUndefined) {
  for (const double zero : {0.0, -0.0}) {
    const TAbstractPoint3<double> polar = neu_to_polar(TAbstractPoint3<double>(zero, -zero, zero));
    CHECK_BITS(polar[0], bits::from(0x7FEFFFFFFFFFFFFF));
    CHECK_BITS(polar[1], bits::from(0x7FEFFFFFFFFFFFFF));
    CHECK_BITS(polar[2], 0.0);
    CHECK_BITS(polar[0], DBL_MAX);
  }
  // Squares that underflow count as zero.
  const TAbstractPoint3<double> tiny = neu_to_polar(TAbstractPoint3<double>(1e-170, -1e-170, 0.0));
  CHECK_BITS(tiny[0], DBL_MAX);
  CHECK_BITS(tiny[2], 0.0);
}

// neu_to_polar (2).
TEST(CoordLocalFrame, PolarOfTheVertical) {
  const TAbstractPoint3<double> polar = neu_to_polar(TAbstractPoint3<double>(0.0, 0.0, -5.0));
  CHECK_BITS(polar[0], -kHalfPi);
  CHECK_BITS(polar[1], 0.0);
  CHECK_BITS(polar[2], 5.0);
}

TEST(CoordLocalFrame, PolarQuadrants) {
  CHECK_BITS(neu_to_polar(TAbstractPoint3<double>(3.0, 0.0, 4.0))[1], kHalfPi);
  CHECK_BITS(neu_to_polar(TAbstractPoint3<double>(3.0, 0.0, 4.0))[2], 5.0);
  CHECK_BITS(neu_to_polar(TAbstractPoint3<double>(-3.0, 0.0, 0.0))[1], -kHalfPi + kFullTurn);
  CHECK_BITS(neu_to_polar(TAbstractPoint3<double>(0.0, -1.0, 0.0))[1], 3.141592653589793);
  CHECK_BITS(neu_to_polar(TAbstractPoint3<double>(-1e-20, 1.0, 0.0))[1], kFullTurn);  // neu_to_polar (3)
}

}  // namespace
