#ifndef ALIDADE_TESTS_REPRODUCIBILITY_FINGERPRINT_H
#define ALIDADE_TESTS_REPRODUCIBILITY_FINGERPRINT_H

#include <cstdint>
#include <vector>

/// The bits of all results of one group of functions over fixed inputs, as one number.
struct Fingerprint {
  const char* group;
  std::uint64_t hash;
};

/// The fingerprints of the library that this program has loaded. Every call computes them anew.
std::vector<Fingerprint> fingerprints();

/// Prints one line "group hash" for each.
void print(const std::vector<Fingerprint>& all);

/// The same groups with the same hashes?
bool same(const std::vector<Fingerprint>& a, const std::vector<Fingerprint>& b);

#endif
