#include <alidade/linalg3.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <limits>
#include <new>
#include <type_traits>

#include "support/bits.h"

namespace {

constexpr double kMarker = 1.7976931348623157e308;
const double kNaN = std::numeric_limits<double>::quiet_NaN();
const double kInf = std::numeric_limits<double>::infinity();

// Hosts exchange arrays of these records, and matr3_3 hands out its columns as triads.
static_assert(sizeof(triad) == 3 * sizeof(double));
static_assert(sizeof(DefTriad) == sizeof(triad));
static_assert(std::is_standard_layout_v<triad> && std::is_trivially_copyable_v<triad>);
static_assert(std::is_standard_layout_v<DefTriad> && std::is_trivially_copyable_v<DefTriad>);
static_assert(std::is_base_of_v<triad, DefTriad>);
static_assert(std::is_same_v<decltype(std::declval<triad&>() = 0), triad&>);

void check(const triad& t, double x, double y, double z) {
  CHECK_BITS(t[0], x);
  CHECK_BITS(t[1], y);
  CHECK_BITS(t[2], z);
}

TEST(Triad, AnyIntegerConstructsTheZeroVector) {
  check(triad(7), 0.0, 0.0, 0.0);
  check(triad(-1), 0.0, 0.0, 0.0);
  check(triad(0), 0.0, 0.0, 0.0);
}

// Default constructors write nothing: the bytes below a new object stay what they were.
template <class T>
bool leaves_its_bytes() {
  alignas(T) unsigned char storage[sizeof(T)];
  std::memset(storage, 0xA5, sizeof storage);
  void* place = storage;
  // Without this the compiler may take the bytes before construction for dead.
  asm volatile("" : "+r"(place) : : "memory");
  new (place) T;
  asm volatile("" : "+r"(place) : : "memory");
  return std::count(storage, storage + sizeof storage, 0xA5) == static_cast<std::ptrdiff_t>(sizeof storage);
}

TEST(Triad, DefaultConstructorsLeaveTheElementsUnset) {
  EXPECT_TRUE(leaves_its_bytes<triad>());
  EXPECT_TRUE(leaves_its_bytes<covar>());
  EXPECT_TRUE(leaves_its_bytes<matr3_3>());
  EXPECT_FALSE(leaves_its_bytes<DefTriad>());
}

TEST(Triad, KeepsTheOrderOfItsComponents) {
  const triad t(1.0, -0.0, 3.0);
  check(t, 1.0, -0.0, 3.0);
  double raw[3];
  std::memcpy(raw, &t, sizeof raw);
  CHECK_BITS(raw[0], 1.0);
  CHECK_BITS(raw[1], -0.0);
  CHECK_BITS(raw[2], 3.0);
}

TEST(Triad, CopiesAPoint) {
  const double p[3] = {4.0, -5.0, 6.0};
  check(triad(TAbstractPoint3<double>(p)), 4.0, -5.0, 6.0);
}

TEST(Triad, AssigningZeroClearsAndAnyOtherIntegerDoesNothing) {
  triad t(1.0, 2.0, 3.0);
  EXPECT_EQ(&(t = 3), &t);
  check(t, 1.0, 2.0, 3.0);
  EXPECT_EQ(&(t = -1), &t);
  check(t, 1.0, 2.0, 3.0);
  EXPECT_EQ(&(t = 0), &t);
  check(t, 0.0, 0.0, 0.0);
}

TEST(Triad, SquareRootHasNoGuard) {
  triad t(4.0, -1.0, 9.0);
  t.sqrt();
  check(t, 2.0, kNaN, 3.0);
  triad special(-0.0, kInf, 0x1p-1074);
  special.sqrt();
  check(special, -0.0, kInf, 0x1p-537);
}

TEST(Triad, VectorProduct) {
  check(triad(1, 0, 0).VectorProduct(triad(0, 1, 0)), 0.0, 0.0, 1.0);
  check(triad(0, 1, 0).VectorProduct(triad(1, 0, 0)), 0.0, 0.0, -1.0);
  const triad v(0.1, -3.7, 5e8);
  check(v.VectorProduct(v), 0.0, 0.0, 0.0);
  check(triad(1, 2, 3).VectorProduct(triad(4, 5, 6)), -3.0, 6.0, -3.0);
}

TEST(DefTriad, StartsUndefined) {
  const DefTriad t;
  CHECK_BITS(t[0], bits::from(0x7FEFFFFFFFFFFFFFu));
  CHECK_BITS(t[1], kMarker);
  CHECK_BITS(t[2], kMarker);
  EXPECT_TRUE(t.IsUndef());
  EXPECT_TRUE(t.IsPartialUndef());
}

TEST(DefTriad, IsPartlyUndefinedUntilEveryComponentIsSet) {
  for (int first = 0; first < 3; ++first) {
    DefTriad t;
    t[first] = 1.0;
    EXPECT_FALSE(t.IsUndef());
    EXPECT_TRUE(t.IsPartialUndef());
    t[(first + 1) % 3] = 2.0;
    EXPECT_FALSE(t.IsUndef());
    EXPECT_TRUE(t.IsPartialUndef());
    t[(first + 2) % 3] = 3.0;
    EXPECT_FALSE(t.IsUndef());
    EXPECT_FALSE(t.IsPartialUndef());
  }
}

TEST(DefTriad, OnlyTheExactMarkerCounts) {
  for (const double value : {-kMarker, kNaN, kInf, 0x1.ffffffffffffep+1023, 0.0}) {
    const triad t(value, value, value);
    EXPECT_FALSE(DefTriad::IsUndef(t)) << value;
    EXPECT_FALSE(DefTriad::IsPartialUndef(t)) << value;
  }
  EXPECT_TRUE(DefTriad::IsPartialUndef(triad(kNaN, 0.0, kMarker)));
  EXPECT_FALSE(DefTriad::IsUndef(triad(kMarker, kMarker, kNaN)));
}

TEST(DefTriad, AssignmentCarriesTheMarker) {
  DefTriad t;
  EXPECT_EQ(&(t = triad(1.0, kMarker, 3.0)), &t);
  check(t, 1.0, kMarker, 3.0);
  DefTriad u;
  EXPECT_EQ(&(u = t), &u);
  check(u, 1.0, kMarker, 3.0);
  EXPECT_TRUE(u.IsPartialUndef());
}

}  // namespace
