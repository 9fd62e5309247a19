// Before it computes, a program asks in each of its threads whether the floating-point environment is the one for which
// the results are promised. Here another part of the program has changed the rounding and forgot about it.

#include <alidade/environment.h>

#include <cfenv>
#include <cstdio>

namespace {

void report(const char* when) {
  const unsigned faults = alidade::environment_faults();
  std::printf("%s:", when);
  if (faults == 0) {
    std::printf(" as required");
  }
  if ((faults & alidade::kRoundingNotToNearest) != 0) {
    std::printf(" rounding is not to nearest;");
  }
  if ((faults & (alidade::kFlushesToZero | alidade::kDenormalsAreZero)) != 0) {
    std::printf(" subnormal numbers count as zero (linked with -ffast-math?);");
  }
  if ((faults & alidade::kExcessPrecision) != 0) {
    std::printf(" intermediate results have excess precision;");
  }
  std::printf("\n");
}

}  // namespace

int main() {
  report("at the start");
  std::fesetround(FE_UPWARD);
  report("after another part of the program");
  std::fesetround(FE_TONEAREST);
  report("put right");
  return alidade::environment_faults() == 0 ? 0 : 1;
}
