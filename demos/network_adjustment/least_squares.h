#ifndef NETWORK_ADJUSTMENT_LEAST_SQUARES_H
#define NETWORK_ADJUSTMENT_LEAST_SQUARES_H

// Least squares in groups of correlated observations (Koch, Parameter Estimation and Hypothesis Testing in Linear
// Models, 3.2): v = A x - l with covariance C, x = (A' P A)^-1 A' P l, P = C^-1.
//
// The parameters come in points of the same width: 3 for X, Y, Z, 2 for a plane, 1 for heights. A group touches few
// points, so only small blocks are formed and moved into the normal equations.

#include <alidade/matrix.h>

#include <memory>
#include <utility>
#include <vector>

namespace network {

struct ObservationGroup {
  std::vector<int> points;         // the points the group depends on, each once; maybe none
  std::vector<double> design;      // A: rows x (width * points), column by column
  std::vector<double> misclosure;  // l: observed minus computed
  std::vector<double> covariance;  // C, packed
  std::vector<double> weight;      // P, packed

  int rows() const { return static_cast<int>(misclosure.size()); }
};

// N = A' P A and the right-hand side A' P l, summed over groups.
class NormalEquations {
public:
  NormalEquations(int points, int width);

  void add(const ObservationGroup& group);

  TSMatrix& matrix() { return *matrix_; }
  const std::vector<double>& right_side() const { return right_side_; }

  // The solution, once matrix() holds the inverse (or another symmetric generalised inverse).
  std::vector<double> solution();

  // The matrix itself, for who goes on with it: copied it would take as much memory again.
  std::unique_ptr<TSMatrix> take_matrix() { return std::move(matrix_); }

private:
  int width_;
  std::unique_ptr<TSMatrix> matrix_;
  std::vector<double> right_side_;
};

// What the solution says about one group.
struct GroupResult {
  std::vector<double> residual;           // v, adjusted minus observed
  std::vector<double> residual_variance;  // diagonal of C - A Q A'
  std::vector<double> variance;           // diagonal of C
  double weighted_square = 0;             // v' P v
};

// cofactor: the inverse Q of the normal matrix; solution: x. Only blocks of the group's points are read.
GroupResult evaluate(const ObservationGroup& group, int width, TSMatrix& cofactor, const std::vector<double>& solution);

}  // namespace network

#endif
