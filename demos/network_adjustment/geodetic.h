#ifndef NETWORK_ADJUSTMENT_GEODETIC_H
#define NETWORK_ADJUSTMENT_GEODETIC_H

#include <alidade/coords.h>
#include <alidade/linalg3.h>

#include "network.h"

namespace network {

// Latitude, longitude (radians) and height of a geocentric position on an ellipsoid.
GeoCoord geodetic(const ReferenceEllipsoid& ellipsoid, const Coord& position);

// A geocentric difference in the horizon of a station: east, north, up.
TAbstractPoint3<double> local(const GeoCoord& station, const Coord& difference);

// The rotation that does so: rows east, north, up.
matr3_3 local_frame(const GeoCoord& station);

}  // namespace network

#endif
