#include "ellipse.h"

#include <algorithm>
#include <cmath>

namespace network {
namespace {

constexpr double kPi = 3.141592653589793;

double dot(const triad& a, const triad& b) { return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]; }

double rayleigh_quotient(const covar& v, const triad& u) { return dot(u, v * u); }

}  // namespace

double axes_residual(const covar& v, matr3_3& axes, int count) {
  double largest = 0;
  double scale = 0;
  for (int k = 0; k < count; ++k) {
    const triad u = *axes.Column(k);
    const double lambda = rayleigh_quotient(v, u);
    const triad image = v * u;
    const triad difference(image[0] - lambda * u[0], image[1] - lambda * u[1], image[2] - lambda * u[2]);
    const double length = std::sqrt(dot(difference, difference));
    largest = largest >= length ? largest : length;  // keeps a NaN
    scale = std::max(scale, std::fabs(lambda));
  }
  return scale > 0 ? largest / scale : largest;
}

ErrorEllipse horizontal_ellipse(const covar& enu) {
  // A third axis without variance sorts last, so columns 0 and 1 are the horizontal axes, the larger one first.
  const covar horizontal(enu[0], enu[1], enu[2], 0.0, 0.0, 0.0);
  matr3_3 axes = horizontal.DuserDeigen();
  const triad major = *axes.Column(0);
  const triad minor = *axes.Column(1);

  ErrorEllipse ellipse{};
  ellipse.semi_major = std::sqrt(std::max(rayleigh_quotient(horizontal, major), 0.0));
  ellipse.semi_minor = std::sqrt(std::max(rayleigh_quotient(horizontal, minor), 0.0));
  double azimuth = std::atan2(major[0], major[1]);
  if (azimuth < 0) {
    azimuth += kPi;
  }
  ellipse.major_azimuth = azimuth < kPi ? azimuth : 0.0;
  ellipse.residual = axes_residual(horizontal, axes, 2);
  return ellipse;
}

}  // namespace network
