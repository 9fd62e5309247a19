#include "geodetic.h"

#include <alidade/points.h>

namespace network {

GeoCoord geodetic(const ReferenceEllipsoid& ellipsoid, const Coord& position) {
  Coord xyz = position;  // on the polar axis the conversion changes x
  GeoCoord result;
  geod_to_xyz(0, ellipsoid.a, 1 / ellipsoid.inverse_flattening, &result.b, &result.l, &result.h, &xyz.x, &xyz.y,
              &xyz.z);
  result.deg2rad();
  return result;
}

TAbstractPoint3<double> local(const GeoCoord& station, const Coord& difference) {
  return blh_to_neu(TAbstractPoint3<double>(station.b, station.l, station.h),
                    TAbstractPoint3<double>(difference.x, difference.y, difference.z));
}

// Column j is the image of the geocentric unit vector j.
matr3_3 local_frame(const GeoCoord& station) {
  matr3_3 frame(0);
  *frame.Column(0) = triad(local(station, Coord(1, 0, 0)));
  *frame.Column(1) = triad(local(station, Coord(0, 1, 0)));
  *frame.Column(2) = triad(local(station, Coord(0, 0, 1)));
  return frame;
}

}  // namespace network
