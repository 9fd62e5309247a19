#ifndef ALIDADE_TESTS_NORMAL_MATRICES_H
#define ALIDADE_TESTS_NORMAL_MATRICES_H

// Packed normal matrices of the structures that adjustments produce.

#include <cmath>
#include <cstddef>
#include <vector>

#include "nasty.h"

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

// Positive definite through a dominant diagonal. Absent elements are zeros of either sign.
inline std::vector<double> definite(Structure structure, int n, nasty::Random& random) {
  std::vector<double> matrix(count(n));
  std::vector<double> sums(static_cast<std::size_t>(n));
  for (int i = 0; i < n; ++i) {
    for (int j = 0; j < i; ++j) {
      double& v = matrix[at(i, j)];
      v = present(structure, i, j, n, random) ? random.unit() : (random.one_in(2) ? 0.0 : -0.0);
      sums[static_cast<std::size_t>(i)] += std::fabs(v);
      sums[static_cast<std::size_t>(j)] += std::fabs(v);
    }
  }
  for (int i = 0; i < n; ++i) {
    matrix[at(i, i)] = sums[static_cast<std::size_t>(i)] + 0.5 + std::fabs(random.unit());
  }
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
