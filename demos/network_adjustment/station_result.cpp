#include "station_result.h"

#include <alidade/linalg3.h>

#include <cmath>

#include "geodetic.h"

namespace network {

StationResult station_result(const Network& network, const AdjustedNetwork& adjusted, int station) {
  StationResult result{};
  result.position = adjusted.positions[static_cast<std::size_t>(station)];
  result.geodetic = geodetic(network.ellipsoid, result.position);
  result.fixed = network.stations[static_cast<std::size_t>(station)].fixed;
  if (result.fixed) {
    return result;
  }
  const covar local = local_frame(result.geodetic) & adjusted.covariance(station);
  result.sd_east = std::sqrt(local[0]);
  result.sd_north = std::sqrt(local[2]);
  result.sd_up = std::sqrt(local[5]);
  result.ellipse = horizontal_ellipse(local);
  return result;
}

}  // namespace network
