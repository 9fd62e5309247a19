#include <alidade/linalg3.h>

#include <cmath>

#include "strict_arithmetic.h"

namespace {

// Below this magnitude of the determinant a covariance counts as singular.
constexpr double kSmallestDeterminant = 1e-60;  // 0x1.9b604aaaca626p-200

}  // namespace

int InvertSMatr3(covar& v) {
  const double a = v[0];
  const double b = v[1];
  const double c = v[2];
  const double d = v[3];
  const double e = v[4];
  const double f = v[5];
  // The first column and its cofactors first: the division has to wait for them, the others need not.
  const double cofactor0 = c * f - e * e;
  const double cofactor1 = d * e - b * f;
  const double cofactor3 = b * e - d * c;
  const double determinant = (a * cofactor0 + b * cofactor1) + d * cofactor3;
  if (std::fabs(determinant) < kSmallestDeterminant) {
    return -1;
  }
  const double reciprocal = 1.0 / determinant;
  v[0] = cofactor0 * reciprocal;
  v[1] = cofactor1 * reciprocal;
  v[2] = (a * f - d * d) * reciprocal;
  v[3] = cofactor3 * reciprocal;
  v[4] = (b * d - a * e) * reciprocal;
  v[5] = (a * c - b * b) * reciprocal;
  return determinant < 0.0 ? -2 : 0;
}
