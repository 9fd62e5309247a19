#ifndef ALIDADE_TOOLS_GOLDEN_HASH_H
#define ALIDADE_TOOLS_GOLDEN_HASH_H

#include <cstddef>
#include <cstdint>
#include <string>

#include "golden/hex_float.h"

namespace golden {

// FNV-1a, 64 bit (Fowler, Noll, Vo). What follows continues a hash.
constexpr std::uint64_t kEmptyHash = 0xcbf29ce484222325ULL;
inline std::uint64_t hash_with(std::uint64_t hash, unsigned char byte) { return (hash ^ byte) * 0x100000001b3ULL; }

// Over the canonical bits of n doubles, least significant byte first whatever the byte order of the machine.
inline std::uint64_t hash_of(const double* values, std::size_t n) {
  std::uint64_t hash = kEmptyHash;
  for (std::size_t i = 0; i < n; ++i) {
    const std::uint64_t bits = canonical_bits(values[i]);
    for (int shift = 0; shift < 64; shift += 8) {
      hash = hash_with(hash, static_cast<unsigned char>(bits >> shift & 0xffU));
    }
  }
  return hash;
}

// Over the bytes of a text.
inline std::uint64_t hash_of(const std::string& text, std::uint64_t hash = kEmptyHash) {
  for (const char c : text) {
    hash = hash_with(hash, static_cast<unsigned char>(c));
  }
  return hash;
}

}  // namespace golden

#endif
