#ifndef ALIDADE_SRC_HELD_ENVIRONMENT_H
#define ALIDADE_SRC_HELD_ENVIRONMENT_H

#include <cfenv>

#include "strict_arithmetic.h"

#if defined(__SSE2__) || defined(_M_X64)
#define ALIDADE_CALCULATES_IN_SSE
#include <xmmintrin.h>
#endif

namespace alidade {

// For its life floating-point traps are masked and the exception flags start clear; afterwards flags, masks, rounding
// and flush-to-zero are as they were. Arithmetic in between must go through volatile objects or stand behind a call
// that the compiler does not see into, for it knows nothing of the environment and would move it.
#if defined(ALIDADE_CALCULATES_IN_SSE)

// The control and status word of the unit that calculates is all that matters: flags in bits 0-5, their masks in bits
// 7-12 (set means not trapped), rounding and flush-to-zero elsewhere. fenv.h would do, but MinGW's leaves it alone.
class HeldEnvironment {
public:
  HeldEnvironment() : saved_(_mm_getcsr()) { _mm_setcsr((saved_ & ~kFlags) | (kFlags << kMaskShift)); }
  ~HeldEnvironment() { _mm_setcsr(saved_); }
  HeldEnvironment(const HeldEnvironment&) = delete;
  HeldEnvironment& operator=(const HeldEnvironment&) = delete;

  // A division by zero or an invalid operation has been raised that would have trapped.
  bool trap_withheld() const {
    const unsigned trapped = ~(saved_ >> kMaskShift);
    return (_mm_getcsr() & trapped & (kInvalid | kDivisionByZero)) != 0;
  }

  // A member, because it means something only while the environment is held.
  // NOLINTNEXTLINE(readability-convert-member-functions-to-static)
  bool overflow_or_invalid() const { return (_mm_getcsr() & (kInvalid | kOverflow)) != 0; }

  // What has been raised of these is raised afterwards, too, but not trapped.
  void keep_underflow_and_inexact() { saved_ |= _mm_getcsr() & (kDenormal | kUnderflow | kInexact); }

private:
  static constexpr unsigned kFlags = 0x3f;
  static constexpr unsigned kMaskShift = 7;
  static constexpr unsigned kInvalid = 0x01;
  static constexpr unsigned kDenormal = 0x02;
  static constexpr unsigned kDivisionByZero = 0x04;
  static constexpr unsigned kOverflow = 0x08;
  static constexpr unsigned kUnderflow = 0x10;
  static constexpr unsigned kInexact = 0x20;

  unsigned saved_;
};

#else

class HeldEnvironment {
public:
  HeldEnvironment() {
#if defined(__GLIBC__)
    trapped_ = fegetexcept() & (FE_DIVBYZERO | FE_INVALID);
#endif
    std::feholdexcept(&saved_);
  }
  ~HeldEnvironment() {
    std::fexcept_t kept;
    std::fegetexceptflag(&kept, kept_);
    std::fesetenv(&saved_);
    std::fesetexceptflag(&kept, kept_);
  }
  HeldEnvironment(const HeldEnvironment&) = delete;
  HeldEnvironment& operator=(const HeldEnvironment&) = delete;

  bool trap_withheld() const { return trapped_ != 0 && std::fetestexcept(trapped_) != 0; }

  bool overflow_or_invalid() const { return std::fetestexcept(kOverflowOrInvalid) != 0; }
  void keep_underflow_and_inexact() { kept_ = std::fetestexcept(kUnderflowOrInexact); }

private:
#if defined(FE_OVERFLOW) && defined(FE_INVALID) && defined(FE_UNDERFLOW) && defined(FE_INEXACT)
  static constexpr int kOverflowOrInvalid = FE_OVERFLOW | FE_INVALID;
  static constexpr int kUnderflowOrInexact = FE_UNDERFLOW | FE_INEXACT;
#else  // arithmetic in software, without flags
  static constexpr int kOverflowOrInvalid = 0;
  static constexpr int kUnderflowOrInexact = 0;
#endif

  int kept_ = 0;
  int trapped_ = 0;  // without glibc there is no portable way to ask, nor to enable a trap
  std::fenv_t saved_{};
};

#endif

}  // namespace alidade

#endif
