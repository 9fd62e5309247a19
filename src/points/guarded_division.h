#ifndef ALIDADE_SRC_POINTS_GUARDED_DIVISION_H
#define ALIDADE_SRC_POINTS_GUARDED_DIVISION_H

namespace alidade {

// dividend / divisor for a host that may have enabled floating-point traps: where this division by itself is a division
// by zero or an invalid operation, and the host traps that exception, the result is 0.0 and no trap is taken. Otherwise
// the IEEE quotient. Status flags, trap mask, rounding mode and signal handlers are afterwards as they were before.
double guarded_quotient(double dividend, double divisor);

}  // namespace alidade

#endif
