#include "coords/lengths.h"

#include <alidade/coords.h>

#include "square_root.h"
#include "strict_arithmetic.h"

double RR(const Coord& c) { return alidade::length(c); }

double R2(const Coord& c) { return alidade::squared_length(c); }

// The squares are summed in the order first, third, second: not the order of RR(Coord).
double RR(const double& a, const double& b, const double& c) { return alidade::square_root((a * a + c * c) + b * b); }
