#ifndef ALIDADE_TOOLS_VERIFY_GROUPS_GROUPS_H
#define ALIDADE_TOOLS_VERIFY_GROUPS_GROUPS_H

// The golden functions bound to the installed library, one file for each family. Those in golden/cases/ are bound by
// verify/library.h.

#include <vector>

#include "golden/functions.h"

namespace verify {

golden::Group coordinates();
golden::Group conversions();
golden::Group local_frames();
golden::Group angles();
golden::Group points();
golden::Group rectangles();
golden::Group lines();
golden::Group arcs();
golden::Group triads();
golden::Group covariances();
golden::Group matrices3();
golden::Group eigen();
golden::Group storage();
golden::Group scalars();
golden::Group chi_square();
golden::Group tau();

}  // namespace verify

#endif
