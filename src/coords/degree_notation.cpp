#include <alidade/coords.h>

#include <cmath>

#include "coords/angle_constants.h"
#include "strict_arithmetic.h"
#include "truncate.h"

namespace {

// Added to the minutes before they are cut to a whole number, so that 29.9999999 becomes 30. Minutes.
constexpr double kMinuteGuard = 0.0001;  // 0x1.a36e2eb1c432dp-14

// -v, wrapping: the smallest int is its own opposite.
int negated(int v) { return static_cast<int>(0U - static_cast<unsigned>(v)); }

}  // namespace

void deg_to_dms(double deg, int* d, int* m, double* s) {
  const bool negative = deg < 0.0;
  const double magnitude = std::fabs(deg);
  int degrees = alidade::truncate_to_int(magnitude);
  const double minutes_with_fraction = (magnitude - degrees) * alidade::kMinutesPerDegree;
  int minutes = alidade::truncate_to_int(minutes_with_fraction + kMinuteGuard);
  // Absolute, because the guard may have carried the minutes past their fraction.
  double seconds = std::fabs((minutes_with_fraction - minutes) * alidade::kSecondsPerMinute);

  // The sign stands on the first part that is not zero, the seconds if none is.
  if (negative) {
    if (degrees != 0) {
      degrees = negated(degrees);
    } else if (minutes == 0) {
      seconds = -seconds;
    } else {
      minutes = negated(minutes);
    }
  }
  *d = degrees;
  *m = minutes;
  *s = seconds;
}

double dms_to_deg(int d, int m, double s) {
  const double sign = (d < 0 || m < 0 || s < 0.0) ? -1.0 : 1.0;
  const double degrees = std::fabs(static_cast<double>(d));
  const double minutes = std::fabs(static_cast<double>(m));
  return ((std::fabs(s) * alidade::kDegreesPerArcSecond + minutes * alidade::kDegreesPerMinute) + degrees) * sign;
}
