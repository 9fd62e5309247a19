#ifndef NETWORK_ADJUSTMENT_REDUCTION_H
#define NETWORK_ADJUSTMENT_REDUCTION_H

// From a base station to a rover: local offsets, polar form and the standard deviations of the one relative to the
// other.

#include <alidade/coords.h>

#include "adjustment.h"

namespace network {

struct Reduction {
  int base;
  int rover;
  Coord neu;       // x north, y east, z up, metres, in the horizon of the base
  PolCoord polar;  // radians, metres; angles undefined at distance 0
  double sd_north;
  double sd_east;
  double sd_up;
};

Reduction reduce(const Network& network, const AdjustedNetwork& adjusted, int base, int rover);

}  // namespace network

#endif
