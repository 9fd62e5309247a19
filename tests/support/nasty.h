#ifndef ALIDADE_TESTS_SUPPORT_NASTY_H
#define ALIDADE_TESTS_SUPPORT_NASTY_H

// Seeded random inputs of the unpleasant kinds, and buffers that notice a write or a read outside their bounds.

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>

#include "support/bits.h"

#if defined(__SANITIZE_ADDRESS__)
#define ALIDADE_TESTS_ADDRESS_SANITIZER
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define ALIDADE_TESTS_ADDRESS_SANITIZER
#endif
#endif

namespace nasty {

// splitmix64 (Steele, Lea, Flood 2014): the same numbers with every compiler and standard library.
class Random {
public:
  explicit Random(std::uint64_t seed) : state_(seed) {}

  std::uint64_t bits() {
    std::uint64_t z = (state_ += 0x9e3779b97f4a7c15u);
    z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9u;
    z = (z ^ (z >> 27)) * 0x94d049bb133111ebu;
    return z ^ (z >> 31);
  }

  // 0 ... n - 1.
  int below(int n) { return static_cast<int>(bits() % static_cast<std::uint64_t>(n)); }

  bool one_in(int n) { return below(n) == 0; }

  // Uniform in [-1, 1), 53 bits.
  double unit() {
    return static_cast<double>(static_cast<std::int64_t>(bits() >> 10) - (std::int64_t{1} << 53)) * 0x1p-53;
  }

  // Full mantissa, exponent uniform in [low, high), either sign.
  double scaled(int low, int high) {
    const double mantissa = 1.0 + static_cast<double>(bits() >> 12) * 0x1p-52;
    return std::ldexp(one_in(2) ? -mantissa : mantissa, low + below(high - low));
  }

private:
  std::uint64_t state_;
};

enum class Kind {
  kUnit,     // uniform in [-1, 1)
  kWide,     // exponents -30 ... 29: the order of a sum shows in its last bits
  kSparse,   // mostly zeros of either sign
  kTiny,     // products are subnormal or vanish, with either sign
  kHuge,     // products overflow now and then
  kSpecial,  // now and then a zero, a subnormal, an infinity or a NaN
};

constexpr Kind kAllKinds[] = {Kind::kUnit, Kind::kWide, Kind::kSparse, Kind::kTiny, Kind::kHuge, Kind::kSpecial};

inline double special(Random& random) {
  constexpr double kInf = std::numeric_limits<double>::infinity();
  constexpr double kValues[] = {0.0,
                                -0.0,
                                0x1p-1074,
                                -0x1p-1074,
                                0x1p-1022,
                                -kInf,
                                kInf,
                                std::numeric_limits<double>::quiet_NaN(),
                                1.0,
                                -1.0,
                                0x1.fffffffffffffp+1023,
                                0x0.fffffffffffffp-1022};
  return kValues[random.below(12)];
}

inline double value(Kind kind, Random& random) {
  switch (kind) {
    case Kind::kUnit:
      return random.unit();
    case Kind::kWide:
      return random.scaled(-30, 30);
    case Kind::kSparse:
      return random.one_in(4) ? random.scaled(-2, 3) : (random.one_in(2) ? 0.0 : -0.0);
    case Kind::kTiny:
      return random.one_in(8) ? random.scaled(-1080, -1000) : random.scaled(-545, -515);
    case Kind::kHuge:
      return random.scaled(495, 513);
    case Kind::kSpecial:
      return random.one_in(24) ? special(random) : random.scaled(-3, 4);
  }
  return 0.0;
}

// n values on the heap and not one more, so that AddressSanitizer sees every overrun.
class Buffer {
public:
  Buffer(std::ptrdiff_t n, Kind kind, Random& random) : size_(n > 0 ? n : 0), data_(new double[count()]) {
    for (std::ptrdiff_t i = 0; i < size_; ++i) {
      data_[static_cast<std::size_t>(i)] = value(kind, random);
    }
  }

  double* data() { return data_.get(); }
  const double* data() const { return data_.get(); }
  std::ptrdiff_t size() const { return size_; }

private:
  std::size_t count() const { return static_cast<std::size_t>(size_); }

  std::ptrdiff_t size_;
  std::unique_ptr<double[]> data_;
};

// A copy of a buffer with guard values on both sides. Under AddressSanitizer the guards are left out: it has its own.
class Guarded {
public:
  explicit Guarded(const Buffer& from)
      : size_(from.size()), data_(new double[static_cast<std::size_t>(size_ + 2 * kGuards)]) {
    for (std::ptrdiff_t i = 0; i < size_ + 2 * kGuards; ++i) {
      data_[static_cast<std::size_t>(i)] = bits::from(kPattern);
    }
    for (std::ptrdiff_t i = 0; i < size_; ++i) {
      data()[i] = from.data()[i];
    }
  }

  double* data() { return data_.get() + kGuards; }
  const double* data() const { return data_.get() + kGuards; }
  std::ptrdiff_t size() const { return size_; }

  bool intact() const {
    bool intact = true;
    for (std::ptrdiff_t i = 0; i < kGuards; ++i) {
      intact = intact && bits::of(data()[-1 - i]) == kPattern && bits::of(data()[size_ + i]) == kPattern;
    }
    return intact;
  }

private:
#if defined(ALIDADE_TESTS_ADDRESS_SANITIZER)
  static constexpr std::ptrdiff_t kGuards = 0;
#else
  static constexpr std::ptrdiff_t kGuards = 16;
#endif
  static constexpr std::uint64_t kPattern = 0x7ffcdead5eed0001u;  // a NaN that nothing computes

  std::ptrdiff_t size_;
  std::unique_ptr<double[]> data_;
};

// Runs a function of the library and its reference on copies of one target; every bit must agree, and nothing around
// the target may change. `what` describes the case and is called only on failure.
template <class Tested, class Reference, class What>
void expect_same_bits(const Buffer& target, Tested tested, Reference reference, What what) {
  Guarded actual(target);
  Guarded expected(target);
  tested(actual.data());
  reference(expected.data());
  EXPECT_TRUE(actual.intact()) << what() << ": wrote outside the target";
  EXPECT_TRUE(bits::equal_arrays(actual.data(), expected.data(), static_cast<std::size_t>(target.size()))) << what();
}

}  // namespace nasty

#endif
