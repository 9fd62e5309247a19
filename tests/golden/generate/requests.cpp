#include "golden/generate/requests.h"

namespace generate {

std::string Requests::kind() {
  static const char* const kKinds[] = {"short", "plain", "short", "whole", "wide", "short", "tiny", "nasty"};
  return kKinds[turn_++ % 8];
}

golden::Tokens Requests::numbers(const std::string& kind, int n) {
  const std::uint64_t seed = bits_.state();
  for (int i = 0; i < n; ++i) {
    number(kind);
  }
  return golden::Tokens().drawn(static_cast<std::size_t>(n), kind, seed);
}

void Requests::add_numbers(char bit_class, const std::string& function, int n, int count) {
  constexpr int kFreshFactor = 4;
  for (int i = 0; i < (fresh_ ? kFreshFactor * count : count); ++i) {
    add(bit_class, function, numbers(kind(), n));
  }
}

double Requests::uniform(double lowest, double highest) {
  const double unit = static_cast<double>(bits_.next() >> 11) * 0x1p-53;
  return lowest + (highest - lowest) * unit;
}

}  // namespace generate
