#include <cctype>
#include <vector>

#include "program_under_test.h"

namespace {

using demo_tests::contents;
using demo_tests::count;

class Program : public demo_tests::ProgramUnderTest {
protected:
  Program() : ProgramUnderTest(NETWORK_ADJUSTMENT) {}
};

// Well-formed as far as the program's documents go: one root, tags that close in order, attributes in quotes and given
// once, no stray < or &.
testing::AssertionResult well_formed(const std::string& text) {
  std::vector<std::string> open;
  std::size_t roots = 0;
  std::size_t i = 0;
  const auto bad = [&](const char* what) { return testing::AssertionFailure() << what << " at byte " << i; };
  const auto name_at = [&](std::size_t& at) {
    const std::size_t begin = at;
    while (at < text.size() && (std::isalnum(static_cast<unsigned char>(text[at])) != 0 || text[at] == '-' ||
                                text[at] == ':' || text[at] == '_')) {
      ++at;
    }
    return text.substr(begin, at - begin);
  };
  if (text.rfind("<?xml ", 0) == 0) {
    i = text.find("?>") + 2;
  }
  while (i < text.size()) {
    if (text[i] == '&') {
      const std::size_t end = text.find(';', i);
      const std::string entity = text.substr(i + 1, end - i - 1);
      if (end == std::string::npos || (entity != "amp" && entity != "lt" && entity != "gt" && entity != "quot")) {
        return bad("stray &");
      }
    }
    if (text[i] != '<') {
      if (open.empty() && std::isspace(static_cast<unsigned char>(text[i])) == 0) {
        return bad("text outside the root");
      }
      ++i;
      continue;
    }
    ++i;
    if (i < text.size() && text[i] == '/') {
      ++i;
      const std::string name = name_at(i);
      if (open.empty() || open.back() != name || i >= text.size() || text[i] != '>') {
        return bad("closing tag out of order");
      }
      open.pop_back();
      ++i;
      continue;
    }
    const std::string name = name_at(i);
    if (name.empty()) {
      return bad("stray <");
    }
    roots += open.empty() ? 1 : 0;
    std::vector<std::string> attributes;
    bool closed = false;
    while (i < text.size() && text[i] != '>') {
      if (std::isspace(static_cast<unsigned char>(text[i])) != 0) {
        ++i;
      } else if (text[i] == '/') {
        closed = true;
        ++i;
      } else {
        const std::string attribute = name_at(i);
        for (const std::string& other : attributes) {
          if (other == attribute) {
            return bad("attribute twice");
          }
        }
        attributes.push_back(attribute);
        if (attribute.empty() || text.compare(i, 2, "=\"") != 0) {
          return bad("attribute without quotes");
        }
        const std::size_t end = text.find('"', i + 2);
        if (end == std::string::npos || text.substr(i + 2, end - i - 2).find('<') != std::string::npos) {
          return bad("attribute without end");
        }
        i = end + 1;
      }
    }
    if (i >= text.size()) {
      return bad("tag without end");
    }
    ++i;
    if (!closed) {
      open.push_back(name);
    }
  }
  if (!open.empty() || roots != 1) {
    return bad("root not closed, or not one root");
  }
  return testing::AssertionSuccess();
}

TEST_F(Program, AdjustsTheNetworkThatComesWithIt) {
  ASSERT_EQ(run(""), 0) << error;
  EXPECT_EQ(error, "");
  EXPECT_EQ(output.find("Plan written"), std::string::npos);  // none was asked for
  for (const char* line : {
           "Latitude, longitude and height on GRS80, a = 6378137.0000 m, 1/f = 298.257222101.\n",
           "Adjustment of 43 stations: 417 observations, 129 unknowns, redundancy 288",
           "variance factor 1.169, 95 % bounds 0.843 and 1.170: passed.",
           "10 of 417 observations beyond 1.96:",
           "largest tau 2.222, critical 3.801; 0 flagged.",
           "222702010 -> 222701160   Y  correction",
           "MYRT -> BEEC\n",
           "MYRT -> 324900360\n",
           "MYRT -> 324901090\n",
           "Chi-square 336.64 published, ",
       }) {
    EXPECT_NE(output.find(line), std::string::npos) << line;
  }
}

TEST_F(Program, WritesAWellFormedPlan) {
  ASSERT_EQ(run(svg_option() + "\"" NETWORK_FILE "\""), 0) << error;
  const std::string plan = contents(file("plan.svg"));
  EXPECT_TRUE(well_formed(plan));
  EXPECT_NE(plan.find("<svg xmlns=\"http://www.w3.org/2000/svg\""), std::string::npos);
  // An ellipse for each station and one in the legend.
  EXPECT_EQ(count(plan, "<ellipse "), 44);
  for (const char* text : {">MYRT<", ">324901090<", ">N<", " km<", " mm<", "enlarged "}) {
    EXPECT_NE(plan.find(text), std::string::npos) << text;
  }
}

TEST(WellFormed, NoticesFaults) {
  EXPECT_TRUE(well_formed("<?xml version=\"1.0\"?>\n<a b=\"1\"><c/>x &amp; y</a>\n"));
  for (const char* text : {"<a>", "<a></b>", "<a><b></a></b>", "<a/><b/>", "<a b=1/>", "<a b=\"1\" b=\"2\"/>",
                           "<a>&x</a>", "<a>1 < 2</a>", "x<a/>", "<a b=\"<\"/>", ""}) {
    EXPECT_FALSE(well_formed(text)) << text;
  }
}

TEST_F(Program, TellsItsOptions) {
  EXPECT_EQ(run("--help"), 0);
  EXPECT_EQ(error, "");
  for (const char* option : {"--svg FILE", "--no-plan", "--base STATION", "--rover STATION", "--help"}) {
    EXPECT_NE(output.find(option), std::string::npos) << option;
  }
}

TEST_F(Program, ReducesFromOtherStationsOnRequest) {
  ASSERT_EQ(run(svg_option() + "--base BEEC --rover HOTH --rover MYRT"), 0) << error;
  EXPECT_NE(output.find("BEEC -> HOTH\n"), std::string::npos);
  EXPECT_NE(output.find("BEEC -> MYRT\n"), std::string::npos);
  EXPECT_EQ(output.find("MYRT -> BEEC\n"), std::string::npos);
}

TEST_F(Program, FaultyInputEndsWithCodeTwoAndNothingPrinted) {
  // The first 300 lines end within the covariance of the positions.
  std::istringstream whole(contents(NETWORK_FILE));
  std::ofstream part(file("part.txt"));
  std::string line;
  for (int k = 0; k < 300 && std::getline(whole, line); ++k) {
    part << line << "\n";
  }
  part.close();
  expect_refused(quoted("part.txt"),
                 "part.txt:264: expected 171 CPOSC records for the cluster that begins here, found 31");
}

TEST_F(Program, FaultyCommandLinesEndWithCodeTwoAndNothingPrinted) {
  expect_refused("--nonsense", "expected an option that --help lists, found \"--nonsense\" (see --help)");
  expect_refused("--base NOWHERE", "expected a station of the network after --base, found NOWHERE (see --help)");
  expect_refused("--rover NOWHERE", "expected a station of the network after --rover, found NOWHERE (see --help)");
}

// One station, no redundancy, and a name that XML must not see as it is.
TEST_F(Program, AdjustsTheSmallestNetwork) {
  std::ofstream input(file("one.txt"));
  input << "CPOS 0 A<&\"> -4300000 2800000 -3760000\n"
        << "CPOSC 0 0 1e-4\nCPOSC 1 0 0\nCPOSC 1 1 1e-4\nCPOSC 2 0 0\nCPOSC 2 1 0\nCPOSC 2 2 1e-4\n";
  input.close();
  ASSERT_EQ(run(svg_option() + quoted("one.txt")), 0) << error;
  EXPECT_NE(output.find("Adjustment of 1 station: 3 observations, 3 unknowns, redundancy 0"), std::string::npos);
  EXPECT_NE(output.find("nothing to test"), std::string::npos);
  EXPECT_EQ(output.find("nan"), std::string::npos);
  const std::string plan = contents(file("plan.svg"));
  EXPECT_TRUE(well_formed(plan));
  EXPECT_NE(plan.find(">A&lt;&amp;&quot;&gt;<"), std::string::npos);
}

// The same position twice, and two stations at one place: perfect agreement has a variance factor of zero.
TEST_F(Program, AdjustsObservationsWithoutAnyError) {
  std::ofstream input(file("exact.txt"));
  for (const char* ends : {"0 A B", "1 A B", "2 B A"}) {
    input << "BL " << ends << " 0 0 0  1e-6 0 1e-6 0 0 1e-6  1\n";
  }
  input << "CPOS 0 A -4300000 2800000 -3760000\n"
        << "CPOSC 0 0 1e-4\nCPOSC 1 0 0\nCPOSC 1 1 1e-4\nCPOSC 2 0 0\nCPOSC 2 1 0\nCPOSC 2 2 1e-4\n";
  input.close();
  ASSERT_EQ(run(svg_option() + "--base A --rover B" + quoted("exact.txt")), 0) << error;
  EXPECT_NE(output.find("Chi-square 0.00 on 6 degrees of freedom, variance factor 0.000"), std::string::npos);
  EXPECT_NE(output.find("A -> B\n  north         0.0000 m"), std::string::npos);
  EXPECT_NE(output.find("azimuth   undefined\n"), std::string::npos);
  EXPECT_EQ(output.find("nan"), std::string::npos);
  EXPECT_TRUE(well_formed(contents(file("plan.svg"))));
}

TEST_F(Program, PlanThatCannotBeWrittenEndsWithCodeOneAndNothingPrinted) {
  EXPECT_EQ(run("--svg \"" + (file("no") / "such" / "plan.svg").string() + "\""), 1);
  EXPECT_EQ(output, "");
  EXPECT_NE(error.find("cannot be written"), std::string::npos);
}

}  // namespace
