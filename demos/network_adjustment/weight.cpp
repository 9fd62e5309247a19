#include "weight.h"

#include <alidade/linalg3.h>

#include <algorithm>

#include "matrix_views.h"

namespace network {
namespace {

// InvertSMatr3 tells a negative determinant (-2) and a vanishing one (-1). Two negative eigenvalues have a positive
// determinant, so the two leading minors are looked at as well (Sylvester's criterion).
bool invert_block(const std::vector<double>& covariance, std::vector<double>& weight) {
  covar block(covariance[0], covariance[1], covariance[2], covariance[3], covariance[4], covariance[5]);
  const bool leading_minors_positive = block[0] > 0 && block[0] * block[2] - block[1] * block[1] > 0;
  if (!leading_minors_positive || InvertSMatr3(block) != 0) {
    return false;
  }
  std::copy_n(static_cast<const double*>(block), 6, weight.begin());
  return true;
}

}  // namespace

bool invert_covariance(const std::vector<double>& covariance, int order, std::vector<double>& weight) {
  weight = covariance;
  if (order == 3) {
    return invert_block(covariance, weight);
  }
  TSMatrix matrix = packed_view(weight, order);
  return RareInversion(matrix, nullptr, 0) == 0;
}

}  // namespace network
