#ifndef ALIDADE_TESTS_SUPPORT_INVERSION_CASES_H
#define ALIDADE_TESTS_SUPPORT_INVERSION_CASES_H

// The inversions against their references, bit for bit. The functions call the public names only and can be run again
// after another set of kernels has been selected.

#include <alidade/matrix.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

#include "reference/inversion.h"
#include "support/bits.h"
#include "support/nasty.h"
#include "support/normal_matrices.h"
#include "support/sizes.h"

namespace inversion_cases {

inline const std::vector<int> kSizes =
    sizes::all_or_few({1, 2, 3, 7, 8, 9, 15, 16, 17, 31, 33, 64, 65, 100, 129, 200}, {1, 2, 3, 8, 9, 17, 33, 65, 129});

// An exactly sized heap copy of a packed matrix, with two rows more than are active.
class Matrix {
public:
  Matrix(const std::vector<double>& active, int n)
      : n_(n), elements_(normal_matrices::count(n + 2), bits::from(kBeyond)) {
    std::copy(active.begin(), active.end(), elements_.begin());
    elements_.shrink_to_fit();
  }

  double* data() { return elements_.data(); }
  TSMatrix view() { return TSMatrix(elements_.data(), n_ + 2); }
  bool rest_intact() const {
    bool intact = true;
    for (std::size_t i = normal_matrices::count(n_); i < elements_.size(); ++i) {
      intact = intact && bits::of(elements_[i]) == kBeyond;
    }
    return intact;
  }

private:
  static constexpr std::uint64_t kBeyond = 0x7ffcdead5eed0002u;

  int n_;
  std::vector<double> elements_;
};

// Return value, elements, progress and untouched rest; the value returned by both.
inline int compare(const std::vector<double>& matrix, int n, int start, int span, const char* what) {
  Matrix tested(matrix, n), expected(matrix, n);
  TSMatrix N = tested.view();
  N.SetDim1(n);
  int tested_progress = start, expected_progress = start;
  const int result = RareInversion(N, &tested_progress, span);
  const int reference = reference::rare_inversion(expected.data(), n, &expected_progress, span);
  EXPECT_EQ(result, reference) << what << " of order " << n;
  EXPECT_EQ(tested_progress, expected_progress) << what << " of order " << n << ", result " << result;
  EXPECT_TRUE(bits::equal_arrays(tested.data(), expected.data(), normal_matrices::count(n)))
      << what << " of order " << n << ", result " << result;
  EXPECT_TRUE(tested.rest_intact()) << what << " of order " << n;
  EXPECT_EQ(N.GetDim1(), n);
  if (result > 0) {  // nothing in the columns from the failing pivot on has changed
    for (int i = result - 1; i < n; ++i) {
      for (int j = result - 1; j <= i; ++j) {
        EXPECT_PRED_FORMAT2(bits::equal<double>, tested.data()[normal_matrices::at(i, j)],
                            matrix[normal_matrices::at(i, j)])
            << what << " of order " << n << ", element " << i << ", " << j;
      }
    }
  }
  // Without a progress value the result is the same.
  Matrix silent(matrix, n);
  TSMatrix S = silent.view();
  S.SetDim1(n);
  EXPECT_EQ(RareInversion(S, nullptr, span), result);
  EXPECT_TRUE(bits::equal_arrays(silent.data(), tested.data(), normal_matrices::count(n)));
  return result;
}

inline void compare_definite() {
  for (int n : kSizes) {
    nasty::Random random(static_cast<std::uint64_t>(n));
    for (normal_matrices::Structure structure : normal_matrices::kAllStructures) {
      EXPECT_EQ(compare(normal_matrices::definite(structure, n, random), n, 0, 99, "definite"), 0);
      EXPECT_EQ(compare(normal_matrices::definite(structure, n, random, normal_matrices::Zeros::kPositive), n, 0, 99,
                        "definite, positive zeros"),
                0);
    }
    EXPECT_EQ(compare(normal_matrices::gram(n, random), n, 5, 60, "gram"), 0);
  }
}

// Patterns of nonzeros around the size of a block of columns and of a chunk of the sparsity map. The first version of
// the blocked inversion forgot that the columns of one block fill each other in: a row that had nonzeros in the first
// chunk of a block alone was later skipped where it had got some in the second, and one scattered matrix in two
// thousand came out wrong. Every absent element that the tests had was then a zero of either sign, which sends the
// whole matrix to the plain loops. Hence +0.0 alone, here and in compare_definite.
inline void compare_scattered() {
  nasty::Random random(1611);
  for (int round = 0; round < sizes::all_or_few(600, 60); ++round) {
    const int n = 17 + random.below(114);
    constexpr int kSparsities[] = {3, 6, 10, 20, 50};
    std::vector<double> matrix = normal_matrices::scattered(n, kSparsities[round % 5], random);
    const bool fails = round % 7 == 0;
    if (fails) {
      const int k = random.below(n);
      matrix[normal_matrices::at(k, k)] = random.one_in(2) ? 0.0 : -1.0;
    }
    EXPECT_EQ(compare(matrix, n, 3, 90, "scattered") != 0, fails);
  }
}

// Every pivot of every small order fails once: by a negative diagonal, a zero one, a NaN, and through elimination.
inline void compare_failures() {
  for (int n = 1; n <= 20; ++n) {
    for (int k = 1; k <= n; ++k) {
      nasty::Random random(static_cast<std::uint64_t>(100 * n + k));
      for (normal_matrices::Structure structure : normal_matrices::kAllStructures) {
        const std::vector<double> good = normal_matrices::definite(structure, n, random);
        for (double bad : {-1.0, -0.0, 0.0, std::numeric_limits<double>::quiet_NaN()}) {
          std::vector<double> matrix = good;
          matrix[normal_matrices::at(k - 1, k - 1)] = bad;
          EXPECT_EQ(compare(matrix, n, 0, 99, "bad diagonal"), k);
        }
      }
    }
  }
  for (int n : {33, 64, 65, 100, 129}) {
    for (int k : {1, 8, 9, 32, 33, n - 1, n}) {
      if (k > n) {
        continue;
      }
      nasty::Random random(static_cast<std::uint64_t>(1000 * n + k));
      std::vector<double> matrix = normal_matrices::definite(normal_matrices::Structure::kDense, n, random);
      matrix[normal_matrices::at(k - 1, k - 1)] = -1.0;
      EXPECT_EQ(compare(matrix, n, 0, 99, "bad diagonal"), k);
    }
  }
}

// Graph Laplacians in integers: every row sums to zero and, of a path, the elimination is exact: the last pivot is 0.
inline void compare_semidefinite() {
  for (int n = 1; n <= 40; ++n) {
    std::vector<double> path(normal_matrices::count(n));
    for (int i = 1; i < n; ++i) {
      path[normal_matrices::at(i, i - 1)] = -1.0;
      path[normal_matrices::at(i, i)] += 1.0;
      path[normal_matrices::at(i - 1, i - 1)] += 1.0;
    }
    compare(path, n, 0, 99, "path");
    std::vector<double> ones(normal_matrices::count(n), 1.0);
    EXPECT_EQ(compare(ones, n, 0, 99, "ones"), n == 1 ? 0 : 2);
    const std::vector<double> zeros(normal_matrices::count(n));
    EXPECT_EQ(compare(zeros, n, 0, 99, "zeros"), 1);
  }
}

// One element, then several, of a definite matrix become zeros, subnormals, infinities, NaN or enormous.
inline void compare_special() {
  for (int n : {2, 3, 5, 8, 9, 16, 17, 33, 40, 65}) {
    nasty::Random random(static_cast<std::uint64_t>(n) + 77);
    for (int repeat = 0; repeat < 60; ++repeat) {
      const normal_matrices::Structure structure = normal_matrices::kAllStructures[random.below(5)];
      std::vector<double> matrix = normal_matrices::definite(structure, n, random);
      const int changes = 1 + random.below(3);
      for (int c = 0; c < changes; ++c) {
        matrix[static_cast<std::size_t>(random.below(static_cast<int>(matrix.size())))] = nasty::special(random);
      }
      compare(matrix, n, 0, 99, "special");
    }
    // Infinite diagonals have a reciprocal of zero; then only the flags tell structural zeros from others.
    for (int repeat = 0; repeat < 20; ++repeat) {
      std::vector<double> matrix =
          normal_matrices::definite(normal_matrices::kAllStructures[random.below(5)], n, random);
      const int k = random.below(n);
      matrix[normal_matrices::at(k, k)] = std::numeric_limits<double>::infinity();
      EXPECT_EQ(compare(matrix, n, 0, 99, "infinite diagonal"), 0);
    }
  }
}

// Scaled so that factors and inverses overflow or become subnormal on the way.
inline void compare_scaled() {
  for (int n : {3, 8, 17, 33}) {
    for (int exponent : {-1060, -1022, -700, -500, 500, 700, 1015}) {
      nasty::Random random(static_cast<std::uint64_t>(n * 3000 + exponent + 2000));
      for (normal_matrices::Structure structure : normal_matrices::kAllStructures) {
        std::vector<double> matrix = normal_matrices::definite(structure, n, random);
        for (double& v : matrix) {
          v = std::ldexp(v, exponent);
        }
        compare(matrix, n, 0, 99, "scaled");
        // Graded: rows and columns of very different size.
        for (int i = 0; i < n; ++i) {
          for (int j = 0; j <= i; ++j) {
            double& v = matrix[normal_matrices::at(i, j)];
            v = std::ldexp(v, -exponent + (i + j) * (600 / n) * (exponent < 0 ? -1 : 1));
          }
        }
        compare(matrix, n, 0, 99, "graded");
      }
    }
  }
}

// A chain whose inverse factor overflows: L has 2^-500 on the diagonal and 2^-474 beside it, so that L L' is exact and
// each row of the inverse is 2^26 times the one before. Between the links lie parameters that depend on nothing. Zeros
// then meet infinities, and only because they are skipped no NaN comes of it where there is none by right.
inline void compare_overflowing_chain() {
  for (int n : {45, 66, 100}) {
    for (int step : {1, 2, 3}) {
      std::vector<double> matrix(normal_matrices::count(n));
      for (int i = 0; i < n; ++i) {
        const bool link = i % step == 0;
        matrix[normal_matrices::at(i, i)] = !link ? 1.0 : i == 0 ? 0x1p-1000 : 0x1p-1000 + 0x1p-948;
        if (link && i >= step) {
          matrix[normal_matrices::at(i, i - step)] = i % (2 * step) == 0 ? 0x1p-974 : -0x1p-974;
        }
      }
      EXPECT_EQ(compare(matrix, n, 0, 99, "overflowing chain"), 0);
    }
  }
}

inline void compare_progress() {
  for (int n : sizes::all_or_few({1, 7, 8, 9, 15, 16, 23, 24, 40, 63, 64, 65}, {1, 7, 8, 9, 23, 40, 65})) {
    nasty::Random random(static_cast<std::uint64_t>(n) + 5);
    const std::vector<double> good = normal_matrices::definite(normal_matrices::Structure::kBanded, n, random);
    for (int start : {0, 1, 33, 50, 90, 99, 100, 150, -1, -40, -1000}) {
      for (int span : {0, 1, 3, 10, 33, 50, 98, 99, 100, 1000, -10, -200}) {
        compare(good, n, start, span, "progress");
        std::vector<double> bad = good;
        const int k = random.below(n);
        bad[normal_matrices::at(k, k)] = -1.0;
        compare(bad, n, start, span, "progress up to a failure");
      }
    }
  }
}

// A random symmetric block and coupling, and the same after inversion of the leading block.
inline void compare_pseudo() {
  for (int n : {1, 2, 3, 4, 5, 8, 9, 16, 17, 33, 65}) {
    for (int d = 0; d <= n && d <= 7; ++d) {
      for (nasty::Kind kind : {nasty::Kind::kUnit, nasty::Kind::kSparse, nasty::Kind::kSpecial}) {
        nasty::Random random(static_cast<std::uint64_t>(n * 100 + d));
        std::vector<double> matrix(normal_matrices::count(n));
        for (double& v : matrix) {
          v = nasty::value(kind, random);
        }
        Matrix tested(matrix, n), expected(matrix, n);
        TSMatrix N = tested.view();
        N.SetDim1(n);
        EXPECT_EQ(PseudoInversion(N, d), reference::pseudo_inversion(expected.data(), n, d));
        EXPECT_TRUE(bits::equal_arrays(tested.data(), expected.data(), matrix.size())) << "n " << n << " d " << d;
        EXPECT_TRUE(tested.rest_intact());
        EXPECT_EQ(N.GetDim1(), n);
        EXPECT_EQ(N.GetInitDim1(), n + 2);
      }
    }
  }
}

}  // namespace inversion_cases

#endif
