// Plane networks of distances: one with an outlier, one free.

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "network_adjustment/statistical_tests.h"
#include "small_networks.h"

namespace {

using small_networks::SmallNetwork;
using small_networks::SmallResult;

// Published to 0.1 mm, corrections and standard deviations to 0.01 mm.
constexpr double kCoordinate = 0.05e-3 * (1 + 1e-6);
// The published values stopped after fewer steps: a unit of their last decimal.
constexpr double kCorrection = 0.01e-3;

void check_against_published(const SmallNetwork& net, const SmallResult& result) {
  ASSERT_FALSE(net.published.empty());
  const double sigma = std::sqrt(result.variance_factor());
  for (const auto& published : net.published) {
    SCOPED_TRACE(net.names[static_cast<std::size_t>(published.point)]);
    int parameter = 0;
    while (result.parameter_point[static_cast<std::size_t>(parameter)] != published.point) {
      ++parameter;
    }
    for (int c = 0; c < 2; ++c) {
      const auto k = static_cast<std::size_t>(2 * published.point + c);
      const auto component = static_cast<std::size_t>(c);
      EXPECT_NEAR(result.coordinates[k], published.coordinates[component], kCoordinate);
      EXPECT_NEAR(result.coordinates[k] - net.approximate[k], published.corrections[component], kCorrection);
      const int diagonal = TSMatrix::LinearIndex(2 * parameter + c, 2 * parameter + c);
      EXPECT_NEAR(sigma * std::sqrt((*result.cofactor)[diagonal]), published.sd[component], kCorrection);
    }
  }
}

TEST(Trilateration, WeissPublishedCoordinates) {
  const SmallNetwork net = small_networks::read("trilateration_weiss.txt");
  const SmallResult result = small_networks::adjust(net, small_networks::regular_inverse, 0);
  EXPECT_EQ(result.redundancy, 14);
  EXPECT_EQ(net.published.size(), 5U);
  check_against_published(net, result);
  EXPECT_NEAR(std::sqrt(result.variance_factor()), 13.7e-3, 0.05e-3);  // of unit weight, as the file's head says
}

// The paper is about finding the wrong distance.
TEST(Trilateration, WeissOutlierIsFlagged) {
  const SmallNetwork net = small_networks::read("trilateration_weiss.txt");
  const SmallResult result = small_networks::adjust(net, small_networks::regular_inverse, 0);
  const network::ObservationTests tests =
      network::test_observations(result.groups, result.variance_factor(), result.redundancy);
  EXPECT_EQ(tests.tested, 24);
  EXPECT_NEAR(tests.tau_critical, 2.720, 0.0005);
  EXPECT_NEAR(tests.largest_tau, 3.146, 0.0005);
  for (std::size_t k = 0; k < net.measurements.size(); ++k) {
    const bool suspect = net.names[static_cast<std::size_t>(net.measurements[k].from)] == "1" &&
                         net.names[static_cast<std::size_t>(net.measurements[k].to)] == "4";
    EXPECT_EQ(tests.fails_tau(tests.observations[k]), suspect) << "distance " << k;
  }
}

TEST(Trilateration, StrangFreePublishedCoordinates) {
  const SmallNetwork net = small_networks::read("trilateration_strang_free.txt");
  const SmallResult result = small_networks::adjust(net, small_networks::free_inverse, 3);
  EXPECT_EQ(result.redundancy, 1);
  EXPECT_EQ(net.published.size(), 4U);
  check_against_published(net, result);
}

using Dense = std::vector<std::vector<double>>;

Dense dense(const TSMatrix& packed, int n) {
  Dense full(static_cast<std::size_t>(n), std::vector<double>(static_cast<std::size_t>(n)));
  for (int i = 0; i < n; ++i) {
    for (int j = 0; j < n; ++j) {
      full[static_cast<std::size_t>(i)][static_cast<std::size_t>(j)] = packed[TSMatrix::LinearIndex(i, j)];
    }
  }
  return full;
}

Dense product(const Dense& a, const Dense& b) {
  Dense c(a.size(), std::vector<double>(b[0].size(), 0.0));
  for (std::size_t i = 0; i < a.size(); ++i) {
    for (std::size_t j = 0; j < b[0].size(); ++j) {
      for (std::size_t k = 0; k < b.size(); ++k) {
        c[i][j] += a[i][k] * b[k][j];
      }
    }
  }
  return c;
}

double largest_difference(const Dense& a, const Dense& b) {
  double largest = 0;
  for (std::size_t i = 0; i < a.size(); ++i) {
    for (std::size_t j = 0; j < a.size(); ++j) {
      largest = std::max(largest, std::fabs(a[i][j] - b[i][j]));
    }
  }
  return largest;
}

// Penrose's four conditions have exactly one solution (Proc. Cambridge Phil. Soc. 51, 1955). Both matrices are
// symmetric by storage, so two of the conditions are that their product is.
TEST(Trilateration, StrangFreeInverseIsTheMoorePenroseInverse) {
  const SmallNetwork net = small_networks::read("trilateration_strang_free.txt");
  std::vector<int> parameter_point;
  const auto groups = small_networks::linearise(net, net.approximate, parameter_point);
  network::NormalEquations normal(4, 2);
  for (const auto& group : groups) {
    normal.add(group);
  }
  const Dense n = dense(normal.matrix(), 8);
  ASSERT_EQ(small_networks::moore_penrose_inverse(normal.matrix(), 3), 0);
  EXPECT_EQ(normal.matrix().GetDim1(), 8);
  const Dense p = dense(normal.matrix(), 8);

  // Elements are of order one and the block held fixed is well conditioned: some hundred roundings of 2^-53.
  const double bound = 1e-13;
  const Dense np = product(n, p);
  EXPECT_LT(largest_difference(product(np, n), n), bound);
  EXPECT_LT(largest_difference(product(p, np), p), bound);
  Dense transposed = np;
  for (std::size_t i = 0; i < 8; ++i) {
    for (std::size_t j = 0; j < 8; ++j) {
      transposed[i][j] = np[j][i];
    }
  }
  EXPECT_LT(largest_difference(np, transposed), bound);
  // The trace of the projector is the rank: 8 parameters less shift along x, along y and turn.
  double trace = 0;
  for (std::size_t i = 0; i < 8; ++i) {
    trace += np[i][i];
  }
  EXPECT_NEAR(trace, 5, bound);
}

// Which three parameters are held fixed on the way does not matter, as long as they fix the datum: here 2 y, 3 x, 3 y
// and, with points 1 and P exchanged for 2 and 3, 1 x, P x, P y.
TEST(Trilateration, MoorePenroseInverseDoesNotDependOnTheOrderOfThePoints) {
  const SmallNetwork net = small_networks::read("trilateration_strang_free.txt");
  const SmallResult first = small_networks::adjust(net, small_networks::free_inverse, 3);
  const std::size_t place[4] = {3, 1, 2, 0};  // point k of the file becomes number place[k]
  SmallNetwork moved = net;
  for (std::size_t k = 0; k < 4; ++k) {
    moved.names[place[k]] = net.names[k];
    moved.approximate[2 * place[k]] = net.approximate[2 * k];
    moved.approximate[2 * place[k] + 1] = net.approximate[2 * k + 1];
  }
  for (auto& m : moved.measurements) {
    m.from = static_cast<int>(place[static_cast<std::size_t>(m.from)]);
    m.to = static_cast<int>(place[static_cast<std::size_t>(m.to)]);
  }
  const SmallResult second = small_networks::adjust(moved, small_networks::free_inverse, 3);
  for (std::size_t k = 0; k < 4; ++k) {
    for (std::size_t c = 0; c < 2; ++c) {
      EXPECT_NEAR(first.coordinates[2 * k + c], second.coordinates[2 * place[k] + c], 1e-9);
      const int a = static_cast<int>(2 * k + c);
      const int b = static_cast<int>(2 * place[k] + c);
      EXPECT_NEAR((*first.cofactor)[TSMatrix::LinearIndex(a, a)], (*second.cofactor)[TSMatrix::LinearIndex(b, b)],
                  1e-12);
    }
  }
}

}  // namespace
