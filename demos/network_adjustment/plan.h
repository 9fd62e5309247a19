#ifndef NETWORK_ADJUSTMENT_PLAN_H
#define NETWORK_ADJUSTMENT_PLAN_H

// The layout of a plan of the network: what is drawn where, in pixels, before anything is written. Dense groups of
// stations get an inset of their own at a larger scale; no two labels of a panel overlap.

#include <cstddef>
#include <string>
#include <vector>

#include "report.h"

namespace network {

// Pixels, y downwards.
struct Point {
  double x;
  double y;
};

struct Box {
  double left;
  double top;
  double right;
  double bottom;

  double width() const { return right - left; }
  double height() const { return bottom - top; }
  Point centre() const { return {(left + right) / 2, (top + bottom) / 2}; }
};

bool overlap(const Box& a, const Box& b);

struct PlanStation {
  std::string name;
  double east;  // metres from the centre of the network, in the horizon there
  double north;
  bool observed_position;
  ErrorEllipse ellipse;
};

struct PlanLine {
  std::size_t from;
  std::size_t to;
  bool flagged;  // a component fails the normal test
};

struct Label {
  std::string text;
  Box box;
  Point anchor;  // what it belongs to
  bool leader;   // far enough from the anchor to need a line to it
};

struct Panel {
  std::string letter;  // of an inset; empty for the main plan
  Box frame;
  double centre_east;
  double centre_north;
  double pixels_per_metre;
  std::vector<std::size_t> stations;  // drawn with ellipse and label
  std::vector<std::size_t> dots;      // drawn as dots: an inset shows them in full
  std::vector<Label> labels;
  std::size_t unlabelled = 0;  // stations for which no free place was found

  Point at(const PlanStation& station) const;
};

// The part of the main plan that an inset shows.
struct Locator {
  std::string letter;
  Box box;
};

struct Plan {
  double width;
  double height;
  Box legend;
  double pixels_per_millimetre;  // of the ellipses, in all panels
  std::vector<PlanStation> stations;
  std::vector<PlanLine> lines;
  Panel main;
  std::vector<Locator> locators;
  std::vector<Panel> insets;
};

Plan make_plan(const Network& network, const Results& results);

// The largest of 1, 2, 5, 10, 20, ... (times powers of ten) that is not above value > 0.
double round_down(double value);

}  // namespace network

#endif
