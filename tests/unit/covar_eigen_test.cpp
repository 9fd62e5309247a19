#include <alidade/linalg3.h>

#include <cmath>
#include <limits>

#include "support/bits.h"

namespace {

const double kNaN = std::numeric_limits<double>::quiet_NaN();

void check_column(matr3_3& axes, int j, double x, double y, double z) {
  const triad& column = *axes.Column(j);
  CHECK_BITS(column[0], x);
  CHECK_BITS(column[1], y);
  CHECK_BITS(column[2], z);
}

// |V u - l u| with l = u'Vu: zero when u is a unit eigenvector of V. This is how a user verifies a set of axes.
double residual(const covar& v, const triad& u) {
  const triad w = v * u;
  const double l = (u[0] * w[0] + u[1] * w[1]) + u[2] * w[2];
  return std::sqrt(std::pow(w[0] - l * u[0], 2) + std::pow(w[1] - l * u[1], 2) + std::pow(w[2] - l * u[2], 2));
}

double worst_residual(const covar& v, matr3_3 axes) {
  return std::fmax(residual(v, *axes.Column(0)), std::fmax(residual(v, *axes.Column(1)), residual(v, *axes.Column(2))));
}

// Half a turn about (1, 2, 3): proper, symmetric, its columns (2uu'/u'u - I) nowhere near an axis.
covar with_semi_axes_squared(double first, double second, double third) {
  const double u[3] = {1.0, 2.0, 3.0};
  matr3_3 rotation(0);
  for (int i = 0; i < 3; ++i) {
    for (int j = 0; j < 3; ++j) {
      rotation[matr3_3::Index(i, j)] = 2.0 * u[i] * u[j] / 14.0 - (i == j ? 1.0 : 0.0);
    }
  }
  return rotation & covar(first, 0, second, 0, 0, third);
}

TEST(CovarEigen, EigenvectorOfADiagonal) {
  const triad u = covar(1, 0, 2, 0, 0, 3).GetEigen(3);
  CHECK_BITS(u[0], 0.0);
  CHECK_BITS(u[1], 0.0);
  CHECK_BITS(u[2], 1.0);
}

TEST(CovarEigen, EigenvectorOfABlockFallsBackOnThePlane) {
  // d = e = 0: p = q = 0 and s = (l - f) b.
  const triad u = covar(2, 1, 2, 0, 0, 7).GetEigen(3);
  const double phi = 0.5 * std::atan2(2.0, 0.0);
  const double n = 1.0 / std::sqrt(std::sin(phi) * std::sin(phi) + std::cos(phi) * std::cos(phi));
  CHECK_BITS(u[0], n * std::cos(phi));
  CHECK_BITS(u[1], n * -std::sin(phi));
  CHECK_BITS(u[2], n * 0.0);
}

TEST(CovarEigen, EigenvectorOfAFullMatrix) {
  // (2 1 1; 1 2 1; 1 1 2) has the eigenvalue 4 with the vector (1, 1, 1).
  const triad u = covar(2, 1, 2, 1, 1, 2).GetEigen(4);
  for (int i = 0; i < 3; ++i) {
    CHECK_BITS(u[i], 1.0 / std::sqrt(3.0));
  }
}

TEST(CovarEigen, AxesOfADiagonalAreSortedColumnsOfTheIdentity) {
  matr3_3 axes = covar(1, 0, 9, 0, 0, 4).DuserDeigen();
  check_column(axes, 0, 0, 1, 0);
  check_column(axes, 1, 0, 0, 1);
  check_column(axes, 2, 1, 0, 0);

  matr3_3 unit = covar(1, 0, 1, 0, 0, 1).DuserDeigen();
  check_column(unit, 0, 1, 0, 0);
  check_column(unit, 1, 0, 1, 0);
  check_column(unit, 2, 0, 0, 1);
}

TEST(CovarEigen, EqualSizesKeepTheirOrderAndNaNStays) {
  matr3_3 equal = covar(1, 0, 4, 0, 0, 4).DuserDeigen();
  check_column(equal, 0, 0, 1, 0);
  check_column(equal, 1, 0, 0, 1);
  check_column(equal, 2, 1, 0, 0);

  // The middle size is the square root of -1: nothing passes it.
  matr3_3 nan = covar(1, 0, -1, 0, 0, 9).DuserDeigen();
  check_column(nan, 0, 1, 0, 0);
  check_column(nan, 1, 0, 1, 0);
  check_column(nan, 2, 0, 0, 1);
}

TEST(CovarEigen, BlockCaseIsARotationAboutTheThirdAxis) {
  const double a = 2.0;
  const double b = 1.0;
  const double c = 1.0;
  const double phi = 0.5 * std::atan2(2.0 * b, a - c);
  // Eigenvalues of the block: (3 + sqrt 5) / 2 and (3 - sqrt 5) / 2.
  matr3_3 small_third = covar(a, b, c, 0, 0, 0.1).DuserDeigen();
  check_column(small_third, 0, std::cos(phi), std::sin(phi), 0);
  check_column(small_third, 1, -std::sin(phi), std::cos(phi), 0);
  check_column(small_third, 2, 0, 0, 1);
  matr3_3 large_third = covar(a, b, c, -0.0, 0, 10).DuserDeigen();
  check_column(large_third, 0, 0, 0, 1);
  check_column(large_third, 1, std::cos(phi), std::sin(phi), 0);
  check_column(large_third, 2, -std::sin(phi), std::cos(phi), 0);
  matr3_3 middle_third = covar(a, b, c, 0, -0.0, 1).DuserDeigen();
  check_column(middle_third, 0, std::cos(phi), std::sin(phi), 0);
  check_column(middle_third, 1, 0, 0, 1);
  check_column(middle_third, 2, -std::sin(phi), std::cos(phi), 0);
}

TEST(CovarEigen, BlockCaseWithANegativeDiagonalLeavesNaNSizesInPlace) {
  // The smaller eigenvalue of the block is negative, its square root NaN: column 1 stays where it is.
  matr3_3 axes = covar(1, 2, 1, 0, 0, 25).DuserDeigen();
  const double phi = 0.5 * std::atan2(4.0, 0.0);
  check_column(axes, 0, std::cos(phi), std::sin(phi), 0);
  check_column(axes, 1, -std::sin(phi), std::cos(phi), 0);
  check_column(axes, 2, 0, 0, 1);
}

// The warning at DuserDeigen. It forms the magnitude of the cubic's constant term, which is right when one axis is
// large and two are small, and wrong the other way round: there the columns are not principal axes at all.
TEST(CovarEigen, TwoLargeAxesAndOneSmallGiveWrongAxes) {
  // The components of an axis are quotients of cofactors of V - l I. A cofactor is the product of two gaps between
  // eigenvalues, 8 or more here, and of two components of the axis, 0.12 or more; it is formed with some ten rounding
  // errors of terms up to 10^2. The residual has the size of that relative error times 10.
  constexpr double kBound = 10.0 * (10 * 0x1p-53 * 100) / (8 * 0.12);
  const covar one_large = with_semi_axes_squared(10, 2, 1);
  EXPECT_LT(worst_residual(one_large, one_large.DuserDeigen()), kBound);

  const covar two_large = with_semi_axes_squared(10, 9, 1);
  EXPECT_GT(worst_residual(two_large, two_large.DuserDeigen()), 0.1);

  // GetEigen itself is not at fault: given the eigenvalue it finds the axis.
  EXPECT_LT(residual(two_large, two_large.GetEigen(10.0)), kBound);
  EXPECT_LT(residual(two_large, two_large.GetEigen(9.0)), kBound);
  EXPECT_LT(residual(two_large, two_large.GetEigen(1.0)), kBound);
}

// Decoupling the first or the second axis instead of the third is no block case, and GetEigen has nothing to divide by:
// it gives the third unit vector whatever the eigenvalue is.
TEST(CovarEigen, DecouplingAnotherAxisThanTheThirdGivesNoAxes) {
  const triad u = covar(2, 0, 5, 1, 0, 2).GetEigen(3);
  CHECK_BITS(u[0], 0.0);
  CHECK_BITS(u[2], 1.0);
  for (const covar& v : {covar(2, 0, 5, 1, 0, 2), covar(5, 0, 2, 0, 1, 2)}) {
    matr3_3 axes = v.DuserDeigen();
    int third_axes = 0;
    for (int j = 0; j < 3; ++j) {
      third_axes += (*axes.Column(j))[2] == 1.0 ? 1 : 0;
    }
    EXPECT_EQ(third_axes, 2);
    EXPECT_GT(worst_residual(v, axes), 0.1);
  }
}

// With the third axis decoupled the plane rotation is exact whatever the sizes are. For a horizontal error ellipse set
// the covariances with the third component to zero.
TEST(CovarEigen, BlockCaseIsRightWhateverTheSizes) {
  for (const double third : {0.01, 3.0, 8.0, 100.0}) {
    const covar v(9.0, 0.9, 8.0, 0, 0, third);
    // atan2, sin, cos and the products of the check itself: some sixteen roundings of the largest element.
    EXPECT_LT(worst_residual(v, v.DuserDeigen()), 16 * 0x1p-53 * std::fmax(9.0, third)) << third;
  }
}

// Two equal eigenvalues put the cosine at one, and rounding may take it beyond: the hyperbolic branch then takes the
// root of a negative number, 10 standing where a textbook has 1.
TEST(CovarEigen, TwoEqualEigenvaluesMayGiveNaN) {
  const double x = 0.1 * 0.1;  // I + w w' with w = (0.1, 0.1, 0.1)
  matr3_3 axes = covar(1 + x, x, 1 + x, x, x, 1 + x).DuserDeigen();
  for (int k = 0; k < 9; ++k) {
    EXPECT_TRUE(axes[k] != axes[k]) << k;
  }
}

TEST(CovarEigen, NaNInGivesNaNOut) {
  matr3_3 axes = covar(kNaN, 1, 2, 0.5, 0.25, 3).DuserDeigen();
  for (int k = 0; k < 9; ++k) {
    EXPECT_TRUE(axes[k] != axes[k]) << k;
  }
}

}  // namespace
