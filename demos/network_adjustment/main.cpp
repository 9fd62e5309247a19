// Adjusts a GNSS network and writes a report and a plan. --help tells the options, docs/network-adjustment.md the
// method.

#include <string>
#include <vector>

#include "adjustment.h"
#include "common/program.h"
#include "common/text.h"
#include "network_file.h"
#include "plan.h"
#include "progress_bar.h"
#include "report.h"
#include "svg_plan.h"

namespace {

using namespace network;

constexpr const char* kHelp =
    "usage: network_adjustment [options] [FILE]\n"
    "\n"
    "Adjusts a GNSS network by least squares and prints positions, standard deviations, error\n"
    "ellipses, the tests of the adjustment and reductions from a base to rovers. Without FILE it\n"
    "takes the network of 43 stations in north-east Victoria that comes with it; the head of that\n"
    "file describes the format.\n"
    "\n"
    "  --svg FILE       writes a plan of the network, too\n"
    "  --no-plan        writes none (the default)\n"
    "  --base STATION   base of the reductions (default MYRT, where the network has it)\n"
    "  --rover STATION  a rover; may be given more than once (default BEEC, 324900360 and\n"
    "                   324901090, those of them that the network has)\n"
    "  --help           this text\n"
    "\n"
    "Exit code 0: done. 1: the plan could not be written. 2: the command line or the input is at\n"
    "fault; the message names file, line and what was expected, and nothing else is printed.\n";

const char* const kDefaultBase = "MYRT";
const char* const kDefaultRovers[] = {"BEEC", "324900360", "324901090"};

int expect_station(const Network& network, const std::string& name, const std::string& option) {
  const int station = find_station(network, name);
  if (station == kNoStation) {
    throw demo::UsageError("expected a station of the network after " + option + ", found " + name);
  }
  return station;
}

int find_base(const Network& network, const std::vector<std::string>& asked) {
  return asked.empty() ? find_station(network, kDefaultBase) : expect_station(network, asked.back(), "--base");
}

// The rovers asked for, else the default ones, as far as the network has them and the base.
std::vector<int> find_rovers(const Network& network, const std::vector<std::string>& asked, int base) {
  std::vector<int> rovers;
  for (const std::string& name : asked) {
    rovers.push_back(expect_station(network, name, "--rover"));
  }
  if (asked.empty() && base != kNoStation) {
    for (const char* name : kDefaultRovers) {
      const int rover = find_station(network, name);
      if (rover != kNoStation && rover != base) {
        rovers.push_back(rover);
      }
    }
  }
  if (!rovers.empty() && base == kNoStation) {
    throw demo::UsageError("expected --base with --rover: the network has no station " + std::string(kDefaultBase));
  }
  return rovers;
}

demo::Output run(demo::Arguments arguments) {
  const Network network = read_network_file(arguments.input.empty() ? DEFAULT_INPUT : arguments.input);
  const int base = find_base(network, arguments.values["--base"]);
  const std::vector<int> rovers = find_rovers(network, arguments.values["--rover"], base);

  ProgressBar bar("Inverting the normal equations");
  const AdjustedNetwork adjusted = adjust(network, bar.percentage());
  bar.finish();

  const Results results = evaluate_network(network, adjusted, base, rovers);
  return {report(network, adjusted, results), arguments.plan.empty() ? "" : svg(make_plan(network, results))};
}

}  // namespace

int main(int argc, char** argv) {
  return demo::run_program({"network_adjustment", kHelp, {"--base", "--rover"}, run}, argc, argv);
}
