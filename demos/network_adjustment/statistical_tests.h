#ifndef NETWORK_ADJUSTMENT_STATISTICAL_TESTS_H
#define NETWORK_ADJUSTMENT_STATISTICAL_TESTS_H

// Tests of an adjustment: the variance factor against its chi-square bounds, and each observation against the normal
// quantile (a-priori variance) and the tau quantile (estimated variance; Pope, The Statistics of Residuals and the
// Detection of Outliers, NOAA TR NOS 65 NGS 1, 1976).

#include <vector>

#include "least_squares.h"

namespace network {

struct VarianceTest {
  double chi_square;
  int redundancy;
  double factor;  // chi-square over redundancy
  double lower;   // bounds of the central 95 % interval, over redundancy
  double upper;

  bool passed() const { return lower <= factor && factor <= upper; }
};

// redundancy >= 1
VarianceTest test_variance_factor(double chi_square, int redundancy);

struct ObservationTest {
  double residual;
  double sd_residual;  // a-priori variance factor
  double normal;       // residual / sd_residual
  double tau;          // |normal| / sqrt(variance factor)
  bool tested;         // false when no other observation controls this one: its residual is zero whatever its error
};

struct ObservationTests {
  std::vector<ObservationTest> observations;  // in the order of the groups and their rows
  int tested = 0;
  double largest_tau = 0;
  double normal_critical = 0;  // two-sided 95 %
  double tau_critical = 0;     // 95 % for all tested observations together; 0 when there is no such test (redundancy 1)

  bool fails_normal(const ObservationTest& test) const;
  bool fails_tau(const ObservationTest& test) const;
};

// redundancy >= 1
ObservationTests test_observations(const std::vector<GroupResult>& groups, double variance_factor, int redundancy);

}  // namespace network

#endif
