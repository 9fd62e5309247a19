// A levelling line from one bench mark to another over three new points. The heights of both ends are known, so the
// line closes but for the errors of measurement: the adjustment spreads them over the height differences, the more the
// longer each is, and tells how good the new heights are.

#include <alidade/matrix.h>

#include <cmath>
#include <cstdio>
#include <numeric>
#include <vector>

int main() {
  const double start = 412.1830, end = 418.9075;                             // bench marks, metres
  const std::vector<double> difference = {2.4137, -0.8862, 3.0491, 2.1539};  // from point to point, metres
  const std::vector<double> length = {0.84, 1.12, 0.65, 0.93};               // of the lines, kilometres
  const double deviation_per_km = 0.0015;  // of a difference over one kilometre, metres
  const int points = 3;                    // new ones

  // Observation equations difference + v = upper height - lower height, weights 1/length, normal equations N x = n.
  // Each difference touches the heights at its two ends; those of the bench marks are no unknowns.
  TSMatrix normal(points, 0);
  std::vector<double> right_side(points, 0.0), height(points);
  for (int k = 0; k <= points; ++k) {
    const double weight = 1.0 / length[k];
    const double observed = difference[k] + (k == 0 ? start : 0.0) - (k == points ? end : 0.0);
    if (k < points) {
      normal[TSMatrix::LinearIndex(k, k)] += weight;
      right_side[k] += weight * observed;
    }
    if (k > 0) {
      normal[TSMatrix::LinearIndex(k - 1, k - 1)] += weight;
      right_side[k - 1] -= weight * observed;
    }
    if (k > 0 && k < points) {
      normal[TSMatrix::LinearIndex(k, k - 1)] -= weight;
    }
  }

  if (RareInversion(normal, nullptr, 0) != 0) {  // the inverse takes the place of N
    return 1;
  }
  normal.MatrProduct(right_side.data(), '=', height.data());

  std::printf("closing error %.1f mm\n", 1000.0 * (std::accumulate(difference.begin(), difference.end(), start) - end));
  double sum = 0.0;  // v'Pv
  for (int k = 0; k <= points; ++k) {
    const double correction = (k == points ? end : height[k]) - (k == 0 ? start : height[k - 1]) - difference[k];
    sum += correction * correction / length[k];
    std::printf("difference %d: %7.4f m over %.2f km, correction %+.2f mm\n", k + 1, difference[k], length[k],
                1000.0 * correction);
  }
  for (int k = 0; k < points; ++k) {
    std::printf("point %d: height %.4f m, standard deviation %.2f mm\n", k + 1, height[k],
                1000.0 * deviation_per_km * std::sqrt(normal[TSMatrix::LinearIndex(k, k)]));
  }
  std::printf("standard deviation over one kilometre, from the closing error: %.2f mm\n", 1000.0 * std::sqrt(sum));
  return 0;
}
