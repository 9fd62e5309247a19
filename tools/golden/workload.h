#ifndef ALIDADE_TOOLS_GOLDEN_WORKLOAD_H
#define ALIDADE_TOOLS_GOLDEN_WORKLOAD_H

#include <cstddef>
#include <stdexcept>
#include <string>
#include <vector>

#include "golden/functions.h"
#include "golden/inputs.h"

namespace golden {

// Elements drawn behind each target: they are hashed with it, so that a write beyond its end shows.
constexpr std::size_t kGuard = 5;

inline std::size_t area(int rows, int cols) { return static_cast<std::size_t>(rows) * static_cast<std::size_t>(cols); }
inline std::size_t triangle(int order) { return area(order, order + 1) / 2; }

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

// A block transfer: a matrix, the place and size of the block in it, and the buffer on the other side. Arguments are
// those of the form's constructor, the operation code, the kind of numbers and the seed.
struct Block {
  int rows = 0;  // order of a packed matrix
  int cols = 0;
  int i0 = 0;
  int j0 = 0;
  int n1 = 0;  // order of a packed buffer
  int n2 = 0;
  char op = '\0';
  std::vector<double> matrix;
  std::vector<double> buffer;

protected:
  void require_inside() const {
    if (i0 + n1 > rows || j0 + n2 > (cols != 0 ? cols : rows)) {
      throw std::runtime_error("the block does not lie in the matrix");
    }
  }
};

// Packed matrix, dense buffer: order i0 j0 n1 n2.
struct PackedBlock : Block {
  explicit PackedBlock(Arguments& in) {
    rows = read<Size>(in);
    i0 = read<Size>(in);
    j0 = read<Size>(in);
    n1 = read<Size>(in);
    n2 = read<Size>(in);
    op = in.code();
    require_inside();
    Workload work(in);
    matrix = work.packed_target(rows);
    buffer = work.dense_target(n1, n2);
  }
};

// Packed matrix, packed buffer: order i0 n.
struct DiagonalBlock : Block {
  explicit DiagonalBlock(Arguments& in) {
    rows = read<Size>(in);
    i0 = read<Size>(in);
    n1 = read<Size>(in);
    op = in.code();
    require_inside();
    Workload work(in);
    matrix = work.packed_target(rows);
    buffer = work.packed_target(n1);
  }
};

// Dense matrix, dense buffer: rows cols i0 j0 n1 n2.
struct DenseBlock : Block {
  explicit DenseBlock(Arguments& in) {
    rows = read<Size>(in);
    cols = read<Size>(in);
    i0 = read<Size>(in);
    j0 = read<Size>(in);
    n1 = read<Size>(in);
    n2 = read<Size>(in);
    op = in.code();
    require_inside();
    Workload work(in);
    matrix = work.dense_target(rows, cols);
    buffer = work.dense_target(n1, n2);
  }
};

}  // namespace golden

#endif
