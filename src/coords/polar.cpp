#include <alidade/coords.h>

#include <cfloat>
#include <cmath>

#include "coords/angle_constants.h"
#include "square_root.h"
#include "strict_arithmetic.h"

namespace {

// The angles of a vector without direction: the largest finite double, 0x1.fffffffffffffp+1023.
constexpr double kUndefined = DBL_MAX;

}  // namespace

TAbstractPoint3<double> neu_to_polar(const TAbstractPoint3<double>& v) {
  const double east = v[0];
  const double north = v[1];
  const double up = v[2];
  const double horizontal_squared = east * east + north * north;
  if (horizontal_squared == 0.0 && up == 0.0) {
    return {kUndefined, kUndefined, 0.0};
  }
  const double distance = alidade::square_root(up * up + horizontal_squared);
  const double elevation = std::atan2(up, alidade::square_root(horizontal_squared));
  double azimuth = std::atan2(east, north);
  if (azimuth < 0.0) {
    azimuth = azimuth + alidade::kFullTurn;
  }
  return {elevation, azimuth, distance};
}
