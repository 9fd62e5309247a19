#ifndef STAKEOUT_SVG_PLAN_H
#define STAKEOUT_SVG_PLAN_H

#include <string>

#include "site_plan.h"

namespace stakeout {

// The plan as an SVG document; arcs are arcs, not polygons.
std::string svg(const SitePlan& plan);

}  // namespace stakeout

#endif
