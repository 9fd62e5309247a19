#include <alidade/points.h>

#include "points/instantiation.h"
#include "strict_arithmetic.h"
#include "truncate.h"

template <class T>
TAbstractRect<T>::TAbstractRect(const TAbstractPoint2<T>& p, const TAbstractSize2<T>& s)
    : left_(p.x()), top_(p.y()), right_(p.x() + s.cx()), bottom_(p.y() + s.cy()) {}

template <class T>
TAbstractRect<T>::TAbstractRect(const CRect& r) : left_(r.left), top_(r.top), right_(r.right), bottom_(r.bottom) {}

template <class T>
TAbstractRect<T>::operator CRect() const {
  return CRect(alidade::truncate_to_int(left_), alidade::truncate_to_int(top_), alidade::truncate_to_int(right_),
               alidade::truncate_to_int(bottom_));
}

template <class T>
double TAbstractRect<T>::Width() const {
  return right_ - left_;
}

template <class T>
double TAbstractRect<T>::Height() const {
  return bottom_ - top_;
}

template <class T>
TAbstractSize2<T> TAbstractRect<T>::Size() const {
  return TAbstractSize2<T>(right_ - left_, bottom_ - top_);
}

template <class T>
double TAbstractRect<T>::Area() const {
  const TAbstractSize2<T> size = Size();
  return size.cy() * size.cx();
}

template <class T>
TAbstractPoint2<T> TAbstractRect<T>::BottomLeft() const {
  return TAbstractPoint2<T>(left_, bottom_);
}

template <class T>
TAbstractPoint2<T> TAbstractRect<T>::TopRight() const {
  return TAbstractPoint2<T>(right_, top_);
}

// Written so that a NaN makes the rectangle empty.
template <class T>
bool TAbstractRect<T>::IsEmpty() const {
  return !(left_ < right_ && top_ < bottom_);
}

template <class T>
bool TAbstractRect<T>::IsValid(double marker) const {
  return left_ != marker && top_ != marker && right_ != marker && bottom_ != marker;
}

template <class T>
bool TAbstractRect<T>::Contains(const TAbstractPoint2<T>& p) const {
  return left_ <= p.x() && right_ >= p.x() && top_ <= p.y() && bottom_ >= p.y();
}

template <class T>
bool TAbstractRect<T>::Contains(const TAbstractRect& r) const {
  return Contains(TAbstractPoint2<T>(r.left_, r.top_)) && Contains(TAbstractPoint2<T>(r.right_, r.bottom_));
}

template <class T>
TAbstractRect<T>& TAbstractRect<T>::Offset(double dx, double dy) {
  left_ = left_ + dx;
  top_ = top_ + dy;
  right_ = right_ + dx;
  bottom_ = bottom_ + dy;
  return *this;
}

template <class T>
TAbstractRect<T>& TAbstractRect<T>::Offset(const TAbstractPoint2<T>& d) {
  return Offset(d.x(), d.y());
}

template <class T>
TAbstractRect<T> TAbstractRect<T>::OffsetBy(double dx, double dy) const {
  TAbstractRect r(*this);
  r.Offset(dx, dy);
  return r;
}

template <class T>
TAbstractRect<T> TAbstractRect<T>::OffsetBy(const TAbstractPoint2<T>& d) const {
  return OffsetBy(d.x(), d.y());
}

template <class T>
TAbstractRect<T>& TAbstractRect<T>::operator+=(const TAbstractSize2<T>& s) {
  return Offset(s.cx(), s.cy());
}

template <class T>
TAbstractRect<T>& TAbstractRect<T>::operator-=(const TAbstractSize2<T>& s) {
  return Offset(-s.cx(), -s.cy());
}

// The far edges follow by the same difference, so width and height are kept up to rounding only.
template <class T>
TAbstractRect<T>& TAbstractRect<T>::MoveTo(double x, double y) {
  return Offset(x - left_, y - top_);
}

template <class T>
TAbstractRect<T>& TAbstractRect<T>::MoveTo(const TAbstractPoint2<T>& p) {
  return MoveTo(p.x(), p.y());
}

template <class T>
TAbstractRect<T> TAbstractRect<T>::MovedTo(double x, double y) const {
  TAbstractRect r(*this);
  r.MoveTo(x, y);
  return r;
}

template <class T>
TAbstractRect<T> TAbstractRect<T>::MovedTo(const TAbstractPoint2<T>& p) const {
  return MovedTo(p.x(), p.y());
}

template <class T>
TAbstractRect<T>& TAbstractRect<T>::Inflate(double dx, double dy) {
  left_ = left_ - dx;
  top_ = top_ - dy;
  right_ = right_ + dx;
  bottom_ = bottom_ + dy;
  return *this;
}

template <class T>
TAbstractRect<T>& TAbstractRect<T>::Inflate(const TAbstractSize2<T>& s) {
  return Inflate(s.cx(), s.cy());
}

template <class T>
TAbstractRect<T> TAbstractRect<T>::InflatedBy(double dx, double dy) const {
  TAbstractRect r(*this);
  r.Inflate(dx, dy);
  return r;
}

template <class T>
TAbstractRect<T> TAbstractRect<T>::InflatedBy(const TAbstractSize2<T>& s) const {
  return InflatedBy(s.cx(), s.cy());
}

template <class T>
TAbstractRect<T>& TAbstractRect<T>::Normalize() {
  if (left_ > right_) {
    swap(left_, right_);
  }
  if (top_ > bottom_) {
    swap(top_, bottom_);
  }
  return *this;
}

// The four comparisons are made one by one: with a NaN, and with zeros of both signs, each edge takes what its own
// comparison says.
template <class T>
TAbstractRect<T> TAbstractRect<T>::Normalized() const {
  return TAbstractRect(right_ < left_ ? right_ : left_, bottom_ < top_ ? bottom_ : top_,
                       left_ < right_ ? right_ : left_, top_ < bottom_ ? bottom_ : top_);
}

template <class T>
TAbstractRect<T>& TAbstractRect<T>::operator&=(const TAbstractRect& o) {
  left_ = o.left_ > left_ ? o.left_ : left_;
  top_ = o.top_ > top_ ? o.top_ : top_;
  right_ = o.right_ < right_ ? o.right_ : right_;
  bottom_ = o.bottom_ < bottom_ ? o.bottom_ : bottom_;
  return *this;
}

template <class T>
TAbstractRect<T>& TAbstractRect<T>::operator|=(const TAbstractRect& o) {
  left_ = o.left_ < left_ ? o.left_ : left_;
  top_ = o.top_ < top_ ? o.top_ : top_;
  right_ = o.right_ > right_ ? o.right_ : right_;
  bottom_ = o.bottom_ > bottom_ ? o.bottom_ : bottom_;
  return *this;
}

template <class T>
void TAbstractRect<T>::swap(double& a, double& b) {
  const double kept = a;
  a = b;
  b = kept;
}

ALIDADE_INSTANTIATION TAbstractRect<double>;
