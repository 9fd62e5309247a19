#ifndef ALIDADE_SRC_TRUNCATE_H
#define ALIDADE_SRC_TRUNCATE_H

#include <limits>

#include "strict_arithmetic.h"

namespace alidade {

// Conversion to int, towards zero. Outside the range of int, and for a NaN, the language leaves the conversion
// undefined and processors differ; here it is always the smallest int, which is what x86 returns.
inline int truncate_to_int(double v) {
  if (v > -2147483649.0 && v < 2147483648.0) {
    return static_cast<int>(v);
  }
  return std::numeric_limits<int>::min();
}

}  // namespace alidade

#endif
