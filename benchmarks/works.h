#ifndef ALIDADE_BENCHMARKS_WORKS_H
#define ALIDADE_BENCHMARKS_WORKS_H

namespace benchmarks {

// Through the private headers, so that the instruction set can be chosen.
void measure_products();
void measure_operators();
void measure_inversion();
void measure_scaling();
void measure_small_shapes();

// Through the shared library, as a host calls it.
void measure_order_three();
void measure_conversions();
void measure_quantiles();

}  // namespace benchmarks

#endif
