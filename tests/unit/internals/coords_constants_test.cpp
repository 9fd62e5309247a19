// The constants of the coordinates by bit pattern.

#include <gtest/gtest.h>

#include <cmath>

#include "coords/angle_constants.h"
#include "coords/ellipsoid.h"
#include "support/bits.h"

namespace {

TEST(CoordsConstants, ByBitPattern) {
  CHECK_BITS(alidade::kDegreesPerRadian, bits::from(0x404CA5DC1A63C1F8));
  CHECK_BITS(alidade::kRadiansPerDegree, bits::from(0x3F91DF46A2529D39));
  CHECK_BITS(alidade::kRadiansPerDegreeDecimal, bits::from(0x3F91DF46A2529D3A));
  CHECK_BITS(alidade::kPi, bits::from(0x400921FB54442D18));
  CHECK_BITS(alidade::kHalfPi, bits::from(0x3FF921FB54442D18));
  CHECK_BITS(alidade::kFullTurn, bits::from(0x401921FB54442D18));
  CHECK_BITS(alidade::kDegreesPerMinute, bits::from(0x3F91111111111111));
  CHECK_BITS(alidade::kDegreesPerArcSecond, bits::from(0x3F323456789ABCDF));
  CHECK_BITS(alidade::kArcSecondsPerDegree, bits::from(0x40AC200000000000));
  CHECK_BITS(alidade::kDegreesPerTurn, bits::from(0x4076800000000000));
  CHECK_BITS(alidade::kSemiMajorAxis, bits::from(0x415854A640000000));
  CHECK_BITS(alidade::kFirstEccentricity, bits::from(0x3FB4F21A3EF31D32));
}

TEST(CoordsConstants, TheTwoDegreeFactorsAreNeighbours) {
  EXPECT_EQ(bits::of(alidade::kRadiansPerDegreeDecimal), bits::of(alidade::kRadiansPerDegree) + 1);
}

TEST(CoordsConstants, TheReferenceEllipsoidIsWhatItsConstructorMakes) {
  const Ellipsoid made(alidade::kSemiMajorAxis, alidade::kFirstEccentricity);
  CHECK_BITS(alidade::kAxisRatio, std::sqrt(1.0 - made.e2));
  for (const Ellipsoid* constant : {&DefaultEllipsoid, &alidade::reference_ellipsoid}) {
    CHECK_BITS(constant->e2, made.e2);
    CHECK_BITS(constant->ep2, made.ep2);
    CHECK_BITS(constant->onePlusEp2, made.onePlusEp2);
    CHECK_BITS(constant->c, made.c);
  }
}

}  // namespace
