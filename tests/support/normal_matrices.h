#ifndef ALIDADE_TESTS_SUPPORT_NORMAL_MATRICES_H
#define ALIDADE_TESTS_SUPPORT_NORMAL_MATRICES_H

// Packed normal matrices of the structures that adjustments produce.

#include <cmath>
#include <cstddef>
#include <vector>

#include "support/nasty.h"

namespace normal_matrices {

inline std::size_t at(int i, int j) {
  const auto p = static_cast<std::size_t>(i > j ? i : j);
  const auto q = static_cast<std::size_t>(i > j ? j : i);
  return p * (p + 1) / 2 + q;
}

inline std::size_t count(int n) { return n > 0 ? at(n, 0) : 0; }

// Which elements off the diagonal are there.
enum class Structure { kDense, kBanded, kBlocks, kBordered, kScattered };

constexpr Structure kAllStructures[] = {Structure::kDense, Structure::kBanded, Structure::kBlocks, Structure::kBordered,
                                        Structure::kScattered};

inline bool present(Structure structure, int i, int j, int n, nasty::Random& random) {
  switch (structure) {
    case Structure::kDense:
      return true;
    case Structure::kBanded:
      return i - j <= 3;
    case Structure::kBlocks:
      return i / 3 == j / 3;
    case Structure::kBordered:
      return i / 3 == j / 3 || i >= n - 4;
    case Structure::kScattered:
      return random.one_in(6);
  }
  return false;
}

// What stands for an absent element. One -0.0 sends a whole inversion to the plain loops, so both are needed.
enum class Zeros { kPositive, kEitherSign };

// Makes a matrix positive definite through a dominant diagonal.
inline void dominate(std::vector<double>& matrix, int n, nasty::Random& random) {
  std::vector<double> sums(static_cast<std::size_t>(n));
  for (int i = 0; i < n; ++i) {
    for (int j = 0; j < i; ++j) {
      sums[static_cast<std::size_t>(i)] += std::fabs(matrix[at(i, j)]);
      sums[static_cast<std::size_t>(j)] += std::fabs(matrix[at(i, j)]);
    }
  }
  for (int i = 0; i < n; ++i) {
    matrix[at(i, i)] = sums[static_cast<std::size_t>(i)] + 0.5 + std::fabs(random.unit());
  }
}

inline std::vector<double> definite(Structure structure, int n, nasty::Random& random,
                                    Zeros zeros = Zeros::kEitherSign) {
  std::vector<double> matrix(count(n));
  for (int i = 0; i < n; ++i) {
    for (int j = 0; j < i; ++j) {
      const double absent = zeros == Zeros::kEitherSign && random.one_in(2) ? -0.0 : 0.0;
      matrix[at(i, j)] = present(structure, i, j, n, random) ? random.unit() : absent;
    }
  }
  dominate(matrix, n, random);
  return matrix;
}

// One element in `sparsity` is there, the others are +0.0.
inline std::vector<double> scattered(int n, int sparsity, nasty::Random& random) {
  std::vector<double> matrix(count(n));
  for (int i = 0; i < n; ++i) {
    for (int j = 0; j < i; ++j) {
      matrix[at(i, j)] = random.one_in(sparsity) ? random.unit() : 0.0;
    }
  }
  dominate(matrix, n, random);
  return matrix;
}

// A A' for a random A of n x (n + 5): positive definite, with a condition number in the thousands.
inline std::vector<double> gram(int n, nasty::Random& random) {
  const int m = n + 5;
  std::vector<double> a(static_cast<std::size_t>(n) * static_cast<std::size_t>(m));
  for (double& v : a) {
    v = random.unit();
  }
  std::vector<double> matrix(count(n));
  for (int i = 0; i < n; ++i) {
    for (int j = 0; j <= i; ++j) {
      for (int l = 0; l < m; ++l) {
        matrix[at(i, j)] += a[static_cast<std::size_t>(i * m + l)] * a[static_cast<std::size_t>(j * m + l)];
      }
    }
  }
  return matrix;
}

}  // namespace normal_matrices

#endif
