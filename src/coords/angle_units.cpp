#include <alidade/coords.h>

#include "coords/angle_constants.h"
#include "strict_arithmetic.h"

void GeoCoord::rad2deg() {
  b *= alidade::kDegreesPerRadian;
  l *= alidade::kDegreesPerRadian;
}

void GeoCoord::deg2rad() {
  b *= alidade::kRadiansPerDegree;
  l *= alidade::kRadiansPerDegree;
}

double GeoCoord::Latitude() const { return b * alidade::kArcSecondsPerDegree; }

// The full turn is subtracted whatever the longitude.
double GeoCoord::Longitude() const { return (l - alidade::kDegreesPerTurn) * alidade::kArcSecondsPerDegree; }

void PolCoord::rad2deg() {
  azimuth *= alidade::kDegreesPerRadian;
  elevation *= alidade::kDegreesPerRadian;
}

void PolCoord::deg2rad() {
  azimuth *= alidade::kRadiansPerDegree;
  elevation *= alidade::kRadiansPerDegree;
}
