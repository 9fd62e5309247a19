#include "svg_plan.h"

#include <algorithm>
#include <cmath>

#include "label_placement.h"
#include "text.h"

namespace network {
namespace {

constexpr double kDegree = 57.29577951308232;

constexpr const char* kStyle =
    "  <style>\n"
    "    text { font-family: 'DejaVu Sans', Verdana, Arial, sans-serif; font-size: 11px; fill: #1c2730; }\n"
    "    .title { font-size: 18px; font-weight: bold; }\n"
    "    .letter { font-size: 14px; font-weight: bold; fill: #1d5c3a; }\n"
    "    .frame { fill: #fbfcfd; stroke: #5c6b77; stroke-width: 1; }\n"
    "    .baseline { stroke: #9fb1bf; stroke-width: 1; }\n"
    "    .flagged { stroke: #e08214; stroke-width: 2; }\n"
    "    .ellipse { fill: #c2263a; fill-opacity: 0.16; stroke: #c2263a; stroke-width: 1.1; }\n"
    "    .station { fill: #17384f; stroke: #ffffff; stroke-width: 0.8; }\n"
    "    .leader { stroke: #5c6b77; stroke-width: 0.7; }\n"
    "    .halo { fill: #fbfcfd; fill-opacity: 0.8; }\n"
    "    .locator { fill: none; stroke: #1d5c3a; stroke-width: 1.3; stroke-dasharray: 4 2; }\n"
    "    .bar { stroke: #1c2730; stroke-width: 2; fill: none; }\n"
    "  </style>\n";

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
      case '"':
        result += "&quot;";
        break;
      default:
        result += c;
    }
  }
  return result;
}

std::string line(const char* style, const Point& a, const Point& b) {
  return format("<line class=\"%s\" x1=\"%.1f\" y1=\"%.1f\" x2=\"%.1f\" y2=\"%.1f\"/>\n", style, a.x, a.y, b.x, b.y);
}

std::string box(const char* style, const Box& b) {
  return format("<rect class=\"%s\" x=\"%.1f\" y=\"%.1f\" width=\"%.1f\" height=\"%.1f\"/>\n", style, b.left, b.top,
                b.width(), b.height());
}

std::string text_at(const char* attributes, double x, double y, const std::string& text) {
  return format("<text x=\"%.1f\" y=\"%.1f\" %s>%s</text>\n", x, y, attributes, escaped(text).c_str());
}

// A dot, or a triangle where the position itself was observed.
std::string symbol(const Point& p, bool observed_position, double size) {
  if (!observed_position) {
    return format("<circle class=\"station\" cx=\"%.1f\" cy=\"%.1f\" r=\"%.1f\"/>\n", p.x, p.y, 0.75 * size);
  }
  return format("<path class=\"station\" d=\"M%.1f %.1f L%.1f %.1f L%.1f %.1f Z\"/>\n", p.x, p.y - 1.25 * size,
                p.x + 1.15 * size, p.y + 0.8 * size, p.x - 1.15 * size, p.y + 0.8 * size);
}

// SVG turns clockwise from the x axis (east); the azimuth counts clockwise from north.
std::string ellipse(const Point& p, const ErrorEllipse& e, double pixels_per_millimetre) {
  const double scale = 1e3 * pixels_per_millimetre;
  return format(
      "<ellipse class=\"ellipse\" cx=\"%.1f\" cy=\"%.1f\" rx=\"%.2f\" ry=\"%.2f\" "
      "transform=\"rotate(%.1f %.1f %.1f)\"/>\n",
      p.x, p.y, scale * e.semi_major, scale * e.semi_minor, kDegree * e.major_azimuth - 90, p.x, p.y);
}

std::string label_text(const Label& label, bool is_letter) {
  std::string result;
  if (label.leader) {
    const Point end{std::clamp(label.anchor.x, label.box.left, label.box.right),
                    std::clamp(label.anchor.y, label.box.top, label.box.bottom)};
    result += line("leader", label.anchor, end);
  }
  result += box("halo", label.box);
  const double baseline = label.box.centre().y + 0.36 * kFontSize;
  return result + text_at(is_letter ? "class=\"letter\" text-anchor=\"middle\"" : "text-anchor=\"middle\"",
                          label.box.centre().x, baseline, label.text);
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

std::string distance_text(double metres) {
  return metres >= 1000 ? format("%g km", metres / 1000) : format("%g m", metres);
}

std::string scale_bar(double x, double y, double pixels_per_unit, double longest, bool millimetres) {
  const double length = round_down(longest / pixels_per_unit);
  const double end = x + length * pixels_per_unit;
  return format("<path class=\"bar\" d=\"M%.1f %.1f V%.1f H%.1f V%.1f\"/>\n", x, y - 5, y, end, y - 5) +
         text_at("", end + 6, y, millimetres ? format("%g mm", length) : distance_text(length));
}

std::string panel(const Panel& p, const Plan& plan) {
  const std::string clip = "clip" + p.letter;
  std::string text = format("<clipPath id=\"%s\">", clip.c_str()) + box("frame", p.frame) + "</clipPath>\n" +
                     box("frame", p.frame) + format("<g clip-path=\"url(#%s)\">\n", clip.c_str());
  for (const bool flagged : {false, true}) {
    for (const PlanLine& l : plan.lines) {
      if (l.flagged == flagged) {
        text += line(flagged ? "flagged" : "baseline", p.at(plan.stations[l.from]), p.at(plan.stations[l.to]));
      }
    }
  }
  for (const std::size_t i : p.stations) {
    text += ellipse(p.at(plan.stations[i]), plan.stations[i].ellipse, plan.pixels_per_millimetre);
  }
  for (const std::size_t i : p.dots) {
    text += symbol(p.at(plan.stations[i]), plan.stations[i].observed_position, 2.5);
  }
  for (const std::size_t i : p.stations) {
    text += symbol(p.at(plan.stations[i]), plan.stations[i].observed_position, 4);
  }
  if (p.letter.empty()) {
    for (const Locator& locator : plan.locators) {
      text += box("locator", locator.box);
    }
  }
  for (const Label& l : p.labels) {
    const bool is_letter = p.letter.empty() && std::any_of(plan.locators.begin(), plan.locators.end(),
                                                           [&](const Locator& o) { return o.letter == l.text; });
    text += label_text(l, is_letter);
  }
  return text + "</g>\n";
}

// Letter and scale of an inset, in a band along its lower edge that the stations' border leaves free.
std::string inset_caption(const Panel& p) {
  return text_at("class=\"letter\"", p.frame.left + 8, p.frame.top + 19, p.letter) +
         scale_bar(p.frame.left + 10, p.frame.bottom - 10, p.pixels_per_metre, 70, false);
}

std::string north_arrow(double x, double y) {
  return format("<path d=\"M%.1f %.1f l7 26 l-7 -6 l-7 6 Z\" fill=\"#1c2730\"/>\n", x, y) +
         text_at("text-anchor=\"middle\"", x, y + 40, "N");
}

std::string legend(const Plan& plan) {
  const double y1 = plan.legend.top + 24;
  const double y2 = plan.legend.top + 52;
  double x = plan.legend.left;
  std::string text = north_arrow(x + 12, plan.legend.top + 12);
  x += 50;
  text += scale_bar(x, y1, plan.main.pixels_per_metre, 200, false);
  text += scale_bar(x, y2, plan.pixels_per_millimetre, 110, true) +
          text_at("", x + 170, y2, "for the ellipses, in all panels");
  x += 400;
  text += symbol({x, y1 - 4}, false, 4) + text_at("", x + 14, y1, "station");
  text += symbol({x, y2 - 4}, true, 4) + text_at("", x + 14, y2, "station with observed position");
  x += 240;
  text += line("baseline", {x, y1 - 4}, {x + 30, y1 - 4}) + text_at("", x + 38, y1, "baseline");
  text +=
      line("flagged", {x, y2 - 4}, {x + 30, y2 - 4}) + text_at("", x + 38, y2, "baseline beyond the normal 95 % limit");
  x += 320;
  text += ellipse({x + 12, y1 - 4}, {2.4e-3, 1.4e-3, 1.2, 0}, 12 / 2.4) +
          text_at("", x + 32, y1, "standard error ellipse (1 sigma),");
  // Digits beyond the second say nothing to a reader.
  const double enlargement = 1e3 * plan.pixels_per_millimetre / plan.main.pixels_per_metre;
  const double unit = std::pow(10.0, std::max(std::floor(std::log10(enlargement)) - 1, 0.0));
  text += text_at("", x + 32, y2,
                  "enlarged " + grouped(std::llround(enlargement / unit) * std::llround(unit)) + " times in the plan");
  return text;
}

}  // namespace

std::string svg(const Plan& plan, const std::string& title) {
  std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n" +
                     format(
                         "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"%.0f\" height=\"%.0f\" "
                         "viewBox=\"0 0 %.0f %.0f\">\n",
                         plan.width, plan.height, plan.width, plan.height) +
                     "  <title>" + escaped(title) + "</title>\n" + kStyle +
                     format("<rect width=\"%.0f\" height=\"%.0f\" fill=\"#ffffff\"/>\n", plan.width, plan.height) +
                     text_at("class=\"title\"", plan.main.frame.left, plan.main.frame.top - 16, title);
  text += panel(plan.main, plan) + legend(plan);
  for (const Panel& inset : plan.insets) {
    text += panel(inset, plan) + inset_caption(inset);
  }
  return text + "</svg>\n";
}

}  // namespace network
