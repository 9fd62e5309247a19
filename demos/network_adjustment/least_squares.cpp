#include "least_squares.h"

#include "matrix_views.h"

namespace network {
namespace {

std::vector<double> gather(const ObservationGroup& group, int width, const std::vector<double>& all) {
  std::vector<double> part;
  for (const int point : group.points) {
    const auto first = all.begin() + static_cast<std::ptrdiff_t>(point) * width;
    part.insert(part.end(), first, first + width);
  }
  return part;
}

// Calls use(own_row, own_column, row, column) for each block of the lower triangle: where it begins in the matrix of
// the group's own parameters and in that of all parameters.
template <class Use>
void for_each_block(const ObservationGroup& group, int width, const Use& use) {
  const int count = static_cast<int>(group.points.size());
  for (int a = 0; a < count; ++a) {
    for (int b = 0; b <= a; ++b) {
      use(width * a, width * b, width * group.points[static_cast<std::size_t>(a)],
          width * group.points[static_cast<std::size_t>(b)]);
    }
  }
}

// to op= from for one block. A diagonal block goes as a triangle: as a rectangle it would reach the elements beside the
// diagonal twice.
void transfer(TSMatrix& from, int from_row, int from_column, char op, TSMatrix& to, int to_row, int to_column,
              int width) {
  std::vector<double> buffer(dense_size(width, width));
  if (from_row == from_column) {
    from.BlockOper(from_row, width, '>', buffer.data());
    to.BlockOper(to_row, width, op, buffer.data());
  } else {
    from.BlockOper(from_row, from_column, width, width, '>', buffer.data());
    to.BlockOper(to_row, to_column, width, width, op, buffer.data());
  }
}

}  // namespace

NormalEquations::NormalEquations(int points, int width)
    : width_(width),
      matrix_(std::make_unique<TSMatrix>(points * width, 0)),
      right_side_(dense_size(points, width), 0.0) {}

void NormalEquations::add(const ObservationGroup& group) {
  const int rows = group.rows();
  const int columns = width_ * static_cast<int>(group.points.size());
  if (columns == 0) {
    return;
  }
  TSMatrix own(columns, 0);
  SMATRopRt_S_R(own, '=', dense_view(group.design, rows, columns), packed_view(group.weight, rows));
  for_each_block(group, width_, [&](int own_row, int own_column, int row, int column) {
    transfer(own, own_row, own_column, '+', *matrix_, row, column, width_);
  });

  std::vector<double> own_side(static_cast<std::size_t>(columns));
  MRAtQL(own_side.data(), '=', group.design.data(), group.weight.data(), group.misclosure.data(), rows, columns);
  for (int k = 0; k < columns; ++k) {
    const int point = group.points[static_cast<std::size_t>(k / width_)];
    right_side_[static_cast<std::size_t>(point * width_ + k % width_)] += own_side[static_cast<std::size_t>(k)];
  }
}

std::vector<double> NormalEquations::solution() {
  std::vector<double> x(right_side_.size());
  matrix_->MatrProduct(right_side_.data(), '=', x.data());
  return x;
}

GroupResult evaluate(const ObservationGroup& group, int width, TSMatrix& cofactor,
                     const std::vector<double>& solution) {
  const int rows = group.rows();
  const int columns = width * static_cast<int>(group.points.size());
  GroupResult result;

  // v = A x - l
  result.residual.resize(group.misclosure.size());
  const std::vector<double> own_solution = gather(group, width, solution);
  if (columns > 0) {
    MatrixProduct(group.design.data(), own_solution.data(), result.residual.data(), rows, columns, 1);
  }
  for (std::size_t k = 0; k < result.residual.size(); ++k) {
    result.residual[k] -= group.misclosure[k];
  }

  // v' P v
  std::vector<double> weighted(result.residual.size());
  SMatrProduct(group.weight.data(), result.residual.data(), weighted.data(), rows, rows, 1, 0, 1);
  MAtB(result.residual.data(), weighted.data(), &result.weighted_square, rows, 1, 1);

  // C - A Q A'
  std::vector<double> reduced = group.covariance;
  if (columns > 0) {
    TSMatrix own_cofactor(columns, 0);
    for_each_block(group, width, [&](int own_row, int own_column, int row, int column) {
      transfer(cofactor, row, column, '=', own_cofactor, own_row, own_column, width);
    });
    TSMatrix reduced_view = packed_view(reduced, rows);
    SMATRopR_S_Rt(reduced_view, '-', dense_view(group.design, rows, columns), own_cofactor);
  }
  for (int k = 0; k < rows; ++k) {
    const auto diagonal = static_cast<std::size_t>(TSMatrix::LinearIndex(k, k));
    result.residual_variance.push_back(reduced[diagonal]);
    result.variance.push_back(group.covariance[diagonal]);
  }
  return result;
}

}  // namespace network
