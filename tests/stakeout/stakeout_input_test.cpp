// What the program says about input that is at fault: file, line, what was expected.

#include <gtest/gtest.h>

#include <sstream>

#include "alignment.h"
#include "options.h"
#include "road_plan.h"

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

class Faults : public testing::TestWithParam<Fault> {};

TEST_P(Faults, AreNamed) { EXPECT_EQ(message_for(GetParam().text), GetParam().message); }

const Fault kFaults[] = {
    {"", "road.txt:0: expected BEGIN before the end of the file"},
    {"# nothing\n\n", "road.txt:2: expected BEGIN before the end of the file"},
    {"BEGIN 0 1 2\n",
     "road.txt:1: expected at least one element after BEGIN (TANGENT, ARC3, ARC_FROM_TANGENT, ARC_TO_TANGENT)"},
    {"BEGIN 0 1 2\nBEGIN 0 1 2\n", "road.txt:2: expected one BEGIN, found a second"},
    {"TANGENT 1 2\n", "road.txt:1: expected BEGIN before TANGENT"},
    {"BEGIN 0 1\n", "road.txt:1: expected BEGIN <station> <north> <east>, found 2 fields after BEGIN"},
    {"BEGIN 0 1 2 3\n", "road.txt:1: expected BEGIN <station> <north> <east>, found 4 fields after BEGIN"},
    {"BEGIN -1 1 2\n", "road.txt:1: expected a number that is not negative for <station>, found \"-1\""},
    {"BEGIN 0 1,5 2\n", "road.txt:1: expected a number for <north>, found \"1,5\""},
    {"BEGIN 0 1 nan\n", "road.txt:1: expected a number for <east>, found \"nan\""},
    {"BEGIN 0 1 1e999\n", "road.txt:1: expected a number for <east>, found \"1e999\""},
    {"BEGIN 0 0 0\nTANGENT 10 ten\n", "road.txt:2: expected a number for <east>, found \"ten\""},
    {"BEGIN 0 0 0\nTANGENT 10 5000000\n", "road.txt:2: expected a point within 1000 km of BEGIN"},
    {"BEGIN 0 0 0\n\n# comment\nCURVE 1 2 # that is none\n",
     "road.txt:4: expected ROAD, BEGIN, TANGENT, ARC3, ARC_FROM_TANGENT, ARC_TO_TANGENT, INTERVAL, OFFSETS, ASBUILT "
     "or CORNER, found \"CURVE\""},
    {"BEGIN 0 0 0\nTANGENT 0 0\n", "road.txt:2: expected a point other than the end of the element before"},
    {"BEGIN 0 0 0\nARC3 1 1 2 2\n", "road.txt:2: expected three different points of an arc, found points on a line"},
    {"BEGIN 0 0 0\nARC3 5 5 0 0\n", "road.txt:2: expected three different points of an arc, found points on a line"},
    {"BEGIN 0 0 0\nARC3 100 33.333333333333336 300 100\n", "road.txt:2: expected an arc, found points on a line"},
    {"BEGIN 0 0 0\nARC_FROM_TANGENT 5 5\n", "road.txt:2: expected a TANGENT before ARC_FROM_TANGENT"},
    {"BEGIN 0 0 0\nARC_TO_TANGENT 5 5\n", "road.txt:2: expected a TANGENT after ARC_TO_TANGENT"},
    {"BEGIN 0 0 0\nTANGENT 10 0\nARC_FROM_TANGENT 20 0\n",
     "road.txt:3: expected an arc that touches the tangent, found its ends on one line with it"},
    {"BEGIN 0 0 0\nINTERVAL 0\n", "road.txt:2: expected an interval of at least 0.1 m"},
    {"BEGIN 0 0 0\nOFFSETS 3.5 -3.5\n",
     "road.txt:2: expected a number that is not negative for <right>, found \"-3.5\""},
    {"BEGIN 0 0 0\nASBUILT K1 1 2\n",
     "road.txt:2: expected ASBUILT <name> <north> <east> <design offset>, found 3 fields after ASBUILT"},
    {"BEGIN 0 0 0\nTANGENT 1 0\nCORNER A 1 2\nCORNER B 2 3\n",
     "road.txt:4: expected at least three CORNER records, found 2"},
};

INSTANTIATE_TEST_SUITE_P(Input, Faults, testing::ValuesIn(kFaults));

TEST(Input, AFileThatIsNotThere) {
  try {
    read_road_plan_file("no/such/file.txt");
    FAIL();
  } catch (const InputError& error) {
    EXPECT_STREQ(error.what(), "no/such/file.txt: cannot be read");
  }
}

TEST(Input, BlanksCommentsAndDefaults) {
  std::istringstream input("  ROAD  A   road \r\n\tBEGIN 1.5 100 200 # here\r\nTANGENT 110 200\r\n");
  const RoadPlan plan = read_road_plan(input, "road.txt");
  EXPECT_EQ(plan.title, "A road");
  EXPECT_EQ(plan.begin_station, 1.5);
  EXPECT_EQ(plan.interval, 10.0);
  EXPECT_EQ(plan.offset_left, 3.5);
  EXPECT_EQ(plan.offset_right, 3.5);
  EXPECT_EQ(plan.elements.size(), 1U);
}

TEST(Options, AreRead) {
  EXPECT_TRUE(parse_options({"--help"}).help);
  const Options options = parse_options({"road.txt", "--svg", "plan.svg"});
  EXPECT_EQ(options.input, "road.txt");
  EXPECT_EQ(options.svg, "plan.svg");
  EXPECT_THROW(parse_options({"--svg"}), UsageError);
  EXPECT_THROW(parse_options({"--scale"}), UsageError);
  EXPECT_THROW(parse_options({"a.txt", "b.txt"}), UsageError);
}

}  // namespace
