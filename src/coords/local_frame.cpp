#include <alidade/coords.h>

#include <cmath>

#include "coords/angle_constants.h"
#include "coords/lengths.h"
#include "square_root.h"
#include "strict_arithmetic.h"

namespace alidade {
namespace {

struct LocalVector {
  double north;
  double east;
  double up;
};

// A geocentric difference turned into the horizon frame at latitude b and longitude l, both in radians.
LocalVector to_local(double b, double l, double dx, double dy, double dz) {
  const double sl = std::sin(l);
  const double cl = std::cos(l);
  const double east = dy * cl - dx * sl;
  const double t = dx * cl + dy * sl;  // horizontal component towards the station's meridian
  const double sb = std::sin(b);
  const double cb = std::cos(b);
  const double north = dz * cb - sb * t;
  const double up = dz * sb + cb * t;
  return {north, east, up};
}

}  // namespace
}  // namespace alidade

void Coord::relatCoord(const Coord& target, Coord& neu, PolCoord& polar) const {
  const Coord d = target - *this;
  const GeoCoord station(*this);
  const alidade::LocalVector v = alidade::to_local(station.b, station.l, d.x, d.y, d.z);
  neu = Coord(v.north, v.east, v.up);
  polar.elevation = std::atan2(v.up, alidade::square_root(v.north * v.north + v.east * v.east));
  double azimuth = std::atan2(v.east, v.north);
  if (azimuth < 0.0) {
    azimuth = azimuth + alidade::kFullTurn;
  }
  polar.azimuth = azimuth;
  polar.distance = alidade::length(d);  // of the difference, not of the rotated vector
}

Coord& Coord::offsetCoord(const Coord& station, const Coord& neu) {
  const GeoCoord origin(station);
  // Copies: *this may be the station or the offset.
  const Coord base = station;
  const double n = neu.x;
  const double e = neu.y;
  const double u = neu.z;
  const double sb = std::sin(origin.b);
  const double cb = std::cos(origin.b);
  z = n * cb + u * sb + base.z;
  const double t = u * cb - n * sb;
  const double sl = std::sin(origin.l);
  const double cl = std::cos(origin.l);
  x = cl * t + base.x - e * sl;
  y = e * cl + sl * t + base.y;
  return *this;
}

TAbstractPoint3<double> blh_to_neu(const TAbstractPoint3<double>& blh, const TAbstractPoint3<double>& d) {
  const alidade::LocalVector v = alidade::to_local(blh[0], blh[1], d[0], d[1], d[2]);
  return {v.east, v.north, v.up};
}
