#include "sets.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <utility>

#include "limit.h"
#include "matrix/kernels/kernels.h"

namespace benchmarks {
namespace {

using alidade::kernels::InstructionSet;

constexpr std::pair<InstructionSet, const char*> kSets[] = {{InstructionSet::kPlain, "plain loops"},
                                                            {InstructionSet::kSse2, "SSE2"},
                                                            {InstructionSet::kAvx2, "AVX2"},
                                                            {InstructionSet::kAvx512, "AVX-512"},
                                                            {InstructionSet::kNeon, "NEON"}};

bool is_of_the_library(const Variant& variant) {
  return std::any_of(std::begin(kSets), std::end(kSets), [&](const auto& set) { return set.second == variant.name; });
}

}  // namespace

std::vector<Variant> on_every_set(double flops, const std::function<void()>& run, bool plain) {
  std::vector<Variant> variants;
  for (const auto& [set, name] : kSets) {
    if (!alidade::kernels::available(set) || (set == InstructionSet::kPlain && !plain)) {
      continue;
    }
    if (flops > 0.0) {
      const std::vector<Variant> beside = limit(set, name);
      variants.insert(variants.end(), beside.begin(), beside.end());
    }
    variants.push_back({name, flops, run, [chosen = set] { alidade::kernels::select(chosen); }});
  }
  return variants;
}

std::vector<Variant> on_best_set(double flops, const std::function<void()>& run) {
  return {on_every_set(flops, run).back()};
}

void compare_results(const std::string& work, const std::vector<Variant>& variants, const Results& results) {
  const auto size = static_cast<std::size_t>(results.rows) *
                    static_cast<std::size_t>(results.packed ? results.rows + 1 : results.columns) /
                    (results.packed ? 2 : 1);
  std::vector<double> expected;
  for (const Variant& variant : variants) {
    if (variant.name.rfind("limit", 0) == 0) {
      continue;
    }
    if (variant.prepare) {
      variant.prepare();
    }
    variant.run();
    bool same = true;
    if (expected.empty()) {
      expected.assign(results.ours, results.ours + size);
    } else if (is_of_the_library(variant)) {
      same = std::memcmp(results.ours, expected.data(), size * sizeof(double)) == 0;
    } else {
      std::size_t k = 0;
      for (int j = 0; j < results.columns; ++j) {
        for (int i = results.packed ? j : 0; i < results.rows; ++i, ++k) {
          const auto row = static_cast<std::size_t>(i);
          const auto column = static_cast<std::size_t>(j);
          const double ours = expected[results.packed ? row * (row + 1) / 2 + column : k];
          const double theirs = results.theirs[row + column * static_cast<std::size_t>(results.rows)];
          same = same && std::fabs(ours - theirs) <= 1e-9 * (1.0 + std::fabs(ours));
        }
      }
    }
    if (!same) {
      std::fprintf(stderr, "%s: the result of %s is another one\n", work.c_str(), variant.name.c_str());
      std::exit(1);
    }
  }
}

}  // namespace benchmarks
