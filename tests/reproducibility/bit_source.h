#ifndef ALIDADE_TESTS_REPRODUCIBILITY_BIT_SOURCE_H
#define ALIDADE_TESTS_REPRODUCIBILITY_BIT_SOURCE_H

#include <cstddef>
#include <cstdint>
#include <cstring>

// Inputs and hashes made with integers only: this code is also compiled with -ffast-math, which must not change them.

/// A sequence of pseudo-random numbers (the generator splitmix64 of Steele, Lea and Flood, 2014).
class BitSource {
public:
  explicit BitSource(std::uint64_t seed) : state_(seed) {}

  std::uint64_t bits() {
    state_ += 0x9e3779b97f4a7c15U;
    std::uint64_t z = state_;
    z = (z ^ (z >> 30U)) * 0xbf58476d1ce4e5b9U;
    z = (z ^ (z >> 27U)) * 0x94d049bb133111ebU;
    return z ^ (z >> 31U);
  }

  int integer(int low, int high) { return low + static_cast<int>(bits() % static_cast<unsigned>(high - low + 1)); }

  /// A double with a random sign and fraction and magnitude in [2^low, 2^(high + 1)).
  double number(int low, int high) { return assemble(bits() >> 63U, low, high); }

  /// The same, positive.
  double positive(int low, int high) { return assemble(0, low, high); }

  void fill(double* v, std::size_t n, int low, int high) {
    for (std::size_t i = 0; i < n; ++i) {
      v[i] = number(low, high);
    }
  }

private:
  double assemble(std::uint64_t sign, int low, int high) {
    const auto exponent = static_cast<std::uint64_t>(1023 + integer(low, high));
    const std::uint64_t pattern = (sign << 63U) | (exponent << 52U) | (bits() >> 12U);
    double v;
    std::memcpy(&v, &pattern, sizeof v);
    return v;
  }

  std::uint64_t state_;
};

/// FNV-1a over the bytes of what it is given.
class BitHash {
public:
  template <class T>
  void add(const T& value) {
    add(&value, 1);
  }

  template <class T>
  void add(const T* values, std::size_t n) {
    const auto* bytes = reinterpret_cast<const unsigned char*>(values);
    for (std::size_t i = 0; i < n * sizeof(T); ++i) {
      hash_ = (hash_ ^ bytes[i]) * 0x100000001b3U;
    }
  }

  std::uint64_t value() const { return hash_; }

private:
  std::uint64_t hash_ = 0xcbf29ce484222325U;
};

#endif
