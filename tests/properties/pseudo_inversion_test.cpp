// PseudoInversion against the four conditions of Penrose (1955), which determine the pseudo-inverse.

#include <alidade/matrix.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

#include "support/nasty.h"
#include "support/normal_matrices.h"

namespace {

// Square matrices column by column, for the checks.
struct Square {
  explicit Square(int order) : n(order), v(static_cast<std::size_t>(order) * static_cast<std::size_t>(order)) {}
  double& at(int i, int j) { return v[static_cast<std::size_t>(i + j * n)]; }
  double at(int i, int j) const { return v[static_cast<std::size_t>(i + j * n)]; }
  int n;
  std::vector<double> v;
};

Square unpack(const std::vector<double>& packed, int n) {
  Square s(n);
  for (int i = 0; i < n; ++i) {
    for (int j = 0; j < n; ++j) {
      s.at(i, j) = packed[normal_matrices::at(i, j)];
    }
  }
  return s;
}

Square operator*(const Square& a, const Square& b) {
  Square c(a.n);
  for (int j = 0; j < a.n; ++j) {
    for (int l = 0; l < a.n; ++l) {
      for (int i = 0; i < a.n; ++i) {
        c.at(i, j) += a.at(i, l) * b.at(l, j);
      }
    }
  }
  return c;
}

double norm(const Square& a) {
  double sum = 0;
  for (double v : a.v) {
    sum += v * v;
  }
  return std::sqrt(sum);
}

double distance(const Square& a, const Square& b) {
  Square c(a.n);
  for (std::size_t i = 0; i < c.v.size(); ++i) {
    c.v[i] = a.v[i] - b.v[i];
  }
  return norm(c);
}

Square transposed(const Square& a) {
  Square t(a.n);
  for (int i = 0; i < a.n; ++i) {
    for (int j = 0; j < a.n; ++j) {
      t.at(j, i) = a.at(i, j);
    }
  }
  return t;
}

// Inverts the leading block, then completes it to the pseudo-inverse: the order of calls of an application.
void expect_pseudo_inverse(const std::vector<double>& normal, int n, int d) {
  std::vector<double> packed = normal;
  TSMatrix N(packed.data(), n);
  N.SetDim1(n - d);
  ASSERT_EQ(RareInversion(N, nullptr, 0), 0);
  N.ResetDim1();
  ASSERT_EQ(PseudoInversion(N, d), 0);

  const Square a = unpack(normal, n), x = unpack(packed, n);
  const Square ax = a * x;
  // Each condition is met up to the rounding of products whose factors have these norms. The leading block's own
  // condition number, norm of its inverse times norm of the matrix, enters as for any inverse.
  std::vector<double> leading = normal;
  TSMatrix L(leading.data(), n - d);
  ASSERT_EQ(RareInversion(L, nullptr, 0), 0);
  leading.resize(normal_matrices::count(n - d));
  const double condition = norm(a) * norm(unpack(leading, n - d));
  const double bound = 10 * n * std::numeric_limits<double>::epsilon() * condition;
  EXPECT_LT(distance(ax * a, a), bound * norm(a)) << "n " << n << " d " << d;
  EXPECT_LT(distance(x * ax, x), bound * norm(unpack(leading, n - d))) << "n " << n << " d " << d;
  EXPECT_LT(distance(ax, transposed(ax)), bound) << "n " << n << " d " << d;
}

// F M F' with F = (I; H') in small integers: the rank is n - d, and no element of the matrix is rounded.
std::vector<double> defective(int n, int d, nasty::Random& random) {
  const int m = n - d;
  std::vector<double> core(normal_matrices::count(m));
  for (int i = 0; i < m; ++i) {
    for (int j = 0; j < i; ++j) {
      core[normal_matrices::at(i, j)] = random.below(3) - 1;
    }
    core[normal_matrices::at(i, i)] = 3 * m + random.below(5);
  }
  std::vector<double> f(static_cast<std::size_t>(n) * static_cast<std::size_t>(m));
  for (int i = 0; i < n; ++i) {
    for (int j = 0; j < m; ++j) {
      f[static_cast<std::size_t>(i * m + j)] = i < m ? (i == j ? 1.0 : 0.0) : random.below(5) - 2;
    }
  }
  std::vector<double> normal(normal_matrices::count(n));
  for (int i = 0; i < n; ++i) {
    for (int j = 0; j <= i; ++j) {
      for (int p = 0; p < m; ++p) {
        for (int q = 0; q < m; ++q) {
          normal[normal_matrices::at(i, j)] += f[static_cast<std::size_t>(i * m + p)] *
                                               core[normal_matrices::at(p, q)] * f[static_cast<std::size_t>(j * m + q)];
        }
      }
    }
  }
  return normal;
}

TEST(PseudoInversion, MeetsTheConditionsOfPenrose) {
  for (int n : {2, 3, 4, 7, 8, 12, 20, 40}) {
    for (int d = 1; d < n && d <= 7; ++d) {
      nasty::Random random(static_cast<std::uint64_t>(n * 10 + d));
      expect_pseudo_inverse(defective(n, d, random), n, d);
    }
  }
}

// A free levelling net: heights are determined up to one constant, the normal matrix is the Laplacian of the lines.
TEST(PseudoInversion, FreeLevellingNet) {
  for (int n : {2, 3, 10, 30}) {
    std::vector<double> normal(normal_matrices::count(n));
    const auto line = [&](int i, int j, double weight) {
      normal[normal_matrices::at(i, i)] += weight;
      normal[normal_matrices::at(j, j)] += weight;
      normal[normal_matrices::at(i, j)] -= weight;
    };
    for (int i = 1; i < n; ++i) {
      line(i, i - 1, 1.0 + i % 3);
      if (i > 2) {
        line(i, i - 3, 2.0);
      }
    }
    expect_pseudo_inverse(normal, n, 1);
  }
}

}  // namespace
