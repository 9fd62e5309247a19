// What holds of rectangles in general.

#include <alidade/points.h>

#include "support/bits.h"
#include "support/plane_inputs.h"
#include "support/sizes.h"

namespace {

constexpr int kCases = sizes::all_or_few(100000, 16666);

using Rect = TAbstractRect<double>;

TEST(RectanglesProperties, UnionContainsBothAndIntersectionLiesInBoth) {
  PlaneInputs inputs(2204);
  int overlapping = 0;
  for (int i = 0; i < kCases; ++i) {
    const Rect a = Rect(inputs.survey(), inputs.survey(), inputs.survey(), inputs.survey()).Normalized();
    const Rect b = Rect(inputs.survey(), inputs.survey(), inputs.survey(), inputs.survey()).Normalized();
    Rect both(a);
    both |= b;
    ASSERT_TRUE(both.Contains(a) && both.Contains(b)) << i;
    Rect itself(a);
    ASSERT_TRUE((itself &= itself).Contains(a) && (itself |= itself).Contains(a)) << i;
    Rect common(a);
    common &= b;
    if (!common.IsEmpty()) {
      ++overlapping;
      ASSERT_TRUE(a.Contains(common) && b.Contains(common)) << i;
    }
  }
  EXPECT_GT(overlapping, kCases / 10);
}

}  // namespace
