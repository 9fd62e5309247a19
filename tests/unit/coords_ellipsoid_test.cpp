// The reference ellipsoid and the two pairs of conversions on it.

#include <alidade/coords.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>

#include "reference/coords.h"
#include "support/bits.h"
#include "support/coords_inputs.h"

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kHalfPi = 1.5707963267948966;
constexpr double kPolarRadius = 6356752.313989722;

// Read while this program's own static objects are built, before main.
const double axis_at_load = DefaultEllipsoid.a;
const double polar_curvature_at_load = DefaultEllipsoid.c;
const GeoCoord position_at_load(6378137.0, 0.0, 0.0);

TEST(CoordEllipsoid, FieldsByBitPattern) {
  CHECK_BITS(DefaultEllipsoid.a, bits::from(0x415854A640000000));
  CHECK_BITS(DefaultEllipsoid.e, bits::from(0x3FB4F21A3EF31D32));
  CHECK_BITS(DefaultEllipsoid.e2, bits::from(0x3F7B6B90F77B10BE));
  CHECK_BITS(DefaultEllipsoid.ep2, bits::from(0x3F7B9ADFE727574C));
  CHECK_BITS(DefaultEllipsoid.onePlusEp2, bits::from(0x3FF01B9ADFE72757));
  CHECK_BITS(DefaultEllipsoid.c, bits::from(0x4158699A6810A40A));
}

TEST(CoordEllipsoid, SixDoublesInOrder) {
  EXPECT_EQ(sizeof(Ellipsoid), 6 * sizeof(double));
  EXPECT_EQ(offsetof(Ellipsoid, a), 0U);
  EXPECT_EQ(offsetof(Ellipsoid, e), 8U);
  EXPECT_EQ(offsetof(Ellipsoid, e2), 16U);
  EXPECT_EQ(offsetof(Ellipsoid, ep2), 24U);
  EXPECT_EQ(offsetof(Ellipsoid, onePlusEp2), 32U);
  EXPECT_EQ(offsetof(Ellipsoid, c), 40U);
}

TEST(CoordEllipsoid, UsableFromAStaticInitialiser) {
  CHECK_BITS(axis_at_load, 6378137.0);
  CHECK_BITS(polar_curvature_at_load, bits::from(0x4158699A6810A40A));
  CHECK_BITS(position_at_load.h, GeoCoord(6378137.0, 0.0, 0.0).h);
  EXPECT_NEAR(position_at_load.h, 0.0, 2e-9);
}

TEST(CoordEllipsoid, AnyOtherEllipsoid) {
  inputs::Source source(20260101);
  for (int i = 0; i < 100000; ++i) {
    const double a = i % 2 == 0 ? source.uniform(6.3e6, 6.4e6) : source.nasty();
    const double e = i % 3 == 0 ? source.nasty() : source.uniform(0.0, 1.0);
    const Ellipsoid ours(a, e);
    const reference::EllipsoidFields theirs = reference::ellipsoid(a, e);
    CHECK_BITS(ours.a, theirs.a);
    CHECK_BITS(ours.e, theirs.e);
    CHECK_BITS(ours.e2, theirs.e2);
    CHECK_BITS(ours.ep2, theirs.ep2);
    CHECK_BITS(ours.onePlusEp2, theirs.one_plus_ep2);
    CHECK_BITS(ours.c, theirs.c);
  }
}

// The eccentricity belongs to the inverse flattening 298.25722, to 1e-10, and not to that of WGS 84.
TEST(CoordEllipsoid, InverseFlattening) {
  const long double e2 = static_cast<long double>(DefaultEllipsoid.e) * DefaultEllipsoid.e;
  const long double inverse_flattening = 1.0L / (1.0L - std::sqrt(1.0L - e2));
  EXPECT_NEAR(static_cast<double>(inverse_flattening - 298.25722L), 0.0, 1e-10);
}

TEST(CoordXyz2Blh, Equator) {
  const GeoCoord east(6378137, 0, 0);
  CHECK_BITS(east.b, 0.0);
  CHECK_BITS(east.l, 0.0);
  EXPECT_NEAR(east.h, 0.0, 2e-9);
  const GeoCoord south_of_zero(0, -6378137, 0);
  CHECK_BITS(south_of_zero.l, -kHalfPi + 6.283185307179586);
  EXPECT_NEAR(south_of_zero.l, 4.71238898038469, 1e-15);
}

// GeoCoord::xyz2blh (2).
TEST(CoordXyz2Blh, PolarAxis) {
  const GeoCoord north(0, 0, kPolarRadius);
  CHECK_BITS(north.b, kHalfPi);
  CHECK_BITS(north.l, 0.0);
  EXPECT_NEAR(north.h, 0.0, 2e-9);
  const GeoCoord south(0, 0, -7000000);
  CHECK_BITS(south.b, -kHalfPi);
  CHECK_BITS(south.l, 0.0);
  EXPECT_NEAR(south.h, 7000000 - kPolarRadius, 2e-9);
  EXPECT_EQ(bits::of(kHalfPi), 0x3FF921FB54442D18U);
}

// GeoCoord::xyz2blh (1).
TEST(CoordXyz2Blh, Centre) {
  for (const double z : {0.0, -0.0}) {
    const GeoCoord centre(0, 0, z);
    CHECK_BITS(centre.b, 0.0);
    CHECK_BITS(centre.l, 0.0);
    CHECK_BITS(centre.h, -6378137.0);
  }
  const GeoCoord nearly(1e-11, -1e-11, 0x1p-1074);
  CHECK_BITS(nearly.b, kHalfPi);
  CHECK_BITS(nearly.l, 0.0);
}

TEST(CoordXyz2Blh, ThresholdOfTheAxisIsStrict) {
  const GeoCoord on_axis(1e-11, 0, 5000);
  CHECK_BITS(on_axis.b, kHalfPi);
  CHECK_BITS(on_axis.h, 5000.0 - std::sqrt(1.0 - DefaultEllipsoid.e2) * DefaultEllipsoid.a);
  ASSERT_EQ(std::sqrt(1e-10 * 1e-10), 1e-10);
  const GeoCoord off_axis(1e-10, 0, 5000);
  EXPECT_LT(off_axis.b, kHalfPi);
  EXPECT_GT(off_axis.b, kHalfPi - 1e-14);
  // On the axis the longitude is 0 whatever the sign of y; off it, atan2 speaks.
  CHECK_BITS(GeoCoord(0, -0.9e-10, 5000).l, 0.0);
  CHECK_BITS(GeoCoord(0, -1.1e-10, 5000).l, -kHalfPi + 6.283185307179586);
}

// GeoCoord::xyz2blh (3).
TEST(CoordXyz2Blh, LongitudeIsShiftedOnlyBelowZero) {
  CHECK_BITS(GeoCoord(6378137, -0.0, 0).l, -0.0);
  CHECK_BITS(GeoCoord(-6378137, 0.0, 0).l, 3.141592653589793);
  CHECK_BITS(GeoCoord(-6378137, -0.0, 0).l, 3.141592653589793);
  // So little below zero that the sum rounds to the full turn itself.
  CHECK_BITS(GeoCoord(6378137, -1e-12, 0).l, 6.283185307179586);
}

TEST(CoordXyz2Blh, ReturnsTheObject) {
  GeoCoord g;
  EXPECT_EQ(&g.xyz2blh(Coord(1e6, 2e6, 3e6)), &g);
  Coord c;
  EXPECT_EQ(&c.blh2xyz(g), &c);
}

// Ten metres from the pole, one unit in the last place of the tangent is 1.2e-10: above the tolerance. The plain
// iteration alternates between two neighbours for ever; the one here ends with the second.
TEST(CoordXyz2Blh, PointWherePlainIterationNeverEnds) {
  const double xyz[3] = {0x1.3ccb8699083e6p+3, 0.0, 0x1.83ff78f94d759p+22};
  double blh[3];
  std::int64_t passes = 0;
  ASSERT_EQ(reference::xyz2blh_plain(xyz, 1000000, blh, &passes), reference::End::kPassesUsedUp);
  ASSERT_EQ(reference::xyz2blh(xyz, blh, &passes), reference::End::kAlternates);
  const GeoCoord g(xyz[0], xyz[1], xyz[2]);
  CHECK_BITS(g.b, blh[0]);
  CHECK_BITS(g.l, blh[1]);
  CHECK_BITS(g.h, blh[2]);
  Coord back;
  back.blh2xyz(g);
  // Right all the same: the tangent is known to a unit in its last place.
  EXPECT_NEAR(RR(back - Coord(xyz[0], xyz[1], xyz[2])), 0.0, 1e-8);
}

TEST(CoordXyz2Blh, SweepByThePoleAlwaysEnds) {
  int endless = 0;
  for (int i = 0; i < 100000; ++i) {
    const double xyz[3] = {12.5 * (i + 0.5) / 100000, 0.0, kPolarRadius + 0.09 * i};
    double blh[3];
    std::int64_t passes = 0;
    if (reference::xyz2blh(xyz, blh, &passes) == reference::End::kAlternates) {
      ++endless;
    }
    const GeoCoord g(xyz[0], xyz[1], xyz[2]);
    CHECK_BITS(g.b, blh[0]);
    CHECK_BITS(g.l, blh[1]);
    CHECK_BITS(g.h, blh[2]);
  }
  EXPECT_GT(endless, 10);  // the sweep does meet points where the plain iteration would not end
}

// By the cusp of the evolute, p = e^2 a = 42697.67 m in the equatorial plane, the iteration hardly contracts. There is
// no cap on the passes: the result is that of the plain iteration, hundreds of thousands of passes later.
TEST(CoordXyz2Blh, SlowPointIsIteratedToItsEnd) {
  const double slow[][3] = {{42697.67 + 0.1, 0.0, 1e-5}, {42697.67 + 0.5, 0.0, 1e-4}, {0.0, 42697.68, -1e-4}};
  for (const auto& xyz : slow) {
    double blh[3];
    std::int64_t passes = 0;
    ASSERT_EQ(reference::xyz2blh_plain(xyz, 20000000, blh, &passes), reference::End::kConverged);
    EXPECT_GT(passes, 100000);
    const GeoCoord g(xyz[0], xyz[1], xyz[2]);
    CHECK_BITS(g.b, blh[0]);
    CHECK_BITS(g.l, blh[1]);
    CHECK_BITS(g.h, blh[2]);
  }
}

// A first step of exactly the tolerance is small enough: one pass more would move the tangent.
TEST(CoordXyz2Blh, StepOfExactlyTheToleranceEndsTheIteration) {
  const double xyz[3] = {20000.0, 0.0, 0x1.f6f3734279868p-21};
  const reference::EllipsoidFields f = reference::default_ellipsoid();
  const double r = 1.0 / xyz[0];
  const double start = xyz[2] * r;
  const double t = (start / std::sqrt(f.one_plus_ep2 + start * start)) * ((r * f.c) * f.e2) + start;
  ASSERT_EQ(t - start, 1e-10);
  const GeoCoord g(xyz[0], xyz[1], xyz[2]);
  CHECK_BITS(g.b, std::atan(t));
}

// GeoCoord::xyz2blh (4).
TEST(CoordXyz2Blh, EndsForNaNAndInfinity) {
  for (const double x : {0.0, 1.0, 6378137.0, kInfinity, -kInfinity, kNaN}) {
    for (const double y : {0.0, -1.0, kInfinity, -kInfinity, kNaN}) {
      for (const double z : {0.0, 5.0, 1e300, kInfinity, -kInfinity, kNaN}) {
        const GeoCoord g(x, y, z);
        if (!std::isfinite(x) || !std::isfinite(y) || !std::isfinite(z)) {
          EXPECT_FALSE(std::isfinite(g.b) && std::isfinite(g.l) && std::isfinite(g.h)) << x << ' ' << y << ' ' << z;
        }
      }
    }
  }
  CHECK_BITS(GeoCoord(0, 0, kInfinity).h, kInfinity);
  CHECK_BITS(GeoCoord(0, 0, kNaN).b, kHalfPi);
  EXPECT_TRUE(std::isnan(GeoCoord(kNaN, 0, 0).b));
  EXPECT_TRUE(std::isnan(GeoCoord(1e-10, 0, 1e300).b));  // z/p overflows
}

TEST(CoordXyz2Blh, InverseOfBlh2Xyz) {
  for (int latitude = -89; latitude <= 89; ++latitude) {
    for (const double h : {-10000.0, 0.0, 8848.0, 20200000.0}) {
      GeoCoord g;
      g.b = latitude * 0.017453292519943295;
      g.l = (latitude + 90) * 0.03;
      g.h = h;
      Coord c;
      const GeoCoord back(c.blh2xyz(g));
      // The stop leaves L/(1 - L) 1e-10 in the tangent with L = 0.0067 at most; then rounding, a few units of t.
      const double t = std::tan(g.b);
      EXPECT_NEAR(std::tan(back.b), t, 1e-12 + 1e-14 * std::fabs(t) * std::fabs(t)) << latitude;
      EXPECT_NEAR(back.l, g.l, 2e-15);
      EXPECT_NEAR(back.h, g.h, 1.5e-6 + 16 * 0x1p-53 * (6.4e6 + h)) << latitude;
    }
  }
}

TEST(CoordGeodToXyz, QuarterTurn) {
  double v[6] = {0.0, 90.0, 0.0, kNaN, kNaN, kNaN};
  geod_to_xyz(1, 6378137.0, 1.0 / 298.257223563, v, v + 1, v + 2, v + 3, v + 4, v + 5);
  CHECK_BITS(v[3], 6378137.0 * std::cos(90.0 * bits::from(0x3F91DF46A2529D3A)));
  EXPECT_NE(v[3], 0.0);
  EXPECT_LT(std::fabs(v[3]), 6378137.0 * 4e-15);
  CHECK_BITS(v[4], 6378137.0);
  CHECK_BITS(v[5], 0.0);
  CHECK_BITS(v[0], 0.0);
  CHECK_BITS(v[1], 90.0);
  CHECK_BITS(v[2], 0.0);
}

TEST(CoordGeodToXyz, AnyNonZeroSelectorGoesToCartesian) {
  for (const int selector : {1, -1, 2, 256, -2147483647 - 1}) {
    double v[6] = {30.0, 60.0, 100.0, kNaN, kNaN, kNaN};
    double w[6] = {30.0, 60.0, 100.0, kNaN, kNaN, kNaN};
    geod_to_xyz(selector, 6378137.0, 1.0 / 298.257223563, v, v + 1, v + 2, v + 3, v + 4, v + 5);
    reference::geod_to_xyz(1, 6378137.0, 1.0 / 298.257223563, w);
    EXPECT_TRUE(bits::equal_arrays(v, w, 6));
  }
}

// geod_to_xyz (1).
TEST(CoordGeodToXyz, NudgesXOnTheMeridianPlane) {
  for (const double y : {6378137.0, -6378137.0}) {
    for (const double zero : {0.0, -0.0}) {
      double v[6] = {kNaN, kNaN, kNaN, zero, y, 0.0};
      geod_to_xyz(0, 6378137.0, 1.0 / 298.257223563, v, v + 1, v + 2, v + 3, v + 4, v + 5);
      CHECK_BITS(v[3], 0.0001);
      CHECK_BITS(v[4], y);
      CHECK_BITS(v[5], 0.0);
      EXPECT_NEAR(v[1], y > 0 ? 90.0 : 270.0, 1e-9);  // 0.0001 m seen from the axis is 9e-10 degrees
      EXPECT_NE(v[1], y > 0 ? 90.0 : 270.0);
    }
  }
}

TEST(CoordGeodToXyz, LongitudeBelowFullTurn) {
  double v[6] = {kNaN, kNaN, kNaN, 6378137.0, -1e-3, 0.0};
  geod_to_xyz(0, 6378137.0, 1.0 / 298.257223563, v, v + 1, v + 2, v + 3, v + 4, v + 5);
  EXPECT_LT(v[1], 360.0);
  EXPECT_GT(v[1], 359.9999999);
}

// geod_to_xyz (2).
TEST(CoordGeodToXyz, CentreGivesNaN) {
  double v[6] = {1.0, 2.0, 3.0, 0.0, 0.0, 0.0};
  geod_to_xyz(0, 6378137.0, 1.0 / 298.257223563, v, v + 1, v + 2, v + 3, v + 4, v + 5);
  EXPECT_TRUE(std::isnan(v[0]));
  EXPECT_TRUE(std::isnan(v[2]));
  CHECK_BITS(v[1], 0.0);  // the longitude of the nudged point
  CHECK_BITS(v[3], 0.0001);
}

// geod_to_xyz (3).
TEST(CoordGeodToXyz, EndsForNaNAndInfinity) {
  for (const double x : {1.0, kInfinity, -kInfinity, kNaN}) {
    for (const double y : {-1.0, kInfinity, kNaN}) {
      for (const double z : {5.0, 1e300, -kInfinity, kNaN}) {
        double v[6] = {kNaN, kNaN, kNaN, x, y, z};
        geod_to_xyz(0, 6378137.0, 1.0 / 298.257223563, v, v + 1, v + 2, v + 3, v + 4, v + 5);
        if (!std::isfinite(x) || !std::isfinite(y) || !std::isfinite(z)) {
          EXPECT_FALSE(std::isfinite(v[0]) && std::isfinite(v[1]) && std::isfinite(v[2])) << x << ' ' << y << ' ' << z;
        }
      }
    }
  }
}

TEST(CoordGeodToXyz, PoleIsReached) {
  double v[6] = {kNaN, kNaN, kNaN, 0.0, 0.0, 7000000.0};
  geod_to_xyz(0, 6378137.0, 1.0 / 298.257223563, v, v + 1, v + 2, v + 3, v + 4, v + 5);
  EXPECT_NEAR(v[0], 90.0, 1e-13);
  EXPECT_NEAR(v[2], 7000000.0 - 6356752.314245179, 1e-8);
  CHECK_BITS(v[3], 0.0001);
  CHECK_BITS(v[1], 0.0);
}

}  // namespace
