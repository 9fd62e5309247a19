#include "golden/hex_float.h"

#include <cstdlib>
#include <cstring>

namespace golden {
namespace {

constexpr std::uint64_t kSignBit = 0x8000000000000000ULL;
constexpr std::uint64_t kExponentMask = 0x7ff0000000000000ULL;
constexpr std::uint64_t kFractionMask = 0x000fffffffffffffULL;
constexpr std::uint64_t kQuietNan = 0x7ff8000000000000ULL;
constexpr int kFractionBits = 52;
constexpr int kFractionDigits = 13;
constexpr int kExponentBias = 1023;
constexpr int kSubnormalExponent = -1022;

std::uint64_t bits_of(double v) {
  std::uint64_t bits = 0;
  std::memcpy(&bits, &v, sizeof bits);
  return bits;
}

double from_bits(std::uint64_t bits) {
  double v = 0;
  std::memcpy(&v, &bits, sizeof v);
  return v;
}

int digit_value(char c) {
  if (c >= '0' && c <= '9') {
    return c - '0';
  }
  return c >= 'a' && c <= 'f' ? c - 'a' + 10 : -1;
}

// Splits "<lead>[.<digits>]p<exponent>". The fraction is returned as the 52 bits after the point.
bool split(const char* p, int& lead, std::uint64_t& fraction, int& exponent) {
  lead = *p - '0';
  if (lead != 0 && lead != 1) {
    return false;
  }
  ++p;
  fraction = 0;
  int digits = 0;
  if (*p == '.') {
    for (++p; digit_value(*p) >= 0; ++p, ++digits) {
      fraction = fraction << 4 | static_cast<std::uint64_t>(digit_value(*p));
    }
    if (digits == 0 || digits > kFractionDigits) {
      return false;
    }
  }
  fraction <<= 4 * (kFractionDigits - digits);
  if (*p != 'p') {
    return false;
  }
  char* end = nullptr;
  exponent = static_cast<int>(std::strtol(p + 1, &end, 10));
  return end != p + 1 && *end == '\0';
}

}  // namespace

std::uint64_t canonical_bits(double v) {
  const std::uint64_t bits = bits_of(v);
  const bool nan = (bits & kExponentMask) == kExponentMask && (bits & kFractionMask) != 0;
  return nan ? kQuietNan : bits;
}

std::string to_text(double v) {
  const std::uint64_t bits = canonical_bits(v);
  if (bits == kQuietNan) {
    return "nan";
  }
  std::string text = (bits & kSignBit) != 0 ? "-" : "";
  const int biased = static_cast<int>((bits & kExponentMask) >> kFractionBits);
  std::uint64_t fraction = bits & kFractionMask;
  if (biased == 0x7ff) {
    return text + "inf";
  }
  text += biased == 0 ? "0x0" : "0x1";
  int exponent = biased - kExponentBias;
  if (biased == 0) {
    exponent = fraction == 0 ? 0 : kSubnormalExponent;
  }
  if (fraction != 0) {
    text += '.';
    for (; fraction != 0; fraction = fraction << 4 & kFractionMask) {
      text += "0123456789abcdef"[fraction >> (kFractionBits - 4)];
    }
  }
  text += exponent < 0 ? "p-" : "p+";
  return text + std::to_string(exponent < 0 ? -exponent : exponent);
}

bool from_text(const std::string& text, double& v) {
  const char* p = text.c_str();
  std::uint64_t sign = 0;
  if (*p == '-') {
    sign = kSignBit;
    ++p;
  }
  if (std::strcmp(p, "nan") == 0) {
    v = from_bits(kQuietNan);
    return sign == 0;
  }
  if (std::strcmp(p, "inf") == 0) {
    v = from_bits(sign | kExponentMask);
    return true;
  }
  int lead = 0;
  std::uint64_t fraction = 0;
  int exponent = 0;
  if (p[0] != '0' || p[1] != 'x' || !split(p + 2, lead, fraction, exponent)) {
    return false;
  }
  std::uint64_t biased = 0;
  if (lead == 1) {
    if (exponent < kSubnormalExponent || exponent > kExponentBias) {
      return false;
    }
    biased = static_cast<std::uint64_t>(exponent + kExponentBias);
  } else if (exponent != (fraction == 0 ? 0 : kSubnormalExponent)) {
    return false;
  }
  v = from_bits(sign | biased << kFractionBits | fraction);
  return true;
}

}  // namespace golden
