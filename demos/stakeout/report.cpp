#include "report.h"

#include <cmath>

#include "common/text.h"
#include "parcel.h"
#include "station_text.h"

namespace stakeout {
namespace {

using demo::format;

constexpr double kSecondsPerRadian = 206264.80624709636;

double north(const RoadPlan& plan, const Point& p) { return plan.origin.y() + p.y(); }
double east(const RoadPlan& plan, const Point& p) { return plan.origin.x() + p.x(); }

std::string heading(const std::string& text) { return "\n" + text + "\n\n"; }

// To a tenth of a second, without the sign of a zero.
double kink_seconds(const Alignment& alignment, std::size_t k) {
  return std::round(alignment.kink(k) * kSecondsPerRadian * 10.0) / 10.0 + 0.0;
}

std::string element_table(const Alignment& alignment) {
  std::string text =
      heading("Elements (metres; azimuths clockwise from north; kink: change of direction at the start)") +
      format("  %2s  %-8s  %-10s  %-10s  %10s  %10s  %11s  %11s  %7s\n", "no", "element", "begin", "end", "length",
             "radius", "azimuth in", "azimuth out", "kink");
  const std::vector<Element>& elements = alignment.elements();
  for (std::size_t k = 0; k < elements.size(); ++k) {
    const Element& e = elements[k];
    const std::string radius = e.is_arc ? format("%.4f", e.arc.radius) : "-";
    text += format("  %2zu  %-8s  %-10s  %-10s  %10.4f  %10s  %s  %s  %6.1f\"\n", k + 1, e.is_arc ? "arc" : "straight",
                   station_text(e.station, 4).c_str(), station_text(e.end_station(), 4).c_str(), e.length,
                   radius.c_str(), dms_text(azimuth_of(e.at(0.0).direction)).c_str(),
                   dms_text(azimuth_of(e.at(e.length).direction)).c_str(), kink_seconds(alignment, k));
  }
  return text;
}

std::string bend_table(const RoadPlan& plan, const Alignment& alignment) {
  std::string text = heading("Bends") +
                     format("  %2s  %-5s  %11s  %12s  %12s\n", "no", "turns", "angle", "centre north", "centre east");
  const std::vector<Element>& elements = alignment.elements();
  int bends = 0;
  for (std::size_t k = 0; k < elements.size(); ++k) {
    const Element& e = elements[k];
    if (e.is_arc) {
      ++bends;
      text += format("  %2zu  %-5s  %s  %12.3f  %12.3f\n", k + 1, e.turns_right ? "right" : "left",
                     dms_text(e.sweep).c_str(), north(plan, e.arc.centre), east(plan, e.arc.centre));
    }
  }
  return bends == 0 ? heading("Bends") + "  none\n" : text;
}

std::string stake_line(const RoadPlan& plan, const Stake& stake) {
  return format("  %s  %9.3f  %12.3f  %12.3f  %s\n", station_text(stake.station, 3).c_str(), stake.offset,
                north(plan, stake.point), east(plan, stake.point), dms_text(stake.azimuth).c_str());
}

std::string stake_table(const RoadPlan& plan, const Alignment& alignment) {
  std::string text =
      heading(format("Stakes every %g m and at the main points (offsets to the right of the axis)", plan.interval)) +
      format("  %-9s  %9s  %12s  %12s  %11s\n", "station", "offset", "northing", "easting", "azimuth");
  for (const double station : stake_stations(plan, alignment)) {
    if (plan.offset_left < 0.0) {
      text += stake_line(plan, make_stake(alignment, station, plan.offset_left));
    }
    text += stake_line(plan, make_stake(alignment, station, 0.0));
    if (plan.offset_right > 0.0) {
      text += stake_line(plan, make_stake(alignment, station, plan.offset_right));
    }
  }
  return text;
}

std::string as_built_table(const RoadPlan& plan, const Alignment& alignment) {
  if (plan.as_built.empty()) {
    return "";
  }
  std::string text = heading("As-built points (offset to the right of the axis; difference: measured less design)") +
                     format("  %-8s  %-9s  %9s  %9s  %10s  %12s  %12s\n", "point", "station", "offset", "design",
                            "difference", "foot north", "foot east");
  bool any_beyond = false;
  for (const AsBuiltPoint& p : plan.as_built) {
    const ClosestPoint closest = alignment.closest(p.point);
    any_beyond = any_beyond || closest.beyond_an_end;
    text += format("  %-8s  %s  %9.3f  %9.3f  %10.3f  %12.3f  %12.3f%s\n", p.name.c_str(),
                   station_text(closest.station, 3).c_str(), closest.offset, p.design_offset,
                   closest.offset - p.design_offset, north(plan, closest.foot), east(plan, closest.foot),
                   closest.beyond_an_end ? " *" : "");
  }
  return text + (any_beyond ? "  * beyond an end of the road: the distance from that end\n" : "");
}

std::string parcel_table(const RoadPlan& plan) {
  if (plan.parcel.empty()) {
    return "";
  }
  const Parcel parcel = measure_parcel(plan.parcel);
  std::string text = heading("Parcel") + format("  %-8s  %11s  %12s\n", "corner", "inner angle", "side to next");
  for (const ParcelCorner& corner : parcel.corners) {
    text += format("  %-8s  %s  %12.3f\n", corner.name.c_str(), dms_text(corner.inner_angle).c_str(), corner.side);
  }
  text += format("\n  %-18s  %12s\n", "triangle", "area");
  for (std::size_t i = 0; i < parcel.triangles.size(); ++i) {
    const std::string names = plan.parcel[0].name + " " + plan.parcel[i + 1].name + " " + plan.parcel[i + 2].name;
    // As the corners go round, a triangle outside of a hollow parcel counts negative.
    const double area = parcel.clockwise ? parcel.triangles[i] : -parcel.triangles[i];
    text += format("  %-18s  %12.3f\n", names.c_str(), area);
  }
  return text + format("  %-18s  %12.3f m2, corners %s\n", "sum", parcel.area,
                       parcel.clockwise ? "clockwise" : "counter-clockwise");
}

}  // namespace

std::string report(const RoadPlan& plan, const Alignment& alignment) {
  return plan.title + "\n" +
         format("From %s to %s, length %.4f m\n", station_text(alignment.begin_station(), 4).c_str(),
                station_text(alignment.end_station(), 4).c_str(), alignment.end_station() - alignment.begin_station()) +
         element_table(alignment) + bend_table(plan, alignment) + as_built_table(plan, alignment) + parcel_table(plan) +
         stake_table(plan, alignment);
}

}  // namespace stakeout
