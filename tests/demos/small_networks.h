#ifndef ALIDADE_TESTS_ADJUSTMENT_SMALL_NETWORKS_H
#define ALIDADE_TESTS_ADJUSTMENT_SMALL_NETWORKS_H

// Levelling and trilateration networks of textbooks, turned into observation groups for the demo's least squares.
// The files are in tests/data; their heads describe the records.

#include <alidade/matrix.h>

#include <memory>
#include <string>
#include <vector>

#include "network_adjustment/least_squares.h"

namespace small_networks {

struct PublishedPoint {
  int point;
  std::vector<double> coordinates;  // metres
  std::vector<double> corrections;  // metres
  std::vector<double> sd;           // metres
};

struct Measurement {
  int from;
  int to;
  double value;
  double sd;
};

struct SmallNetwork {
  int width = 0;  // 1: heights, 2: plane coordinates
  double sigma0 = 1;
  std::vector<std::string> names;
  std::vector<double> approximate;  // width numbers for each point
  std::vector<char> fixed;
  std::vector<char> datum;  // takes part in the free datum
  std::vector<Measurement> measurements;
  std::vector<PublishedPoint> published;

  int points() const { return static_cast<int>(names.size()); }
  int find(const std::string& name) const;
};

// A file of tests/data. Throws std::runtime_error when it is not as its head says.
SmallNetwork read(const std::string& file);

// Observation equations at the given coordinates; fixed points have no parameters. parameter_point lists the points
// that have, in the order of the parameters.
std::vector<network::ObservationGroup> linearise(const SmallNetwork& net, const std::vector<double>& coordinates,
                                                 std::vector<int>& parameter_point);

struct SmallResult {
  std::vector<double> coordinates;
  std::vector<int> parameter_point;
  std::unique_ptr<TSMatrix> cofactor;
  std::vector<network::GroupResult> groups;
  double weighted_square = 0;
  int redundancy = 0;

  double variance_factor() const { return weighted_square / redundancy; }
};

// How a normal matrix becomes its inverse, or another symmetric generalised inverse, in place.
using Inversion = void (*)(const SmallNetwork& net, TSMatrix& normal);

void regular_inverse(const SmallNetwork& net, TSMatrix& normal);
// Moore-Penrose: minimum norm over all parameters.
void free_inverse(const SmallNetwork& net, TSMatrix& normal);
// Minimum norm over the points of the datum.
void datum_inverse(const SmallNetwork& net, TSMatrix& normal);

// The Moore-Penrose inverse of a normal matrix whose last defect parameters, held fixed, make it regular.
int moore_penrose_inverse(TSMatrix& normal, int defect);

// Gauss-Newton steps from the approximate coordinates until no coordinate moves by 1e-7 m. defect: rank defect of the
// normal matrix.
SmallResult adjust(const SmallNetwork& net, Inversion invert, int defect);

}  // namespace small_networks

#endif
