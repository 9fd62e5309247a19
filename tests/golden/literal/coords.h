#ifndef ALIDADE_TESTS_GOLDEN_LITERAL_COORDS_H
#define ALIDADE_TESTS_GOLDEN_LITERAL_COORDS_H

#include "golden/literal/points.h"
#include "reference/coords.h"

struct Coord;

// Two angles in radians and a number with a unit of length.
struct Angular : Elements<3> {
  void rad2deg() { turn(57.29577951308232); }
  void deg2rad() { turn(0.017453292519943295); }

private:
  void turn(double factor) {
    v[0] *= factor;
    v[1] *= factor;
  }
};

struct PolCoord : Angular {};

struct GeoCoord : Angular {
  GeoCoord() = default;
  GeoCoord(double x, double y, double z) {
    const double xyz[3] = {x, y, z};
    std::int64_t passes = 0;
    reference::xyz2blh(xyz, v, &passes);
  }
  explicit GeoCoord(const Coord& c);
  GeoCoord xyz2blh(const Coord& c) const { return GeoCoord(c); }
  double Latitude() const { return v[0] * 3600.0; }
  double Longitude() const { return (v[1] - 360.0) * 3600.0; }
};

struct Coord : Elements<3> {
  Coord(double x = 0.0, double y = 0.0, double z = 0.0) : Elements<3>{{x, y, z}} {}
  Coord& operator=(double value) {
    v[0] = v[1] = v[2] = value;
    return *this;
  }
  Coord blh2xyz(const GeoCoord& g) const {
    Coord c;
    reference::blh2xyz(g.v, c.v);
    return c;
  }
  void relatCoord(const Coord& target, Coord& neu, PolCoord& polar) const {
    reference::relat_coord(v, target.v, neu.v, polar.v);
  }
  Coord offsetCoord(const Coord& station, const Coord& neu) const {
    Coord c;
    reference::offset_coord(station.v, neu.v, c.v);
    return c;
  }
  Coord operator-() const {
    return each(*this, [](double x) { return -x; });
  }
  Coord operator/(double s) const {
    Coord c;
    reference::times_reciprocal(v, s, c.v);
    return c;
  }
  Coord operator/=(double s) const {
    return each(*this, [s](double x) { return x / s; });
  }
  Coord operator*(double s) const {
    return each(*this, [s](double x) { return x * s; });
  }
  double operator*(const Coord& o) const { return reference::dot(v, o.v); }
};

inline GeoCoord::GeoCoord(const Coord& c) : GeoCoord(c.v[0], c.v[1], c.v[2]) {}

inline Coord operator+(const Coord& a, const Coord& b) {
  return each(a, b, [](double x, double y) { return x + y; });
}
inline Coord operator-(const Coord& a, const Coord& b) {
  return each(a, b, [](double x, double y) { return x - y; });
}
inline Coord operator+=(const Coord& a, const Coord& b) { return a + b; }
inline Coord operator-=(const Coord& a, const Coord& b) { return a - b; }
inline Coord operator*=(const Coord& a, double s) { return a * s; }

inline double RR(const Coord& c) { return reference::length(c.v); }
inline double R2(const Coord& c) { return reference::squared_length(c.v); }
inline double RR(double a, double b, double c) { return reference::length_of_three(a, b, c); }

struct Ellipsoid : Elements<6> {
  Ellipsoid(const reference::EllipsoidFields& s) : Elements<6>{{s.a, s.e, s.e2, s.ep2, s.one_plus_ep2, s.c}} {}
  Ellipsoid(double a, double e) : Ellipsoid(reference::ellipsoid(a, e)) {}
};
inline const Ellipsoid DefaultEllipsoid(reference::default_ellipsoid());

inline void geod_to_xyz(int to_cartesian, double a, double f, double* lat, double* /*lon*/, double* /*h*/,
                        double* /*x*/, double* /*y*/, double* /*z*/) {
  reference::geod_to_xyz(to_cartesian, a, f, lat);  // the six lie in one array
}

inline TAbstractPoint3<double> blh_to_neu(const TAbstractPoint3<double>& blh, const TAbstractPoint3<double>& d) {
  TAbstractPoint3<double> neu;
  reference::blh_to_neu(blh.v, d.v, neu.v);
  return neu;
}
inline TAbstractPoint3<double> neu_to_polar(const TAbstractPoint3<double>& neu) {
  TAbstractPoint3<double> polar;
  reference::neu_to_polar(neu.v, polar.v);
  return polar;
}

using reference::deg_to_dms;
using reference::dms_to_deg;

#endif
