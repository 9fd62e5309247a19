#ifndef ALIDADE_SRC_COORDS_ANGLE_CONSTANTS_H
#define ALIDADE_SRC_COORDS_ANGLE_CONSTANTS_H

#include "strict_arithmetic.h"

namespace alidade {

// Degrees per radian: 180/pi, rounded to nearest.
constexpr double kDegreesPerRadian = 57.29577951308232;  // 0x1.ca5dc1a63c1f8p+5

// Radians per degree: pi/180, rounded to nearest. The records of coordinates use this one.
constexpr double kRadiansPerDegree = 0.017453292519943295;  // 0x1.1df46a2529d39p-6

// Radians per degree as geod_to_xyz has it: the sixteen-digit decimal, one unit in the last place above pi/180. The two
// are kept apart on purpose: exchanging them moves the last bits of a position.
constexpr double kRadiansPerDegreeDecimal = 0.0174532925199433;  // 0x1.1df46a2529d3ap-6

// Radians. Rounded to nearest.
constexpr double kPi = 3.141592653589793;        // 0x1.921fb54442d18p+1
constexpr double kHalfPi = 1.5707963267948966;   // 0x1.921fb54442d18p+0
constexpr double kFullTurn = 6.283185307179586;  // 0x1.921fb54442d18p+2

// Degrees in a full turn, minutes in a degree, seconds in a minute and in a degree. Exact.
constexpr double kDegreesPerTurn = 360.0;        // 0x1.68p+8
constexpr double kMinutesPerDegree = 60.0;       // 0x1.ep+5
constexpr double kSecondsPerMinute = 60.0;       // 0x1.ep+5
constexpr double kArcSecondsPerDegree = 3600.0;  // 0x1.c2p+11

// Degrees in a minute and in a second: 1/60 and 1/3600, rounded to nearest.
constexpr double kDegreesPerMinute = 0.016666666666666666;      // 0x1.1111111111111p-6
constexpr double kDegreesPerArcSecond = 0.0002777777777777778;  // 0x1.23456789abcdfp-12

}  // namespace alidade

#endif
