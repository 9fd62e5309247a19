#ifndef STAKEOUT_OPTIONS_H
#define STAKEOUT_OPTIONS_H

#include <stdexcept>
#include <string>
#include <vector>

namespace stakeout {

class UsageError : public std::runtime_error {
public:
  using std::runtime_error::runtime_error;
};

struct Options {
  bool help = false;
  std::string input;  // empty: the road that comes with the program
  std::string svg = "stakeout.svg";
};

// Throws UsageError.
Options parse_options(const std::vector<std::string>& arguments);

std::string help_text();

}  // namespace stakeout

#endif
