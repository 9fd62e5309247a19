#ifndef ALIDADE_POINTS_H
#define ALIDADE_POINTS_H

/// @file
/// Fixed-size point vectors, sizes and rectangles of double.

#include <alidade/export.h>
#include <alidade/host.h>

template <class T, int N>
class TAbstractPoint {
public:
  TAbstractPoint() {}
  TAbstractPoint(const double* p);
  TAbstractPoint(double v);
  TAbstractPoint(const TAbstractPoint& o) = default;
  TAbstractPoint& operator=(const TAbstractPoint& o) = default;

  T operator[](int i) const { return c_[i]; }
  T& operator[](int i) { return c_[i]; }
  operator const T*() const { return c_; }
  operator T*() { return c_; }

  TAbstractPoint& operator+=(const TAbstractPoint& o);
  TAbstractPoint& operator-=(const TAbstractPoint& o);
  TAbstractPoint& operator*=(double s);
  TAbstractPoint& operator*=(const TAbstractPoint& o);
  TAbstractPoint& operator/=(double s);
  TAbstractPoint& operator/=(const TAbstractPoint& o);
  TAbstractPoint operator/(double s) const;
  TAbstractPoint operator/(const TAbstractPoint& o) const;
  TAbstractPoint operator+(const TAbstractPoint& o) const;
  TAbstractPoint operator-(const TAbstractPoint& o) const;
  TAbstractPoint operator*(double s) const;
  TAbstractPoint operator-() const;
  TAbstractPoint& uminus();
  double operator*(const TAbstractPoint& o) const;
  double ModuleSq() const;
  double Module() const;
  double sum() const;
  TAbstractPoint abs() const;
  TAbstractPoint maximum(const TAbstractPoint& o) const;
  TAbstractPoint minimum(const TAbstractPoint& o) const;
  TAbstractPoint f(double (*fn)(double)) const;
  bool operator==(const TAbstractPoint& o) const;
  bool operator!=(const TAbstractPoint& o) const;
  bool operator==(double v) const;
  bool operator!=(double v) const;

private:
  T c_[N];
};

template <class T>
class TAbstractPoint2 : public TAbstractPoint<T, 2> {
public:
  TAbstractPoint2() {}
  TAbstractPoint2(const double* p) : TAbstractPoint<T, 2>(p) {}
  TAbstractPoint2(double v) : TAbstractPoint<T, 2>(v) {}
  TAbstractPoint2(double x, double y) {
    (*this)[0] = x;
    (*this)[1] = y;
  }
  TAbstractPoint2(const TAbstractPoint<T, 2>& o) : TAbstractPoint<T, 2>(o) {}
  TAbstractPoint2(const TAbstractPoint2& o) = default;
  TAbstractPoint2& operator=(const TAbstractPoint2& o) = default;
  TAbstractPoint2(const CPoint& p);
  operator CPoint() const;

  T X() const { return (*this)[0]; }
  T& X() { return (*this)[0]; }
  T Y() const { return (*this)[1]; }
  T& Y() { return (*this)[1]; }
  T x() const { return (*this)[0]; }
  T& x() { return (*this)[0]; }
  T y() const { return (*this)[1]; }
  T& y() { return (*this)[1]; }
};

template <class T>
class TAbstractPoint3 : public TAbstractPoint<T, 3> {
public:
  TAbstractPoint3() {}
  TAbstractPoint3(const double* p) : TAbstractPoint<T, 3>(p) {}
  TAbstractPoint3(double v) : TAbstractPoint<T, 3>(v) {}
  TAbstractPoint3(double x, double y, double z) {
    (*this)[0] = x;
    (*this)[1] = y;
    (*this)[2] = z;
  }
  TAbstractPoint3(const TAbstractPoint<T, 3>& o) : TAbstractPoint<T, 3>(o) {}
  TAbstractPoint3(const TAbstractPoint3& o) = default;
  TAbstractPoint3& operator=(const TAbstractPoint3& o) = default;

  T X() const { return (*this)[0]; }
  T& X() { return (*this)[0]; }
  T Y() const { return (*this)[1]; }
  T& Y() { return (*this)[1]; }
  T Z() const { return (*this)[2]; }
  T& Z() { return (*this)[2]; }
  T x() const { return (*this)[0]; }
  T& x() { return (*this)[0]; }
  T y() const { return (*this)[1]; }
  T& y() { return (*this)[1]; }
  T z() const { return (*this)[2]; }
  T& z() { return (*this)[2]; }
};

template <class T>
class TAbstractSize2 : public TAbstractPoint<T, 2> {
public:
  TAbstractSize2() {}
  TAbstractSize2(double cx, double cy) {
    (*this)[0] = cx;
    (*this)[1] = cy;
  }
  TAbstractSize2(const TAbstractPoint<T, 2>& o) : TAbstractPoint<T, 2>(o) {}
  TAbstractSize2(const TAbstractSize2& o) = default;
  TAbstractSize2& operator=(const TAbstractSize2& o) = default;

  T cx() const { return (*this)[0]; }
  T& cx() { return (*this)[0]; }
  T cy() const { return (*this)[1]; }
  T& cy() { return (*this)[1]; }
};

template <class T>
class TAbstractRect {
public:
  TAbstractRect() {}
  TAbstractRect(double left, double top, double right, double bottom)
      : left_(left), top_(top), right_(right), bottom_(bottom) {}
  TAbstractRect(const TAbstractPoint2<T>& a, const TAbstractPoint2<T>& b)
      : left_(a.x()), top_(a.y()), right_(b.x()), bottom_(b.y()) {}
  TAbstractRect(const TAbstractPoint2<T>& p, const TAbstractSize2<T>& s);
  TAbstractRect(const CRect& r);
  TAbstractRect(const TAbstractRect& o) = default;
  TAbstractRect& operator=(const TAbstractRect& o) = default;
  operator CRect() const;

  T left() const { return left_; }
  T& left() { return left_; }
  T top() const { return top_; }
  T& top() { return top_; }
  T right() const { return right_; }
  T& right() { return right_; }
  T bottom() const { return bottom_; }
  T& bottom() { return bottom_; }
  T Left() const { return left_; }
  T& Left() { return left_; }
  T Top() const { return top_; }
  T& Top() { return top_; }
  T Right() const { return right_; }
  T& Right() { return right_; }
  T Bottom() const { return bottom_; }
  T& Bottom() { return bottom_; }

  double Width() const;
  double Height() const;
  TAbstractSize2<T> Size() const;
  double Area() const;
  TAbstractPoint2<T> BottomLeft() const;
  TAbstractPoint2<T> TopRight() const;
  bool IsEmpty() const;
  bool IsValid(double marker) const;
  bool Contains(const TAbstractPoint2<T>& p) const;
  bool Contains(const TAbstractRect& r) const;

  TAbstractRect& Offset(double dx, double dy);
  TAbstractRect& Offset(const TAbstractPoint2<T>& d);
  TAbstractRect OffsetBy(double dx, double dy) const;
  TAbstractRect OffsetBy(const TAbstractPoint2<T>& d) const;
  TAbstractRect& operator+=(const TAbstractSize2<T>& s);
  TAbstractRect& operator-=(const TAbstractSize2<T>& s);
  TAbstractRect& MoveTo(double x, double y);
  TAbstractRect& MoveTo(const TAbstractPoint2<T>& p);
  TAbstractRect MovedTo(double x, double y) const;
  TAbstractRect MovedTo(const TAbstractPoint2<T>& p) const;
  TAbstractRect& Inflate(double dx, double dy);
  TAbstractRect& Inflate(const TAbstractSize2<T>& s);
  TAbstractRect InflatedBy(double dx, double dy) const;
  TAbstractRect InflatedBy(const TAbstractSize2<T>& s) const;
  TAbstractRect& Normalize();
  TAbstractRect Normalized() const;
  TAbstractRect& operator&=(const TAbstractRect& o);
  TAbstractRect& operator|=(const TAbstractRect& o);

private:
  static void swap(double& a, double& b);

  T left_;
  T top_;
  T right_;
  T bottom_;
};

// The library holds the instantiations. MinGW neither exports nor imports the inline members of an instantiated
// template, so a Windows program instantiates those itself and finds the others in the import library.
#if !defined(__MINGW32__) || defined(ALIDADE_BUILDING)
extern template class ALIDADE_API TAbstractPoint<double, 2>;
extern template class ALIDADE_API TAbstractPoint<double, 3>;
extern template class ALIDADE_API TAbstractPoint2<double>;
extern template class ALIDADE_API TAbstractPoint3<double>;
extern template class ALIDADE_API TAbstractSize2<double>;
extern template class ALIDADE_API TAbstractRect<double>;
#endif

#endif
