#ifndef ALIDADE_BENCHMARKS_HARNESS_H
#define ALIDADE_BENCHMARKS_HARNESS_H

// Times variants of one work in turns and prints a line for each:
//
//   work|size|variant|flops|seconds per call in round 1, in round 2, ...
//
// In a round all variants take their turn, each round starting with another one, so that what else happens on the
// machine falls on all alike: report.py quotes medians of the ratios within a round. Seconds are processor time of this
// thread. A turn begins with runs that are not counted, because a processor changes its clock with the width of the
// vectors.

#include <functional>
#include <string>
#include <vector>

namespace benchmarks {

struct Variant {
  std::string name;
  double flops;  // of one call; 0 where nobody counts them
  std::function<void()> run;
  std::function<void()> prepare = nullptr;  // before each turn
};

struct Effort {
  int rounds;
  double seconds;  // of a turn
};
constexpr Effort kUsual = {9, 2e-3};
constexpr Effort kLarge = {5, 2e-3};  // where one call fills the turn
constexpr Effort kQuick = {9, 1e-4};

// Seconds per call: one row a variant, one column a round.
std::vector<std::vector<double>> take_turns(const std::vector<Variant>& variants, Effort effort);

void print(const std::string& work, const std::string& size, const std::vector<Variant>& variants,
           const std::vector<std::vector<double>>& seconds);

inline void measure(const std::string& work, const std::string& size, const std::vector<Variant>& variants,
                    Effort effort = kUsual) {
  print(work, size, variants, take_turns(variants, effort));
}

double processor_seconds();

// Uniform in [-1, 1), the same in every run.
std::vector<double> random_values(std::size_t count);

// Keeps the compiler from removing or merging what writes to p.
inline void keep(const void* p) { __asm__ volatile("" : : "g"(p) : "memory"); }

}  // namespace benchmarks

#endif
