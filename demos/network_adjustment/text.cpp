#include "text.h"

#include <alidade/coords.h>

#include <cmath>
#include <cstdarg>
#include <cstdio>
#include <vector>

namespace network {

std::string format(const char* pattern, ...) {
  std::va_list arguments;
  va_start(arguments, pattern);
  std::va_list again;
  va_copy(again, arguments);
  const int length = std::vsnprintf(nullptr, 0, pattern, arguments);
  va_end(arguments);
  std::vector<char> buffer(static_cast<std::size_t>(length) + 1);
  std::vsnprintf(buffer.data(), buffer.size(), pattern, again);
  va_end(again);
  return {buffer.data(), static_cast<std::size_t>(length)};
}

std::string format_dms(double degrees, int decimals) {
  int d = 0;
  int m = 0;
  double s = 0;
  deg_to_dms(degrees, &d, &m, &s);
  // Just below a whole minute deg_to_dms gives the next minute and the distance below it. Printed digits must add up,
  // so that distance is taken off again.
  if (dms_to_deg(d, m, s) > degrees && s < 0.01) {
    m -= 1;
    s = 60.0 - s;
  }
  // Rounding to the printed decimals may reach the next minute, and that the next degree.
  const double unit = std::pow(10.0, -decimals);
  if (s >= 60.0 - 0.5 * unit) {
    s = 0;
    m += 1;
  }
  if (m >= 60) {
    m -= 60;
    d += 1;
  }
  return format("%3d %02d %0*.*f", d, m, decimals + 3, decimals, s);
}

}  // namespace network
