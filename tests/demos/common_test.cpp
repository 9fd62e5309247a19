// What the demos share: text, records, the command line, labels.

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "common/page.h"
#include "common/program.h"
#include "common/record.h"
#include "common/svg.h"
#include "common/text.h"
#include "network_adjustment/progress_bar.h"

namespace {

using demo::format_dms;

TEST(FormatDms, SplitsAndRounds) {
  EXPECT_EQ(format_dms(0, 5), "  0 00 00.00000");
  EXPECT_EQ(format_dms(145.96139081111107, 5), "145 57 41.00692");
  EXPECT_EQ(format_dms(359.999999999999, 5), "  0 00 00.00000");
  EXPECT_EQ(format_dms(12.5, 2), " 12 30 00.00");
  EXPECT_EQ(format_dms(0.5 / 3600, 1), "  0 00 00.5");
}

TEST(FormatDms, JustBelowAWholeMinute) {
  EXPECT_EQ(format_dms(10 + 59 / 60.0 + 59.9964 / 3600, 5), " 10 59 59.99640");
  EXPECT_EQ(format_dms(10 + 29 / 60.0 + 59.998 / 3600, 5), " 10 29 59.99800");
  EXPECT_EQ(format_dms(10 + 59 / 60.0 + 59.9999999 / 3600, 5, '-'), " 11-00-00.00000");
}

TEST(FormatDms, PrintedDigitsAddUp) {
  // Steps through the neighbourhood of many whole minutes.
  for (int k = 0; k < 20000; ++k) {
    const double degrees = 20 + k / 600.0 + (k % 7 - 3) * 0.3e-6;
    int d = 0;
    int m = 0;
    double s = 0;
    ASSERT_EQ(std::sscanf(format_dms(degrees, 5).c_str(), "%d %d %lf", &d, &m, &s), 3);
    ASSERT_LT(m, 60);
    ASSERT_LT(s, 60);
    ASSERT_NEAR(d + m / 60.0 + s / 3600, degrees, 0.51e-5 / 3600) << format_dms(degrees, 5);
  }
}

TEST(ProgressLine, FillsUp) {
  EXPECT_EQ(network::progress_line("work", 0), "work [........................................]   0 %");
  EXPECT_EQ(network::progress_line("work", 50), "work [####################....................]  50 %");
  EXPECT_EQ(network::progress_line("work", 100), "work [########################################] 100 %");
  EXPECT_EQ(network::progress_line("work", -2147483647), network::progress_line("work", 0));
  EXPECT_EQ(network::progress_line("work", 1000), network::progress_line("work", 100));
}

TEST(ProgressBar, StaysSilentWithoutATerminal) {
  network::ProgressBar bar("work");
  EXPECT_EQ(bar.percentage(), nullptr);
  bar.finish();
  bar.finish();
}

TEST(RoundDown, OneTwoFive) {
  EXPECT_EQ(demo::round_down(1), 1);
  EXPECT_EQ(demo::round_down(1.99), 1);
  EXPECT_EQ(demo::round_down(2), 2);
  EXPECT_EQ(demo::round_down(4.9), 2);
  EXPECT_EQ(demo::round_down(7), 5);
  EXPECT_EQ(demo::round_down(23456), 20000);
  EXPECT_DOUBLE_EQ(demo::round_down(0.07), 0.05);
}

std::vector<double> numbers(const std::string& line) {
  std::vector<double> found;
  std::istringstream input(line);
  const auto read = [&](demo::Record& record) {
    for (int k = 0; k < 3; ++k) {
      found.push_back(record.number());
    }
  };
  demo::read_records(input, "file", {{"R", "a b c", read}});
  return found;
}

// What spreadsheets put before the first line, and what Fortran programs write for 5.8e-05.
TEST(Records, ByteOrderMarksAndFortransExponents) {
  EXPECT_EQ(numbers("\xEF\xBB\xBFR 5.8D-05 1d2 -3.5e1\r\n"), (std::vector<double>{5.8e-05, 100, -35}));
  for (const char* text : {"D", "1D", "1DD2", "1D2D3", "d5", "1D+"}) {
    EXPECT_THROW(numbers(std::string("R ") + text + " 0 0"), demo::InputError) << text;
  }
}

// A host that calls setlocale(LC_ALL, "") in Germany: numbers were written as 20,0.
TEST(Locales, NumbersHaveADecimalPointInAllOfThem) {
#if defined(__linux__)
  const std::filesystem::path directory = std::filesystem::path(WORK_DIRECTORY) / "locale";
  std::filesystem::create_directories(directory);
  std::ofstream(directory / "source")
      << "LC_NUMERIC\ndecimal_point \"<U002C>\"\nthousands_sep \"<U002E>\"\ngrouping 3;3\nEND LC_NUMERIC\n";
  const std::string make = "cd \"" + directory.string() + "\" && localedef -c -i source ./comma 2>err";
  std::system(make.c_str());  // NOLINT: the command is the test's own; it complains of what the locale does not define
  setenv("LOCPATH", directory.c_str(), 1);
  const bool found = std::setlocale(LC_NUMERIC, "comma") != nullptr;
  const std::string point = std::localeconv()->decimal_point;
  const std::string written = demo::format("%.1f %g", 20.0, 0.5);
  const std::vector<double> read = numbers("R 20.5 1e3 -0.25");
  std::setlocale(LC_NUMERIC, "C");
  unsetenv("LOCPATH");
  std::filesystem::remove_all(directory);
  EXPECT_EQ(written, "20.0 0.5");
  EXPECT_EQ(read, (std::vector<double>{20.5, 1000, -0.25}));
  if (!found) {
    GTEST_SKIP() << "localedef (Debian's package locales) made no locale";
  }
  EXPECT_EQ(point, ",");
#else
  GTEST_SKIP() << "locales are made by localedef";
#endif
}

TEST(Arguments, AreRead) {
  EXPECT_TRUE(demo::parse_arguments({"--help"}, {}).help);
  const demo::Arguments arguments =
      demo::parse_arguments({"a.txt", "--svg", "plan.svg", "--rover", "A", "--rover", "B"}, {"--rover"});
  EXPECT_EQ(arguments.input, "a.txt");
  EXPECT_EQ(arguments.plan, "plan.svg");
  EXPECT_EQ(arguments.values.at("--rover"), (std::vector<std::string>{"A", "B"}));
  EXPECT_EQ(demo::parse_arguments({"--svg", "plan.svg", "--no-plan"}, {}).plan, "");
  EXPECT_EQ(demo::parse_arguments({}, {}).plan, "");
  for (const std::vector<std::string>& wrong : std::vector<std::vector<std::string>>{
           {"--svg"}, {"--svg", ""}, {"--scale"}, {"--rover", "A"}, {""}, {"a.txt", "b.txt"}}) {
    EXPECT_THROW(demo::parse_arguments(wrong, {}), demo::UsageError);
  }
}

TEST(Svg, TextIsEscaped) {
  EXPECT_NE(demo::svg_text("s", "start", demo::Point(1, 2), "a<b & c>\"d\"").find(">a&lt;b &amp; c&gt;&quot;d&quot;<"),
            std::string::npos);
}

TEST(Labels, OfOneAnchorFindRoomOrAreLeftOut) {
  const demo::Obstacles obstacles{demo::Box(0, 0, 100, 100), {demo::Box(0, 0, 100, 20)}, {}, {}};
  const demo::LabelRequest request{{"s", 11, false}, "123456", demo::Point(50, 60), 3};
  const auto labels = place_labels(std::vector<demo::LabelRequest>(20, request), obstacles);
  EXPECT_GE(labels.size(), 3U);
  EXPECT_LT(labels.size(), 8U);
  for (std::size_t a = 0; a < labels.size(); ++a) {
    EXPECT_GE(labels[a].box.top(), 20);
    for (std::size_t b = 0; b < a; ++b) {
      EXPECT_FALSE(demo::overlap(labels[a].box, labels[b].box));
    }
  }
}

}  // namespace
