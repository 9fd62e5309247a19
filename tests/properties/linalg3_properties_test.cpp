// What the algebra of order three must satisfy whatever its rounding: bounds are derived beside each test, u = 2^-53.

#include <alidade/linalg3.h>
#include <alidade/matrix.h>

#include <algorithm>
#include <cmath>

#include "support/bits.h"
#include "support/covariances.h"
#include "support/sizes.h"

namespace {

constexpr int kRounds = sizes::all_or_few(20000, 3333);
constexpr double kUnit = 0x1p-53;

covar covariance(const double* v) { return {v[0], v[1], v[2], v[3], v[4], v[5]}; }

double largest(const double* p, int count) {
  double m = 0;
  for (int k = 0; k < count; ++k) {
    m = std::fmax(m, std::fabs(p[k]));
  }
  return m;
}

// Largest element of |I - A X| in extended precision.
double inverse_residual(const matr3_3& a, const matr3_3& x) {
  double worst = 0;
  for (int i = 0; i < 3; ++i) {
    for (int j = 0; j < 3; ++j) {
      long double sum = i == j ? 1.0L : 0.0L;
      for (int l = 0; l < 3; ++l) {
        sum -= static_cast<long double>(a[matr3_3::Index(i, l)]) * x[matr3_3::Index(l, j)];
      }
      worst = std::fmax(worst, std::fabs(static_cast<double>(sum)));
    }
  }
  return worst;
}

// Inversion by cofactors with elements up to M. A cofactor errs by 2u of products up to M^2 each: 4 u M^2. A row of A
// times a column of the adjugate then errs by 3 M 4uM^2 = 12 u M^3; so does the determinant, and its own five roundings
// of terms up to 2 M^3 add 18; scaling by the reciprocal rounds twice more: 12. Together 54 u M^3 / |det|, with
// second-order terms 64.
double inverse_bound(double m, double det) { return 64 * kUnit * m * m * m / std::fabs(det); }

TEST(Linalg3Properties, ACovarianceTimesItsInverseIsTheIdentity) {
  covariances::Source source(51);
  for (int round = 0; round < kRounds; ++round) {
    double v[6];
    source.positive_definite(v);
    covar inverse = covariance(v);
    const double det =
        v[0] * (v[2] * v[5] - v[4] * v[4]) - v[1] * (v[1] * v[5] - v[4] * v[3]) + v[3] * (v[1] * v[4] - v[2] * v[3]);
    const int status = InvertSMatr3(inverse);
    const double bound = inverse_bound(largest(v, 6), det);
    if (bound > 0.5) {
      continue;  // too nearly singular to say anything
    }
    ASSERT_EQ(status, 0) << round;
    ASSERT_LE(inverse_residual(matr3_3(covariance(v)), matr3_3(inverse)), bound) << round;
  }
}

TEST(Linalg3Properties, AMatrixTimesItsInverseIsTheIdentity) {
  covariances::Source source(52);
  for (int round = 0; round < kRounds; ++round) {
    matr3_3 m(0);
    for (int k = 0; k < 9; ++k) {
      m[k] = source.uniform();
    }
    const matr3_3 x(m, static_cast<char>(255));
    const triad cross = m.Column(0)->VectorProduct(*m.Column(1));
    const double det = cross[0] * m[6] + cross[1] * m[7] + cross[2] * m[8];
    const double bound = inverse_bound(largest(m, 9), det);
    if (bound > 0.5) {
      continue;
    }
    ASSERT_LE(inverse_residual(m, x), bound) << round;
  }
}

TEST(Linalg3Properties, TheVectorProductIsPerpendicularAndAntisymmetric) {
  covariances::Source source(53);
  for (int round = 0; round < kRounds; ++round) {
    const triad a(source.uniform(), source.uniform(), source.uniform());
    const triad b(source.uniform(), source.uniform(), source.uniform());
    const triad ab = a.VectorProduct(b);
    const triad ba = b.VectorProduct(a);
    for (int i = 0; i < 3; ++i) {
      ASSERT_EQ(ab[i], -ba[i]) << round;
    }
    // Each component errs by 2 u of two products below 1 and one rounding of a result below 2; three of them, and five
    // roundings here.
    ASSERT_LE(std::fabs(a[0] * ab[0] + a[1] * ab[1] + a[2] * ab[2]), 3 * 4 * kUnit + 5 * 6 * kUnit) << round;
  }
}

TEST(Linalg3Properties, PropagationByARotationKeepsTheTrace) {
  covariances::Source source(54);
  for (int round = 0; round < kRounds; ++round) {
    const double phi = 4 * source.uniform();
    const double psi = 4 * source.uniform();
    matr3_3 about_z(covar(triad(1, 1, 1)));
    about_z[0] = about_z[4] = std::cos(phi);
    about_z[1] = std::sin(phi);
    about_z[3] = -about_z[1];
    matr3_3 about_x(covar(triad(1, 1, 1)));
    about_x[4] = about_x[8] = std::cos(psi);
    about_x[5] = std::sin(psi);
    about_x[7] = -about_x[5];
    double v[6];
    source.positive_definite(v);
    const covar w = (about_x * about_z) & covariance(v);
    // Some thirty roundings of terms that are bounded by the trace.
    const double trace = v[0] + v[2] + v[5];
    ASSERT_NEAR(w[0] + w[2] + w[5], trace, 32 * kUnit * 3 * trace) << round;
  }
}

struct Axes {
  matr3_3 columns;
  double variance[3];  // u'Vu
  double residual;     // largest |V u - (u'Vu) u| relative to the trace
  double skew;         // largest |u_i . u_j|, and | |u| - 1 |
};

Axes axes_of(const covar& v) {
  Axes axes{v.DuserDeigen(), {}, 0, 0};
  const double trace = v[0] + v[2] + v[5];
  for (int i = 0; i < 3; ++i) {
    const triad u = *axes.columns.Column(i);
    const triad w = v * u;
    const double l = u[0] * w[0] + u[1] * w[1] + u[2] * w[2];
    axes.variance[i] = l;
    for (int k = 0; k < 3; ++k) {
      axes.residual = std::fmax(axes.residual, std::fabs(w[k] - l * u[k]) / trace);
    }
    for (int j = 0; j <= i; ++j) {
      const triad o = *axes.columns.Column(j);
      const double dot = u[0] * o[0] + u[1] * o[1] + u[2] * o[2];
      axes.skew = std::fmax(axes.skew, std::fabs(i == j ? dot - 1 : dot));
    }
  }
  return axes;
}

// The third axis decoupled: always principal axes, orthogonal, by decreasing variance. A few roundings each (see the
// unit test).
TEST(Linalg3Properties, TheBlockCaseGivesPrincipalAxes) {
  covariances::Source source(55);
  for (int round = 0; round < kRounds; ++round) {
    double v[6];
    source.positive_definite(v);
    v[3] = v[4] = 0.0;
    const Axes axes = axes_of(covariance(v));
    ASSERT_LE(axes.residual, 16 * kUnit) << round;
    ASSERT_LE(axes.skew, 8 * kUnit) << round;
    const double slack = 32 * kUnit * (v[0] + v[2] + v[5]);
    ASSERT_GE(axes.variance[0], axes.variance[1] - slack) << round;
    ASSERT_GE(axes.variance[1], axes.variance[2] - slack) << round;
  }
}

// The general case is right exactly where the largest eigenvalue lies farther from the mean than the smallest does,
// that is where the product of the eigenvalues' distances from their mean is positive. The test knows the eigenvalues:
// it makes the covariance from them.
TEST(Linalg3Properties, TheGeneralCaseIsRightForOneLargeAxisOnly) {
  covariances::Source source(56);
  int right = 0;
  int wrong = 0;
  for (int round = 0; round < kRounds; ++round) {
    const double largest_value = 2 + std::fabs(source.uniform());
    const double smallest_value = 1 - 0.9 * std::fabs(source.uniform());
    const double share = 0.1 + 0.8 * std::fabs(source.uniform());
    const double middle_value = smallest_value + share * (largest_value - smallest_value);
    // Half a turn about w: proper and symmetric.
    const double w[3] = {0.3 + 0.7 * std::fabs(source.uniform()), 0.3 + 0.7 * std::fabs(source.uniform()),
                         0.3 + 0.7 * std::fabs(source.uniform())};
    const double ww = w[0] * w[0] + w[1] * w[1] + w[2] * w[2];
    matr3_3 rotation(0);
    double smallest_component = 1;
    for (int i = 0; i < 3; ++i) {
      for (int j = 0; j < 3; ++j) {
        const double element = 2 * w[i] * w[j] / ww - (i == j ? 1.0 : 0.0);
        rotation[matr3_3::Index(i, j)] = element;
        smallest_component = std::fmin(smallest_component, std::fabs(element));
      }
    }
    if (smallest_component < 0.05 || std::fabs(share - 0.5) < 0.02) {
      continue;  // an axis in a coordinate plane, or the middle value next to the mean of the others
    }
    const covar v = rotation & covar(largest_value, 0, middle_value, 0, 0, smallest_value);
    const Axes axes = axes_of(v);
    if (share < 0.5) {
      ++right;
      // Roots: acos near 1 turns a relative error of u into sqrt(u) at worst, here, with gaps of a tenth of the range,
      // into some 100 u. The cofactors divide by two gaps (0.1 * 0.1) and two components (0.05 * 0.05): 4e6 u in all.
      ASSERT_LE(axes.residual, 4e6 * kUnit) << round;
      ASSERT_LE(axes.skew, 4e6 * kUnit) << round;
      ASSERT_GE(axes.variance[0], axes.variance[1]) << round;
      ASSERT_GE(axes.variance[1], axes.variance[2]) << round;
    } else {
      ++wrong;
      ASSERT_GT(axes.residual, 1e-4) << round;
    }
  }
  EXPECT_GT(right, kRounds / 4);
  EXPECT_GT(wrong, kRounds / 4);
}

// What docs/linalg3.md says about two nearly equal small axes: with a gap of gamma times the trace, one of k random
// orientations has a residual above k 1e-17 / gamma^2, here with k = 100 and a margin of three in the count.
TEST(Linalg3Properties, ASmallGapBetweenTheSmallAxesCostsItsSquare) {
  covariances::Source source(57);
  for (const double g : {1e-2, 1e-3, 1e-4, 1e-5}) {
    const double gamma = g / 11;
    int above = 0;
    for (int round = 0; round < kRounds; ++round) {
      // A rotation from a quaternion that is uniform on the sphere: one from the ball, scaled.
      double q[4];
      double length = 0;
      do {
        length = 0;
        for (double& x : q) {
          x = source.uniform();
          length += x * x;
        }
      } while (length > 1 || length < 0.01);
      const double s = 2 / length;
      matr3_3 rotation(0);
      for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j) {
          const int k = 3 - i - j;  // the third axis, for i != j
          const double turn = (i + 1) % 3 == j ? -q[3] : q[3];
          rotation[matr3_3::Index(i, j)] =
              i == j ? s * (q[i] * q[i] + q[3] * q[3]) - 1 : s * (q[i] * q[j] + turn * q[k]);
        }
      }
      const Axes axes = axes_of(rotation & covar(9, 0, 1 + g, 0, 0, 1));
      above += axes.residual > 1e-15 / (gamma * gamma) ? 1 : 0;
    }
    EXPECT_LT(above, 3 * kRounds / 100) << g;
    EXPECT_GT(above, kRounds / 100 / 10) << g;  // no figure of speech: so bad it is
  }
}

// The members of order three are the general products with dimension three.
TEST(Linalg3Properties, MembersEqualTheGeneralProducts) {
  covariances::Source source(48);
  for (int round = 0; round < kRounds; ++round) {
    double x[3], expected[9];
    covar v;
    matr3_3 a, b;
    source.vector(a, 9);
    source.vector(b, 9);
    source.covariance(v);
    source.vector(x, 3);
    MatrixProduct(a, b, expected, 3, 3, 3);
    ASSERT_TRUE(bits::equal_arrays(a * b, expected, 9)) << round;
    const triad t(x[0], x[1], x[2]);
    MatrixProduct(a, x, expected, 3, 3, 1);
    ASSERT_TRUE(bits::equal_arrays(&(a * t)[0], expected, 3)) << round;
    SMatrProduct(v, x, expected, 3, 3, 1, 0, 1);
    ASSERT_TRUE(bits::equal_arrays(&(v * t)[0], expected, 3)) << round;
    SMatrProductAQAt(a, v, expected, 3, 3, '\0');
    ASSERT_TRUE(bits::equal_arrays(a & v, expected, 6)) << round;
  }
}

}  // namespace
