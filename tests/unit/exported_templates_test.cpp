// Every member of the templates can be linked by a program that uses the library. Taking an address demands the
// function itself, even where calls are inlined; on Windows this once failed for the members defined in the header.

#include <alidade/points.h>
#include <gtest/gtest.h>

namespace {

template <class... Member>
int count_of(Member... members) {
  // Through a volatile, so that no address is thought away.
  int count = 0;
  const bool present[] = {(members != nullptr)...};
  for (const volatile bool& p : present) {
    count += p ? 1 : 0;
  }
  return count;
}

template <int N>
int members_of_vector() {
  using Vector = TAbstractPoint<double, N>;
  using Result = Vector;
  double (Vector::*const read)(int) const = &Vector::operator[];
  double& (Vector::*const write)(int) = &Vector::operator[];
  Vector& (Vector::*const scale)(double) = &Vector::operator*=;
  Vector& (Vector::*const multiply)(const Vector&) = &Vector::operator*=;
  Vector& (Vector::*const reduce)(double) = &Vector::operator/=;
  Vector& (Vector::*const divide)(const Vector&) = &Vector::operator/=;
  Result (Vector::*const reduced)(double) const = &Vector::operator/;
  Result (Vector::*const divided)(const Vector&) const = &Vector::operator/;
  Result (Vector::*const minus)(const Vector&) const = &Vector::operator-;
  Result (Vector::*const negative)() const = &Vector::operator-;
  Result (Vector::*const scaled)(double) const = &Vector::operator*;
  double (Vector::*const dot)(const Vector&) const = &Vector::operator*;
  bool (Vector::*const equal)(const Vector&) const = &Vector::operator==;
  bool (Vector::*const unequal)(const Vector&) const = &Vector::operator!=;
  bool (Vector::*const equal_to_all)(double) const = &Vector::operator==;
  bool (Vector::*const unequal_to_all)(double) const = &Vector::operator!=;
  return count_of(read, write, scale, multiply, reduce, divide, reduced, divided, minus, negative, scaled, dot, equal,
                  unequal, equal_to_all, unequal_to_all, &Vector::operator+=, &Vector::operator-=, &Vector::operator+,
                  &Vector::uminus, &Vector::ModuleSq, &Vector::Module, &Vector::sum, &Vector::abs, &Vector::maximum,
                  &Vector::minimum, &Vector::f, &Vector::operator const double*, &Vector::operator double*);
}

// The two forms of an accessor.
template <class Class>
int accessor(double (Class::*read)() const, double& (Class::*write)()) {
  return count_of(read, write);
}

TEST(ExportedTemplates, Points) {
  EXPECT_EQ(members_of_vector<2>(), 29);
  EXPECT_EQ(members_of_vector<3>(), 29);

  using P2 = TAbstractPoint2<double>;
  EXPECT_EQ(accessor<P2>(&P2::X, &P2::X) + accessor<P2>(&P2::Y, &P2::Y), 4);
  EXPECT_EQ(accessor<P2>(&P2::x, &P2::x) + accessor<P2>(&P2::y, &P2::y), 4);
  EXPECT_EQ(count_of(&P2::operator CPoint), 1);
  using P3 = TAbstractPoint3<double>;
  EXPECT_EQ(accessor<P3>(&P3::X, &P3::X) + accessor<P3>(&P3::Y, &P3::Y) + accessor<P3>(&P3::Z, &P3::Z), 6);
  EXPECT_EQ(accessor<P3>(&P3::x, &P3::x) + accessor<P3>(&P3::y, &P3::y) + accessor<P3>(&P3::z, &P3::z), 6);
  using S2 = TAbstractSize2<double>;
  EXPECT_EQ(accessor<S2>(&S2::cx, &S2::cx) + accessor<S2>(&S2::cy, &S2::cy), 4);
}

TEST(ExportedTemplates, Rectangles) {
  using R = TAbstractRect<double>;
  using P2 = TAbstractPoint2<double>;
  using S2 = TAbstractSize2<double>;
  EXPECT_EQ(accessor<R>(&R::left, &R::left) + accessor<R>(&R::Left, &R::Left), 4);
  EXPECT_EQ(accessor<R>(&R::top, &R::top) + accessor<R>(&R::Top, &R::Top), 4);
  EXPECT_EQ(accessor<R>(&R::right, &R::right) + accessor<R>(&R::Right, &R::Right), 4);
  EXPECT_EQ(accessor<R>(&R::bottom, &R::bottom) + accessor<R>(&R::Bottom, &R::Bottom), 4);

  bool (R::*const contains_point)(const P2&) const = &R::Contains;
  bool (R::*const contains_rectangle)(const R&) const = &R::Contains;
  R& (R::*const offset)(double, double) = &R::Offset;
  R& (R::*const offset_point)(const P2&) = &R::Offset;
  R (R::*const offset_by)(double, double) const = &R::OffsetBy;
  R (R::*const offset_by_point)(const P2&) const = &R::OffsetBy;
  R& (R::*const move)(double, double) = &R::MoveTo;
  R& (R::*const move_point)(const P2&) = &R::MoveTo;
  R (R::*const moved)(double, double) const = &R::MovedTo;
  R (R::*const moved_point)(const P2&) const = &R::MovedTo;
  R& (R::*const inflate)(double, double) = &R::Inflate;
  R& (R::*const inflate_size)(const S2&) = &R::Inflate;
  R (R::*const inflated)(double, double) const = &R::InflatedBy;
  R (R::*const inflated_size)(const S2&) const = &R::InflatedBy;
  EXPECT_EQ(
      count_of(contains_point, contains_rectangle, offset, offset_point, offset_by, offset_by_point, move, move_point,
               moved, moved_point, inflate, inflate_size, inflated, inflated_size, &R::Width, &R::Height, &R::Size,
               &R::Area, &R::BottomLeft, &R::TopRight, &R::IsEmpty, &R::IsValid, &R::operator+=, &R::operator-=,
               &R::operator&=, &R::operator|=, &R::Normalize, &R::Normalized, &R::operator CRect),
      29);
}

// Constructors have no address; a call through a volatile pointer keeps each from being inlined away.
template <class T, class... Argument>
T construct(Argument... arguments) {
  return T(arguments...);
}

template <class T, class... Argument>
T constructed(Argument... arguments) {
  T (*volatile call)(Argument...) = construct<T, Argument...>;
  return call(arguments...);
}

TEST(ExportedTemplates, Constructors) {
  using V2 = TAbstractPoint<double, 2>;
  using V3 = TAbstractPoint<double, 3>;
  using P2 = TAbstractPoint2<double>;
  using P3 = TAbstractPoint3<double>;
  using S2 = TAbstractSize2<double>;
  using R = TAbstractRect<double>;
  const double values[3] = {1.0, 2.0, 3.0};
  const double* const p = values;
  EXPECT_EQ(constructed<V2>(p)[1], 2.0);
  EXPECT_EQ(constructed<V3>(p)[2], 3.0);
  EXPECT_EQ(constructed<V2>(4.0)[1], 4.0);
  EXPECT_EQ(constructed<V3>(4.0)[2], 4.0);
  EXPECT_EQ(constructed<P2>(p).y(), 2.0);
  EXPECT_EQ(constructed<P3>(p).z(), 3.0);
  EXPECT_EQ(constructed<P2>(4.0).y(), 4.0);
  EXPECT_EQ(constructed<P3>(4.0).z(), 4.0);
  EXPECT_EQ((constructed<P2>(1.0, 2.0).y()), 2.0);
  EXPECT_EQ((constructed<P3>(1.0, 2.0, 3.0).z()), 3.0);
  EXPECT_EQ((constructed<S2>(1.0, 2.0).cy()), 2.0);
  EXPECT_EQ(constructed<P2>(V2(values)).y(), 2.0);
  EXPECT_EQ(constructed<P3>(V3(values)).z(), 3.0);
  EXPECT_EQ(constructed<S2>(V2(values)).cy(), 2.0);
  EXPECT_EQ(constructed<P2>(CPoint(5, 6)).y(), 6.0);
  EXPECT_EQ((constructed<R>(1.0, 2.0, 3.0, 4.0).bottom()), 4.0);
  EXPECT_EQ((constructed<R>(P2(values), P2(7.0)).bottom()), 7.0);
  EXPECT_EQ((constructed<R>(P2(values), S2(7.0, 8.0)).bottom()), 10.0);
  EXPECT_EQ(constructed<R>(CRect(1, 2, 3, 4)).bottom(), 4.0);
}

}  // namespace
