#ifndef ALIDADE_TOOLS_GOLDEN_BLOCK_H
#define ALIDADE_TOOLS_GOLDEN_BLOCK_H

#include <vector>

#include "golden/workload.h"

namespace golden {

// A block transfer: a matrix, the place and size of the block in it, and the buffer on the other side.
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
};

// Arguments: order i0 j0 n1 n2 op kind seed. Packed matrix, dense buffer.
inline Block read_packed_block(Arguments& in) {
  Block b;
  b.rows = in.integer();
  b.i0 = in.integer();
  b.j0 = in.integer();
  b.n1 = in.integer();
  b.n2 = in.integer();
  b.op = in.code();
  Workload work(in);
  b.matrix = work.packed_target(b.rows);
  b.buffer = work.dense_target(b.n1, b.n2);
  return b;
}

// Arguments: order i0 n op kind seed. Packed matrix, packed buffer.
inline Block read_diagonal_block(Arguments& in) {
  Block b;
  b.rows = in.integer();
  b.i0 = in.integer();
  b.n1 = in.integer();
  b.op = in.code();
  Workload work(in);
  b.matrix = work.packed_target(b.rows);
  b.buffer = work.packed_target(b.n1);
  return b;
}

// Arguments: rows cols i0 j0 n1 n2 op kind seed. Dense matrix, dense buffer.
inline Block read_dense_block(Arguments& in) {
  Block b;
  b.rows = in.integer();
  b.cols = in.integer();
  b.i0 = in.integer();
  b.j0 = in.integer();
  b.n1 = in.integer();
  b.n2 = in.integer();
  b.op = in.code();
  Workload work(in);
  b.matrix = work.dense_target(b.rows, b.cols);
  b.buffer = work.dense_target(b.n1, b.n2);
  return b;
}

inline void write_block(Tokens& out, const Block& b) { out.hash(b.matrix).hash(b.buffer); }

}  // namespace golden

#endif
