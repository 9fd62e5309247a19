#include "adjustment.h"

#include <alidade/linalg3.h>

#include <algorithm>
#include <cmath>
#include <string>

#include "matrix_views.h"

namespace network {
namespace {

constexpr int kWidth = 3;  // X, Y, Z of a station

const Coord& at(const std::vector<Coord>& positions, int station) {
  return positions[static_cast<std::size_t>(station)];
}

// Observed positions, carried along the baselines to all other stations.
std::vector<Coord> approximate_positions(const Network& network) {
  std::vector<Coord> positions(network.stations.size());
  std::vector<char> known(network.stations.size(), 0);
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

// Column of the group's own parameters at which the station's X, Y, Z begin; the station is added when it is new.
int own_column(std::vector<int>& points, int station) {
  const auto found = std::find(points.begin(), points.end(), station);
  const auto position = found - points.begin();
  if (found == points.end()) {
    points.push_back(station);
  }
  return kWidth * static_cast<int>(position);
}

// Rows of the observation equations: +1 in the columns of "to", -1 in those of "from".
ObservationGroup linearise(const VectorGroup& group, const std::vector<Coord>& positions) {
  ObservationGroup result;
  for (const ObservedVector& vector : group.vectors) {
    if (vector.from != kNoStation) {
      own_column(result.points, vector.from);
    }
    own_column(result.points, vector.to);
  }

  const int rows = group.rows();
  const int columns = kWidth * static_cast<int>(result.points.size());
  result.design.assign(dense_size(rows, columns), 0.0);
  TMatrix design = dense_view(result.design, rows, columns);
  matr3_3 plus(covar(1.0, 0.0, 1.0, 0.0, 0.0, 1.0));
  matr3_3 minus(covar(-1.0, 0.0, -1.0, 0.0, 0.0, -1.0));
  int row = 0;
  for (const ObservedVector& vector : group.vectors) {
    design.SubMatrix(row, own_column(result.points, vector.to), '=', plus);
    Coord computed = at(positions, vector.to);
    if (vector.from != kNoStation) {
      design.SubMatrix(row, own_column(result.points, vector.from), '=', minus);
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

  const int stations = static_cast<int>(network.stations.size());
  NormalEquations normal(stations, kWidth);
  std::vector<ObservationGroup> equations;
  for (const VectorGroup& group : network.groups) {
    equations.push_back(linearise(group, result.positions));
    normal.add(equations.back());
    result.observations += group.rows();
  }
  result.unknowns = kWidth * stations;

  const int failed_row = RareInversion(normal.matrix(), progress, 99);
  if (failed_row != 0) {
    const auto station = static_cast<std::size_t>((failed_row - 1) / kWidth);
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
    result.positions[i] += Coord(solution[3 * i], solution[3 * i + 1], solution[3 * i + 2]);
  }
  result.cofactor = std::make_unique<TSMatrix>(normal.matrix());
  return result;
}

}  // namespace network
