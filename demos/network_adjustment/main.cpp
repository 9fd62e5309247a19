// Adjusts a GNSS network and writes a report and a plan. --help tells the options, docs/network-adjustment.md the
// method.

#include <cstdio>
#include <exception>
#include <fstream>
#include <string>
#include <vector>

#include "adjustment.h"
#include "network_file.h"
#include "options.h"
#include "plan.h"
#include "progress_bar.h"
#include "report.h"
#include "svg_plan.h"
#include "text.h"

namespace {

using namespace network;

enum ExitCode { kDone = 0, kCannotWrite = 1, kBadInput = 2 };

const char* const kDefaultBase = "MYRT";
const char* const kDefaultRovers[] = {"BEEC", "324900360", "324901090"};

int expect_station(const Network& network, const std::string& name, const std::string& option) {
  const int station = find_station(network, name);
  if (station == kNoStation) {
    throw UsageError("expected a station of the network after " + option + ", found " + name);
  }
  return station;
}

// The rovers asked for, else the default ones, as far as the network has them and the base.
std::vector<int> find_rovers(const Network& network, const Options& options, int base) {
  std::vector<int> rovers;
  for (const std::string& name : options.rovers) {
    rovers.push_back(expect_station(network, name, "--rover"));
  }
  if (options.rovers.empty() && base != kNoStation) {
    for (const char* name : kDefaultRovers) {
      const int rover = find_station(network, name);
      if (rover != kNoStation && rover != base) {
        rovers.push_back(rover);
      }
    }
  }
  if (!rovers.empty() && base == kNoStation) {
    throw UsageError("expected --base with --rover: the network has no station " + std::string(kDefaultBase));
  }
  return rovers;
}

bool write_file(const std::string& path, const std::string& text) {
  std::ofstream output(path, std::ios::binary);
  output << text;
  output.close();
  return output.good();
}

int run(const Options& options) {
  const Network network = read_network_file(options.input.empty() ? DEFAULT_INPUT : options.input);
  const int base =
      options.base.empty() ? find_station(network, kDefaultBase) : expect_station(network, options.base, "--base");
  const std::vector<int> rovers = find_rovers(network, options, base);

  ProgressBar bar("Inverting the normal equations");
  AdjustedNetwork adjusted = adjust(network, bar.percentage());
  bar.finish();

  const Results results = evaluate_network(adjusted, base, rovers);
  const std::string plan =
      svg(make_plan(network, results),
          format("GNSS network of %zu station%s", network.stations.size(), network.stations.size() == 1 ? "" : "s"));
  if (!write_file(options.svg, plan)) {
    std::fprintf(stderr, "%s: cannot be written\n", options.svg.c_str());
    return kCannotWrite;
  }
  std::fputs(report(network, adjusted, results).c_str(), stdout);
  std::printf("\nPlan written to %s\n", options.svg.c_str());
  return kDone;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    const Options options = parse_options(std::vector<std::string>(argv + 1, argv + argc));
    if (options.help) {
      std::fputs(help_text().c_str(), stdout);
      return kDone;
    }
    return run(options);
  } catch (const UsageError& error) {
    std::fprintf(stderr, "network_adjustment: %s (see --help)\n", error.what());
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
  }
  return kBadInput;
}
