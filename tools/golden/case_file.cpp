#include "golden/case_file.h"

#include <cinttypes>
#include <cstdio>
#include <fstream>
#include <stdexcept>

namespace golden {

std::string Seal::text() const {
  char text[64];
  std::snprintf(text, sizeof text, "# %ld cases, hash of their lines %016" PRIx64, cases_, hash_);
  return text;
}

std::vector<PlacedCase> read_cases(const std::string& file) {
  std::ifstream in(file);
  if (!in) {
    throw std::runtime_error(file + ": cannot be opened");
  }
  std::vector<PlacedCase> cases;
  Case heading;
  Seal seal;
  std::string expected;
  std::string line;
  long number = 1;
  for (; std::getline(in, line); ++number) {
    const std::string place = file + ":" + std::to_string(number);
    if (!line.empty() && line.back() == '\r') {
      line.pop_back();
    }
    if (number == 3) {
      expected = line;
    }
    if (line.empty() || line[0] == '#') {
      continue;
    }
    try {
      if (line[0] == '[') {
        heading = parse_heading(line);
      } else {
        cases.push_back({parse_case(heading, line), place, line});
      }
    } catch (const std::exception& e) {
      throw std::runtime_error(place + ": " + e.what());
    }
    seal.add(line, line[0] != '[');
  }
  if (seal.text() != expected) {
    throw std::runtime_error(file + ":" + std::to_string(number) +
                             ": not the cases that line 3 announces:\n    there: " + expected +
                             "\n    found: " + seal.text());
  }
  return cases;
}

}  // namespace golden
