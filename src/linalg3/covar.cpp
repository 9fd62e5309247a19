#include <alidade/linalg3.h>

#include <cstring>

#include "matrix/packed_index.h"
#include "matrix/products3.h"
#include "strict_arithmetic.h"

namespace {

// Element (i, j) of M + M'.
double symmetric_sum(const matr3_3& m, int i, int j) { return m[matr3_3::Index(i, j)] + m[matr3_3::Index(j, i)]; }

}  // namespace

covar::covar(int /*ignored*/) : v_{0.0, 0.0, 0.0, 0.0, 0.0, 0.0} {}

covar::covar(double v00, double v10, double v11, double v20, double v21, double v22)
    : v_{v00, v10, v11, v20, v21, v22} {}

covar::covar(const triad& s) : v_{s[0] * s[0], 0.0, s[1] * s[1], 0.0, 0.0, s[2] * s[2]} {}

covar::covar(const matr3_3& M)
    : v_{symmetric_sum(M, 0, 0), symmetric_sum(M, 1, 0), symmetric_sum(M, 1, 1),
         symmetric_sum(M, 2, 0), symmetric_sum(M, 2, 1), symmetric_sum(M, 2, 2)} {}

covar& covar::operator=(int n) {
  if (n == 0) {
    for (double& element : v_) {
      element = 0.0;
    }
  }
  return *this;
}

int covar::LinearIndex(int i, int j) { return static_cast<int>(alidade::packed_index(i, j)); }

covar& covar::operator+=(const covar& o) {
  for (int k = 0; k < 6; ++k) {
    v_[k] += o.v_[k];
  }
  return *this;
}

covar& covar::operator-=(const covar& o) {
  for (int k = 0; k < 6; ++k) {
    v_[k] -= o.v_[k];
  }
  return *this;
}

covar& covar::operator*=(double d) {
  for (double& element : v_) {
    element *= d;
  }
  return *this;
}

covar& covar::operator/=(double d) { return *this *= 1.0 / d; }

covar& covar::operator+=(const matr3_3& M) {
  for (int i = 0, k = 0; i < 3; ++i) {
    for (int j = 0; j <= i; ++j, ++k) {
      v_[k] = symmetric_sum(M, i, j) + v_[k];
    }
  }
  return *this;
}

covar& covar::operator-=(const matr3_3& M) {
  for (int i = 0, k = 0; i < 3; ++i) {
    for (int j = 0; j <= i; ++j, ++k) {
      v_[k] = v_[k] - symmetric_sum(M, i, j);
    }
  }
  return *this;
}

// Byte by byte, not value by value: 0.0 differs from -0.0, and a NaN equals the same NaN.
bool covar::operator==(const covar& o) const {
  // NOLINTNEXTLINE(bugprone-suspicious-memory-comparison,cert-exp42-c,cert-flp37-c)
  return std::memcmp(v_, o.v_, sizeof v_) == 0;
}

bool covar::operator!=(const covar& o) const { return !(*this == o); }

triad covar::operator*(const triad& v) const {
  const double x[3] = {v[0], v[1], v[2]};
  triad product;
  alidade::packed_times_vector3(v_, x, &product[0]);
  return product;
}
