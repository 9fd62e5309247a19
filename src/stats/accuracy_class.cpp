#include <alidade/stats.h>

#include "strict_arithmetic.h"

namespace {

struct Threshold {
  double above;
  char accuracy_class;
};

// From the coarsest; the first that the figure exceeds decides. Compared with a strict "greater", so that a value on a
// threshold belongs to the finer class and a NaN to the finest.
constexpr Threshold kThresholds[] = {
    {200.0, 9},  // 0x1.9p+7
    {10.0, 8},   // 0x1.4p+3
    {5.0, 7},    // 0x1.4p+2
    {1.0, 6},    // 0x1p+0
    {0.5, 5},    // 0x1p-1
    {0.1, 4},    // 0x1.999999999999ap-4
    {0.05, 3},   // 0x1.999999999999ap-5
    {0.01, 2},   // 0x1.47ae147ae147bp-7
};

constexpr char kFinestClass = 1;

}  // namespace

char RmsToKnown(double rms) {
  for (const Threshold& threshold : kThresholds) {
    if (rms > threshold.above) {
      return threshold.accuracy_class;
    }
  }
  return kFinestClass;
}
