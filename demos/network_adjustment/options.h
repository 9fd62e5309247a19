#ifndef NETWORK_ADJUSTMENT_OPTIONS_H
#define NETWORK_ADJUSTMENT_OPTIONS_H

#include <stdexcept>
#include <string>
#include <vector>

namespace network {

class UsageError : public std::runtime_error {
public:
  using std::runtime_error::runtime_error;
};

struct Options {
  bool help = false;
  std::string input;  // empty: the network that comes with the program
  std::string svg = "network.svg";
  std::string base;                 // empty: the default, where the network has it
  std::vector<std::string> rovers;  // likewise
};

// Throws UsageError.
Options parse_options(const std::vector<std::string>& arguments);

std::string help_text();

}  // namespace network

#endif
