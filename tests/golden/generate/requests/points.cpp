#include <limits>

#include "golden/generate/requests.h"
#include "golden/generate/requests/awkward.h"

namespace generate {
namespace {

using golden::Tokens;

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

Requests points_requests(std::uint64_t round) {
  Requests r(201, round);
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
  add_awkward_points(r, round);
  return r;
}

Requests rectangles_requests(std::uint64_t round) {
  Requests r(202, round);
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
  return r;
}

}  // namespace generate
