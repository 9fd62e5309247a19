#ifndef ALIDADE_TESTS_DEMOS_PROGRAM_UNDER_TEST_H
#define ALIDADE_TESTS_DEMOS_PROGRAM_UNDER_TEST_H

// Runs a program as a surveyor does, in a directory of its own.

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace demo_tests {

inline std::string contents(const std::filesystem::path& path) {
  std::ifstream input(path);  // as text: the same line ends on every system
  std::ostringstream text;
  text << input.rdbuf();
  return text.str();
}

inline int count(const std::string& text, const std::string& part) {
  int n = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
    ++n;
  }
  return n;
}

class ProgramUnderTest : public testing::Test {
protected:
  explicit ProgramUnderTest(const std::string& program) : program_(program) {}

  void SetUp() override {
    const testing::TestInfo* info = testing::UnitTest::GetInstance()->current_test_info();
    directory_ = (std::filesystem::path(WORK_DIRECTORY) / info->test_suite_name() / info->name()).make_preferred();
    std::filesystem::remove_all(directory_);
    std::filesystem::create_directories(directory_);
  }
  void TearDown() override { std::filesystem::remove_all(directory_); }

  std::filesystem::path file(const std::string& name) const { return directory_ / name; }
  std::string quoted(const std::string& name) const { return " \"" + file(name).string() + "\" "; }
  void write(const std::string& name, const std::string& text) const { std::ofstream(file(name)) << text; }
  std::string svg_option() const { return "--svg" + quoted("plan.svg"); }

  // Returns the exit code; output and error hold what was printed.
  int run(const std::string& arguments) {
    std::string command =
        std::string(LAUNCHER) + " \"" + program_ + "\" " + arguments + " >" + quoted("out") + "2>" + quoted("err");
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

  // Exit code 2, this message at the end of a line, nothing printed and no plan written.
  void expect_refused(const std::string& arguments, const std::string& message) {
    EXPECT_EQ(run(svg_option() + arguments), 2) << arguments;
    EXPECT_EQ(output, "") << arguments;
    EXPECT_NE(error.find(message + "\n"), std::string::npos) << arguments << ": " << error;
    EXPECT_FALSE(std::filesystem::exists(file("plan.svg"))) << arguments;
  }

  std::string output;
  std::string error;

private:
  std::string program_;
  std::filesystem::path directory_;
};

}  // namespace demo_tests

#endif
