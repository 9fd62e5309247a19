// Coordinate records: constructors, arithmetic, lengths, unit switches.

#include <alidade/coords.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <new>
#include <type_traits>

#include "support/bits.h"

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

void expect_coord(const Coord& c, double x, double y, double z) {
  CHECK_BITS(c.x, x);
  CHECK_BITS(c.y, y);
  CHECK_BITS(c.z, z);
}

TEST(CoordRecords, EachRecordIsThreeDoublesInOrder) {
  static_assert(sizeof(Coord) == 3 * sizeof(double) && std::is_standard_layout<Coord>::value, "Coord");
  static_assert(sizeof(GeoCoord) == 3 * sizeof(double) && std::is_standard_layout<GeoCoord>::value, "GeoCoord");
  static_assert(sizeof(PolCoord) == 3 * sizeof(double) && std::is_standard_layout<PolCoord>::value, "PolCoord");
  static_assert(std::is_trivially_copyable<Coord>::value && std::is_trivially_copyable<GeoCoord>::value &&
                    std::is_trivially_copyable<PolCoord>::value,
                "plain values");
  EXPECT_EQ(offsetof(Coord, x), 0U);
  EXPECT_EQ(offsetof(Coord, y), 8U);
  EXPECT_EQ(offsetof(Coord, z), 16U);
  EXPECT_EQ(offsetof(GeoCoord, b), 0U);
  EXPECT_EQ(offsetof(GeoCoord, l), 8U);
  EXPECT_EQ(offsetof(GeoCoord, h), 16U);
  EXPECT_EQ(offsetof(PolCoord, azimuth), 0U);
  EXPECT_EQ(offsetof(PolCoord, elevation), 8U);
  EXPECT_EQ(offsetof(PolCoord, distance), 16U);
}

TEST(CoordRecords, ConstructorsAndAssignment) {
  expect_coord(Coord(), 0.0, 0.0, 0.0);
  expect_coord(Coord(1.0), 1.0, 0.0, 0.0);
  expect_coord(Coord(1.0, -2.0), 1.0, -2.0, 0.0);
  Coord c;
  Coord* const returned = &(c = 5.0);
  EXPECT_EQ(returned, &c);
  expect_coord(c, 5.0, 5.0, 5.0);
  Coord d(1, 2, 3);
  EXPECT_EQ(&(c = d), &c);
  expect_coord(c, 1.0, 2.0, 3.0);
}

// The buffer is filled and read through volatile: the compiler may neither drop the filling, which ends the life of
// what it fills, nor invent the reading.
TEST(CoordRecords, FreshGeoCoordLeavesItsStorageAlone) {
  alignas(GeoCoord) unsigned char storage[sizeof(GeoCoord)];
  volatile unsigned char* const bytes = storage;
  for (std::size_t i = 0; i < sizeof storage; ++i) {
    bytes[i] = static_cast<unsigned char>(0x40 + i);
  }
  const GeoCoord* const record = new (storage) GeoCoord();
  EXPECT_EQ(static_cast<const void*>(record), static_cast<const void*>(storage));
  for (std::size_t i = 0; i < sizeof storage; ++i) {
    EXPECT_EQ(bytes[i], 0x40 + i) << "byte " << i;
  }
}

TEST(CoordRecords, ConstructingFromThreeNumbersConverts) {
  const GeoCoord g(6378137, 0, 0);
  CHECK_BITS(g.b, 0.0);
  CHECK_BITS(g.l, 0.0);
  EXPECT_NEAR(g.h, 0.0, 2e-9);  // two units in the last place of the axis
  const GeoCoord h(Coord(6378137, 0, 0));
  CHECK_BITS(h.h, g.h);
}

TEST(CoordRecords, Arithmetic) {
  const Coord a(1.5, -2.0, 4.0);
  const Coord b(0.25, 8.0, -1.0);
  expect_coord(a + b, 1.75, 6.0, 3.0);
  expect_coord(a - b, 1.25, -10.0, 5.0);
  expect_coord(-Coord(0.0, -0.0, 3.0), -0.0, 0.0, -3.0);
  expect_coord(a * 2.0, 3.0, -4.0, 8.0);
  Coord c = a;
  EXPECT_EQ(&(c += b), &c);
  expect_coord(c, 1.75, 6.0, 3.0);
  EXPECT_EQ(&(c -= b), &c);
  expect_coord(c, 1.5, -2.0, 4.0);
  EXPECT_EQ(&(c *= -2.0), &c);
  expect_coord(c, -3.0, 4.0, -8.0);
  EXPECT_EQ(&(c /= 4.0), &c);
  expect_coord(c, -0.75, 1.0, -2.0);
  CHECK_BITS(a * b, -19.625);
}

// GCC's run-time library for ARM without floating-point unit loses a bit here. A library compiled with link-time
// optimisation once took that subtraction, and only the results told.
TEST(CoordRecords, DifferenceOfNumbersFarApart) {
  const Coord difference = Coord(1.0, 0.0, 0.0) - Coord(0x1.011dd78f9949ap-33, 0.0, 0.0);
  CHECK_BITS(difference.x, 0x1.fffffffefee23p-1);
}

TEST(CoordRecords, DotProductIsSummedFromZToX) {
  const Coord a(1.0, 1e16, -1e16);
  const Coord one(1.0, 1.0, 1.0);
  CHECK_BITS(a * one, 1.0);
  CHECK_BITS(Coord(-1e16, 1e16, 1.0) * one, 0.0);  // (1 + 1e16) - 1e16 loses the one
}

// The reciprocal of ten is rounded, and the product again; the quotient is rounded once.
TEST(CoordRecords, TheTwoDivisionsDiffer) {
  const double three = 3.0;
  const double ten = 10.0;
  const double reciprocal = 1.0 / ten;
  ASSERT_NE(three * reciprocal, three / ten);
  Coord c(three, 6.0, 7.0);
  expect_coord(c / ten, three * reciprocal, 6.0 * reciprocal, 7.0 * reciprocal);
  c /= ten;
  expect_coord(c, three / ten, 6.0 / ten, 7.0 / ten);
}

TEST(CoordRecords, DivisionByZeroIsNotGuarded) {
  expect_coord(Coord(1, 2, 3) / 0.0, kInfinity, kInfinity, kInfinity);
  const Coord zero = Coord(0, 0, 0) / 0.0;
  EXPECT_TRUE(std::isnan(zero.x) && std::isnan(zero.y) && std::isnan(zero.z));
  Coord c(1.0, -2.0, 0.0);
  c /= 0.0;
  CHECK_BITS(c.x, kInfinity);
  CHECK_BITS(c.y, -kInfinity);
  EXPECT_TRUE(std::isnan(c.z));
}

// The scalar is passed by reference: a component of the object itself counts with its value on entry.
TEST(CoordRecords, ScalarMayBeAComponentOfTheObject) {
  Coord c(2.0, 6.0, 10.0);
  c /= c.x;
  expect_coord(c, 1.0, 3.0, 5.0);
  c *= c.y;
  expect_coord(c, 3.0, 9.0, 15.0);
  c = c.z;
  expect_coord(c, 15.0, 15.0, 15.0);
  const Coord& same = c;
  c += same;
  expect_coord(c, 30.0, 30.0, 30.0);
  c -= same;
  expect_coord(c, 0.0, 0.0, 0.0);
}

TEST(CoordRecords, Lengths) {
  CHECK_BITS(RR(Coord(3, 4, 0)), 5.0);
  CHECK_BITS(R2(Coord(3, 4, 0)), 25.0);
  CHECK_BITS(RR(3, 0, 4), 5.0);
}

// For these three numbers the three orders of summation give three different roots.
TEST(CoordRecords, OrderOfTheSquares) {
  const double a = 2.9;
  const double b = 3.4;
  const double c = 5.1;
  const double first_second = std::sqrt((a * a + b * b) + c * c);
  const double first_third = std::sqrt((a * a + c * c) + b * b);
  const double second_third = std::sqrt((b * b + c * c) + a * a);
  ASSERT_TRUE(first_second != first_third && first_second != second_third && first_third != second_third);
  CHECK_BITS(RR(Coord(a, b, c)), first_second);
  CHECK_BITS(R2(Coord(a, b, c)), (a * a + b * b) + c * c);
  CHECK_BITS(RR(a, b, c), first_third);
}

TEST(CoordRecords, UnitSwitchesLeaveTheLengthAlone) {
  GeoCoord g;
  g.b = 0.7;
  g.l = 3.9;
  g.h = 0.1;
  g.rad2deg();
  CHECK_BITS(g.b, 0.7 * bits::from(0x404CA5DC1A63C1F8));
  CHECK_BITS(g.l, 3.9 * bits::from(0x404CA5DC1A63C1F8));
  CHECK_BITS(g.h, 0.1);
  const double b_degrees = g.b;
  g.deg2rad();
  CHECK_BITS(g.b, b_degrees * bits::from(0x3F91DF46A2529D39));
  CHECK_BITS(g.h, 0.1);
  EXPECT_NEAR(g.b, 0.7, 2e-16);  // there and back: one rounding each way
  EXPECT_NEAR(g.l, 3.9, 1e-15);

  PolCoord p;
  p.azimuth = 6.0;
  p.elevation = -1.25;
  p.distance = 1234.5;
  p.rad2deg();
  CHECK_BITS(p.azimuth, 6.0 * bits::from(0x404CA5DC1A63C1F8));
  CHECK_BITS(p.elevation, -1.25 * bits::from(0x404CA5DC1A63C1F8));
  CHECK_BITS(p.distance, 1234.5);
  p.azimuth = 350.0;
  p.elevation = -33.0;
  p.deg2rad();
  CHECK_BITS(p.azimuth, 350.0 * bits::from(0x3F91DF46A2529D39));
  CHECK_BITS(p.elevation, -33.0 * bits::from(0x3F91DF46A2529D39));
  CHECK_BITS(p.distance, 1234.5);
}

TEST(CoordRecords, ArcSeconds) {
  GeoCoord g;
  g.h = 0.0;
  g.b = -12.5;
  g.l = 360.0;
  CHECK_BITS(g.Latitude(), -45000.0);
  CHECK_BITS(g.Longitude(), 0.0);
  g.l = 0.0;
  CHECK_BITS(g.Longitude(), -1296000.0);
  g.l = 350.0;
  CHECK_BITS(g.Longitude(), -36000.0);
  g.l = 10.0;
  CHECK_BITS(g.Longitude(), -1260000.0);
  g.l = 361.0;
  CHECK_BITS(g.Longitude(), 3600.0);
}

}  // namespace
