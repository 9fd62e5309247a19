// The algebra of order three against its literal reference, bit for bit, over seeded inputs: ordinary covariances,
// decoupled axes, equal eigenvalues, singular and nearly singular ones, signed zeros, subnormals, infinities and NaN.

#include <alidade/linalg3.h>
#include <alidade/matrix.h>

#include <algorithm>
#include <cstddef>
#include <cstring>

#include "reference/linalg3.h"
#include "support/bits.h"
#include "support/covariances.h"
#include "support/sizes.h"

namespace {

constexpr int kRounds = sizes::all_or_few(120000, 20000);

covar covariance(const double* v) { return {v[0], v[1], v[2], v[3], v[4], v[5]}; }

matr3_3 matrix(const double* m) {
  matr3_3 r(0);
  std::copy_n(m, 9, static_cast<double*>(r));
  return r;
}

triad vector(const double* x) { return {x[0], x[1], x[2]}; }

// Bytes first: nearly all comparisons end there, and hundreds of thousands are made.
testing::AssertionResult same_array(const double* actual, const double* expected, std::size_t count) {
  if (std::memcmp(actual, expected, count * sizeof(double)) == 0) {
    return testing::AssertionSuccess();
  }
  return bits::equal_arrays(actual, expected, count);
}
testing::AssertionResult same(const triad& t, const double* expected) {
  const double actual[3] = {t[0], t[1], t[2]};
  return same_array(actual, expected, 3);
}
testing::AssertionResult same(const covar& v, const double* expected) { return same_array(v, expected, 6); }
testing::AssertionResult same(const matr3_3& m, const double* expected) { return same_array(m, expected, 9); }

TEST(Linalg3Reference, Triads) {
  covariances::Source source(41);
  for (int round = 0; round < kRounds; ++round) {
    double a[3], b[3], expected[3];
    source.vector(a, 3);
    source.vector(b, 3);
    const double marker = 1.7976931348623157e308;
    for (double& x : a) {
      x = source.below(8) == 0 ? marker : x;
    }
    reference::vector_product(a, b, expected);
    ASSERT_TRUE(same(vector(a).VectorProduct(vector(b)), expected)) << round;
    ASSERT_EQ(DefTriad::IsUndef(vector(a)), reference::triad_is_undefined(a)) << round;
    ASSERT_EQ(DefTriad::IsPartialUndef(vector(a)), reference::triad_is_partly_undefined(a)) << round;
    triad root = vector(a);
    root.sqrt();
    reference::triad_sqrt(a);
    ASSERT_TRUE(same(root, a)) << round;
  }
}

TEST(Linalg3Reference, CovarianceArithmetic) {
  covariances::Source source(42);
  for (int round = 0; round < kRounds; ++round) {
    double v[6], m[9], x[3], expected[9];
    source.covariance(v);
    source.vector(m, 9);
    source.vector(x, 3);

    reference::covar_from_deviations(x, expected);
    ASSERT_TRUE(same(covar(vector(x)), expected)) << round;
    reference::covar_from_matrix(m, expected);
    ASSERT_TRUE(same(covar(matrix(m)), expected)) << round;
    reference::matrix_from_covar(v, expected);
    ASSERT_TRUE(same(matr3_3(covariance(v)), expected)) << round;
    reference::covar_times_vector(v, x, expected);
    ASSERT_TRUE(same(covariance(v) * vector(x), expected)) << round;

    covar sum = covariance(v);
    std::copy_n(v, 6, expected);
    sum += matrix(m);
    reference::covar_plus_matrix(expected, m);
    ASSERT_TRUE(same(sum, expected)) << round;
    sum -= matrix(m);
    reference::covar_minus_matrix(expected, m);
    ASSERT_TRUE(same(sum, expected)) << round;
    sum *= x[0];
    reference::multiply_all(expected, 6, x[0]);
    ASSERT_TRUE(same(sum, expected)) << round;
    sum /= x[1];
    reference::divide_all(expected, 6, x[1]);
    ASSERT_TRUE(same(sum, expected)) << round;

    const covar a = covariance(v);
    const covar b = covariance(m);
    ASSERT_EQ(a == b, std::memcmp(v, m, sizeof v) == 0) << round;
    covar total = a;
    total += b;
    covar difference = a;
    difference -= b;
    for (int k = 0; k < 6; ++k) {
      ASSERT_TRUE(bits::same(total[k], v[k] + m[k])) << round;
      ASSERT_TRUE(bits::same(difference[k], v[k] - m[k])) << round;
    }
  }
}

TEST(Linalg3Reference, MatrixArithmetic) {
  covariances::Source source(43);
  for (int round = 0; round < kRounds; ++round) {
    double a[9], b[9], v[6], x[3], expected[9];
    source.vector(a, 9);
    source.vector(b, 9);
    source.covariance(v);
    source.vector(x, 3);

    reference::matrix_times_matrix(a, b, expected);
    ASSERT_TRUE(same(matrix(a) * matrix(b), expected)) << round;
    reference::matrix_times_vector(a, x, expected);
    ASSERT_TRUE(same(matrix(a) * vector(x), expected)) << round;
    reference::propagate(a, v, expected);
    ASSERT_TRUE(same(matrix(a) & covariance(v), expected)) << round;
    reference::matrix_transposed(a, expected);
    ASSERT_TRUE(same(matr3_3(matrix(a), 't'), expected)) << round;

    matr3_3 scaled = matrix(a);
    scaled += matrix(b);
    scaled -= matrix(a);
    scaled *= x[0];
    scaled /= x[1];
    for (int k = 0; k < 9; ++k) {
      expected[k] = (a[k] + b[k]) - a[k];
    }
    reference::multiply_all(expected, 9, x[0]);
    reference::divide_all(expected, 9, x[1]);
    ASSERT_TRUE(same(scaled, expected)) << round;
  }
}

TEST(Linalg3Reference, InverseOfAMatrix) {
  covariances::Source source(44);
  for (int round = 0; round < kRounds; ++round) {
    double m[9], expected[9];
    source.vector(m, 9);
    if (round % 4 == 0) {  // small integers: exactly singular now and then
      for (double& x : m) {
        x = source.below(5) - 2;
      }
    }
    reference::matrix_inverse(m, expected);
    ASSERT_TRUE(same(matr3_3(matrix(m), static_cast<char>(255)), expected)) << round;
  }
}

TEST(Linalg3Reference, InverseOfACovariance) {
  covariances::Source source(45);
  int results[3] = {0, 0, 0};
  for (int round = 0; round < 2 * kRounds; ++round) {
    double v[6];
    source.covariance(v);
    covar inverse = covariance(v);
    const int status = InvertSMatr3(inverse);
    ASSERT_EQ(status, reference::invert_covar(v)) << round;
    ASSERT_TRUE(same(inverse, v)) << round;
    ++results[-status];
  }
  // Each outcome occurs often enough to be called tested.
  EXPECT_GT(results[0], kRounds / 12);
  EXPECT_GT(results[1], kRounds / 12);
  EXPECT_GT(results[2], kRounds / 12);
}

TEST(Linalg3Reference, Eigenvectors) {
  covariances::Source source(46);
  for (int round = 0; round < kRounds; ++round) {
    double v[6], expected[3];
    source.covariance(v);
    const double candidates[4] = {v[0], v[5], source.nasty(), source.uniform()};
    const double eigenvalue = candidates[round % 4];
    reference::covar_eigenvector(v, eigenvalue, expected);
    ASSERT_TRUE(same(covariance(v).GetEigen(eigenvalue), expected)) << round;
  }
}

TEST(Linalg3Reference, Axes) {
  covariances::Source source(47);
  for (int round = 0; round < 2 * kRounds; ++round) {
    double v[6], expected[9];
    source.covariance(v);
    reference::covar_axes(v, expected);
    ASSERT_TRUE(same(covariance(v).DuserDeigen(), expected)) << round;
  }
}

// The members of order three are the general kernels with dimension three.
TEST(Linalg3Reference, MembersEqualTheGeneralKernels) {
  covariances::Source source(48);
  for (int round = 0; round < kRounds; ++round) {
    double a[9], b[9], v[6], x[3], expected[9];
    source.vector(a, 9);
    source.vector(b, 9);
    source.covariance(v);
    source.vector(x, 3);
    MatrixProduct(a, b, expected, 3, 3, 3);
    ASSERT_TRUE(same(matrix(a) * matrix(b), expected)) << round;
    MatrixProduct(a, x, expected, 3, 3, 1);
    ASSERT_TRUE(same(matrix(a) * vector(x), expected)) << round;
    SMatrProduct(v, x, expected, 3, 3, 1, 0, 1);
    ASSERT_TRUE(same(covariance(v) * vector(x), expected)) << round;
    SMatrProductAQAt(a, v, expected, 3, 3, '\0');
    ASSERT_TRUE(same(matrix(a) & covariance(v), expected)) << round;
  }
}

}  // namespace
