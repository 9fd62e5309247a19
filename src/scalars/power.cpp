#include <alidade/matrix.h>

#include <cmath>
#include <cstdint>
#include <limits>

#include "strict_arithmetic.h"

namespace alidade {
namespace {

constexpr int kLargestMultipliedPower = 31;

double real_power(double x, int n) {
  if (n == 0) {
    return 1.0;
  }
  if (n < -kLargestMultipliedPower || n > kLargestMultipliedPower) {
    return std::pow(x, static_cast<double>(n));
  }
  const int factors = n < 0 ? -n : n;
  double p = x;
  for (int i = 1; i < factors; ++i) {
    p = p * x;
  }
  return n > 0 ? p : 1.0 / p;
}

// The order of the questions is part of the result: 0 to the power 0 is 0, -1 to a negative power is 0.
int integer_power(int a, int n) {
  if (a == 0 || a == 1) {
    return a;
  }
  if (n < 0) {
    return 0;
  }
  if (n == 0) {
    return 1;
  }
  if (a == -1) {
    return n % 2 == 0 ? 1 : -1;
  }
  if (n > kLargestMultipliedPower) {
    return std::numeric_limits<int>::max();
  }
  const auto factor = static_cast<std::uint32_t>(a);
  std::uint32_t p = factor;  // unsigned, so that it wraps
  for (int i = 1; i < n; ++i) {
    p = p * factor;
  }
  return static_cast<int>(p);
}

}  // namespace

}  // namespace alidade

double power(double x, int n) { return alidade::real_power(x, n); }

int power(int a, int n) { return alidade::integer_power(a, n); }
