#include "common/svg.h"

#include <cstring>

#include "common/text.h"

namespace demo {
namespace {

constexpr const char* kStyle =
    "text { font-family: 'DejaVu Sans', Verdana, Arial, sans-serif; font-size: 11px; fill: #1c2730; }\n"
    ".title { font-size: 18px; font-weight: bold; }\n"
    ".frame { fill: #fbfcfa; stroke: #55626d; stroke-width: 1; }\n"
    ".leader { stroke: #6a7883; stroke-width: 0.7; }\n"
    ".halo { fill: #fbfcfa; fill-opacity: 0.8; }\n"
    ".bar { stroke: #1c2730; stroke-width: 2; fill: none; }\n"
    ".ink { fill: #1c2730; }\n";

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

}  // namespace

std::string svg_document(double width, double height, const std::string& title, const std::string& style_sheet,
                         const std::string& content) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n" +
         format("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"%.0f\" height=\"%.0f\" viewBox=\"0 0 %.0f %.0f\">\n",
                width, height, width, height) +
         "<title>" + escaped(title) + "</title>\n<style>\n" + kStyle + style_sheet + "</style>\n" +
         "<rect width=\"100%\" height=\"100%\" fill=\"#ffffff\"/>\n" + content + "</svg>\n";
}

std::string svg_rule(const LabelStyle& style, const char* colour) {
  return format(".%s { font-size: %.0fpx; fill: %s;%s }\n", style.name, style.size, colour,
                style.bold ? " font-weight: bold;" : "");
}

std::string svg_line(const char* style, const Segment& s) {
  return format("<line class=\"%s\" x1=\"%.1f\" y1=\"%.1f\" x2=\"%.1f\" y2=\"%.1f\"/>\n", style, s.from.x(), s.from.y(),
                s.to.x(), s.to.y());
}

std::string svg_box(const char* style, const Box& b) {
  return format("<rect class=\"%s\" x=\"%.1f\" y=\"%.1f\" width=\"%.1f\" height=\"%.1f\"/>\n", style, b.left(), b.top(),
                b.Width(), b.Height());
}

std::string svg_path(const char* style, const std::string& data) {
  return "<path class=\"" + std::string(style) + "\" d=\"" + data + "\"/>\n";
}

std::string svg_text(const char* style, const char* anchor, const Point& p, const std::string& text) {
  return format("<text class=\"%s\" text-anchor=\"%s\" x=\"%.1f\" y=\"%.1f\">%s</text>\n", style, anchor, p.x(), p.y(),
                escaped(text).c_str());
}

std::string svg_label(const Label& label) {
  const Point centre = centre_of(label.box);
  return (label.leader ? svg_line("leader", leader_of(label)) : std::string()) + svg_box("halo", label.box) +
         svg_text(label.style.name, "middle", Point(centre.x(), centre.y() + 0.36 * label.style.size), label.text);
}

std::string svg_north_arrow(const Point& tip) {
  return svg_path("ink", format("M%.1f %.1f l7 26 l-7 -6 l-7 6 Z", tip.x(), tip.y())) +
         svg_text("ink", "middle", Point(tip.x(), tip.y() + 40), "N");
}

std::string svg_scale_bar(const Point& left, double pixels_per_unit, double longest, const char* unit) {
  const double length = round_down(longest / pixels_per_unit);
  const double end = left.x() + length * pixels_per_unit;
  const bool kilometres = std::strcmp(unit, "m") == 0 && length >= 1000;
  return svg_path("bar", format("M%.1f %.1f V%.1f H%.1f V%.1f", left.x(), left.y() - 5, left.y(), end, left.y() - 5)) +
         svg_text("ink", "start", Point(end + 6, left.y()),
                  kilometres ? format("%g km", length / 1000) : format("%g %s", length, unit));
}

}  // namespace demo
