// Computes the fingerprints with the floating-point traps of division by zero, invalid operation and overflow enabled:
// on ordinary input the library must raise none. A trap ends the program by SIGFPE.

#include <cfenv>
#include <cstdio>

#include "fingerprint.h"

int main() {
  constexpr int kTraps = FE_DIVBYZERO | FE_INVALID | FE_OVERFLOW;
  if (feenableexcept(kTraps) == -1) {
    std::printf("traps cannot be enabled here\n");
    return 1;
  }
  print(fingerprints());
  return (fegetexcept() & kTraps) == kTraps ? 0 : 1;
}
