#include "geometry/guarded_division.h"

#include <cfenv>

#if defined(_WIN32)
#include <cfloat>
#endif

#include "strict_arithmetic.h"

namespace alidade {

namespace {

// The exceptions among division by zero and invalid operation that the calling thread traps.
int trapped_exceptions() {
#if defined(_WIN32)
  // A set bit of the control word masks the exception.
  const unsigned masked = _controlfp(0, 0);
  return ((masked & _EM_ZERODIVIDE) == 0 ? FE_DIVBYZERO : 0) | ((masked & _EM_INVALID) == 0 ? FE_INVALID : 0);
#elif defined(__GLIBC__)
  const int trapped = fegetexcept();
  return trapped == -1 ? 0 : trapped & (FE_DIVBYZERO | FE_INVALID);
#else
  return 0;  // no portable way to trap, so nothing is trapped
#endif
}

}  // namespace

double guarded_quotient(double dividend, double divisor) {
  const int trapped = trapped_exceptions();
  std::fenv_t saved;
  std::feholdexcept(&saved);  // masks every trap and clears the flags, so that what is raised below is our own
  // The volatile accesses keep the division between the two calls: the compiler knows nothing of the environment.
  volatile double operand = divisor;
  volatile double quotient = dividend / operand;
  const int raised = std::fetestexcept(FE_DIVBYZERO | FE_INVALID);
  std::fesetenv(&saved);
  return (raised & trapped) != 0 ? 0.0 : quotient;
}

}  // namespace alidade
