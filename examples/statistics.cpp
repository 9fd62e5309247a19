// Testing a levelling net after its adjustment: is the variance factor acceptable, and is any observation an outlier?

#include <alidade/stats.h>

#include <cmath>
#include <cstdio>

int main() {
  const int redundancy = 12;                    // 20 height differences, 8 unknown heights
  const double sum_of_weighted_squares = 14.9;  // v'Pv of the adjustment, a-priori variance factor 1
  const double variance_factor = sum_of_weighted_squares / redundancy;

  float bounds[2];
  CHI_2SDE(95, redundancy, bounds);  // level in per cent first, then the degrees of freedom
  const bool accepted = sum_of_weighted_squares > bounds[0] && sum_of_weighted_squares < bounds[1];
  std::printf("v'Pv = %.2f, 95 %% of the time between %.2f and %.2f: %s\n", sum_of_weighted_squares, bounds[0],
              bounds[1], accepted ? "accepted" : "rejected");
  std::printf("one-sided 95 %% bound %.2f\n", CHI_1SDE(95, redundancy));

  // Residual and its standard deviation a priori, millimetres. The tau test divides by the a-posteriori figure.
  const double residual[] = {0.42, -1.13, 2.96, -0.27, 0.88};
  const double deviation[] = {0.81, 0.94, 0.99, 0.85, 0.90};
  const int number_of_observations = 20;
  const double critical = TAU(number_of_observations, redundancy, 0.05);
  std::printf("critical tau for %d observations at 5 %%: %.3f\n", number_of_observations, critical);
  for (int i = 0; i < 5; ++i) {
    const double tau = std::fabs(residual[i]) / (deviation[i] * std::sqrt(variance_factor));
    std::printf("observation %d: tau %.3f%s\n", i + 1, tau, tau > critical ? "  outlier" : "");
  }

  std::printf("standard deviation of unit weight %.2f mm: accuracy class %d\n", std::sqrt(variance_factor),
              RmsToKnown(std::sqrt(variance_factor)));  // a small integer, not a digit
  return 0;
}
