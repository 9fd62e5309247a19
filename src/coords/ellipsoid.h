#ifndef ALIDADE_SRC_COORDS_ELLIPSOID_H
#define ALIDADE_SRC_COORDS_ELLIPSOID_H

#include <alidade/coords.h>

#include "strict_arithmetic.h"

namespace alidade {

// Semi-major axis of the reference ellipsoid, metres: WGS 84 and GRS 80. Exact.
constexpr double kSemiMajorAxis = 6378137.0;  // 0x1.854a64p+22

// First eccentricity of the reference ellipsoid. Deliberately this decimal of twelve digits: the inverse flattening
// that belongs to it is 298.25722, between those of GRS 80 (298.257222101) and WGS 84 (298.257223563).
constexpr double kFirstEccentricity = 0.0818191913305;  // 0x1.4f21a3ef31d32p-4

// sqrt(1 - e^2), rounded to nearest: the ratio of the axes. A square root is no constant for every compiler, hence the
// number itself.
constexpr double kAxisRatio = 0x1.fe488a5758aeap-1;

// Makes the reference ellipsoid while compiling. Had it to be computed at load, the library would write to the exported
// name, and so into whatever a host program exports under it.
struct ReferenceEllipsoid {
  static constexpr Ellipsoid make() {
    const double e2 = kFirstEccentricity * kFirstEccentricity;
    const double ep2 = e2 / (1.0 - e2);
    return {kSemiMajorAxis, kFirstEccentricity, e2, ep2, ep2 + 1.0, kSemiMajorAxis / kAxisRatio};
  }
};

// The ellipsoid of the conversions: equal to DefaultEllipsoid, but not exported, so that a host program's own symbol of
// that name cannot replace it.
extern const Ellipsoid reference_ellipsoid;

}  // namespace alidade

#endif
