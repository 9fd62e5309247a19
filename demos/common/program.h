#ifndef ALIDADE_DEMOS_PROGRAM_H
#define ALIDADE_DEMOS_PROGRAM_H

// What the programs have in common from the command line to the exit code.

#include <functional>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

namespace demo {

class UsageError : public std::runtime_error {
public:
  using std::runtime_error::runtime_error;
};

struct Arguments {
  bool help = false;
  std::string input;                                       // empty: what comes with the program
  std::string plan;                                        // where the plan is written; empty: no plan
  std::map<std::string, std::vector<std::string>> values;  // of the program's own options
};

// One input file, --svg FILE, --no-plan, --help, and the program's own options, each with a value. Throws UsageError.
Arguments parse_arguments(const std::vector<std::string>& arguments, const std::vector<std::string>& own_options);

// What a program has to say: all of it is computed before anything is written or printed.
struct Output {
  std::string report;
  std::string plan;
};

struct Program {
  std::string name;
  std::string help;
  std::vector<std::string> own_options;
  std::function<Output(const Arguments&)> run;
};

// The body of main(). Returns 0: done, 1: the plan could not be written, 2: the command line or the input is at fault.
int run_program(const Program& program, int argc, char** argv);

}  // namespace demo

#endif
