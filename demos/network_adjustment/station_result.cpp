#include "station_result.h"

#include <alidade/linalg3.h>

#include <cmath>

#include "local_frame.h"

namespace network {

StationResult station_result(AdjustedNetwork& adjusted, int station) {
  StationResult result{};
  result.position = adjusted.positions[static_cast<std::size_t>(station)];
  result.geodetic = GeoCoord(result.position);
  const covar local = local_frame(result.position) & covar(*adjusted.cofactor, 3 * station);
  result.sd_east = std::sqrt(local[0]);
  result.sd_north = std::sqrt(local[2]);
  result.sd_up = std::sqrt(local[5]);
  result.ellipse = horizontal_ellipse(local);
  return result;
}

}  // namespace network
