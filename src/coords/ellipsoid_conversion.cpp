#include <alidade/coords.h>

#include <cmath>
#include <cstdint>
#include <limits>

#include "coords/angle_constants.h"
#include "coords/ellipsoid.h"
#include "floating_class.h"
#include "square_root.h"
#include "strict_arithmetic.h"

namespace alidade {
namespace {

// A point nearer to the polar axis than this counts as lying on it. Metres.
constexpr double kOnAxisRadius = 1e-10;  // 0x1.b7cdfd9d7bdbbp-34

// The iteration stops when the tangent of the latitude moves by no more than this. The same number as above in another
// role.
constexpr double kTangentTolerance = 1e-10;  // 0x1.b7cdfd9d7bdbbp-34

// Remembers enough of a sequence t(1), t(2), ... to notice that it will repeat for ever.
//
// One unit in the last place of a large tangent exceeds the tolerance, and the rounded iteration can then alternate
// between two neighbours: that is the tangent of two passes before. Should a longer cycle exist, the tangent saved at
// passes 1, 2, 4, 8, ... finds it (Brent, 1980). Every tangent depends on the one before alone, so a value that comes
// back proves a cycle: a sequence that ends by itself is never cut short.
class CycleDetector {
public:
  explicit CycleDetector(double start) : previous_(start), before_previous_(start) {}

  bool repeats(double t) {
    if (t == before_previous_ || t == checkpoint_) {
      return true;
    }
    before_previous_ = previous_;
    previous_ = t;
    if (++pass_ == next_checkpoint_) {
      checkpoint_ = t;
      next_checkpoint_ *= 2;
    }
    return false;
  }

private:
  double previous_;
  double before_previous_;
  double checkpoint_ = std::numeric_limits<double>::quiet_NaN();
  std::uint64_t pass_ = 0;
  std::uint64_t next_checkpoint_ = 1;
};

// Tangent of the geodetic latitude: the fixed point of
//   t = z/p + k t / sqrt(1 + e'^2 + t^2),   k = c e^2 / p,
// which is the textbook relation tan b = (z + e^2 N sin b) / p written in t. Starts from z/p.
double tangent_of_latitude(double start, double k) {
  const Ellipsoid& ellipsoid = reference_ellipsoid;
  CycleDetector detector(start);
  double t = start;
  double t_squared = start * start;
  for (;;) {
    const double next = (t / square_root(ellipsoid.onePlusEp2 + t_squared)) * k + start;
    t_squared = next * next;
    const double step = next - t;
    t = next;
    if (std::fabs(step) <= kTangentTolerance || is_nan(step) || detector.repeats(t)) {
      return t;
    }
  }
}

}  // namespace
}  // namespace alidade

using alidade::square_root;

Coord& Coord::blh2xyz(const GeoCoord& g) {
  const Ellipsoid& ellipsoid = alidade::reference_ellipsoid;
  const double s = std::sin(g.b);
  const double N = ellipsoid.a / square_root(1.0 - (ellipsoid.e2 * s) * s);  // prime vertical radius of curvature
  const double hn = g.h + N;
  z = (hn - ellipsoid.e2 * N) * s;
  const double w = std::cos(g.b) * hn;  // distance from the polar axis
  x = std::cos(g.l) * w;
  y = std::sin(g.l) * w;
  return *this;
}

GeoCoord::GeoCoord(double x, double y, double z) { xyz2blh(Coord(x, y, z)); }

GeoCoord::GeoCoord(const Coord& p) { xyz2blh(p); }

GeoCoord& GeoCoord::xyz2blh(const Coord& position) {
  const Ellipsoid& ellipsoid = alidade::reference_ellipsoid;
  const double x = position.x;
  const double y = position.y;
  const double z = position.z;
  const double p = square_root(y * y + x * x);

  if (p < alidade::kOnAxisRadius) {
    l = 0.0;
    if (z == 0.0) {
      h = -ellipsoid.a;
      b = 0.0;
      return *this;
    }
    h = std::fabs(z) - square_root(1.0 - ellipsoid.e2) * ellipsoid.a;
    b = z < 0.0 ? -alidade::kHalfPi : alidade::kHalfPi;
    return *this;
  }

  const double r = 1.0 / p;
  const double k = (r * ellipsoid.c) * ellipsoid.e2;
  double longitude = std::atan2(y, x);
  if (longitude < 0.0) {
    longitude = longitude + alidade::kFullTurn;
  }
  const double t = alidade::tangent_of_latitude(z * r, k);
  const double t_squared = t * t;
  l = longitude;
  h = (p - ellipsoid.c / square_root(ellipsoid.onePlusEp2 + t_squared)) * square_root(t_squared + 1.0);
  b = std::atan(t);
  return *this;
}
