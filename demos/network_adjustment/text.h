#ifndef NETWORK_ADJUSTMENT_TEXT_H
#define NETWORK_ADJUSTMENT_TEXT_H

#include <string>

namespace network {

// printf into a string.
#if defined(__MINGW32__)
__attribute__((format(gnu_printf, 1, 2)))
#elif defined(__GNUC__)
__attribute__((format(printf, 1, 2)))
#endif
std::string
format(const char* pattern, ...);

// An angle of 0 to 360 degrees as "DDD MM SS.sssss", rounded to that many decimals of a second; no part shows 60.
std::string format_dms(double degrees, int decimals);

}  // namespace network

#endif
