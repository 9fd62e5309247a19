#include "reference/linalg3.h"

#include <cmath>
#include <cstring>
#include <utility>

namespace reference {
namespace {

constexpr double kMarker = 1.7976931348623157e308;

double& packed(double* v, int i, int j) { return i > j ? v[i * (i + 1) / 2 + j] : v[j * (j + 1) / 2 + i]; }
double packed(const double* v, int i, int j) { return i > j ? v[i * (i + 1) / 2 + j] : v[j * (j + 1) / 2 + i]; }

}  // namespace

void triad_sqrt(double* v) {
  v[0] = std::sqrt(v[0]);
  v[1] = std::sqrt(v[1]);
  v[2] = std::sqrt(v[2]);
}

void vector_product(const double* a, const double* b, double* r) {
  r[0] = a[1] * b[2] - a[2] * b[1];
  r[1] = a[2] * b[0] - a[0] * b[2];
  r[2] = a[0] * b[1] - a[1] * b[0];
}

bool triad_is_undefined(const double* v) {
  for (int i = 0; i < 3; ++i) {
    if (!(v[i] == kMarker)) {
      return false;
    }
  }
  return true;
}

bool triad_is_partly_undefined(const double* v) {
  for (int i = 0; i < 3; ++i) {
    if (v[i] == kMarker) {
      return true;
    }
  }
  return false;
}

void covar_from_deviations(const double* s, double* v) {
  for (int i = 0; i < 3; ++i) {
    for (int j = 0; j <= i; ++j) {
      packed(v, i, j) = i == j ? s[i] * s[i] : 0.0;
    }
  }
}

void covar_from_matrix(const double* m, double* v) {
  for (int i = 0; i < 3; ++i) {
    for (int j = 0; j <= i; ++j) {
      packed(v, i, j) = m[i + 3 * j] + m[j + 3 * i];
    }
  }
}

void covar_plus_matrix(double* v, const double* m) {
  for (int i = 0; i < 3; ++i) {
    for (int j = 0; j <= i; ++j) {
      packed(v, i, j) = (m[i + 3 * j] + m[j + 3 * i]) + packed(v, i, j);
    }
  }
}

void covar_minus_matrix(double* v, const double* m) {
  for (int i = 0; i < 3; ++i) {
    for (int j = 0; j <= i; ++j) {
      packed(v, i, j) = packed(v, i, j) - (m[i + 3 * j] + m[j + 3 * i]);
    }
  }
}

void covar_times_vector(const double* v, const double* x, double* y) {
  for (int i = 0; i < 3; ++i) {
    y[i] = 0.0;
    for (int l = 0; l < 3; ++l) {
      y[i] = packed(v, i, l) * x[l] + y[i];
    }
  }
}

void matrix_from_covar(const double* v, double* m) {
  for (int i = 0; i < 3; ++i) {
    for (int j = 0; j < 3; ++j) {
      m[3 * j + i] = packed(v, i, j);
    }
  }
}

void matrix_times_matrix(const double* a, const double* b, double* c) {
  for (int j = 0; j < 3; ++j) {
    for (int i = 0; i < 3; ++i) {
      c[i + 3 * j] = 0.0;
      for (int l = 0; l < 3; ++l) {
        c[i + 3 * j] = a[i + 3 * l] * b[l + 3 * j] + c[i + 3 * j];
      }
    }
  }
}

void matrix_times_vector(const double* m, const double* x, double* y) {
  for (int i = 0; i < 3; ++i) {
    y[i] = 0.0;
    for (int l = 0; l < 3; ++l) {
      y[i] = m[i + 3 * l] * x[l] + y[i];
    }
  }
}

void propagate(const double* m, const double* v, double* r) {
  for (int k = 0; k < 6; ++k) {
    r[k] = 0.0;
  }
  for (int l = 0; l < 3; ++l) {
    for (int j = 0; j < 3; ++j) {
      double t = 0.0;
      for (int p = 0; p < 3; ++p) {
        t = m[j + 3 * p] * packed(v, p, l) + t;
      }
      for (int i = j; i < 3; ++i) {
        packed(r, i, j) = m[i + 3 * l] * t + packed(r, i, j);
      }
    }
  }
}

void matrix_transposed(const double* m, double* r) {
  for (int i = 0; i < 3; ++i) {
    for (int j = 0; j < 3; ++j) {
      r[i + 3 * j] = m[j + 3 * i];
    }
  }
}

void matrix_inverse(const double* m, double* r) {
  // {a, b, c, d}: m[a] m[b] - m[c] m[d]
  static const int factors[9][4] = {{4, 8, 5, 7}, {2, 7, 8, 1}, {5, 1, 4, 2}, {6, 5, 8, 3}, {0, 8, 6, 2},
                                    {2, 3, 5, 0}, {7, 3, 6, 4}, {6, 1, 0, 7}, {4, 0, 1, 3}};
  for (int k = 0; k < 9; ++k) {
    const int* f = factors[k];
    const double first = m[f[0]] * m[f[1]];
    const double second = m[f[2]] * m[f[3]];
    r[k] = first - second;
  }
  double det = m[0] * r[0];
  det = det + r[1] * m[3];
  det = det + m[6] * r[2];
  if (det != 0.0) {
    const double reciprocal = 1.0 / det;
    for (int k = 0; k < 9; ++k) {
      r[k] = r[k] * reciprocal;
    }
  }
}

void multiply_all(double* p, int count, double factor) {
  for (int k = 0; k < count; ++k) {
    p[k] = p[k] * factor;
  }
}

void divide_all(double* p, int count, double divisor) {
  const double r = 1.0 / divisor;
  for (int k = 0; k < count; ++k) {
    p[k] = p[k] * r;
  }
}

int invert_covar(double* v) {
  const double a = v[0], b = v[1], c = v[2], d = v[3], e = v[4], f = v[5];
  double cofactor[6];
  cofactor[0] = c * f - e * e;
  cofactor[1] = d * e - b * f;
  cofactor[2] = a * f - d * d;
  cofactor[3] = b * e - d * c;
  cofactor[4] = b * d - a * e;
  cofactor[5] = a * c - b * b;
  double det = a * cofactor[0];
  det = det + b * cofactor[1];
  det = det + d * cofactor[3];
  if (std::fabs(det) < 1e-60) {
    return -1;
  }
  const double r = 1.0 / det;
  for (int k = 0; k < 6; ++k) {
    v[k] = cofactor[k] * r;
  }
  if (det < 0) {
    return -2;
  }
  return 0;
}

void covar_eigenvector(const double* v, double eigenvalue, double* u) {
  const double a = v[0], b = v[1], c = v[2], d = v[3], e = v[4], f = v[5];
  const double s = (eigenvalue - f) * b + e * d;
  const double p = (eigenvalue - a) * e + b * d;
  const double q = (eigenvalue - c) * d + b * e;
  if (p != 0 && q != 0) {
    u[0] = s / p;
    u[1] = s / q;
    u[2] = 1;
  } else if (s == 0) {
    u[0] = 0;
    u[1] = 0;
    u[2] = 1;
  } else {
    const double phi = 0.5 * std::atan2(2 * b, a - c);
    u[0] = std::cos(phi);
    u[1] = -std::sin(phi);
    u[2] = 0;
  }
  double sum = u[1] * u[1] + u[0] * u[0];
  sum = u[2] * u[2] + sum;
  const double n = 1 / std::sqrt(sum);
  u[0] = n * u[0];
  u[1] = n * u[1];
  u[2] = n * u[2];
}

void covar_axes(const double* v, double* axes) {
  const double a = v[0], b = v[1], c = v[2], d = v[3], e = v[4], f = v[5];
  for (int k = 0; k < 9; ++k) {
    axes[k] = k % 4 == 0 ? 1 : 0;
  }
  double w[3] = {std::sqrt(a), std::sqrt(c), std::sqrt(f)};
  if (d == 0 && e == 0) {
    if (b != 0) {
      const double phi = 0.5 * std::atan2(2 * b, a - c);
      axes[0] = std::cos(phi);
      axes[1] = std::sin(phi);
      axes[2] = 0;
      axes[3] = -std::sin(phi);
      axes[4] = std::cos(phi);
      axes[5] = 0;
      const double difference = a - c;
      const double sum = a + c;
      const double r = std::sqrt(4 * (b * b) + difference * difference);
      w[0] = std::sqrt((r + sum) * 0.5);
      w[1] = std::sqrt((sum - r) * 0.5);
    }
  } else {
    double A = 0, B = 0, P = 1, Q = 1, R = 0;
    for (int i = 0; i < 3; ++i) {
      A = A - packed(v, i, i);
      P = P * packed(v, i, i);
      for (int j = 0; j < i; ++j) {
        const double squared = packed(v, i, j) * packed(v, i, j);
        B = B + (packed(v, j, j) * packed(v, i, i) - squared);
        Q = Q * packed(v, i, j);
      }
      const double o = i == 0 ? e : (i == 1 ? d : b);
      R = R + packed(v, i, i) * (o * o);
    }
    const double p = B - (A * A) * 0.3333333333333333;
    const double g = std::sqrt(p * (-0.3333333333333333));
    const double h = ((2 * (A * A) - 9 * B) * A) * 0.037037037037037035;
    double k = (h + (R - (2 * Q + P))) / p;
    k = std::fabs(k);
    const double kappa = (k / g) * 1.5;
    const double m = A * 0.3333333333333333;
    const double y = 2 * g;
    const double root3 = std::sqrt(3.0);
    double c0, s0;
    if (std::fabs(kappa) <= 1) {
      const double theta = std::acos(kappa) / 3;
      c0 = std::cos(theta);
      s0 = std::sin(theta);
    } else {
      const double theta = std::log(std::sqrt(kappa * kappa - 10.0) + kappa) / 3;
      c0 = std::cosh(theta);
      s0 = std::sinh(theta);
    }
    w[0] = c0 * y - m;
    w[1] = ((s0 * root3 + c0) * y) * (-0.5) - m;
    w[2] = ((c0 - s0 * root3) * y) * (-0.5) - m;
    if (w[0] == w[1]) {
      std::swap(w[0], w[2]);
    }
    covar_eigenvector(v, w[0], axes);
    covar_eigenvector(v, w[1], axes + 3);
    vector_product(axes, axes + 3, axes + 6);
  }
  for (;;) {
    bool changed = false;
    for (int i = 0; i + 1 < 3; ++i) {
      if (w[i] < w[i + 1]) {
        std::swap(w[i], w[i + 1]);
        double column[3];
        std::memcpy(column, axes + 3 * i, sizeof column);
        std::memcpy(axes + 3 * i, axes + 3 * (i + 1), sizeof column);
        std::memcpy(axes + 3 * (i + 1), column, sizeof column);
        changed = true;
      }
    }
    if (!changed) {
      break;
    }
  }
}

}  // namespace reference
