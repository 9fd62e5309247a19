#include "svg_plan.h"

#include <algorithm>
#include <cmath>

#include "common/svg.h"
#include "common/text.h"

namespace network {
namespace {

using demo::format;
using demo::svg_box;
using demo::svg_line;
using demo::svg_text;

constexpr double kDegree = 57.29577951308232;

constexpr const char* kStyle =
    ".baseline { stroke: #9fb1bf; stroke-width: 1; }\n"
    ".flagged { stroke: #e08214; stroke-width: 2; }\n"
    ".ellipse { fill: #c2263a; fill-opacity: 0.16; stroke: #c2263a; stroke-width: 1.1; }\n"
    ".station { fill: #17384f; stroke: #ffffff; stroke-width: 0.8; }\n"
    ".locator { fill: none; stroke: #1d5c3a; stroke-width: 1.3; stroke-dasharray: 4 2; }\n";

// A dot, or a triangle where the position itself was given.
std::string symbol(const Point& p, bool given, double size) {
  if (!given) {
    return format("<circle class=\"station\" cx=\"%.1f\" cy=\"%.1f\" r=\"%.1f\"/>\n", p.x(), p.y(), 0.75 * size);
  }
  return demo::svg_path("station",
                        format("M%.1f %.1f L%.1f %.1f L%.1f %.1f Z", p.x(), p.y() - 1.25 * size, p.x() + 1.15 * size,
                               p.y() + 0.8 * size, p.x() - 1.15 * size, p.y() + 0.8 * size));
}

// SVG turns clockwise from the x axis (east); the azimuth counts clockwise from north.
std::string ellipse(const Point& p, const ErrorEllipse& e, double pixels_per_millimetre) {
  const double scale = 1e3 * pixels_per_millimetre;
  return format(
      "<ellipse class=\"ellipse\" cx=\"%.1f\" cy=\"%.1f\" rx=\"%.2f\" ry=\"%.2f\" "
      "transform=\"rotate(%.1f %.1f %.1f)\"/>\n",
      p.x(), p.y(), scale * e.semi_major, scale * e.semi_minor, kDegree * e.major_azimuth - 90, p.x(), p.y());
}

// 610000 as "610 000".
std::string grouped(long long number) {
  std::string text = std::to_string(number);
  for (std::size_t at = text.size(); at > 3;) {
    at -= 3;
    text.insert(at, 1, ' ');
  }
  return text;
}

std::string panel(const Panel& p, const Plan& plan) {
  const std::string clip = "clip" + p.letter;
  std::string text = "<clipPath id=\"" + clip + "\">" + svg_box("frame", p.frame) + "</clipPath>\n" +
                     svg_box("frame", p.frame) + "<g clip-path=\"url(#" + clip + ")\">\n";
  for (const bool flagged : {false, true}) {
    for (const std::size_t k : p.lines) {
      if (plan.lines[k].flagged == flagged) {
        text += svg_line(flagged ? "flagged" : "baseline", p.at(plan, plan.lines[k]));
      }
    }
  }
  for (const std::size_t i : p.stations) {
    if (plan.stations[i].ellipse.semi_major > 0) {
      text += ellipse(p.at(plan.stations[i]), plan.stations[i].ellipse, plan.pixels_per_millimetre);
    }
  }
  for (const std::size_t i : p.dots) {
    text += symbol(p.at(plan.stations[i]), plan.stations[i].given, 2.5);
  }
  for (const std::size_t i : p.stations) {
    text += symbol(p.at(plan.stations[i]), plan.stations[i].given, 4);
  }
  if (p.letter.empty()) {
    for (const Locator& locator : plan.locators) {
      text += svg_box("locator", locator.box);
    }
  }
  for (const Label& label : p.labels) {
    text += svg_label(label);
  }
  return text + "</g>\n";
}

// Drawn over the clipped panel, in a band along its lower edge that the stations' border leaves free.
std::string inset_caption(const Panel& p) {
  return svg_text("letter", "start", Point(p.frame.left() + 8, p.frame.top() + 19), p.letter) +
         demo::svg_scale_bar(Point(p.frame.left() + 10, p.frame.bottom() - 10), p.pixels_per_metre, 70, "m");
}

std::string legend(const Plan& plan) {
  const double y1 = plan.legend.top() + 24;
  const double y2 = plan.legend.top() + 52;
  double x = plan.legend.left();
  const auto entry = [&x](double y, double indent, const std::string& text) {
    return svg_text("name", "start", Point(x + indent, y), text);
  };
  std::string text = demo::svg_north_arrow(Point(x + 12, plan.legend.top() + 12));
  x += 50;
  text += demo::svg_scale_bar(Point(x, y1), plan.main.pixels_per_metre, 200, "m");
  text += demo::svg_scale_bar(Point(x, y2), plan.pixels_per_millimetre, 110, "mm") +
          entry(y2, 170, "for the ellipses, in all panels");
  x += 400;
  text += symbol(Point(x, y1 - 4), false, 4) + entry(y1, 14, "station");
  text += symbol(Point(x, y2 - 4), true, 4) + entry(y2, 14, "with observed or fixed position");
  x += 240;
  text += svg_line("baseline", {Point(x, y1 - 4), Point(x + 30, y1 - 4)}) + entry(y1, 38, "baseline");
  text += svg_line("flagged", {Point(x, y2 - 4), Point(x + 30, y2 - 4)}) +
          entry(y2, 38, "baseline beyond the normal 95 % limit");
  x += 320;
  text += ellipse(Point(x + 12, y1 - 4), {2.4e-3, 1.4e-3, 1.2, 0}, 12 / 2.4) +
          entry(y1, 32, "standard error ellipse (1 sigma),");
  // Digits beyond the second say nothing to a reader.
  const double enlargement = 1e3 * plan.pixels_per_millimetre / plan.main.pixels_per_metre;
  const double unit = std::pow(10.0, std::max(std::floor(std::log10(enlargement)) - 1, 0.0));
  return text +
         entry(y2, 32,
               "enlarged " + grouped(std::llround(enlargement / unit) * std::llround(unit)) + " times in the plan");
}

}  // namespace

std::string svg(const Plan& plan) {
  std::string text = svg_text("title", "start", Point(plan.main.frame.left(), plan.main.frame.top() - 16), plan.title) +
                     panel(plan.main, plan) + legend(plan);
  for (const Panel& inset : plan.insets) {
    text += panel(inset, plan) + inset_caption(inset);
  }
  return demo::svg_document(plan.width, plan.height, plan.title,
                            kStyle + svg_rule(kNameStyle, "#1c2730") + svg_rule(kLetterStyle, "#1d5c3a"), text);
}

}  // namespace network
