#include <alidade/points.h>

#include "points/guarded_division.h"
#include "points/instantiation.h"
#include "square_root.h"
#include "strict_arithmetic.h"
#include "truncate.h"

// Points and sizes. Every operation on the components goes in index order; a sum starts from the first term, so that a
// sum of negative zeros is a negative zero.

template <class T, int N>
TAbstractPoint<T, N>::TAbstractPoint(const double* p) {
  for (int i = 0; i < N; ++i) {
    c_[i] = p[i];
  }
}

template <class T, int N>
TAbstractPoint<T, N>::TAbstractPoint(double v) {
  for (int i = 0; i < N; ++i) {
    c_[i] = v;
  }
}

template <class T, int N>
TAbstractPoint<T, N>& TAbstractPoint<T, N>::operator+=(const TAbstractPoint& o) {
  for (int i = 0; i < N; ++i) {
    c_[i] = c_[i] + o.c_[i];
  }
  return *this;
}

template <class T, int N>
TAbstractPoint<T, N>& TAbstractPoint<T, N>::operator-=(const TAbstractPoint& o) {
  for (int i = 0; i < N; ++i) {
    c_[i] = c_[i] - o.c_[i];
  }
  return *this;
}

template <class T, int N>
TAbstractPoint<T, N>& TAbstractPoint<T, N>::operator*=(double s) {
  for (int i = 0; i < N; ++i) {
    c_[i] = c_[i] * s;
  }
  return *this;
}

template <class T, int N>
TAbstractPoint<T, N>& TAbstractPoint<T, N>::operator*=(const TAbstractPoint& o) {
  for (int i = 0; i < N; ++i) {
    c_[i] = c_[i] * o.c_[i];
  }
  return *this;
}

// One division and N products: not the bits of N divisions.
template <class T, int N>
TAbstractPoint<T, N>& TAbstractPoint<T, N>::operator/=(double s) {
  const double reciprocal = 1.0 / s;
  return *this *= reciprocal;
}

template <class T, int N>
TAbstractPoint<T, N>& TAbstractPoint<T, N>::operator/=(const TAbstractPoint& o) {
  for (int i = 0; i < N; ++i) {
    c_[i] = alidade::guarded_quotient(c_[i], o.c_[i]);
  }
  return *this;
}

template <class T, int N>
TAbstractPoint<T, N> TAbstractPoint<T, N>::operator/(double s) const {
  TAbstractPoint r(*this);
  r /= s;
  return r;
}

template <class T, int N>
TAbstractPoint<T, N> TAbstractPoint<T, N>::operator/(const TAbstractPoint& o) const {
  TAbstractPoint r(*this);
  r /= o;
  return r;
}

template <class T, int N>
TAbstractPoint<T, N> TAbstractPoint<T, N>::operator+(const TAbstractPoint& o) const {
  TAbstractPoint r(*this);
  r += o;
  return r;
}

template <class T, int N>
TAbstractPoint<T, N> TAbstractPoint<T, N>::operator-(const TAbstractPoint& o) const {
  TAbstractPoint r(*this);
  r -= o;
  return r;
}

template <class T, int N>
TAbstractPoint<T, N> TAbstractPoint<T, N>::operator*(double s) const {
  TAbstractPoint r(*this);
  r *= s;
  return r;
}

template <class T, int N>
TAbstractPoint<T, N> TAbstractPoint<T, N>::operator-() const {
  TAbstractPoint r(*this);
  r.uminus();
  return r;
}

template <class T, int N>
TAbstractPoint<T, N>& TAbstractPoint<T, N>::uminus() {
  for (int i = 0; i < N; ++i) {
    c_[i] = -c_[i];
  }
  return *this;
}

template <class T, int N>
double TAbstractPoint<T, N>::operator*(const TAbstractPoint& o) const {
  double dot = c_[0] * o.c_[0];
  for (int i = 1; i < N; ++i) {
    dot = dot + c_[i] * o.c_[i];
  }
  return dot;
}

template <class T, int N>
double TAbstractPoint<T, N>::ModuleSq() const {
  return *this * *this;
}

template <class T, int N>
double TAbstractPoint<T, N>::Module() const {
  return alidade::square_root(ModuleSq());
}

template <class T, int N>
double TAbstractPoint<T, N>::sum() const {
  double total = c_[0];
  for (int i = 1; i < N; ++i) {
    total = total + c_[i];
  }
  return total;
}

// Not fabs: what is not greater than zero is negated, so 0.0 becomes -0.0 and a NaN changes its sign.
template <class T, int N>
TAbstractPoint<T, N> TAbstractPoint<T, N>::abs() const {
  TAbstractPoint r;
  for (int i = 0; i < N; ++i) {
    r.c_[i] = c_[i] > 0.0 ? c_[i] : -c_[i];
  }
  return r;
}

template <class T, int N>
TAbstractPoint<T, N> TAbstractPoint<T, N>::maximum(const TAbstractPoint& o) const {
  TAbstractPoint r;
  for (int i = 0; i < N; ++i) {
    r.c_[i] = c_[i] > o.c_[i] ? c_[i] : o.c_[i];
  }
  return r;
}

template <class T, int N>
TAbstractPoint<T, N> TAbstractPoint<T, N>::minimum(const TAbstractPoint& o) const {
  TAbstractPoint r;
  for (int i = 0; i < N; ++i) {
    r.c_[i] = c_[i] > o.c_[i] ? o.c_[i] : c_[i];
  }
  return r;
}

template <class T, int N>
TAbstractPoint<T, N> TAbstractPoint<T, N>::f(double (*fn)(double)) const {
  TAbstractPoint r;
  for (int i = 0; i < N; ++i) {
    r.c_[i] = fn(c_[i]);
  }
  return r;
}

template <class T, int N>
bool TAbstractPoint<T, N>::operator==(const TAbstractPoint& o) const {
  for (int i = 0; i < N; ++i) {
    if (!(c_[i] == o.c_[i])) {
      return false;
    }
  }
  return true;
}

template <class T, int N>
bool TAbstractPoint<T, N>::operator!=(const TAbstractPoint& o) const {
  return !(*this == o);
}

template <class T, int N>
bool TAbstractPoint<T, N>::operator==(double v) const {
  return *this == TAbstractPoint(v);
}

template <class T, int N>
bool TAbstractPoint<T, N>::operator!=(double v) const {
  return !(*this == TAbstractPoint(v));
}

template <class T>
TAbstractPoint2<T>::TAbstractPoint2(const CPoint& p) {
  X() = p.x;
  Y() = p.y;
}

template <class T>
TAbstractPoint2<T>::operator CPoint() const {
  return CPoint(alidade::truncate_to_int(x()), alidade::truncate_to_int(y()));
}

ALIDADE_INSTANTIATION TAbstractPoint<double, 2>;
ALIDADE_INSTANTIATION TAbstractPoint<double, 3>;
ALIDADE_INSTANTIATION TAbstractPoint2<double>;
ALIDADE_INSTANTIATION TAbstractPoint3<double>;
ALIDADE_INSTANTIATION TAbstractSize2<double>;
