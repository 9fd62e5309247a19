#include <alidade/coords.h>

#include "coords/ellipsoid.h"
#include "strict_arithmetic.h"

// Alone in its file: a host that links the static library and has a symbol of this name then never pulls this one in.
constexpr Ellipsoid DefaultEllipsoid = alidade::ReferenceEllipsoid::make();
