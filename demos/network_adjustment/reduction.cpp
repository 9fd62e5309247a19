#include "reduction.h"

#include <cmath>

#include "geodetic.h"

namespace network {

Reduction reduce(const Network& network, const AdjustedNetwork& adjusted, int base, int rover) {
  const Coord& from = adjusted.positions[static_cast<std::size_t>(base)];
  const Coord& to = adjusted.positions[static_cast<std::size_t>(rover)];
  const GeoCoord station = geodetic(network.ellipsoid, from);
  const TAbstractPoint3<double> enu = local(station, to - from);
  const TAbstractPoint3<double> polar = neu_to_polar(enu);

  Reduction result{};
  result.base = base;
  result.rover = rover;
  result.neu = Coord(enu[1], enu[0], enu[2]);
  result.polar.elevation = polar[0];
  result.polar.azimuth = polar[1];
  result.polar.distance = polar[2];
  const covar variance = local_frame(station) & adjusted.relative_covariance(base, rover);
  result.sd_east = std::sqrt(variance[0]);
  result.sd_north = std::sqrt(variance[2]);
  result.sd_up = std::sqrt(variance[5]);
  return result;
}

}  // namespace network
