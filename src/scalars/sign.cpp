#include <alidade/matrix.h>

#include <cmath>
#include <cstdint>

#include "strict_arithmetic.h"

namespace alidade {
namespace {

// In unsigned arithmetic, where the smallest int is its own negative.
int transfer_sign(int a, int b) {
  const auto bits = static_cast<std::uint32_t>(a);
  const std::uint32_t magnitude = a < 0 ? 0U - bits : bits;
  return static_cast<int>(b < 0 ? 0U - magnitude : magnitude);
}

// The sign of b is its order against zero, not its sign bit: -0.0 counts as positive, a NaN as negative.
double transfer_sign(double a, double b) { return b >= 0.0 ? std::fabs(a) : -std::fabs(a); }

}  // namespace

}  // namespace alidade

int sign(int a, int b) { return alidade::transfer_sign(a, b); }

double sign(double a, double b) { return alidade::transfer_sign(a, b); }
