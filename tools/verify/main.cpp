// alidade-verify: does the installed library give the documented bits on this machine?
//
//     alidade-verify [--verbose] [directory of the golden files]
//     alidade-verify --version
//
// Runs every golden case against the library and prints one line for each group of functions and class of bits, and a
// verdict. Exit code 0: every result is as documented, or differs where the math library of this machine was seen to
// differ. 1: a result differs and nothing but alidade's own arithmetic can be the cause, or the environment is at
// fault. 2: nothing differs, but golden files are missing or damaged and hence not everything was looked at; or wrong
// usage.

#include <alidade/environment.h>
#include <alidade/version.h>

#include <cstdio>
#include <cstring>
#include <exception>
#include <map>
#include <set>
#include <stdexcept>
#include <string>

#include "golden/case_file.h"
#include "golden/functions.h"
#include "verify/data_directory.h"
#include "verify/math_library.h"

namespace {

constexpr int kOtherBits = 1;
constexpr int kDamagedData = 2;

struct Count {
  long cases = 0;
  long equal = 0;
  long different = 0;
  long attributed = 0;  // different, and the math library answers at least one of the recorded calls differently
  long math_calls = 0;
  long math_differs = 0;

  void add(const Count& other) {
    cases += other.cases;
    equal += other.equal;
    different += other.different;
    attributed += other.attributed;
    math_calls += other.math_calls;
    math_differs += other.math_differs;
  }
};

class Verification {
public:
  Verification(std::string directory, bool verbose) : directory_(std::move(directory)), verbose_(verbose) {}

  // Returns the number of damages: files that are not as they were written, functions nobody knows or without a case.
  int run();

  const Count& total() const { return total_; }

  // ": sin 9, pow 2", the recorded calls that the math library answers differently; empty when there is none.
  std::string math_differences() const;

private:
  void run_group(const golden::Group& group);
  void run_case(const golden::Group& group, const golden::PlacedCase& placed);
  void complain(const std::string& what);

  std::string directory_;
  bool verbose_;
  Count total_;
  std::map<char, Count> classes_;
  std::map<std::string, long> math_differences_;
  std::set<std::string> seen_;
  int damages_ = 0;
  int reported_ = 0;
};

void print_row(const char* group, const std::string& bit_class, const Count& c) {
  std::printf("%-14s %-5s %8ld %8ld %10ld %10ld\n", group, bit_class.c_str(), c.cases, c.equal, c.different,
              c.attributed);
}

void Verification::complain(const std::string& what) {
  constexpr int kShown = 20;
  if (verbose_ || reported_ < kShown) {
    std::printf("  %s\n", what.c_str());
  } else if (reported_ == kShown) {
    std::printf("  ... (--verbose shows all)\n");
  }
  ++reported_;
}

void Verification::run_case(const golden::Group& group, const golden::PlacedCase& placed) {
  const golden::Case& c = placed.what;
  const golden::Function* function = golden::find_function(group, c.function);
  if (function == nullptr) {
    throw std::runtime_error("unknown function");
  }
  seen_.insert(c.function);
  golden::Arguments in(c.arguments);
  golden::Tokens out;
  function->run(in, out);
  if (!in.done()) {
    throw std::runtime_error("too many arguments");
  }
  Count& count = classes_[c.bit_class];
  ++count.cases;
  for (const golden::MathCall& call : c.math_calls) {
    ++count.math_calls;
    if (!verify::math_library_agrees(call)) {
      ++count.math_differs;
      ++math_differences_[call.function];
    }
  }
  if (golden::are_results_of(c, out)) {
    ++count.equal;
  } else if (!verify::math_library_agrees(c)) {
    ++count.attributed;
  } else {
    ++count.different;
    complain(placed.place + ": different: " + c.function + " " + placed.text +
             "\n        got: " + golden::joined(out.list()));
  }
}

void Verification::run_group(const golden::Group& group) {
  const std::string file = directory_ + "/" + group.name + ".txt";
  classes_.clear();
  seen_.clear();
  try {
    for (const golden::PlacedCase& placed : golden::read_cases(file)) {
      try {
        run_case(group, placed);
      } catch (const std::exception& e) {
        throw std::runtime_error(placed.place + ": " + e.what());
      }
    }
  } catch (const std::exception& e) {
    ++damages_;
    complain(e.what());
    return;
  }
  for (const golden::Function& function : group.functions) {
    if (seen_.count(function.name) == 0) {
      ++damages_;
      complain(file + ": no case of " + function.name);
    }
  }
  for (const auto& entry : classes_) {
    print_row(group.name.c_str(), std::string(1, entry.first), entry.second);
    total_.add(entry.second);
  }
}

int Verification::run() {
  std::printf("%-14s %-5s %8s %8s %10s %10s\n", "group", "class", "cases", "equal", "different", "libm");
  for (const golden::Group& group : golden::all_groups()) {
    run_group(group);
  }
  print_row("all", "", total_);
  return damages_;
}

std::string Verification::math_differences() const {
  std::string text;
  for (const auto& entry : math_differences_) {
    text += (text.empty() ? ": " : ", ") + entry.first + " " + std::to_string(entry.second);
  }
  return text;
}

void print_environment(unsigned faults) {
  if ((faults & alidade::kRoundingNotToNearest) != 0) {
    std::printf("environment: the rounding mode is not to nearest\n");
  }
  if ((faults & alidade::kFlushesToZero) != 0) {
    std::printf("environment: subnormal results are flushed to zero\n");
  }
  if ((faults & alidade::kDenormalsAreZero) != 0) {
    std::printf("environment: subnormal operands are read as zero\n");
  }
  if ((faults & alidade::kExcessPrecision) != 0) {
    std::printf("environment: results are kept with more precision than a double\n");
  }
  if (faults == 0) {
    std::printf("environment: as required\n");
  }
}

}  // namespace

int main(int argc, char** argv) {
  bool verbose = false;
  std::string directory = verify::data_directory(argc > 0 ? argv[0] : nullptr);
  for (int i = 1; i < argc; ++i) {
    if (std::strcmp(argv[i], "--verbose") == 0) {
      verbose = true;
    } else if (std::strcmp(argv[i], "--version") == 0) {
      std::printf("alidade-verify %d.%d.%d\n", ALIDADE_VERSION_MAJOR, ALIDADE_VERSION_MINOR, ALIDADE_VERSION_PATCH);
      return 0;
    } else if (argv[i][0] == '-') {
      std::printf("usage: alidade-verify [--version] [--verbose] [directory of the golden files]\n");
      return std::strcmp(argv[i], "--help") == 0 ? 0 : kDamagedData;
    } else {
      directory = argv[i];
    }
  }
  const unsigned faults = alidade::environment_faults();
  print_environment(faults);
  Verification verification(directory, verbose);
  const int damages = verification.run();
  const Count& total = verification.total();
  std::printf("math library: %ld of %ld recorded calls answered differently%s\n", total.math_differs, total.math_calls,
              verification.math_differences().c_str());
  if (faults != 0 || total.different != 0) {
    std::printf("verdict: NOT the documented bits\n");
    return kOtherBits;
  }
  if (damages != 0) {
    std::printf("verdict: none, golden files are missing or damaged\n");
    return kDamagedData;
  }
  std::printf("verdict: same bits\n");
  return 0;
}
