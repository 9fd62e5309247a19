#include "plan.h"

#include <alidade/coords.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

#include "label_placement.h"

namespace network {
namespace {

constexpr double kWidth = 1280;
constexpr double kMargin = 20;
constexpr double kTitleHeight = 44;
constexpr double kLegendHeight = 74;
constexpr double kMinMainHeight = 320;
constexpr double kMaxMainHeight = 900;
constexpr double kMainBorder = 46;  // from the frame to the outermost station: room for labels
constexpr double kInsetBorder = 58;
constexpr double kInsetHeight = 330;
constexpr int kInsetsInRow = 4;
constexpr double kDenseDistance = 24;   // stations nearer than this in the main plan belong together
constexpr std::size_t kDenseCount = 3;  // and so many of them get an inset
constexpr double kTypicalAxis = 9;      // pixels of a typical semi-major axis
constexpr double kSymbolRadius = 4;

struct Extent {
  double west;
  double east;
  double south;
  double north;
};

Extent extent_of(const std::vector<PlanStation>& stations, const std::vector<std::size_t>& members) {
  Extent extent{stations[members[0]].east, stations[members[0]].east, stations[members[0]].north,
                stations[members[0]].north};
  for (const std::size_t i : members) {
    extent.west = std::min(extent.west, stations[i].east);
    extent.east = std::max(extent.east, stations[i].east);
    extent.south = std::min(extent.south, stations[i].north);
    extent.north = std::max(extent.north, stations[i].north);
  }
  return extent;
}

// The plan is drawn in the horizon of the network's centre.
std::vector<PlanStation> project(const Network& network, const Results& results) {
  Coord centre(0, 0, 0);
  for (const StationResult& station : results.stations) {
    centre += station.position;
  }
  centre /= static_cast<double>(results.stations.size());
  const GeoCoord geodetic(centre);
  const TAbstractPoint3<double> blh(geodetic.b, geodetic.l, geodetic.h);

  std::vector<PlanStation> stations;
  for (std::size_t i = 0; i < results.stations.size(); ++i) {
    const Coord difference = results.stations[i].position - centre;
    const TAbstractPoint3<double> local =
        blh_to_neu(blh, TAbstractPoint3<double>(difference.x, difference.y, difference.z));
    stations.push_back({network.stations[i].name, local[0], local[1], false, results.stations[i].ellipse});
  }
  for (const VectorGroup& group : network.groups) {
    for (const ObservedVector& vector : group.vectors) {
      if (vector.from == kNoStation) {
        stations[static_cast<std::size_t>(vector.to)].observed_position = true;
      }
    }
  }
  return stations;
}

// One line for each pair of stations, flagged when any observation between them is.
std::vector<PlanLine> baselines(const Network& network, const Results& results) {
  std::vector<PlanLine> lines;
  std::size_t row = 0;
  for (const VectorGroup& group : network.groups) {
    for (const ObservedVector& vector : group.vectors) {
      bool flagged = false;
      for (std::size_t c = 0; c < 3; ++c, ++row) {
        flagged = flagged || (row < results.tests.observations.size() &&
                              results.tests.fails_normal(results.tests.observations[row]));
      }
      if (vector.from == kNoStation) {
        continue;
      }
      const std::pair<std::size_t, std::size_t> ends(std::minmax(vector.from, vector.to));
      const auto known = std::find_if(lines.begin(), lines.end(), [&](const PlanLine& line) {
        return line.from == ends.first && line.to == ends.second;
      });
      if (known == lines.end()) {
        lines.push_back({ends.first, ends.second, flagged});
      } else {
        known->flagged = known->flagged || flagged;
      }
    }
  }
  return lines;
}

double typical_semi_major(const std::vector<PlanStation>& stations) {
  std::vector<double> axes;
  for (const PlanStation& station : stations) {
    axes.push_back(station.ellipse.semi_major);
  }
  std::nth_element(axes.begin(), axes.begin() + static_cast<std::ptrdiff_t>(axes.size() / 2), axes.end());
  return axes[axes.size() / 2];
}

// Groups of stations that lie within distance of one another, link by link.
std::vector<std::vector<std::size_t>> dense_groups(const std::vector<PlanStation>& stations, double distance) {
  std::vector<std::vector<std::size_t>> groups;
  std::vector<char> used(stations.size(), 0);
  for (std::size_t first = 0; first < stations.size(); ++first) {
    if (used[first] != 0) {
      continue;
    }
    std::vector<std::size_t> group{first};
    used[first] = 1;
    for (std::size_t k = 0; k < group.size(); ++k) {
      for (std::size_t i = 0; i < stations.size(); ++i) {
        if (used[i] == 0 && std::hypot(stations[i].east - stations[group[k]].east,
                                       stations[i].north - stations[group[k]].north) < distance) {
          group.push_back(i);
          used[i] = 1;
        }
      }
    }
    if (group.size() >= kDenseCount && group.size() < stations.size()) {
      groups.push_back(std::move(group));
    }
  }
  std::sort(groups.begin(), groups.end(),
            [&](const auto& a, const auto& b) { return extent_of(stations, a).west < extent_of(stations, b).west; });
  return groups;
}

// Fits the members into the frame, less a border. Members at one point get the scale of a kilometre.
void fit(Panel& panel, const std::vector<PlanStation>& stations, const std::vector<std::size_t>& members,
         double border) {
  const Extent extent = extent_of(stations, members);
  const double width = std::max(extent.east - extent.west, 1.0);
  const double height = std::max(extent.north - extent.south, 1.0);
  panel.centre_east = (extent.west + extent.east) / 2;
  panel.centre_north = (extent.south + extent.north) / 2;
  panel.pixels_per_metre =
      std::min((panel.frame.width() - 2 * border) / width, (panel.frame.height() - 2 * border) / height);
}

Box box_around(const Point& point, double radius_x, double radius_y) {
  return {point.x - radius_x, point.y - radius_y, point.x + radius_x, point.y + radius_y};
}

// Half the width and height of an ellipse's bounding box.
Point ellipse_reach(const ErrorEllipse& ellipse, double pixels_per_millimetre) {
  const double scale = 1e3 * pixels_per_millimetre;
  const double s = std::sin(ellipse.major_azimuth);
  const double c = std::cos(ellipse.major_azimuth);
  return {scale * std::hypot(ellipse.semi_major * s, ellipse.semi_minor * c),
          scale * std::hypot(ellipse.semi_major * c, ellipse.semi_minor * s)};
}

void label(Panel& panel, const Plan& plan, const std::vector<Locator>& locators) {
  Surroundings surroundings{panel.frame, {}, {}, {}};
  std::vector<LabelRequest> requests;
  for (const std::size_t i : panel.stations) {
    const Point point = panel.at(plan.stations[i]);
    const Point reach = ellipse_reach(plan.stations[i].ellipse, plan.pixels_per_millimetre);
    surroundings.symbols.push_back(box_around(point, kSymbolRadius, kSymbolRadius));
    surroundings.ellipses.push_back(box_around(point, reach.x, reach.y));
    requests.push_back({plan.stations[i].name, point, std::max({reach.x, reach.y, kSymbolRadius}) + 2});
  }
  for (const Locator& locator : locators) {
    surroundings.symbols.push_back(locator.box);
    requests.push_back(
        {locator.letter, locator.box.centre(), std::max(locator.box.width(), locator.box.height()) / 2 + 2});
  }
  for (const PlanLine& line : plan.lines) {
    surroundings.lines.emplace_back(panel.at(plan.stations[line.from]), panel.at(plan.stations[line.to]));
  }
  panel.labels = place_labels(requests, surroundings);
  panel.unlabelled = requests.size() - panel.labels.size();
}

}  // namespace

bool overlap(const Box& a, const Box& b) {
  return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

double round_down(double value) {
  const double decade = std::pow(10.0, std::floor(std::log10(value)));
  for (const double step : {5.0, 2.0}) {
    if (step * decade <= value) {
      return step * decade;
    }
  }
  return decade;
}

Point Panel::at(const PlanStation& station) const {
  const Point centre = frame.centre();
  return {centre.x + (station.east - centre_east) * pixels_per_metre,
          centre.y - (station.north - centre_north) * pixels_per_metre};
}

Plan make_plan(const Network& network, const Results& results) {
  Plan plan{};
  plan.width = kWidth;
  plan.stations = project(network, results);
  plan.lines = baselines(network, results);
  plan.pixels_per_millimetre = round_down(2 * kTypicalAxis / std::max(1e3 * typical_semi_major(plan.stations), 1e-6));

  // The main plan takes the height that its width needs.
  std::vector<std::size_t> all(plan.stations.size());
  std::iota(all.begin(), all.end(), std::size_t{0});
  const Extent extent = extent_of(plan.stations, all);
  const double inner = kWidth - 2 * kMargin - 2 * kMainBorder;
  const double needed =
      inner * (extent.north - extent.south) / std::max(extent.east - extent.west, 1.0) + 2 * kMainBorder;
  const double main_height = std::clamp(needed, kMinMainHeight, kMaxMainHeight);
  plan.main.frame = {kMargin, kTitleHeight, kWidth - kMargin, kTitleHeight + main_height};
  fit(plan.main, plan.stations, all, kMainBorder);

  const double top = plan.main.frame.bottom;
  plan.legend = {kMargin, top, kWidth - kMargin, top + kLegendHeight};

  std::vector<char> in_inset(plan.stations.size(), 0);
  const double inset_width = (kWidth - 2 * kMargin - (kInsetsInRow - 1) * kMargin) / kInsetsInRow;
  for (const auto& group : dense_groups(plan.stations, kDenseDistance / plan.main.pixels_per_metre)) {
    const auto number = static_cast<int>(plan.insets.size());
    Panel inset{};
    inset.letter = std::string(static_cast<std::size_t>(1 + number / 26), static_cast<char>('A' + number % 26));
    const int row = number / kInsetsInRow;
    const int column = number % kInsetsInRow;
    const double left = kMargin + column * (inset_width + kMargin);
    const double inset_top = plan.legend.bottom + row * (kInsetHeight + kMargin);
    inset.frame = {left, inset_top, left + inset_width, inset_top + kInsetHeight};
    inset.stations = group;
    fit(inset, plan.stations, group, kInsetBorder);

    Box around{kWidth, kWidth * 2, 0, 0};
    for (const std::size_t i : group) {
      in_inset[i] = 1;
      plan.main.dots.push_back(i);
      const Point point = plan.main.at(plan.stations[i]);
      around = {std::min(around.left, point.x - 7), std::min(around.top, point.y - 7),
                std::max(around.right, point.x + 7), std::max(around.bottom, point.y + 7)};
    }
    plan.locators.push_back({inset.letter, around});
    plan.insets.push_back(std::move(inset));
  }
  for (const std::size_t i : all) {
    if (in_inset[i] == 0) {
      plan.main.stations.push_back(i);
    }
  }

  label(plan.main, plan, plan.locators);
  for (Panel& inset : plan.insets) {
    label(inset, plan, {});
  }
  plan.height = (plan.insets.empty() ? plan.legend.bottom : plan.insets.back().frame.bottom) + kMargin;
  return plan;
}

}  // namespace network
