#include "reference/points.h"

#include <limits>

#include "generate/requests.h"
#include "reference/rectangles.h"

namespace generate {
namespace {

using golden::Arguments;
using golden::Tokens;
using reference::Rectangle;

// The functions of the point template for N components.
template <int N>
struct Vector {
  using TwoToOne = void (*)(int, const double*, const double*, double*);

  struct Components {
    double v[N];
    Components() = default;
    explicit Components(Arguments& in) { in.numbers(v, N); }
  };

  static void write(Tokens& out, const Components& c) { out.numbers(c.v, N); }

  // The operator and its assigning form give the same.
  template <TwoToOne function, int spellings>
  static void combine(Arguments& in, Tokens& out) {
    const Components a(in);
    const Components b(in);
    Components r;
    function(N, a.v, b.v, r.v);
    for (int i = 0; i < spellings; ++i) {
      write(out, r);
    }
  }

  static void scale(Arguments& in, Tokens& out) {
    const Components a(in);
    Components r;
    reference::point_scale(N, a.v, in.number(), r.v);
    write(out, r);
    write(out, r);
  }

  static void divide_by_scalar(Arguments& in, Tokens& out) {
    const Components a(in);
    Components r;
    reference::point_divide_by_scalar(N, a.v, in.number(), r.v);
    write(out, r);
    write(out, r);
  }

  static void negate(Arguments& in, Tokens& out) {
    const Components a(in);
    Components r;
    reference::point_negate(N, a.v, r.v);
    write(out, r);
    write(out, r);
  }

  static void dot(Arguments& in, Tokens& out) {
    const Components a(in);
    const Components b(in);
    out.number(reference::point_dot(N, a.v, b.v));
  }

  static void reductions(Arguments& in, Tokens& out) {
    const Components a(in);
    out.number(reference::point_square(N, a.v)).number(reference::point_length(N, a.v));
    out.number(reference::point_sum(N, a.v));
  }

  static void absolute(Arguments& in, Tokens& out) {
    const Components a(in);
    Components r;
    reference::point_abs(N, a.v, r.v);
    write(out, r);
  }

  static void extremes(Arguments& in, Tokens& out) {
    const Components a(in);
    const Components b(in);
    Components r;
    reference::point_maximum(N, a.v, b.v, r.v);
    write(out, r);
    reference::point_minimum(N, a.v, b.v, r.v);
    write(out, r);
  }

  static void apply_twice(Arguments& in, Tokens& out) {
    Components a(in);
    for (double& v : a.v) {
      v = v + v;
    }
    write(out, a);
  }

  static void compare(Arguments& in, Tokens& out) {
    const Components a(in);
    const Components b(in);
    const bool equal = reference::point_equal(N, a.v, b.v);
    out.integer(equal).integer(!equal);
  }

  static Components filled(double v) {
    Components c;
    for (double& component : c.v) {
      component = v;
    }
    return c;
  }

  static void compare_with_scalar(Arguments& in, Tokens& out) {
    const Components a(in);
    const Components b = filled(in.number());
    const bool equal = reference::point_equal(N, a.v, b.v);
    out.integer(equal).integer(!equal);
  }

  static void fill(Arguments& in, Tokens& out) { write(out, filled(in.number())); }
};

using V2 = Vector<2>;
using V3 = Vector<3>;

Rectangle read_rect(Arguments& in) {
  double v[4];
  in.numbers(v, 4);
  return {v[0], v[1], v[2], v[3]};
}

void write(Tokens& out, const Rectangle& r) { out.number(r.left).number(r.top).number(r.right).number(r.bottom); }

// In place and copying form, each with numbers and with a record.
void write_four_times(Tokens& out, const Rectangle& r) {
  for (int i = 0; i < 4; ++i) {
    write(out, r);
  }
}

// Zeros of both signs, one and NaN: every tie and every comparison that a NaN decides.
Tokens ties(Requests& r, int n) {
  constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
  const double kValues[] = {0.0, -0.0, 0.0, -0.0, 1.0, kNan};
  Tokens t;
  for (int k = 0; k < n; ++k) {
    t.number(kValues[r.below(6)]);
  }
  return t;
}

// Pairs of equal and nearly equal components for the comparisons.
void add_comparisons(Requests& r, const std::string& function, int n, bool with_scalar) {
  for (int i = 0; i < 60; ++i) {
    Tokens a;
    Tokens b;
    for (int k = 0; k < n; ++k) {
      const double v = with_scalar ? 1.0 : r.number(i % 2 == 0 ? "whole" : "nasty");
      const int change = r.below(4 * n);
      a.number(v);
      b.number(change == 0 ? -v : change == 1 ? v + 1.0 : v);
    }
    if (with_scalar) {
      b.number(1.0);
      r.add('A', function, b);
    } else {
      r.add('A', function, a.append(b));
    }
  }
}

}  // namespace

Source points() {
  Source s = {{"points",
               "fixed-size point vectors of two and three components",
               {
                   {"Point2+Point2", V2::combine<reference::point_add, 2>},
                   {"Point3+Point3", V3::combine<reference::point_add, 2>},
                   {"Point2-Point2", V2::combine<reference::point_subtract, 2>},
                   {"Point3-Point3", V3::combine<reference::point_subtract, 2>},
                   {"Point2*=Point2", V2::combine<reference::point_multiply, 1>},
                   {"Point3*=Point3", V3::combine<reference::point_multiply, 1>},
                   {"Point2/Point2", V2::combine<reference::point_divide, 2>},
                   {"Point3/Point3", V3::combine<reference::point_divide, 2>},
                   {"Point2*s", V2::scale},
                   {"Point3*s", V3::scale},
                   {"Point2/s", V2::divide_by_scalar},
                   {"Point3/s", V3::divide_by_scalar},
                   {"-Point2", V2::negate},
                   {"-Point3", V3::negate},
                   {"Point2*Point2", V2::dot},
                   {"Point3*Point3", V3::dot},
                   {"Point2::Module", V2::reductions},
                   {"Point3::Module", V3::reductions},
                   {"Point2::abs", V2::absolute},
                   {"Point3::abs", V3::absolute},
                   {"Point2::maximum", V2::extremes},
                   {"Point3::maximum", V3::extremes},
                   {"Point2::f(twice)", V2::apply_twice},
                   {"Point3::f(twice)", V3::apply_twice},
                   {"Point2==Point2", V2::compare},
                   {"Point3==Point3", V3::compare},
                   {"Point2==v", V2::compare_with_scalar},
                   {"Point3==v", V3::compare_with_scalar},
                   {"Point2(v)", V2::fill},
                   {"Point3(v)", V3::fill},
                   {"Point2(CPoint)",
                    [](Arguments& in, Tokens& out) {
                      const auto [x, y] = in.integers<2>();
                      out.number(x).number(y);
                    }},
                   {"CPoint(Point2)",
                    [](Arguments& in, Tokens& out) {
                      const int x = reference::to_int(in.number());
                      const int y = reference::to_int(in.number());
                      out.integer(x).integer(y);
                    }},
               }},
              Requests(201)};
  Requests& r = s.requests;
  for (const int n : {2, 3}) {
    const std::string point = "Point" + std::to_string(n);
    r.add_numbers('A', point + "+" + point, 2 * n, 80);
    r.add_numbers('A', point + "-" + point, 2 * n, 80);
    r.add_numbers('A', point + "*=" + point, 2 * n, 80);
    r.add_numbers('C', point + "/" + point, 2 * n, 120);
    r.add_numbers('A', point + "*s", n + 1, 80);
    r.add_numbers('A', point + "/s", n + 1, 100);
    r.add_numbers('A', "-" + point, n, 50);
    r.add_numbers('A', point + "*" + point, 2 * n, 100);
    r.add_numbers('A', point + "::Module", n, 100);
    r.add_numbers('A', point + "::abs", n, 70);
    r.add_numbers('A', point + "::maximum", 2 * n, 80);
    r.add_numbers('C', point + "::f(twice)", n, 30);
    add_comparisons(r, point + "==" + point, n, false);
    add_comparisons(r, point + "==v", n, true);
    r.add_numbers('A', point + "(v)", 1, 15);
    for (int i = 0; i < 30; ++i) {
      r.add('A', point + "::maximum", ties(r, 2 * n));
      r.add('A', point + "::abs", ties(r, n));
      r.add('A', point + "==" + point, ties(r, 2 * n));
    }
  }
  for (const int v : {0, 1, -1, 2147483647, -2147483647 - 1, 123456}) {
    r.add('A', "Point2(CPoint)", Tokens().integer(v).integer(-(v / 2)));
  }
  for (const double v : {2.9, -2.9, 0.9999999999999999, -0.0, 2147483647.0, 2147483647.5, 2147483648.0, -2147483648.0,
                         -2147483648.5, -2147483649.0, 1e300}) {
    r.add('A', "CPoint(Point2)", Tokens().number(v).number(-v));
  }
  r.add_numbers('A', "CPoint(Point2)", 2, 80);
  return s;
}

Source rectangles() {
  Source s = {{"rectangles",
               "axis-aligned rectangles",
               {
                   {"Rect(Point2,Size2)",
                    [](Arguments& in, Tokens& out) {
                      double v[4];
                      in.numbers(v, 4);
                      write(out, reference::rectangle_of_corner_and_size(v[0], v[1], v[2], v[3]));
                    }},
                   {"Rect(CRect)",
                    [](Arguments& in, Tokens& out) {
                      for (int i = 0; i < 4; ++i) {
                        out.number(in.integer());
                      }
                    }},
                   {"CRect(Rect)",
                    [](Arguments& in, Tokens& out) {
                      for (int i = 0; i < 4; ++i) {
                        out.integer(reference::to_int(in.number()));
                      }
                    }},
                   {"Rect::Size",
                    [](Arguments& in, Tokens& out) {
                      const Rectangle rect = read_rect(in);
                      const double width = reference::rectangle_width(rect);
                      const double height = reference::rectangle_height(rect);
                      out.number(width).number(height).number(width).number(height);
                      out.number(reference::rectangle_area(rect));
                    }},
                   {"Rect::BottomLeft",
                    [](Arguments& in, Tokens& out) {
                      const Rectangle rect = read_rect(in);
                      out.number(rect.left).number(rect.bottom).number(rect.right).number(rect.top);
                    }},
                   {"Rect::IsEmpty",
                    [](Arguments& in, Tokens& out) { out.integer(reference::rectangle_is_empty(read_rect(in))); }},
                   {"Rect::IsValid",
                    [](Arguments& in, Tokens& out) {
                      const Rectangle rect = read_rect(in);
                      out.integer(reference::rectangle_is_valid(rect, in.number()));
                    }},
                   {"Rect::Contains(Point2)",
                    [](Arguments& in, Tokens& out) {
                      const Rectangle rect = read_rect(in);
                      const double x = in.number();
                      out.integer(reference::rectangle_contains_point(rect, x, in.number()));
                    }},
                   {"Rect::Contains(Rect)",
                    [](Arguments& in, Tokens& out) {
                      const Rectangle rect = read_rect(in);
                      out.integer(reference::rectangle_contains(rect, read_rect(in)));
                    }},
                   {"Rect::Offset",
                    [](Arguments& in, Tokens& out) {
                      const Rectangle rect = read_rect(in);
                      const double dx = in.number();
                      write_four_times(out, reference::rectangle_offset(rect, dx, in.number()));
                    }},
                   {"Rect+=Size2",
                    [](Arguments& in, Tokens& out) {
                      const Rectangle rect = read_rect(in);
                      const double cx = in.number();
                      write(out, reference::rectangle_offset(rect, cx, in.number()));
                    }},
                   {"Rect-=Size2",
                    [](Arguments& in, Tokens& out) {
                      const Rectangle rect = read_rect(in);
                      const double cx = in.number();
                      write(out, reference::rectangle_offset(rect, -cx, -in.number()));
                    }},
                   {"Rect::MoveTo",
                    [](Arguments& in, Tokens& out) {
                      const Rectangle rect = read_rect(in);
                      const double x = in.number();
                      write_four_times(out, reference::rectangle_move(rect, x, in.number()));
                    }},
                   {"Rect::Inflate",
                    [](Arguments& in, Tokens& out) {
                      const Rectangle rect = read_rect(in);
                      const double dx = in.number();
                      write_four_times(out, reference::rectangle_inflate(rect, dx, in.number()));
                    }},
                   {"Rect::Normalize",
                    [](Arguments& in, Tokens& out) {
                      const Rectangle rect = read_rect(in);
                      write(out, reference::rectangle_normalized_copy(rect));
                      write(out, reference::rectangle_normalize_in_place(rect));
                    }},
                   {"Rect&=Rect",
                    [](Arguments& in, Tokens& out) {
                      const Rectangle rect = read_rect(in);
                      write(out, reference::rectangle_intersect(rect, read_rect(in)));
                    }},
                   {"Rect|=Rect",
                    [](Arguments& in, Tokens& out) {
                      const Rectangle rect = read_rect(in);
                      write(out, reference::rectangle_unite(rect, read_rect(in)));
                    }},
               }},
              Requests(202)};
  Requests& r = s.requests;
  r.add_numbers('A', "Rect(Point2,Size2)", 4, 60);
  r.add_numbers('A', "CRect(Rect)", 4, 60);
  r.add('A', "CRect(Rect)", Tokens().number(1.9).number(-1.9).number(2.5).number(-2.5));
  for (const int v : {0, 7, -2147483647 - 1, 2147483647}) {
    r.add('A', "Rect(CRect)", Tokens().integer(v).integer(v / 3).integer(-(v / 2)).integer(v / 5));
  }
  for (const char* one : {"Rect::Size", "Rect::BottomLeft", "Rect::IsEmpty", "Rect::Normalize"}) {
    r.add_numbers('A', one, 4, 70);
  }
  for (int i = 0; i < 100; ++i) {  // a small lattice: edges and corners are met, rectangles are empty or inverted
    const auto lattice = [&r](int n) {
      Tokens t;
      for (int k = 0; k < n; ++k) {
        t.number(r.between(-2, 2));
      }
      return t;
    };
    r.add('A', "Rect&=Rect", ties(r, 8));
    r.add('A', "Rect|=Rect", ties(r, 8));
    r.add('A', "Rect::IsEmpty", ties(r, 4));
    r.add('A', "Rect::Normalize", ties(r, 4));
    r.add('A', "Rect::Contains(Point2)", ties(r, 6));
    r.add('A', "Rect::Contains(Point2)", lattice(6));
    r.add('A', "Rect::Contains(Rect)", lattice(8));
    r.add('A', "Rect&=Rect", lattice(8));
    r.add('A', "Rect|=Rect", lattice(8));
    r.add('A', "Rect::IsValid", lattice(5));
    r.add('A', "Rect::IsEmpty", lattice(4));
    r.add('A', "Rect::Normalize", lattice(4));
  }
  for (const char* two : {"Rect::Offset", "Rect+=Size2", "Rect-=Size2", "Rect::MoveTo", "Rect::Inflate"}) {
    r.add_numbers('A', two, 6, 70);
  }
  r.add_numbers('A', "Rect::Contains(Point2)", 6, 40);
  r.add_numbers('A', "Rect&=Rect", 8, 60);
  r.add_numbers('A', "Rect|=Rect", 8, 60);
  return s;
}

}  // namespace generate
