#include <alidade/linalg3.h>

#include "matrix/products3.h"
#include "strict_arithmetic.h"

matr3_3::matr3_3(int /*ignored*/) : m_{0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0} {}

matr3_3::matr3_3(const covar& V) : m_{V[0], V[1], V[3], V[1], V[2], V[4], V[3], V[4], V[5]} {}

matr3_3& matr3_3::operator=(int /*ignored*/) {
  for (double& element : m_) {
    element = 0.0;
  }
  return *this;
}

int matr3_3::Index(int i, int j) { return 3 * j + i; }

triad* matr3_3::Column(int j) { return columns_ + j; }

matr3_3& matr3_3::operator+=(const matr3_3& o) {
  for (int k = 0; k < 9; ++k) {
    m_[k] += o.m_[k];
  }
  return *this;
}

matr3_3& matr3_3::operator-=(const matr3_3& o) {
  for (int k = 0; k < 9; ++k) {
    m_[k] -= o.m_[k];
  }
  return *this;
}

matr3_3& matr3_3::operator*=(double d) {
  for (double& element : m_) {
    element *= d;
  }
  return *this;
}

matr3_3& matr3_3::operator/=(double d) { return *this *= 1.0 / d; }

matr3_3 matr3_3::operator*(const matr3_3& B) const {
  matr3_3 product;
  alidade::dense_product3(m_, B.m_, product.m_);
  return product;
}

triad matr3_3::operator*(const triad& v) const {
  const double x[3] = {v[0], v[1], v[2]};
  triad product;
  alidade::dense_times_vector3(m_, x, &product[0]);
  return product;
}

covar matr3_3::operator&(const covar& V) const {
  covar propagated;
  alidade::congruence_product3(m_, V, propagated);
  return propagated;
}
