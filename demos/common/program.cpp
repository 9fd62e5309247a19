#include "common/program.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <new>

namespace demo {
namespace {

enum ExitCode { kDone = 0, kCannotWrite = 1, kBadInput = 2 };

bool write_file(const std::string& path, const std::string& text) {
  std::ofstream output(path, std::ios::binary);
  output << text;
  output.close();
  return output.good();
}

int run(const Program& program, const Arguments& arguments) {
  if (arguments.help) {
    std::fputs(program.help.c_str(), stdout);
    return kDone;
  }
  const Output output = program.run(arguments);
  if (!arguments.plan.empty() && !write_file(arguments.plan, output.plan)) {
    std::fprintf(stderr, "%s: cannot be written\n", arguments.plan.c_str());
    return kCannotWrite;
  }
  std::fputs(output.report.c_str(), stdout);
  if (!arguments.plan.empty()) {
    std::printf("\nPlan written to %s\n", arguments.plan.c_str());
  }
  return kDone;
}

}  // namespace

Arguments parse_arguments(const std::vector<std::string>& arguments, const std::vector<std::string>& own_options) {
  Arguments result;
  for (std::size_t k = 0; k < arguments.size(); ++k) {
    const std::string& argument = arguments[k];
    const auto value = [&]() -> const std::string& {
      if (k + 1 == arguments.size() || arguments[k + 1].empty()) {
        throw UsageError("expected a value after " + argument);
      }
      return arguments[++k];
    };
    if (argument == "--help" || argument == "-h") {
      result.help = true;
    } else if (argument == "--svg") {
      result.plan = value();
    } else if (argument == "--no-plan") {
      result.plan.clear();
    } else if (std::find(own_options.begin(), own_options.end(), argument) != own_options.end()) {
      result.values[argument].push_back(value());
    } else if (argument.empty() || argument[0] == '-') {
      throw UsageError("expected an option that --help lists, found \"" + argument + "\"");
    } else if (!result.input.empty()) {
      throw UsageError("expected one input file, found \"" + argument + "\" as well");
    } else {
      result.input = argument;
    }
  }
  return result;
}

int run_program(const Program& program, int argc, char** argv) {
  try {
    return run(program, parse_arguments(std::vector<std::string>(argv + 1, argv + argc), program.own_options));
  } catch (const UsageError& error) {
    std::fprintf(stderr, "%s: %s (see --help)\n", program.name.c_str(), error.what());
  } catch (const std::bad_alloc&) {
    std::fprintf(stderr, "%s: not enough memory for this input\n", program.name.c_str());
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
  }
  return kBadInput;
}

}  // namespace demo
