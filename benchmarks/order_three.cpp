// The algebra of order three through the shared library, beside Eigen's fixed sizes compiled into this program.

#include <alidade/linalg3.h>

#include <Eigen/Dense>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <new>

#include "harness.h"
#include "works.h"

namespace benchmarks {
namespace {

constexpr int kCount = 64;  // of one call, so that the loop around it does not count

struct Operands {
  std::array<matr3_3, kCount> a, b, product;
  std::array<covar, kCount> v, propagated;
  std::array<triad, kCount> x, y;
};
struct EigenOperands {
  std::array<Eigen::Matrix3d, kCount> a, b, product, v;
  std::array<Eigen::Vector3d, kCount> x, y;
};

void fill(Operands& ours, EigenOperands& theirs) {
  const std::vector<double> values = random_values(kCount * 27);
  const double* next = values.data();
  for (std::size_t i = 0; i < kCount; ++i) {
    for (int k = 0; k < 9; ++k) {
      ours.a[i][k] = theirs.a[i].data()[k] = *next++;
      ours.b[i][k] = theirs.b[i].data()[k] = *next++;
    }
    for (int k = 0; k < 3; ++k) {
      ours.x[i][k] = theirs.x[i][k] = *next++;
    }
    for (int k = 0; k < 6; ++k) {
      ours.v[i][k] = *next++;
    }
    for (int k : {0, 2, 5}) {
      ours.v[i][k] += 4.0;
    }
    const matr3_3 full(ours.v[i]);
    for (int k = 0; k < 9; ++k) {
      theirs.v[i].data()[k] = full[k];
    }
  }
}

// One call of each 64 times; results are constructed in place, which is what `matr3_3 c = a * b` does.
template <typename Function>
Variant repeated(const char* name, Function function) {
  return {name, 0.0, [=] {
            for (std::size_t i = 0; i < kCount; ++i) {
              function(i);
            }
            keep(nullptr);
          }};
}

template <typename Ours, typename Theirs>
void compare(const char* work, const char* peer, Ours ours, Theirs theirs) {
  measure("order three", work, {repeated("alidade", ours), repeated(peer, theirs)}, {31, 1e-3});
}

void require_equal(double ours, double theirs) {
  if (!(std::fabs(ours - theirs) <= 1e-12 * (1.0 + std::fabs(ours)))) {
    std::fputs("Eigen has another result\n", stderr);
    std::exit(1);
  }
}

}  // namespace

void measure_order_three() {
  static Operands o;
  static EigenOperands e;
  fill(o, e);
  const auto propagate = [](std::size_t i) {
    new (&e.product[i]) Eigen::Matrix3d(e.a[i] * e.v[i] * e.a[i].transpose());
  };
  for (std::size_t i = 0; i < kCount; ++i) {
    const matr3_3 product = o.a[i] * o.b[i];
    const covar propagated = o.a[i] & o.v[i];
    const Eigen::Matrix3d expected = e.a[i] * e.b[i];
    propagate(i);
    for (int k = 0; k < 9; ++k) {
      require_equal(product[k], expected.data()[k]);
      require_equal(propagated[covar::LinearIndex(k / 3, k % 3)], e.product[i].data()[k]);
    }
  }
  compare(
      "`matr3_3 * matr3_3`", "Eigen", [](std::size_t i) { new (&o.product[i]) matr3_3(o.a[i] * o.b[i]); },
      [](std::size_t i) { new (&e.product[i]) Eigen::Matrix3d(e.a[i] * e.b[i]); });
  compare(
      "`matr3_3 & covar`", "Eigen", [](std::size_t i) { new (&o.propagated[i]) covar(o.a[i] & o.v[i]); }, propagate);
  compare(
      "`matr3_3 * triad`", "Eigen", [](std::size_t i) { new (&o.y[i]) triad(o.a[i] * o.x[i]); },
      [](std::size_t i) { new (&e.y[i]) Eigen::Vector3d(e.a[i] * e.x[i]); });
  compare(
      "`covar * triad`", "Eigen", [](std::size_t i) { new (&o.y[i]) triad(o.v[i] * o.x[i]); },
      [](std::size_t i) { new (&e.y[i]) Eigen::Vector3d(e.v[i] * e.x[i]); });
  compare(
      "`InvertSMatr3`", "Eigen",
      [](std::size_t i) {
        o.propagated[i] = o.v[i];
        InvertSMatr3(o.propagated[i]);
      },
      [](std::size_t i) { e.product[i] = e.v[i].inverse(); });
  compare(
      "inverse of a `matr3_3`", "Eigen",
      [](std::size_t i) { new (&o.product[i]) matr3_3(o.a[i], static_cast<char>(255)); },
      [](std::size_t i) { e.product[i] = e.a[i].inverse(); });
  compare(
      "`DuserDeigen`", "Eigen, computeDirect", [](std::size_t i) { new (&o.product[i]) matr3_3(o.v[i].DuserDeigen()); },
      [](std::size_t i) {
        Eigen::SelfAdjointEigenSolver<Eigen::Matrix3d> solver;
        solver.computeDirect(e.v[i]);
        new (&e.product[i]) Eigen::Matrix3d(solver.eigenvectors());
      });
}

}  // namespace benchmarks
