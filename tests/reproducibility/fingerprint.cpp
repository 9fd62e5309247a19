// Calls the library over fixed inputs and hashes the bits of what it returns. Nothing here computes with doubles, so
// that the flags this file is compiled with can show only through the library's headers.
//
// A group marked "direct" calls free functions that impostors.cpp defines as well; a host program that does so gets its
// own functions there, and rightly. All other groups reach these functions, if at all, inside the library.

#include "fingerprint.h"

#include <alidade/alidade.h>

#include <array>
#include <cstdio>

#include "bit_source.h"

namespace {

constexpr int kRounds = 200;

using Point2 = TAbstractPoint2<double>;
using Point3 = TAbstractPoint3<double>;

// About the size of a geocentric coordinate: 2^21 to 2^23 metres.
Coord position(BitSource& source) { return {source.number(21, 22), source.number(21, 22), source.number(21, 22)}; }

Point2 plane_point(BitSource& source) { return {source.number(0, 10), source.number(0, 10)}; }

// Dominated by its diagonal, hence positive definite.
covar covariance(BitSource& source) {
  return {source.positive(2, 3), source.number(-3, -1), source.positive(2, 3),
          source.number(-3, -1), source.number(-3, -1), source.positive(2, 3)};
}

void add(BitHash& hash, const Coord& c) { hash.add(&c.x, 3); }
void add(BitHash& hash, const GeoCoord& g) { hash.add(&g.b, 3); }
void add(BitHash& hash, const PolCoord& p) { hash.add(&p.azimuth, 3); }
void add(BitHash& hash, const triad& t) {
  for (int i = 0; i < 3; ++i) {
    hash.add(t[i]);
  }
}
void add(BitHash& hash, const covar& v) { hash.add(static_cast<const double*>(v), 6); }
void add(BitHash& hash, const matr3_3& m) { hash.add(static_cast<const double*>(m), 9); }
void add(BitHash& hash, const Point2& p) { hash.add(static_cast<const double*>(p), 2); }
void add(BitHash& hash, const Point3& p) { hash.add(static_cast<const double*>(p), 3); }
void add(BitHash& hash, const CLineCoeffs& l) {
  hash.add(l.a());
  hash.add(l.b());
  hash.add(l.c());
}
void add(BitHash& hash, const TSMatrix& s) {
  hash.add(static_cast<const double*>(s), static_cast<std::size_t>(s.GetDimension()));
}
void add(BitHash& hash, const TMatrix& m) {
  hash.add(static_cast<const double*>(m), static_cast<std::size_t>(m.GetDimension()));
}

void records(BitSource& source, BitHash& hash) {
  const Coord a = position(source);
  const Coord b = position(source);
  const double s = source.number(-2, 2);
  add(hash, (a + b) * s - b / s + -a);
  hash.add(a * b);
  GeoCoord g(a);
  add(hash, g);
  g.rad2deg();
  hash.add(g.Latitude());
  hash.add(g.Longitude());
  g.deg2rad();
  add(hash, Coord().blh2xyz(g));
}

void local_frames(BitSource& source, BitHash& hash) {
  const Coord station = position(source);
  const Coord target = position(source);
  Coord neu;
  PolCoord polar;
  station.relatCoord(target, neu, polar);
  add(hash, neu);
  add(hash, polar);
  add(hash, Coord().offsetCoord(station, neu));
  const Point3 blh(source.number(-4, -1), source.number(-4, 1), source.number(0, 10));
  const Point3 local = blh_to_neu(blh, Point3(source.number(0, 10), source.number(0, 10), source.number(0, 10)));
  add(hash, local);
  add(hash, neu_to_polar(local));
  double lat = source.number(2, 5), lon = source.number(2, 6), h = source.number(0, 10), x = 0, y = 0, z = 0;
  geod_to_xyz(1, 6378137.0, 0x1.b775a84f3e128p-9, &lat, &lon, &h, &x, &y, &z);
  geod_to_xyz(0, 6378137.0, 0x1.b775a84f3e128p-9, &lat, &lon, &h, &x, &y, &z);
  const double all[] = {lat, lon, h, x, y, z};
  hash.add(all, 6);
  int degrees = 0, minutes = 0;
  double seconds = 0;
  deg_to_dms(lon, &degrees, &minutes, &seconds);
  hash.add(seconds);
  hash.add(dms_to_deg(degrees, minutes, seconds));
}

void points(BitSource& source, BitHash& hash) {
  Point3 p(source.number(0, 3), source.number(0, 3), source.number(0, 3));
  const Point3 q(source.number(0, 3), source.number(0, 3), source.number(0, 3));
  p += q;
  p *= q;
  p /= q;
  p /= source.number(0, 3);
  add(hash, Point3((p + q) / q - (-p) * source.number(0, 3)));
  hash.add(p.Module());
  hash.add(p.sum());
  hash.add(p * q);
  add(hash, Point3(p.maximum(q).abs()));
  const CPoint pixel = plane_point(source);
  hash.add(pixel.x);
  TAbstractRect<double> r(plane_point(source), plane_point(source));
  r.Inflate(source.number(0, 3), source.number(0, 3)).Normalize();
  r &= TAbstractRect<double>(plane_point(source), plane_point(source)).Normalized();
  const double rect[] = {r.left(), r.top(), r.right(), r.bottom(), r.Area(), r.Width(), r.Height()};
  hash.add(rect, 7);
}

void arcs(BitSource& source, BitHash& hash) {
  const Point2 a = plane_point(source), b = plane_point(source), c = plane_point(source), d = plane_point(source);
  CArcParams arc;
  hash.add(GetArc3PointsParams(a, b, c, arc));
  hash.add(arc.radius);
  hash.add(GetArcTangentParams(a, b, c, d, arc));
  add(hash, arc.centre);
  CLineCoeffs bisector;
  hash.add(GetSpanPerpendicular(a, b, bisector));
  add(hash, bisector);
  hash.add(cosphi(a, b, c));
  hash.add(clockwise(a, b, c));
}

void order_three(BitSource& source, BitHash& hash) {
  covar v = covariance(source);
  const matr3_3 axes = v.DuserDeigen();
  add(hash, axes);
  add(hash, v.GetEigen(source.positive(2, 3)));
  matr3_3 m(v);
  m += matr3_3(covariance(source));
  add(hash, m * m);
  add(hash, m & v);
  add(hash, matr3_3(m, static_cast<char>(255)));
  triad t(source.positive(0, 3), source.positive(0, 3), source.positive(0, 3));
  t.sqrt();
  add(hash, m * t);
  add(hash, v * t);
  add(hash, t.VectorProduct(m * t));
  v /= source.number(0, 3);
  v *= source.number(0, 3);
  v += m;
  add(hash, v);
  v = covariance(source);
  hash.add(InvertSMatr3(v));
  add(hash, v);
}

// A symmetric matrix, dominated by its diagonal, with every third element off it zero.
void fill(BitSource& source, TSMatrix& s) {
  const int n = s.GetDim1();
  for (int i = 0; i < n; ++i) {
    for (int j = 0; j <= i; ++j) {
      const int k = TSMatrix::LinearIndex(i, j);
      s[k] = (i == j) ? source.positive(8, 9) : source.number(-3, 2);
      if (i != j && source.integer(0, 2) == 0) {
        s[k] = 0.0;
      }
    }
  }
}

void fill(BitSource& source, TMatrix& m) { source.fill(m, static_cast<std::size_t>(m.GetDimension()), -3, 3); }

void matrix_members(BitSource& source, BitHash& hash) {
  const int n = source.integer(3, 12);
  const int m = source.integer(3, 12);
  TSMatrix s(n, 0);
  fill(source, s);
  TMatrix a(m, n, 0);
  fill(source, a);
  TMatrix right(n, m, 0);
  fill(source, right);
  TSMatrix target(m, 0);
  s.A_This_At(a, target);
  add(hash, target);
  TMatrix product(n, m, 0);
  s.MatrProduct(right, '=', product);
  add(hash, product);
  covar block(0);
  s.BlockOper(0, '>', block);
  target.BlockOper(0, '+', block);
  matr3_3 corner(0);
  a.SubMatrix(0, 0, '>', corner);
  add(hash, corner & block);
  target *= source.number(-3, 3);
  add(hash, target);
}

void inversions(BitSource& source, BitHash& hash) {
  const int n = source.integer(4, 24);
  TSMatrix s(n, 0);
  fill(source, s);
  hash.add(RareInversion(s, nullptr, 0));
  hash.add(PseudoInversion(s, source.integer(1, 3)));
  add(hash, s);
}

void quantiles(BitSource& source, BitHash& hash) {
  float bounds[2];
  const int levels[] = {68, 95, 99};
  CHI_2SDE(levels[source.integer(0, 2)], source.integer(1, 300), bounds);
  hash.add(bounds, 2);
  hash.add(TAU(source.integer(1, 400), source.integer(2, 300), source.positive(-8, -4)));
  hash.add(RmsToKnown(source.positive(-12, 6)));
}

void direct_lengths_and_lines(BitSource& source, BitHash& hash) {
  const Coord a = position(source);
  hash.add(RR(a));
  hash.add(R2(a));
  hash.add(RR(a.x, a.y, a.z));
  CLineCoeffs l1, l2, perpendicular;
  hash.add(FindLineCoeffs(plane_point(source), plane_point(source), l1));
  hash.add(FindLineCoeffs(plane_point(source), plane_point(source), l2));
  hash.add(FindPerpendicular(l1, plane_point(source), perpendicular));
  add(hash, perpendicular);
  Point2 p;
  hash.add(FindLinesIntersection(l1, l2, p));
  add(hash, p);
  hash.add(triangle_area(a.x, a.y, a.z, p.x(), p.y(), a.x));
  hash.add(triangle_area(p, plane_point(source), plane_point(source)));
}

void direct_products(BitSource& source, BitHash& hash) {
  const int n = source.integer(1, 10), m = source.integer(1, 10), k = source.integer(1, 10);
  std::array<double, 100> a{}, b{};
  std::array<double, 100> c{};
  source.fill(a.data(), a.size(), -3, 3);
  source.fill(b.data(), b.size(), -3, 3);
  MatrixProduct(a.data(), b.data(), c.data(), n, m, k);
  hash.add(c.data(), c.size());
  MAtB(a.data(), b.data(), c.data(), n, m, k);
  hash.add(c.data(), c.size());
  SMatrProduct(a.data(), b.data(), c.data(), n, m, 0, 1, k);
  hash.add(c.data(), c.size());
  SMatrProductAQAt(a.data(), b.data(), c.data(), n, m, '=');
  hash.add(c.data(), c.size());
  MRAtQL(c.data(), '=', a.data(), b.data(), b.data(), n, m);
  hash.add(c.data(), c.size());
  SMatrAndBlockOper(c.data(), 2, 3, 2, 2, '+', b.data());
  SMatrAndSBlockOper(c.data(), 1, 3, '-', b.data());
  MatrAndBlockOper(10, c.data(), 2, 3, 3, 4, '+', b.data());
  hash.add(c.data(), c.size());
  hash.add(LOC1(n, m, 10, 10, 1));
}

void direct_operators(BitSource& source, BitHash& hash) {
  const int n = source.integer(1, 9);
  TSMatrix s(n, 0), target(n, 0);
  fill(source, s);
  TMatrix a(n, n, 0), b(n, n, 0), product(n, n, 0);
  fill(source, a);
  fill(source, b);
  target = 0;
  SMATRopRt_S_R(target, '+', a, s);
  SMATRopRt_R(target, '-', b);
  SMATRopABti(target, '+', a, b);
  SMATRopS1_S2(target, '-', s, s);
  SMATRopR_S_Rt(target, '+', b, s);
  add(hash, target);
  product = 0;
  MATRopS_R(product, '+', s, a);
  MATRopR_S(product, '-', b, s);
  MATRopR1t_R(product, '+', a, b);
  MATRopR1_R2(product, '-', a, b);
  MATRopR1_R2t(product, '+', a, b);
  MATRopR1_S_R2t(product, '-', a, s, b);
  MATRopR1_R2_R3t(product, '+', a, b, a);
  add(hash, product);
}

void direct_scalars(BitSource& source, BitHash& hash) {
  const double x = source.number(-3, 3), y = source.number(-3, 3);
  hash.add(power(x, source.integer(-20, 20)));
  hash.add(power(source.integer(-9, 9), source.integer(0, 9)));
  hash.add(sign(x, y));
  hash.add(sign(source.integer(-9, 9), source.integer(-9, 9)));
  hash.add(nearest(x, y));
  hash.add(nearest(0x1.8p+3F, -1.0F));
  hash.add(amin1(3, x, y, 0.0));
  hash.add(amax1(3, x, y, 0.0));
  hash.add(min1(2, source.integer(-9, 9), 3));
  hash.add(max1(2, source.integer(-9, 9), 3));
  hash.add(CHI_1SDE(95, source.integer(1, 300)));
}

struct Group {
  const char* name;
  void (*run)(BitSource&, BitHash&);
};

constexpr Group kGroups[] = {{"records", records},
                             {"local-frames", local_frames},
                             {"points", points},
                             {"arcs", arcs},
                             {"order-three", order_three},
                             {"matrix-members", matrix_members},
                             {"inversions", inversions},
                             {"quantiles", quantiles},
                             {"direct-lengths-and-lines", direct_lengths_and_lines},
                             {"direct-products", direct_products},
                             {"direct-operators", direct_operators},
                             {"direct-scalars", direct_scalars}};

}  // namespace

std::vector<Fingerprint> fingerprints() {
  std::vector<Fingerprint> all;
  for (const Group& group : kGroups) {
    BitSource source(20240607);
    BitHash hash;
    for (int round = 0; round < kRounds; ++round) {
      group.run(source, hash);
    }
    all.push_back({group.name, hash.value()});
  }
  return all;
}

void print(const std::vector<Fingerprint>& all) {
  for (const Fingerprint& one : all) {
    std::printf("%s %016llx\n", one.group, static_cast<unsigned long long>(one.hash));
  }
}

bool same(const std::vector<Fingerprint>& a, const std::vector<Fingerprint>& b) {
  bool equal = a.size() == b.size();
  for (std::size_t i = 0; equal && i < a.size(); ++i) {
    equal = a[i].hash == b[i].hash;
  }
  return equal;
}
