// The axis of a road against closed forms. The points of the road that comes with the program were chosen on circles
// through whole-numbered points, so that radii and tangents are known without rounding.

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <sstream>

#include "stakeout/alignment.h"
#include "stakeout/parcel.h"
#include "stakeout/station_text.h"

namespace {

using namespace stakeout;

constexpr double kMetre = 1e-9;       // what lengths and coordinates must meet
constexpr double kDirection = 1e-11;  // a nanometre over a hundred metres
constexpr double kPi = 3.141592653589793;

RoadPlan plan_of(const std::string& text) {
  std::istringstream input(text);
  return read_road_plan(input, "test");
}

// Angle from one whole-numbered radius vector to another, less than half a turn.
double angle_between(double x1, double y1, double x2, double y2) {
  return std::atan2(std::fabs(x1 * y2 - y1 * x2), x1 * x2 + y1 * y2);
}

void expect_point(const Point& p, double x, double y, double tolerance = kMetre) {
  EXPECT_NEAR(p.x(), x, tolerance);
  EXPECT_NEAR(p.y(), y, tolerance);
}

class MillLane : public testing::Test {
protected:
  const Element& element(std::size_t k) const { return alignment.elements()[k]; }
  Point end_direction(std::size_t k) const { return element(k).at(element(k).length).direction; }

  RoadPlan plan = read_road_plan_file(ROAD_FILE);
  Alignment alignment{plan};
};

TEST_F(MillLane, Radii) {
  ASSERT_EQ(alignment.elements().size(), 4U);
  EXPECT_NEAR(element(1).arc.radius, 325.0, kMetre);
  EXPECT_NEAR(element(2).arc.radius, 195.0, kMetre);
  expect_point(element(1).arc.centre, 341.0, 125.5);
  expect_point(element(2).arc.centre, 213.0, 629.5);
}

TEST_F(MillLane, Lengths) {
  const double first = 325.0 * angle_between(-323.0, 36.0, -80.0, 315.0);
  const double second = 195.0 * angle_between(48.0, -189.0, 168.0, -99.0);
  EXPECT_NEAR(element(0).length, 162.5, kMetre);  // (18, 161.5) is half of (36, 323)
  EXPECT_NEAR(element(1).length, first, kMetre);
  EXPECT_NEAR(element(2).length, second, kMetre);
  EXPECT_NEAR(element(3).length, 195.0, kMetre);
  EXPECT_NEAR(alignment.begin_station(), 1200.0, 0.0);
  EXPECT_NEAR(alignment.end_station(), 1200.0 + 162.5 + first + second + 195.0, kMetre);
}

TEST_F(MillLane, EndTangents) {
  expect_point(element(0).at(0.0).direction, 36.0 / 325.0, 323.0 / 325.0, kDirection);
  expect_point(element(1).at(0.0).direction, 36.0 / 325.0, 323.0 / 325.0, kDirection);
  expect_point(end_direction(1), 63.0 / 65.0, 16.0 / 65.0, kDirection);
  expect_point(element(2).at(0.0).direction, 63.0 / 65.0, 16.0 / 65.0, kDirection);
  expect_point(end_direction(2), 33.0 / 65.0, 56.0 / 65.0, kDirection);
  expect_point(end_direction(3), 33.0 / 65.0, 56.0 / 65.0, kDirection);
  for (std::size_t k = 0; k < 4; ++k) {
    EXPECT_NEAR(alignment.kink(k), 0.0, kDirection) << k;
  }
}

TEST_F(MillLane, Bends) {
  EXPECT_TRUE(element(1).turns_right);
  EXPECT_FALSE(element(2).turns_right);
}

TEST_F(MillLane, ElementsEndWhereThePlanSays) {
  for (const Element& e : alignment.elements()) {
    const Point end = e.at(e.length).point;
    expect_point(end, e.end.x(), e.end.y());
  }
  // The plan's third point of the first bend lies on it.
  EXPECT_NEAR(alignment.closest(plan.elements[1].via).offset, 0.0, kMetre);
}

TEST_F(MillLane, StakesStandAtTheirOffsets) {
  for (const double station : stake_stations(plan, alignment)) {
    for (const double offset : {-3.5, 0.0, 3.5, 12.25}) {
      const Stake stake = make_stake(alignment, station, offset);
      const ClosestPoint back = alignment.closest(stake.point);
      EXPECT_NEAR(back.station, station, kMetre);
      EXPECT_NEAR(back.offset, offset, kMetre);
    }
  }
  // In the first bend the right side is the inner one.
  const Stake inner = make_stake(alignment, 1500.0, 3.5);
  EXPECT_NEAR(Point(inner.point - element(1).arc.centre).Module(), 325.0 - 3.5, kMetre);
  const Stake outer = make_stake(alignment, 1800.0, 3.5);
  EXPECT_NEAR(Point(outer.point - element(2).arc.centre).Module(), 195.0 + 3.5, kMetre);
}

TEST_F(MillLane, StakeStations) {
  const std::vector<double> stations = stake_stations(plan, alignment);
  EXPECT_EQ(stations.size(), 91U + 4U);  // 1+200 to 2+100, and four main points in between and behind
  EXPECT_EQ(stations.front(), 1200.0);
  EXPECT_EQ(stations.back(), alignment.end_station());
  for (std::size_t i = 1; i < stations.size(); ++i) {
    EXPECT_LT(stations[i - 1], stations[i]);
    EXPECT_LE(stations[i] - stations[i - 1], 10.0);
  }
}

TEST_F(MillLane, Azimuths) {
  EXPECT_NEAR(make_stake(alignment, 1200.0, 0.0).azimuth, std::atan2(36.0, 323.0), kDirection);
  EXPECT_NEAR(make_stake(alignment, 2105.0, 0.0).azimuth, std::atan2(33.0, 56.0), kDirection);
  EXPECT_NEAR(azimuth_of(Point(-1.0, 0.0)), 1.5 * kPi, kDirection);
}

TEST_F(MillLane, AsBuiltPointsBeyondTheEnds) {
  const AxisPoint begin = alignment.at(1200.0);
  const ClosestPoint before = alignment.closest(Point(begin.point - begin.direction * 7.0));
  EXPECT_TRUE(before.beyond_an_end);
  EXPECT_EQ(before.station, 1200.0);
  EXPECT_NEAR(std::fabs(before.offset), 7.0, kMetre);
  const AxisPoint end = alignment.at(alignment.end_station());
  const ClosestPoint behind = alignment.closest(Point(end.point + end.direction * 7.0));
  EXPECT_TRUE(behind.beyond_an_end);
  EXPECT_NEAR(behind.station, alignment.end_station(), 0.0);
  EXPECT_FALSE(alignment.closest(plan.as_built[0].point).beyond_an_end);
}

// The same bend, given from its tangent, must be the same arc: the road of the plan driven from its other end.
TEST(Alignments, TheSameRoadFromItsOtherEnd) {
  const Alignment there(read_road_plan_file(ROAD_FILE));
  const Alignment back(
      plan_of("BEGIN 0 5322098.5 468680\n"
              "TANGENT 5321930.5 468581\n"
              "ARC_FROM_TANGENT 5321840.5 468461\n"
              "ARC3 5321778.5 468337 5321561.5 468218\n"
              "TANGENT 5321400 468200\n"));
  ASSERT_EQ(back.elements().size(), 4U);
  for (std::size_t k = 0; k < 4; ++k) {
    const Element& a = there.elements()[k];
    const Element& b = back.elements()[3 - k];
    EXPECT_NEAR(a.length, b.length, kMetre) << k;
    EXPECT_NEAR(back.kink(k), 0.0, kDirection) << k;
    if (a.is_arc) {
      EXPECT_NEAR(a.arc.radius, b.arc.radius, kMetre);
      EXPECT_NE(a.turns_right, b.turns_right);
    }
  }
}

// Three quarters of a circle of radius 65, once to the right and once to the left; the beginning is the origin.
TEST(Alignments, ArcsOfMoreThanHalfATurn) {
  const Alignment right(plan_of("BEGIN 0 0 -65\nARC3 65 0 -65 0\n"));
  EXPECT_TRUE(right.elements()[0].turns_right);
  EXPECT_NEAR(right.elements()[0].length, 65.0 * 1.5 * kPi, kMetre);
  expect_point(right.at(65.0 * kPi).point, 130.0, 0.0);
  const Alignment left(plan_of("BEGIN 0 0 -65\nARC3 -65 0 65 0\n"));
  EXPECT_FALSE(left.elements()[0].turns_right);
  EXPECT_NEAR(left.elements()[0].length, 65.0 * 1.5 * kPi, kMetre);
  expect_point(left.at(65.0 * kPi).point, 130.0, 0.0);
}

// Off the arc the nearer end counts, and the circle's centre has a foot too.
TEST(Alignments, ClosestPointOfAnArc) {
  const Alignment quarter(plan_of("BEGIN 100 0 0\nARC3 16 2 65 65\n"));  // about (65, 0): (2, 16) = (-63, 16) from it
  EXPECT_NEAR(quarter.elements()[0].arc.radius, 65.0, kMetre);
  const ClosestPoint before = quarter.closest(Point(0.0, -10.0));
  EXPECT_EQ(before.station, 100.0);
  EXPECT_TRUE(before.beyond_an_end);
  const ClosestPoint behind = quarter.closest(Point(75.0, 65.0));
  EXPECT_NEAR(behind.station, quarter.end_station(), kMetre);
  EXPECT_TRUE(behind.beyond_an_end);
  EXPECT_NEAR(quarter.closest(Point(65.0, 0.0)).offset, 65.0, kMetre);
}

TEST(Alignments, AKinkIsReportedWithItsSide) {
  const Alignment road(plan_of("BEGIN 0 0 0\nTANGENT 100 0\nTANGENT 200 100\nTANGENT 300 100\n"));
  EXPECT_NEAR(road.kink(1), kPi / 4.0, kDirection);
  EXPECT_NEAR(road.kink(2), -kPi / 4.0, kDirection);
  EXPECT_NEAR(road.closest(Point(10.0, 50.0)).offset, 10.0, kMetre);
  EXPECT_NEAR(road.closest(Point(-10.0, 50.0)).offset, -10.0, kMetre);
}

// A straight due north has no slope, one due east no intersection in slope form with its perpendicular but this one.
TEST(Alignments, StraightsAlongTheAxes) {
  for (const char* text : {"BEGIN 0 7 3\nTANGENT 107 3\n", "BEGIN 0 7 3\nTANGENT 7 103\n",
                           "BEGIN 0 7 3\nTANGENT -93 3\n", "BEGIN 0 7 3\nTANGENT 7 -97\n"}) {
    const Alignment road(plan_of(text));
    for (const double offset : {-2.0, 2.0}) {
      const ClosestPoint closest = road.closest(make_stake(road, 40.0, offset).point);
      EXPECT_NEAR(closest.station, 40.0, kMetre) << text;
      EXPECT_NEAR(closest.offset, offset, kMetre) << text;
    }
  }
}

TEST(Parcels, AreaByTrianglesIsTheAreaByTrapezoids) {
  const RoadPlan plan = read_road_plan_file(ROAD_FILE);
  const Parcel parcel = measure_parcel(plan.parcel);
  std::int64_t twice = 0;  // in whole square metres: the corners are whole numbers
  for (std::size_t i = 0; i < plan.parcel.size(); ++i) {
    const Point& a = plan.parcel[i].point;
    const Point& b = plan.parcel[(i + 1) % plan.parcel.size()].point;
    twice += static_cast<std::int64_t>(b.x() - a.x()) * static_cast<std::int64_t>(a.y() + b.y());
  }
  EXPECT_EQ(parcel.area, static_cast<double>(twice) / 2.0);
  EXPECT_TRUE(parcel.clockwise);
  double angles = 0.0;
  for (const ParcelCorner& corner : parcel.corners) {
    angles += corner.inner_angle;
  }
  EXPECT_NEAR(angles, 5.0 * kPi, 1e-7);  // seven corners; acos loses half the digits near a straight angle
}

TEST(Parcels, ASquareEitherWay) {
  const std::vector<Corner> square = {{{}, "A", Point(0.0, 0.0)},
                                      {{}, "B", Point(0.0, 20.0)},
                                      {{}, "C", Point(20.0, 20.0)},
                                      {{}, "D", Point(20.0, 0.0)}};
  const Parcel clockwise_parcel = measure_parcel(square);
  EXPECT_EQ(clockwise_parcel.area, 400.0);
  EXPECT_TRUE(clockwise_parcel.clockwise);
  const Parcel other = measure_parcel(std::vector<Corner>(square.rbegin(), square.rend()));
  EXPECT_EQ(other.area, 400.0);
  EXPECT_FALSE(other.clockwise);
  for (const Parcel& parcel : {clockwise_parcel, other}) {
    expect_point(parcel.centroid, 10.0, 10.0);
    for (const ParcelCorner& corner : parcel.corners) {
      EXPECT_NEAR(corner.inner_angle, kPi / 2.0, kDirection);
      EXPECT_EQ(corner.side, 20.0);
    }
  }
}

TEST(Texts, Stations) {
  EXPECT_EQ(station_text(0.0, 3), "0+000.000");
  EXPECT_EQ(station_text(1234.5, 3), "1+234.500");
  EXPECT_EQ(station_text(999.9996, 3), "1+000.000");
  EXPECT_EQ(station_text(999.9994, 3), "0+999.999");
  EXPECT_EQ(station_text(1250.0, 0), "1+250");
  EXPECT_EQ(station_text(12005.04321, 4), "12+005.0432");
}

TEST(Texts, DegreesMinutesSeconds) {
  EXPECT_EQ(dms_text(0.0), "  0-00-00.0");
  EXPECT_EQ(dms_text(kPi), "180-00-00.0");
  EXPECT_EQ(dms_text(kPi / 3.0), " 60-00-00.0");
  EXPECT_EQ(dms_text(2.0 * kPi), "  0-00-00.0");
  EXPECT_EQ(dms_text(2.0 * kPi - 1e-9), "  0-00-00.0");
  EXPECT_EQ(dms_text((10.0 + 59.0 / 60.0 + 59.96 / 3600.0) * kPi / 180.0), " 11-00-00.0");
  EXPECT_EQ(dms_text((10.0 + 59.0 / 60.0 + 59.94 / 3600.0) * kPi / 180.0), " 10-59-59.9");
}

}  // namespace
