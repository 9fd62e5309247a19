// Levelling networks with published adjusted heights.

#include <gtest/gtest.h>

#include <cmath>

#include "small_networks.h"

namespace {

using small_networks::SmallNetwork;
using small_networks::SmallResult;

// The published heights have four decimals: 0.05 mm.
constexpr double kHeight = 0.05e-3;
// Published corrections and standard deviations have two decimals of a millimetre; half of the last, and the rounding
// of a half.
constexpr double kMillimetre = 0.00501e-3;

void check_against_published(const SmallNetwork& net, const SmallResult& result) {
  ASSERT_FALSE(net.published.empty());
  const double sigma = std::sqrt(result.variance_factor()) * net.sigma0;
  for (const auto& published : net.published) {
    SCOPED_TRACE(net.names[static_cast<std::size_t>(published.point)]);
    const auto point = static_cast<std::size_t>(published.point);
    EXPECT_NEAR(result.coordinates[point], published.coordinates[0], kHeight * (1 + 1e-6));
    EXPECT_NEAR(result.coordinates[point] - net.approximate[point], published.corrections[0], kMillimetre);
    int parameter = 0;
    while (result.parameter_point[static_cast<std::size_t>(parameter)] != published.point) {
      ++parameter;
    }
    const double variance = (*result.cofactor)[TSMatrix::LinearIndex(parameter, parameter)];
    EXPECT_NEAR(sigma / net.sigma0 * std::sqrt(variance), published.sd[0], kMillimetre);
  }
}

TEST(Levelling, BaumannFourteenBenchMarksFiveOfThemGiven) {
  const SmallNetwork net = small_networks::read("levelling_baumann.txt");
  const SmallResult result = small_networks::adjust(net, small_networks::regular_inverse, 0);
  EXPECT_EQ(result.redundancy, 11);
  EXPECT_EQ(net.published.size(), 9U);
  check_against_published(net, result);
}

TEST(Levelling, NiemeierSixPointsOneOfThemGiven) {
  const SmallNetwork net = small_networks::read("levelling_niemeier.txt");
  const SmallResult result = small_networks::adjust(net, small_networks::regular_inverse, 0);
  EXPECT_EQ(result.redundancy, 4);
  EXPECT_EQ(net.published.size(), 5U);
  check_against_published(net, result);
}

// The free datum rests on points 1, 3 and 5 only: their corrections sum to zero, those of all points do not.
TEST(Levelling, NiemeierFreeWithAPartialDatum) {
  const SmallNetwork net = small_networks::read("levelling_niemeier_free.txt");
  const SmallResult result = small_networks::adjust(net, small_networks::datum_inverse, 1);
  EXPECT_EQ(result.redundancy, 4);
  EXPECT_EQ(net.published.size(), 6U);
  check_against_published(net, result);

  double datum_sum = 0;
  double sum = 0;
  for (std::size_t i = 0; i < result.coordinates.size(); ++i) {
    const double correction = result.coordinates[i] - net.approximate[i];
    sum += correction;
    datum_sum += net.datum[i] != 0 ? correction : 0.0;
  }
  EXPECT_NEAR(datum_sum, 0, 1e-12);
  EXPECT_GT(std::fabs(sum), 1e-3);
}

// Whatever the datum, residuals and their variances are the same.
TEST(Levelling, ResidualsDoNotDependOnTheDatum) {
  const SmallNetwork fixed = small_networks::read("levelling_niemeier.txt");
  const SmallNetwork free = small_networks::read("levelling_niemeier_free.txt");
  const SmallResult a = small_networks::adjust(fixed, small_networks::regular_inverse, 0);
  const SmallResult b = small_networks::adjust(free, small_networks::datum_inverse, 1);
  const SmallResult c = small_networks::adjust(free, small_networks::free_inverse, 1);
  ASSERT_EQ(a.groups.size(), b.groups.size());
  EXPECT_NEAR(a.weighted_square, b.weighted_square, 1e-12 * a.weighted_square);
  EXPECT_NEAR(a.weighted_square, c.weighted_square, 1e-12 * a.weighted_square);
  for (std::size_t k = 0; k < a.groups.size(); ++k) {
    EXPECT_NEAR(a.groups[k].residual[0], b.groups[k].residual[0], 1e-12);
    EXPECT_NEAR(a.groups[k].residual_variance[0], b.groups[k].residual_variance[0], 1e-12);
    EXPECT_NEAR(a.groups[k].residual_variance[0], c.groups[k].residual_variance[0], 1e-12);
  }
}

}  // namespace
