#ifndef ALIDADE_TOOLS_GOLDEN_HASH_H
#define ALIDADE_TOOLS_GOLDEN_HASH_H

#include <cstddef>
#include <cstdint>

#include "golden/hex_float.h"

namespace golden {

// FNV-1a, 64 bit (Fowler, Noll, Vo), over the canonical bits of n doubles, least significant byte first whatever the
// byte order of the machine.
inline std::uint64_t hash_of(const double* values, std::size_t n) {
  std::uint64_t hash = 0xcbf29ce484222325ULL;
  for (std::size_t i = 0; i < n; ++i) {
    const std::uint64_t bits = canonical_bits(values[i]);
    for (int shift = 0; shift < 64; shift += 8) {
      hash = (hash ^ (bits >> shift & 0xffU)) * 0x100000001b3ULL;
    }
  }
  return hash;
}

}  // namespace golden

#endif
