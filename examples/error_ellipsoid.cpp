// A GNSS baseline from a base to a rover has been adjusted. The covariance of both stations stands in one packed matrix
// of order six, X Y Z of the base before X Y Z of the rover. How good is the rover: in north, east and up, as an
// ellipsoid, and as an ellipse in the plan?

#include <alidade/coords.h>
#include <alidade/linalg3.h>
#include <alidade/matrix.h>

#include <cmath>
#include <cstdio>

namespace {

constexpr double kMillimetresPerMetre = 1000.0;
constexpr double kPi = 3.141592653589793;

// The rotation from geocentric axes to north, east, up at a place. A matr3_3 is stored column by column.
matr3_3 local_frame(const GeoCoord& place) {
  const double sin_b = std::sin(place.b);
  const double cos_b = std::cos(place.b);
  const double sin_l = std::sin(place.l);
  const double cos_l = std::cos(place.l);
  matr3_3 rotation;
  *rotation.Column(0) = triad(-sin_b * cos_l, -sin_l, cos_b * cos_l);
  *rotation.Column(1) = triad(-sin_b * sin_l, cos_l, cos_b * sin_l);
  *rotation.Column(2) = triad(cos_b, 0.0, sin_b);
  return rotation;
}

void print_deviations(const char* label, const covar& local) {
  triad deviation(local[0], local[2], local[5]);
  deviation.sqrt();
  std::printf("%-16s standard deviations: north %.2f  east %.2f  up %.2f mm\n", label,
              deviation[0] * kMillimetresPerMetre, deviation[1] * kMillimetresPerMetre,
              deviation[2] * kMillimetresPerMetre);
}

// Prints the semi-axes along the first `count` columns of `axes`, and whether these are principal axes of v: w = V u
// must be (u'w) u. The eigen analysis is known to miss for some covariances, so every set of axes is verified before it
// is used.
bool print_axes(const covar& v, matr3_3 axes, int count) {
  const double trace = v[0] + v[2] + v[5];
  bool verified = true;
  for (int column = 0; column < count; ++column) {
    const triad u = *axes.Column(column);
    const triad w = v * u;
    const double variance = u[0] * w[0] + u[1] * w[1] + u[2] * w[2];
    for (int i = 0; i < 3; ++i) {
      verified = verified && std::fabs(w[i] - variance * u[i]) < 1e-9 * trace;
    }
    // An axis has two ends; named is the upper one, and of a level axis the one in the eastern half.
    const bool other_end = u[2] < 0.0 || (u[2] == 0.0 && u[1] < 0.0);
    const double side = other_end ? -1.0 : 1.0;
    const double azimuth = std::atan2(side * u[1], side * u[0]) * 180.0 / kPi;
    const double elevation = std::asin(std::fmin(std::fabs(u[2]), 1.0)) * 180.0 / kPi;
    std::printf("  semi-axis %6.2f mm  azimuth %5.1f deg  elevation %4.1f deg\n",
                std::sqrt(variance) * kMillimetresPerMetre, azimuth < 0.0 ? azimuth + 360.0 : azimuth, elevation);
  }
  std::printf("  verified: %s\n", verified ? "yes" : "no, these are not principal axes");
  return verified;
}

}  // namespace

int main() {
  // Square metres: the base MYRT as known before and the observed baseline to station 261000380 of a control network in
  // north-east Victoria (Geoscience Australia, GDA2020).
  covar base(8.5808e-05, -3.2642e-05, 5.7583e-05, 4.3996e-05, -2.8905e-05, 7.5179e-05);
  covar baseline(1.1934e-05, -7.4711e-06, 6.6765e-06, 9.9291e-06, -6.8072e-06, 9.8342e-06);

  // rover = base + baseline: its covariance is the sum, and that between the two stations is the base's own.
  TSMatrix stations(6, 0);
  stations.BlockOper(0, '=', base);
  stations.BlockOper(3, '=', base);
  stations.BlockOper(3, '+', baseline);
  matr3_3 between(base);
  stations.BlockOper(3, 0, '=', between);

  const Coord rover_position(-4286411.684, 2832531.357, -3767089.713);  // metres
  const matr3_3 rotation = local_frame(GeoCoord(rover_position));

  const covar rover(stations, 3);
  print_deviations("rover", rotation & rover);

  // Relative to the base only the baseline counts: rover - base has V(rover) + V(base) - (C + C').
  covar relative(rover);
  relative += covar(stations, 0);
  relative -= matr3_3(stations, 3, 0);
  const covar local = rotation & relative;
  print_deviations("rover from base", local);

  std::printf("error ellipsoid\n");
  print_axes(local, local.DuserDeigen(), 3);

  // The ellipse in the plan: height decoupled and set to zero, so that its axis comes last. This case is exact.
  const covar plan(local[0], local[1], local[2], 0.0, 0.0, 0.0);
  std::printf("horizontal error ellipse\n");
  return print_axes(plan, plan.DuserDeigen(), 2) ? 0 : 1;
}
