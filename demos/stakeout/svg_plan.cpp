#include "svg_plan.h"

#include "common/svg.h"
#include "common/text.h"

namespace stakeout {
namespace {

using demo::format;
using demo::svg_line;
using demo::svg_path;
using demo::svg_text;

constexpr const char* kStyle =
    ".subtitle { font-size: 12px; fill: #55626d; }\n"
    ".parcel { fill: #dcebcf; stroke: #6b8f4e; stroke-width: 1.4; }\n"
    ".road { fill: #e6e3da; stroke: none; }\n"
    ".edge { fill: none; stroke: #6f7780; stroke-width: 1; }\n"
    ".axis { fill: none; stroke: #b3261e; stroke-width: 1.4; stroke-dasharray: 12 3 2 3; }\n"
    ".stake { stroke: #9aa3ab; stroke-width: 0.7; }\n"
    ".mark { fill: #17384f; }\n"
    ".main { stroke: #b3261e; stroke-width: 2; }\n"
    ".asbuilt { stroke: #6a1b9a; stroke-width: 1.6; }\n"
    ".perpendicular { stroke: #6a1b9a; stroke-width: 1; stroke-dasharray: 4 3; }\n"
    ".halo { fill-opacity: 0; }\n";

std::string step_data(const PathStep& step) {
  if (!step.is_arc) {
    return format(" L %.2f %.2f", step.to.x(), step.to.y());
  }
  return format(" A %.2f %.2f 0 %d %d %.2f %.2f", step.radius, step.radius, step.large ? 1 : 0,
                step.clockwise_on_page ? 1 : 0, step.to.x(), step.to.y());
}

std::string path_data(const Path& path) {
  std::string data = format("M %.2f %.2f", path.from.x(), path.from.y());
  for (const PathStep& step : path.steps) {
    data += step_data(step);
  }
  return data;
}

// The same line from its end to its beginning, to go on with after another one.
std::string path_data_backwards(const Path& path) {
  const std::size_t n = path.steps.size();
  std::string data = format(" L %.2f %.2f", path.steps[n - 1].to.x(), path.steps[n - 1].to.y());
  for (std::size_t k = n; k-- > 0;) {
    PathStep step = path.steps[k];
    step.to = k == 0 ? path.from : path.steps[k - 1].to;
    step.clockwise_on_page = !step.clockwise_on_page;
    data += step_data(step);
  }
  return data;
}

std::string parcel(const SitePlan& plan) {
  if (plan.parcel.empty()) {
    return "";
  }
  std::string points;
  for (const Point& p : plan.parcel) {
    points += format("%.1f,%.1f ", p.x(), p.y());
  }
  return "<polygon class=\"parcel\" points=\"" + points + "\"/>\n";
}

std::string mark(const Point& p) {
  return format("<circle class=\"mark\" cx=\"%.1f\" cy=\"%.1f\" r=\"1.6\"/>\n", p.x(), p.y());
}

std::string road(const SitePlan& plan) {
  std::string text = svg_path("road", path_data(plan.edges.front()) + path_data_backwards(plan.edges.back()) + " Z");
  for (const Path& edge : plan.edges) {
    text += svg_path("edge", path_data(edge));
  }
  for (const Segment& stake : plan.stakes) {
    text += svg_line("stake", stake);
  }
  text += svg_path("axis", path_data(plan.axis));
  for (const Segment& tick : plan.main_points) {
    text += svg_line("main", tick);
  }
  for (const Point& p : plan.stake_marks) {
    text += mark(p);
  }
  return text;
}

std::string cross(const Point& p) {
  return svg_line("asbuilt", {Point(p.x() - 4.0, p.y() - 4.0), Point(p.x() + 4.0, p.y() + 4.0)}) +
         svg_line("asbuilt", {Point(p.x() - 4.0, p.y() + 4.0), Point(p.x() + 4.0, p.y() - 4.0)});
}

std::string as_built(const SitePlan& plan) {
  std::string text;
  for (const Segment& s : plan.perpendiculars) {
    text += svg_line("perpendicular", s);
  }
  for (const Point& p : plan.as_built) {
    text += cross(p);
  }
  return text;
}

std::string legend(const SitePlan& plan) {
  const double y = plan.legend.y();
  double x = plan.legend.x();
  const auto entry = [&](double indent, const char* text) {
    return svg_text(kStationStyle.name, "start", Point(x + indent, y + 4.0), text);
  };
  std::string text = svg_line("axis", {Point(x, y), Point(x + 34.0, y)}) + entry(40.0, "axis");
  x += 90.0;
  text += mark(Point(x, y)) + entry(8.0, "stake");
  x += 66.0;
  text += svg_line("main", {Point(x, y - 7.0), Point(x, y + 7.0)}) + entry(8.0, "main point of the axis");
  x += 170.0;
  if (!plan.as_built.empty()) {
    text += cross(Point(x, y)) + entry(10.0, "as-built point, offset less design offset");
  }
  return text;
}

}  // namespace

std::string svg(const SitePlan& plan) {
  const Box& f = plan.frame;
  std::string text = svg_text("title", "start", Point(f.left(), 30.0), plan.title) +
                     svg_text("subtitle", "start", Point(f.left(), 50.0), plan.subtitle) + demo::svg_box("frame", f) +
                     parcel(plan) + road(plan) + as_built(plan);
  for (const Label& label : plan.labels) {
    text += svg_label(label);
  }
  text += legend(plan) + demo::svg_north_arrow(plan.north_arrow) +
          demo::svg_scale_bar(plan.scale_bar, plan.scale, kScaleBar, "m");
  return demo::svg_document(plan.width, plan.height, plan.title,
                            kStyle + svg_rule(kStationStyle, "#1d2730") + svg_rule(kMainPointStyle, "#b3261e") +
                                svg_rule(kElementStyle, "#3d4a55") + svg_rule(kAsBuiltStyle, "#6a1b9a") +
                                svg_rule(kParcelStyle, "#3f5f28"),
                            text);
}

}  // namespace stakeout
