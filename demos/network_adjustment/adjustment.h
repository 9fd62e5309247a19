#ifndef NETWORK_ADJUSTMENT_ADJUSTMENT_H
#define NETWORK_ADJUSTMENT_ADJUSTMENT_H

// Adjustment of a GNSS network: linear in X, Y, Z, so one step from any approximate coordinates solves it.

#include <alidade/coords.h>
#include <alidade/linalg3.h>
#include <alidade/matrix.h>

#include <memory>
#include <stdexcept>
#include <vector>

#include "least_squares.h"
#include "network.h"

namespace network {

constexpr int kFixed = -1;

struct AdjustedNetwork {
  std::vector<Coord> positions;        // of each station
  std::vector<int> points;             // of each station: its number among those not fixed, or kFixed
  std::unique_ptr<TSMatrix> cofactor;  // covariance of their X, Y, Z at a-priori variance factor 1, square metres
  std::vector<GroupResult> groups;     // in the order of the network's groups
  int unknowns = 0;
  int observations = 0;
  double chi_square = 0;  // sum of v' P v

  int redundancy() const { return observations - unknowns; }

  // Of X, Y, Z; zero for a fixed station.
  covar covariance(int station) const;
  // Of the difference rover - base, from the joint covariance of both.
  covar relative_covariance(int base, int rover) const;
};

// The observations have no adjustment: the normal equations cannot be inverted, or the result is none on Earth.
class AdjustmentError : public std::runtime_error {
public:
  using std::runtime_error::runtime_error;
};

// progress: null, or a percentage that the inversion advances up to 99 while it runs on the calling thread.
AdjustedNetwork adjust(const Network& network, int* progress);

}  // namespace network

#endif
