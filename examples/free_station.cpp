// A total station set up anywhere, from where three known points are seen: directions and distances to them give its
// coordinates and the bearing of its circle's zero. The observation equations are not linear, so the adjustment is
// repeated from an approximate position until nothing moves.

#include <alidade/coords.h>
#include <alidade/matrix.h>

#include <cmath>
#include <cstdio>
#include <vector>

namespace {

constexpr double kRadian = 57.29577951308232;  // degrees
constexpr double kPi = 3.141592653589793;

struct Target {
  const char* name;
  double north, east;  // known, metres
  double direction;    // degrees, clockwise from the circle's zero
  double distance;     // horizontal, metres
};

const Target kTargets[] = {{"church", 5321931.420, 468118.655, dms_to_deg(274, 52, 52.9), 290.000},
                           {"mast", 5321808.113, 468611.902, dms_to_deg(24, 9, 14.2), 332.717},
                           {"pillar", 5321442.587, 468377.340, dms_to_deg(115, 23, 51.3), 272.035}};
constexpr double kDirectionDeviation = 3.0 / 3600.0 / kRadian;  // 3 seconds of arc
constexpr double kDistanceDeviation = 0.002;                    // metres

}  // namespace

int main() {
  double north = 5321600.0, east = 468200.0;  // approximate
  double zero = 45.0 / kRadian;               // bearing of the circle's zero
  const int rows = 6, unknowns = 3;
  TSMatrix cofactor(unknowns, 0);
  TSMatrix weight(rows, 0);
  for (int row = 0; row < rows; ++row) {
    const double deviation = row % 2 == 0 ? kDirectionDeviation : kDistanceDeviation;
    weight[TSMatrix::LinearIndex(row, row)] = 1.0 / (deviation * deviation);
  }

  std::vector<double> misclosure(rows);
  for (int step = 1;; ++step) {
    TMatrix design(rows, unknowns, 0);
    for (int k = 0; k < 3; ++k) {
      const Target& target = kTargets[k];
      const double dn = target.north - north, de = target.east - east;
      const double distance = std::hypot(dn, de);
      // Direction: bearing less zero. Distance: root of the sum of the squares.
      design[design.Index(2 * k, 0)] = de / (distance * distance);
      design[design.Index(2 * k, 1)] = -dn / (distance * distance);
      design[design.Index(2 * k, 2)] = -1.0;
      design[design.Index(2 * k + 1, 0)] = -dn / distance;
      design[design.Index(2 * k + 1, 1)] = -de / distance;
      misclosure[2 * k] = std::remainder(target.direction / kRadian - (std::atan2(de, dn) - zero), 2.0 * kPi);
      misclosure[2 * k + 1] = target.distance - distance;
    }
    // x = (A'PA)^-1 A'Pl
    SMATRopRt_S_R(cofactor, '=', design, weight);
    double right_side[unknowns], x[unknowns];
    MRAtQL(right_side, '=', design, weight, misclosure.data(), rows, unknowns);
    if (RareInversion(cofactor, nullptr, 0) != 0 || step > 20) {
      return 1;
    }
    cofactor.MatrProduct(right_side, '=', x);
    north += x[0];
    east += x[1];
    zero += x[2];
    std::printf("step %d moves the station by %.4f m\n", step, std::hypot(x[0], x[1]));
    if (std::hypot(x[0], x[1]) < 1e-5) {
      break;
    }
  }

  const auto deviation = [&](int k) { return std::sqrt(cofactor[TSMatrix::LinearIndex(k, k)]); };
  std::printf("station north %.3f m, east %.3f m, standard deviations %.1f and %.1f mm\n", north, east,
              1000.0 * deviation(0), 1000.0 * deviation(1));
  std::printf("bearing of the circle's zero %.4f degrees, standard deviation %.1f\"\n", zero * kRadian,
              3600.0 * kRadian * deviation(2));
  double sum = 0.0;
  for (int k = 0; k < 3; ++k) {
    const double direction = -misclosure[2 * k], distance = -misclosure[2 * k + 1];  // corrections
    std::printf("%-6s corrections %+5.1f\" %+5.1f mm\n", kTargets[k].name, 3600.0 * kRadian * direction,
                1000.0 * distance);
    sum += std::pow(direction / kDirectionDeviation, 2) + std::pow(distance / kDistanceDeviation, 2);
  }
  std::printf("variance factor %.2f\n", sum / (rows - unknowns));
  return 0;
}
