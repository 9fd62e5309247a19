// Scalar helpers: what golden cases cannot hold, the sign of a NaN and longs beyond 32 bits, and what holds in general.

#include <alidade/matrix.h>

#include <climits>

#include "reference/scalars.h"
#include "support/bits.h"
#include "support/plane_inputs.h"
#include "support/sizes.h"

namespace {

constexpr int kCases = sizes::all_or_few(100000, 16666);

int draw_int(PlaneInputs& inputs) {
  switch (inputs.below(3)) {
    case 0:
      return inputs.below(11) - 5;
    case 1:
      return inputs.below(2) == 0 ? INT_MIN + inputs.below(3) : INT_MAX - inputs.below(3);
    default:
      return static_cast<int>(static_cast<std::uint32_t>(inputs.word()));
  }
}

TEST(ScalarsDifferential, Signs) {
  PlaneInputs inputs(5504);
  for (int i = 0; i < kCases; ++i) {
    const double a = inputs.number();
    const double b = inputs.number();
    const double result = sign(a, b);
    const double expected = reference::sign_transfer(a, b);
    ASSERT_EQ(bits::of(result), bits::of(expected)) << a << ' ' << b;  // the sign of a NaN too
    const int c = draw_int(inputs);
    const int d = draw_int(inputs);
    ASSERT_EQ(sign(c, d), reference::sign_transfer(c, d)) << c << ' ' << d;
  }
}

TEST(ScalarsDifferential, CircularShifts) {
  PlaneInputs inputs(5505);
  for (int i = 0; i < kCases; ++i) {
    auto wide = static_cast<long>(inputs.word());
    auto half = static_cast<short>(static_cast<std::uint16_t>(inputs.word()));
    auto narrow = static_cast<char>(static_cast<unsigned char>(inputs.word()));
    int s = draw_int(inputs);
    ASSERT_EQ(ishc(wide, s), reference::rotate(wide, 32, s, true)) << wide << ' ' << s;
    ASSERT_EQ(ishc(half, s), reference::rotate(half, 16, s, false)) << half << ' ' << s;
    ASSERT_EQ(ishc(narrow, s), reference::rotate(narrow, 8, s, true)) << static_cast<int>(narrow) << ' ' << s;
  }
}

// A left rotation undoes the right rotation by as many bits, in the two widths that rotate to the right at all.
TEST(ScalarsProperties, RotationsUndoEachOther) {
  PlaneInputs inputs(5507);
  for (int i = 0; i < kCases; ++i) {
    auto wide = static_cast<long>(static_cast<int>(static_cast<std::uint32_t>(inputs.word())));
    auto narrow = static_cast<char>(static_cast<unsigned char>(inputs.word()));
    int left = inputs.below(100);
    int right = -left;
    long turned = ishc(wide, left);
    ASSERT_EQ(ishc(turned, right), static_cast<int>(wide));
    auto turned_narrow = static_cast<char>(ishc(narrow, left));
    ASSERT_EQ(ishc(turned_narrow, right), static_cast<int>(static_cast<unsigned char>(narrow)));
  }
}

}  // namespace
