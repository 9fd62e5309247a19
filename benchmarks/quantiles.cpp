// Quantiles beside Boost.Math, which computes to the last digits what a table or an approximation gives here.

#include <alidade/stats.h>

#include <boost/math/distributions/chi_squared.hpp>
#include <boost/math/distributions/students_t.hpp>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "harness.h"
#include "works.h"

namespace benchmarks {
namespace {

double chi_square(int df) { return boost::math::quantile(boost::math::chi_squared(df), 0.95); }

// Pope's tau of Student's t.
double tau(int n, int f, double alpha) {
  const double level = -std::expm1(std::log1p(-alpha) / n);
  const double t = boost::math::quantile(boost::math::complement(boost::math::students_t(f - 1), level / 2));
  return std::sqrt(f) * t / std::sqrt(f - 1 + t * t);
}

void require_near(double x, double y, double bound) {
  if (!(std::fabs(x - y) <= bound)) {
    std::fprintf(stderr, "Boost.Math has another quantile: %.17g, %.17g\n", x, y);
    std::exit(1);
  }
}

void measure_one(const char* name, double (*ours)(), double (*theirs)(), double bound) {
  require_near(ours(), theirs(), bound);
  double value = 0.0;
  measure("quantiles", name,
          {{"alidade", 0.0,
            [&] {
              value = ours();
              keep(&value);
            }},
           {"Boost.Math", 0.0, [&] {
              value = theirs();
              keep(&value);
            }}});
}

}  // namespace

void measure_quantiles() {
  measure_one(
      "`CHI_1SDE(95, 10)`", [] { return static_cast<double>(CHI_1SDE(95, 10)); }, [] { return chi_square(10); }, 0.006);
  measure_one(
      "`CHI_1SDE(95, 100)`", [] { return static_cast<double>(CHI_1SDE(95, 100)); }, [] { return chi_square(100); },
      0.2);
  measure_one(
      "`TAU(10, 10, 0.05)`", [] { return TAU(10, 10, 0.05); }, [] { return tau(10, 10, 0.05); }, 1e-8);
  measure_one(
      "`TAU(100, 50, 0.05)`", [] { return TAU(100, 50, 0.05); }, [] { return tau(100, 50, 0.05); }, 1e-8);
  measure_one(
      "`TAU(1000, 500, 0.05)`", [] { return TAU(1000, 500, 0.05); }, [] { return tau(1000, 500, 0.05); }, 1e-8);
}

}  // namespace benchmarks
