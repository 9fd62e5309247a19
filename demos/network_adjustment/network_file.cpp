#include "network_file.h"

#include <alidade/coords.h>
#include <alidade/matrix.h>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <map>
#include <numeric>

#include "matrix_views.h"
#include "weight.h"

namespace network {
namespace {

using demo::Place;
using demo::Record;

// What a file may hold. More is a slip of the pen, and would take memory and time without bounds.
constexpr double kFarthest = 1e8;             // metres from the Earth's centre, and between stations
constexpr std::size_t kMostStations = 15000;  // normal equations of 8 GB
constexpr std::size_t kLargestCluster = 1000;

// A cluster while its records arrive: the covariance elements may come in any order, each of them once.
struct OpenCluster {
  GroupKind kind;
  const char* element_record;
  VectorGroup group;
  std::vector<char> present;
  double scale = 1.0;
  bool scale_given = false;

  bool open() const { return !group.vectors.empty(); }
};

// Published records wait for the end of the file, where stations and observations are known.
struct PendingStation {
  Place place;
  std::string name;
  PublishedStation values;
};

struct PendingObservation {
  Place place;
  std::string label;
  PublishedObservation values;
};

class Reader {
public:
  explicit Reader(const std::string& name) : name_(name) {}

  Network read(std::istream& input);

private:
  void read_ellipsoid(Record& record);
  void read_fixed_station(Record& record);
  void read_statistic(Record& record);
  void read_baseline(Record& record);
  void read_cluster_baseline(Record& record);
  void read_cluster_scale(Record& record);
  void read_position(Record& record);
  void read_published_station(Record& record);
  void read_published_observation(Record& record);

  void expect_next_in_cluster(Record& record, OpenCluster& cluster);
  void read_element(Record& record, OpenCluster& cluster);
  void close_cluster(OpenCluster& cluster);
  void add_group(VectorGroup group);
  void resolve_fixed_stations();
  void expect_every_station_tied() const;
  void resolve_published_stations();
  void resolve_published_observations(const Place& end);

  [[noreturn]] void fail(int line, const std::string& message) const { demo::fail({name_, line}, message); }
  int station(Record& record);
  void read_ends(Record& record, ObservedVector& vector);
  static Coord read_coord(Record& record);

  std::string name_;
  Network network_;
  std::map<std::string, int> index_;
  std::map<int, int> baseline_lines_;  // by identifier
  bool ellipsoid_given_ = false;
  OpenCluster baselines_{GroupKind::kBaselineCluster, "CBLC", {}, {}};
  OpenCluster positions_{GroupKind::kPositionCluster, "CPOSC", {}, {}};
  std::map<std::string, Station> fixed_;
  std::vector<PendingStation> pending_stations_;
  std::vector<PendingObservation> pending_observations_;
};

const char* kind_letter(GroupKind kind) {
  switch (kind) {
    case GroupKind::kBaseline:
      return "G";
    case GroupKind::kBaselineCluster:
      return "X";
    default:
      return "Y";
  }
}

void Reader::read_statistic(Record& record) {
  const std::string key = record.text();
  const double value = record.number();
  if (!network_.published.statistics.emplace(key, value).second) {
    record.fail("expected each published statistic once, found \"" + key + "\" again");
  }
}

void Reader::read_ellipsoid(Record& record) {
  if (ellipsoid_given_) {
    record.fail("expected one ELLIPSOID record, found another");
  }
  ellipsoid_given_ = true;
  ReferenceEllipsoid& ellipsoid = network_.ellipsoid;
  ellipsoid.name = record.text();
  ellipsoid.a = record.number_between(6.3e6, 6.4e6);
  ellipsoid.inverse_flattening = record.number_between(100, 1000);
}

int Reader::station(Record& record) {
  const std::string name = record.text();
  const auto [entry, is_new] = index_.emplace(name, static_cast<int>(network_.stations.size()));
  if (is_new) {
    if (network_.stations.size() == kMostStations) {
      record.fail_at_field("one of the first " + std::to_string(kMostStations) + " stations (there may be no more)");
    }
    network_.stations.push_back({name, record.place().line});
  }
  return entry->second;
}

void Reader::read_fixed_station(Record& record) {
  Station station{record.text(), record.place().line, true};
  if (fixed_.count(station.name) != 0) {
    record.fail_at_field("a station that is not fixed yet");
  }
  station.position = read_coord(record);
  fixed_.emplace(station.name, station);
}

void Reader::read_ends(Record& record, ObservedVector& vector) {
  vector.from = station(record);
  vector.to = station(record);
  if (vector.from == vector.to) {
    record.fail_at_field("another station than from");
  }
}

Coord Reader::read_coord(Record& record) {
  const double x = record.number_between(-kFarthest, kFarthest);
  const double y = record.number_between(-kFarthest, kFarthest);
  const double z = record.number_between(-kFarthest, kFarthest);
  return {x, y, z};
}

void Reader::read_baseline(Record& record) {
  const auto [entry, is_new] = baseline_lines_.emplace(record.index(), record.place().line);
  if (!is_new) {
    record.fail_at_field("an identifier other than that of the baseline in line " + std::to_string(entry->second));
  }
  VectorGroup group{GroupKind::kBaseline, record.place().line, {}, {}, {}};
  ObservedVector vector{};
  read_ends(record, vector);
  vector.value = read_coord(record);
  group.vectors.push_back(vector);
  for (int k = 0; k < 6; ++k) {
    group.covariance.push_back(record.number());
  }
  const double scale = record.positive_number();
  for (double& element : group.covariance) {
    element *= scale;
  }
  add_group(std::move(group));
}

// Number 0 begins a new cluster. All vectors of a cluster stand before its covariance, whose order they fix.
void Reader::expect_next_in_cluster(Record& record, OpenCluster& cluster) {
  const int k = record.index();
  if (k == 0) {
    close_cluster(cluster);
    cluster.group.line = record.place().line;
    cluster.group.kind = cluster.kind;
  } else if (!cluster.present.empty()) {
    record.fail_at_field("0, the first of a new cluster (the covariance of the last one has begun),");
  }
  if (k != static_cast<int>(cluster.group.vectors.size())) {
    record.fail_at_field(std::to_string(cluster.group.vectors.size()) + ", the next number of the cluster,");
  }
  if (cluster.group.vectors.size() == kLargestCluster) {
    record.fail_at_field("a number below " + std::to_string(kLargestCluster) + ", the largest cluster,");
  }
}

void Reader::read_cluster_baseline(Record& record) {
  expect_next_in_cluster(record, baselines_);
  ObservedVector vector{};
  read_ends(record, vector);
  vector.value = read_coord(record);
  baselines_.group.vectors.push_back(vector);
}

void Reader::read_position(Record& record) {
  expect_next_in_cluster(record, positions_);
  ObservedVector vector{};
  vector.from = kNoStation;
  vector.to = station(record);
  vector.value = read_coord(record);
  positions_.group.vectors.push_back(vector);
}

void Reader::read_element(Record& record, OpenCluster& cluster) {
  if (!cluster.open()) {
    record.fail("expected the vectors of a cluster before " + record.type() + ", found none");
  }
  const int rows = cluster.group.rows();
  if (cluster.present.empty()) {
    cluster.present.assign(packed_size(rows), 0);
    cluster.group.covariance.assign(packed_size(rows), 0.0);
  }
  const int i = record.index();
  if (i >= rows) {
    record.fail_at_field("a row from 0 to " + std::to_string(rows - 1));
  }
  const int j = record.index();
  if (j > i) {
    record.fail_at_field("a column from 0 to i = " + std::to_string(i));
  }
  const auto position = static_cast<std::size_t>(TSMatrix::LinearIndex(i, j));
  if (cluster.present[position] != 0) {
    record.fail("expected each element of the covariance once, found " + std::to_string(i) + " " + std::to_string(j) +
                " again");
  }
  cluster.present[position] = 1;
  cluster.group.covariance[position] = record.number();
}

void Reader::read_cluster_scale(Record& record) {
  if (!baselines_.open()) {
    record.fail("expected the baselines of a cluster before CBLS, found none");
  }
  if (baselines_.scale_given) {
    record.fail("expected one CBLS record for a cluster, found another");
  }
  baselines_.scale = record.positive_number();
  baselines_.scale_given = true;
}

void Reader::close_cluster(OpenCluster& cluster) {
  if (!cluster.open()) {
    return;
  }
  const int line = cluster.group.line;
  const std::size_t needed = packed_size(cluster.group.rows());
  const auto found = static_cast<std::size_t>(std::count(cluster.present.begin(), cluster.present.end(), 1));
  if (found != needed) {
    fail(line, "expected " + std::to_string(needed) + " " + cluster.element_record +
                   " records for the cluster that begins here, found " + std::to_string(found));
  }
  if (cluster.kind == GroupKind::kBaselineCluster && !cluster.scale_given) {
    fail(line, "expected a CBLS record for the cluster that begins here, found none");
  }
  for (double& element : cluster.group.covariance) {
    element *= cluster.scale;
  }
  add_group(std::move(cluster.group));
  cluster = {cluster.kind, cluster.element_record, {}, {}};
}

void Reader::add_group(VectorGroup group) {
  if (!invert_covariance(group.covariance, group.rows(), group.weight)) {
    fail(group.line, "expected a positive definite covariance for the vectors that begin here");
  }
  network_.groups.push_back(std::move(group));
}

// Degrees from packed sexagesimal text, D.MMSSsss with the sign in front: at most three digits before the point and
// twenty behind it. Digits behind the seconds are a fraction of a second.
double parse_packed_degrees(Record& record) {
  std::string text = record.text();
  const bool negative = !text.empty() && text[0] == '-';
  text.erase(0, negative ? 1 : 0);
  const std::size_t point = text.find('.');
  const auto digits = std::count_if(text.begin(), text.end(), [](unsigned char c) { return std::isdigit(c) != 0; });
  const bool well_formed = point >= 1 && point <= 3 && text.size() >= point + 5 && text.size() <= point + 21 &&
                           static_cast<std::size_t>(digits) + 1 == text.size();
  int minutes = 60;
  double seconds = 60;
  if (well_formed) {
    minutes = std::stoi(text.substr(point + 1, 2));
    seconds = static_cast<double>(std::stoll(text.substr(point + 3))) /
              std::pow(10.0, static_cast<double>(text.size() - (point + 5)));
  }
  if (minutes >= 60 || seconds >= 60) {
    record.fail_at_field("an angle in packed degrees D.MMSSsss");
  }
  const double angle = dms_to_deg(std::stoi(text), minutes, seconds);
  return negative ? -angle : angle;
}

void Reader::read_published_station(Record& record) {
  PendingStation pending{record.place(), record.text(), {}};
  PublishedStation& values = pending.values;
  values.latitude_deg = parse_packed_degrees(record);
  values.longitude_deg = parse_packed_degrees(record);
  record.number();  // physical height: needs a geoid model
  values.height = record.number();
  values.position = read_coord(record);
  values.sd_east = record.number();
  values.sd_north = record.number();
  values.sd_up = record.number();
  pending_stations_.push_back(pending);
}

void Reader::read_published_observation(Record& record) {
  PendingObservation pending{record.place(), {}, {}};
  for (int k = 0; k < 4; ++k) {
    pending.label += (k == 0 ? "" : " ") + record.text();
  }
  record.number();  // measured
  pending.values.adjusted = record.number();
  pending.values.correction = record.number();
  record.number();  // standard deviation of the measured value
  pending.values.sd_adjusted = record.number();
  pending.values.sd_correction = record.number();
  pending.values.normal_statistic = record.number();
  record.number();  // reliability
  pending_observations_.push_back(pending);
}

void Reader::resolve_fixed_stations() {
  for (const auto& [name, fixed] : fixed_) {
    const auto entry = index_.find(name);
    if (entry == index_.end()) {
      fail(fixed.line, "expected a station with observations, found \"" + name + "\"");
    }
    network_.stations[static_cast<std::size_t>(entry->second)] = fixed;
  }
  if (fixed_.size() == network_.stations.size()) {
    fail(fixed_.begin()->second.line, "expected at least one station that is not fixed");
  }
}

void Reader::resolve_published_stations() {
  for (PendingStation& pending : pending_stations_) {
    const auto entry = index_.find(pending.name);
    if (entry == index_.end()) {
      demo::fail(pending.place, "expected a station of the network, found \"" + pending.name + "\"");
    }
    pending.values.station = entry->second;
    network_.published.stations.push_back(pending.values);
  }
}

// A published result lists every observation, in the order of the file, or none.
void Reader::resolve_published_observations(const Place& end) {
  if (pending_observations_.empty()) {
    return;
  }
  std::vector<std::string> labels;
  for (const VectorGroup& group : network_.groups) {
    for (const ObservedVector& vector : group.vectors) {
      const std::string to = network_.stations[static_cast<std::size_t>(vector.to)].name;
      const std::string ends = vector.from == kNoStation
                                   ? to + " -"
                                   : network_.stations[static_cast<std::size_t>(vector.from)].name + " " + to;
      for (const char* component : {" X", " Y", " Z"}) {
        labels.push_back(kind_letter(group.kind) + (" " + ends) + component);
      }
    }
  }
  for (std::size_t k = 0; k < pending_observations_.size(); ++k) {
    const PendingObservation& pending = pending_observations_[k];
    if (k >= labels.size() || pending.label != labels[k]) {
      demo::fail(pending.place,
                 "expected " +
                     (k < labels.size() ? "\"RES " + labels[k] + " ...\"" : std::string("no more RES records")) +
                     ", found \"RES " + pending.label + "\"");
    }
    network_.published.observations.push_back(pending.values);
  }
  if (pending_observations_.size() != labels.size()) {
    demo::fail(end, "expected " + std::to_string(labels.size()) + " RES records, one for each observation, found " +
                        std::to_string(pending_observations_.size()));
  }
}

// Baselines tie stations to each other, positions tie them to the ground, and fixed stations are part of it.
// With positive definite covariances this is exactly what makes the normal equations regular.
void Reader::expect_every_station_tied() const {
  std::vector<std::size_t> set(network_.stations.size() + 1);  // the last element stands for the ground
  std::iota(set.begin(), set.end(), std::size_t{0});
  const auto root = [&set](std::size_t i) {
    while (set[i] != i) {
      i = set[i] = set[set[i]];
    }
    return i;
  };
  const std::size_t ground = network_.stations.size();
  for (const VectorGroup& group : network_.groups) {
    for (const ObservedVector& vector : group.vectors) {
      const std::size_t from = vector.from == kNoStation ? ground : static_cast<std::size_t>(vector.from);
      set[root(static_cast<std::size_t>(vector.to))] = root(from);
    }
  }
  for (std::size_t i = 0; i < ground; ++i) {
    if (network_.stations[i].fixed) {
      set[root(i)] = root(ground);
    }
  }
  for (std::size_t i = 0; i < ground; ++i) {
    if (root(i) != root(ground)) {
      fail(network_.stations[i].line,
           "expected baselines that lead to an observed (CPOS) or fixed (FIX) position, found none for station " +
               network_.stations[i].name);
    }
  }
}

Network Reader::read(std::istream& input) {
  const Place end = demo::read_records(
      input, name_,
      {{"ELLIPSOID", "name a 1/f", [this](Record& r) { read_ellipsoid(r); }},
       {"FIX", "station X Y Z", [this](Record& r) { read_fixed_station(r); }},
       {"SUM", "key value", [this](Record& r) { read_statistic(r); }},
       {"BL", "id from to dX dY dZ cXX cXY cYY cXZ cYZ cZZ scale", [this](Record& r) { read_baseline(r); }},
       {"CBL", "k from to dX dY dZ", [this](Record& r) { read_cluster_baseline(r); }},
       {"CBLC", "i j value", [this](Record& r) { read_element(r, baselines_); }},
       {"CBLS", "scale", [this](Record& r) { read_cluster_scale(r); }},
       {"CPOS", "k station X Y Z", [this](Record& r) { read_position(r); }},
       {"CPOSC", "i j value", [this](Record& r) { read_element(r, positions_); }},
       {"ADJ", "station lat lon H h X Y Z sdE sdN sdU", [this](Record& r) { read_published_station(r); }},
       {"RES", "kind from to comp measured adjusted correction sdMeas sdAdj sdCorr nstat reliab",
        [this](Record& r) { read_published_observation(r); }}});
  close_cluster(baselines_);
  close_cluster(positions_);
  if (network_.groups.empty()) {
    demo::fail(end, "expected observations (BL, CBL or CPOS records), found none");
  }
  // The order of the published result: baselines, clusters of baselines, positions.
  std::stable_sort(network_.groups.begin(), network_.groups.end(),
                   [](const VectorGroup& a, const VectorGroup& b) { return a.kind < b.kind; });
  resolve_fixed_stations();
  expect_every_station_tied();
  resolve_published_stations();
  resolve_published_observations(end);
  return std::move(network_);
}

}  // namespace

Network read_network(std::istream& input, const std::string& name) { return Reader(name).read(input); }

Network read_network_file(const std::string& path) {
  std::ifstream input = demo::open_input(path);
  return read_network(input, path);
}

}  // namespace network
