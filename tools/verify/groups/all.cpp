#include "golden/cases/inversion.h"
#include "golden/cases/operators.h"
#include "golden/cases/products.h"
#include "verify/groups/groups.h"
#include "verify/library.h"

namespace golden {

const std::vector<Group>& all_groups() {
  using namespace verify;
  static const std::vector<Group> groups = {coordinates(),
                                            conversions(),
                                            local_frames(),
                                            angles(),
                                            points(),
                                            rectangles(),
                                            lines(),
                                            arcs(),
                                            triads(),
                                            covariances(),
                                            matrices3(),
                                            eigen(),
                                            storage(),
                                            products<Library>(),
                                            operators<Library>(),
                                            inversion<Library>(),
                                            scalars(),
                                            chi_square(),
                                            tau()};
  return groups;
}

}  // namespace golden
