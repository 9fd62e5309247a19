#include <alidade/geometry.h>

#include "square_root.h"
#include "strict_arithmetic.h"

namespace alidade {
namespace {

using Point2 = TAbstractPoint2<double>;

double cosine_at(const Point2& vertex, const Point2& p1, const Point2& p2) {
  const double dx1 = p1.x() - vertex.x();
  const double dy1 = p1.y() - vertex.y();
  const double length1 = square_root(dy1 * dy1 + dx1 * dx1);
  const double dx2 = p2.x() - vertex.x();
  const double dy2 = p2.y() - vertex.y();
  const double lengths = square_root(dy2 * dy2 + dx2 * dx2) * length1;
  if (lengths == 0.0) {
    return 1.0;
  }
  return (dy2 * dy1 + dx2 * dx1) / lengths;
}

// The six products one after the other, in this order and with these signs.
double signed_area(double x1, double y1, double x2, double y2, double x3, double y3) {
  double s = x1 * y3;
  s = s - y1 * x3;
  s = s + y1 * x2;
  s = s - x1 * y2;
  s = s + y2 * x3;
  s = s - x2 * y3;
  return s * 0.5;
}

double signed_area(const Point2& p1, const Point2& p2, const Point2& p3) {
  return signed_area(p1.x(), p1.y(), p2.x(), p2.y(), p3.x(), p3.y());
}

}  // namespace

}  // namespace alidade

double cosphi(TAbstractPoint2<double> p0, TAbstractPoint2<double> p1, TAbstractPoint2<double> p2) {
  return alidade::cosine_at(p0, p1, p2);
}

double triangle_area(double x1, double y1, double x2, double y2, double x3, double y3) {
  return alidade::signed_area(x1, y1, x2, y2, x3, y3);
}

double triangle_area(TAbstractPoint2<double> p1, TAbstractPoint2<double> p2, TAbstractPoint2<double> p3) {
  return alidade::signed_area(p1, p2, p3);
}

bool clockwise(TAbstractPoint2<double> p1, TAbstractPoint2<double> p2, TAbstractPoint2<double> p3) {
  return alidade::signed_area(p1, p2, p3) > 0.0;
}
