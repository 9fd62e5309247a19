#include "road_plan.h"

#include <cmath>
#include <set>

#include "common/text.h"
#include "parcel.h"

namespace stakeout {
namespace {

using demo::Record;

// Bounds of what a surveyor stakes out, in metres. More is a wrong digit.
constexpr double kFarthestStation = 1e7;
constexpr double kLargestCoordinate = 1e8;
constexpr double kFarthestPoint = 100e3;  // from BEGIN
constexpr double kFarthestOffset = 1000.0;
constexpr double kShortestInterval = 0.1;
constexpr std::size_t kMostCorners = 2000;

class Reader {
public:
  RoadPlan read(std::istream& input, const std::string& name) {
    const auto element = [this](ElementKind kind) { return [this, kind](Record& r) { read_element(r, kind); }; };
    const Place end = demo::read_records(
        input, name,
        {{"ROAD", nullptr, [this](Record& r) { plan_.title = r.rest(); }},
         {"BEGIN", "station north east", [this](Record& r) { read_begin(r); }},
         {"TANGENT", "north east", element(ElementKind::kTangent)},
         {"ARC3", "north_on_arc east_on_arc north_of_end east_of_end", element(ElementKind::kArcThroughPoint)},
         {"ARC_FROM_TANGENT", "north east", element(ElementKind::kArcFromTangent)},
         {"ARC_TO_TANGENT", "north east", element(ElementKind::kArcToTangent)},
         {"INTERVAL", "metres", [this](Record& r) { read_interval(r); }},
         {"OFFSETS", "left right", [this](Record& r) { read_offsets(r); }},
         {"ASBUILT", "name north east design_offset", [this](Record& r) { read_as_built(r); }},
         {"CORNER", "name north east", [this](Record& r) { read_corner(r); }}});
    if (!begun_) {
      demo::fail(end, "expected BEGIN before the end of the file");
    }
    if (plan_.elements.empty()) {
      demo::fail(end, "expected at least one element after BEGIN (TANGENT, ARC3, ARC_FROM_TANGENT, ARC_TO_TANGENT)");
    }
    check_parcel(end);
    return plan_;
  }

private:
  void read_begin(Record& record) {
    if (begun_) {
      record.fail("expected one BEGIN, found a second");
    }
    begun_ = true;
    plan_.begin_station = record.number_between(0.0, kFarthestStation);
    const Point begin = read_coordinates(record);
    plan_.origin = Point(std::floor(begin.x()), std::floor(begin.y()));
    plan_.begin = Point(begin - plan_.origin);
  }

  void read_element(Record& record, ElementKind kind) {
    ElementRequest element{kind, record.place(), Point(0.0), Point(0.0)};
    if (kind == ElementKind::kArcThroughPoint) {
      element.via = read_point(record);
    }
    element.end = read_point(record);
    plan_.elements.push_back(element);
  }

  void read_interval(Record& record) {
    plan_.interval_place = record.place();
    plan_.interval = record.number_between(kShortestInterval, kFarthestPoint);
  }

  void read_offsets(Record& record) {
    plan_.offset_left = record.number_between(-kFarthestOffset, 0.0);
    plan_.offset_right = record.number_between(0.0, kFarthestOffset);
  }

  void read_as_built(Record& record) {
    const std::string name = read_new_name(record, as_built_names_);
    const Point point = read_point(record);
    plan_.as_built.push_back({name, point, record.number_between(-kFarthestPoint, kFarthestPoint)});
  }

  void read_corner(Record& record) {
    if (plan_.parcel.size() == kMostCorners) {
      record.fail(demo::format("expected at most %zu CORNER records", kMostCorners));
    }
    const std::string name = read_new_name(record, corner_names_);
    plan_.parcel.push_back({record.place(), name, read_point(record)});
  }

  static std::string read_new_name(Record& record, std::set<std::string>& names) {
    std::string name = record.text();
    if (!names.insert(name).second) {
      record.fail_at_field("another name than those of the " + record.type() + " records before");
    }
    return name;
  }

  static Point read_coordinates(Record& record) {
    const double north = record.number_between(-kLargestCoordinate, kLargestCoordinate);
    const double east = record.number_between(-kLargestCoordinate, kLargestCoordinate);
    return {east, north};
  }

  // Coordinates are reduced to the origin, which BEGIN sets. The difference of numbers so close is exact.
  Point read_point(Record& record) const {
    if (!begun_) {
      record.fail("expected BEGIN before " + record.type());
    }
    const Point point(read_coordinates(record) - plan_.origin);
    if (std::fabs(point.x()) > kFarthestPoint || std::fabs(point.y()) > kFarthestPoint) {
      record.fail(demo::format("expected a point within %.0f km of BEGIN", kFarthestPoint / 1000.0));
    }
    return point;
  }

  void check_parcel(const Place& end) const {
    const std::vector<Corner>& corners = plan_.parcel;
    if (corners.empty()) {
      return;
    }
    if (corners.size() < 3) {
      demo::fail(end, demo::format("expected at least three CORNER records, found %zu", corners.size()));
    }
    const SidePair pair = find_crossing(corners);
    if (pair.first < corners.size()) {
      const auto side = [&](std::size_t k) { return corners[k].name + "-" + corners[(k + 1) % corners.size()].name; };
      demo::fail(corners[pair.second].place, "expected the sides of the parcel to meet at its corners alone, found " +
                                                 side(pair.second) + " crossing or touching " + side(pair.first));
    }
  }

  RoadPlan plan_;
  bool begun_ = false;
  std::set<std::string> as_built_names_;
  std::set<std::string> corner_names_;
};

}  // namespace

RoadPlan read_road_plan(std::istream& input, const std::string& name) { return Reader().read(input, name); }

RoadPlan read_road_plan_file(const std::string& path) {
  std::ifstream input = demo::open_input(path);
  return read_road_plan(input, path);
}

}  // namespace stakeout
