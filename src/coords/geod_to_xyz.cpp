#include <alidade/coords.h>

#include <cmath>

#include "coords/angle_constants.h"
#include "square_root.h"
#include "strict_arithmetic.h"

namespace alidade {
namespace {

// A point exactly on the meridian plane x = 0 is moved by this, so that atan2 has a longitude on the axis. Metres.
constexpr double kAxisNudge = 0.0001;  // 0x1.a36e2eb1c432dp-14

// Stop of the correction of latitude and height: radians, and height relative to the size of the Earth.
constexpr double kTolerance = 1e-14;  // 0x1.6849b86a12b9bp-47

constexpr int kMaxPasses = 10;

// Semi-major axis (metres), flattening, first eccentricity squared and q = 1 - e2, all from the first two.
struct Shape {
  Shape(double semi_major_axis, double flattening)
      : a(semi_major_axis),
        f(flattening),
        e2((2.0 - flattening) * flattening),
        q((1.0 - flattening) * (1.0 - flattening)) {}

  double prime_vertical_radius(double sine) const { return a / square_root(1.0 - (sine * sine) * e2); }

  double a;
  double f;
  double e2;
  double q;
};

// The two directions work on the caller's variables throughout, as documented: x is provisional for a moment in the
// one, x may be nudged and h is rewritten on every pass in the other.

void to_cartesian(const Shape& shape, const double* lat, const double* lon, const double* h, double* x, double* y,
                  double* z) {
  const double B = *lat * kRadiansPerDegreeDecimal;
  const double L = *lon * kRadiansPerDegreeDecimal;
  const double s = std::sin(B);
  const double N = shape.prime_vertical_radius(s);
  *x = (*h + N) * std::cos(B);
  *y = *x * std::sin(L);
  *x = *x * std::cos(L);
  *z = (N * shape.q + *h) * s;
}

void to_geodetic(const Shape& shape, double* lat, double* lon, double* h, double* x, const double* y, const double* z) {
  const double p_squared = *y * *y + *x * *x;
  const double p = square_root(p_squared);
  if (*x == 0.0) {
    *x = *x + kAxisNudge;
  }
  double lambda = std::atan2(*y, *x);
  if (lambda < 0.0) {
    lambda = kPi * 2.0 + lambda;
  }
  const double r = square_root(*z * *z + p_squared);
  const double s = *z / r;
  double phi = std::asin(s);                     // geocentric latitude
  *h = r - (1.0 - (s * s) * shape.f) * shape.a;  // above the radius a (1 - f sin^2)

  for (int pass = 0; pass < kMaxPasses; ++pass) {
    const double sp = std::sin(phi);
    const double cp = std::cos(phi);
    const double N = shape.prime_vertical_radius(sp);
    const double dp = p - (*h + N) * cp;
    const double dz = *z - (N * shape.q + *h) * sp;
    const double dh = dp * cp + dz * sp;
    *h = *h + dh;
    const double den = *h + shape.a;
    const double dphi = (dz * cp - dp * sp) / den;
    phi = dphi + phi;
    // Written with "not greater": a NaN in the second test does not keep the loop running.
    if (std::fabs(dphi) <= kTolerance && !(std::fabs(dh) / den > kTolerance)) {
      break;
    }
  }
  *lat = kDegreesPerRadian * phi;
  *lon = kDegreesPerRadian * lambda;
}

}  // namespace
}  // namespace alidade

void geod_to_xyz(int toCartesian, double a, double f, double* lat, double* lon, double* h, double* x, double* y,
                 double* z) {
  const alidade::Shape shape(a, f);
  if (toCartesian != 0) {
    alidade::to_cartesian(shape, lat, lon, h, x, y, z);
  } else {
    alidade::to_geodetic(shape, lat, lon, h, x, y, z);
  }
}
