#ifndef ALIDADE_TESTS_GOLDEN_GENERATE_SIZES_H
#define ALIDADE_TESTS_GOLDEN_GENERATE_SIZES_H

#include <string>

#include "golden/generate/requests.h"

namespace generate {

// Sizes around which a kernel may change its way: below, on and above multiples of a vector, a register tile, a block.
constexpr int kSizes[] = {0,  1,  2,  3,  4,  5,  6,  7,  8,  9,  10, 11, 12, 13, 15, 16,  17,  23,
                          24, 25, 31, 32, 33, 40, 47, 48, 49, 63, 64, 65, 95, 96, 97, 127, 128, 129};
constexpr int kSizeCount = sizeof kSizes / sizeof kSizes[0];

// One of the sizes, not above the limit.
inline int size_up_to(Requests& r, int limit) {
  int size = 0;
  do {
    size = kSizes[r.below(kSizeCount)];
  } while (size > limit);
  return size;
}

// Kinds of numbers for sums of many terms.
inline std::string kind_of_terms(int turn) {
  static const char* const kKinds[] = {"plain", "whole", "plain", "wide", "sparse", "tiny", "nasty"};
  return kKinds[turn % 7];
}

// Operation codes; '*' stands for the codes that a kernel does not know.
inline char operation(int turn) { return "=+-|*"[turn % 5]; }

}  // namespace generate

#endif
