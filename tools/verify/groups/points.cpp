#include <alidade/points.h>

#include "verify/groups/groups.h"

namespace verify {
namespace {

using golden::Arguments;
using golden::Tokens;
using Point2 = TAbstractPoint2<double>;
using Size2 = TAbstractSize2<double>;
using Rect = TAbstractRect<double>;

// Every member of the point template for N components. The name is completed with the number of components by the
// lists below.
template <int N>
struct Vector {
  using Type = TAbstractPoint<double, N>;

  static Type read(Arguments& in) {
    double c[N];
    in.numbers(c, N);
    return Type(c);
  }

  static void write(Tokens& out, const Type& p) {
    for (int i = 0; i < N; ++i) {
      out.number(p[i]);
    }
  }

  static void add(Arguments& in, Tokens& out) {
    const Type a = read(in);
    const Type b = read(in);
    write(out, a + b);
    Type c = a;
    write(out, c += b);
  }

  static void subtract(Arguments& in, Tokens& out) {
    const Type a = read(in);
    const Type b = read(in);
    write(out, a - b);
    Type c = a;
    write(out, c -= b);
  }

  static void scale(Arguments& in, Tokens& out) {
    const Type a = read(in);
    const double s = in.number();
    write(out, a * s);
    Type c = a;
    write(out, c *= s);
  }

  static void multiply(Arguments& in, Tokens& out) {
    Type a = read(in);
    const Type b = read(in);
    write(out, a *= b);
  }

  static void divide_by_scalar(Arguments& in, Tokens& out) {
    const Type a = read(in);
    const double s = in.number();
    write(out, a / s);
    Type c = a;
    write(out, c /= s);
  }

  static void divide(Arguments& in, Tokens& out) {
    const Type a = read(in);
    const Type b = read(in);
    write(out, a / b);
    Type c = a;
    write(out, c /= b);
  }

  static void negate(Arguments& in, Tokens& out) {
    const Type a = read(in);
    write(out, -a);
    Type c = a;
    write(out, c.uminus());
  }

  static void dot(Arguments& in, Tokens& out) {
    const Type a = read(in);
    const Type b = read(in);
    out.number(a * b);
  }

  static void reductions(Arguments& in, Tokens& out) {
    const Type a = read(in);
    out.number(a.ModuleSq()).number(a.Module()).number(a.sum());
  }

  static void absolute(Arguments& in, Tokens& out) { write(out, read(in).abs()); }

  static void extremes(Arguments& in, Tokens& out) {
    const Type a = read(in);
    const Type b = read(in);
    write(out, a.maximum(b));
    write(out, a.minimum(b));
  }

  static double twice(double v) { return v + v; }

  static void apply(Arguments& in, Tokens& out) { write(out, read(in).f(twice)); }

  static void compare(Arguments& in, Tokens& out) {
    const Type a = read(in);
    const Type b = read(in);
    out.integer(a == b).integer(a != b);
  }

  static void compare_with_scalar(Arguments& in, Tokens& out) {
    const Type a = read(in);
    const double v = in.number();
    out.integer(a == v).integer(a != v);
  }

  static void fill(Arguments& in, Tokens& out) { write(out, Type(in.number())); }
};

Point2 read_point(Arguments& in) { return Point2(Vector<2>::read(in)); }
Size2 read_size(Arguments& in) { return Size2(Vector<2>::read(in)); }

Rect read_rect(Arguments& in) {
  double v[4];
  in.numbers(v, 4);
  return Rect(v[0], v[1], v[2], v[3]);
}

void write(Tokens& out, const Rect& r) { out.number(r.left()).number(r.top()).number(r.right()).number(r.bottom()); }

void write(Tokens& out, const CRect& r) { out.integer(r.left).integer(r.top).integer(r.right).integer(r.bottom); }

}  // namespace

golden::Group points() {
  return {"points",
          "fixed-size point vectors of two and three components",
          {
              {"Point2+Point2", Vector<2>::add},
              {"Point3+Point3", Vector<3>::add},
              {"Point2-Point2", Vector<2>::subtract},
              {"Point3-Point3", Vector<3>::subtract},
              {"Point2*s", Vector<2>::scale},
              {"Point3*s", Vector<3>::scale},
              {"Point2*=Point2", Vector<2>::multiply},
              {"Point3*=Point3", Vector<3>::multiply},
              {"Point2/s", Vector<2>::divide_by_scalar},
              {"Point3/s", Vector<3>::divide_by_scalar},
              {"Point2/Point2", Vector<2>::divide},
              {"Point3/Point3", Vector<3>::divide},
              {"-Point2", Vector<2>::negate},
              {"-Point3", Vector<3>::negate},
              {"Point2*Point2", Vector<2>::dot},
              {"Point3*Point3", Vector<3>::dot},
              {"Point2::Module", Vector<2>::reductions},
              {"Point3::Module", Vector<3>::reductions},
              {"Point2::abs", Vector<2>::absolute},
              {"Point3::abs", Vector<3>::absolute},
              {"Point2::maximum", Vector<2>::extremes},
              {"Point3::maximum", Vector<3>::extremes},
              {"Point2::f(twice)", Vector<2>::apply},
              {"Point3::f(twice)", Vector<3>::apply},
              {"Point2==Point2", Vector<2>::compare},
              {"Point3==Point3", Vector<3>::compare},
              {"Point2==v", Vector<2>::compare_with_scalar},
              {"Point3==v", Vector<3>::compare_with_scalar},
              {"Point2(v)", Vector<2>::fill},
              {"Point3(v)", Vector<3>::fill},
              {"Point2(CPoint)",
               [](Arguments& in, Tokens& out) {
                 const auto [x, y] = in.integers<2>();
                 Vector<2>::write(out, Point2(CPoint(x, y)));
               }},
              {"CPoint(Point2)",
               [](Arguments& in, Tokens& out) {
                 const CPoint p = read_point(in);
                 out.integer(p.x).integer(p.y);
               }},
          }};
}

golden::Group rectangles() {
  return {"rectangles",
          "axis-aligned rectangles",
          {
              {"Rect(Point2,Size2)",
               [](Arguments& in, Tokens& out) {
                 const Point2 p = read_point(in);
                 const Size2 s = read_size(in);
                 write(out, Rect(p, s));
               }},
              {"Rect(CRect)",
               [](Arguments& in, Tokens& out) {
                 const auto [left, top, right, bottom] = in.integers<4>();
                 write(out, Rect(CRect(left, top, right, bottom)));
               }},
              {"CRect(Rect)", [](Arguments& in, Tokens& out) { write(out, static_cast<CRect>(read_rect(in))); }},
              {"Rect::Size",
               [](Arguments& in, Tokens& out) {
                 const Rect r = read_rect(in);
                 out.number(r.Width()).number(r.Height());
                 Vector<2>::write(out, r.Size());
                 out.number(r.Area());
               }},
              {"Rect::BottomLeft",
               [](Arguments& in, Tokens& out) {
                 const Rect r = read_rect(in);
                 Vector<2>::write(out, r.BottomLeft());
                 Vector<2>::write(out, r.TopRight());
               }},
              {"Rect::IsEmpty", [](Arguments& in, Tokens& out) { out.integer(read_rect(in).IsEmpty()); }},
              {"Rect::IsValid",
               [](Arguments& in, Tokens& out) {
                 const Rect r = read_rect(in);
                 out.integer(r.IsValid(in.number()));
               }},
              {"Rect::Contains(Point2)",
               [](Arguments& in, Tokens& out) {
                 const Rect r = read_rect(in);
                 out.integer(r.Contains(read_point(in)));
               }},
              {"Rect::Contains(Rect)",
               [](Arguments& in, Tokens& out) {
                 const Rect r = read_rect(in);
                 out.integer(r.Contains(read_rect(in)));
               }},
              {"Rect::Offset",
               [](Arguments& in, Tokens& out) {
                 const Rect r = read_rect(in);
                 const Point2 d = read_point(in);
                 Rect a = r;
                 write(out, a.Offset(d.x(), d.y()));
                 Rect b = r;
                 write(out, b.Offset(d));
                 write(out, r.OffsetBy(d.x(), d.y()));
                 write(out, r.OffsetBy(d));
               }},
              {"Rect+=Size2",
               [](Arguments& in, Tokens& out) {
                 Rect r = read_rect(in);
                 write(out, r += read_size(in));
               }},
              {"Rect-=Size2",
               [](Arguments& in, Tokens& out) {
                 Rect r = read_rect(in);
                 write(out, r -= read_size(in));
               }},
              {"Rect::MoveTo",
               [](Arguments& in, Tokens& out) {
                 const Rect r = read_rect(in);
                 const Point2 p = read_point(in);
                 Rect a = r;
                 write(out, a.MoveTo(p.x(), p.y()));
                 Rect b = r;
                 write(out, b.MoveTo(p));
                 write(out, r.MovedTo(p.x(), p.y()));
                 write(out, r.MovedTo(p));
               }},
              {"Rect::Inflate",
               [](Arguments& in, Tokens& out) {
                 const Rect r = read_rect(in);
                 const Size2 s = read_size(in);
                 Rect a = r;
                 write(out, a.Inflate(s.cx(), s.cy()));
                 Rect b = r;
                 write(out, b.Inflate(s));
                 write(out, r.InflatedBy(s.cx(), s.cy()));
                 write(out, r.InflatedBy(s));
               }},
              {"Rect::Normalize",
               [](Arguments& in, Tokens& out) {
                 Rect r = read_rect(in);
                 write(out, r.Normalized());
                 write(out, r.Normalize());
               }},
              {"Rect&=Rect",
               [](Arguments& in, Tokens& out) {
                 Rect r = read_rect(in);
                 write(out, r &= read_rect(in));
               }},
              {"Rect|=Rect",
               [](Arguments& in, Tokens& out) {
                 Rect r = read_rect(in);
                 write(out, r |= read_rect(in));
               }},
          }};
}

}  // namespace verify
