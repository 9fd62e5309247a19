#include "points/guarded_division.h"

#include "held_environment.h"
#include "strict_arithmetic.h"

namespace alidade {

double guarded_quotient(double dividend, double divisor) {
  const HeldEnvironment held;
  volatile double operand = divisor;
  volatile double quotient = dividend / operand;
  return held.trap_withheld() ? 0.0 : quotient;
}

}  // namespace alidade
