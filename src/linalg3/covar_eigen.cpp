#include <alidade/linalg3.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include "square_root.h"
#include "strict_arithmetic.h"

namespace {

constexpr double kThird = 0.3333333333333333;            // 0x1.5555555555555p-2
constexpr double kTwentySeventh = 0.037037037037037035;  // 0x1.2f684bda12f68p-5

// Packed positions of element (i, i), and of (i, j) by i + j.
constexpr int kDiagonal[3] = {0, 2, 5};
constexpr int kOffDiagonal[4] = {-1, 1, 3, 4};

struct AxesBySize {
  double size[3];  // eigenvalues, or their square roots
  triad axis[3];
};

// The third axis is decoupled: a plane rotation diagonalises the other two exactly.
void plane_axes(double a, double b, double c, AxesBySize& result) {
  const double phi = 0.5 * std::atan2(2.0 * b, a - c);
  const double cosine = std::cos(phi);
  const double sine = std::sin(phi);
  result.axis[0] = triad(cosine, sine, 0.0);
  result.axis[1] = triad(-sine, cosine, 0.0);
  const double r = alidade::square_root(4.0 * (b * b) + (a - c) * (a - c));
  result.size[0] = alidade::square_root((r + (a + c)) * 0.5);
  result.size[1] = alidade::square_root(((a + c) - r) * 0.5);
}

// The roots of the characteristic polynomial x^3 + A x^2 + B x + K by the trigonometric solution of the cubic.
void cubic_roots(const covar& v, double* root) {
  double A = 0.0;  // minus the trace
  double B = 0.0;  // sum of the principal minors of order two
  double P = 1.0;  // product of the diagonal
  double Q = 1.0;  // product of the off-diagonal elements
  double R = 0.0;  // each diagonal element times the square of the opposite off-diagonal one
  const double opposite[3] = {v[4], v[3], v[1]};
  for (int i = 0; i < 3; ++i) {
    const double diagonal = v[kDiagonal[i]];
    A -= diagonal;
    P *= diagonal;
    for (int j = 0; j < i; ++j) {
      const double off = v[kOffDiagonal[i + j]];
      B += v[kDiagonal[j]] * diagonal - off * off;
      Q *= off;
    }
    R += diagonal * (opposite[i] * opposite[i]);
  }

  const double p = B - (A * A) * kThird;
  const double g = alidade::square_root(p * -kThird);
  const double h = (2.0 * (A * A) - 9.0 * B) * A * kTwentySeventh;
  const double k = (h + (R - (2.0 * Q + P))) / p;
  // The magnitude of k, not k: kept for compatibility, see the warning at covar::DuserDeigen.
  const double kappa = (std::fabs(k) / g) * 1.5;

  double C0 = 0.0;
  double S0 = 0.0;
  if (std::fabs(kappa) <= 1.0) {
    const double theta = std::acos(kappa) / 3.0;
    C0 = std::cos(theta);
    S0 = std::sin(theta);
  } else {
    // 10.0 where the inverse hyperbolic cosine has 1.0, kept for compatibility: NaN for kappa between 1 and sqrt(10).
    const double theta = std::log(alidade::square_root(kappa * kappa - 10.0) + kappa) / 3.0;
    C0 = std::cosh(theta);
    S0 = std::sinh(theta);
  }
  constexpr double kSqrt3 = 1.7320508075688772;  // sqrt(3) rounded to nearest, 0x1.bb67ae8584caap+0
  const double m = A * kThird;
  const double y = 2.0 * g;
  root[0] = C0 * y - m;
  root[1] = ((S0 * kSqrt3 + C0) * y) * -0.5 - m;
  root[2] = ((C0 - S0 * kSqrt3) * y) * -0.5 - m;
}

// The axes that belong to the roots of the cubic, the third as the vector product of the other two.
void space_axes(const covar& v, AxesBySize& result) {
  double* w = result.size;
  cubic_roots(v, w);
  if (w[0] == w[1]) {
    const double first = w[0];
    w[0] = w[2];
    w[2] = first;
  }
  result.axis[0] = v.GetEigen(w[0]);
  result.axis[1] = v.GetEigen(w[1]);
  result.axis[2] = result.axis[0].VectorProduct(result.axis[1]);
}

void exchange(AxesBySize& result, int i, int j) {
  std::swap(result.size[i], result.size[j]);
  std::swap(result.axis[i], result.axis[j]);
}

// Exchanges neighbours until none is strictly smaller than the next: equal sizes keep their order, a NaN stays.
void sort_decreasing(AxesBySize& result) {
  bool exchanged = true;
  while (exchanged) {
    exchanged = false;
    for (int i = 0; i < 2; ++i) {
      if (result.size[i] < result.size[i + 1]) {
        exchange(result, i, i + 1);
        exchanged = true;
      }
    }
  }
}

}  // namespace

triad covar::GetEigen(double eigenvalue) const {
  const double a = v_[0];
  const double b = v_[1];
  const double c = v_[2];
  const double d = v_[3];
  const double e = v_[4];
  const double f = v_[5];
  const double s = (eigenvalue - f) * b + e * d;
  const double p = (eigenvalue - a) * e + b * d;
  const double q = (eigenvalue - c) * d + b * e;
  triad u(0.0, 0.0, 1.0);
  if (p != 0.0 && q != 0.0) {
    u = triad(s / p, s / q, 1.0);
  } else if (s != 0.0) {
    const double phi = 0.5 * std::atan2(2.0 * b, a - c);
    u = triad(std::cos(phi), -std::sin(phi), 0.0);
  }
  const double n = 1.0 / alidade::square_root(u[2] * u[2] + (u[1] * u[1] + u[0] * u[0]));
  return {n * u[0], n * u[1], n * u[2]};
}

matr3_3 covar::DuserDeigen() const {
  const double a = v_[0];
  const double b = v_[1];
  const double c = v_[2];
  const double d = v_[3];
  const double e = v_[4];
  const double f = v_[5];
  AxesBySize result{{alidade::square_root(a), alidade::square_root(c), alidade::square_root(f)},
                    {triad(1.0, 0.0, 0.0), triad(0.0, 1.0, 0.0), triad(0.0, 0.0, 1.0)}};
  if (d == 0.0 && e == 0.0) {
    if (b != 0.0) {
      plane_axes(a, b, c, result);
    }
  } else {
    space_axes(*this, result);
  }
  sort_decreasing(result);
  matr3_3 axes;
  std::copy_n(result.axis, 3, axes.Column(0));
  return axes;
}
