#include "text.h"

#include <alidade/coords.h>

#include <cmath>
#include <cstdarg>
#include <cstdio>

namespace stakeout {

std::string format(const char* pattern, ...) {
  std::va_list arguments;
  va_start(arguments, pattern);
  std::va_list again;
  va_copy(again, arguments);
  const int length = std::vsnprintf(nullptr, 0, pattern, arguments);
  va_end(arguments);
  std::string text(static_cast<std::size_t>(length) + 1, '\0');
  std::vsnprintf(&text[0], text.size(), pattern, again);
  va_end(again);
  text.resize(static_cast<std::size_t>(length));
  return text;
}

// Rounded before it is divided, so that 999.9996 m is 1+000.000.
std::string station_text(double station, int decimals) {
  const double unit = std::pow(10.0, decimals);
  const double rounded = std::round(station * unit) / unit;
  const double kilometres = std::floor(rounded / 1000.0);
  const int width = decimals == 0 ? 3 : 4 + decimals;
  return format("%.0f+%0*.*f", kilometres, width, decimals, std::fabs(rounded - kilometres * 1000.0));
}

std::string dms_text(double radians) {
  constexpr double kDegreesPerRadian = 57.29577951308232;
  constexpr double kTenthsPerDegree = 36000.0;
  constexpr double kTenthsPerTurn = 360.0 * kTenthsPerDegree;
  double tenths = std::round(radians * kDegreesPerRadian * kTenthsPerDegree);
  if (tenths >= kTenthsPerTurn) {
    tenths -= kTenthsPerTurn;
  }
  // A twentieth of a second more than the rounded angle: deg_to_dms truncates, and must not fall below a whole minute.
  int degrees = 0;
  int minutes = 0;
  double seconds = 0.0;
  deg_to_dms((tenths + 0.5) / kTenthsPerDegree, &degrees, &minutes, &seconds);
  return format("%3d-%02d-%04.1f", degrees, minutes, std::floor(seconds * 10.0) / 10.0);
}

}  // namespace stakeout
