// The drawing: what must be on it, and that its labels can be read.

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

#include "program_under_test.h"
#include "stakeout/site_plan.h"
#include "stakeout/svg_plan.h"

namespace {

using namespace stakeout;
using demo::overlap;
using demo_tests::count;

RoadPlan mill_lane() { return read_road_plan_file(ROAD_FILE); }

void expect_readable(const SitePlan& drawing) {
  for (std::size_t i = 0; i < drawing.labels.size(); ++i) {
    EXPECT_TRUE(drawing.frame.Contains(drawing.labels[i].box)) << drawing.labels[i].text;
    for (std::size_t j = 0; j < i; ++j) {
      EXPECT_FALSE(overlap(drawing.labels[i].box, drawing.labels[j].box))
          << drawing.labels[i].text << " and " << drawing.labels[j].text;
    }
    for (const Point& mark : drawing.stake_marks) {
      EXPECT_FALSE(drawing.labels[i].box.Contains(mark)) << drawing.labels[i].text;
    }
    for (const Point& p : drawing.as_built) {
      EXPECT_FALSE(drawing.labels[i].box.Contains(p)) << drawing.labels[i].text;
    }
  }
}

TEST(SitePlans, LabelsAreAllThereAndDoNotOverlap) {
  const RoadPlan plan = mill_lane();
  const Alignment alignment(plan);
  const SitePlan drawing = make_site_plan(plan, alignment);
  // Main points, elements, the parcel and its corners, as-built points, and 1+250 to 2+100 every 50 m.
  EXPECT_EQ(drawing.labels.size(), 5U + 4U + 1U + 7U + 11U + 18U);
  expect_readable(drawing);
}

TEST(SitePlans, ArcsAreDrawnAsArcs) {
  const RoadPlan plan = mill_lane();
  const Alignment alignment(plan);
  const SitePlan drawing = make_site_plan(plan, alignment);
  ASSERT_EQ(drawing.axis.steps.size(), 4U);
  const double scale = drawing.scale;
  EXPECT_NEAR(drawing.axis.steps[1].radius, 325.0 * scale, 1e-6);
  EXPECT_TRUE(drawing.axis.steps[1].clockwise_on_page);
  EXPECT_NEAR(drawing.axis.steps[2].radius, 195.0 * scale, 1e-6);
  EXPECT_FALSE(drawing.axis.steps[2].clockwise_on_page);
  // The edges' radii are smaller and larger by the offsets: left edge first.
  EXPECT_NEAR(drawing.edges[0].steps[1].radius, 328.5 * scale, 1e-6);
  EXPECT_NEAR(drawing.edges[1].steps[1].radius, 321.5 * scale, 1e-6);
  EXPECT_NEAR(drawing.edges[0].steps[2].radius, 191.5 * scale, 1e-6);
  // Two bends of the axis, of either edge, and of the carriageway there and back.
  EXPECT_EQ(count(svg(drawing), " A "), 2 * 5);
}

TEST(SitePlans, TheScaleIsOneAndNorthIsUp) {
  const RoadPlan plan = mill_lane();
  const Alignment alignment(plan);
  const SitePlan drawing = make_site_plan(plan, alignment);
  const double scale = drawing.scale;
  const Point a = drawing.parcel[0];
  const Point b = drawing.parcel[1];
  EXPECT_NEAR((b.x() - a.x()) / scale, 85.0, 1e-9);
  EXPECT_NEAR((a.y() - b.y()) / scale, 185.0, 1e-9);
  EXPECT_EQ(drawing.stake_marks.size(), 2U * 95U);
  for (const Point& mark : drawing.stake_marks) {
    EXPECT_TRUE(drawing.frame.Contains(mark));
  }
}

// Roads that are awkward to draw: long and flat, upright, tiny, without a parcel.
TEST(SitePlans, OtherRoadsCanBeReadToo) {
  for (const char* text : {"BEGIN 0 0 0\nTANGENT 0 3000\nINTERVAL 50\n", "BEGIN 0 0 0\nTANGENT 3000 0\nINTERVAL 50\n",
                           "BEGIN 0 0 0\nTANGENT 0.5 0.5\n", "BEGIN 0 0 -65\nARC3 65 0 -65 0\nOFFSETS 0 2\n",
                           "BEGIN 0 0 0\nTANGENT 90000 0\nINTERVAL 1\n"}) {
    std::istringstream input(text);
    const RoadPlan plan = read_road_plan(input, "road.txt");
    const Alignment alignment(plan);
    const SitePlan drawing = make_site_plan(plan, alignment);
    SCOPED_TRACE(text);
    expect_readable(drawing);
    EXPECT_GT(drawing.labels.size(), 1U);
    EXPECT_GT(drawing.height, 100.0);
    EXPECT_LT(drawing.height, 1200.0);
    EXPECT_LT(svg(drawing).size(), 1000000U);
  }
}

}  // namespace
