#ifndef NETWORK_ADJUSTMENT_NETWORK_FILE_H
#define NETWORK_ADJUSTMENT_NETWORK_FILE_H

#include <istream>
#include <string>

#include "common/record.h"
#include "network.h"

namespace network {

using demo::InputError;

// Reads a network in the record format that the head of data/gnss_network_victoria.txt describes. A network that is
// returned can be adjusted: every covariance is positive definite, every station hangs by baselines on an observed
// position or a fixed station.
//
// Throws InputError, "name:line: expected ..., found ...", for the first fault. name is how messages call the input.
Network read_network(std::istream& input, const std::string& name);

// The same from a file.
Network read_network_file(const std::string& path);

}  // namespace network

#endif
