#ifndef ALIDADE_TESTS_SUPPORT_PLANE_INPUTS_H
#define ALIDADE_TESTS_SUPPORT_PLANE_INPUTS_H

// Seeded inputs for the plane: numbers, points and lines that are plausible, degenerate, nearly degenerate or absurd.
// Only raw bits are drawn from the generator, so every platform sees the same sequence.

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <random>

class PlaneInputs {
public:
  explicit PlaneInputs(std::uint64_t seed) : bits_(seed) {}

  std::uint64_t word() { return bits_(); }
  int below(int n) { return static_cast<int>(bits_() % static_cast<std::uint64_t>(n)); }

  // In (-1, 1), 53 bits.
  double fraction() {
    const double v = static_cast<double>(bits_() >> 11) * 0x1p-53;
    return below(2) == 0 ? v : -v;
  }

  // A coordinate to the millimetre, as in a survey: up to 7 digits before the point.
  double survey() { return std::round(fraction() * 1e9) / 1000.0; }

  // A small whole number: coincident points, collinear points and parallel lines are frequent.
  double whole() { return static_cast<double>(below(7) - 3); }

  double special() {
    static const double kValues[] = {
        0.0,
        -0.0,
        1.0,
        -1.0,
        0.5,
        std::numeric_limits<double>::quiet_NaN(),
        -std::numeric_limits<double>::quiet_NaN(),
        std::numeric_limits<double>::infinity(),
        -std::numeric_limits<double>::infinity(),
        std::numeric_limits<double>::max(),
        -std::numeric_limits<double>::max(),
        std::numeric_limits<double>::min(),
        -std::numeric_limits<double>::min(),
        std::numeric_limits<double>::denorm_min(),
        -std::numeric_limits<double>::denorm_min(),
        0x1.fffffffffffffp-1022,
        2147483647.0,
        -2147483648.0,
    };
    return kValues[below(static_cast<int>(sizeof kValues / sizeof kValues[0]))];
  }

  // On either side of the two zero tests, 2^-1021 and 1.5 * 2^-1021, and between them.
  double near_threshold() {
    static const double kBases[] = {0x1p-1021, 0x1.8p-1021, 0x1p-1022, 0x1.4p-1021};
    const double v = kBases[below(4)] + static_cast<double>(below(9) - 4) * 0x1p-1074;
    return below(2) == 0 ? v : -v;
  }

  double any_bits() {
    const std::uint64_t word = bits_();
    double v = 0;
    std::memcpy(&v, &word, sizeof v);
    return v;
  }

  double number() {
    switch (below(6)) {
      case 0:
        return special();
      case 1:
        return near_threshold();
      case 2:
        return any_bits();
      case 3:
        return whole();
      default:
        return survey();
    }
  }

  struct Point {
    double x, y;
  };

  Point point() {
    switch (below(8)) {
      case 0:
        return {number(), number()};
      case 1:
        return {whole(), whole()};
      case 2:
        return {near_threshold(), near_threshold()};
      default:
        return {survey(), survey()};
    }
  }

  // A point that stands to p in some awkward relation: the same, one coordinate the same or a neighbour, a difference
  // about as large as a zero test.
  Point companion(Point p) {
    switch (below(9)) {
      case 0:
        return p;
      case 1:
        return {p.x, survey()};
      case 2:
        return {survey(), p.y};
      case 3:
        return {std::nextafter(p.x, number()), p.y};
      case 4:
        return {p.x + near_threshold(), p.y + near_threshold()};
      case 5:
        return {p.x + near_threshold(), survey()};
      case 6:
        return {whole(), whole()};
      default:
        return point();
    }
  }

  // On the line through p and q, or beside it by a unit in the last place.
  Point collinear(Point p, Point q) {
    const double t = below(2) == 0 ? static_cast<double>(below(9) - 4) : fraction();
    Point r = {p.x + t * (q.x - p.x), p.y + t * (q.y - p.y)};
    if (below(3) == 0) {
      r.y = std::nextafter(r.y, number());
    }
    return r;
  }

  struct Line {
    double a, b, c;
  };

  Line line() {
    switch (below(6)) {
      case 0:
        return {number(), number(), number()};
      case 1:
        return {near_threshold(), -1.0, number()};
      case 2:
        return {-1.0, 0.0, survey()};
      case 3:
        return {whole(), whole(), whole()};
      default:
        return {fraction() * 10.0, -1.0, survey()};
    }
  }

  // Parallel to l, nearly so, or anything.
  Line second_line(Line l) {
    switch (below(6)) {
      case 0:
        return {l.a, l.b, number()};
      case 1:
        return {std::nextafter(l.a, number()), l.b, survey()};
      case 2:
        return {l.a + near_threshold(), l.b, survey()};
      case 3:
        return {whole(), whole(), whole()};
      default:
        return line();
    }
  }

private:
  std::mt19937_64 bits_;
};

#endif
