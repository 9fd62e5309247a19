// RareInversion against the packed Cholesky inversion of LAPACK (dpptrf, dpptri) and LAPACK's own acceptance test for
// it: the scaled residual of Reference LAPACK, TESTING/LIN/dppt03.f, below its threshold of 30.

#include <alidade/matrix.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

#include "support/nasty.h"
#include "support/normal_matrices.h"

extern "C" {
// The trailing argument is the hidden length of the character argument.
void dpptrf_(const char* uplo, const int* n, double* ap, int* info, std::size_t uplo_length);
void dpptri_(const char* uplo, const int* n, double* ap, int* info, std::size_t uplo_length);
}

namespace {

constexpr double kEpsilon = std::numeric_limits<double>::epsilon();
constexpr double kThreshold = 30.0;

// Our lower triangle row by row is LAPACK's upper triangle column by column.
constexpr char kUpper = 'U';

double one_norm(const std::vector<double>& packed, int n) {
  double largest = 0.0;
  for (int j = 0; j < n; ++j) {
    double sum = 0.0;
    for (int i = 0; i < n; ++i) {
      sum += std::fabs(packed[normal_matrices::at(i, j)]);
    }
    largest = std::fmax(largest, sum);
  }
  return largest;
}

double scaled_residual(const std::vector<double>& a, const std::vector<double>& x, int n) {
  double largest = 0.0;
  for (int j = 0; j < n; ++j) {
    double sum = 0.0;
    for (int i = 0; i < n; ++i) {
      double r = i == j ? 1.0 : 0.0;
      for (int l = 0; l < n; ++l) {
        r -= a[normal_matrices::at(i, l)] * x[normal_matrices::at(l, j)];
      }
      sum += std::fabs(r);
    }
    largest = std::fmax(largest, sum);
  }
  return largest / (n * one_norm(a, n) * one_norm(x, n) * kEpsilon);
}

std::vector<double> lapack_inverse(std::vector<double> packed, int n) {
  int info = 0;
  dpptrf_(&kUpper, &n, packed.data(), &info, 1);
  EXPECT_EQ(info, 0);
  dpptri_(&kUpper, &n, packed.data(), &info, 1);
  EXPECT_EQ(info, 0);
  return packed;
}

void expect_inverse(const std::vector<double>& a, int n) {
  std::vector<double> x = a;
  TSMatrix N(x.data(), n);
  ASSERT_EQ(RareInversion(N, nullptr, 0), 0);
  EXPECT_LT(scaled_residual(a, x, n), kThreshold) << "order " << n;

  // With both residuals below the threshold the inverses differ by at most X (A X - A Y), that is
  // norm(X) * 2 * threshold * n * eps * norm(A) * norm(X).
  const std::vector<double> y = lapack_inverse(a, n);
  std::vector<double> difference(x.size());
  for (std::size_t i = 0; i < x.size(); ++i) {
    difference[i] = x[i] - y[i];
  }
  const double norm_x = one_norm(x, n);
  EXPECT_LT(one_norm(difference, n), norm_x * 2 * kThreshold * n * kEpsilon * one_norm(a, n) * norm_x) << "order " << n;
}

TEST(RareInversionAgainstLapack, NormalMatrices) {
  for (int n : {1, 2, 3, 7, 8, 9, 16, 33, 64, 100, 150}) {
    nasty::Random random(static_cast<std::uint64_t>(n));
    for (normal_matrices::Structure structure : normal_matrices::kAllStructures) {
      expect_inverse(normal_matrices::definite(structure, n, random), n);
    }
    expect_inverse(normal_matrices::gram(n, random), n);
  }
}

// Hilbert's matrices: condition numbers up to 1e13.
TEST(RareInversionAgainstLapack, IllConditioned) {
  for (int n = 1; n <= 10; ++n) {
    std::vector<double> hilbert(normal_matrices::count(n));
    for (int i = 0; i < n; ++i) {
      for (int j = 0; j <= i; ++j) {
        hilbert[normal_matrices::at(i, j)] = 1.0 / (i + j + 1);
      }
    }
    std::vector<double> x = hilbert;
    TSMatrix N(x.data(), n);
    ASSERT_EQ(RareInversion(N, nullptr, 0), 0);
    EXPECT_LT(scaled_residual(hilbert, x, n), kThreshold) << "order " << n;
  }
}

// Both name the same failing pivot.
TEST(RareInversionAgainstLapack, FailingPivot) {
  for (int n = 1; n <= 20; ++n) {
    for (int k = 1; k <= n; ++k) {
      nasty::Random random(static_cast<std::uint64_t>(n * 100 + k));
      std::vector<double> a = normal_matrices::definite(normal_matrices::Structure::kDense, n, random);
      a[normal_matrices::at(k - 1, k - 1)] = -1.0;
      std::vector<double> factor = a;
      int info = 0;
      dpptrf_(&kUpper, &n, factor.data(), &info, 1);
      TSMatrix N(a.data(), n);
      EXPECT_EQ(RareInversion(N, nullptr, 0), info);
      EXPECT_EQ(info, k);
    }
  }
}

}  // namespace
