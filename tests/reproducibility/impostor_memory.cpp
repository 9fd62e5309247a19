// What a host program may innocently have: memory of its own under the name of the library's constant, which the
// program exports because the library has the name, too. Loading the library must leave it alone.

#include <cstdio>
#include <cstdlib>

double DefaultEllipsoid[6] = {1.0, 2.0, 3.0, 4.0, 5.0, 6.0};

namespace {

struct Check {
  Check() {
    for (int i = 0; i < 6; ++i) {
      if (DefaultEllipsoid[i] != i + 1.0) {
        std::printf("the library wrote into the host's memory\n");
        std::fflush(stdout);
        std::_Exit(1);
      }
    }
  }
} check;

}  // namespace
