#ifndef ALIDADE_COORDS_H
#define ALIDADE_COORDS_H

/// @file
/// Coordinate records, ellipsoid conversions, local frames and angle notation.

#include <alidade/export.h>
#include <alidade/points.h>

struct ALIDADE_API Ellipsoid {
  Ellipsoid(const double& a, const double& e);

  double a;
  double e;
  double e2;
  double ep2;
  double onePlusEp2;
  double c;
};

extern ALIDADE_API const Ellipsoid DefaultEllipsoid;

class GeoCoord;
class PolCoord;

class ALIDADE_API Coord {
public:
  Coord(double x = 0, double y = 0, double z = 0);
  Coord(const Coord& o) = default;
  Coord& operator=(const Coord& o) = default;
  Coord& operator=(const double& v);

  Coord operator+(const Coord& o) const;
  Coord operator-(const Coord& o) const;
  Coord operator-() const;
  Coord& operator+=(const Coord& o);
  Coord& operator-=(const Coord& o);
  Coord operator*(const double& s) const;
  Coord& operator*=(const double& s);
  Coord operator/(const double& s) const;
  Coord& operator/=(const double& s);
  double operator*(const Coord& o) const;

  Coord& blh2xyz(const GeoCoord& g);
  void relatCoord(const Coord& target, Coord& neu, PolCoord& polar) const;
  Coord& offsetCoord(const Coord& station, const Coord& neu);

  double x;
  double y;
  double z;
};

class ALIDADE_API GeoCoord {
public:
  GeoCoord() {}
  GeoCoord(double x, double y, double z);
  GeoCoord(const Coord& p);
  GeoCoord(const GeoCoord& o) = default;
  GeoCoord& operator=(const GeoCoord& o) = default;

  GeoCoord& xyz2blh(const Coord& p);
  void rad2deg();
  void deg2rad();
  double Latitude() const;
  double Longitude() const;

  double b;
  double l;
  double h;
};

class ALIDADE_API PolCoord {
public:
  PolCoord() = default;
  PolCoord(const PolCoord& o) = default;
  PolCoord& operator=(const PolCoord& o) = default;

  void rad2deg();
  void deg2rad();

  double azimuth;
  double elevation;
  double distance;
};

ALIDADE_API double RR(const Coord& c);
ALIDADE_API double R2(const Coord& c);
ALIDADE_API double RR(const double& a, const double& b, const double& c);

ALIDADE_API void geod_to_xyz(int toCartesian, double a, double f, double* lat, double* lon, double* h, double* x,
                             double* y, double* z);

ALIDADE_API TAbstractPoint3<double> blh_to_neu(const TAbstractPoint3<double>& blh, const TAbstractPoint3<double>& d);
ALIDADE_API TAbstractPoint3<double> neu_to_polar(const TAbstractPoint3<double>& v);

ALIDADE_API void deg_to_dms(double deg, int* d, int* m, double* s);
ALIDADE_API double dms_to_deg(int d, int m, double s);

#endif
