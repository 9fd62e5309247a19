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

// The ellipsoid of the conversions: equal to DefaultEllipsoid, but not exported, so that a host program's own symbol of
// that name cannot replace it.
extern const Ellipsoid reference_ellipsoid;

}  // namespace alidade

// Marks a constant that must be ready before any static initialiser of the host runs, also in the static library, where
// the order between source files is otherwise open. 101 is the first priority that programs may use.
#if defined(__GNUC__) && (defined(__ELF__) || defined(__MINGW32__) || defined(__wasm__))
#define ALIDADE_INITIALISE_FIRST __attribute__((init_priority(101)))
#else
#define ALIDADE_INITIALISE_FIRST
#endif

#endif
