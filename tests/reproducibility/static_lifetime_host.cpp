// Uses the library before main() begins and after it has returned: from the constructor and the destructor of a static
// object, of the first priority a program may ask for.

#include <cstdio>
#include <cstdlib>

#include "fingerprint.h"

namespace {

std::vector<Fingerprint>* before_main = nullptr;

struct Host {
  Host() { before_main = new std::vector<Fingerprint>(fingerprints()); }
  ~Host() {
    if (!same(*before_main, fingerprints())) {
      std::printf("different after main()\n");
      std::fflush(stdout);
      std::_Exit(1);
    }
    delete before_main;
  }
};

__attribute__((init_priority(101))) Host host;

}  // namespace

int main() {
  print(*before_main);
  return 0;
}
