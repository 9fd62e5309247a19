// Scalar helpers against the plain reference, bit for bit.

#include <alidade/matrix.h>

#include <climits>
#include <cmath>
#include <cstring>
#include <limits>

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

TEST(ScalarsDifferential, CountedMinimumAndMaximumOfInts) {
  PlaneInputs inputs(5501);
  for (int i = 0; i < kCases; ++i) {
    int v[20];
    for (int& value : v) {
      value = draw_int(inputs);
    }
    const int n = inputs.below(20) + 1;
    ASSERT_EQ(min1(n, v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7], v[8], v[9], v[10], v[11], v[12], v[13], v[14],
                   v[15], v[16], v[17], v[18], v[19]),
              reference::least(n, v));
    ASSERT_EQ(max1(n, v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7], v[8], v[9], v[10], v[11], v[12], v[13], v[14],
                   v[15], v[16], v[17], v[18], v[19]),
              reference::greatest(n, v));
  }
}

TEST(ScalarsDifferential, CountedMinimumAndMaximumOfDoubles) {
  PlaneInputs inputs(5502);
  for (int i = 0; i < kCases; ++i) {
    double v[20];
    for (double& value : v) {
      value = inputs.number();
    }
    const int n = inputs.below(20) + 1;
    ASSERT_TRUE(bits::same(amin1(n, v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7], v[8], v[9], v[10], v[11], v[12],
                                 v[13], v[14], v[15], v[16], v[17], v[18], v[19]),
                           reference::least(n, v)));
    ASSERT_TRUE(bits::same(amax1(n, v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7], v[8], v[9], v[10], v[11], v[12],
                                 v[13], v[14], v[15], v[16], v[17], v[18], v[19]),
                           reference::greatest(n, v)));
  }
}

TEST(ScalarsDifferential, Powers) {
  PlaneInputs inputs(5503);
  for (int i = 0; i < kCases; ++i) {
    const double x = inputs.below(2) == 0 ? inputs.number() : inputs.fraction() * 3.0;
    const int n = inputs.below(4) == 0 ? draw_int(inputs) : inputs.below(81) - 40;
    ASSERT_TRUE(bits::same(power(x, n), reference::real_power(x, n))) << x << '^' << n;
    const int a = draw_int(inputs);
    ASSERT_EQ(power(a, n), reference::integer_power(a, n)) << a << '^' << n;
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

TEST(ScalarsDifferential, NeighbouringNumbers) {
  PlaneInputs inputs(5506);
  for (int i = 0; i < kCases; ++i) {
    const double x = inputs.number();
    const double s = inputs.number();
    ASSERT_TRUE(bits::same(nearest(x, s), reference::step_double(x, s))) << x << ' ' << s;
    const auto pattern = static_cast<std::uint32_t>(inputs.word());
    float narrow = 0;
    std::memcpy(&narrow, &pattern, sizeof narrow);
    const float directions[] = {static_cast<float>(inputs.fraction()), 0.0F, -0.0F,
                                std::numeric_limits<float>::quiet_NaN()};
    const float direction = directions[inputs.below(4)];
    ASSERT_TRUE(bits::same(nearest(narrow, direction), reference::step_float(narrow, direction)))
        << narrow << ' ' << direction;
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
