// The reference ellipsoid in a program that contains the library's objects, as one linked with the static library does:
// ready before the program's static initialisers, also those that ask to run first.

#include <alidade/coords.h>
#include <gtest/gtest.h>

#include "coords/ellipsoid.h"
#include "support/bits.h"

namespace {

#if defined(__GNUC__) && (defined(__ELF__) || defined(__MINGW32__))
#define EARLY __attribute__((init_priority(101)))
#else
#define EARLY
#endif

struct Snapshot {
  Snapshot() : exported(DefaultEllipsoid), internal(alidade::reference_ellipsoid), converted(6378137.0, 0.0, 0.0) {}

  Ellipsoid exported;
  Ellipsoid internal;
  GeoCoord converted;
};

EARLY const Snapshot early;
const Snapshot usual;

TEST(CoordsLoadOrder, EllipsoidIsReadyBeforeStaticInitialisers) {
  for (const Snapshot* snapshot : {&early, &usual}) {
    for (const Ellipsoid* ellipsoid : {&snapshot->exported, &snapshot->internal, &DefaultEllipsoid}) {
      CHECK_BITS(ellipsoid->a, bits::from(0x415854A640000000));
      CHECK_BITS(ellipsoid->e, bits::from(0x3FB4F21A3EF31D32));
      CHECK_BITS(ellipsoid->e2, bits::from(0x3F7B6B90F77B10BE));
      CHECK_BITS(ellipsoid->ep2, bits::from(0x3F7B9ADFE727574C));
      CHECK_BITS(ellipsoid->onePlusEp2, bits::from(0x3FF01B9ADFE72757));
      CHECK_BITS(ellipsoid->c, bits::from(0x4158699A6810A40A));
    }
    EXPECT_NEAR(snapshot->converted.h, 0.0, 2e-9);
  }
}

}  // namespace
