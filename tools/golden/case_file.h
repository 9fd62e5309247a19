#ifndef ALIDADE_TOOLS_GOLDEN_CASE_FILE_H
#define ALIDADE_TOOLS_GOLDEN_CASE_FILE_H

#include <cstdint>
#include <string>
#include <vector>

#include "golden/case.h"
#include "golden/hash.h"

namespace golden {

// Third line of a file: how many cases follow, and a hash of all lines that are no comments. It tells a file that was
// cut or changed from a library that computes otherwise.
class Seal {
public:
  void add(const std::string& line, bool is_case) {
    hash_ = hash_of(line + '\n', hash_);
    cases_ += is_case ? 1 : 0;
  }
  std::string text() const;

private:
  std::uint64_t hash_ = kEmptyHash;
  long cases_ = 0;
};

struct PlacedCase {
  Case what;
  std::string place;  // file:line, for messages
  std::string text;
};

// All cases of a file. Throws std::runtime_error with file, line and reason when the file cannot be read, when a line
// is no case, and when the file is not as it was sealed.
std::vector<PlacedCase> read_cases(const std::string& file);

}  // namespace golden

#endif
