#ifndef ALIDADE_TOOLS_VERIFY_DATA_DIRECTORY_H
#define ALIDADE_TOOLS_VERIFY_DATA_DIRECTORY_H

#include <string>

namespace verify {

// Directory of the golden files beside the installed program: the program's own directory and the way from there that
// the build chose (ALIDADE_GOLDEN_FROM_PROGRAM), so that an installed tree may be moved.
std::string data_directory(const char* argv0);

}  // namespace verify

#endif
