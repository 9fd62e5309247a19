#include "reduction.h"

#include <cmath>

#include "local_frame.h"

namespace network {
// Vbb + Vrr - (Vbr + Vbr'). Subtracting a matr3_3 from a covar takes away the matrix and its transpose together, not
// halved, as is needed here.
covar relative_covariance(TSMatrix& cofactor, int base, int rover) {
  covar difference(cofactor, 3 * base);
  difference += covar(cofactor, 3 * rover);
  difference -= matr3_3(cofactor, 3 * base, 3 * rover);
  return difference;
}

Reduction reduce(AdjustedNetwork& adjusted, int base, int rover) {
  const Coord& from = adjusted.positions[static_cast<std::size_t>(base)];
  const Coord& to = adjusted.positions[static_cast<std::size_t>(rover)];
  Reduction result{};
  result.base = base;
  result.rover = rover;
  from.relatCoord(to, result.neu, result.polar);

  const covar local = local_frame(from) & relative_covariance(*adjusted.cofactor, base, rover);
  result.sd_east = std::sqrt(local[0]);
  result.sd_north = std::sqrt(local[2]);
  result.sd_up = std::sqrt(local[5]);
  return result;
}

}  // namespace network
