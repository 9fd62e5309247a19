#include "verify/groups/groups.h"

namespace golden {

const std::vector<Group>& all_groups() {
  using namespace verify;
  static const std::vector<Group> groups = {coordinates(), conversions(), local_frames(), angles(),   points(),
                                            rectangles(),  lines(),       arcs(),         triads(),   covariances(),
                                            matrices3(),   eigen(),       storage(),      products(), operators(),
                                            inversion(),   scalars(),     chi_square(),   tau()};
  return groups;
}

}  // namespace golden
