#include "verify/data_directory.h"

#if defined(_WIN32)
#include <windows.h>
#elif defined(__linux__)
#include <unistd.h>
#endif

namespace verify {
namespace {

// Full name of the running program, or as it was called where the system does not tell.
std::string program_file(const char* argv0) {
  char buffer[4096];
#if defined(_WIN32)
  const DWORD length = GetModuleFileNameA(nullptr, buffer, sizeof buffer);
  if (length > 0 && length < sizeof buffer) {
    return std::string(buffer, length);
  }
#elif defined(__linux__)
  const ssize_t length = readlink("/proc/self/exe", buffer, sizeof buffer);
  if (length > 0 && static_cast<std::size_t>(length) < sizeof buffer) {
    return std::string(buffer, static_cast<std::size_t>(length));
  }
#else
  static_cast<void>(buffer);
#endif
  return argv0 != nullptr ? argv0 : "";
}

}  // namespace

std::string data_directory(const char* argv0) {
  const std::string program = program_file(argv0);
  const std::string::size_type slash = program.find_last_of("/\\");
  const std::string directory = slash == std::string::npos ? "." : program.substr(0, slash);
  return directory + "/" + ALIDADE_GOLDEN_FROM_PROGRAM;
}

}  // namespace verify
