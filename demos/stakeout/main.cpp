// Stakes out a road: --help tells the input and the options.

#include "alignment.h"
#include "common/program.h"
#include "report.h"
#include "road_plan.h"
#include "site_plan.h"
#include "svg_plan.h"

namespace {

using namespace stakeout;

constexpr const char* kHelp =
    "usage: stakeout [options] [FILE]\n"
    "\n"
    "Computes the axis of a road from its plan points and prints what a surveyor takes to the site:\n"
    "the elements, the stakes with their offsets, the as-built points with their distances from the\n"
    "axis, and the area of a parcel. Without FILE it takes the road that comes with it.\n"
    "\n"
    "  --svg FILE  writes a plan of it all, too\n"
    "  --no-plan   writes none (the default)\n"
    "  --help      this text\n"
    "\n"
    "The input is text, one record a line, '#' begins a comment. Metres; north before east. Offsets\n"
    "count to the right of the axis and are negative to the left:\n"
    "\n"
    "  ROAD title\n"
    "  BEGIN station north east               where the axis begins, and its station there\n"
    "  TANGENT north east                     a straight to a point\n"
    "  ARC3 north east north east             an arc through a point on it to its end\n"
    "  ARC_FROM_TANGENT north east            an arc that leaves the TANGENT before it without a kink\n"
    "  ARC_TO_TANGENT north east              an arc that meets the TANGENT behind it without a kink\n"
    "  INTERVAL metres                        between stakes (default 10)\n"
    "  OFFSETS left right                     of the stakes from the axis (default -3.5 3.5)\n"
    "  ASBUILT name north east design_offset  a point measured after construction\n"
    "  CORNER name north east                 corners of a parcel, in order; its sides do not cross\n"
    "\n"
    "An axis is at most 200 km long, and all points lie within 100 km of its beginning.\n"
    "\n"
    "Exit code 0: done. 1: the plan could not be written. 2: the command line or the input is at\n"
    "fault; the message names file, line and what was expected, and nothing else is printed.\n";

demo::Output run(const demo::Arguments& arguments) {
  const RoadPlan plan = read_road_plan_file(arguments.input.empty() ? DEFAULT_INPUT : arguments.input);
  const Alignment alignment(plan);
  return {report(plan, alignment), arguments.plan.empty() ? "" : svg(make_site_plan(plan, alignment))};
}

}  // namespace

int main(int argc, char** argv) { return demo::run_program({"stakeout", kHelp, {}, run}, argc, argv); }
