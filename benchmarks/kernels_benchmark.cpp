// The matrix kernels on every instruction set, with the plain loops and the peers. scripts/bench runs it.
// Arguments choose among the parts: products operators inversion small scaling.

#include <cstdio>
#include <cstring>
#include <utility>

#include "works.h"

extern "C" {
char* openblas_get_corename();
char* openblas_get_config();
}

int main(int count, char** arguments) {
  const std::pair<const char*, void (*)()> parts[] = {{"products", benchmarks::measure_products},
                                                      {"operators", benchmarks::measure_operators},
                                                      {"inversion", benchmarks::measure_inversion},
                                                      {"small", benchmarks::measure_small_shapes},
                                                      {"scaling", benchmarks::measure_scaling}};
  std::printf("about|OpenBLAS|%s|%s|\n", openblas_get_corename(), openblas_get_config());
  for (const auto& [name, measure] : parts) {
    bool wanted = count == 1;
    for (int i = 1; i < count; ++i) {
      wanted = wanted || std::strcmp(arguments[i], name) == 0;
    }
    if (wanted) {
      measure();
    }
  }
  return 0;
}
