#include "svg.h"

#include <algorithm>

#include "label_placement.h"
#include "text.h"

namespace stakeout {

namespace {

constexpr const char* kStyle =
    "<style>\n"
    "text { font-family: 'DejaVu Sans', Verdana, Arial, sans-serif; fill: #1d2730; }\n"
    ".title { font-size: 19px; font-weight: bold; }\n"
    ".subtitle { font-size: 12px; fill: #55626d; }\n"
    ".frame { fill: #fcfcf9; stroke: #55626d; stroke-width: 1; }\n"
    ".parcel { fill: #dcebcf; stroke: #6b8f4e; stroke-width: 1.4; }\n"
    ".road { fill: #e6e3da; stroke: none; }\n"
    ".edge { fill: none; stroke: #6f7780; stroke-width: 1; }\n"
    ".axis { fill: none; stroke: #b3261e; stroke-width: 1.4; stroke-dasharray: 12 3 2 3; }\n"
    ".stake { stroke: #9aa3ab; stroke-width: 0.7; }\n"
    ".mark { fill: #17384f; }\n"
    ".main { stroke: #b3261e; stroke-width: 2; }\n"
    ".asbuilt { stroke: #6a1b9a; stroke-width: 1.6; }\n"
    ".perpendicular { stroke: #6a1b9a; stroke-width: 1; stroke-dasharray: 4 3; }\n"
    ".leader { stroke: #7b8790; stroke-width: 0.7; }\n"
    ".label-station { fill: #1d2730; }\n"
    ".label-main { fill: #b3261e; font-weight: bold; }\n"
    ".label-element { fill: #3d4a55; font-style: italic; }\n"
    ".label-asbuilt { fill: #6a1b9a; }\n"
    ".label-parcel { fill: #3f5f28; font-weight: bold; }\n"
    ".bar { fill: none; stroke: #1d2730; stroke-width: 1; }\n"
    ".ink { fill: #1d2730; }\n"
    "</style>\n";

std::string escaped(const std::string& text) {
  std::string result;
  for (const char c : text) {
    switch (c) {
      case '&':
        result += "&amp;";
        break;
      case '<':
        result += "&lt;";
        break;
      case '>':
        result += "&gt;";
        break;
      default:
        result += c;
    }
  }
  return result;
}

const char* style_class(LabelStyle style) {
  switch (style) {
    case LabelStyle::kMainPoint:
      return "label-main";
    case LabelStyle::kElement:
      return "label-element";
    case LabelStyle::kAsBuilt:
      return "label-asbuilt";
    case LabelStyle::kParcel:
      return "label-parcel";
    case LabelStyle::kStation:
      break;
  }
  return "label-station";
}

std::string line(const char* style, const Point& a, const Point& b) {
  return format("<line class=\"%s\" x1=\"%.2f\" y1=\"%.2f\" x2=\"%.2f\" y2=\"%.2f\"/>\n", style, a.x(), a.y(), b.x(),
                b.y());
}

std::string text_at(const char* style, double size, const char* anchor, const Point& p, const std::string& text) {
  return format("<text class=\"%s\" font-size=\"%.0f\" text-anchor=\"%s\" x=\"%.1f\" y=\"%.1f\">%s</text>\n", style,
                size, anchor, p.x(), p.y(), escaped(text).c_str());
}

std::string step_data(const PathStep& step) {
  if (!step.is_arc) {
    return format(" L %.3f %.3f", step.to.x(), step.to.y());
  }
  return format(" A %.3f %.3f 0 %d %d %.3f %.3f", step.radius, step.radius, step.large ? 1 : 0,
                step.clockwise_on_page ? 1 : 0, step.to.x(), step.to.y());
}

std::string path_data(const Path& path) {
  std::string data = format("M %.3f %.3f", path.from.x(), path.from.y());
  for (const PathStep& step : path.steps) {
    data += step_data(step);
  }
  return data;
}

// The same line from its end to its beginning, to go on with after another one.
std::string path_data_backwards(const Path& path) {
  const std::size_t n = path.steps.size();
  std::string data = format(" L %.3f %.3f", path.steps[n - 1].to.x(), path.steps[n - 1].to.y());
  for (std::size_t k = n; k-- > 0;) {
    PathStep step = path.steps[k];
    step.to = k == 0 ? path.from : path.steps[k - 1].to;
    step.clockwise_on_page = !step.clockwise_on_page;
    data += step_data(step);
  }
  return data;
}

std::string path(const char* style, const std::string& data) {
  return format("<path class=\"%s\" d=\"%s\"/>\n", style, data.c_str());
}

std::string parcel(const SitePlan& plan) {
  if (plan.parcel.empty()) {
    return "";
  }
  std::string points;
  for (const Point& p : plan.parcel) {
    points += format("%.2f,%.2f ", p.x(), p.y());
  }
  return "<polygon class=\"parcel\" points=\"" + points + "\"/>\n";
}

std::string road(const SitePlan& plan) {
  std::string text = path("road", path_data(plan.edges.front()) + path_data_backwards(plan.edges.back()) + " Z");
  for (const Path& edge : plan.edges) {
    text += path("edge", path_data(edge));
  }
  for (const Segment& stake : plan.stakes) {
    text += line("stake", stake.from, stake.to);
  }
  text += path("axis", path_data(plan.axis));
  for (const Segment& tick : plan.main_points) {
    text += line("main", tick.from, tick.to);
  }
  for (const Point& mark : plan.stake_marks) {
    text += format("<circle class=\"mark\" cx=\"%.2f\" cy=\"%.2f\" r=\"1.6\"/>\n", mark.x(), mark.y());
  }
  return text;
}

std::string cross(const Point& p) {
  return line("asbuilt", Point(p.x() - 4.0, p.y() - 4.0), Point(p.x() + 4.0, p.y() + 4.0)) +
         line("asbuilt", Point(p.x() - 4.0, p.y() + 4.0), Point(p.x() + 4.0, p.y() - 4.0));
}

std::string as_built(const SitePlan& plan) {
  std::string text;
  for (const Segment& s : plan.perpendiculars) {
    text += line("perpendicular", s.from, s.to);
  }
  for (const Point& p : plan.as_built) {
    text += cross(p);
  }
  return text;
}

std::string legend(const SitePlan& plan) {
  const double y = plan.legend.y();
  double x = plan.legend.x();
  std::string text = line("axis", Point(x, y), Point(x + 34.0, y));
  text += text_at("label-station", 11.0, "start", Point(x + 40.0, y + 4.0), "axis");
  x += 90.0;
  text += format("<circle class=\"mark\" cx=\"%.1f\" cy=\"%.1f\" r=\"1.6\"/>\n", x, y);
  text += text_at("label-station", 11.0, "start", Point(x + 8.0, y + 4.0), "stake");
  x += 66.0;
  text += line("main", Point(x, y - 7.0), Point(x, y + 7.0));
  text += text_at("label-station", 11.0, "start", Point(x + 8.0, y + 4.0), "main point of the axis");
  x += 170.0;
  if (!plan.as_built.empty()) {
    text += cross(Point(x, y));
    text +=
        text_at("label-station", 11.0, "start", Point(x + 10.0, y + 4.0), "as-built point, offset less design offset");
  }
  return text;
}

std::string labels(const SitePlan& plan) {
  std::string text;
  for (const Label& label : plan.labels) {
    const Point centre(Point(label.box.left() + label.box.right(), label.box.top() + label.box.bottom()) * 0.5);
    if (label.leader) {
      const Point end(std::clamp(label.anchor.x(), label.box.left(), label.box.right()),
                      std::clamp(label.anchor.y(), label.box.top(), label.box.bottom()));
      text += line("leader", label.anchor, end);
    }
    const double size = font_size(label.style);
    text += text_at(style_class(label.style), size, "middle", Point(centre.x(), centre.y() + 0.36 * size), label.text);
  }
  return text;
}

std::string north_arrow(const Point& tip) {
  return format("<path class=\"ink\" d=\"M %.1f %.1f l 9 32 l -9 -7 z\"/>\n", tip.x(), tip.y()) +
         format("<path class=\"bar\" d=\"M %.1f %.1f l -9 32 l 9 -7\"/>\n", tip.x(), tip.y()) +
         text_at("title", 15.0, "middle", Point(tip.x(), tip.y() + 50.0), "N");
}

std::string scale_bar(const SitePlan& plan) {
  const double quarter = plan.scale_bar_length / 4.0;
  std::string text;
  for (int i = 0; i < 4; ++i) {
    text += format("<rect class=\"bar\" style=\"fill:%s\" x=\"%.2f\" y=\"%.2f\" width=\"%.2f\" height=\"6\"/>\n",
                   i % 2 == 0 ? "#1d2730" : "#ffffff", plan.scale_bar.x() + i * quarter, plan.scale_bar.y(), quarter);
  }
  for (int i = 0; i <= 4; i += 2) {
    const std::string metres = format(i == 4 ? "%g m" : "%g", plan.scale_bar_metres * i / 4.0);
    text += text_at("label-station", 11.0, "middle", Point(plan.scale_bar.x() + i * quarter, plan.scale_bar.y() - 6.0),
                    metres);
  }
  return text;
}

}  // namespace

std::string svg(const SitePlan& plan) {
  const Box& f = plan.frame;
  return format("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"%.0f\" height=\"%.0f\" viewBox=\"0 0 %.0f %.0f\">\n",
                plan.width, plan.height, plan.width, plan.height) +
         kStyle + "<rect width=\"100%\" height=\"100%\" fill=\"#ffffff\"/>\n" +
         text_at("title", 19.0, "start", Point(f.left(), 30.0), plan.title) +
         text_at("subtitle", 12.0, "start", Point(f.left(), 50.0), plan.subtitle) +
         format("<rect class=\"frame\" x=\"%.1f\" y=\"%.1f\" width=\"%.1f\" height=\"%.1f\"/>\n", f.left(), f.top(),
                f.Width(), f.Height()) +
         parcel(plan) + road(plan) + as_built(plan) + labels(plan) + legend(plan) + north_arrow(plan.north_arrow) +
         scale_bar(plan) + "</svg>\n";
}

}  // namespace stakeout
