#include <alidade/linalg3.h>

#include "square_root.h"
#include "strict_arithmetic.h"

triad::triad(int /*ignored*/) : c_{0.0, 0.0, 0.0} {}

triad::triad(double x, double y, double z) : c_{x, y, z} {}

triad::triad(const TAbstractPoint3<double>& p) : c_{p[0], p[1], p[2]} {}

triad& triad::operator=(int n) {
  if (n == 0) {
    c_[0] = c_[1] = c_[2] = 0.0;
  }
  return *this;
}

void triad::sqrt() {
  for (double& component : c_) {
    component = alidade::square_root(component);
  }
}

triad triad::VectorProduct(const triad& b) const {
  return {c_[1] * b.c_[2] - c_[2] * b.c_[1],  //
          c_[2] * b.c_[0] - c_[0] * b.c_[2],  //
          c_[0] * b.c_[1] - c_[1] * b.c_[0]};
}
