#ifndef ALIDADE_TOOLS_VERIFY_MATH_LIBRARY_H
#define ALIDADE_TOOLS_VERIFY_MATH_LIBRARY_H

#include "golden/case.h"

namespace verify {

// True when this platform's math library answers a recorded call with the recorded bits.
// Throws std::runtime_error when the function is unknown.
bool math_library_agrees(const golden::MathCall& call);

// True when it does so for every call of the case.
bool math_library_agrees(const golden::Case& c);

}  // namespace verify

#endif
