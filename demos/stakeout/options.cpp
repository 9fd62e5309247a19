#include "options.h"

namespace stakeout {

Options parse_options(const std::vector<std::string>& arguments) {
  Options options;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string& argument = arguments[i];
    if (argument == "--help" || argument == "-h") {
      options.help = true;
    } else if (argument == "--svg") {
      if (++i == arguments.size() || arguments[i].empty()) {
        throw UsageError("expected a file name after --svg");
      }
      options.svg = arguments[i];
    } else if (argument.empty() || argument[0] == '-') {
      throw UsageError("expected an option that --help lists, found \"" + argument + "\"");
    } else if (!options.input.empty()) {
      throw UsageError("expected one input file, found \"" + argument + "\" as well");
    } else {
      options.input = argument;
    }
  }
  return options;
}

std::string help_text() {
  return "usage: stakeout [--svg FILE] [FILE]\n"
         "\n"
         "Computes the axis of a road from its plan points and prints what a surveyor takes to the site:\n"
         "the elements, the stakes with their offsets, the as-built points with their distances from the\n"
         "axis, and the area of a parcel. Writes a plan of it all. Without FILE it takes the road that\n"
         "comes with it.\n"
         "\n"
         "  --svg FILE  where the plan is written (default stakeout.svg)\n"
         "  --help      this text\n"
         "\n"
         "The input is text, one record a line, '#' begins a comment. Metres; north before east:\n"
         "\n"
         "  ROAD title\n"
         "  BEGIN station north east               where the axis begins, and its station there\n"
         "  TANGENT north east                     a straight to a point\n"
         "  ARC3 north east north east             an arc through a point on it to its end\n"
         "  ARC_FROM_TANGENT north east            an arc that leaves the TANGENT before it without a kink\n"
         "  ARC_TO_TANGENT north east              an arc that meets the TANGENT behind it without a kink\n"
         "  INTERVAL metres                        between stakes (default 10)\n"
         "  OFFSETS left right                     of the stakes from the axis (default 3.5 3.5)\n"
         "  ASBUILT name north east design_offset  a point measured after construction; offsets count\n"
         "                                         to the right of the axis, negative to the left\n"
         "  CORNER name north east                 corners of a parcel, in order\n"
         "\n"
         "Exit code 0: done. 1: the plan could not be written. 2: the command line or the input is at\n"
         "fault; the message names file, line and what was expected, and nothing else is printed.\n";
}

}  // namespace stakeout
