#include "site_plan.h"

#include <algorithm>
#include <cmath>

#include "common/text.h"
#include "parcel.h"
#include "station_text.h"

namespace stakeout {
namespace {

using demo::box_around;
using demo::format;

constexpr double kPageWidth = 1240.0;
constexpr double kLargestDrawing = 1000.0;  // height of the frame
constexpr double kMargin = 30.0;
constexpr double kTitleHeight = 64.0;
constexpr double kInnerMargin = 70.0;   // room for labels between the drawing and the frame
constexpr double kFooter = 40.0;        // legend and scale bar
constexpr double kLargestScale = 12.0;  // of a short road, so that its width leaves room for labels
constexpr double kHalfTurn = 3.141592653589793;
constexpr double kStationLabelInterval = 50.0;
constexpr double kMostStationLabels = 60.0;  // on a long road they stand farther apart
constexpr std::size_t kMostStakes = 2000;    // of a long road every second, third ... is drawn
constexpr double kMostSteps = 2000.0;        // along the axis, which labels keep clear of

// From metres, north up, to picture units, y down. Keeps angles.
class Projection {
public:
  Projection(const Box& metres, double scale, const Point& corner)
      : left_(metres.left()), north_(metres.bottom()), scale_(scale), corner_(corner) {}

  double scale() const { return scale_; }
  Point operator()(const Point& p) const {
    return Point(corner_.x() + (p.x() - left_) * scale_, corner_.y() + (north_ - p.y()) * scale_);
  }
  // A direction of length 1.
  static Point direction(const Point& d) { return Point(d.x(), -d.y()); }

private:
  double left_;
  double north_;
  double scale_;
  Point corner_;
};

void extend(Box& box, const Point& p) { box |= Box(p, p); }

// The rectangle that holds all there is to draw; top is the least north.
Box extent(const RoadPlan& plan, const Alignment& alignment, const std::vector<double>& stations) {
  Box box(plan.begin, plan.begin);
  for (const double station : stations) {
    extend(box, make_stake(alignment, station, plan.offset_left).point);
    extend(box, make_stake(alignment, station, plan.offset_right).point);
  }
  for (const AsBuiltPoint& p : plan.as_built) {
    extend(box, p.point);
  }
  for (const Corner& corner : plan.parcel) {
    extend(box, corner.point);
  }
  return box;
}

// The axis, or a line parallel to it. An arc of radius r becomes one of r + offset in a left bend.
Path parallel_path(const Alignment& alignment, double offset, const Projection& project) {
  Path path;
  path.from = project(make_stake(alignment, alignment.begin_station(), offset).point);
  for (const Element& e : alignment.elements()) {
    const AxisPoint end = e.at(e.length);
    const Point right(end.direction.y(), -end.direction.x());
    PathStep step{};
    step.is_arc = e.is_arc;
    step.to = project(Point(end.point + right * offset));
    if (e.is_arc) {
      step.radius = std::fabs(e.turns_right ? e.arc.radius - offset : e.arc.radius + offset) * project.scale();
      step.large = e.sweep > kHalfTurn;
      step.clockwise_on_page = e.turns_right;
    }
    path.steps.push_back(step);
  }
  return path;
}

Segment across(const RoadPlan& plan, const Alignment& alignment, double station, double beyond,
               const Projection& project) {
  return {project(make_stake(alignment, station, plan.offset_left - beyond).point),
          project(make_stake(alignment, station, plan.offset_right + beyond).point)};
}

std::string trimmed(const std::string& text) { return text.substr(std::min(text.find_first_not_of(' '), text.size())); }

class Labels {
public:
  Labels(const RoadPlan& plan, const Alignment& alignment, const Projection& project, const SitePlan& drawing)
      : plan_(plan), alignment_(alignment), project_(project), drawing_(drawing) {}

  std::vector<Label> place() {
    request_main_points();
    request_elements();
    request_parcel();
    request_as_built();
    request_stations();
    return place_labels(requests_, obstacles());
  }

private:
  Point to_the_right(double station) const {
    const Point d = alignment_.at(station).direction;
    return Projection::direction(Point(d.y(), -d.x()));
  }

  // Away from the centre of the bend there is more room.
  Point outwards(double station) const {
    for (const Element& e : alignment_.elements()) {
      if (station >= e.station && station <= e.end_station() && e.is_arc) {
        return e.turns_right ? Point(-to_the_right(station)) : to_the_right(station);
      }
    }
    return to_the_right(station);
  }

  double road_clearance() const { return std::max(-plan_.offset_left, plan_.offset_right) * project_.scale() + 8.0; }

  void request(const LabelStyle& style, const std::string& text, const Point& anchor, const Point& preferred,
               double clearance) {
    requests_.push_back({style, text, anchor, clearance, preferred});
  }

  void request_main_points() {
    const std::vector<Element>& elements = alignment_.elements();
    for (std::size_t k = 0; k <= elements.size(); ++k) {
      const bool last = k == elements.size();
      const double station = last ? alignment_.end_station() : elements[k].station;
      const std::string name = k == 0 ? "Begin " : last ? "End " : "";
      request(kMainPointStyle, name + station_text(station, 3), project_(alignment_.at(station).point),
              Point(-outwards(station)), road_clearance() + 4.0);
    }
  }

  void request_elements() {
    for (const Element& e : alignment_.elements()) {
      const double middle = e.station + e.length / 2.0;
      const std::string text =
          e.is_arc
              ? format("R = %.3f, L = %.3f, %s", e.arc.radius, e.length, e.turns_right ? "right" : "left")
              : format("L = %.3f, azimuth %s", e.length, trimmed(dms_text(azimuth_of(e.at(0.0).direction))).c_str());
      request(kElementStyle, text, project_(alignment_.at(middle).point), Point(-outwards(middle)),
              road_clearance() + 6.0);
    }
  }

  void request_parcel() {
    if (plan_.parcel.empty()) {
      return;
    }
    const Parcel parcel = measure_parcel(plan_.parcel);
    const Point centre = project_(parcel.centroid);
    request(kParcelStyle, format("Parcel %.1f m\u00b2", parcel.area), centre, Point(0.0), 0.0);
    requests_.back().centred = true;
    for (std::size_t i = 0; i < plan_.parcel.size(); ++i) {
      const Point away(drawing_.parcel[i] - centre);
      request(kParcelStyle, plan_.parcel[i].name, drawing_.parcel[i], Point(away / away.Module()), 5.0);
    }
  }

  void request_as_built() {
    for (const AsBuiltPoint& p : plan_.as_built) {
      const ClosestPoint closest = alignment_.closest(p.point);
      const Point right = to_the_right(closest.station);
      const std::string text = format("%s %+.0f mm", p.name.c_str(), (closest.offset - p.design_offset) * 1000.0);
      request(kAsBuiltStyle, text, project_(p.point), closest.offset < 0.0 ? Point(-right) : right, 9.0);
    }
  }

  void request_stations() {
    const double length = alignment_.end_station() - alignment_.begin_station();
    // A step of 1, 2, 5, 10 ... is at least 0.4 of the next one.
    const double least = length / kMostStationLabels;
    const double interval = least > kStationLabelInterval ? demo::round_down(2.5 * least) : kStationLabelInterval;
    const double first = std::ceil(alignment_.begin_station() / interval);
    for (double k = first; k * interval <= alignment_.end_station(); ++k) {
      const double station = k * interval;
      if (is_main_point(station)) {
        continue;  // has a label of its own
      }
      request(kStationStyle, station_text(station, 0), project_(alignment_.at(station).point), outwards(station),
              road_clearance());
    }
  }

  bool is_main_point(double station) const {
    const std::vector<Element>& elements = alignment_.elements();
    const auto at_start = [station](const Element& e) { return std::fabs(e.station - station) < 1.0; };
    return std::any_of(elements.begin(), elements.end(), at_start) ||
           std::fabs(alignment_.end_station() - station) < 1.0;
  }

  demo::Obstacles obstacles() const {
    demo::Obstacles obstacles;
    obstacles.frame = drawing_.frame.InflatedBy(-4.0, -4.0);
    const double half = road_clearance() - 5.0;
    const double length = alignment_.end_station() - alignment_.begin_station();
    const double steps = std::clamp(std::ceil(length * project_.scale() / 4.0), 1.0, kMostSteps);
    for (double k = 0.0; k <= steps; ++k) {
      const Point p = project_(alignment_.at(alignment_.begin_station() + length * (k / steps)).point);
      obstacles.solid.push_back(box_around(p, half, half));
    }
    for (const Point& p : drawing_.as_built) {
      obstacles.solid.push_back(box_around(p, 5.0, 5.0));
    }
    const Point& arrow = drawing_.north_arrow;
    const Point& bar = drawing_.scale_bar;
    obstacles.solid.emplace_back(arrow.x() - 22.0, arrow.y() - 22.0, arrow.x() + 22.0, arrow.y() + 64.0);
    obstacles.solid.emplace_back(bar.x() - 8.0, bar.y() - 24.0, bar.x() + kScaleBar + 60.0, bar.y() + 26.0);
    for (std::size_t i = 0; i < drawing_.parcel.size(); ++i) {
      obstacles.lines.push_back({drawing_.parcel[i], drawing_.parcel[(i + 1) % drawing_.parcel.size()]});
    }
    obstacles.lines.insert(obstacles.lines.end(), drawing_.perpendiculars.begin(), drawing_.perpendiculars.end());
    return obstacles;
  }

  const RoadPlan& plan_;
  const Alignment& alignment_;
  const Projection& project_;
  const SitePlan& drawing_;
  std::vector<demo::LabelRequest> requests_;
};

}  // namespace

SitePlan make_site_plan(const RoadPlan& plan, const Alignment& alignment) {
  const std::vector<double> stations = stake_stations(plan, alignment);
  const Box metres = extent(plan, alignment, stations);
  constexpr double kRoom = kPageWidth - 2.0 * (kMargin + kInnerMargin);
  const double scale =
      std::min({kRoom / std::max(metres.Width(), 1.0),
                (kLargestDrawing - 2.0 * kInnerMargin - kFooter) / std::max(metres.Height(), 1.0), kLargestScale});
  SitePlan drawing{};
  drawing.title = plan.title;
  drawing.subtitle = format("Stakes every %g m, at the offsets %+.2f m and %+.2f m (right of the axis is positive)",
                            plan.interval, plan.offset_left, plan.offset_right);
  drawing.scale = scale;
  drawing.width = kPageWidth;
  const double frame_height = metres.Height() * scale + 2.0 * kInnerMargin + kFooter;
  drawing.height = kTitleHeight + frame_height + kMargin;
  drawing.frame = Box(kMargin, kTitleHeight, kPageWidth - kMargin, kTitleHeight + frame_height);
  const double spare = kRoom - metres.Width() * scale;  // a drawing higher than wide stands in the middle
  const Projection project(metres, scale, Point(kMargin + kInnerMargin + spare / 2.0, kTitleHeight + kInnerMargin));

  for (const Corner& corner : plan.parcel) {
    drawing.parcel.push_back(project(corner.point));
  }
  drawing.axis = parallel_path(alignment, 0.0, project);
  drawing.edges.push_back(parallel_path(alignment, plan.offset_left, project));
  drawing.edges.push_back(parallel_path(alignment, plan.offset_right, project));
  const std::size_t step = 1 + stations.size() / kMostStakes;
  for (std::size_t k = 0; k < stations.size(); k += step) {
    const Segment stake = across(plan, alignment, stations[k], 0.0, project);
    drawing.stakes.push_back(stake);
    drawing.stake_marks.push_back(stake.from);
    drawing.stake_marks.push_back(stake.to);
  }
  for (const Element& e : alignment.elements()) {
    drawing.main_points.push_back(across(plan, alignment, e.station, 6.0 / scale, project));
  }
  drawing.main_points.push_back(across(plan, alignment, alignment.end_station(), 6.0 / scale, project));
  for (const AsBuiltPoint& p : plan.as_built) {
    const ClosestPoint closest = alignment.closest(p.point);
    drawing.as_built.push_back(project(p.point));
    if (std::fabs(closest.offset) > 2.0 * std::max(-plan.offset_left, plan.offset_right)) {
      drawing.perpendiculars.push_back({project(p.point), project(closest.foot)});
    }
  }
  drawing.north_arrow = Point(drawing.frame.left() + 40.0, drawing.frame.top() + 34.0);
  drawing.scale_bar = Point(drawing.frame.right() - kScaleBar - 60.0, drawing.frame.bottom() - 14.0);
  drawing.legend = Point(drawing.frame.left() + 30.0, drawing.frame.bottom() - 17.0);
  drawing.labels = Labels(plan, alignment, project, drawing).place();
  return drawing;
}

}  // namespace stakeout
