// The library as a host calls it, beside Eigen, GeographicLib, PROJ and Boost.Math. scripts/bench runs it.

#include "works.h"

int main() {
  benchmarks::measure_order_three();
  benchmarks::measure_conversions();
  benchmarks::measure_quantiles();
  return 0;
}
