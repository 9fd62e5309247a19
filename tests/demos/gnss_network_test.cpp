// The GNSS network of north-east Victoria against its independently published adjustment.

#include <alidade/alidade.h>
#include <gtest/gtest.h>

#include <cmath>
#include <set>

#include "network_adjustment/adjustment.h"
#include "network_adjustment/ellipse.h"
#include "network_adjustment/geodetic.h"
#include "network_adjustment/network_file.h"
#include "network_adjustment/plan.h"
#include "network_adjustment/report.h"
#include "network_adjustment/svg_plan.h"

namespace {

using network::AdjustedNetwork;
using network::Network;
using network::Results;

class GnssNetwork : public testing::Test {
protected:
  void SetUp() override {
    net = network::read_network_file(NETWORK_FILE);
    adjusted = network::adjust(net, nullptr);
    base = network::find_station(net, "MYRT");
    for (const char* name : {"BEEC", "324900360", "324901090"}) {
      rovers.push_back(network::find_station(net, name));
    }
    results = network::evaluate_network(net, adjusted, base, rovers);
  }

  double published(const char* key) const { return net.published.statistics.at(key); }

  Network net;
  AdjustedNetwork adjusted;
  Results results;
  int base = network::kNoStation;
  std::vector<int> rovers;
};

TEST_F(GnssNetwork, HasThePublishedSize) {
  EXPECT_EQ(net.stations.size(), 43U);
  EXPECT_EQ(adjusted.unknowns, 129);
  EXPECT_EQ(adjusted.unknowns, published("unknowns"));
  EXPECT_EQ(adjusted.observations, 417);
  EXPECT_EQ(adjusted.observations, published("observations"));
  EXPECT_EQ(adjusted.redundancy(), 288);
  EXPECT_EQ(net.published.stations.size(), 43U);
  EXPECT_EQ(net.published.observations.size(), 417U);
}

// The observations are rounded to 0.1 mm, which moves chi-square within 336.6 to 336.9.
TEST_F(GnssNetwork, ChiSquareAndVarianceFactor) {
  EXPECT_GE(results.variance.chi_square, 336.6);
  EXPECT_LE(results.variance.chi_square, 336.9);
  EXPECT_NEAR(results.variance.factor, 1.169, 0.0005);
  EXPECT_NEAR(results.variance.lower, 0.843, 0.0005);
  EXPECT_NEAR(results.variance.upper, 1.170, 0.0005);
  EXPECT_TRUE(results.variance.passed());
}

// Published digits end at 0.1 mm, and the rounded observations move the result by as much. Heights are those on the
// file's ellipsoid: on average over the 43 published positions rounding leaves some 0.01 mm, and the ellipsoid of the
// library's members would leave 0.06 mm.
TEST_F(GnssNetwork, Coordinates) {
  double deviation = 0;
  for (const network::PublishedStation& expected : net.published.stations) {
    const auto i = static_cast<std::size_t>(expected.station);
    SCOPED_TRACE(net.stations[i].name);
    const network::StationResult& station = results.stations[i];
    EXPECT_NEAR(station.position.x, expected.position.x, 0.5e-3);
    EXPECT_NEAR(station.position.y, expected.position.y, 0.5e-3);
    EXPECT_NEAR(station.position.z, expected.position.z, 0.5e-3);
    const double degree = 57.29577951308232;
    const double metres_per_degree = 111320;
    EXPECT_NEAR(station.geodetic.b * degree, expected.latitude_deg, 0.5e-3 / metres_per_degree);
    EXPECT_NEAR(station.geodetic.l * degree, expected.longitude_deg,
                0.5e-3 / (metres_per_degree * std::cos(station.geodetic.b)));
    EXPECT_NEAR(station.geodetic.h, expected.height, 0.5e-3);
    EXPECT_EQ(station.geodetic.h, network::geodetic(net.ellipsoid, station.position).h);
    deviation += network::geodetic(net.ellipsoid, expected.position).h - expected.height;
  }
  EXPECT_EQ(net.ellipsoid.name, "GRS80");
  EXPECT_LT(std::fabs(deviation) / 43, 0.02e-3);
}

TEST_F(GnssNetwork, StandardDeviations) {
  int compared = 0;
  for (const network::PublishedStation& expected : net.published.stations) {
    const auto i = static_cast<std::size_t>(expected.station);
    SCOPED_TRACE(net.stations[i].name);
    const network::StationResult& station = results.stations[i];
    EXPECT_NEAR(station.sd_east, expected.sd_east, 0.06e-3);
    EXPECT_NEAR(station.sd_north, expected.sd_north, 0.06e-3);
    EXPECT_NEAR(station.sd_up, expected.sd_up, 0.06e-3);
    compared += 3;
  }
  EXPECT_EQ(compared, 129);
}

// Published digits end at 0.1 mm on both sides, and the rounded observations move the result by as much.
TEST_F(GnssNetwork, CorrectionsOfTheObservations) {
  ASSERT_EQ(results.tests.observations.size(), net.published.observations.size());
  for (std::size_t k = 0; k < net.published.observations.size(); ++k) {
    SCOPED_TRACE(k);
    EXPECT_NEAR(results.tests.observations[k].residual, net.published.observations[k].correction, 0.2e-3);
    EXPECT_NEAR(results.tests.observations[k].sd_residual, net.published.observations[k].sd_correction, 0.06e-3);
  }
}

TEST_F(GnssNetwork, FlagsTheTenPublishedObservationsAndNoOthers) {
  std::set<std::size_t> expected;
  std::set<std::size_t> found;
  for (std::size_t k = 0; k < net.published.observations.size(); ++k) {
    if (std::fabs(net.published.observations[k].normal_statistic) > 1.96) {
      expected.insert(k);
    }
    if (results.tests.fails_normal(results.tests.observations[k])) {
      found.insert(k);
    }
  }
  EXPECT_EQ(expected.size(), 10U);
  EXPECT_EQ(expected.size(), static_cast<std::size_t>(published("potential_outliers_95")));
  EXPECT_EQ(found, expected);
}

TEST_F(GnssNetwork, TauTestFlagsNothing) {
  EXPECT_EQ(results.tests.tested, 417);
  EXPECT_NEAR(results.tests.largest_tau, 2.222, 0.0005);
  EXPECT_NEAR(results.tests.tau_critical, 3.801, 0.0005);
  for (const network::ObservationTest& test : results.tests.observations) {
    EXPECT_FALSE(results.tests.fails_tau(test));
  }
}

// The covariance of a difference against the published standard deviations of the adjusted baselines.
TEST_F(GnssNetwork, RelativeCovariances) {
  std::size_t row = 0;
  for (const network::VectorGroup& group : net.groups) {
    for (const network::ObservedVector& vector : group.vectors) {
      if (vector.from != network::kNoStation) {
        const covar relative = adjusted.relative_covariance(vector.from, vector.to);
        for (std::size_t c = 0; c < 3; ++c) {
          const double variance = relative[TSMatrix::LinearIndex(static_cast<int>(c), static_cast<int>(c))];
          EXPECT_NEAR(std::sqrt(variance), net.published.observations[row + c].sd_adjusted, 0.06e-3) << row + c;
        }
      }
      row += 3;
    }
  }
}

TEST_F(GnssNetwork, ReductionsFromMyrt) {
  ASSERT_EQ(results.reductions.size(), 3U);
  for (std::size_t k = 0; k < 3; ++k) {
    const network::Reduction& reduction = results.reductions[k];
    SCOPED_TRACE(net.stations[static_cast<std::size_t>(reduction.rover)].name);
    // Length and direction from the published coordinates, by the definitions.
    Coord from;
    Coord to;
    double latitude = 0;
    double longitude = 0;
    for (const network::PublishedStation& station : net.published.stations) {
      if (station.station == reduction.base) {
        from = station.position;
        latitude = station.latitude_deg / 57.29577951308232;
        longitude = station.longitude_deg / 57.29577951308232;
      } else if (station.station == reduction.rover) {
        to = station.position;
      }
    }
    const double x = to.x - from.x;
    const double y = to.y - from.y;
    const double z = to.z - from.z;
    const double equatorial = x * std::cos(longitude) + y * std::sin(longitude);
    const double north = z * std::cos(latitude) - equatorial * std::sin(latitude);
    const double east = y * std::cos(longitude) - x * std::sin(longitude);
    const double up = z * std::sin(latitude) + equatorial * std::cos(latitude);
    EXPECT_NEAR(reduction.neu.x, north, 0.5e-3);
    EXPECT_NEAR(reduction.neu.y, east, 0.5e-3);
    EXPECT_NEAR(reduction.neu.z, up, 0.5e-3);
    const double distance = std::sqrt(x * x + y * y + z * z);
    EXPECT_NEAR(reduction.polar.distance, distance, 0.5e-3);
    EXPECT_NEAR(std::sin(reduction.polar.azimuth) * std::hypot(north, east), east, 0.5e-3);
    EXPECT_NEAR(std::cos(reduction.polar.azimuth) * std::hypot(north, east), north, 0.5e-3);
    EXPECT_NEAR(std::sin(reduction.polar.elevation) * distance, up, 0.5e-3);
  }
}

// The joint covariance matters: neighbours share most of their error.
TEST_F(GnssNetwork, RelativeStandardDeviationsFromTheSixBySixBlock) {
  for (const network::Reduction& reduction : results.reductions) {
    SCOPED_TRACE(net.stations[static_cast<std::size_t>(reduction.rover)].name);
    // J Q J' in plain loops, J = [-R, R].
    matr3_3 frame = network::local_frame(results.stations[static_cast<std::size_t>(reduction.base)].geodetic);
    const double expected[3] = {reduction.sd_east, reduction.sd_north, reduction.sd_up};
    for (int r = 0; r < 3; ++r) {
      double variance = 0;
      for (int i = 0; i < 6; ++i) {
        for (int j = 0; j < 6; ++j) {
          const int column_i = 3 * (i < 3 ? reduction.base : reduction.rover) + i % 3;
          const int column_j = 3 * (j < 3 ? reduction.base : reduction.rover) + j % 3;
          const double factor_i = (i < 3 ? -1 : 1) * frame[matr3_3::Index(r, i % 3)];
          const double factor_j = (j < 3 ? -1 : 1) * frame[matr3_3::Index(r, j % 3)];
          variance += factor_i * factor_j * (*adjusted.cofactor)[TSMatrix::LinearIndex(column_i, column_j)];
        }
      }
      EXPECT_NEAR(std::sqrt(variance), expected[r], 1e-9);
    }
  }
  // 67 m away, tied to the base by a baseline: closer to it than to the ground.
  const network::Reduction& neighbour = results.reductions[1];
  EXPECT_LT(neighbour.sd_up, 0.5 * results.stations[static_cast<std::size_t>(neighbour.rover)].sd_up);
}

// Invariants of the 2x2 block: trace and determinant, and the variance along the major axis (Helmert's formulas).
TEST_F(GnssNetwork, ErrorEllipses) {
  for (std::size_t i = 0; i < results.stations.size(); ++i) {
    SCOPED_TRACE(net.stations[i].name);
    const network::StationResult& station = results.stations[i];
    const covar local = network::local_frame(station.geodetic) & adjusted.covariance(static_cast<int>(i));
    const network::ErrorEllipse& ellipse = station.ellipse;
    const double a2 = ellipse.semi_major * ellipse.semi_major;
    const double b2 = ellipse.semi_minor * ellipse.semi_minor;
    const double trace = local[0] + local[2];
    EXPECT_NEAR(a2 + b2, trace, 1e-12 * trace);
    EXPECT_NEAR(a2 * b2, local[0] * local[2] - local[1] * local[1], 1e-12 * trace * trace);
    const double s = std::sin(ellipse.major_azimuth);
    const double c = std::cos(ellipse.major_azimuth);
    EXPECT_NEAR(s * s * local[0] + 2 * s * c * local[1] + c * c * local[2], a2, 1e-12 * trace);
    EXPECT_GE(ellipse.semi_major, ellipse.semi_minor);
    EXPECT_GE(ellipse.major_azimuth, 0);
    EXPECT_LT(ellipse.major_azimuth, 3.141592653589793);
    EXPECT_LE(ellipse.residual, network::kAxesTolerance);
  }
}

// covar::DuserDeigen in general is right for the shape of these covariances: one large axis and two small ones.
TEST_F(GnssNetwork, SpatialAxesOfTheseStationsAreThePrincipalOnes) {
  for (std::size_t i = 0; i < results.stations.size(); ++i) {
    const covar v = adjusted.covariance(static_cast<int>(i));
    matr3_3 axes = v.DuserDeigen();
    // The closed formula of the cubic loses digits where two roots lie close together.
    EXPECT_LT(network::axes_residual(v, axes, 3), 1e-6) << net.stations[i].name;
  }
}

matr3_3 rotation_about(int axis, double angle) {
  matr3_3 m(covar(1.0, 0.0, 1.0, 0.0, 0.0, 1.0));
  const int i = (axis + 1) % 3;
  const int j = (axis + 2) % 3;
  m[matr3_3::Index(i, i)] = m[matr3_3::Index(j, j)] = std::cos(angle);
  m[matr3_3::Index(j, i)] = std::sin(angle);
  m[matr3_3::Index(i, j)] = -std::sin(angle);
  return m;
}

// ... and not for two large axes and a small one: the sign of the cubic's constant term is discarded.
TEST(PrincipalAxes, SpatialAxesWithTwoLargeOnesAreRefused) {
  matr3_3 turn = rotation_about(0, 0.5) * rotation_about(1, 0.4) * rotation_about(2, 0.3);
  const covar tall = turn & covar(9.0, 0.0, 2.0, 0.0, 0.0, 1.0);
  matr3_3 tall_axes = tall.DuserDeigen();
  EXPECT_LT(network::axes_residual(tall, tall_axes, 3), 1e-12);

  const covar flat = turn & covar(9.0, 0.0, 8.0, 0.0, 0.0, 1.0);
  matr3_3 flat_axes = flat.DuserDeigen();
  EXPECT_GT(network::axes_residual(flat, flat_axes, 3), 1e-2);
}

TEST_F(GnssNetwork, ProgressAdvancesAndStaysBelowAHundred) {
  int percentage = 0;
  const AdjustedNetwork again = network::adjust(net, &percentage);
  EXPECT_GT(percentage, 80);
  EXPECT_LE(percentage, 99);
}

TEST_F(GnssNetwork, PlanLabelsEveryStationOnceAndNoLabelsOverlap) {
  const network::Plan plan = network::make_plan(net, results);
  std::multiset<std::string> labelled;
  std::vector<const network::Panel*> panels{&plan.main};
  for (const network::Panel& inset : plan.insets) {
    panels.push_back(&inset);
  }
  for (const network::Panel* panel : panels) {
    for (std::size_t a = 0; a < panel->labels.size(); ++a) {
      const demo::Label& label = panel->labels[a];
      labelled.insert(label.text);
      EXPECT_GE(label.box.left(), panel->frame.left());
      EXPECT_LE(label.box.right(), panel->frame.right());
      EXPECT_GE(label.box.top(), panel->frame.top());
      EXPECT_LE(label.box.bottom(), panel->frame.bottom());
      for (std::size_t b = 0; b < a; ++b) {
        EXPECT_FALSE(demo::overlap(label.box, panel->labels[b].box)) << label.text << ", " << panel->labels[b].text;
      }
    }
  }
  EXPECT_EQ(plan.unlabelled, 0U);
  for (const network::Station& station : net.stations) {
    EXPECT_EQ(labelled.count(station.name), 1U) << station.name;
  }
}

// Held where the adjustment puts it, a station is without error, and no other one moves.
TEST_F(GnssNetwork, AStationHeldFixed) {
  const auto held = static_cast<std::size_t>(base);
  Network again = net;
  again.stations[held].fixed = true;
  again.stations[held].position = adjusted.positions[held];
  const AdjustedNetwork constrained = network::adjust(again, nullptr);
  EXPECT_EQ(constrained.unknowns, 126);
  EXPECT_NEAR(constrained.chi_square, adjusted.chi_square, 1e-6);
  const Results all = network::evaluate_network(again, constrained, base, rovers);
  for (std::size_t i = 0; i < all.stations.size(); ++i) {
    EXPECT_LT(RR(constrained.positions[i] - adjusted.positions[i]), 1e-7);
    // Conditional variance: Q - q q' / ... of the constraint is never more than Q.
    EXPECT_LE(all.stations[i].sd_up, results.stations[i].sd_up * (1 + 1e-9));
  }
  EXPECT_TRUE(all.stations[held].fixed);
  EXPECT_EQ(all.stations[held].sd_up, 0.0);
  // A vector from a fixed base is as good as its end.
  const network::Reduction& reduction = all.reductions[0];
  EXPECT_NEAR(reduction.sd_up, all.stations[static_cast<std::size_t>(reduction.rover)].sd_up, 1e-4);
  EXPECT_NE(network::report(again, constrained, all).find("held fixed"), std::string::npos);
}

// A network of 1,000 stations, each tied to its neighbours on a grid: its plan took 21 MB and 103 insets.
TEST(NetworkPlans, OfAThousandStationsStaySmall) {
  Network net;
  Results results;
  const int columns = 40;
  for (int k = 0; k < 1000; ++k) {
    const double east = 1000.0 * (k % columns) + 300 * std::sin(2.1 * k);
    const double north = 1000.0 * (k / columns) + 300 * std::cos(3.7 * k);
    network::StationResult station{};
    station.position = Coord(-4288403.0 - 0.4 * north - 0.5 * east, 2814576.0 - 0.8 * east, -3778237.0 + 0.8 * north);
    station.ellipse = {0.003, 0.002, 0.5, 0};
    results.stations.push_back(station);
    net.stations.push_back({"S" + std::to_string(1000 + k), 1});
    network::VectorGroup group{};
    for (const int step : {1, columns, columns + 1}) {
      if (k >= step) {
        group.vectors.push_back({k - step, k, Coord(0, 0, 0)});
      }
    }
    net.groups.push_back(group);
  }
  const network::Plan plan = network::make_plan(net, results);
  EXPECT_LE(plan.insets.size(), 12U);
  EXPECT_LE(plan.main.labels.size(), demo::kMostLabels);
  EXPECT_GT(plan.main.labels.size(), 100U);
  EXPECT_NE(plan.title.find("without a name in the plan"), std::string::npos);
  for (const network::Panel& inset : plan.insets) {
    EXPECT_LT(inset.lines.size(), 500U);
  }
  EXPECT_LT(network::svg(plan).size(), 1000000U);
}

}  // namespace
