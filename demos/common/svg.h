#ifndef ALIDADE_DEMOS_SVG_H
#define ALIDADE_DEMOS_SVG_H

// Pieces of an SVG document. style is a class of the document's style sheet.

#include <string>

#include "common/label_placement.h"
#include "common/page.h"

namespace demo {

// The whole document; style_sheet adds to the classes that the pieces below use.
std::string svg_document(double width, double height, const std::string& title, const std::string& style_sheet,
                         const std::string& content);

// The rule of the style sheet for labels of a style.
std::string svg_rule(const LabelStyle& style, const char* colour);

std::string svg_line(const char* style, const Segment& segment);
std::string svg_box(const char* style, const Box& box);
std::string svg_path(const char* style, const std::string& data);

// anchor: start, middle or end
std::string svg_text(const char* style, const char* anchor, const Point& p, const std::string& text);

std::string svg_label(const Label& label);

// From its tip down, 45 pixels with the letter.
std::string svg_north_arrow(const Point& tip);

// A bar of a round length, at most longest pixels, and its length behind it. unit: "m" (which becomes km) or "mm"
std::string svg_scale_bar(const Point& left, double pixels_per_unit, double longest, const char* unit);

}  // namespace demo

#endif
