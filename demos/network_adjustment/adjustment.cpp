#include "adjustment.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "matrix_views.h"

namespace network {
namespace {

constexpr int kWidth = 3;           // X, Y, Z of a station
constexpr double kDeepest = 6.3e6;  // metres from the Earth's centre
constexpr double kHighest = 1e8;

const Coord& at(const std::vector<Coord>& positions, int station) {
  return positions[static_cast<std::size_t>(station)];
}

// Fixed and observed positions, carried along the baselines to all other stations.
std::vector<Coord> approximate_positions(const Network& network) {
  std::vector<Coord> positions(network.stations.size());
  std::vector<char> known(network.stations.size(), 0);
  for (std::size_t i = 0; i < positions.size(); ++i) {
    if (network.stations[i].fixed) {
      positions[i] = network.stations[i].position;
      known[i] = 1;
    }
  }
  for (bool found = true; found;) {
    found = false;
    for (const VectorGroup& group : network.groups) {
      for (const ObservedVector& vector : group.vectors) {
        const auto to = static_cast<std::size_t>(vector.to);
        if (vector.from == kNoStation) {
          if (known[to] == 0) {
            positions[to] = vector.value;
            known[to] = 1;
            found = true;
          }
          continue;
        }
        const auto from = static_cast<std::size_t>(vector.from);
        if (known[from] == known[to]) {
          continue;
        }
        if (known[from] != 0) {
          positions[to] = positions[from] + vector.value;
        } else {
          positions[from] = positions[to] - vector.value;
        }
        known[from] = known[to] = 1;
        found = true;
      }
    }
  }
  return positions;
}

// Numbers the stations that are not fixed.
std::vector<int> number_points(const Network& network) {
  std::vector<int> points;
  int next = 0;
  for (const Station& station : network.stations) {
    points.push_back(station.fixed ? kFixed : next++);
  }
  return points;
}

// The points that a group depends on, and where the columns of each begin in the group's own design matrix.
class OwnColumns {
public:
  void add(int point) {
    if (point != kFixed && std::find(points_.begin(), points_.end(), point) == points_.end()) {
      points_.push_back(point);
    }
  }
  int of(int point) const {
    return kWidth * static_cast<int>(std::find(points_.begin(), points_.end(), point) - points_.begin());
  }
  const std::vector<int>& points() const { return points_; }

private:
  std::vector<int> points_;
};

// Rows of the observation equations: +1 in the columns of "to", -1 in those of "from". Fixed stations have no columns.
ObservationGroup linearise(const VectorGroup& group, const std::vector<Coord>& positions,
                           const std::vector<int>& points) {
  const auto point = [&points](int station) {
    return station == kNoStation ? kFixed : points[static_cast<std::size_t>(station)];
  };
  OwnColumns own;
  for (const ObservedVector& vector : group.vectors) {
    own.add(point(vector.from));
    own.add(point(vector.to));
  }

  ObservationGroup result;
  result.points = own.points();
  const int rows = group.rows();
  const int columns = kWidth * static_cast<int>(result.points.size());
  result.design.assign(dense_size(rows, columns), 0.0);
  TMatrix design = dense_view(result.design, rows, columns);
  int row = 0;
  const auto place = [&](int station, double sign) {
    if (point(station) != kFixed) {
      matr3_3 block(covar(sign, 0.0, sign, 0.0, 0.0, sign));
      design.SubMatrix(row, own.of(point(station)), '=', block);
    }
  };
  for (const ObservedVector& vector : group.vectors) {
    place(vector.to, 1.0);
    place(vector.from, -1.0);
    Coord computed = at(positions, vector.to);
    if (vector.from != kNoStation) {
      computed -= at(positions, vector.from);
    }
    const Coord misclosure = vector.value - computed;
    result.misclosure.insert(result.misclosure.end(), {misclosure.x, misclosure.y, misclosure.z});
    row += kWidth;
  }
  result.covariance = group.covariance;
  result.weight = group.weight;
  return result;
}

}  // namespace

AdjustedNetwork adjust(const Network& network, int* progress) {
  AdjustedNetwork result;
  result.positions = approximate_positions(network);

  result.points = number_points(network);
  const int points = 1 + *std::max_element(result.points.begin(), result.points.end());
  NormalEquations normal(points, kWidth);
  std::vector<ObservationGroup> equations;
  for (const VectorGroup& group : network.groups) {
    equations.push_back(linearise(group, result.positions, result.points));
    normal.add(equations.back());
    result.observations += group.rows();
  }
  result.unknowns = kWidth * points;

  const int failed_row = RareInversion(normal.matrix(), progress, 99);
  if (failed_row != 0) {
    const auto found = std::find(result.points.begin(), result.points.end(), (failed_row - 1) / kWidth);
    const auto station = static_cast<std::size_t>(found - result.points.begin());
    throw AdjustmentError("the observations do not determine station " + network.stations[station].name +
                          " (no positive pivot in row " + std::to_string(failed_row) + " of the normal equations)");
  }

  const std::vector<double> solution = normal.solution();
  for (const ObservationGroup& group : equations) {
    result.groups.push_back(evaluate(group, kWidth, normal.matrix(), solution));
    result.chi_square += result.groups.back().weighted_square;
  }
  if (!std::isfinite(result.chi_square)) {
    throw AdjustmentError("the observations contradict one another beyond the range of numbers");
  }
  for (std::size_t i = 0; i < result.positions.size(); ++i) {
    if (result.points[i] != kFixed) {
      const double* correction = &solution[static_cast<std::size_t>(kWidth * result.points[i])];
      result.positions[i] += Coord(correction[0], correction[1], correction[2]);
    }
    const double radius = RR(result.positions[i]);
    if (!(radius > kDeepest && radius < kHighest)) {
      throw AdjustmentError("station " + network.stations[i].name + " lies far below or above the surface of the " +
                            "Earth: coordinates are expected to be geocentric, in metres");
    }
  }
  result.cofactor = normal.take_matrix();
  return result;
}

covar AdjustedNetwork::covariance(int station) const {
  const int point = points[static_cast<std::size_t>(station)];
  return point == kFixed ? covar(0) : covar(*cofactor, kWidth * point);
}

// Vbb + Vrr - (Vbr + Vbr'). Subtracting a matr3_3 from a covar takes away the matrix and its transpose together, not
// halved, as is needed here.
covar AdjustedNetwork::relative_covariance(int base, int rover) const {
  const int b = points[static_cast<std::size_t>(base)];
  const int r = points[static_cast<std::size_t>(rover)];
  covar difference = covariance(base);
  difference += covariance(rover);
  if (b != kFixed && r != kFixed) {
    difference -= matr3_3(*cofactor, kWidth * b, kWidth * r);
  }
  return difference;
}

}  // namespace network
