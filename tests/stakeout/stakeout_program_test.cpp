// Runs the program as a surveyor does.

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace {

namespace fs = std::filesystem;

std::string contents(const fs::path& path) {
  std::ifstream input(path);
  std::ostringstream text;
  text << input.rdbuf();
  return text.str();
}

class StakeoutProgram : public testing::Test {
protected:
  void SetUp() override {
    const std::string name = testing::UnitTest::GetInstance()->current_test_info()->name();
    directory_ = fs::temp_directory_path() / ("stakeout_" + name);
    fs::remove_all(directory_);
    fs::create_directories(directory_);
  }
  void TearDown() override { fs::remove_all(directory_); }

  fs::path file(const std::string& name) const { return directory_ / name; }

  // Returns the exit code; output and error hold what was printed.
  int run(const std::string& arguments) {
    std::string command = std::string(LAUNCHER) + " \"" PROGRAM "\" " + arguments + " >\"" + file("out").string() +
                          "\" 2>\"" + file("err").string() + "\"";
#if defined(_WIN32)
    command = "\"" + command + "\"";  // the shell takes the outer quotes away
#endif
    const int status = std::system(command.c_str());  // NOLINT: the command is the test's own
    output = contents(file("out"));
    error = contents(file("err"));
#if defined(_WIN32)
    return status;
#else
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
#endif
  }

  std::string svg_option() const { return "--svg \"" + file("plan.svg").string() + "\" "; }

  std::string output;
  std::string error;

private:
  fs::path directory_;
};

TEST_F(StakeoutProgram, PrintsTheStakesAndWritesThePlan) {
  EXPECT_EQ(run(svg_option()), 0) << error;
  EXPECT_EQ(error, "");
  EXPECT_NE(output.find("Mill Lane, new alignment\nFrom 1+200.0000 to 2+105.0726, length 905.0726 m\n"),
            std::string::npos);
  // At the end of the first straight, 3.5 m to the right: (18, 161.5) + 3.5 (323, -36)/325 from the origin.
  EXPECT_NE(output.find("  1+362.500  R   3.500   5321561.112    468221.478    6-21-34.8\n"), std::string::npos)
      << output;
  EXPECT_NE(output.find("   2  right   69-23-25.1   5321525.500    468541.000\n"), std::string::npos);
  EXPECT_NE(output.find("  sum                    49400.000 m2, corners clockwise\n"), std::string::npos);
  EXPECT_EQ(contents(file("plan.svg")).rfind("<svg ", 0), 0U);
}

TEST_F(StakeoutProgram, HelpTellsTheFormat) {
  EXPECT_EQ(run("--help"), 0);
  EXPECT_EQ(output.rfind("usage: stakeout", 0), 0U);
  EXPECT_NE(output.find("ARC_TO_TANGENT"), std::string::npos);
}

TEST_F(StakeoutProgram, BadInputPrintsAndWritesNothingElse) {
  std::ofstream(file("road.txt")) << "BEGIN 0 0 0\nTANGENT 10 ten\n";
  EXPECT_EQ(run(svg_option() + "\"" + file("road.txt").string() + "\""), 2);
  EXPECT_EQ(output, "");
  EXPECT_NE(error.find("road.txt:2: expected a number for <east>, found \"ten\"\n"), std::string::npos) << error;
  EXPECT_FALSE(fs::exists(file("plan.svg")));
}

TEST_F(StakeoutProgram, BadOptions) {
  EXPECT_EQ(run("--scale 5"), 2);
  EXPECT_EQ(output, "");
  EXPECT_EQ(error, "stakeout: expected an option that --help lists, found \"--scale\" (see --help)\n");
}

TEST_F(StakeoutProgram, AnUnwritablePlan) {
  EXPECT_EQ(run("--svg \"" + (file("no_such_folder") / "plan.svg").string() + "\""), 1);
  EXPECT_EQ(output, "");
  EXPECT_NE(error.find("cannot be written"), std::string::npos);
}

}  // namespace
