// alidade-verify with golden files that are missing, cut, changed, or sealed with a wrong content.

#include <alidade/version.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "golden/case_file.h"

namespace {

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;

constexpr int kSameBits = 0;
constexpr int kOtherBits = 1;
constexpr int kDamaged = 2;

class Verify : public testing::Test {
protected:
  void SetUp() override {
    const std::string name = testing::UnitTest::GetInstance()->current_test_info()->name();
    work_ = fs::temp_directory_path() / ("alidade_verify_" + name);
    fs::remove_all(work_);
    fs::create_directories(folder());
    for (const fs::directory_entry& entry : fs::directory_iterator(GOLDEN_FILES)) {
      if (entry.path().extension() == ".txt") {
        fs::copy_file(entry.path(), folder() / entry.path().filename());
      }
    }
  }
  void TearDown() override { fs::remove_all(work_); }

  fs::path folder() const { return work_ / "golden"; }
  Lines load(const fs::path& file) const { return lines_of(folder() / file); }

  void save(const fs::path& file, const Lines& lines) const {
    std::ofstream out(folder() / file, std::ios::binary);
    for (const std::string& line : lines) {
      out << line << '\n';
    }
  }

  // As somebody would who makes the files with another program.
  void save_sealed(const fs::path& file, Lines lines) const {
    golden::Seal seal;
    for (const std::string& line : lines) {
      if (line[0] != '#') {
        seal.add(line, line[0] != '[');
      }
    }
    lines[2] = seal.text();
    save(file, lines);
  }

  int run(const std::string& arguments) {
    const fs::path out = work_ / "out";
    const std::string command = std::string("\"" PROGRAM "\" ") + arguments + " >\"" + out.string() + "\"";
    const int status = std::system(command.c_str());  // NOLINT: the command is the test's own
    output.clear();
    for (const std::string& line : lines_of(out)) {
      output += line + '\n';
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }
  int run() { return run("\"" + folder().string() + "\""); }

  bool says(const std::string& text) const { return output.find(text) != std::string::npos; }

  std::string output;

private:
  static Lines lines_of(const fs::path& file) {
    std::ifstream in(file);
    Lines lines;
    for (std::string line; std::getline(in, line);) {
      lines.push_back(line);
    }
    return lines;
  }

  fs::path work_;
};

TEST_F(Verify, SaysItsVersion) {
  EXPECT_EQ(run("--version"), kSameBits);
  EXPECT_EQ(output, "alidade-verify " + std::to_string(ALIDADE_VERSION_MAJOR) + "." +
                        std::to_string(ALIDADE_VERSION_MINOR) + "." + std::to_string(ALIDADE_VERSION_PATCH) + "\n");
}

TEST_F(Verify, MissingFolderIsNoDifference) {
  EXPECT_EQ(run("/nowhere/at/all"), kDamaged);
  EXPECT_TRUE(says("/nowhere/at/all/coordinates.txt: cannot be opened")) << output;
  EXPECT_TRUE(says("verdict: none, golden files are missing or damaged")) << output;
}

TEST_F(Verify, MissingFileIsNoDifference) {
  fs::remove(folder() / "tau.txt");
  EXPECT_EQ(run(), kDamaged);
  EXPECT_TRUE(says("tau.txt: cannot be opened")) << output;
  EXPECT_TRUE(says("verdict: none")) << output;
}

// Each of these was once "same bits".
TEST_F(Verify, FilesWithoutTheirLastCasesAreDamaged) {
  int files = 0;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder())) {
    Lines lines = load(entry.path().filename());
    lines.resize(lines.size() - 3);
    save(entry.path().filename(), lines);
    ++files;
  }
  EXPECT_EQ(run("--verbose \"" + folder().string() + "\""), kDamaged);
  EXPECT_EQ(files, 19);
  EXPECT_TRUE(says("inversion.txt:")) << output;
  EXPECT_TRUE(says("not the cases that line 3 announces")) << output;
  EXPECT_TRUE(says("all                         0")) << output;
}

TEST_F(Verify, FilesWithOneCaseForEachFunctionAreDamaged) {
  for (const fs::directory_entry& entry : fs::directory_iterator(folder())) {
    Lines kept;
    for (const std::string& line : load(entry.path().filename())) {
      if (line[0] == '#' || line[0] == '[' || kept.back()[0] == '[') {
        kept.push_back(line);
      }
    }
    save(entry.path().filename(), kept);
  }
  EXPECT_EQ(run(), kDamaged);
  EXPECT_TRUE(says("all                         0")) << output;
}

TEST_F(Verify, ChangedDigitIsDamageNotADifference) {
  Lines lines = load("chi_square.txt");
  std::string& line = lines[lines.size() / 2];
  line.back() = line.back() == '1' ? '2' : '1';
  save("chi_square.txt", lines);
  EXPECT_EQ(run(), kDamaged);
  EXPECT_TRUE(says("chi_square.txt:" + std::to_string(lines.size() + 1) + ": not the cases")) << output;
}

TEST_F(Verify, SizesAreCheckedBeforeACaseRuns) {
  const struct {
    const char* file;
    const char* heading;
    const char* line;
    const char* reason;
  } kCases[] = {
      {"products.txt", "[A MatrixProduct]", "2000000000 3 3 plain 1 -> #0", "out of range: 2000000000"},
      {"products.txt", "[A MAtB]", "3 -3 3 plain 1 -> #0", "out of range: -3"},
      {"operators.txt", "[A SMATRopRt_R]", "4294967299 3 '=' 0 0 plain 1 -> #0", "out of range: 4294967299"},
      {"inversion.txt", "[A RareInversion]", "99999999999999999999 0 0 0 dense 1 -> #0", "out of range: 9999999999"},
      {"storage.txt", "[A SMatrAndBlockOper]", "5 3 0 3 3 '=' plain 1 -> #0", "the block does not lie in the matrix"},
      {"matrices3.txt", "[A matr3_3::Column]", "9*plain@1 3 -> #0", "out of range: 3"},
      {"tau.txt", "[B TAU]", "5 2000000000 0x1p-4 -> 0x0p+0", "out of range: 2000000000"},
      {"scalars.txt", "[B power(double)]", "0x1p+0 2147483647 -> 0x0p+0", "out of range: 2147483647"},
      {"scalars.txt", "[A min1]", "21 1 2 3 -> 0", "out of range: 21"},
      {"points.txt", "[A Point2(v)]", "1000000000*plain@1 -> 0x0p+0", "too many arguments"},
      {"points.txt", "[A Point2(v)]", "1*odd@1 -> 0x0p+0", "unknown kind of numbers: odd"},
  };
  for (const auto& c : kCases) {
    fs::remove_all(folder());  // one file is enough, and quicker
    fs::create_directories(folder());
    save_sealed(c.file, {"#", "#", "#", c.heading, c.line});
    EXPECT_EQ(run("--verbose \"" + folder().string() + "\""), kDamaged) << c.line;
    EXPECT_TRUE(says(std::string(c.file) + ":5: " + c.reason)) << output;
  }
}

TEST_F(Verify, WrongResultIsADifferenceAlsoBesideDamage) {
  Lines lines = load("coordinates.txt");
  ASSERT_EQ(lines[3], "[A Coord()]");
  lines[4] = "-> 0x0p+0 0x0p+0 0x1p+0";
  save_sealed("coordinates.txt", lines);
  EXPECT_EQ(run(), kOtherBits);
  EXPECT_TRUE(says("coordinates.txt:5: different: Coord() -> 0x0p+0 0x0p+0 0x1p+0")) << output;
  EXPECT_TRUE(says("verdict: NOT the documented bits")) << output;
  fs::remove(folder() / "tau.txt");
  EXPECT_EQ(run(), kOtherBits);
}

}  // namespace
