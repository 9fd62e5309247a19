#ifndef ALIDADE_SRC_FLOATING_CLASS_H
#define ALIDADE_SRC_FLOATING_CLASS_H

// What std::isnan and std::isfinite tell. Those are inline functions of the standard library: a build without
// optimisation leaves copies of them in its object files, and a program that is linked with these may get its own
// copies in their place, which are false and true for everything when it was compiled with -ffast-math.

#include <cmath>
#include <limits>

#include "strict_arithmetic.h"

namespace alidade {

inline bool is_nan(double x) { return x != x; }

// Equality raises no exception for a NaN, an ordered comparison would.
inline bool is_finite(double x) { return !is_nan(x) && std::fabs(x) != std::numeric_limits<double>::infinity(); }

}  // namespace alidade

#endif
