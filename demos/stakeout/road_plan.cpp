#include "road_plan.h"

#include <cmath>
#include <fstream>

namespace stakeout {

namespace {

class Reader {
public:
  explicit Reader(const std::string& name) { plan_.place.file = name; }

  void read(std::istream& input) {
    std::string text;
    Place place = plan_.place;
    while (std::getline(input, text)) {
      ++place.line;
      Record record(place, text);
      if (!record.empty()) {
        read(record);
      }
    }
    last_ = place;
  }

  RoadPlan finish() {
    if (!begun_) {
      fail(last_, "expected BEGIN before the end of the file");
    }
    if (plan_.elements.empty()) {
      fail(last_, "expected at least one element after BEGIN (TANGENT, ARC3, ARC_FROM_TANGENT, ARC_TO_TANGENT)");
    }
    if (!plan_.parcel.empty() && plan_.parcel.size() < 3) {
      fail(last_, "expected at least three CORNER records, found " + std::to_string(plan_.parcel.size()));
    }
    return plan_;
  }

private:
  void read(Record& record) {
    const std::string& keyword = record.keyword();
    if (keyword == "ROAD") {
      plan_.title = record.rest();
    } else if (keyword == "BEGIN") {
      read_begin(record);
    } else if (keyword == "TANGENT") {
      read_element(record, ElementKind::kTangent);
    } else if (keyword == "ARC3") {
      read_element(record, ElementKind::kArcThroughPoint);
    } else if (keyword == "ARC_FROM_TANGENT") {
      read_element(record, ElementKind::kArcFromTangent);
    } else if (keyword == "ARC_TO_TANGENT") {
      read_element(record, ElementKind::kArcToTangent);
    } else if (keyword == "INTERVAL") {
      read_interval(record);
    } else if (keyword == "OFFSETS") {
      record.expect({"left", "right"});
      plan_.offset_left = record.number_not_negative();
      plan_.offset_right = record.number_not_negative();
    } else if (keyword == "ASBUILT") {
      read_as_built(record);
    } else if (keyword == "CORNER") {
      record.expect({"name", "north", "east"});
      const std::string name = record.word();
      plan_.parcel.push_back({name, read_point(record)});
    } else {
      fail(record.place(),
           "expected ROAD, BEGIN, TANGENT, ARC3, ARC_FROM_TANGENT, ARC_TO_TANGENT, INTERVAL, OFFSETS, ASBUILT or "
           "CORNER, found \"" +
               keyword + "\"");
    }
  }

  void read_begin(Record& record) {
    if (begun_) {
      fail(record.place(), "expected one BEGIN, found a second");
    }
    begun_ = true;
    plan_.place = record.place();
    record.expect({"station", "north", "east"});
    plan_.begin_station = record.number_not_negative();
    const double north = record.number();
    const double east = record.number();
    plan_.origin = Point(std::floor(east), std::floor(north));
    plan_.begin = Point(Point(east, north) - plan_.origin);
  }

  void read_element(Record& record, ElementKind kind) {
    if (kind == ElementKind::kArcThroughPoint) {
      record.expect({"north on the arc", "east on the arc", "north of its end", "east of its end"});
    } else {
      record.expect({"north", "east"});
    }
    ElementRequest element{kind, record.place(), Point(0.0), Point(0.0)};
    if (kind == ElementKind::kArcThroughPoint) {
      element.via = read_point(record);
    }
    element.end = read_point(record);
    plan_.elements.push_back(element);
  }

  void read_interval(Record& record) {
    record.expect({"metres"});
    plan_.interval = record.number_not_negative();
    if (plan_.interval < 0.1) {
      fail(record.place(), "expected an interval of at least 0.1 m");
    }
  }

  void read_as_built(Record& record) {
    record.expect({"name", "north", "east", "design offset"});
    const std::string name = record.word();
    const Point point = read_point(record);
    plan_.as_built.push_back({name, point, record.number()});
  }

  // Coordinates are reduced to the origin, which BEGIN sets. The difference of numbers so close is exact.
  Point read_point(Record& record) {
    if (!begun_) {
      fail(record.place(), "expected BEGIN before " + record.keyword());
    }
    const double north = record.number();
    const double east = record.number();
    const Point point(Point(east, north) - plan_.origin);
    constexpr double kFarthest = 1e6;  // metres; a transposed or a missing digit more likely than a road
    if (std::fabs(point.x()) > kFarthest || std::fabs(point.y()) > kFarthest) {
      fail(record.place(), "expected a point within 1000 km of BEGIN");
    }
    return point;
  }

  RoadPlan plan_;
  bool begun_ = false;
  Place last_;
};

}  // namespace

RoadPlan read_road_plan(std::istream& input, const std::string& name) {
  Reader reader(name);
  reader.read(input);
  return reader.finish();
}

RoadPlan read_road_plan_file(const std::string& path) {
  std::ifstream input(path);
  if (!input) {
    throw InputError(path + ": cannot be read");
  }
  return read_road_plan(input, path);
}

}  // namespace stakeout
