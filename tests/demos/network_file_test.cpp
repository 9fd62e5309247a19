// The reader of network files: what it understands and what it says about each kind of fault.

#include "network_adjustment/network_file.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "network_adjustment/adjustment.h"

namespace {

using network::InputError;
using network::Network;

// A small network that is right: a position, a baseline, a cluster of two baselines. Line 1 is the comment.
std::vector<std::string> good_lines() {
  return {
      "# four stations",                                      // 1
      "BL 0 A B  10.0 20.0 30.0  4e-6 0 4e-6 0 0 4e-6  2.0",  // 2
      "CBL 0 A C  1.0 2.0 3.0",                               // 3
      "CBL 1 A D  -1.0 -2.0 -3.0",                            // 4
      "CBLC 0 0 1e-6",
      "CBLC 1 0 0",
      "CBLC 1 1 1e-6",  // 5 to 7
      "CBLC 2 0 0",
      "CBLC 2 1 0",
      "CBLC 2 2 1e-6",  // 8 to 10
      "CBLC 3 0 5e-7",
      "CBLC 3 1 0",
      "CBLC 3 2 0",     // 11 to 13
      "CBLC 3 3 1e-6",  // 14
      "CBLC 4 0 0",
      "CBLC 4 1 5e-7",
      "CBLC 4 2 0",  // 15 to 17
      "CBLC 4 3 0",
      "CBLC 4 4 1e-6",  // 18 to 19
      "CBLC 5 0 0",
      "CBLC 5 1 0",
      "CBLC 5 2 5e-7",  // 20 to 22
      "CBLC 5 3 0",
      "CBLC 5 4 0",
      "CBLC 5 5 1e-6",                             // 23 to 25
      "CBLS 3.0",                                  // 26
      "CPOS 0 A -4300000.0 2800000.0 -3760000.0",  // 27
      "CPOSC 0 0 1e-4",
      "CPOSC 1 0 0",
      "CPOSC 1 1 1e-4",  // 28 to 30
      "CPOSC 2 0 0",
      "CPOSC 2 1 0",
      "CPOSC 2 2 1e-4",                                                                  // 31 to 33
      "ADJ B -36.334825351 145.574100692 1 2 -4299990 2800020 -3759970 0.01 0.01 0.01",  // 34
  };
}

std::string join(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) {
    text += line + "\n";
  }
  return text;
}

Network read(const std::string& text) {
  std::istringstream input(text);
  return network::read_network(input, "net.txt");
}

std::string fault(const std::string& text) {
  try {
    read(text);
  } catch (const InputError& error) {
    return error.what();
  }
  return "no fault";
}

// The good network with one line (counted from 1) replaced.
std::string with_line(std::size_t number, const std::string& line) {
  std::vector<std::string> lines = good_lines();
  lines[number - 1] = line;
  return join(lines);
}

std::string without_line(std::size_t number) {
  std::vector<std::string> lines = good_lines();
  lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(number - 1));
  return join(lines);
}

TEST(NetworkFile, ReadsEveryRecord) {
  const Network net = read(join(good_lines()));
  ASSERT_EQ(net.stations.size(), 4U);
  ASSERT_EQ(net.groups.size(), 3U);
  EXPECT_EQ(net.groups[0].kind, network::GroupKind::kBaseline);
  EXPECT_EQ(net.groups[0].covariance[2], 8e-6);  // scale applied
  EXPECT_EQ(net.groups[1].kind, network::GroupKind::kBaselineCluster);
  EXPECT_EQ(net.groups[1].vectors.size(), 2U);
  EXPECT_EQ(net.groups[1].covariance[6], 1.5e-6);  // element (3, 0)
  EXPECT_EQ(net.groups[2].kind, network::GroupKind::kPositionCluster);
  EXPECT_EQ(net.groups[2].vectors[0].from, network::kNoStation);
  EXPECT_EQ(net.groups[2].vectors[0].value.z, -3760000.0);
  ASSERT_EQ(net.published.stations.size(), 1U);
  EXPECT_NEAR(net.published.stations[0].latitude_deg, -(36 + 33 / 60.0 + 48.25351 / 3600), 1e-13);
  EXPECT_NEAR(net.published.stations[0].longitude_deg, 145 + 57 / 60.0 + 41.00692 / 3600, 1e-13);
}

TEST(NetworkFile, CommentsBlankLinesTabsAndCarriageReturnsAreNoFault) {
  std::vector<std::string> lines = good_lines();
  for (std::string& line : lines) {
    line += "  # a remark\r";
  }
  lines.insert(lines.begin(), "");
  lines.insert(lines.begin(), "\t \r");
  EXPECT_EQ(read(join(lines)).stations.size(), 4U);
}

TEST(NetworkFile, CovarianceElementsMayComeInAnyOrder) {
  std::vector<std::string> lines = good_lines();
  std::swap(lines[4], lines[24]);
  const Network net = read(join(lines));
  EXPECT_EQ(net.groups[1].covariance, read(join(good_lines())).groups[1].covariance);
}

TEST(NetworkFile, UnknownRecord) {
  EXPECT_EQ(fault(with_line(2, "BASELINE 0 A B")),
            "net.txt:2: expected one of the record types ELLIPSOID, FIX, SUM, BL, CBL, CBLC, CBLS, CPOS, CPOSC, ADJ, "
            "RES, found "
            "\"BASELINE\"");
}

TEST(NetworkFile, MissingField) {
  EXPECT_EQ(fault(with_line(2, "BL 0 A B  10.0 20.0 30.0  4e-6 0 4e-6 0 0 4e-6")),
            "net.txt:2: expected \"BL id from to dX dY dZ cXX cXY cYY cXZ cYZ cZZ scale\", found 12 fields after BL");
}

TEST(NetworkFile, TrailingGarbage) {
  EXPECT_EQ(fault(with_line(26, "CBLS 3.0 metres")), "net.txt:26: expected \"CBLS scale\", found 2 fields after CBLS");
}

TEST(NetworkFile, NotANumber) {
  for (const char* text : {"ten", "1.0x", "1,0", "nan", "inf", "0x1p3", "1e999", "--1", "+-1"}) {
    EXPECT_EQ(fault(with_line(2, std::string("BL 0 A B  ") + text + " 20.0 30.0  4e-6 0 4e-6 0 0 4e-6  2.0")),
              std::string("net.txt:2: expected a number for dX, found \"") + text + "\"");
  }
}

TEST(NetworkFile, NotAnIndex) {
  for (const char* text : {"-1", "1.5", "x", "99999999999"}) {
    EXPECT_EQ(fault(with_line(3, std::string("CBL ") + text + " A C 1.0 2.0 3.0")),
              std::string("net.txt:3: expected a whole number from 0 for k, found \"") + text + "\"");
  }
}

TEST(NetworkFile, ScaleMustBePositive) {
  EXPECT_EQ(fault(with_line(26, "CBLS 0")), "net.txt:26: expected a positive number for scale, found \"0\"");
  EXPECT_EQ(fault(with_line(26, "CBLS -2")), "net.txt:26: expected a positive number for scale, found \"-2\"");
}

TEST(NetworkFile, BaselineNeedsTwoStations) {
  EXPECT_EQ(fault(with_line(3, "CBL 0 A A 1.0 2.0 3.0")),
            "net.txt:3: expected another station than from for to, found \"A\"");
}

TEST(NetworkFile, UnknownStation) {
  EXPECT_EQ(fault(with_line(34, "ADJ E -36.334825351 145.574100692 1 2 3 4 5 0.01 0.01 0.01")),
            "net.txt:34: expected a station of the network, found \"E\"");
}

TEST(NetworkFile, StationWithoutTieToAPosition) {
  std::vector<std::string> lines = good_lines();
  lines.push_back("BL 1 E F  10.0 20.0 30.0  4e-6 0 4e-6 0 0 4e-6  2.0");
  EXPECT_EQ(fault(join(lines)),
            "net.txt:35: expected baselines that lead to an observed (CPOS) or fixed (FIX) position, found none for "
            "station E");
}

TEST(NetworkFile, PackedAngle) {
  for (const char* text : {"36", "36.6", "36.6000", "36.0060", "x.0000", "36.00.00", "1e1.0000", "-.3000"}) {
    EXPECT_EQ(fault(with_line(34, std::string("ADJ B ") + text + " 145.574100692 1 2 3 4 5 0.01 0.01 0.01")),
              std::string("net.txt:34: expected an angle in packed degrees D.MMSSsss for lat, found \"") + text + "\"");
  }
}

TEST(NetworkFile, IncompleteClusterCovariance) {
  EXPECT_EQ(fault(without_line(11)), "net.txt:3: expected 21 CBLC records for the cluster that begins here, found 20");
  EXPECT_EQ(fault(without_line(33)), "net.txt:27: expected 6 CPOSC records for the cluster that begins here, found 5");
}

TEST(NetworkFile, ClusterWithoutScale) {
  EXPECT_EQ(fault(without_line(26)), "net.txt:3: expected a CBLS record for the cluster that begins here, found none");
}

TEST(NetworkFile, ClusterScaleTwice) {
  std::vector<std::string> lines = good_lines();
  lines.insert(lines.begin() + 26, "CBLS 3.0");
  EXPECT_EQ(fault(join(lines)), "net.txt:27: expected one CBLS record for a cluster, found another");
}

TEST(NetworkFile, ClusterElementTwice) {
  EXPECT_EQ(fault(with_line(6, "CBLC 0 0 1e-6")),
            "net.txt:6: expected each element of the covariance once, found 0 0 again");
}

TEST(NetworkFile, ClusterElementOutside) {
  EXPECT_EQ(fault(with_line(5, "CBLC 6 0 1e-6")), "net.txt:5: expected a row from 0 to 5 for i, found \"6\"");
  EXPECT_EQ(fault(with_line(5, "CBLC 0 1 1e-6")), "net.txt:5: expected a column from 0 to i = 0 for j, found \"1\"");
}

TEST(NetworkFile, ClusterElementsBeforeTheirVectors) {
  EXPECT_EQ(fault("CBLC 0 0 1e-6\n"), "net.txt:1: expected the vectors of a cluster before CBLC, found none");
  EXPECT_EQ(fault("CPOSC 0 0 1e-6\n"), "net.txt:1: expected the vectors of a cluster before CPOSC, found none");
  EXPECT_EQ(fault("CBLS 1\n"), "net.txt:1: expected the baselines of a cluster before CBLS, found none");
}

TEST(NetworkFile, ClusterNumbersMustFollowOneAnother) {
  EXPECT_EQ(fault(with_line(4, "CBL 2 A D  -1.0 -2.0 -3.0")),
            "net.txt:4: expected 1, the next number of the cluster, for k, found \"2\"");
  std::vector<std::string> lines = good_lines();
  lines.insert(lines.begin() + 5, "CBL 2 A B 1 2 3");
  EXPECT_EQ(
      fault(join(lines)),
      "net.txt:6: expected 0, the first of a new cluster (the covariance of the last one has begun), for k, found "
      "\"2\"");
}

TEST(NetworkFile, CovarianceNotPositiveDefinite) {
  const char* const message = "net.txt:2: expected a positive definite covariance for the vectors that begin here";
  // Negative variance; two negative variances, whose determinant is positive; too large a correlation; zero.
  EXPECT_EQ(fault(with_line(2, "BL 0 A B  10 20 30  4e-6 0 4e-6 0 0 -4e-6  2.0")), message);
  EXPECT_EQ(fault(with_line(2, "BL 0 A B  10 20 30  -4e-6 0 4e-6 0 0 -4e-6  2.0")), message);
  EXPECT_EQ(fault(with_line(2, "BL 0 A B  10 20 30  4e-6 0 -4e-6 0 0 -4e-6  2.0")), message);
  EXPECT_EQ(fault(with_line(2, "BL 0 A B  10 20 30  -4e-6 0 -4e-6 0 0 4e-6  2.0")), message);
  EXPECT_EQ(fault(with_line(2, "BL 0 A B  10 20 30  4e-6 5e-6 4e-6 0 0 4e-6  2.0")), message);
  EXPECT_EQ(fault(with_line(2, "BL 0 A B  10 20 30  4e-6 0 4e-6 0 5e-6 4e-6  2.0")), message);
  EXPECT_EQ(fault(with_line(2, "BL 0 A B  10 20 30  0 0 0 0 0 0  2.0")), message);
  EXPECT_EQ(fault(with_line(11, "CBLC 3 0 2e-6")),
            "net.txt:3: expected a positive definite covariance for the vectors that begin here");
  EXPECT_EQ(fault(with_line(33, "CPOSC 2 2 -1e-4")),
            "net.txt:27: expected a positive definite covariance for the vectors that begin here");
}

TEST(NetworkFile, StatisticTwice) {
  EXPECT_EQ(fault("SUM a 1\nSUM a 2\n"), "net.txt:2: expected each published statistic once, found \"a\" again");
}

TEST(NetworkFile, PublishedObservationsAreThoseOfTheFile) {
  std::vector<std::string> lines = good_lines();
  const std::string numbers = " 1 2 3 4 5 6 7 8";
  lines.push_back("RES G A B X" + numbers);
  EXPECT_EQ(fault(join(lines)), "net.txt:35: expected 12 RES records, one for each observation, found 1");
  lines.push_back("RES G A B Z" + numbers);
  EXPECT_EQ(fault(join(lines)), "net.txt:36: expected \"RES G A B Y ...\", found \"RES G A B Z\"");
  lines.pop_back();
  for (const char* row : {"G A B Y", "G A B Z", "X A C X", "X A C Y", "X A C Z", "X A D X", "X A D Y", "X A D Z",
                          "Y A - X", "Y A - Y", "Y A - Z"}) {
    lines.push_back(std::string("RES ") + row + numbers);
  }
  EXPECT_EQ(read(join(lines)).published.observations.size(), 12U);
  lines.push_back("RES Y A - X" + numbers);
  EXPECT_EQ(fault(join(lines)), "net.txt:47: expected no more RES records, found \"RES Y A - X\"");
}

TEST(NetworkFile, EmptyFile) {
  EXPECT_EQ(fault(""), "net.txt:1: expected observations (BL, CBL or CPOS records), found none");
  EXPECT_EQ(fault("# nothing\n\n"), "net.txt:2: expected observations (BL, CBL or CPOS records), found none");
}

TEST(NetworkFile, MissingFile) {
  try {
    network::read_network_file("no/such/file.txt");
    FAIL() << "read a file that is not there";
  } catch (const InputError& error) {
    EXPECT_EQ(std::string(error.what()).rfind("no/such/file.txt: expected a readable file: ", 0), 0U) << error.what();
  }
}

// Without redundancy the adjustment reproduces the observations.
TEST(NetworkFile, SmallestNetworkAdjusts) {
  const Network net = read(join(good_lines()));
  const network::AdjustedNetwork adjusted = network::adjust(net, nullptr);
  EXPECT_EQ(adjusted.redundancy(), 0);
  const Coord& a = adjusted.positions[static_cast<std::size_t>(network::find_station(net, "A"))];
  const Coord& d = adjusted.positions[static_cast<std::size_t>(network::find_station(net, "D"))];
  EXPECT_EQ(a.x, -4300000.0);
  EXPECT_EQ(d.x, -4300001.0);
  EXPECT_EQ(d.z, -3760003.0);
}

TEST(NetworkFile, BaselineIdentifierTwice) {
  std::vector<std::string> lines = good_lines();
  lines.push_back("BL 0 B C  10.0 20.0 30.0  4e-6 0 4e-6 0 0 4e-6  2.0");
  EXPECT_EQ(fault(join(lines)),
            "net.txt:35: expected an identifier other than that of the baseline in line 2 for id, found \"0\"");
}

TEST(NetworkFile, Ellipsoid) {
  EXPECT_EQ(read(join(good_lines())).ellipsoid.name, "WGS84");
  const Network net = read("ELLIPSOID Bessel 6377397.155 299.1528128\n" + join(good_lines()));
  EXPECT_EQ(net.ellipsoid.name, "Bessel");
  EXPECT_EQ(net.ellipsoid.a, 6377397.155);
  EXPECT_EQ(fault("ELLIPSOID a 6377397 299\nELLIPSOID b 6377397 299\n"),
            "net.txt:2: expected one ELLIPSOID record, found another");
  EXPECT_EQ(fault("ELLIPSOID GRS80 6378137 0.00335\n"),
            "net.txt:1: expected a number from 100 to 1000 for 1/f, found \"0.00335\"");
}

// A fixed station in place of the observed position: all others hang on it without its error.
TEST(NetworkFile, FixedStationsAreADatum) {
  std::vector<std::string> lines = good_lines();
  lines.erase(lines.begin() + 26, lines.end());
  EXPECT_EQ(fault(join(lines)),
            "net.txt:2: expected baselines that lead to an observed (CPOS) or fixed (FIX) position, found none for "
            "station A");
  lines.push_back("FIX A -4300000.0 2800000.0 -3760000.0");
  const Network net = read(join(lines));
  const network::AdjustedNetwork adjusted = network::adjust(net, nullptr);
  EXPECT_EQ(adjusted.unknowns, 9);
  EXPECT_EQ(adjusted.redundancy(), 0);
  const int a = network::find_station(net, "A");
  const int b = network::find_station(net, "B");
  EXPECT_EQ(adjusted.positions[static_cast<std::size_t>(b)].x, -4299990.0);
  EXPECT_EQ(adjusted.covariance(a)[0], 0.0);
  EXPECT_NEAR(adjusted.covariance(b)[5], 8e-6, 1e-18);  // of the baseline alone
  EXPECT_NEAR(adjusted.relative_covariance(a, b)[5], 8e-6, 1e-18);

  lines.push_back("FIX A -4300000.0 2800000.0 -3760000.0");
  EXPECT_EQ(fault(join(lines)), "net.txt:28: expected a station that is not fixed yet for station, found \"A\"");
  lines.back() = "FIX N -4300000.0 2800000.0 -3760000.0";
  EXPECT_EQ(fault(join(lines)), "net.txt:28: expected a station with observations, found \"N\"");
}

TEST(NetworkFile, NothingButFixedStations) {
  const std::string fixed = "FIX A -4300000 2800000 -3760000\nFIX B -4300000 2800000 -3760100\n";
  EXPECT_EQ(fault(fixed + "BL 0 A B  0 0 -100  4e-6 0 4e-6 0 0 4e-6  1\n"),
            "net.txt:1: expected at least one station that is not fixed");
  // A baseline between two fixed stations is an observation without unknowns.
  const std::string network = fixed +
                              "BL 0 A B  0 0 -100.01  4e-6 0 4e-6 0 0 4e-6  1\n"
                              "BL 1 A C  0 0 -100  4e-6 0 4e-6 0 0 4e-6  1\n";
  const network::AdjustedNetwork adjusted = network::adjust(read(network), nullptr);
  EXPECT_EQ(adjusted.redundancy(), 3);
  EXPECT_NEAR(adjusted.groups[0].residual[2], 0.01, 1e-9);
  EXPECT_EQ(adjusted.groups[0].residual_variance[2], 4e-6);
  EXPECT_NEAR(adjusted.chi_square, 25, 1e-5);
}

// 12,000 positions and one element of their covariance took 5.7 GB before anything was said.
TEST(NetworkFile, ClusterTooLarge) {
  std::string text;
  for (int k = 0; k <= 1000; ++k) {
    text += "CPOS " + std::to_string(k) + " S" + std::to_string(k) + " -4300000 2800000 -3760000\n";
  }
  EXPECT_EQ(fault(text + "CPOSC 0 0 1e-4\n"),
            "net.txt:1001: expected a number below 1000, the largest cluster, for k, found \"1000\"");
}

// An angle with 400 zeros ended in the bare text "stod".
TEST(NetworkFile, AngleWithTooManyDigits) {
  const std::string angle = "-36.3348" + std::string(400, '0') + "1";
  EXPECT_EQ(fault(with_line(34, "ADJ B " + angle + " 145.574100692 1 2 3 4 5 0.01 0.01 0.01")),
            "net.txt:34: expected an angle in packed degrees D.MMSSsss for lat, found \"" + angle + "\"");
}

TEST(NetworkFile, CoordinatesBeyondTheSatellites) {
  EXPECT_EQ(fault(with_line(2, "BL 0 A B  1e100 20.0 30.0  4e-6 0 4e-6 0 0 4e-6  2.0")),
            "net.txt:2: expected a number from -100000000 to 100000000 for dX, found \"1e100\"");
}

TEST(NetworkFile, PositionsThatAreNotGeocentric) {
  const Network net = read(with_line(27, "CPOS 0 A 468200.0 5321400.0 212.0"));
  EXPECT_THROW(network::adjust(net, nullptr), network::AdjustmentError);
  const Network far = read(with_line(2, "BL 0 A B  -1e8 20.0 30.0  4e-6 0 4e-6 0 0 4e-6  2.0"));
  EXPECT_THROW(network::adjust(far, nullptr), network::AdjustmentError);
}

// A variance without bound has no weight, and nothing else determines B.
TEST(NetworkFile, VariancesBeyondTheRangeOfNumbers) {
  const Network loose = read(with_line(2, "BL 0 A B  10.0 20.0 30.0  1e300 0 1e300 0 0 1e300  2.0"));
  EXPECT_THROW(network::adjust(loose, nullptr), network::AdjustmentError);
}

// Copied, the inverse would take as much memory again.
TEST(NormalEquations, HandOverTheirMatrix) {
  network::NormalEquations normal(2, 3);
  const double* elements = static_cast<const double*>(normal.matrix());
  EXPECT_EQ(static_cast<const double*>(*normal.take_matrix()), elements);
}

}  // namespace
