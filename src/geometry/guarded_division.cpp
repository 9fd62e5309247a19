#include "geometry/guarded_division.h"

#include <cfenv>

#include "strict_arithmetic.h"

#if defined(__SSE2__) || defined(_M_X64)
#define ALIDADE_DIVIDES_IN_SSE
#include <xmmintrin.h>
#endif

namespace alidade {

namespace {

// The volatile accesses keep the division where it is written, between the two accesses of the environment: the
// compiler knows nothing of that dependence.
double quotient_in_place(double dividend, double divisor) {
  volatile double operand = divisor;
  volatile double quotient = dividend / operand;
  return quotient;
}

}  // namespace

#if defined(ALIDADE_DIVIDES_IN_SSE)

// The control and status word of the unit that divides holds all that matters here: flags in bits 0-5, their masks in
// bits 7-12 (set means not trapped), rounding and flush-to-zero above. fenv.h would do, but MinGW's does not touch it.
double guarded_quotient(double dividend, double divisor) {
  constexpr unsigned kFlags = 0x3f;
  constexpr unsigned kMaskShift = 7;
  constexpr unsigned kInvalid = 0x01;
  constexpr unsigned kDivisionByZero = 0x04;

  const unsigned saved = _mm_getcsr();
  _mm_setcsr((saved & ~kFlags) | (kFlags << kMaskShift));
  const double quotient = quotient_in_place(dividend, divisor);
  const unsigned raised = _mm_getcsr();
  _mm_setcsr(saved);

  const unsigned trapped = ~(saved >> kMaskShift);
  return (raised & trapped & (kInvalid | kDivisionByZero)) != 0 ? 0.0 : quotient;
}

#else

double guarded_quotient(double dividend, double divisor) {
#if defined(__GLIBC__)
  const int enabled = fegetexcept();
  const int trapped = enabled == -1 ? 0 : enabled;
#else
  const int trapped = 0;  // no portable way to ask, nor to enable a trap
#endif
  std::fenv_t saved;
  std::feholdexcept(&saved);  // clears the flags and masks the traps, so that what is raised below is this division's
  const double quotient = quotient_in_place(dividend, divisor);
  const int raised = std::fetestexcept(FE_DIVBYZERO | FE_INVALID);
  std::fesetenv(&saved);
  return (raised & trapped) != 0 ? 0.0 : quotient;
}

#endif

}  // namespace alidade
