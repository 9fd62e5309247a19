#include "statistical_tests.h"

#include <alidade/stats.h>

#include <algorithm>
#include <cmath>

namespace network {
namespace {

constexpr int kLevelPercent = 95;
constexpr double kSignificance = 0.05;
constexpr double kNormalCritical = 1.96;

// A residual keeps this fraction of its observation's variance at least, or nothing controls the observation and what
// is left is rounding: C - A Q A' loses about as many digits as the normal equations, far fewer than ten.
constexpr double kControlled = 1e-9;

}  // namespace

VarianceTest test_variance_factor(double chi_square, int redundancy) {
  float bounds[2];
  CHI_2SDE(kLevelPercent, redundancy, bounds);
  return {chi_square, redundancy, chi_square / redundancy, static_cast<double>(bounds[0]) / redundancy,
          static_cast<double>(bounds[1]) / redundancy};
}

bool ObservationTests::fails_normal(const ObservationTest& test) const {
  return test.tested && std::fabs(test.normal) > normal_critical;
}

bool ObservationTests::fails_tau(const ObservationTest& test) const {
  return test.tested && tau_critical > 0 && test.tau > tau_critical;
}

ObservationTests test_observations(const std::vector<GroupResult>& groups, double variance_factor, int redundancy) {
  ObservationTests tests;
  const double sigma = std::sqrt(variance_factor);
  for (const GroupResult& group : groups) {
    for (std::size_t k = 0; k < group.residual.size(); ++k) {
      ObservationTest test{group.residual[k], 0, 0, 0, group.residual_variance[k] > kControlled * group.variance[k]};
      if (test.tested) {
        test.sd_residual = std::sqrt(group.residual_variance[k]);
        test.normal = test.residual / test.sd_residual;
        test.tau = sigma > 0 ? std::fabs(test.normal) / sigma : 0.0;
        tests.largest_tau = std::max(tests.largest_tau, test.tau);
        ++tests.tested;
      }
      tests.observations.push_back(test);
    }
  }
  tests.normal_critical = kNormalCritical;
  // With one redundant observation every tau is 1: there is nothing to test.
  if (redundancy > 1 && tests.tested > 0) {
    tests.tau_critical = TAU(tests.tested, redundancy, kSignificance);
  }
  return tests;
}

}  // namespace network
