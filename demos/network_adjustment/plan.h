#ifndef NETWORK_ADJUSTMENT_PLAN_H
#define NETWORK_ADJUSTMENT_PLAN_H

// The layout of a plan of the network: what is drawn where, in pixels, before anything is written. Dense groups of
// stations get an inset of their own at a larger scale, as far as the page allows; no two labels of a panel overlap.

#include <cstddef>
#include <string>
#include <vector>

#include "common/label_placement.h"
#include "common/page.h"
#include "report.h"

namespace network {

using demo::Box;
using demo::Label;
using demo::Point;

struct PlanStation {
  std::string name;
  double east;  // metres from the centre of the network, in the horizon there
  double north;
  bool given;  // its position is observed or fixed
  ErrorEllipse ellipse;
};

struct PlanLine {
  std::size_t from;
  std::size_t to;
  bool flagged;  // a component fails the normal test
};

struct Plan;

struct Panel {
  std::string letter;  // of an inset; empty for the main plan
  Box frame;
  double centre_east;
  double centre_north;
  double pixels_per_metre;
  std::vector<std::size_t> stations;  // drawn with ellipse and label
  std::vector<std::size_t> dots;      // drawn as dots: an inset shows them in full
  std::vector<std::size_t> lines;     // those that cross the frame
  std::vector<Label> labels;

  Point at(const PlanStation& station) const;
  demo::Segment at(const Plan& plan, const PlanLine& line) const;
};

constexpr demo::LabelStyle kNameStyle{"name", 11, false};
constexpr demo::LabelStyle kLetterStyle{"letter", 14, true};

// The part of the main plan that an inset shows.
struct Locator {
  std::string letter;
  Box box;
};

struct Plan {
  std::string title;
  double width;
  double height;
  Box legend;
  double pixels_per_millimetre;  // of the ellipses, in all panels
  std::vector<PlanStation> stations;
  std::vector<PlanLine> lines;
  Panel main;
  std::vector<Locator> locators;
  std::vector<Panel> insets;
  std::size_t unlabelled = 0;  // stations for which there was no room
};

Plan make_plan(const Network& network, const Results& results);

}  // namespace network

#endif
