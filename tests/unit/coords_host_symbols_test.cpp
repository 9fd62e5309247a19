// A host program with functions and data of the library's own names: they may hide the exported names from the program,
// but must not change what the library computes.

#include <alidade/coords.h>
#include <gtest/gtest.h>

#include <cstdint>

#include "reference/coords.h"
#include "support/bits.h"

// Windows binds the library's names inside the DLL by itself; AddressSanitizer takes a second definition of a variable
// for a mistake, which here it is not.
#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define HAVE_ADDRESS_SANITIZER
#endif
#endif
#if !defined(_WIN32) && !defined(HAVE_ADDRESS_SANITIZER) && !defined(__SANITIZE_ADDRESS__)

const Ellipsoid DefaultEllipsoid(1.0, 0.5);
double RR(const Coord& /*c*/) { return -1.0; }
double R2(const Coord& /*c*/) { return -2.0; }

namespace {

TEST(CoordsHostSymbols, DoNotChangeResults) {
  const double station[3] = {-2862122.55, -1540662.12, 5469360.37};
  const double target[3] = {-2861845.12, -1541212.39, 5469368.90};
  ASSERT_EQ(DefaultEllipsoid.a, 1.0);
  double neu[3];
  double polar[3];
  reference::relat_coord(station, target, neu, polar);
  Coord our_neu;
  PolCoord our_polar;
  Coord(station[0], station[1], station[2]).relatCoord(Coord(target[0], target[1], target[2]), our_neu, our_polar);
  CHECK_BITS(our_neu.x, neu[0]);
  CHECK_BITS(our_neu.y, neu[1]);
  CHECK_BITS(our_neu.z, neu[2]);
  CHECK_BITS(our_polar.azimuth, polar[0]);
  CHECK_BITS(our_polar.distance, polar[2]);

  GeoCoord g;
  g.b = 0.9;
  g.l = 0.1;
  g.h = 12.0;
  const double blh[3] = {0.9, 0.1, 12.0};
  double xyz[3];
  reference::blh2xyz(blh, xyz);
  Coord c;
  c.blh2xyz(g);
  CHECK_BITS(c.x, xyz[0]);
  CHECK_BITS(c.z, xyz[2]);
}

}  // namespace

#endif
