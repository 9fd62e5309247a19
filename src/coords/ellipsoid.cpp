#include "coords/ellipsoid.h"

#include "square_root.h"
#include "strict_arithmetic.h"

// The members are declared, and so initialised, in this order. The derived values are computed, not typed in.
Ellipsoid::Ellipsoid(const double& semi_major_axis, const double& first_eccentricity)
    : a(semi_major_axis),
      e(first_eccentricity),
      e2(e * e),
      ep2(e2 / (1.0 - e2)),
      onePlusEp2(ep2 + 1.0),
      c(a / alidade::square_root(1.0 - e2)) {}

namespace alidade {

constexpr Ellipsoid reference_ellipsoid = ReferenceEllipsoid::make();

}  // namespace alidade
