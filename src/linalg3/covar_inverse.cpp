#include "linalg3/covar_inverse.h"

#include <alidade/linalg3.h>

#include <cmath>

#include "strict_arithmetic.h"

namespace alidade {
namespace {

// Below this magnitude of the determinant a covariance counts as singular.
constexpr double kSmallestDeterminant = 1e-60;  // 0x1.9b604aaaca626p-200

}  // namespace

int invert_covariance(covar& v) {
  const double a = v[0];
  const double b = v[1];
  const double c = v[2];
  const double d = v[3];
  const double e = v[4];
  const double f = v[5];
  const covar cofactors(c * f - e * e, d * e - b * f, a * f - d * d, b * e - d * c, b * d - a * e, a * c - b * b);
  // The first column against its cofactors.
  const double determinant = (a * cofactors[0] + b * cofactors[1]) + d * cofactors[3];
  if (std::fabs(determinant) < kSmallestDeterminant) {
    return -1;
  }
  v = cofactors;
  v /= determinant;
  return determinant < 0.0 ? -2 : 0;
}

}  // namespace alidade

int InvertSMatr3(covar& V) { return alidade::invert_covariance(V); }
