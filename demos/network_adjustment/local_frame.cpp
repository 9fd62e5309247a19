#include "local_frame.h"

#include <alidade/points.h>

namespace network {

matr3_3 local_frame(const Coord& station) {
  const GeoCoord geodetic(station);
  const TAbstractPoint3<double> blh(geodetic.b, geodetic.l, geodetic.h);
  // Column j is the image of the geocentric unit vector j.
  matr3_3 frame(0);
  for (int j = 0; j < 3; ++j) {
    TAbstractPoint3<double> unit(0.0, 0.0, 0.0);
    unit[j] = 1.0;
    *frame.Column(j) = triad(blh_to_neu(blh, unit));
  }
  return frame;
}

}  // namespace network
