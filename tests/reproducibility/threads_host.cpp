// Eight threads compute the fingerprints at the same time. Their objects are distinct, the constants are shared. Then
// one thread inverts while another watches the percentage.

#include <alidade/matrix.h>

#include <array>
#include <atomic>
#include <cstdio>
#include <thread>

#include "fingerprint.h"

namespace {

// What is promised about the percentage: a reader on another thread sees whole values, here 0 to 99. ThreadSanitizer
// calls it a race unless the library stores atomically.
bool watched_inversion() {
  constexpr int kOrder = 400;
  TSMatrix n(kOrder, 0);
  for (int i = 0; i < kOrder; ++i) {
    for (int j = 0; j <= i; ++j) {
      n[TSMatrix::LinearIndex(i, j)] = i == j ? kOrder : 0.5;
    }
  }
  int percent = 0;
  std::atomic<bool> done{false};
  bool sound = true;
  std::thread reader([&] {
    do {
      const int seen = __atomic_load_n(&percent, __ATOMIC_RELAXED);
      sound = sound && seen >= 0 && seen <= 99;
    } while (!done);
  });
  const int failed = RareInversion(n, &percent, 100);
  done = true;
  reader.join();
  return sound && failed == 0 && percent == 99;
}

}  // namespace

int main() {
  std::array<std::vector<Fingerprint>, 8> results;
  std::vector<std::thread> threads;
  threads.reserve(results.size());
  for (std::vector<Fingerprint>& result : results) {
    threads.emplace_back([&result] { result = fingerprints(); });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  for (const std::vector<Fingerprint>& result : results) {
    if (!same(result, results[0])) {
      print(result);
    }
  }
  print(results[0]);
  if (!watched_inversion()) {
    std::puts("a percentage that nobody stored");
    return 1;
  }
  return 0;
}
