#ifndef ALIDADE_ALIDADE_H
#define ALIDADE_ALIDADE_H

/// @file
/// All of alidade: include this, or the header of the family you need.
///
/// Threads: calls on distinct objects may run in parallel; the constants are read-only after load.

#include <alidade/coords.h>
#include <alidade/environment.h>
#include <alidade/geometry.h>
#include <alidade/host.h>
#include <alidade/linalg3.h>
#include <alidade/matrix.h>
#include <alidade/points.h>
#include <alidade/stats.h>
#include <alidade/version.h>

#endif
