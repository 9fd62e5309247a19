#ifndef NETWORK_ADJUSTMENT_LOCAL_FRAME_H
#define NETWORK_ADJUSTMENT_LOCAL_FRAME_H

#include <alidade/coords.h>
#include <alidade/linalg3.h>

namespace network {

// The rotation from geocentric to local axes at a station: rows east, north, up.
matr3_3 local_frame(const Coord& station);

}  // namespace network

#endif
