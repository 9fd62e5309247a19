#ifndef ALIDADE_SRC_COORDS_LENGTHS_H
#define ALIDADE_SRC_COORDS_LENGTHS_H

#include <alidade/coords.h>

#include "square_root.h"
#include "strict_arithmetic.h"

namespace alidade {

inline double squared_length(const Coord& c) { return (c.x * c.x + c.y * c.y) + c.z * c.z; }

inline double length(const Coord& c) { return square_root(squared_length(c)); }

}  // namespace alidade

#endif
