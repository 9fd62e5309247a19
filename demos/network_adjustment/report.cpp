#include "report.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "common/text.h"

namespace network {
namespace {

using demo::format;
using demo::format_dms;

constexpr double kDegree = 57.29577951308232;  // degrees in a radian

const std::string& name_of(const Network& network, int station) {
  return network.stations[static_cast<std::size_t>(station)].name;
}

std::vector<std::size_t> stations_by_name(const Network& network) {
  std::vector<std::size_t> order(network.stations.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::sort(order.begin(), order.end(),
            [&](std::size_t a, std::size_t b) { return network.stations[a].name < network.stations[b].name; });
  return order;
}

int name_width(const Network& network) {
  std::size_t width = 7;
  for (const Station& station : network.stations) {
    width = std::max(width, station.name.size());
  }
  return static_cast<int>(width);
}

std::string title(const std::string& text) { return text + "\n" + std::string(text.size(), '-') + "\n"; }

std::string vector_name(const Network& network, const ObservedVector& vector) {
  return vector.from == kNoStation ? "position " + name_of(network, vector.to)
                                   : name_of(network, vector.from) + " -> " + name_of(network, vector.to);
}

std::string positions_table(const Network& network, const Results& results) {
  const int width = name_width(network);
  const ReferenceEllipsoid& ellipsoid = network.ellipsoid;
  std::string text = title("Adjusted positions") +
                     format("Latitude, longitude and height on %s, a = %.4f m, 1/f = %.9f.\n", ellipsoid.name.c_str(),
                            ellipsoid.a, ellipsoid.inverse_flattening) +
                     format("%-*s %14s %14s %14s  %17s  %17s %10s\n", width, "station", "X [m]", "Y [m]", "Z [m]",
                            "latitude [d m s]", "longitude [d m s]", "height [m]");
  for (const std::size_t i : stations_by_name(network)) {
    const StationResult& station = results.stations[i];
    const double latitude = station.geodetic.b * kDegree;
    double longitude = station.geodetic.l * kDegree;
    const char* side = "E";
    if (longitude > 180) {
      longitude = 360 - longitude;
      side = "W";
    }
    text +=
        format("%-*s %14.4f %14.4f %14.4f  %s %s  %s %s %10.4f\n", width, network.stations[i].name.c_str(),
               station.position.x, station.position.y, station.position.z, format_dms(std::fabs(latitude), 5).c_str(),
               latitude < 0 ? "S" : "N", format_dms(longitude, 5).c_str(), side, station.geodetic.h);
  }
  return text;
}

std::string accuracy_table(const Network& network, const Results& results) {
  const int width = name_width(network);
  std::string text = title("Standard deviations and error ellipses (one sigma, a-priori variance factor 1)") +
                     format("%-*s %10s %10s %10s   %10s %10s %13s\n", width, "station", "east [mm]", "north [mm]",
                            "up [mm]", "major [mm]", "minor [mm]", "azimuth [deg]");
  double largest_residual = 0;
  std::size_t determined = 0;
  std::size_t verified = 0;
  for (const std::size_t i : stations_by_name(network)) {
    const StationResult& station = results.stations[i];
    if (station.fixed) {
      text += format("%-*s       held fixed\n", width, network.stations[i].name.c_str());
      continue;
    }
    ++determined;
    text += format("%-*s %10.2f %10.2f %10.2f", width, network.stations[i].name.c_str(), 1e3 * station.sd_east,
                   1e3 * station.sd_north, 1e3 * station.sd_up);
    if (station.ellipse.residual <= kAxesTolerance) {
      text += format("   %10.2f %10.2f %13.1f\n", 1e3 * station.ellipse.semi_major, 1e3 * station.ellipse.semi_minor,
                     kDegree * station.ellipse.major_azimuth);
      largest_residual = std::max(largest_residual, station.ellipse.residual);
      ++verified;
    } else {
      text += "   axes refused: not the principal ones\n";
    }
  }
  return text +
         format("Axes verified for %zu of %zu stations: |V u - lambda u| is at most %.1e of the larger lambda.\n",
                verified, determined, largest_residual);
}

std::string signs_of(const ObservationTests& tests, const ObservationTest& test) {
  return tests.fails_tau(test) ? "!" : tests.fails_normal(test) ? "*" : " ";
}

std::string observations_table(const Network& network, const Results& results) {
  const int width = name_width(network);
  std::string text =
      title("Tests of the observations") +
      "Correction = adjusted - observed; normal = correction / its standard deviation; tau = |normal| / "
      "estimated sigma.\n" +
      format("Marked: * normal beyond %.2f, ! tau beyond %.3f, - not controlled by other observations.\n",
             results.tests.normal_critical, results.tests.tau_critical) +
      format("%-*s %-*s   %27s   %24s   %24s\n", width, "from", width, "to", "correction X, Y, Z [mm]",
             "normal X, Y, Z", "tau X, Y, Z");
  auto test = results.tests.observations.begin();
  for (const VectorGroup& group : network.groups) {
    for (const ObservedVector& vector : group.vectors) {
      std::string corrections;
      std::string normals;
      std::string taus;
      for (int c = 0; c < 3; ++c, ++test) {
        corrections += format(" %8.2f", 1e3 * test->residual);
        normals += test->tested ? format("  %5.2f", test->normal) + signs_of(results.tests, *test) : "      - ";
        taus += test->tested ? format("  %6.3f", test->tau) : "       -";
      }
      const char* from = vector.from == kNoStation ? "(position)" : name_of(network, vector.from).c_str();
      text += format("%-*s %-*s   %s   %s   %s\n", width, from, width, name_of(network, vector.to).c_str(),
                     corrections.c_str(), normals.c_str(), taus.c_str());
    }
  }
  return text;
}

std::string flagged(const Network& network, const Results& results) {
  std::string normal_list;
  std::string tau_list;
  int normal_count = 0;
  int tau_count = 0;
  auto test = results.tests.observations.begin();
  for (const VectorGroup& group : network.groups) {
    for (const ObservedVector& vector : group.vectors) {
      for (const char component : {'X', 'Y', 'Z'}) {
        const std::string line =
            format("  %-24s %c  correction %7.2f mm  normal %5.2f  tau %5.3f\n", vector_name(network, vector).c_str(),
                   component, 1e3 * test->residual, test->normal, test->tau);
        if (results.tests.fails_normal(*test)) {
          normal_list += line;
          ++normal_count;
        }
        if (results.tests.fails_tau(*test)) {
          tau_list += line;
          ++tau_count;
        }
        ++test;
      }
    }
  }
  const ObservationTests& tests = results.tests;
  std::string text = format("Normal test, each by itself at 95 %%: %d of %d observations beyond %.2f%s\n", normal_count,
                            tests.tested, tests.normal_critical, normal_count > 0 ? ":" : ".");
  text += normal_list;
  if (tests.tau_critical > 0) {
    text += format("Tau test, all together at 95 %%: largest tau %.3f, critical %.3f; %d flagged%s\n",
                   tests.largest_tau, tests.tau_critical, tau_count, tau_count > 0 ? ":" : ".");
    text += tau_list;
  }
  return text;
}

std::string variance_summary(const Results& results) {
  const VarianceTest& test = results.variance;
  return format("Chi-square %.2f on %d degrees of freedom, variance factor %.3f, 95 %% bounds %.3f and %.3f: %s.\n",
                test.chi_square, test.redundancy, test.factor, test.lower, test.upper,
                test.passed() ? "passed" : "failed");
}

std::string reductions(const Network& network, const Results& results) {
  std::string text =
      title("Reductions") +
      "North, east, up and their standard deviations relative to the base, in the horizon of the base.\n";
  for (const Reduction& reduction : results.reductions) {
    const PolCoord& polar = reduction.polar;
    const bool directed = polar.distance > 0;
    const std::string azimuth = directed ? format_dms(kDegree * polar.azimuth, 2) : "undefined";
    const std::string elevation =
        directed ? (polar.elevation < 0 ? "-" : "+") + format_dms(std::fabs(kDegree * polar.elevation), 2) : azimuth;
    text += format("%s -> %s\n", name_of(network, reduction.base).c_str(), name_of(network, reduction.rover).c_str()) +
            format("  north %14.4f m   sd %6.2f mm   azimuth   %s\n", reduction.neu.x, 1e3 * reduction.sd_north,
                   azimuth.c_str()) +
            format("  east  %14.4f m   sd %6.2f mm   elevation %s\n", reduction.neu.y, 1e3 * reduction.sd_east,
                   elevation.c_str()) +
            format("  up    %14.4f m   sd %6.2f mm   distance  %.4f m\n", reduction.neu.z, 1e3 * reduction.sd_up,
                   polar.distance);
  }
  return text;
}

// How far the result lies from the published one, where the file has one.
std::string comparison(const Network& network, const AdjustedNetwork& adjusted, const Results& results) {
  const PublishedResult& published = network.published;
  if (published.stations.empty()) {
    return {};
  }
  double position = 0;
  double deviation = 0;
  for (const PublishedStation& expected : published.stations) {
    const StationResult& station = results.stations[static_cast<std::size_t>(expected.station)];
    const Coord difference = station.position - expected.position;
    position = std::max({position, std::fabs(difference.x), std::fabs(difference.y), std::fabs(difference.z)});
    deviation = std::max({deviation, std::fabs(station.sd_east - expected.sd_east),
                          std::fabs(station.sd_north - expected.sd_north), std::fabs(station.sd_up - expected.sd_up)});
  }
  std::string text = title("Against the published result in the file") +
                     format("Largest difference of a coordinate %.2f mm, of a standard deviation %.3f mm.\n",
                            1e3 * position, 1e3 * deviation);
  const auto chi_square = published.statistics.find("chi_squared");
  if (chi_square != published.statistics.end()) {
    text += format("Chi-square %.2f published, %.2f here.\n", chi_square->second, adjusted.chi_square);
  }
  return text;
}

}  // namespace

Results evaluate_network(const Network& network, const AdjustedNetwork& adjusted, int base,
                         const std::vector<int>& rovers) {
  Results results{};
  for (std::size_t i = 0; i < adjusted.positions.size(); ++i) {
    results.stations.push_back(station_result(network, adjusted, static_cast<int>(i)));
  }
  const int redundancy = adjusted.redundancy();
  if (redundancy > 0) {
    results.variance = test_variance_factor(adjusted.chi_square, redundancy);
    results.tests = test_observations(adjusted.groups, results.variance.factor, redundancy);
  }
  for (const int rover : rovers) {
    results.reductions.push_back(reduce(network, adjusted, base, rover));
  }
  return results;
}

std::string report(const Network& network, const AdjustedNetwork& adjusted, const Results& results) {
  std::string text =
      format("Adjustment of %zu station%s: %d observations, %d unknowns, redundancy %d\n\n", network.stations.size(),
             network.stations.size() == 1 ? "" : "s", adjusted.observations, adjusted.unknowns, adjusted.redundancy());
  text += positions_table(network, results) + "\n" + accuracy_table(network, results) + "\n";
  if (adjusted.redundancy() > 0) {
    text += observations_table(network, results) + "\n" + title("Tests of the adjustment") + variance_summary(results) +
            flagged(network, results) + "\n";
  } else {
    text += "No redundant observation: nothing to test.\n\n";
  }
  if (!results.reductions.empty()) {
    text += reductions(network, results) + "\n";
  }
  text += comparison(network, adjusted, results);
  return text;
}

}  // namespace network
