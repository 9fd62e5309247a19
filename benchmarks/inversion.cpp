// RareInversion beside LAPACK and Eigen, and how time and memory grow with the order.

#include <alidade/matrix.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "matrix/kernels/kernels.h"
#include "memory.h"
#include "peers.h"
#include "sets.h"
#include "works.h"

namespace benchmarks {
namespace {

// Values of about 1 against a diagonal that outweighs them: the inverses hold no subnormal numbers, which are slow.
enum class Structure { kDense, kBanded, kBordered };

bool present(Structure structure, int i, int j, int n) {
  switch (structure) {
    case Structure::kDense:
      return true;
    case Structure::kBanded:
      return i - j <= 20;
    case Structure::kBordered:
      return i / 3 == j / 3 || i >= n - 50;
  }
  return false;
}

double diagonal(Structure structure, int i, int n) {
  switch (structure) {
    case Structure::kDense:
      return 0.6 * n + 1.0;
    case Structure::kBanded:
      return 8.0;
    case Structure::kBordered:
      return i >= n - 50 ? 1.0 * n + 4.0 : 4.0;
  }
  return 0.0;
}

std::vector<double> packed_matrix(Structure structure, int n) {
  const std::vector<double> values = random_values(100003);
  std::vector<double> packed;
  packed.reserve(static_cast<std::size_t>(n) * (static_cast<std::size_t>(n) + 1) / 2);
  for (int i = 0; i < n; ++i) {
    for (int j = 0; j <= i; ++j) {
      const double value = values[packed.size() % values.size()];
      packed.push_back(i == j ? diagonal(structure, i, n) : present(structure, i, j, n) ? value : 0.0);
    }
  }
  return packed;
}

std::vector<double> square_matrix(const std::vector<double>& packed, int n) {
  const auto order = static_cast<std::size_t>(n);
  std::vector<double> square(order * order);
  std::size_t k = 0;
  for (std::size_t i = 0; i < order; ++i) {
    for (std::size_t j = 0; j <= i; ++j, ++k) {
      square[i + j * order] = square[j + i * order] = packed[k];
    }
  }
  return square;
}

void require(bool done) {
  if (!done) {
    std::fputs("a benchmark matrix is not definite\n", stderr);
    std::exit(1);
  }
}

void invert(const std::vector<double>& from, std::vector<double>& to, int n) {
  std::copy(from.begin(), from.end(), to.begin());
  TSMatrix matrix(to.data(), n);
  require(RareInversion(matrix, nullptr, 0) == 0);
}

void measure_beside_peers(const char* work, Structure structure, int n) {
  const std::vector<double> packed = packed_matrix(structure, n);
  const std::vector<double> square = square_matrix(packed, n);
  std::vector<double> target(packed.size()), square_target(square.size());
  const double flops = 1.0 * n * n * n;  // whatever the structure
  std::vector<Variant> variants = on_every_set(
      flops, [&] { invert(packed, target, n); }, n <= 300);
  const auto add = [&](const char* name, bool (*invert_peer)(double*, int)) {
    variants.push_back({name, flops, [&, invert_peer] {
                          std::copy(square.begin(), square.end(), square_target.begin());
                          require(invert_peer(square_target.data(), n));
                        }});
  };
  add("dpotrf+dpotri", peers::openblas.invert);
  if (n <= 1000) {
    add("Eigen", peers::eigen_default.invert);
    add("Eigen native", peers::eigen_native.invert);
  }
  compare_results(work, variants, {target.data(), square_target.data(), n, n, true});
  variants.push_back({"dpptrf+dpptri", flops, [&] {
                        std::copy(packed.begin(), packed.end(), target.begin());
                        require(peers::invert_packed(target.data(), n));
                      }});
  measure(work, std::to_string(n), variants, n < 1000 ? kUsual : n < 2000 ? kLarge : Effort{3, 1e-3});
}

void measure_growth(const std::string& work, Structure structure, int n) {
  const std::vector<double> packed = packed_matrix(structure, n);
  std::vector<double> target(packed.size());
  const std::vector<Variant> variants = on_best_set(0.0, [&] { invert(packed, target, n); });
  measure(work, std::to_string(n), variants, n <= 500 ? kUsual : Effort{n < 3000 ? 3 : 1, 1e-3});
  print_memory(work, n, [&] { invert(packed, target, n); });
}

}  // namespace

void measure_inversion() {
  for (int n : {3, 6, 10, 30, 50, 100, 300, 1000, 2000}) {
    measure_beside_peers("RareInversion", Structure::kDense, n);
  }
  measure_beside_peers("RareInversion, band of half-width 20", Structure::kBanded, 2000);
  measure_beside_peers("RareInversion, 3x3 blocks with a border of 50", Structure::kBordered, 2000);
}

void measure_scaling() {
  for (int n : {10, 20, 50, 100, 200, 500, 1000, 2000, 3000, 5000}) {
    measure_growth("dense", Structure::kDense, n);
    measure_growth("band of half-width 20", Structure::kBanded, n);
    if (n > 50) {
      measure_growth("3x3 blocks with a border of 50", Structure::kBordered, n);
    }
  }
}

}  // namespace benchmarks
