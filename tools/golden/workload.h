#ifndef ALIDADE_TOOLS_GOLDEN_WORKLOAD_H
#define ALIDADE_TOOLS_GOLDEN_WORKLOAD_H

#include <cstddef>
#include <string>
#include <vector>

#include "golden/case.h"
#include "golden/inputs.h"

namespace golden {

// Elements drawn behind each target of a kernel: they are hashed with it, so that a write beyond its end shows.
constexpr std::size_t kGuard = 5;

// Number of elements; 0 for a negative size.
inline std::size_t area(int rows, int cols) {
  return rows > 0 && cols > 0 ? static_cast<std::size_t>(rows) * static_cast<std::size_t>(cols) : 0;
}
inline std::size_t triangle(int order) {
  return order > 0 ? static_cast<std::size_t>(order) * (static_cast<std::size_t>(order) + 1) / 2 : 0;
}

// The buffers of a case that names a kind of numbers and a seed as its last two arguments. Buffers are drawn one after
// the other, in the order in which both programs ask for them.
class Workload {
public:
  explicit Workload(Arguments& in) : kind_(in.word()), bits_(in.seed()) {}

  std::vector<double> dense(int rows, int cols) { return random_doubles(bits_, kind_, area(rows, cols)); }
  std::vector<double> packed(int order) { return random_doubles(bits_, kind_, triangle(order)); }
  std::vector<double> dense_target(int rows, int cols) {
    return random_doubles(bits_, kind_, area(rows, cols) + kGuard);
  }
  std::vector<double> packed_target(int order) { return random_doubles(bits_, kind_, triangle(order) + kGuard); }

  // Large enough for a rows x cols operand in any storage mode.
  std::vector<double> operand(int rows, int cols) {
    const int order = rows > cols ? rows : cols;
    return random_doubles(bits_, kind_, area(order, order));
  }

  // Packed matrix to be inverted; here the kind is one of symmetric_matrix.
  std::vector<double> to_invert(int order) {
    std::vector<double> packed = symmetric_matrix(bits_, kind_, order);
    for (std::size_t i = 0; i < kGuard; ++i) {
      packed.push_back(static_cast<double>(i) + 1.0);
    }
    return packed;
  }

private:
  std::string kind_;
  RandomBits bits_;
};

}  // namespace golden

#endif
