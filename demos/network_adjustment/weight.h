#ifndef NETWORK_ADJUSTMENT_WEIGHT_H
#define NETWORK_ADJUSTMENT_WEIGHT_H

#include <vector>

namespace network {

// The inverse of a covariance matrix, both packed. False, with weight unspecified, when the covariance is not positive
// definite or too near to a singular one to be inverted.
bool invert_covariance(const std::vector<double>& covariance, int order, std::vector<double>& weight);

}  // namespace network

#endif
