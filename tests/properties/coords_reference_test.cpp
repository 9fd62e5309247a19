// Every coordinate function against its literal version, bit for bit, over plausible and nasty inputs.

#include <alidade/coords.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>

#include "reference/coords.h"
#include "support/bits.h"
#include "support/coords_inputs.h"
#include "support/sizes.h"

namespace {

constexpr int kCases = sizes::all_or_few(150000, 25000);

Coord coord(const inputs::Vector& v) { return Coord(v[0], v[1], v[2]); }
TAbstractPoint3<double> point(const inputs::Vector& v) { return TAbstractPoint3<double>(v.data()); }
inputs::Vector nasty_vector(inputs::Source& source) { return {source.nasty(), source.nasty(), source.nasty()}; }

// The fields of a record as an array, copied: the comparison sees what lies in memory.
template <class Record>
testing::AssertionResult same_fields(const Record& record, const double* expected) {
  double fields[3];
  static_assert(sizeof record == sizeof fields, "three doubles");
  std::memcpy(fields, &record, sizeof fields);
  return bits::equal_arrays(fields, expected, 3);
}

std::string text(const inputs::Vector& v) { return bits::text(v[0]) + " " + bits::text(v[1]) + " " + bits::text(v[2]); }

TEST(CoordsReference, Arithmetic) {
  inputs::Source source(1);
  for (int i = 0; i < kCases; ++i) {
    const inputs::Vector a = nasty_vector(source);
    const inputs::Vector b = nasty_vector(source);
    const double s = source.nasty();
    double sum[3];
    double difference[3];
    double negative[3];
    double product[3];
    double quotient[3];
    double by_reciprocal[3];
    const double all[3] = {s, s, s};
    for (int k = 0; k < 3; ++k) {
      sum[k] = a[k] + b[k];
      difference[k] = a[k] - b[k];
      negative[k] = -a[k];
      product[k] = a[k] * s;
      quotient[k] = a[k] / s;
    }
    reference::times_reciprocal(a.data(), s, by_reciprocal);
    const Coord A = coord(a);
    const Coord B = coord(b);
    EXPECT_TRUE(same_fields(A + B, sum));
    EXPECT_TRUE(same_fields(A - B, difference));
    EXPECT_TRUE(same_fields(-A, negative));
    EXPECT_TRUE(same_fields(A * s, product));
    EXPECT_TRUE(same_fields(A / s, by_reciprocal));
    Coord c = A;
    EXPECT_TRUE(same_fields(c += B, sum));
    c = A;
    EXPECT_TRUE(same_fields(c -= B, difference));
    c = A;
    EXPECT_TRUE(same_fields(c *= s, product));
    c = A;
    EXPECT_TRUE(same_fields(c /= s, quotient));
    EXPECT_TRUE(same_fields(c = s, all));
    CHECK_BITS(A * B, reference::dot(a.data(), b.data()));
    CHECK_BITS(R2(A), reference::squared_length(a.data()));
    CHECK_BITS(RR(A), reference::length(a.data()));
    CHECK_BITS(RR(a[0], a[1], a[2]), reference::length_of_three(a[0], a[1], a[2]));
    if (HasFailure()) {
      FAIL() << text(a) << "\n" << text(b) << "\n" << bits::text(s);
    }
  }
}

TEST(CoordsReference, UnitSwitches) {
  inputs::Source source(2);
  for (int i = 0; i < kCases; ++i) {
    const inputs::Vector v = nasty_vector(source);
    const double degrees[3] = {v[0] * 57.29577951308232, v[1] * 57.29577951308232, v[2]};
    const double radians[3] = {v[0] * 0.017453292519943295, v[1] * 0.017453292519943295, v[2]};
    GeoCoord g;
    PolCoord p;
    std::memcpy(static_cast<void*>(&g), v.data(), sizeof g);
    std::memcpy(static_cast<void*>(&p), v.data(), sizeof p);
    CHECK_BITS(g.Latitude(), v[0] * 3600.0);
    CHECK_BITS(g.Longitude(), (v[1] - 360.0) * 3600.0);
    g.rad2deg();
    p.rad2deg();
    EXPECT_TRUE(same_fields(g, degrees));
    EXPECT_TRUE(same_fields(p, degrees));
    std::memcpy(static_cast<void*>(&g), v.data(), sizeof g);
    std::memcpy(static_cast<void*>(&p), v.data(), sizeof p);
    g.deg2rad();
    p.deg2rad();
    EXPECT_TRUE(same_fields(g, radians));
    EXPECT_TRUE(same_fields(p, radians));
    if (HasFailure()) {
      FAIL() << text(v);
    }
  }
}

TEST(CoordsReference, Blh2Xyz) {
  inputs::Source source(3);
  for (int i = 0; i < kCases; ++i) {
    inputs::Vector blh = {source.uniform(-1.6, 1.6), source.uniform(0.0, 6.3), source.signed_magnitude(-3.0, 8.0)};
    if (i % 4 == 0) {
      blh = nasty_vector(source);
    }
    GeoCoord g;
    std::memcpy(static_cast<void*>(&g), blh.data(), sizeof g);
    double expected[3];
    reference::blh2xyz(blh.data(), expected);
    Coord c;
    ASSERT_TRUE(same_fields(c.blh2xyz(g), expected)) << text(blh);
  }
}

// Where the plain iteration ends within this many passes its result is also compared: the further stops, for a NaN and
// for a cycle, must never change a loop that ends by itself.
TEST(CoordsReference, Xyz2Blh) {
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
    const GeoCoord g(coord(xyz));
    ASSERT_TRUE(same_fields(g, expected)) << text(xyz);
    alternating += end == reference::End::kAlternates ? 1 : 0;
    not_a_number += end == reference::End::kNaN ? 1 : 0;
    if (end == reference::End::kConverged || end == reference::End::kOnAxis) {
      const reference::End plain_end = reference::xyz2blh_plain(xyz.data(), kPlainPasses, expected, &passes);
      if (plain_end != reference::End::kPassesUsedUp) {
        ASSERT_TRUE(same_fields(g, expected)) << text(xyz);
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

TEST(CoordsReference, GeodToXyz) {
  inputs::Source source(5);
  for (int i = 0; i < kCases; ++i) {
    const int to_cartesian = i % 2;
    double a = 6378137.0;
    double f = 1.0 / 298.257223563;
    switch (source.below(8)) {
      case 0:
        a = source.nasty();
        f = source.nasty();
        break;
      case 1:
        a = source.uniform(6.3e6, 6.4e6);
        f = source.uniform(-0.1, 0.9);
        break;
      case 2:
        f = 0.0;
        break;
      default:
        break;
    }
    const inputs::Vector xyz = source.position();
    double v[6] = {
        source.uniform(-90, 90), source.uniform(-180, 360), source.signed_magnitude(-3, 8), xyz[0], xyz[1], xyz[2]};
    if (source.below(8) == 0) {
      for (double& component : v) {
        component = source.nasty();
      }
    }
    double expected[6];
    std::memcpy(expected, v, sizeof v);
    reference::geod_to_xyz(to_cartesian, a, f, expected);
    const std::string input = bits::text(v[0]) + " " + bits::text(v[1]) + " " + bits::text(v[2]) + " " + text(xyz);
    geod_to_xyz(to_cartesian, a, f, v, v + 1, v + 2, v + 3, v + 4, v + 5);
    ASSERT_TRUE(bits::equal_arrays(v, expected, 6)) << to_cartesian << " " << input;
  }
}

TEST(CoordsReference, LocalFrames) {
  inputs::Source source(6);
  for (int i = 0; i < kCases; ++i) {
    const inputs::Vector station = source.position();
    inputs::Vector other = source.position();
    if (i % 2 == 0) {
      for (int k = 0; k < 3; ++k) {
        other[k] = station[k] + source.signed_magnitude(-4.0, 5.0);
      }
    }
    double neu[3];
    double polar[3];
    reference::relat_coord(station.data(), other.data(), neu, polar);
    Coord our_neu;
    PolCoord our_polar;
    coord(station).relatCoord(coord(other), our_neu, our_polar);
    ASSERT_TRUE(same_fields(our_neu, neu)) << text(station) << "\n" << text(other);
    ASSERT_TRUE(same_fields(our_polar, polar)) << text(station) << "\n" << text(other);

    double xyz[3];
    reference::offset_coord(station.data(), other.data(), xyz);
    Coord ours;
    ASSERT_TRUE(same_fields(ours.offsetCoord(coord(station), coord(other)), xyz)) << text(station) << "\n"
                                                                                  << text(other);

    const inputs::Vector blh =
        i % 4 == 0 ? nasty_vector(source) : inputs::Vector{source.uniform(-1.6, 1.6), source.uniform(-7, 7), 0.0};
    double enu[3];
    reference::blh_to_neu(blh.data(), other.data(), enu);
    ASSERT_TRUE(same_fields(blh_to_neu(point(blh), point(other)), enu)) << text(blh) << "\n" << text(other);

    reference::neu_to_polar(other.data(), polar);
    ASSERT_TRUE(same_fields(neu_to_polar(point(other)), polar)) << text(other);
    const inputs::Vector wild = nasty_vector(source);
    reference::neu_to_polar(wild.data(), polar);
    ASSERT_TRUE(same_fields(neu_to_polar(point(wild)), polar)) << text(wild);
  }
}

TEST(CoordsReference, DegreeNotation) {
  inputs::Source source(7);
  for (int i = 0; i < 2 * kCases; ++i) {
    double degrees = source.uniform(-360.0, 360.0);
    switch (source.below(5)) {
      case 0:
        degrees = source.nasty();
        break;
      case 1:  // just by a whole minute
        degrees = source.below(21600) / 60.0 + source.signed_magnitude(-12.0, -5.0);
        break;
      case 2:  // whole seconds
        degrees = (source.below(1296000) - 648000) / 3600.0;
        break;
      default:
        break;
    }
    int d = 0;
    int m = 0;
    double s = 0.0;
    int expected_d = 0;
    int expected_m = 0;
    double expected_s = 0.0;
    deg_to_dms(degrees, &d, &m, &s);
    reference::deg_to_dms(degrees, &expected_d, &expected_m, &expected_s);
    ASSERT_EQ(d, expected_d) << bits::text(degrees);
    ASSERT_EQ(m, expected_m) << bits::text(degrees);
    ASSERT_TRUE(bits::same(s, expected_s)) << bits::text(degrees);
    const double joined = dms_to_deg(d, m, s);
    ASSERT_TRUE(bits::same(joined, reference::dms_to_deg(d, m, s))) << d << ' ' << m << ' ' << bits::text(s);
    const int any_d = static_cast<int>(source.bits());
    const int any_m = static_cast<int>(source.bits());
    const double any_s = source.nasty();
    ASSERT_TRUE(bits::same(dms_to_deg(any_d, any_m, any_s), reference::dms_to_deg(any_d, any_m, any_s)))
        << any_d << ' ' << any_m << ' ' << bits::text(any_s);
  }
}

}  // namespace
