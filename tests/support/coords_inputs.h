#ifndef ALIDADE_TESTS_SUPPORT_COORDS_INPUTS_H
#define ALIDADE_TESTS_SUPPORT_COORDS_INPUTS_H

// Seeded inputs for the tests of coordinates and quantiles: plausible positions, positions where the conversions are at
// their worst, and doubles of every kind. The generator and all formulas are fixed, so every run sees the same inputs.

#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <random>

namespace inputs {

using Vector = std::array<double, 3>;

class Source {
public:
  explicit Source(std::uint64_t seed) : engine_(seed) {}

  std::uint64_t bits() { return engine_(); }
  int below(int n) { return static_cast<int>(bits() % static_cast<std::uint64_t>(n)); }
  double uniform(double lo, double hi) { return lo + (hi - lo) * (static_cast<double>(bits() >> 11) * 0x1p-53); }
  // lo and hi are decimal exponents.
  double magnitude(double lo, double hi) { return std::pow(10.0, uniform(lo, hi)); }
  double signed_magnitude(double lo, double hi) { return (bits() & 1U) != 0 ? magnitude(lo, hi) : -magnitude(lo, hi); }

  // Any of the 2^64 patterns: huge, tiny, infinite, NaN.
  double any() {
    const std::uint64_t u = bits();
    double v = 0;
    std::memcpy(&v, &u, sizeof v);
    return v;
  }

  double special() {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
    constexpr double kMax = std::numeric_limits<double>::max();
    const double values[] = {
        0.0,     -0.0,    1.0,       -1.0,       0x1p-1074,   -0x1p-1074, 0x1p-1022, 0x1.fffffffffffffp-1023,
        kMax,    -kMax,   kInfinity, -kInfinity, kNaN,        1e-10,      -1e-10,    1e154,
        1.5e154, -1e-162, 5e-11,     6378137.0,  6356752.314, 0.0001,     1e300,     1e-300};
    return values[below(static_cast<int>(sizeof values / sizeof *values))];
  }

  double nasty() {
    switch (below(4)) {
      case 0:
        return special();
      case 1:
        return any();
      case 2:
        return signed_magnitude(-12.0, 8.0);
      default:
        return uniform(-10.0, 10.0);
    }
  }

  // A geocentric position, metres.
  Vector position() {
    constexpr double kPolarRadius = 6356752.314;
    switch (below(10)) {
      case 0:
        return {nasty(), nasty(), nasty()};
      case 1:  // within a few metres of the axis at the surface
        return around_axis(uniform(0.0, 15.0), sign() * (kPolarRadius + uniform(-1e4, 1e4)));
      case 2:  // by the axis, down to the centre
        return around_axis(magnitude(-12.0, 3.0), signed_magnitude(-9.0, 8.0));
      case 3:  // by the equatorial plane
        return around_axis(magnitude(5.0, 8.0), signed_magnitude(-9.0, 3.0));
      case 4:  // anywhere inside and outside
        return around_axis(magnitude(-3.0, 9.0), signed_magnitude(-3.0, 9.0));
      case 5:  // on a coordinate axis or plane
        return {below(2) * signed_magnitude(-3.0, 7.0), below(2) * signed_magnitude(-3.0, 7.0),
                below(2) * signed_magnitude(-3.0, 7.0)};
      case 6:  // satellites
        return on_sphere(uniform(6.6e6, 4.3e7));
      default:  // ground and air
        return on_sphere(uniform(6.35e6, 6.4e6));
    }
  }

  Vector on_sphere(double radius) {
    const double s = uniform(-1.0, 1.0);
    return around_axis(radius * std::sqrt(1.0 - s * s), radius * s);
  }

  Vector around_axis(double p, double z) {
    const double angle = uniform(0.0, 6.283185307179586);
    return {p * std::cos(angle), p * std::sin(angle), z};
  }

private:
  double sign() { return (bits() & 1U) != 0 ? 1.0 : -1.0; }

  std::mt19937_64 engine_;
};

}  // namespace inputs

#endif
