#ifndef STAKEOUT_TEXT_H
#define STAKEOUT_TEXT_H

#include <string>

namespace stakeout {

// printf into a string.
#if defined(__MINGW32__)
__attribute__((format(gnu_printf, 1, 2)))
#elif defined(__GNUC__)
__attribute__((format(printf, 1, 2)))
#endif
std::string
format(const char* pattern, ...);

// Metres along the road as kilometres and metres: 1234.5 is "1+234.500".
std::string station_text(double station, int decimals);

// Radians as "DDD-MM-SS.s", rounded to a tenth of a second; no part shows 60, and a full turn shows as zero.
std::string dms_text(double radians);

}  // namespace stakeout

#endif
