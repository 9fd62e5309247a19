// Stakes out a road: --help tells the input and the options.

#include <cstdio>
#include <exception>
#include <fstream>
#include <string>
#include <vector>

#include "alignment.h"
#include "options.h"
#include "report.h"
#include "road_plan.h"
#include "site_plan.h"
#include "svg.h"

namespace {

using namespace stakeout;

enum ExitCode { kDone = 0, kCannotWrite = 1, kBadInput = 2 };

bool write_file(const std::string& path, const std::string& text) {
  std::ofstream output(path, std::ios::binary);
  output << text;
  output.close();
  return output.good();
}

// All is computed before anything is written or printed.
int run(const Options& options) {
  const RoadPlan plan = read_road_plan_file(options.input.empty() ? DEFAULT_INPUT : options.input);
  const Alignment alignment(plan);
  const std::string text = report(plan, alignment);
  const std::string drawing = svg(make_site_plan(plan, alignment));
  if (!write_file(options.svg, drawing)) {
    std::fprintf(stderr, "%s: cannot be written\n", options.svg.c_str());
    return kCannotWrite;
  }
  std::fputs(text.c_str(), stdout);
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
    std::fprintf(stderr, "stakeout: %s (see --help)\n", error.what());
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
  }
  return kBadInput;
}
