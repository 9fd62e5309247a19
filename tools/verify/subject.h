#ifndef ALIDADE_TOOLS_VERIFY_SUBJECT_H
#define ALIDADE_TOOLS_VERIFY_SUBJECT_H

// What the descriptions in cases/ are about: here the library as a host sees it. In the generator the same name means
// the literal reference.

#include <alidade/alidade.h>

#include <array>

// The numbers of each record, in the order in which a case lists them.
inline std::array<double*, 3> fields(Coord& c) { return {&c.x, &c.y, &c.z}; }
inline std::array<double*, 3> fields(GeoCoord& g) { return {&g.b, &g.l, &g.h}; }
inline std::array<double*, 3> fields(PolCoord& p) { return {&p.azimuth, &p.elevation, &p.distance}; }
inline std::array<double*, 3> fields(triad& t) { return {&t[0], &t[1], &t[2]}; }
inline std::array<double*, 6> fields(covar& v) { return {&v[0], &v[1], &v[2], &v[3], &v[4], &v[5]}; }
inline std::array<double*, 9> fields(matr3_3& m) {
  return {&m[0], &m[1], &m[2], &m[3], &m[4], &m[5], &m[6], &m[7], &m[8]};
}
inline std::array<double*, 2> fields(TAbstractPoint<double, 2>& p) { return {&p[0], &p[1]}; }
inline std::array<double*, 3> fields(TAbstractPoint<double, 3>& p) { return {&p[0], &p[1], &p[2]}; }
inline std::array<double*, 4> fields(TAbstractRect<double>& r) {
  return {&r.left(), &r.top(), &r.right(), &r.bottom()};
}
inline std::array<int*, 2> fields(CPoint& p) { return {&p.x, &p.y}; }
inline std::array<int*, 4> fields(CRect& r) { return {&r.left, &r.top, &r.right, &r.bottom}; }
inline std::array<double*, 3> fields(CLineCoeffs& l) { return {&l.a(), &l.b(), &l.c()}; }
inline std::array<double*, 7> fields(CArcParams& arc) {
  return {&arc.centre.x(), &arc.centre.y(), &arc.start.x(), &arc.start.y(), &arc.end.x(), &arc.end.y(), &arc.radius};
}
inline std::array<double*, 6> fields(Ellipsoid& s) { return {&s.a, &s.e, &s.e2, &s.ep2, &s.onePlusEp2, &s.c}; }

#endif
