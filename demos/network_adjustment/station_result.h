#ifndef NETWORK_ADJUSTMENT_STATION_RESULT_H
#define NETWORK_ADJUSTMENT_STATION_RESULT_H

#include <alidade/coords.h>

#include "adjustment.h"
#include "ellipse.h"

namespace network {

// What a surveyor reads off for one station. Standard deviations at a-priori variance factor 1, metres.
struct StationResult {
  Coord position;
  GeoCoord geodetic;  // on the network's ellipsoid; radians, metres
  double sd_east;
  double sd_north;
  double sd_up;
  ErrorEllipse ellipse;
  bool fixed;  // then deviations and ellipse are zero
};

StationResult station_result(const Network& network, const AdjustedNetwork& adjusted, int station);

}  // namespace network

#endif
