// The floating-point environment as the library sees it: each fault is produced on purpose and must be reported.

#include <alidade/environment.h>
#include <gtest/gtest.h>

#include <cfenv>
#include <thread>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace {

class EnvironmentFaults : public testing::Test {
protected:
  void SetUp() override { std::fegetenv(&saved_); }
  void TearDown() override { std::fesetenv(&saved_); }

private:
  std::fenv_t saved_{};
};

TEST_F(EnvironmentFaults, AProgramStartsWithoutAny) { EXPECT_EQ(alidade::environment_faults(), 0U); }

TEST_F(EnvironmentFaults, EveryOtherRoundingModeIsReported) {
#if defined(__SOFTFP__)
  GTEST_SKIP() << "arithmetic in software rounds to nearest only, whatever mode a floating-point unit is set to";
#endif
  int tried = 0;
  for (const int mode : {
#ifdef FE_UPWARD
           FE_UPWARD,
#endif
#ifdef FE_DOWNWARD
           FE_DOWNWARD,
#endif
#ifdef FE_TOWARDZERO
           FE_TOWARDZERO,
#endif
           FE_TONEAREST}) {
    if (mode == FE_TONEAREST || std::fesetround(mode) != 0 || std::fegetround() != mode) {
      continue;  // the soft-float ABI of ARM knows the other names but refuses to set them, WebAssembly ignores them
    }
    ++tried;
    const unsigned faults = alidade::environment_faults();
    const int mode_after = std::fegetround();
    std::fesetround(FE_TONEAREST);
    EXPECT_EQ(faults, alidade::kRoundingNotToNearest) << "mode " << mode;
    EXPECT_EQ(mode_after, mode) << "the mode itself must be left alone";
  }
#if defined(__x86_64__) || defined(__aarch64__)
  EXPECT_EQ(tried, 3);
#endif
}

TEST_F(EnvironmentFaults, LeavesTheExceptionFlagsAlone) {
#if FE_ALL_EXCEPT
  std::feclearexcept(FE_ALL_EXCEPT);
  EXPECT_EQ(alidade::environment_faults(), 0U);
  EXPECT_EQ(std::fetestexcept(FE_ALL_EXCEPT), 0) << "the probes overflow, underflow and are inexact";

  if (std::feraiseexcept(FE_DIVBYZERO) == 0) {
    EXPECT_EQ(alidade::environment_faults(), 0U);
    EXPECT_EQ(std::fetestexcept(FE_ALL_EXCEPT), FE_DIVBYZERO) << "a flag of the host stays raised";
  }
#endif
}

#if defined(__GLIBC__) && defined(__x86_64__)
TEST_F(EnvironmentFaults, TakesNoTrapAndKeepsTheHostsTraps) {
  std::feclearexcept(FE_ALL_EXCEPT);
  feenableexcept(FE_ALL_EXCEPT & ~FE_INEXACT);
  EXPECT_EQ(alidade::environment_faults(), 0U);
  EXPECT_EQ(fegetexcept(), FE_ALL_EXCEPT & ~FE_INEXACT);
}
#endif

#if defined(__SSE2__)
constexpr unsigned kFlushToZeroBit = 0x8000U;
constexpr unsigned kDenormalsAreZeroBit = 0x0040U;

unsigned faults_with(unsigned control_bits) {
  const unsigned before = _mm_getcsr();
  _mm_setcsr(before | control_bits);
  const unsigned faults = alidade::environment_faults();
  const unsigned after = _mm_getcsr();
  _mm_setcsr(before);
  EXPECT_EQ(after & 0xffc0U, (before | control_bits) & 0xffc0U) << "the control bits must be left alone";
  return faults;
}

TEST_F(EnvironmentFaults, FlushToZeroIsReported) { EXPECT_EQ(faults_with(kFlushToZeroBit), alidade::kFlushesToZero); }

TEST_F(EnvironmentFaults, DenormalsAreZeroIsReported) {
  EXPECT_EQ(faults_with(kDenormalsAreZeroBit), alidade::kDenormalsAreZero);
}

// What the start-up object of GCC's -ffast-math sets.
TEST_F(EnvironmentFaults, BothTogetherAreReported) {
  EXPECT_EQ(faults_with(kFlushToZeroBit | kDenormalsAreZeroBit), alidade::kFlushesToZero | alidade::kDenormalsAreZero);
}

TEST_F(EnvironmentFaults, TheDefaultEnvironmentCuresFlushToZero) {
  _mm_setcsr(_mm_getcsr() | kFlushToZeroBit | kDenormalsAreZeroBit);
#if defined(__MINGW32__)
  _mm_setcsr(0x1f80);  // its fesetenv does not reach the SSE unit
#else
  std::fesetenv(FE_DFL_ENV);
#endif
  EXPECT_EQ(alidade::environment_faults(), 0U);
}

TEST_F(EnvironmentFaults, IsAMatterOfTheThread) {
  unsigned in_thread = 0;
  std::thread([&in_thread] {
    _mm_setcsr(_mm_getcsr() | kFlushToZeroBit);
    in_thread = alidade::environment_faults();
  }).join();
  EXPECT_EQ(in_thread, alidade::kFlushesToZero);
  EXPECT_EQ(alidade::environment_faults(), 0U);
}
#endif

}  // namespace
