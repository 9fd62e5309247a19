#ifndef ALIDADE_TESTS_GOLDEN_LITERAL_POINTS_H
#define ALIDADE_TESTS_GOLDEN_LITERAL_POINTS_H

#include "golden/literal/elements.h"
#include "reference/points.h"
#include "reference/rectangles.h"

struct CPoint {
  CPoint(int px, int py) : x(px), y(py) {}
  int x, y;
};

struct CRect {
  CRect(int left, int top, int right, int bottom) : v{left, top, right, bottom} {}
  int v[4];
};

inline std::array<int*, 2> fields(CPoint& p) { return {&p.x, &p.y}; }
inline std::array<int*, 4> fields(CRect& r) { return {&r.v[0], &r.v[1], &r.v[2], &r.v[3]}; }

template <class T, int N>
struct TAbstractPoint : Elements<N> {
  using Elements<N>::v;
  TAbstractPoint() = default;
  explicit TAbstractPoint(double value) {
    for (double& component : v) {
      component = value;
    }
  }

  TAbstractPoint operator+(const TAbstractPoint& o) const { return combined(reference::point_add, o); }
  TAbstractPoint operator-(const TAbstractPoint& o) const { return combined(reference::point_subtract, o); }
  TAbstractPoint operator/(const TAbstractPoint& o) const { return combined(reference::point_divide, o); }
  TAbstractPoint operator*=(const TAbstractPoint& o) const { return combined(reference::point_multiply, o); }
  TAbstractPoint maximum(const TAbstractPoint& o) const { return combined(reference::point_maximum, o); }
  TAbstractPoint minimum(const TAbstractPoint& o) const { return combined(reference::point_minimum, o); }
  TAbstractPoint operator+=(const TAbstractPoint& o) const { return *this + o; }
  TAbstractPoint operator-=(const TAbstractPoint& o) const { return *this - o; }
  TAbstractPoint operator/=(const TAbstractPoint& o) const { return *this / o; }

  TAbstractPoint operator*(double s) const { return scaled(reference::point_scale, s); }
  TAbstractPoint operator/(double s) const { return scaled(reference::point_divide_by_scalar, s); }
  TAbstractPoint operator*=(double s) const { return *this * s; }
  TAbstractPoint operator/=(double s) const { return *this / s; }

  TAbstractPoint operator-() const { return mapped(reference::point_negate); }
  TAbstractPoint uminus() const { return -*this; }
  TAbstractPoint abs() const { return mapped(reference::point_abs); }
  TAbstractPoint f(double (*function)(double)) const { return each(*this, function); }

  double operator*(const TAbstractPoint& o) const { return reference::point_dot(N, v, o.v); }
  double ModuleSq() const { return reference::point_square(N, v); }
  double Module() const { return reference::point_length(N, v); }
  double sum() const { return reference::point_sum(N, v); }

  bool operator==(const TAbstractPoint& o) const { return reference::point_equal(N, v, o.v); }
  bool operator!=(const TAbstractPoint& o) const { return !(*this == o); }
  bool operator==(double value) const { return *this == TAbstractPoint(value); }
  bool operator!=(double value) const { return !(*this == value); }

private:
  TAbstractPoint combined(void (*function)(int, const double*, const double*, double*), const TAbstractPoint& o) const {
    TAbstractPoint r;
    function(N, v, o.v, r.v);
    return r;
  }
  TAbstractPoint scaled(void (*function)(int, const double*, double, double*), double s) const {
    TAbstractPoint r;
    function(N, v, s, r.v);
    return r;
  }
  TAbstractPoint mapped(void (*function)(int, const double*, double*)) const {
    TAbstractPoint r;
    function(N, v, r.v);
    return r;
  }
};

template <class T>
struct TAbstractPoint2 : TAbstractPoint<T, 2> {
  TAbstractPoint2() = default;
  TAbstractPoint2(double x, double y) {
    this->v[0] = x;
    this->v[1] = y;
  }
  explicit TAbstractPoint2(CPoint p) : TAbstractPoint2(1.0 * p.x, 1.0 * p.y) {}
  explicit operator CPoint() const { return {reference::to_int(x()), reference::to_int(y())}; }
  double x() const { return this->v[0]; }
  double y() const { return this->v[1]; }
};

template <class T>
struct TAbstractPoint3 : TAbstractPoint<T, 3> {};

template <class T>
struct TAbstractSize2 : TAbstractPoint2<T> {
  using TAbstractPoint2<T>::TAbstractPoint2;
  double cx() const { return this->x(); }
  double cy() const { return this->y(); }
};

template <class T>
struct TAbstractRect : Elements<4> {
  using Point = TAbstractPoint2<T>;
  using Size2 = TAbstractSize2<T>;
  TAbstractRect() = default;
  TAbstractRect(reference::Rectangle r) : Elements<4>{{r.left, r.top, r.right, r.bottom}} {}
  TAbstractRect(Point p, Size2 s)
      : TAbstractRect(reference::rectangle_of_corner_and_size(p.x(), p.y(), s.cx(), s.cy())) {}
  explicit TAbstractRect(CRect r) : Elements<4>{{1.0 * r.v[0], 1.0 * r.v[1], 1.0 * r.v[2], 1.0 * r.v[3]}} {}
  explicit operator CRect() const {
    return {reference::to_int(v[0]), reference::to_int(v[1]), reference::to_int(v[2]), reference::to_int(v[3])};
  }

  double Width() const { return reference::rectangle_width(fields()); }
  double Height() const { return reference::rectangle_height(fields()); }
  Size2 Size() const { return {Width(), Height()}; }
  double Area() const { return reference::rectangle_area(fields()); }
  Point BottomLeft() const { return {v[0], v[3]}; }
  Point TopRight() const { return {v[2], v[1]}; }
  bool IsEmpty() const { return reference::rectangle_is_empty(fields()); }
  bool IsValid(double marker) const { return reference::rectangle_is_valid(fields(), marker); }
  bool Contains(Point p) const { return reference::rectangle_contains_point(fields(), p.x(), p.y()); }
  bool Contains(const TAbstractRect& r) const { return reference::rectangle_contains(fields(), r.fields()); }

  TAbstractRect Offset(double dx, double dy) const { return reference::rectangle_offset(fields(), dx, dy); }
  TAbstractRect MoveTo(double x, double y) const { return reference::rectangle_move(fields(), x, y); }
  TAbstractRect Inflate(double dx, double dy) const { return reference::rectangle_inflate(fields(), dx, dy); }
  TAbstractRect Normalize() const { return reference::rectangle_normalize_in_place(fields()); }
  TAbstractRect Normalized() const { return reference::rectangle_normalized_copy(fields()); }
  TAbstractRect operator&=(const TAbstractRect& o) const {
    return reference::rectangle_intersect(fields(), o.fields());
  }
  TAbstractRect operator|=(const TAbstractRect& o) const { return reference::rectangle_unite(fields(), o.fields()); }

  TAbstractRect Offset(Point d) const { return Offset(d.x(), d.y()); }
  TAbstractRect OffsetBy(double dx, double dy) const { return Offset(dx, dy); }
  TAbstractRect OffsetBy(Point d) const { return Offset(d); }
  TAbstractRect operator+=(Size2 s) const { return Offset(s.cx(), s.cy()); }
  TAbstractRect operator-=(Size2 s) const { return Offset(-s.cx(), -s.cy()); }
  TAbstractRect MoveTo(Point p) const { return MoveTo(p.x(), p.y()); }
  TAbstractRect MovedTo(double x, double y) const { return MoveTo(x, y); }
  TAbstractRect MovedTo(Point p) const { return MoveTo(p); }
  TAbstractRect Inflate(Size2 s) const { return Inflate(s.cx(), s.cy()); }
  TAbstractRect InflatedBy(double dx, double dy) const { return Inflate(dx, dy); }
  TAbstractRect InflatedBy(Size2 s) const { return Inflate(s); }

private:
  reference::Rectangle fields() const { return {v[0], v[1], v[2], v[3]}; }
};

#endif
