// What the program says about input that is at fault: file, line, what was expected.

#include <gtest/gtest.h>

#include <sstream>

#include "stakeout/alignment.h"
#include "stakeout/road_plan.h"

namespace {

using namespace stakeout;

std::string message_for(const std::string& text) {
  std::istringstream input(text);
  try {
    const Alignment alignment(read_road_plan(input, "road.txt"));
  } catch (const InputError& error) {
    return error.what();
  }
  return "no error";
}

struct Fault {
  const char* text;
  const char* message;
};

const Fault kFaults[] = {
    {"", "road.txt:1: expected BEGIN before the end of the file"},
    {"# nothing\n\n", "road.txt:2: expected BEGIN before the end of the file"},
    {"BEGIN 0 1 2\n",
     "road.txt:1: expected at least one element after BEGIN (TANGENT, ARC3, ARC_FROM_TANGENT, ARC_TO_TANGENT)"},
    {"BEGIN 0 1 2\nBEGIN 0 1 2\n", "road.txt:2: expected one BEGIN, found a second"},
    {"TANGENT 1 2\n", "road.txt:1: expected BEGIN before TANGENT"},
    {"BEGIN 0 1\n", "road.txt:1: expected \"BEGIN station north east\", found 2 fields after BEGIN"},
    {"BEGIN 0 1 2 3\n", "road.txt:1: expected \"BEGIN station north east\", found 4 fields after BEGIN"},
    {"BEGIN -1 1 2\n", "road.txt:1: expected a number from 0 to 10000000 for station, found \"-1\""},
    {"BEGIN 0 1,5 2\n", "road.txt:1: expected a number for north, found \"1,5\""},
    {"BEGIN 0 1 nan\n", "road.txt:1: expected a number for east, found \"nan\""},
    {"BEGIN 0 1 1e999\n", "road.txt:1: expected a number for east, found \"1e999\""},
    {"BEGIN 0 0 0\nTANGENT 10 ten\n", "road.txt:2: expected a number for east, found \"ten\""},
    {"BEGIN 0 0 0\nTANGENT 10 5000000\n", "road.txt:2: expected a point within 100 km of BEGIN"},
    {"BEGIN 0 0 0\n\n# comment\nCURVE 1 2 # that is none\n",
     "road.txt:4: expected one of the record types ROAD, BEGIN, TANGENT, ARC3, ARC_FROM_TANGENT, ARC_TO_TANGENT, "
     "INTERVAL, OFFSETS, ASBUILT, CORNER, found \"CURVE\""},
    {"BEGIN 0 0 0\nTANGENT 0 0\n", "road.txt:2: expected a point other than the end of the element before"},
    {"BEGIN 0 0 0\nARC3 1 1 2 2\n", "road.txt:2: expected three different points of an arc, found points on a line"},
    {"BEGIN 0 0 0\nARC3 5 5 0 0\n", "road.txt:2: expected three different points of an arc, found points on a line"},
    {"BEGIN 0 0 0\nARC3 100 33.333333333333336 300 100\n", "road.txt:2: expected an arc, found points on a line"},
    {"BEGIN 0 0 0\nARC_FROM_TANGENT 5 5\n", "road.txt:2: expected a TANGENT before ARC_FROM_TANGENT"},
    {"BEGIN 0 0 0\nARC_TO_TANGENT 5 5\n", "road.txt:2: expected a TANGENT after ARC_TO_TANGENT"},
    {"BEGIN 0 0 0\nTANGENT 10 0\nARC_FROM_TANGENT 20 0\n",
     "road.txt:3: expected an arc that touches the tangent, found its ends on one line with it"},
    {"BEGIN 0 0 0\nINTERVAL 0\n", "road.txt:2: expected a number from 0.1 to 100000 for metres, found \"0\""},
    {"BEGIN 0 0 0\nASBUILT K1 1 2\n",
     "road.txt:2: expected \"ASBUILT name north east design_offset\", found 3 fields after ASBUILT"},
    {"BEGIN 0 0 0\nTANGENT 1 0\nCORNER A 1 2\nCORNER B 2 3\n",
     "road.txt:4: expected at least three CORNER records, found 2"},

    // These ran until memory was gone, or for minutes.
    {"BEGIN 1e17 0 0\nTANGENT 10 0\n", "road.txt:1: expected a number from 0 to 10000000 for station, found \"1e17\""},
    {"BEGIN 0 0 0\nARC3 200 0.01 100 0\n",
     "road.txt:2: expected an axis of at most 200 km, found one of 6283 km where this element ends"},
    {"BEGIN 0 0 1e100\n", "road.txt:1: expected a number from -100000000 to 100000000 for east, found \"1e100\""},

    // Offsets of every record count to the right of the axis.
    {"BEGIN 0 0 0\nOFFSETS 3.5 3.5\n", "road.txt:2: expected a number from -1000 to 0 for left, found \"3.5\""},
    {"BEGIN 0 0 0\nOFFSETS -3.5 -3.5\n", "road.txt:2: expected a number from 0 to 1000 for right, found \"-3.5\""},

    {"BEGIN 0 0 0\nTANGENT 9 0\nASBUILT K 1 2 3\nASBUILT K 4 5 6\n",
     "road.txt:4: expected another name than those of the ASBUILT records before for name, found \"K\""},
    {"BEGIN 0 0 0\nTANGENT 9 0\nCORNER A 1 2\nCORNER A 4 5\n",
     "road.txt:4: expected another name than those of the CORNER records before for name, found \"A\""},

    // A bow-tie's area was 0.000 m2.
    {"BEGIN 0 0 0\nTANGENT 9 0\nCORNER A 0 0\nCORNER B 10 10\nCORNER C 10 0\nCORNER D 0 10\n",
     "road.txt:5: expected the sides of the parcel to meet at its corners alone, found C-D crossing or touching A-B"},
    // A corner on another side, a side upon another, a corner twice, a side there and back, corners on a line.
    {"BEGIN 0 0 0\nTANGENT 9 0\nCORNER A 0 0\nCORNER B 0 10\nCORNER C 10 10\nCORNER D 0 5\n",
     "road.txt:5: expected the sides of the parcel to meet at its corners alone, found C-D crossing or touching A-B"},
    {"BEGIN 0 0 0\nTANGENT 9 0\nCORNER A 0 0\nCORNER B 0 9\nCORNER C 5 9\nCORNER D 0 6\nCORNER E 0 3\nCORNER F 5 0\n",
     "road.txt:5: expected the sides of the parcel to meet at its corners alone, found C-D crossing or touching A-B"},
    {"BEGIN 0 0 0\nTANGENT 9 0\nCORNER A 0 0\nCORNER B 0 10\nCORNER C 0 10\nCORNER D 10 0\n",
     "road.txt:4: expected the sides of the parcel to meet at its corners alone, found B-C crossing or touching A-B"},
    {"BEGIN 0 0 0\nTANGENT 9 0\nCORNER A 0 0\nCORNER B 0 10\nCORNER C 0 5\nCORNER D 10 0\n",
     "road.txt:4: expected the sides of the parcel to meet at its corners alone, found B-C crossing or touching A-B"},
    {"BEGIN 0 0 0\nTANGENT 9 0\nCORNER A 0 0\nCORNER B 1 1\nCORNER C 2 2\n",
     "road.txt:5: expected the sides of the parcel to meet at its corners alone, found C-A crossing or touching B-C"},
};

TEST(Input, FaultsAreNamed) {
  for (const Fault& fault : kFaults) {
    EXPECT_EQ(message_for(fault.text), fault.message) << fault.text;
  }
}

TEST(Input, AFileThatIsNotThere) {
  try {
    read_road_plan_file("no/such/file.txt");
    FAIL();
  } catch (const InputError& error) {
    EXPECT_EQ(std::string(error.what()).rfind("no/such/file.txt: expected a readable file: ", 0), 0U) << error.what();
  }
}

// Two million stakes, or a hundred thousand and no more.
TEST(Input, TooShortAnInterval) {
  std::istringstream input("BEGIN 0 0 0\nTANGENT 90000 0\nINTERVAL 0.1\n");
  const RoadPlan plan = read_road_plan(input, "road.txt");
  const Alignment alignment(plan);
  try {
    stake_stations(plan, alignment);
    FAIL();
  } catch (const InputError& error) {
    EXPECT_STREQ(error.what(),
                 "road.txt:3: expected an interval of at least 0.9 m for a road of 90000 m, or more than 100000 stakes "
                 "would stand on it");
  }
}

TEST(Input, BlanksCommentsAndDefaults) {
  std::istringstream input("  ROAD  A   road \r\n\tBEGIN 1.5 100 200 # here\r\nTANGENT 110 200\r\n");
  const RoadPlan plan = read_road_plan(input, "road.txt");
  EXPECT_EQ(plan.title, "A road");
  EXPECT_EQ(plan.begin_station, 1.5);
  EXPECT_EQ(plan.interval, 10.0);
  EXPECT_EQ(plan.offset_left, -3.5);
  EXPECT_EQ(plan.offset_right, 3.5);
  EXPECT_EQ(plan.elements.size(), 1U);
}

}  // namespace
