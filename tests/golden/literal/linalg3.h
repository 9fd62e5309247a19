#ifndef ALIDADE_TESTS_GOLDEN_LITERAL_LINALG3_H
#define ALIDADE_TESTS_GOLDEN_LITERAL_LINALG3_H

#include <cstring>
#include <memory>
#include <type_traits>

#include "golden/literal/points.h"
#include "reference/blocks.h"
#include "reference/linalg3.h"

struct TSMatrix;
struct TMatrix;
struct matr3_3;

struct triad : Elements<3> {
  triad() = default;
  explicit triad(int /*ignored*/) {}
  explicit triad(const TAbstractPoint3<double>& p) : Elements<3>(p) {}
  triad operator=(int value) const { return value == 0 ? triad(0) : *this; }
  void sqrt() { reference::triad_sqrt(v); }
  triad VectorProduct(const triad& b) const {
    triad product;
    reference::vector_product(v, b.v, product.v);
    return product;
  }
};

struct DefTriad : triad {
  DefTriad() { v[0] = v[1] = v[2] = 1.7976931348623157e308; }
  void operator=(const triad& t) { std::memcpy(v, t.v, sizeof v); }
  static bool IsUndef(const triad& t) { return reference::triad_is_undefined(t.v); }
  static bool IsPartialUndef(const triad& t) { return reference::triad_is_partly_undefined(t.v); }
  bool IsUndef() const { return IsUndef(*this); }
  bool IsPartialUndef() const { return IsPartialUndef(*this); }
};

struct covar : Elements<6> {
  covar() = default;
  explicit covar(const triad& deviations) { reference::covar_from_deviations(deviations.v, v); }
  explicit covar(const matr3_3& m);
  covar(TSMatrix& s, int k);
  covar operator=(int value) const { return value == 0 ? covar() : *this; }
  // From the table that defines the place in the packed triangle.
  static int LinearIndex(int i, int j) {
    constexpr int kPosition[3][3] = {{0, 1, 3}, {1, 2, 4}, {3, 4, 5}};
    return kPosition[i][j];
  }
  bool operator==(const covar& o) const { return std::memcmp(v, o.v, sizeof v) == 0; }
  bool operator!=(const covar& o) const { return !(*this == o); }
  triad operator*(const triad& x) const {
    triad y;
    reference::covar_times_vector(v, x.v, y.v);
    return y;
  }
  triad GetEigen(double eigenvalue) const {
    triad u;
    reference::covar_eigenvector(v, eigenvalue, u.v);
    return u;
  }
  matr3_3 DuserDeigen() const;
};

struct matr3_3 : Elements<9> {
  matr3_3() = default;
  explicit matr3_3(const covar& c) { reference::matrix_from_covar(c.v, v); }
  matr3_3(const matr3_3& m, char op) { (op == 't' ? reference::matrix_transposed : reference::matrix_inverse)(m.v, v); }
  matr3_3(TSMatrix& s, int i, int j);
  matr3_3(TMatrix& t, int i, int j);
  matr3_3 operator=(int /*ignored*/) const { return matr3_3(); }
  static int Index(int i, int j) { return 3 * j + i; }
  std::unique_ptr<triad> Column(int j) const {
    auto column = std::make_unique<triad>();
    std::memcpy(column->v, v + 3 * j, sizeof column->v);
    return column;
  }
};

inline covar::covar(const matr3_3& m) { reference::covar_from_matrix(m.v, v); }
inline matr3_3 covar::DuserDeigen() const {
  matr3_3 axes;
  reference::covar_axes(v, axes.v);
  return axes;
}

template <class T>
using IfAlgebra = std::enable_if_t<std::is_same_v<T, covar> || std::is_same_v<T, matr3_3>>;

template <class T, class = IfAlgebra<T>>
T operator+=(T a, const T& b) {
  return each(a, b, [](double x, double y) { return x + y; });
}
template <class T, class = IfAlgebra<T>>
T operator-=(T a, const T& b) {
  return each(a, b, [](double x, double y) { return x - y; });
}
template <class T, class = IfAlgebra<T>>
T operator*=(T a, double factor) {
  reference::multiply_all(a.v, T::kCount, factor);
  return a;
}
template <class T, class = IfAlgebra<T>>
T operator/=(T a, double divisor) {
  reference::divide_all(a.v, T::kCount, divisor);
  return a;
}
inline covar operator+=(covar v, const matr3_3& m) {
  reference::covar_plus_matrix(v.v, m.v);
  return v;
}
inline covar operator-=(covar v, const matr3_3& m) {
  reference::covar_minus_matrix(v.v, m.v);
  return v;
}
inline matr3_3 operator*(const matr3_3& a, const matr3_3& b) {
  matr3_3 product;
  reference::matrix_times_matrix(a.v, b.v, product.v);
  return product;
}
inline triad operator*(const matr3_3& m, const triad& x) {
  triad y;
  reference::matrix_times_vector(m.v, x.v, y.v);
  return y;
}
inline covar operator&(const matr3_3& m, const covar& v) {
  covar propagated;
  reference::propagate(m.v, v.v, propagated.v);
  return propagated;
}
inline int InvertSMatr3(covar& v) { return reference::invert_covar(v.v); }

#endif
