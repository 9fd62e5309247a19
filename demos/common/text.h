#ifndef ALIDADE_DEMOS_TEXT_H
#define ALIDADE_DEMOS_TEXT_H

#include <string>

namespace demo {

// printf into a string, with a decimal point whatever the locale of the process.
#if defined(__MINGW32__)
__attribute__((format(gnu_printf, 1, 2)))
#elif defined(__GNUC__)
__attribute__((format(printf, 1, 2)))
#endif
std::string
format(const char* pattern, ...);

// An angle of 0 to 360 degrees as "DDD MM SS.sssss", rounded to that many decimals (at most 9) of a second; no part
// shows 60, and a full turn shows as zero. The separator stands between the parts.
std::string format_dms(double degrees, int decimals, char separator = ' ');

}  // namespace demo

#endif
