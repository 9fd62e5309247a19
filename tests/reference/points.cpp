#include "reference/points.h"

#include <climits>
#include <cmath>

namespace reference {

void point_add(int n, const double* a, const double* b, double* r) {
  r[0] = a[0] + b[0];
  r[1] = a[1] + b[1];
  if (n == 3)
    r[2] = a[2] + b[2];
}

void point_subtract(int n, const double* a, const double* b, double* r) {
  r[0] = a[0] - b[0];
  r[1] = a[1] - b[1];
  if (n == 3)
    r[2] = a[2] - b[2];
}

void point_scale(int n, const double* a, double s, double* r) {
  r[0] = a[0] * s;
  r[1] = a[1] * s;
  if (n == 3)
    r[2] = a[2] * s;
}

void point_divide_by_scalar(int n, const double* a, double s, double* r) {
  const double reciprocal = 1.0 / s;
  r[0] = a[0] * reciprocal;
  r[1] = a[1] * reciprocal;
  if (n == 3)
    r[2] = a[2] * reciprocal;
}

void point_multiply(int n, const double* a, const double* b, double* r) {
  r[0] = a[0] * b[0];
  r[1] = a[1] * b[1];
  if (n == 3)
    r[2] = a[2] * b[2];
}

void point_divide(int n, const double* a, const double* b, double* r) {
  r[0] = a[0] / b[0];
  r[1] = a[1] / b[1];
  if (n == 3)
    r[2] = a[2] / b[2];
}

void point_negate(int n, const double* a, double* r) {
  r[0] = -a[0];
  r[1] = -a[1];
  if (n == 3)
    r[2] = -a[2];
}

double point_dot(int n, const double* a, const double* b) {
  if (n == 2)
    return a[0] * b[0] + a[1] * b[1];
  return (a[0] * b[0] + a[1] * b[1]) + a[2] * b[2];
}

double point_square(int n, const double* a) {
  if (n == 2)
    return a[0] * a[0] + a[1] * a[1];
  return (a[0] * a[0] + a[1] * a[1]) + a[2] * a[2];
}

double point_length(int n, const double* a) { return std::sqrt(point_square(n, a)); }

double point_sum(int n, const double* a) {
  if (n == 2)
    return a[0] + a[1];
  return (a[0] + a[1]) + a[2];
}

void point_abs(int n, const double* a, double* r) {
  for (int i = 0; i < n; ++i) {
    r[i] = a[i];
    if (!(r[i] > 0))
      r[i] = -r[i];
  }
}

void point_maximum(int n, const double* a, const double* b, double* r) {
  for (int i = 0; i < n; ++i) {
    if (a[i] > b[i]) {
      r[i] = a[i];
    } else {
      r[i] = b[i];
    }
  }
}

void point_minimum(int n, const double* a, const double* b, double* r) {
  for (int i = 0; i < n; ++i) {
    if (a[i] > b[i]) {
      r[i] = b[i];
    } else {
      r[i] = a[i];
    }
  }
}

bool point_equal(int n, const double* a, const double* b) {
  if (a[0] != b[0])
    return false;
  if (a[1] != b[1])
    return false;
  return n == 2 || a[2] == b[2];
}

int to_int(double v) {
  const double whole = std::trunc(v);
  if (whole >= -2147483648.0 && whole <= 2147483647.0)
    return static_cast<int>(whole);
  return INT_MIN;
}

}  // namespace reference
