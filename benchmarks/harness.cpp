#include "harness.h"

#include <time.h>

#include <algorithm>
#include <cstdio>
#include <random>

namespace benchmarks {
namespace {

double run(const Variant& variant, long repeats) {
  const double start = processor_seconds();
  for (long k = 0; k < repeats; ++k) {
    variant.run();
  }
  return processor_seconds() - start;
}

void prepare(const Variant& variant) {
  if (variant.prepare) {
    variant.prepare();
  }
}

}  // namespace

double processor_seconds() {
  timespec t;
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
  return static_cast<double>(t.tv_sec) + 1e-9 * static_cast<double>(t.tv_nsec);
}

std::vector<double> random_values(std::size_t count) {
  std::mt19937_64 engine(7);
  std::vector<double> values(count);
  for (double& v : values) {
    v = static_cast<double>(engine() >> 11) * 0x1p-52 - 1.0;
  }
  return values;
}

std::vector<std::vector<double>> take_turns(const std::vector<Variant>& variants, Effort effort) {
  const std::size_t count = variants.size();
  std::vector<long> repeats(count);
  for (std::size_t i = 0; i < count; ++i) {
    prepare(variants[i]);
    run(variants[i], 1);
    long tried = 1;
    double seconds = run(variants[i], tried);
    while (seconds < effort.seconds / 10) {
      tried *= 4;
      seconds = run(variants[i], tried);
    }
    repeats[i] = std::max(1L, static_cast<long>(effort.seconds / seconds * static_cast<double>(tried)));
  }
  std::vector<std::vector<double>> seconds(count);
  for (int round = 0; round < effort.rounds; ++round) {
    for (std::size_t turn = 0; turn < count; ++turn) {
      const std::size_t i = (turn + static_cast<std::size_t>(round)) % count;
      prepare(variants[i]);
      run(variants[i], repeats[i] / 3);
      seconds[i].push_back(run(variants[i], repeats[i]) / static_cast<double>(repeats[i]));
    }
  }
  return seconds;
}

void print(const std::string& work, const std::string& size, const std::vector<Variant>& variants,
           const std::vector<std::vector<double>>& seconds) {
  for (std::size_t i = 0; i < variants.size(); ++i) {
    std::printf("%s|%s|%s|%.0f|", work.c_str(), size.c_str(), variants[i].name.c_str(), variants[i].flops);
    for (double s : seconds[i]) {
      std::printf("%.5g ", s);
    }
    std::printf("\n");
  }
  std::fflush(stdout);
}

}  // namespace benchmarks
