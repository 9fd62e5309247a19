#include <alidade/coords.h>

#include "strict_arithmetic.h"

Coord::Coord(double x_, double y_, double z_) : x(x_), y(y_), z(z_) {}

// A scalar argument is a reference and may be a component of the object itself: every operator that writes copies it
// first, so that all three components see the same value.
Coord& Coord::operator=(const double& v) {
  const double value = v;
  x = value;
  y = value;
  z = value;
  return *this;
}

Coord Coord::operator+(const Coord& o) const { return {x + o.x, y + o.y, z + o.z}; }

Coord Coord::operator-(const Coord& o) const { return {x - o.x, y - o.y, z - o.z}; }

Coord Coord::operator-() const { return {-x, -y, -z}; }

Coord& Coord::operator+=(const Coord& o) {
  x += o.x;
  y += o.y;
  z += o.z;
  return *this;
}

Coord& Coord::operator-=(const Coord& o) {
  x -= o.x;
  y -= o.y;
  z -= o.z;
  return *this;
}

Coord Coord::operator*(const double& s) const { return {x * s, y * s, z * s}; }

Coord& Coord::operator*=(const double& s) {
  const double factor = s;
  x *= factor;
  y *= factor;
  z *= factor;
  return *this;
}

// One reciprocal, three products; operator/= divides three times. The last bits of the two may differ, deliberately.
Coord Coord::operator/(const double& s) const {
  const double reciprocal = 1.0 / s;
  return {x * reciprocal, y * reciprocal, z * reciprocal};
}

Coord& Coord::operator/=(const double& s) {
  const double divisor = s;
  x /= divisor;
  y /= divisor;
  z /= divisor;
  return *this;
}

// The sum runs from z to x.
double Coord::operator*(const Coord& o) const { return (z * o.z + y * o.y) + x * o.x; }
