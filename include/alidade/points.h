#ifndef ALIDADE_POINTS_H
#define ALIDADE_POINTS_H

/// @file
/// Fixed-size vectors, points, sizes and rectangles of double.
///
/// | class | components | accessors |
/// |---|---|---|
/// | `TAbstractPoint<double, 2>`, `TAbstractPoint<double, 3>` | 2 or 3 | `[i]` |
/// | `TAbstractPoint2<double>` | x, y | `x() y()`, `X() Y()` |
/// | `TAbstractPoint3<double>` | x, y, z | `x() y() z()`, `X() Y() Z()` |
/// | `TAbstractSize2<double>` | cx, cy | `cx() cy()` |
/// | `TAbstractRect<double>` | left, top, right, bottom | `left()` ... and `Left()` ... |
///
/// All are plain records, copied by value, of exactly these doubles in this order; arrays of them are arrays of
/// doubles. The element type is always double: the library holds the instantiations named here and no others. Units
/// are the caller's. Nothing is checked, no index and no divisor. Calls on distinct objects may run in parallel.
///
/// **Bits.** Class A (only + - * / sqrt and comparisons, the same bits on every IEEE 754 machine), except `f`, which is
/// as good as the function it is given.
///
/// **What the conversions bring with them.** A point turns into a pointer to its components by itself. Hence
/// `if (p)` compiles and is always true, `p < q` compares addresses, and `p + 1` and `p[1L]` may be ambiguous: write
/// `p + TAbstractPoint2<double>(1.0)` and `p[1]`. A literal 0 is a number and a null pointer: write 0.0.

#include <alidade/export.h>
#include <alidade/host.h>

/// A vector of N doubles, N = 2 or 3. The base of points and sizes; its operators return this base.
template <class T, int N>
class TAbstractPoint {
public:
  /// Leaves the components unset.
  TAbstractPoint() {}

  /// Copies p[0] ... p[N-1].
  TAbstractPoint(const double* p);

  /// Every component is v. Also an implicit conversion: a double stands for such a vector.
  TAbstractPoint(double v);

  TAbstractPoint(const TAbstractPoint& o) = default;
  TAbstractPoint& operator=(const TAbstractPoint& o) = default;

  /// Component i, 0 to N-1.
  T operator[](int i) const { return c_[i]; }
  /// Component i, 0 to N-1.
  T& operator[](int i) { return c_[i]; }

  /// Pointer to component 0; the others follow. Valid as long as the object.
  operator const T*() const { return c_; }
  /// Pointer to component 0; the others follow. Valid as long as the object.
  operator T*() { return c_; }

  /// Adds component by component, in place. The argument of this and of every other operator may be the object itself.
  TAbstractPoint& operator+=(const TAbstractPoint& o);
  /// Subtracts component by component, in place.
  TAbstractPoint& operator-=(const TAbstractPoint& o);
  /// Multiplies every component by s, in place.
  TAbstractPoint& operator*=(double s);
  /// Multiplies component by component, in place. Not the dot product, which is `operator*` of two vectors.
  TAbstractPoint& operator*=(const TAbstractPoint& o);
  /// Multiplies every component by 1/s, in place: one division, N products. Not the bits of N divisions.
  TAbstractPoint& operator/=(double s);

  /// Divides component by component, in place: c[i] / o[i], each quotient by itself.
  ///
  /// Where a quotient is a division by zero or an invalid operation (0/0, inf/inf, a signalling NaN) and the calling
  /// thread traps that exception, the component becomes 0.0 and no trap is taken; the next components are still
  /// divided. With the exceptions masked, the usual setting, the infinity or NaN stands. The exception flags, the trap
  /// mask, the rounding mode and the signal handlers are afterwards as before, in every case: nothing tells that a
  /// component was guarded but its value. Traps are recognised on x86 and, under glibc, on every processor that has
  /// them.
  TAbstractPoint& operator/=(const TAbstractPoint& o);

  /// Every component times 1/s: one division, N products. A zero s gives infinities and NaN (IEEE 754, not guarded).
  TAbstractPoint operator/(double s) const;
  /// Component-wise quotient with the guard described at `operator/=`.
  TAbstractPoint operator/(const TAbstractPoint& o) const;
  /// Component-wise sum.
  TAbstractPoint operator+(const TAbstractPoint& o) const;
  /// Component-wise difference.
  TAbstractPoint operator-(const TAbstractPoint& o) const;
  /// Every component times s. There is no `s * p`.
  TAbstractPoint operator*(double s) const;
  /// Every component negated, zeros and NaN included.
  TAbstractPoint operator-() const;
  /// Negates every component in place.
  TAbstractPoint& uminus();

  /// Dot product, summed in index order: (c0*o0 + c1*o1) + c2*o2.
  double operator*(const TAbstractPoint& o) const;
  /// Sum of the squares, in index order.
  double ModuleSq() const;
  /// Length: the square root of ModuleSq(). Not scaled: overflows to infinity from lengths of about 1.3e154 on and
  /// underflows to zero below about 1.5e-162.
  double Module() const;
  /// Sum of the components, in index order: (c0 + c1) + c2.
  double sum() const;

  /// Every component that is not greater than zero, negated.
  ///
  /// Almost the absolute values: -0.0 becomes 0.0, but 0.0 becomes -0.0 and a NaN changes its sign. Deliberate.
  TAbstractPoint abs() const;

  /// The larger of each pair of components: c[i] if c[i] > o[i], else o[i]. Ties and NaN take o's value.
  TAbstractPoint maximum(const TAbstractPoint& o) const;
  /// The smaller of each pair of components: o[i] if c[i] > o[i], else c[i]. Ties and NaN keep this vector's value.
  TAbstractPoint minimum(const TAbstractPoint& o) const;

  /// fn of every component, called once for each in index order.
  TAbstractPoint f(double (*fn)(double)) const;

  /// Exactly equal, component by component; there is no tolerance. 0.0 equals -0.0; a NaN is unequal to everything, so
  /// that a vector that holds one is unequal to itself.
  bool operator==(const TAbstractPoint& o) const;
  /// The negation of ==.
  bool operator!=(const TAbstractPoint& o) const;
  /// Every component equals v.
  bool operator==(double v) const;
  /// Some component differs from v.
  bool operator!=(double v) const;

private:
  T c_[N];
};

/// A point of the plane. Adds names for the components and the exchange with the host's integer point.
template <class T>
class TAbstractPoint2 : public TAbstractPoint<T, 2> {
public:
  /// Leaves the components unset.
  TAbstractPoint2() {}
  /// Copies p[0], p[1].
  TAbstractPoint2(const double* p) : TAbstractPoint<T, 2>(p) {}
  /// (v, v).
  TAbstractPoint2(double v) : TAbstractPoint<T, 2>(v) {}
  /// (x, y).
  TAbstractPoint2(double x, double y) {
    (*this)[0] = x;
    (*this)[1] = y;
  }
  /// From the result of an operator of the base.
  TAbstractPoint2(const TAbstractPoint<T, 2>& o) : TAbstractPoint<T, 2>(o) {}
  TAbstractPoint2(const TAbstractPoint2& o) = default;
  TAbstractPoint2& operator=(const TAbstractPoint2& o) = default;

#if !defined(ALIDADE_WITHOUT_HOST_TYPES)
  /// Both ints, exactly.
  TAbstractPoint2(const CPoint& p);

  /// Truncates towards zero, without rounding: 2.9 gives 2, -2.9 gives -2.
  ///
  /// A component outside the range of int, an infinity and a NaN give INT_MIN (-2147483648), on every platform.
  operator CPoint() const;
#endif

  T X() const { return (*this)[0]; }  ///< First component.
  T& X() { return (*this)[0]; }       ///< First component.
  T Y() const { return (*this)[1]; }  ///< Second component.
  T& Y() { return (*this)[1]; }       ///< Second component.
  T x() const { return (*this)[0]; }  ///< First component, the same as X().
  T& x() { return (*this)[0]; }       ///< First component, the same as X().
  T y() const { return (*this)[1]; }  ///< Second component, the same as Y().
  T& y() { return (*this)[1]; }       ///< Second component, the same as Y().
};

/// A point of space. Adds names for the components.
template <class T>
class TAbstractPoint3 : public TAbstractPoint<T, 3> {
public:
  /// Leaves the components unset.
  TAbstractPoint3() {}
  /// Copies p[0], p[1], p[2].
  TAbstractPoint3(const double* p) : TAbstractPoint<T, 3>(p) {}
  /// (v, v, v).
  TAbstractPoint3(double v) : TAbstractPoint<T, 3>(v) {}
  /// (x, y, z).
  TAbstractPoint3(double x, double y, double z) {
    (*this)[0] = x;
    (*this)[1] = y;
    (*this)[2] = z;
  }
  /// From the result of an operator of the base.
  TAbstractPoint3(const TAbstractPoint<T, 3>& o) : TAbstractPoint<T, 3>(o) {}
  TAbstractPoint3(const TAbstractPoint3& o) = default;
  TAbstractPoint3& operator=(const TAbstractPoint3& o) = default;

  T X() const { return (*this)[0]; }  ///< First component.
  T& X() { return (*this)[0]; }       ///< First component.
  T Y() const { return (*this)[1]; }  ///< Second component.
  T& Y() { return (*this)[1]; }       ///< Second component.
  T Z() const { return (*this)[2]; }  ///< Third component.
  T& Z() { return (*this)[2]; }       ///< Third component.
  T x() const { return (*this)[0]; }  ///< First component, the same as X().
  T& x() { return (*this)[0]; }       ///< First component, the same as X().
  T y() const { return (*this)[1]; }  ///< Second component, the same as Y().
  T& y() { return (*this)[1]; }       ///< Second component, the same as Y().
  T z() const { return (*this)[2]; }  ///< Third component, the same as Z().
  T& z() { return (*this)[2]; }       ///< Third component, the same as Z().
};

/// The extent of something in the plane, along x and y.
template <class T>
class TAbstractSize2 : public TAbstractPoint<T, 2> {
public:
  /// Leaves the components unset.
  TAbstractSize2() {}
  /// (cx, cy).
  TAbstractSize2(double cx, double cy) {
    (*this)[0] = cx;
    (*this)[1] = cy;
  }
  /// From a point, or from the result of an operator of the base.
  TAbstractSize2(const TAbstractPoint<T, 2>& o) : TAbstractPoint<T, 2>(o) {}
  TAbstractSize2(const TAbstractSize2& o) = default;
  TAbstractSize2& operator=(const TAbstractSize2& o) = default;

  T cx() const { return (*this)[0]; }  ///< Width.
  T& cx() { return (*this)[0]; }       ///< Width.
  T cy() const { return (*this)[1]; }  ///< Height.
  T& cy() { return (*this)[1]; }       ///< Height.
};

/// A rectangle along the axes: four doubles left, top, right, bottom.
///
/// The y axis grows from top to bottom. A rectangle is normalised when left <= right and top <= bottom; none of the
/// members demands it, and none but Normalize() and Normalized() brings it about. Both spellings of an accessor reach
/// the same field.
template <class T>
class TAbstractRect {
public:
  /// Leaves the fields unset.
  TAbstractRect() {}

  /// Field by field.
  TAbstractRect(double left, double top, double right, double bottom)
      : left_(left), top_(top), right_(right), bottom_(bottom) {}

  /// left and top of a, right and bottom of b, as they are: not normalised.
  TAbstractRect(const TAbstractPoint2<T>& a, const TAbstractPoint2<T>& b)
      : left_(a.x()), top_(a.y()), right_(b.x()), bottom_(b.y()) {}

  /// From p to (p.x + s.cx, p.y + s.cy).
  TAbstractRect(const TAbstractPoint2<T>& p, const TAbstractSize2<T>& s);

  TAbstractRect(const TAbstractRect& o) = default;
  TAbstractRect& operator=(const TAbstractRect& o) = default;

#if !defined(ALIDADE_WITHOUT_HOST_TYPES)
  /// The four ints, exactly.
  TAbstractRect(const CRect& r);

  /// Truncates each field towards zero, without rounding; INT_MIN outside the range of int and for NaN, as in the
  /// conversion of points.
  operator CRect() const;
#endif

  T left() const { return left_; }      ///< Left edge.
  T& left() { return left_; }           ///< Left edge.
  T top() const { return top_; }        ///< Top edge.
  T& top() { return top_; }             ///< Top edge.
  T right() const { return right_; }    ///< Right edge.
  T& right() { return right_; }         ///< Right edge.
  T bottom() const { return bottom_; }  ///< Bottom edge.
  T& bottom() { return bottom_; }       ///< Bottom edge.
  T Left() const { return left_; }      ///< The same as left().
  T& Left() { return left_; }           ///< The same as left().
  T Top() const { return top_; }        ///< The same as top().
  T& Top() { return top_; }             ///< The same as top().
  T Right() const { return right_; }    ///< The same as right().
  T& Right() { return right_; }         ///< The same as right().
  T Bottom() const { return bottom_; }  ///< The same as bottom().
  T& Bottom() { return bottom_; }       ///< The same as bottom().

  /// right - left: negative for an inverted rectangle.
  double Width() const;
  /// bottom - top: negative for an inverted rectangle.
  double Height() const;
  /// (Width(), Height()).
  TAbstractSize2<T> Size() const;
  /// Height() * Width(): positive again when both are inverted.
  double Area() const;
  /// (left, bottom).
  TAbstractPoint2<T> BottomLeft() const;
  /// (right, top).
  TAbstractPoint2<T> TopRight() const;

  /// True unless left < right and top < bottom: a rectangle without width or height is empty, so is an inverted one and
  /// one with a NaN.
  bool IsEmpty() const;

  /// True when no field equals the marker exactly.
  ///
  /// @param marker  the value with which the caller marks an undefined coordinate. A NaN marks nothing, since it equals
  ///                nothing
  bool IsValid(double marker) const;

  /// left <= p.x <= right and top <= p.y <= bottom: all four edges belong to the rectangle. False for every point when
  /// the rectangle is inverted, and for a NaN.
  bool Contains(const TAbstractPoint2<T>& p) const;

  /// Contains both (r.left, r.top) and (r.right, r.bottom). A rectangle contains itself unless it is inverted.
  bool Contains(const TAbstractRect& r) const;

  /// Adds dx to left and right, dy to top and bottom, in place.
  TAbstractRect& Offset(double dx, double dy);
  /// Offset(d.x, d.y).
  TAbstractRect& Offset(const TAbstractPoint2<T>& d);
  /// A copy with Offset(dx, dy).
  TAbstractRect OffsetBy(double dx, double dy) const;
  /// A copy with Offset(d.x, d.y).
  TAbstractRect OffsetBy(const TAbstractPoint2<T>& d) const;
  /// Offset(s.cx, s.cy).
  TAbstractRect& operator+=(const TAbstractSize2<T>& s);
  /// Offset(-s.cx, -s.cy).
  TAbstractRect& operator-=(const TAbstractSize2<T>& s);

  /// Offset(x - left, y - top), in place: the corner (left, top) goes to the point, the size stays. Both hold up to
  /// the rounding of the differences.
  TAbstractRect& MoveTo(double x, double y);
  /// MoveTo(p.x, p.y).
  TAbstractRect& MoveTo(const TAbstractPoint2<T>& p);
  /// A copy with MoveTo(x, y).
  TAbstractRect MovedTo(double x, double y) const;
  /// A copy with MoveTo(p.x, p.y).
  TAbstractRect MovedTo(const TAbstractPoint2<T>& p) const;

  /// left -= dx, top -= dy, right += dx, bottom += dy, in place. Negative values shrink.
  TAbstractRect& Inflate(double dx, double dy);
  /// Inflate(s.cx, s.cy).
  TAbstractRect& Inflate(const TAbstractSize2<T>& s);
  /// A copy with Inflate(dx, dy).
  TAbstractRect InflatedBy(double dx, double dy) const;
  /// A copy with Inflate(s.cx, s.cy).
  TAbstractRect InflatedBy(const TAbstractSize2<T>& s) const;

  /// Exchanges left and right if left > right, then top and bottom if top > bottom, in place.
  TAbstractRect& Normalize();

  /// A normalised copy, each edge decided by its own comparison: left' = right < left ? right : left,
  /// right' = left < right ? right : left, and top' and bottom' likewise.
  ///
  /// Equal to Normalize() but for a NaN and for zeros of both signs: where the two edges do not compare, left' and
  /// right' are both left, and one of the two values is lost. Deliberate.
  TAbstractRect Normalized() const;

  /// Intersection, in place: the larger left and top, the smaller right and bottom.
  ///
  /// The argument's value is taken only where it is strictly beyond this one's; ties, zeros of both signs and NaN keep
  /// this rectangle's value. Rectangles that do not meet give an inverted one, which IsEmpty() reports; nothing is
  /// clamped.
  TAbstractRect& operator&=(const TAbstractRect& o);

  /// Union, in place: the smaller left and top, the larger right and bottom, with the tie rule of `operator&=`.
  ///
  /// Empty and inverted rectangles are not skipped (deliberate): (0, 0, 0, 0) |= (5, 5, 6, 6) is (0, 0, 6, 6). Start a
  /// running union with the first rectangle, not with an empty one.
  TAbstractRect& operator|=(const TAbstractRect& o);

private:
  static void swap(double& a, double& b);

  T left_;
  T top_;
  T right_;
  T bottom_;
};

// The library holds the instantiations. MinGW neither exports nor imports the inline members of an instantiated
// template, so a Windows program instantiates those itself and finds the others in the import library. Visual C++
// exports an instantiation where it is defined and rejects the attribute here.
#if defined(ALIDADE_BUILDING) ? !defined(_MSC_VER) : !defined(__MINGW32__)
extern template class ALIDADE_API TAbstractPoint<double, 2>;
extern template class ALIDADE_API TAbstractPoint<double, 3>;
extern template class ALIDADE_API TAbstractPoint2<double>;
extern template class ALIDADE_API TAbstractPoint3<double>;
extern template class ALIDADE_API TAbstractSize2<double>;
extern template class ALIDADE_API TAbstractRect<double>;
#endif

#endif
