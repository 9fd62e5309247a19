// Prints the fingerprints, nothing else.

#include "fingerprint.h"

int main() {
  print(fingerprints());
  return 0;
}
