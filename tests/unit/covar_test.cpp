#include <alidade/linalg3.h>
#include <alidade/matrix.h>

#include <limits>
#include <type_traits>

#include "support/bits.h"

namespace {

const double kNaN = std::numeric_limits<double>::quiet_NaN();
const double kInf = std::numeric_limits<double>::infinity();

static_assert(sizeof(covar) == 6 * sizeof(double));
static_assert(std::is_standard_layout_v<covar> && std::is_trivially_copyable_v<covar>);

void check(const covar& v, const double (&expected)[6]) {
  for (int k = 0; k < 6; ++k) {
    CHECK_BITS(v[k], expected[k]);
  }
}

// covar::LinearIndex (1).
TEST(Covar, LinearIndexIsSymmetric) {
  EXPECT_EQ(covar::LinearIndex(0, 0), 0);
  EXPECT_EQ(covar::LinearIndex(2, 1), 4);
  EXPECT_EQ(covar::LinearIndex(1, 2), 4);
  EXPECT_EQ(covar::LinearIndex(2, 2), 5);
  int position = 0;
  for (int i = 0; i < 3; ++i) {
    for (int j = 0; j <= i; ++j, ++position) {
      EXPECT_EQ(covar::LinearIndex(i, j), position);
      EXPECT_EQ(covar::LinearIndex(j, i), position);
    }
  }
}

TEST(Covar, AnyIntegerConstructsTheZeroCovariance) {
  check(covar(5), {0.0, 0.0, 0.0, 0.0, 0.0, 0.0});
  check(covar(0), {0.0, 0.0, 0.0, 0.0, 0.0, 0.0});
}

TEST(Covar, TakesItsElementsInPackedOrder) {
  const covar v(1, 2, 3, 4, 5, 6);
  check(v, {1, 2, 3, 4, 5, 6});
  const double* p = v;
  EXPECT_TRUE(bits::equal_arrays(p, &v.operator double const*()[0], 6));
  covar w = v;
  double* q = w;
  q[3] = -0.0;
  check(w, {1, 2, 3, -0.0, 5, 6});
  w[5] = kInf;
  check(w, {1, 2, 3, -0.0, 5, kInf});
}

TEST(Covar, SquaresStandardDeviations) {
  check(covar(triad(1, 2, 3)), {1, 0.0, 4, 0.0, 0.0, 9});
  check(covar(triad(-0.0, -2, kInf)), {0.0, 0.0, 4, 0.0, 0.0, kInf});
}

TEST(Covar, AssigningZeroClearsAndAnyOtherIntegerDoesNothing) {
  covar v(1, 2, 3, 4, 5, 6);
  EXPECT_EQ(&(v = 5), &v);
  check(v, {1, 2, 3, 4, 5, 6});
  v = 0;
  check(v, {0.0, 0.0, 0.0, 0.0, 0.0, 0.0});
}

// Doubling the diagonal is deliberate: V(i, j) = M(i, j) + M(j, i), not halved.
TEST(Covar, FromMatrixIsTwiceTheSymmetricPart) {
  const covar v(1.1, -2.2, 3.3, 0.4, -5.5, 6.6);
  const matr3_3 m(v);
  check(covar(m), {2 * 1.1, 2 * -2.2, 2 * 3.3, 2 * 0.4, 2 * -5.5, 2 * 6.6});

  covar sum(v);
  const matr3_3 identity(covar(triad(1, 1, 1)));
  EXPECT_EQ(&(sum += identity), &sum);
  check(sum, {2 + 1.1, -2.2, 2 + 3.3, 0.4, -5.5, 2 + 6.6});
  EXPECT_EQ(&(sum -= identity), &sum);
  check(sum, {(2 + 1.1) - 2, -2.2, (2 + 3.3) - 2, 0.4, -5.5, (2 + 6.6) - 2});
}

TEST(Covar, FromMatrixReadsBothTriangles) {
  matr3_3 m(0);
  for (int k = 0; k < 9; ++k) {
    m[k] = 1 << k;
  }
  // Column by column: 1 2 4 | 8 16 32 | 64 128 256.
  check(covar(m), {2, 2 + 8, 32, 4 + 64, 32 + 128, 512});
  covar v(1, 1, 1, 1, 1, 1);
  v += m;
  check(v, {3, 11, 33, 69, 161, 513});
  v -= m;
  check(v, {1, 1, 1, 1, 1, 1});
}

TEST(Covar, Arithmetic) {
  const covar a(1, 2, 3, 4, 5, 6);
  covar v(a);
  EXPECT_EQ(&(v += a), &v);
  check(v, {2, 4, 6, 8, 10, 12});
  EXPECT_EQ(&(v -= covar(1, 1, 1, 1, 1, 1)), &v);
  check(v, {1, 3, 5, 7, 9, 11});
  EXPECT_EQ(&(v *= -0.5), &v);
  check(v, {-0.5, -1.5, -2.5, -3.5, -4.5, -5.5});
}

TEST(Covar, DivisionMultipliesByTheReciprocal) {
  // 5 * (1/49) and 5 / 49 differ in the last place, which is what makes this a test.
  const double reciprocal = 1.0 / 49.0;
  ASSERT_NE(bits::of(5.0 * reciprocal), bits::of(5.0 / 49.0));
  covar v(5, 5, 5, 5, 5, 5);
  EXPECT_EQ(&(v /= 49.0), &v);
  for (int k = 0; k < 6; ++k) {
    CHECK_BITS(v[k], 5.0 * reciprocal);
  }
  covar w(1, -1, 0, -0.0, kNaN, kInf);
  w /= 0.0;
  check(w, {kInf, -kInf, kNaN, kNaN, kNaN, kInf});
}

TEST(Covar, EqualityComparesBytes) {
  const covar plus(1, 0.0, 1, 0, 0, 1);
  const covar minus(1, -0.0, 1, 0, 0, 1);
  EXPECT_FALSE(plus == minus);
  EXPECT_TRUE(plus != minus);
  EXPECT_TRUE(plus == covar(plus));
  const covar nan(kNaN, 0, 0, 0, 0, 0);
  EXPECT_TRUE(nan == covar(nan));
  EXPECT_FALSE(nan != covar(nan));
  for (int k = 0; k < 6; ++k) {
    covar other(plus);
    other[k] += 0x1p-52;
    EXPECT_TRUE(plus != other) << k;
  }
}

TEST(Covar, TimesVectorUsesTheFullSymmetricMatrix) {
  const covar v(1, 2, 3, 4, 5, 6);
  const triad y = v * triad(1, 10, 100);
  CHECK_BITS(y[0], 421.0);
  CHECK_BITS(y[1], 532.0);
  CHECK_BITS(y[2], 654.0);
  // The sum starts at +0.0, so products of -0.0 cannot make it negative.
  const triad zero = covar(0) * triad(-1, -1, -1);
  CHECK_BITS(zero[0], 0.0);
}

TEST(Covar, TakesADiagonalBlock) {
  TSMatrix s(5, 0);
  for (int k = 0; k < s.GetDimension(); ++k) {
    s[k] = k;
  }
  for (int first = 0; first <= 2; ++first) {
    const covar v(s, first);
    for (int r = 0; r < 3; ++r) {
      for (int c = 0; c <= r; ++c) {
        CHECK_BITS(v[covar::LinearIndex(r, c)], s[TSMatrix::LinearIndex(first + r, first + c)]);
      }
    }
  }
  for (int k = 0; k < s.GetDimension(); ++k) {
    CHECK_BITS(s[k], k);
  }
}

TEST(Covar, InverseOfADiagonal) {
  covar v(covar(2, 0, 4, 0, 0, 8));
  EXPECT_EQ(InvertSMatr3(v), 0);
  check(v, {0.5, 0.0, 0.25, 0.0, 0.0, 0.125});
}

TEST(Covar, InverseOfAnIndefiniteMatrixIsFormedAndReported) {
  covar v(-1, 0, 1, 0, 0, 1);
  EXPECT_EQ(InvertSMatr3(v), -2);
  // det = -1. The off-diagonal cofactors are 0.0 or -0.0 as their products fall.
  EXPECT_EQ(v[0], -1.0);
  EXPECT_EQ(v[2], 1.0);
  EXPECT_EQ(v[5], 1.0);
  EXPECT_EQ(v[1], 0.0);
  EXPECT_EQ(v[3], 0.0);
  EXPECT_EQ(v[4], 0.0);
}

TEST(Covar, InverseLeavesASingularMatrixUntouched) {
  covar v(1e-61, 0, 1, 0, 0, 1);
  EXPECT_EQ(InvertSMatr3(v), -1);
  check(v, {1e-61, 0, 1, 0, 0, 1});
  covar negative(-1e-61, 0, 1, 0, 0, 1);
  EXPECT_EQ(InvertSMatr3(negative), -1);
  check(negative, {-1e-61, 0, 1, 0, 0, 1});
  covar dependent(1, 2, 4, 3, 6, 9);
  EXPECT_EQ(InvertSMatr3(dependent), -1);
  check(dependent, {1, 2, 4, 3, 6, 9});
}

// The threshold is the double 1e-60 itself, and a determinant of just that size is inverted.
TEST(Covar, InverseThreshold) {
  const double threshold = bits::from(0x3379B604AAACA626u);
  CHECK_BITS(threshold, 1e-60);
  covar at(threshold, 0, 1, 0, 0, 1);
  EXPECT_EQ(InvertSMatr3(at), 0);
  covar below(bits::from(0x3379B604AAACA625u), 0, 1, 0, 0, 1);
  EXPECT_EQ(InvertSMatr3(below), -1);
  covar negative(-threshold, 0, 1, 0, 0, 1);
  EXPECT_EQ(InvertSMatr3(negative), -2);
}

TEST(Covar, InverseOfNaNIsNaNAndReportsSuccess) {
  covar v(kNaN, 0, 1, 0, 0, 1);
  EXPECT_EQ(InvertSMatr3(v), 0);
  for (int k = 0; k < 6; ++k) {
    EXPECT_TRUE(v[k] != v[k]) << k;
  }
}

}  // namespace
