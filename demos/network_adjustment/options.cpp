#include "options.h"

namespace network {

Options parse_options(const std::vector<std::string>& arguments) {
  Options options;
  bool input_given = false;
  for (std::size_t k = 0; k < arguments.size(); ++k) {
    const std::string& argument = arguments[k];
    const auto value = [&]() -> const std::string& {
      if (k + 1 == arguments.size() || arguments[k + 1].empty()) {
        throw UsageError("expected a value after " + argument);
      }
      return arguments[++k];
    };
    if (argument == "--help" || argument == "-h") {
      options.help = true;
    } else if (argument == "--svg") {
      options.svg = value();
    } else if (argument == "--base") {
      options.base = value();
    } else if (argument == "--rover") {
      options.rovers.push_back(value());
    } else if (!argument.empty() && argument[0] == '-') {
      throw UsageError("expected an option that --help lists, found " + argument);
    } else if (argument.empty() || input_given) {
      throw UsageError("expected one network file, found \"" + argument + "\" as well");
    } else {
      options.input = argument;
      input_given = true;
    }
  }
  return options;
}

std::string help_text() {
  return "usage: network_adjustment [options] [FILE]\n"
         "\n"
         "Adjusts a GNSS network by least squares and prints positions, standard deviations, error\n"
         "ellipses, the tests of the adjustment and reductions from a base to rovers. Without FILE it\n"
         "takes the network of 43 stations in north-east Victoria that comes with it; the head of that\n"
         "file describes the format.\n"
         "\n"
         "  --svg FILE       where the plan of the network is written (default network.svg)\n"
         "  --base STATION   base of the reductions (default MYRT, where the network has it)\n"
         "  --rover STATION  a rover; may be given more than once (default BEEC, 324900360 and\n"
         "                   324901090, those of them that the network has)\n"
         "  --help           this text\n"
         "\n"
         "Exit code 0: done. 1: the plan could not be written. 2: the command line or the input is at\n"
         "fault; the message names file, line and what was expected, and nothing else is printed.\n";
}

}  // namespace network
