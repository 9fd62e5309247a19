#ifndef STAKEOUT_REPORT_H
#define STAKEOUT_REPORT_H

#include <string>

#include "alignment.h"

namespace stakeout {

// Elements, bends, stakes, as-built points and parcel as text.
std::string report(const RoadPlan& plan, const Alignment& alignment);

}  // namespace stakeout

#endif
