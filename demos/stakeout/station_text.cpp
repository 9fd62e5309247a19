#include "station_text.h"

#include <cmath>

#include "common/text.h"

namespace stakeout {

// Rounded before it is divided, so that 999.9996 m is 1+000.000.
std::string station_text(double station, int decimals) {
  const double unit = std::pow(10.0, decimals);
  const double rounded = std::round(station * unit) / unit;
  const double kilometres = std::floor(rounded / 1000.0);
  const int width = decimals == 0 ? 3 : 4 + decimals;
  return demo::format("%.0f+%0*.*f", kilometres, width, decimals, std::fabs(rounded - kilometres * 1000.0));
}

std::string dms_text(double radians) {
  constexpr double kDegreesPerRadian = 57.29577951308232;
  return demo::format_dms(radians * kDegreesPerRadian, 1, '-');
}

}  // namespace stakeout
