#include <alidade/matrix.h>

#include <cmath>

#include "floating_class.h"
#include "strict_arithmetic.h"

namespace alidade {
namespace {

// x = m * 2^e with 0.5 <= |m| < 1. frexp leaves e open for NaN and infinities; here it is 0, as for zeros.
int binary_exponent(double x) {
  int exponent = 0;
  if (is_finite(x)) {
    std::frexp(x, &exponent);
  }
  return exponent;
}

// 2^max(exponent - digits, least), exact.
double power_of_two(int exponent, int digits, int least) {
  const int scaled = exponent - digits;
  return std::ldexp(1.0, scaled > least ? scaled : least);
}

// A quarter of the spacing of doubles near x, so that the sum mostly rounds back to x.
double step_towards(double x, double s) {
  const double step = power_of_two(binary_exponent(x), 55, -1021);
  return s >= 0.0 ? x + step : x - step;
}

// Two spacings of floats near x.
float step_towards(float x, float s) {
  const auto step = static_cast<float>(power_of_two(binary_exponent(x), 23, -125));
  return s >= 0.0F ? x + step : x - step;
}

}  // namespace

}  // namespace alidade

float nearest(float x, float s) { return alidade::step_towards(x, s); }

double nearest(double x, double s) { return alidade::step_towards(x, s); }
