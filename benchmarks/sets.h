#ifndef ALIDADE_BENCHMARKS_SETS_H
#define ALIDADE_BENCHMARKS_SETS_H

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "harness.h"

namespace benchmarks {

// The library on every instruction set that this machine has, each with its limit beside it when flops are given, and
// the plain loops when asked for.
std::vector<Variant> on_every_set(double flops, const std::function<void()>& run, bool plain = true);

// The library on its own choice of a set, for works that take long.
std::vector<Variant> on_best_set(double flops, const std::function<void()>& run);

// Where the library and its peers put one and the same result, to see that they did the same work.
struct Results {
  const double* ours;
  const double* theirs;  // dense
  int rows;
  int columns;
  bool packed;  // ours is the packed lower triangle
};

// Runs every variant once. The library must give the same bits on every set, a peer the same numbers but for rounding;
// otherwise ends the program. Sets of the library come first in the list.
void compare_results(const std::string& work, const std::vector<Variant>& variants, const Results& results);

}  // namespace benchmarks

#endif
