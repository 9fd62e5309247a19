#include <alidade/stats.h>

#include <cmath>

#include "square_root.h"
#include "strict_arithmetic.h"
#include "truncate.h"

namespace alidade {
namespace {

constexpr double kHalfPi = 1.5707963267948966;     // 0x1.921fb54442d18p+0
constexpr double kTwoOverPi = 0.6366197723675814;  // 0x1.45f306dc9c883p-1
constexpr double kSqrtTwo = 1.4142135623730951;    // 0x1.6a09e667f3bcdp+0

// Above this level the binomial series is left for the power function.
constexpr double kSeriesLimit = 0.5;
constexpr int kSeriesTerms = 100;
constexpr double kSeriesTolerance = 1e-14;  // 0x1.6849b86a12b9bp-47

constexpr double kNewtonTolerance = 1e-10;  // 0x1.b7cdfd9d7bdbbp-34
constexpr double kDivergence = 0.5;
constexpr int kNewtonSteps = 50;

// Level of one of n independent tests that together have level alpha: 1 - (1 - alpha)^(1/n). The binomial series
// avoids the cancellation of the closed form. All factors are doubles: n k does not overflow.
double level_of_one_test(double n, double alpha) {
  if (!(alpha <= kSeriesLimit)) {
    return 1.0 - std::pow(1.0 - alpha, 1.0 / n);
  }
  double term = alpha / n;
  double sum = term;
  for (int i = 1; i <= kSeriesTerms; ++i) {
    const double k = i;
    term = term * ((n * k - 1.0) * alpha) / ((k + 1.0) * n);
    if (term < kSeriesTolerance) {
      break;
    }
    sum += term;
  }
  return sum;
}

// Normal quantile exceeded with probability level/2: Abramowitz and Stegun 26.2.23 (absolute error below 4.5e-4).
double normal_quantile(double level) {
  constexpr double kTwoLogTwo = 1.3862943611199;  // 2 ln 2 to fourteen digits; 0x1.62e42fefa3a19p+0
  constexpr double kC0 = 2.515517;                // 0x1.41fc7607c419ap+1
  constexpr double kC1 = 0.802853;                // 0x1.9b0f8c64fdb0ap-1
  constexpr double kC2 = 0.010328;                // 0x1.526d8b1dd5d3ep-7
  constexpr double kD1 = 1.432788;                // 0x1.6ecb31c219eb6p+0
  constexpr double kD2 = 0.189269;                // 0x1.839f77292c493p-3
  constexpr double kD3 = 0.001308;                // 0x1.56e264e48626fp-10
  const double v = kTwoLogTwo - 2.0 * std::log(level);
  const double t = square_root(v);
  return t - ((v * kC2 + t * kC1) + kC0) / (((t * kD3 + kD2) * v + t * kD1) + 1.0);
}

// Student's t with nu degrees of freedom from the normal quantile z: Cornish-Fisher expansion to the fourth order,
// Abramowitz and Stegun 26.7.5.
double student_from_normal(double z, double nu) {
  constexpr double kPer92160 = 1.0850694444444445e-5;  // 1/92160; 0x1.6c16c16c16c17p-17
  constexpr double kPer384 = 0.0026041666666666665;    // 1/384; 0x1.5555555555555p-9
  constexpr double kPer96 = 0.010416666666666666;      // 1/96; 0x1.5555555555555p-7
  constexpr double kPer4 = 0.25;                       // exact
  const double g = z * z;
  const double c4 = ((((79.0 * g + 776.0) * g + 1482.0) * g - 1920.0) * g - 945.0) * z * kPer92160;
  const double c3 = (((3.0 * g + 19.0) * g + 17.0) * g - 15.0) * z * kPer384;
  const double c2 = ((5.0 * g + 16.0) * g + 3.0) * z * kPer96;
  const double c1 = (g + 1.0) * z * kPer4;
  return ((((c4 / nu + c3) / nu + c2) / nu + c1) / nu) + z;
}

// One Newton step for r = t / sqrt(t^2 + nu) towards probability P: (P - A(r)) / A'(r), where A(r) is the two-sided
// distribution of Student's t in closed form, Abramowitz and Stegun 26.7.3 and 26.7.4, and q = 1 - r^2. half is nu/2
// cut to a whole number.
double newton_step_even(double r, double q, double nu, int half, double P) {
  const double w = nu / q;
  double term = 1.0;
  double sum = 0.0;
  for (int i = 1; i <= half; ++i) {
    const double k = i;
    sum += term;
    term = ((k - 0.5) / k) * term * q;
  }
  return (P - sum * r) / (term * w);
}

double newton_step_odd(double r, double q, double nu, int half, double P) {
  const double w = nu / q;
  double term = square_root(q);
  double sum = 0.0;
  for (int i = 1; i <= half; ++i) {
    const double k = i;
    sum += term;
    term = (k / (k + 0.5)) * term * q;
  }
  const double theta = std::atan(r / square_root(q));
  return (P - (sum * r + theta) * kTwoOverPi) / ((term * w) * kTwoOverPi);
}

// The r whose two-sided probability is P, from the starting point for Student's T.
double refined_ratio(double T, double nu, double P) {
  const double T_squared = T * T;
  const double r_squared = T_squared / (T_squared + nu);
  double r = square_root(r_squared);
  double q = 1.0 - r_squared;
  const double half_nu = nu * 0.5;
  const int half = truncate_to_int(half_nu);
  const bool even = half_nu == half;
  double previous = 1.0;
  for (int counter = 1; counter <= kNewtonSteps; ++counter) {
    const double step = even ? newton_step_even(r, q, nu, half, P) : newton_step_odd(r, q, nu, half, P);
    // Neither the last, negligible step nor a diverging one is applied.
    if (std::fabs(step) < kNewtonTolerance || std::fabs(step / previous) > kDivergence) {
      break;
    }
    previous = step;
    r = r + step;
    q = 1.0 - r * r;
  }
  return r;
}

}  // namespace
}  // namespace alidade

double TAU(int n, int f, double alpha) {
  const double redundancy = f;
  if (alpha <= 0.0) {
    return alidade::square_root(redundancy);
  }
  if (alpha > 1.0) {
    return 0.0;
  }
  const double level = alidade::level_of_one_test(n, alpha);
  const double P = 1.0 - level;
  if (f <= 2) {
    return std::sin(P * alidade::kHalfPi) * alidade::kSqrtTwo;
  }
  const double nu = redundancy - 1.0;
  const double T = alidade::student_from_normal(alidade::normal_quantile(level), nu);
  return alidade::refined_ratio(T, nu, P) * alidade::square_root(redundancy);
}
