#include "golden/functions.h"
#include "subject.h"

namespace golden {
namespace {

using Point2 = TAbstractPoint2<double>;
using Size2 = TAbstractSize2<double>;
using Rect = TAbstractRect<double>;

double twice(double v) { return v + v; }

// Every member of the point template for N components.
template <int N>
std::vector<Function> point_functions() {
  using Point = TAbstractPoint<double, N>;
  const std::string p = "Point" + std::to_string(N);
  return {
      {p + "+" + p,
       [](Point a, Point b) {
         return std::tuple{a + b, a += b};
       }},
      {p + "-" + p,
       [](Point a, Point b) {
         return std::tuple{a - b, a -= b};
       }},
      {p + "*s",
       [](Point a, double s) {
         return std::tuple{a * s, a *= s};
       }},
      {p + "*=" + p, [](Point a, Point b) { return a *= b; }},
      {p + "/s",
       [](Point a, double s) {
         return std::tuple{a / s, a /= s};
       }},
      {p + "/" + p,
       [](Point a, Point b) {
         return std::tuple{a / b, a /= b};
       }},
      {"-" + p,
       [](Point a) {
         return std::tuple{-a, a.uminus()};
       }},
      {p + "*" + p, [](Point a, Point b) { return a * b; }},
      {p + "::Module",
       [](Point a) {
         return std::tuple{a.ModuleSq(), a.Module(), a.sum()};
       }},
      {p + "::abs", [](Point a) { return a.abs(); }},
      {p + "::maximum",
       [](Point a, Point b) {
         return std::tuple{a.maximum(b), a.minimum(b)};
       }},
      {p + "::f(twice)", [](Point a) { return a.f(twice); }},
      {p + "==" + p,
       [](Point a, Point b) {
         return std::tuple{a == b, a != b};
       }},
      {p + "==v",
       [](Point a, double v) {
         return std::tuple{a == v, a != v};
       }},
      {p + "(v)", [](double v) { return Point(v); }},
  };
}

}  // namespace

Group points() {
  Group group = {"points", "fixed-size point vectors of two and three components", point_functions<2>()};
  for (const Function& function : point_functions<3>()) {
    group.functions.push_back(function);
  }
  group.functions.emplace_back("Point2(CPoint)", [](int x, int y) { return Point2(CPoint(x, y)); });
  group.functions.emplace_back("CPoint(Point2)", [](Point2 p) { return static_cast<CPoint>(p); });
  return group;
}

Group rectangles() {
  return {
      "rectangles",
      "axis-aligned rectangles",
      {
          {"Rect(Point2,Size2)", [](Point2 p, Size2 s) { return Rect(p, s); }},
          {"Rect(CRect)",
           [](int left, int top, int right, int bottom) { return Rect(CRect(left, top, right, bottom)); }},
          {"CRect(Rect)", [](Rect r) { return static_cast<CRect>(r); }},
          {"Rect::Size",
           [](Rect r) {
             return std::tuple{r.Width(), r.Height(), r.Size(), r.Area()};
           }},
          {"Rect::BottomLeft",
           [](Rect r) {
             return std::tuple{r.BottomLeft(), r.TopRight()};
           }},
          {"Rect::IsEmpty", [](Rect r) { return r.IsEmpty(); }},
          {"Rect::IsValid", [](Rect r, double marker) { return r.IsValid(marker); }},
          {"Rect::Contains(Point2)", [](Rect r, Point2 p) { return r.Contains(p); }},
          {"Rect::Contains(Rect)", [](Rect r, Rect inner) { return r.Contains(inner); }},
          {"Rect::Offset",
           [](Rect r, Point2 d) {
             return std::tuple{Rect(r).Offset(d.x(), d.y()), Rect(r).Offset(d), r.OffsetBy(d.x(), d.y()),
                               r.OffsetBy(d)};
           }},
          {"Rect+=Size2", [](Rect r, Size2 s) { return r += s; }},
          {"Rect-=Size2", [](Rect r, Size2 s) { return r -= s; }},
          {"Rect::MoveTo",
           [](Rect r, Point2 p) {
             return std::tuple{Rect(r).MoveTo(p.x(), p.y()), Rect(r).MoveTo(p), r.MovedTo(p.x(), p.y()), r.MovedTo(p)};
           }},
          {"Rect::Inflate",
           [](Rect r, Size2 s) {
             return std::tuple{Rect(r).Inflate(s.cx(), s.cy()), Rect(r).Inflate(s), r.InflatedBy(s.cx(), s.cy()),
                               r.InflatedBy(s)};
           }},
          {"Rect::Normalize",
           [](Rect r) {
             return std::tuple{r.Normalized(), r.Normalize()};
           }},
          {"Rect&=Rect", [](Rect r, Rect other) { return r &= other; }},
          {"Rect|=Rect", [](Rect r, Rect other) { return r |= other; }},
      }};
}

}  // namespace golden
