#ifndef STAKEOUT_STATION_TEXT_H
#define STAKEOUT_STATION_TEXT_H

#include <string>

namespace stakeout {

// Metres along the road as kilometres and metres: 1234.5 is "1+234.500".
std::string station_text(double station, int decimals);

// Radians, 0 to a full turn, as "DDD-MM-SS.s", rounded to a tenth of a second.
std::string dms_text(double radians);

}  // namespace stakeout

#endif
