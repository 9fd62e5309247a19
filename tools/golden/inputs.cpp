#include "golden/inputs.h"

#include <cstring>
#include <stdexcept>

namespace golden {
namespace {

double from_bits(std::uint64_t bits) {
  double v = 0;
  std::memcpy(&v, &bits, sizeof v);
  return v;
}

constexpr std::uint64_t kSpecialValues[] = {
    0x0000000000000000ULL, 0x8000000000000000ULL,  // zeros
    0x0000000000000001ULL, 0x8000000000000001ULL,  // smallest subnormals
    0x000fffffffffffffULL, 0x0010000000000000ULL,  // largest subnormal, smallest normal
    0x7fefffffffffffffULL, 0xffefffffffffffffULL,  // largest finite
    0x7ff0000000000000ULL, 0xfff0000000000000ULL,  // infinities
    0x7ff8000000000000ULL,                         // NaN
    0x3ff0000000000000ULL, 0xbff0000000000000ULL,  // one
};
constexpr int kSpecialCount = sizeof kSpecialValues / sizeof kSpecialValues[0];

double special(RandomBits& bits) { return from_bits(kSpecialValues[bits.below(kSpecialCount)]); }

double zero(RandomBits& bits) { return from_bits(bits.next() & 0x8000000000000000ULL); }

// Random sign and fraction; the exponent is drawn from lowest ... lowest + count - 1.
double with_exponent(RandomBits& bits, int lowest, int count) {
  const std::uint64_t word = bits.next();
  const std::uint64_t biased = static_cast<std::uint64_t>(lowest + bits.below(count) + 1023);
  return from_bits((word & 0x800fffffffffffffULL) | biased << 52);
}

double short_number(RandomBits& bits) {
  const std::uint64_t word = bits.next();
  const std::uint64_t biased = static_cast<std::uint64_t>(bits.below(16) - 8 + 1023);
  return from_bits((word & 0x800fff0000000000ULL) | biased << 52);
}

double power_of_two(int exponent) { return from_bits(static_cast<std::uint64_t>(exponent + 1023) << 52); }

double dominant_entry(RandomBits& bits, int i, int j, int n) {
  if (i == j) {
    return n + 1 + bits.below(1024) * 0x1p-10;
  }
  return (bits.below(2001) - 1000) * 0x1p-10;
}

bool is_stored(const std::string& kind, int i, int j, int n) {
  if (kind == "banded" || kind == "signed") {
    return i - j <= 4;
  }
  if (kind == "blocks") {
    return i / 3 == j / 3 || i >= n - 3;
  }
  return true;
}

double scale_of(const std::string& kind, int i, int j) {
  if (kind == "graded") {
    return power_of_two(20 * (i % 5) - 40) * power_of_two(20 * (j % 5) - 40);
  }
  if (kind == "huge") {
    return power_of_two(1000);
  }
  if (kind == "small") {
    return power_of_two(-1000) * 0x1p-30;
  }
  return 1.0;
}

std::size_t diagonal(int i) {
  const auto row = static_cast<std::size_t>(i);
  return row * (row + 3) / 2;
}

}  // namespace

std::uint64_t RandomBits::next() {
  state_ += 0x9e3779b97f4a7c15ULL;
  std::uint64_t z = state_;
  z = (z ^ z >> 30) * 0xbf58476d1ce4e5b9ULL;
  z = (z ^ z >> 27) * 0x94d049bb133111ebULL;
  return z ^ z >> 31;
}

int RandomBits::below(int n) { return static_cast<int>((next() >> 32) * static_cast<std::uint64_t>(n) >> 32); }

double random_double(RandomBits& bits, const std::string& kind) {
  if (kind == "plain") {
    return with_exponent(bits, -8, 16);
  }
  if (kind == "short") {
    return short_number(bits);
  }
  if (kind == "whole") {
    const int v = bits.below(17) - 8;
    return v == 0 ? zero(bits) : v;
  }
  if (kind == "wide") {
    return with_exponent(bits, -400, 800);
  }
  if (kind == "tiny") {
    return with_exponent(bits, -560, 81);
  }
  if (kind == "sparse") {
    return bits.below(4) != 0 ? zero(bits) : with_exponent(bits, -8, 16);
  }
  if (kind == "nasty") {
    return bits.below(4) == 0 ? special(bits) : with_exponent(bits, -1022, 2046);
  }
  throw std::runtime_error("unknown kind of numbers: " + kind);
}

std::vector<double> random_doubles(RandomBits& bits, const std::string& kind, std::size_t n) {
  std::vector<double> values(n);
  for (double& v : values) {
    v = random_double(bits, kind);
  }
  return values;
}

std::vector<double> symmetric_matrix(RandomBits& bits, const std::string& kind, int n) {
  std::vector<double> packed;
  for (int i = 0; i < n; ++i) {
    for (int j = 0; j <= i; ++j) {
      if (!is_stored(kind, i, j, n)) {
        packed.push_back(kind == "signed" ? zero(bits) : 0.0);
      } else if (kind == "nasty" && bits.below(16) == 0) {
        packed.push_back(special(bits));
      } else {
        packed.push_back(dominant_entry(bits, i, j, n) * scale_of(kind, i, j));
      }
    }
  }
  const std::size_t drawn = n > 0 ? diagonal(bits.below(n)) : 0;
  if (n > 0 && kind == "zeropivot") {
    packed[drawn] = 0.0;
  } else if (n > 0 && kind == "negative") {
    packed[drawn] = -1.0;
  } else if (n > 0 && kind == "nanpivot") {
    packed[drawn] = from_bits(0x7ff8000000000000ULL);
  } else if (n > 0 && kind == "indefinite") {
    packed[drawn] = 0x1p-10;
  }
  return packed;
}

}  // namespace golden
