#ifndef ALIDADE_TESTS_SUPPORT_COVARIANCES_H
#define ALIDADE_TESTS_SUPPORT_COVARIANCES_H

// Seeded inputs of order three: ordinary covariances, and those at which formulas branch or break.

#include <cmath>
#include <cstdint>
#include <limits>
#include <random>

namespace covariances {

class Source {
public:
  explicit Source(std::uint64_t seed) : random_(seed) {}

  int below(int n) { return static_cast<int>(random_() % static_cast<std::uint64_t>(n)); }

  // (-1, 1), 53 bits. Not a standard distribution: those differ between libraries.
  double uniform() { return static_cast<double>(static_cast<std::int64_t>(random_()) >> 10) * 0x1p-53; }

  // Any magnitude between 2^-range and 2^range.
  double wide(int range) { return std::ldexp(uniform(), below(2 * range + 1) - range); }

  double nasty() {
    static const double special[] = {0.0,
                                     -0.0,
                                     1.0,
                                     -1.0,
                                     0x1p-1074,
                                     -0x1p-1074,
                                     0x1p-1022,
                                     0x1.fffffffffffffp-1023,
                                     std::numeric_limits<double>::max(),
                                     -std::numeric_limits<double>::max(),
                                     std::numeric_limits<double>::infinity(),
                                     -std::numeric_limits<double>::infinity(),
                                     std::numeric_limits<double>::quiet_NaN()};
    switch (below(4)) {
      case 0:
        return special[below(sizeof special / sizeof *special)];
      case 1:
        return wide(1000);
      case 2:
        return below(7) - 3;
      default:
        return uniform();
    }
  }

  void vector(double* v, int count) {
    const int kind = below(3);
    for (int k = 0; k < count; ++k) {
      v[k] = kind == 0 ? uniform() : (kind == 1 ? wide(20) : nasty());
    }
  }

  // G G' with uniform G: symmetric and, but for rounding, positive definite.
  void positive_definite(double* v) {
    double g[9];
    for (double& x : g) {
      x = uniform();
    }
    for (int i = 0, k = 0; i < 3; ++i) {
      for (int j = 0; j <= i; ++j, ++k) {
        v[k] = g[i] * g[j] + g[i + 3] * g[j + 3] + g[i + 6] * g[j + 6];
      }
    }
  }

  void covariance(double* v) {
    positive_definite(v);
    switch (below(10)) {
      case 0:
      case 1:
        break;
      case 2: {  // millimetres, kilometres
        const double scale = std::ldexp(1.0, below(80) - 40);
        for (int k = 0; k < 6; ++k) {
          v[k] *= scale;
        }
        break;
      }
      case 3:  // third axis decoupled
        v[3] = below(2) == 0 ? 0.0 : -0.0;
        v[4] = below(2) == 0 ? 0.0 : -0.0;
        break;
      case 4: {  // any of b, d, e zero
        const int mask = below(8);
        v[1] = (mask & 1) != 0 ? 0.0 : v[1];
        v[3] = (mask & 2) != 0 ? 0.0 : v[3];
        v[4] = (mask & 4) != 0 ? -0.0 : v[4];
        break;
      }
      case 5: {  // two or three equal eigenvalues: l I + m w w'
        const double w[3] = {static_cast<double>(below(3) - 1), static_cast<double>(below(3) - 1),
                             static_cast<double>(below(3) - 1)};
        const double l = 1 + below(4);
        const double m = below(5) - 2;
        for (int i = 0, k = 0; i < 3; ++i) {
          for (int j = 0; j <= i; ++j, ++k) {
            v[k] = m * w[i] * w[j] + (i == j ? l : 0.0);
          }
        }
        break;
      }
      case 6: {  // rank one or two, in small integers
        int g[6];
        for (int& x : g) {
          x = below(7) - 3;
        }
        for (int i = 0, k = 0; i < 3; ++i) {
          for (int j = 0; j <= i; ++j, ++k) {
            v[k] = g[i] * g[j] + g[i + 3] * g[j + 3];
          }
        }
        break;
      }
      case 7:
        for (int k = 0; k < 6; ++k) {
          v[k] = nasty();
        }
        break;
      case 8: {  // determinant next to 1e-60
        const double det = v[0] * (v[2] * v[5] - v[4] * v[4]) - v[1] * (v[1] * v[5] - v[4] * v[3]) +
                           v[3] * (v[1] * v[4] - v[2] * v[3]);
        const double scale = std::cbrt(1e-60 / det) * (1.0 + 0x1p-50 * (below(9) - 4));
        for (int k = 0; k < 6; ++k) {
          v[k] *= scale;
        }
        break;
      }
      default:
        for (int k = 0; k < 6; ++k) {
          v[k] = below(7) - 3;
        }
        break;
    }
  }

private:
  std::mt19937_64 random_;
};

}  // namespace covariances

#endif
