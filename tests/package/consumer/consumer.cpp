// Touches every exported class, constant, template and function of alidade as a user's program does, and checks by bits
// results that can be worked out by hand. Built and run against an installed library, moved from where it was
// installed.

#include <alidade/alidade.h>

#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>

namespace {

int failures = 0;

void check(const char* what, bool holds) {
  if (!holds) {
    std::printf("wrong: %s\n", what);
    ++failures;
  }
}

void check_bits(const char* what, double result, double expected) {
  if (std::memcmp(&result, &expected, sizeof result) != 0) {
    std::printf("wrong: %s is %a and not %a\n", what, result, expected);
    ++failures;
  }
}

bool close(double a, double b, double tolerance) { return std::fabs(a - b) <= tolerance; }

void coordinates() {
  check_bits("semi-major axis", DefaultEllipsoid.a, 6378137.0);
  check_bits("eccentricity", DefaultEllipsoid.e, 0.0818191913305);
  const Ellipsoid sphere(1.0, 0.0);
  check_bits("c of the sphere", sphere.c, 1.0);

  Coord p(3.0, 4.0, 12.0);
  check_bits("RR", RR(p), 13.0);
  check_bits("R2", R2(p), 169.0);
  check_bits("RR of three numbers", RR(3.0, 4.0, 0.0), 5.0);
  p = p + Coord(1.0, 0.0, 0.0) - Coord(0.0, 1.0, 0.0);
  p += Coord(1.0, 1.0, 1.0);
  p -= Coord(1.0, 1.0, 1.0);
  p *= 2.0;
  p /= 2.0;
  p = -(p * 2.0 / 2.0);
  check_bits("x", p.x, -4.0);
  check_bits("scalar product", p * Coord(1.0, 1.0, 1.0), -19.0);
  p = 7.0;
  check_bits("z", p.z, 7.0);

  GeoCoord g;
  g.b = 37.0;
  g.l = 350.0;
  g.h = 100.0;
  check_bits("latitude in seconds", g.Latitude(), 133200.0);
  check_bits("longitude in seconds", g.Longitude(), -36000.0);
  g.deg2rad();
  const Coord base = Coord().blh2xyz(g);
  GeoCoord back(base);
  check_bits("the same from three numbers", GeoCoord(base.x, base.y, base.z).b, back.b);
  check("latitude there and back", close(back.b, g.b, 1e-10) && close(back.h, g.h, 1e-3));
  back.xyz2blh(base);
  back.rad2deg();
  check("degrees", close(back.b, 37.0, 1e-8));

  Coord neu;
  PolCoord polar;
  base.relatCoord(base, neu, polar);
  check_bits("distance to itself", polar.distance, 0.0);
  polar = PolCoord();
  polar.azimuth = polar.elevation = polar.distance = 0.0;
  polar.rad2deg();
  polar.deg2rad();
  check("there and back", close(RR(Coord().offsetCoord(base, Coord()) - base), 0.0, 1e-8));

  double lat = 0.0, lon = 0.0, h = 0.0, x = 0.0, y = 0.0, z = 0.0;
  geod_to_xyz(1, 6378137.0, 1.0 / 298.257223563, &lat, &lon, &h, &x, &y, &z);
  check_bits("x on the equator", x, 6378137.0);
  const TAbstractPoint3<double> local =
      blh_to_neu(TAbstractPoint3<double>(0.0), TAbstractPoint3<double>(1.0, 2.0, 3.0));
  check_bits("up at the origin", local.Z(), 1.0);
  check("straight up", close(neu_to_polar(TAbstractPoint3<double>(0.0, 0.0, 2.0))[0], 1.5707963267948966, 1e-15));

  int degrees = 0, minutes = 0;
  double seconds = 0.0;
  deg_to_dms(12.5, &degrees, &minutes, &seconds);
  check("12.5 degrees", degrees == 12 && minutes == 30 && seconds == 0.0);
  check_bits("12 degrees 30 minutes", dms_to_deg(12, 30, 0.0), 12.5);
}

double half(double v) { return v / 2.0; }

template <class Point>
void point_members(const char* what, Point p) {
  const Point q(4.0);
  p += q;
  p -= q;
  p *= 2.0;
  p *= q;
  p /= q;
  p /= 2.0;
  Point r(static_cast<const double*>(p));
  r = (p + q - q) * 2.0 / 2.0 / Point(1.0);
  r = -r;
  r.uminus();
  check(what, r == p && !(r != p) && !(r == 5.0) && r != 5.0);
  check_bits(what, r.f(half).abs().sum(), p.sum() / 2.0);
  check_bits(what, r.ModuleSq(), r * r);
  check_bits(what, r.Module(), std::sqrt(r * r));
  check(what, r.maximum(q) == q && r.minimum(q) == r);
  static_cast<double*>(r)[0] = 9.0;
  check_bits(what, r[0], 9.0);
}

void points() {
  point_members("two components", TAbstractPoint<double, 2>(TAbstractPoint2<double>(1.0, 2.0)));
  point_members("three components", TAbstractPoint<double, 3>(TAbstractPoint3<double>(1.0, 2.0, 3.0)));
  const CPoint pixel = TAbstractPoint2<double>(2.9, -2.9);
  check("truncation", pixel.x == 2 && pixel.y == -2);
  check_bits("from pixels", TAbstractPoint2<double>(pixel).Y(), -2.0);
  TAbstractPoint3<double> p3(1.0, 2.0, 3.0);
  p3.x() = p3.Y() + p3.Z();
  check_bits("x", p3.X(), 5.0);

  TAbstractSize2<double> size(3.0, 4.0);
  size.cx() = size.cy();
  TAbstractRect<double> r(TAbstractPoint2<double>(0.0, 0.0), size);
  check_bits("area", r.Area(), 16.0);
  check_bits("width", r.Width() + r.Height() + r.Size().cx(), 12.0);
  r.Offset(1.0, 1.0).Inflate(1.0, 1.0).MoveTo(0.0, 0.0).Normalize();
  r += size;
  r -= size;
  r = r.OffsetBy(1.0, 0.0).InflatedBy(1.0, 1.0).MovedTo(0.0, 0.0).Normalized();
  check("rectangle", r.IsValid(-1.0) && !r.IsEmpty() && r.Contains(r.BottomLeft()) == r.Contains(r.BottomLeft()));
  TAbstractRect<double> overlap(0.0, 0.0, 10.0, 10.0);
  overlap &= TAbstractRect<double>(20.0, 20.0, 30.0, 30.0);
  check("no overlap", overlap.IsEmpty() && overlap.left() == 20.0 && overlap.Bottom() == 10.0);
  TAbstractRect<double> both(0.0, 0.0, 0.0, 0.0);
  both |= TAbstractRect<double>(5.0, 5.0, 6.0, 6.0);
  check("union", both.Right() == 6.0 && both.top() == 0.0 && both.Contains(both) == both.Contains(both));
  const CRect pixels = TAbstractRect<double>(1.9, -1.9, 2.5, -2.5);
  check("rectangle truncated", pixels.left == 1 && pixels.top == -1 && pixels.right == 2 && pixels.bottom == -2);
  check_bits("from pixels", TAbstractRect<double>(pixels).right(), 2.0);
}

void plane_geometry() {
  using Point = TAbstractPoint2<double>;
  CLineCoeffs line, perpendicular, bisector;
  check("line", FindLineCoeffs(Point(0.0, 0.0), Point(2.0, 4.0), line));
  check("coefficients", line.a() == 2.0 && line.b() == -1.0 && line.c() == 0.0);
  line.a() = 0.0;
  line.b() = -1.0;
  line.c() = 2.0;
  check("perpendicular", FindPerpendicular(line, Point(5.0, 7.0), perpendicular) && perpendicular.c() == 5.0);
  Point crossing;
  check("crossing", FindLinesIntersection(line, perpendicular, crossing) && crossing == Point(5.0, 2.0));
  check("bisector", GetSpanPerpendicular(Point(0.0, 0.0), Point(2.0, 0.0), bisector) && bisector.a() == -1.0);
  CArcParams arc;
  check_bits("undefined radius", arc.radius, std::numeric_limits<double>::max());
  check("arc", GetArc3PointsParams(Point(0.0, 0.0), Point(2.0, 0.0), Point(1.0, 1.0), arc) && arc.radius == 1.0);
  check("arc on a tangent",
        GetArcTangentParams(Point(0.0, 0.0), Point(2.0, 2.0), Point(0.0, 0.0), Point(0.0, 1.0), arc) &&
            arc.radius == 2.0);
  check_bits("cosine", cosphi(Point(0.0, 0.0), Point(1.0, 0.0), Point(0.0, 1.0)), 0.0);
  check("area", std::fabs(triangle_area(0.0, 0.0, 2.0, 0.0, 0.0, 2.0)) == 2.0);
  check("area of points", std::fabs(triangle_area(Point(0.0, 0.0), Point(2.0, 0.0), Point(0.0, 2.0))) == 2.0);
  check("sense", clockwise(Point(0.0, 0.0), Point(1.0, 0.0), Point(0.0, 1.0)) !=
                     clockwise(Point(0.0, 0.0), Point(0.0, 1.0), Point(1.0, 0.0)));
}

void order_three() {
  triad t(1.0, 4.0, 9.0);
  t.sqrt();
  check_bits("root", t[2], 3.0);
  check_bits("vector product", triad(1.0, 0.0, 0.0).VectorProduct(triad(0.0, 1.0, 0.0))[2], 1.0);
  t = 0;
  check("cleared", t[0] == 0.0 && triad(1)[1] == 0.0);
  t = triad(TAbstractPoint3<double>(1.0, 2.0, 3.0));
  DefTriad u;
  check("undefined", u.IsUndef() && u.IsPartialUndef() && DefTriad::IsUndef(u));
  u = t;
  check("defined", !DefTriad::IsPartialUndef(u));

  covar v(2.0, 0.0, 4.0, 0.0, 0.0, 8.0);
  check("inverse", InvertSMatr3(v) == 0);
  check_bits("inverse", v[covar::LinearIndex(2, 2)], 0.125);
  v += v;
  v -= covar(triad(0));
  v *= 2.0;
  v /= 2.0;
  check("equal", v == covar(v) && !(v != covar(v)));
  check_bits("covariance times vector", (v * triad(1.0, 0.0, 0.0))[0], 1.0);
  check_bits("eigenvector", covar(1.0, 0.0, 2.0, 0.0, 0.0, 3.0).GetEigen(3.0)[2], 1.0);
  const matr3_3 axes = covar(9.0, 0.0, 4.0, 0.0, 0.0, 1.0).DuserDeigen();
  check("axes", static_cast<const double*>(axes) != nullptr);

  matr3_3 m(v);
  m += m;
  m -= m;
  m *= 1.0;
  m /= 1.0;
  m = 0;
  m[matr3_3::Index(0, 0)] = m[4] = m[8] = 2.0;
  check_bits("column", (*m.Column(1))[1], 2.0);
  check_bits("product", (m * m)[8], 4.0);
  check_bits("image", (m * triad(0.0, 0.0, 1.0))[2], 2.0);
  check_bits("propagated", (m & covar(1.0, 0.0, 1.0, 0.0, 0.0, 1.0))[5], 4.0);
  check_bits("transposed", matr3_3(m, 't')[0], 2.0);
  v += m;
  v -= m;
  v = covar(m);
  v = 0;
  check("cleared", v == covar(0) && matr3_3(1)[0] == 0.0);
  static_cast<double&>(m) = 1.0;
  check_bits("first element", m[0], 1.0);
}

void matrices() {
  TSMatrix n(3, 0);
  n[TSMatrix::LinearIndex(0, 0)] = 4.0;
  n[2] = 16.0;
  n[5] = 64.0;
  TSMatrix s(n);
  int progress = 0;
  check("inversion", RareInversion(s, &progress, 100) == 0);
  check_bits("inverse", s[5], 1.0 / 64.0);
  check_bits("block of the inverse", covar(s, 0)[0], 0.25);
  check("dimensions", n.GetDimension() == 6 && n.GetDim1() == 3 && n.GetInitDim1() == 3);
  n.SetDim1(2);
  n.ResetDim1();
  n *= 0.5;

  TMatrix r(3, 3, 0);
  r[r.Index(0, 0)] = r[4] = r[8] = 1.0;
  TMatrix copy(r);
  copy.SetDimension(copy.GetN1(), copy.GetN2());
  copy *= 2.0;
  check("dense", copy.GetDimension() == 9 && static_cast<const double*>(copy)[0] == 2.0);
  double buffer[9] = {};
  TMatrix view(buffer, 3, 3);
  TMatrix other_view(buffer, 3, 3);
  other_view = view;  // assignment shares the elements, hence only between views here
  other_view = 0;
  matr3_3 m(0);
  covar v(0);
  r.SubMatrix(0, 0, 3, 3, '>', buffer);
  r.SubMatrix(0, 0, '>', view);
  r.SubMatrix(0, 0, '>', m);
  check_bits("block", m[8] + matr3_3(r, 0, 0)[4] + matr3_3(n, 0, 0)[0], 4.0);
  n.BlockOper(0, 0, 3, 3, '>', buffer);
  n.BlockOper(0, 0, '>', view);
  n.BlockOper(0, 0, '>', m);
  n.BlockOper(0, 3, '>', buffer);
  n.BlockOper(0, '>', v);
  check_bits("covariance block", v[5], 32.0);
  double packed[6];
  TSMatrix target(packed, 3);
  target = 0;
  n.BlockOper(0, '>', target);
  TSMatrix other_target(packed, 3);
  other_target = target;
  n.A_This_At(r, s);
  check_bits("propagated", s[5], 32.0);
  n.MatrProduct(r, '=', view);
  n.MatrProduct(static_cast<double*>(r), '=', buffer);

  SMATRopRt_S_R(s, '=', r, n);
  SMATRopRt_R(s, '=', r);
  SMATRopABti(s, '=', r, r);
  SMATRopS1_S2(s, '=', n, n);
  SMATRopR_S_Rt(s, '=', r, n);
  MATRopS_R(view, '=', n, r);
  MATRopR_S(view, '=', r, n);
  MATRopR1t_R(view, '=', r, r);
  MATRopR1_R2(view, '=', r, r);
  MATRopR1_R2t(view, '=', r, r);
  MATRopR1_S_R2t(view, '=', r, n, r);
  MATRopR1_R2_R3t(view, '=', r, r, r);
  check_bits("identity", view[8], 1.0);
  TSMatrix full(2, 0);
  full[0] = 1.0;
  full[2] = 5.0;
  check("rank defect without coupling", PseudoInversion(full, 1) == 0 && full[0] == 1.0 && full[2] == 0.0);

  const double a[4] = {1.0, 2.0, 3.0, 4.0};
  const double b[4] = {5.0, 6.0, 7.0, 8.0};
  double c[4] = {};
  MatrixProduct(a, b, c, 2, 2, 2);
  check("product", c[0] == 23.0 && c[1] == 34.0 && c[2] == 31.0 && c[3] == 46.0);
  MAtB(a, b, c, 2, 2, 2);
  check_bits("transposed product", c[0], 17.0);
  SMatrProduct(a, b, c, 2, 2, 0, 0, 2);
  SMatrProductAQAt(a, b, c, 2, 2, '=');
  MRAtQL(c, '=', a, b, a, 1, 1);
  double block[1] = {};
  SMatrAndBlockOper(c, 0, 0, 1, 1, '>', block);
  SMatrAndSBlockOper(c, 0, 1, '>', block);
  MatrAndBlockOper(2, c, 0, 0, 1, 1, '>', block);
  check("location", LOC1(1, 1, 2, 2, 0) == 1);

  check("smallest and largest", min1(3, 5, 2, 9) == 2 && max1(3, 5, 2, 9) == 9);
  check("smallest and largest", amin1(3, 5.0, 2.0, 9.0) == 2.0 && amax1(3, 5.0, 2.0, 9.0) == 9.0);
  check("powers", power(2.0, 10) == 1024.0 && power(3, 4) == 81);
  check("signs", sign(-3, 1) == 3 && sign(3.0, -1.0) == -3.0);
  long l = 1;
  short w = 1;
  char k = 1;
  int shift = 1;
  ishc(l, shift);
  ishc(w, shift);
  ishc(k, shift);
  check("neighbours", nearest(1.0F, 1.0F) > 1.0F && nearest(1.0, 1.0) == 1.0);
}

void statistics() {
  float bounds[2] = {};
  CHI_2SDE(99, 17, bounds);
  check("two-sided", bounds[0] == 5.7F && bounds[1] == 36.72F);
  check("one-sided", CHI_1SDE(95, 1) == 3.84F);
  check("tau", close(TAU(1, 2, 0.05), std::sqrt(2.0) * std::sin(3.141592653589793 * 0.95 / 2.0), 1e-12));
  check("class", RmsToKnown(0.0) >= 1 && RmsToKnown(1e9) <= 9);
}

}  // namespace

int main() {
  coordinates();
  points();
  plane_geometry();
  order_three();
  matrices();
  statistics();
  check("floating-point environment", alidade::environment_faults() == 0);
  if (failures == 0) {
    std::printf("alidade %d.%d.%d: every result as expected\n", ALIDADE_VERSION_MAJOR, ALIDADE_VERSION_MINOR,
                ALIDADE_VERSION_PATCH);
  }
  return failures == 0 ? 0 : 1;
}
