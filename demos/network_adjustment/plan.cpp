#include "plan.h"

#include <alidade/coords.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <map>
#include <numeric>
#include <utility>

#include "common/text.h"
#include "geodetic.h"

namespace network {
namespace {

using demo::box_around;
using demo::centre_of;
using demo::LabelRequest;
using demo::Segment;

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
constexpr std::size_t kMostInsets = 12;
constexpr double kWorthwhile = 2;       // enlargement of an inset at least
constexpr double kDenseDistance = 24;   // stations nearer than this in the main plan belong together
constexpr std::size_t kDenseCount = 3;  // and so many of them get an inset
constexpr double kTypicalAxis = 9;      // pixels of a typical semi-major axis
constexpr double kSymbolRadius = 4;
constexpr double kCrowded = 26;  // stations nearer than this leave in doubt which one a label means

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
  const GeoCoord horizon = geodetic(network.ellipsoid, centre);

  std::vector<PlanStation> stations;
  for (std::size_t i = 0; i < results.stations.size(); ++i) {
    const StationResult& result = results.stations[i];
    const TAbstractPoint3<double> enu = local(horizon, result.position - centre);
    stations.push_back({network.stations[i].name, enu[0], enu[1], result.fixed, result.ellipse});
  }
  for (const VectorGroup& group : network.groups) {
    for (const ObservedVector& vector : group.vectors) {
      if (vector.from == kNoStation) {
        stations[static_cast<std::size_t>(vector.to)].given = true;
      }
    }
  }
  return stations;
}

// One line for each pair of stations, flagged when any observation between them is.
std::vector<PlanLine> baselines(const Network& network, const Results& results) {
  std::map<std::pair<std::size_t, std::size_t>, bool> flags;
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
      bool& flag = flags[std::minmax(vector.from, vector.to)];
      flag = flag || flagged;
    }
  }
  std::vector<PlanLine> lines;
  for (const auto& [ends, flagged] : flags) {
    lines.push_back({ends.first, ends.second, flagged});
  }
  return lines;
}

double typical_semi_major(const std::vector<PlanStation>& stations) {
  std::vector<double> axes;
  for (const PlanStation& station : stations) {
    if (station.ellipse.semi_major > 0) {
      axes.push_back(station.ellipse.semi_major);
    }
  }
  if (axes.empty()) {
    return 0;
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
      std::min((panel.frame.Width() - 2 * border) / width, (panel.frame.Height() - 2 * border) / height);
}

// Half the width and height of an ellipse's bounding box.
Point ellipse_reach(const ErrorEllipse& ellipse, double pixels_per_millimetre) {
  const double scale = 1e3 * pixels_per_millimetre;
  const double s = std::sin(ellipse.major_azimuth);
  const double c = std::cos(ellipse.major_azimuth);
  return Point(scale * std::hypot(ellipse.semi_major * s, ellipse.semi_minor * c),
               scale * std::hypot(ellipse.semi_major * c, ellipse.semi_minor * s));
}

double distance(const Point& a, const Point& b) { return std::hypot(a.x() - b.x(), a.y() - b.y()); }

// How many neighbours compete for the room around a point.
double crowding(const Point& anchor, const std::vector<LabelRequest>& requests) {
  double sum = 0;
  for (const LabelRequest& other : requests) {
    const double dx = (anchor.x() - other.anchor.x()) / 60;
    const double dy = (anchor.y() - other.anchor.y()) / 25;
    sum += 1 / (1 + dx * dx + dy * dy);
  }
  return sum;
}

// The most crowded first, since they find it hardest to get a place; of too many those that have most room.
std::vector<LabelRequest> in_order(const std::vector<LabelRequest>& requests, std::size_t most) {
  std::vector<std::pair<double, std::size_t>> order;
  for (std::size_t i = 0; i < requests.size(); ++i) {
    order.emplace_back(-crowding(requests[i].anchor, requests), i);
  }
  std::sort(order.begin(), order.end());
  std::vector<LabelRequest> result;
  for (std::size_t k = order.size() - std::min(most, order.size()); k < order.size(); ++k) {
    result.push_back(requests[order[k].second]);
  }
  return result;
}

// Labels of the panel's stations, and of the insets that it shows the place of. Returns how many stations remain
// without.
std::size_t label(Panel& panel, const Plan& plan, const std::vector<Locator>& locators) {
  demo::Obstacles obstacles{panel.frame, {}, {}, {}};
  std::vector<LabelRequest> requests;
  for (const std::size_t i : panel.stations) {
    const PlanStation& station = plan.stations[i];
    const Point point = panel.at(station);
    const Point reach = ellipse_reach(station.ellipse, plan.pixels_per_millimetre);
    obstacles.soft.emplace_back(box_around(point, kSymbolRadius, kSymbolRadius), 200);
    obstacles.soft.emplace_back(box_around(point, reach.x(), reach.y()), 80);
    requests.push_back({kNameStyle, station.name, point, std::max({reach.x(), reach.y(), kSymbolRadius}) + 2});
  }
  for (LabelRequest& request : requests) {
    const auto near = [&](const LabelRequest& other) { return distance(request.anchor, other.anchor) < kCrowded; };
    if (std::count_if(requests.begin(), requests.end(), near) > 1) {
      request.leader_from = 0;
    }
  }
  std::vector<LabelRequest> letters;
  for (const Locator& locator : locators) {
    obstacles.soft.emplace_back(locator.box, 200);
    letters.push_back({kLetterStyle, locator.letter, centre_of(locator.box),
                       std::max(locator.box.Width(), locator.box.Height()) / 2 + 2});
  }
  for (const std::size_t k : panel.lines) {
    obstacles.lines.push_back(panel.at(plan, plan.lines[k]));
  }
  requests = in_order(requests, demo::kMostLabels - letters.size());
  requests.insert(requests.begin(), letters.begin(), letters.end());
  panel.labels = place_labels(requests, obstacles);
  const auto names = std::count_if(panel.labels.begin(), panel.labels.end(),
                                   [](const Label& placed) { return placed.style.name == kNameStyle.name; });
  return panel.stations.size() - static_cast<std::size_t>(names);
}

void find_lines(Panel& panel, const Plan& plan) {
  for (std::size_t k = 0; k < plan.lines.size(); ++k) {
    if (crosses(panel.at(plan, plan.lines[k]), panel.frame)) {
      panel.lines.push_back(k);
    }
  }
}

// Dense groups at a larger scale, the largest groups first to come and then from west to east.
std::vector<Panel> make_insets(const Plan& plan) {
  const double width = (kWidth - 2 * kMargin - (kInsetsInRow - 1) * kMargin) / kInsetsInRow;
  std::vector<Panel> insets;
  for (const auto& group : dense_groups(plan.stations, kDenseDistance / plan.main.pixels_per_metre)) {
    Panel inset{};
    inset.frame = Box(0, 0, width, kInsetHeight);
    inset.stations = group;
    fit(inset, plan.stations, group, kInsetBorder);
    if (inset.pixels_per_metre >= kWorthwhile * plan.main.pixels_per_metre) {
      insets.push_back(std::move(inset));
    }
  }
  std::stable_sort(insets.begin(), insets.end(),
                   [](const Panel& a, const Panel& b) { return a.stations.size() > b.stations.size(); });
  insets.resize(std::min(insets.size(), kMostInsets));
  std::sort(insets.begin(), insets.end(), [](const Panel& a, const Panel& b) { return a.centre_east < b.centre_east; });
  for (std::size_t k = 0; k < insets.size(); ++k) {
    insets[k].letter = std::string(1, static_cast<char>('A' + k));
    const double left = kMargin + static_cast<double>(k % kInsetsInRow) * (width + kMargin);
    const double top = plan.legend.bottom() + static_cast<double>(k / kInsetsInRow) * (kInsetHeight + kMargin);
    insets[k].frame = Box(left, top, left + width, top + kInsetHeight);
    find_lines(insets[k], plan);
  }
  return insets;
}

// What the main plan shows of a group that has an inset.
Locator locate(const Panel& inset, const Plan& plan) {
  Box around = box_around(plan.main.at(plan.stations[inset.stations.front()]), 7, 7);
  for (const std::size_t i : inset.stations) {
    around |= box_around(plan.main.at(plan.stations[i]), 7, 7);
  }
  return {inset.letter, around};
}

}  // namespace

Point Panel::at(const PlanStation& station) const {
  const Point centre = centre_of(frame);
  return Point(centre.x() + (station.east - centre_east) * pixels_per_metre,
               centre.y() - (station.north - centre_north) * pixels_per_metre);
}

Segment Panel::at(const Plan& plan, const PlanLine& line) const {
  return {at(plan.stations[line.from]), at(plan.stations[line.to])};
}

Plan make_plan(const Network& network, const Results& results) {
  Plan plan{};
  plan.width = kWidth;
  plan.stations = project(network, results);
  plan.lines = baselines(network, results);

  // The main plan takes the height that its width needs.
  std::vector<std::size_t> all(plan.stations.size());
  std::iota(all.begin(), all.end(), std::size_t{0});
  const Extent extent = extent_of(plan.stations, all);
  const double inner = kWidth - 2 * kMargin - 2 * kMainBorder;
  const double needed =
      inner * (extent.north - extent.south) / std::max(extent.east - extent.west, 1.0) + 2 * kMainBorder;
  const double bottom = kTitleHeight + std::clamp(needed, kMinMainHeight, kMaxMainHeight);
  plan.main.frame = Box(kMargin, kTitleHeight, kWidth - kMargin, bottom);
  fit(plan.main, plan.stations, all, kMainBorder);
  find_lines(plan.main, plan);
  const double spacing = std::sqrt(plan.main.frame.Area() / static_cast<double>(all.size()));
  const double axis = std::min(kTypicalAxis, spacing / 6);  // among many stations large ellipses would hide the network
  plan.pixels_per_millimetre = demo::round_down(2 * axis / std::max(1e3 * typical_semi_major(plan.stations), 1e-6));
  plan.legend = Box(kMargin, bottom, kWidth - kMargin, bottom + kLegendHeight);

  plan.insets = make_insets(plan);
  for (const Panel& inset : plan.insets) {
    plan.main.dots.insert(plan.main.dots.end(), inset.stations.begin(), inset.stations.end());
    plan.locators.push_back(locate(inset, plan));
  }
  std::vector<char> is_dot(plan.stations.size(), 0);
  for (const std::size_t i : plan.main.dots) {
    is_dot[i] = 1;
  }
  std::copy_if(all.begin(), all.end(), std::back_inserter(plan.main.stations),
               [&](std::size_t i) { return is_dot[i] == 0; });

  plan.unlabelled = label(plan.main, plan, plan.locators);
  for (Panel& inset : plan.insets) {
    plan.unlabelled += label(inset, plan, {});
  }
  plan.height = (plan.insets.empty() ? plan.legend.bottom() : plan.insets.back().frame.bottom()) + kMargin;
  plan.title = demo::format("GNSS network of %zu station%s", all.size(), all.size() == 1 ? "" : "s");
  if (plan.unlabelled > 0) {
    plan.title += demo::format(", %zu of them without a name in the plan", plan.unlabelled);
  }
  return plan;
}

}  // namespace network
