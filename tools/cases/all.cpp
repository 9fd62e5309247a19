#include "golden/functions.h"

namespace golden {

std::vector<Group> all_groups() {
  return {coordinates(), conversions(), local_frames(), angles(),     points(), rectangles(), lines(),
          arcs(),        triads(),      covariances(),  matrices3(),  eigen(),  storage(),    products(),
          operators(),   inversion(),   scalars(),      chi_square(), tau()};
}

}  // namespace golden
