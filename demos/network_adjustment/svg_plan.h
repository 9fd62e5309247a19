#ifndef NETWORK_ADJUSTMENT_SVG_PLAN_H
#define NETWORK_ADJUSTMENT_SVG_PLAN_H

#include <string>

#include "plan.h"

namespace network {

// The plan as an SVG document.
std::string svg(const Plan& plan);

}  // namespace network

#endif
