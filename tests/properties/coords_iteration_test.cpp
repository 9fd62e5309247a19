// The iteration for the latitude, with its two further stops, against the plain one.

#include <alidade/coords.h>
#include <gtest/gtest.h>

#include <cstdint>

#include "reference/coords.h"
#include "support/bits.h"
#include "support/coords_inputs.h"
#include "support/sizes.h"

namespace {

std::string text(const inputs::Vector& v) { return bits::text(v[0]) + " " + bits::text(v[1]) + " " + bits::text(v[2]); }

// Where the plain iteration ends within this many passes its result is also compared: the further stops, for a NaN and
// for a cycle, must never change a loop that ends by itself.
TEST(Xyz2Blh, EndsWhereThePlainIterationEnds) {
  constexpr int kCases = sizes::all_or_few(150000, 25000);
  constexpr std::int64_t kPlainPasses = 2000;
  inputs::Source source(4);
  int plain = 0;
  int alternating = 0;
  int not_a_number = 0;
  for (int i = 0; i < 2 * kCases; ++i) {
    const inputs::Vector xyz = source.position();
    double expected[3];
    std::int64_t passes = 0;
    const reference::End end = reference::xyz2blh(xyz.data(), expected, &passes);
    ASSERT_NE(end, reference::End::kPassesUsedUp) << text(xyz);
    const GeoCoord g(Coord(xyz[0], xyz[1], xyz[2]));
    ASSERT_TRUE(bits::equal_arrays(&g.b, expected, 3)) << text(xyz);
    alternating += end == reference::End::kAlternates ? 1 : 0;
    not_a_number += end == reference::End::kNaN ? 1 : 0;
    if (end == reference::End::kConverged || end == reference::End::kOnAxis) {
      const reference::End plain_end = reference::xyz2blh_plain(xyz.data(), kPlainPasses, expected, &passes);
      if (plain_end != reference::End::kPassesUsedUp) {
        ASSERT_TRUE(bits::equal_arrays(&g.b, expected, 3)) << text(xyz);
        ++plain;
      }
    } else {
      ASSERT_EQ(reference::xyz2blh_plain(xyz.data(), kPlainPasses, expected, &passes), reference::End::kPassesUsedUp)
          << "stopped a loop that ends by itself: " << text(xyz);
    }
  }
  EXPECT_GT(plain, kCases);
  EXPECT_GT(alternating, 10);
  EXPECT_GT(not_a_number, 10);
}

}  // namespace
