#include "program_under_test.h"

namespace {

using demo_tests::contents;

class StakeoutProgram : public demo_tests::ProgramUnderTest {
protected:
  StakeoutProgram() : ProgramUnderTest(STAKEOUT) {}
};

TEST_F(StakeoutProgram, PrintsTheStakesAndWritesThePlan) {
  EXPECT_EQ(run(svg_option()), 0) << error;
  EXPECT_EQ(error, "");
  EXPECT_NE(output.find("Mill Lane, new alignment\nFrom 1+200.0000 to 2+105.0726, length 905.0726 m\n"),
            std::string::npos);
  // At the end of the first straight, 3.5 m to the left and to the right: (18, 161.5) -+ 3.5 (323, -36)/325 from the
  // origin.
  EXPECT_NE(output.find("  1+362.500     -3.500   5321561.888    468214.522    6-21-34.8\n"), std::string::npos)
      << output;
  EXPECT_NE(output.find("  1+362.500      3.500   5321561.112    468221.478    6-21-34.8\n"), std::string::npos);
  EXPECT_NE(output.find("   2  right   69-23-25.1   5321525.500    468541.000\n"), std::string::npos);
  EXPECT_NE(output.find("  sum                    49400.000 m2, corners clockwise\n"), std::string::npos);
  EXPECT_NE(contents(file("plan.svg")).find("<svg "), std::string::npos);
}

TEST_F(StakeoutProgram, HelpTellsTheFormat) {
  EXPECT_EQ(run("--help"), 0);
  EXPECT_EQ(output.rfind("usage: stakeout", 0), 0U);
  EXPECT_NE(output.find("ARC_TO_TANGENT"), std::string::npos);
}

TEST_F(StakeoutProgram, BadInputPrintsAndWritesNothingElse) {
  write("road.txt", "BEGIN 0 0 0\nTANGENT 10 ten\n");
  expect_refused(quoted("road.txt"), "road.txt:2: expected a number for east, found \"ten\"");
  expect_refused("--scale 5", "stakeout: expected an option that --help lists, found \"--scale\" (see --help)");
}

}  // namespace
