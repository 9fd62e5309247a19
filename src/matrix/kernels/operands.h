#ifndef ALIDADE_SRC_MATRIX_KERNELS_OPERANDS_H
#define ALIDADE_SRC_MATRIX_KERNELS_OPERANDS_H

// How a product is described to whatever forms it, plain loops or the kernels of an instruction set. Operand a supplies
// element (lane, term), operand b element (term, line); a target element (lane, line) receives its terms ascending.

#include <cstddef>

#include "strict_arithmetic.h"

namespace alidade {

// An operand as it is stored; element (row, column) counts from (row0, column0) of the stored matrix.
struct Operand {
  enum Layout {
    kDense,       // at row + column * ld
    kTransposed,  // at column + row * ld: the transpose of a dense matrix
    kPacked,      // symmetric, packed lower triangle
    kDiagonal     // at row = column; the other elements are not stored and make no terms
  };
  Layout layout;
  const double* data;
  std::ptrdiff_t ld = 0;
  std::ptrdiff_t row0 = 0;
  std::ptrdiff_t column0 = 0;
};

inline Operand dense(const double* data, std::ptrdiff_t rows) { return {Operand::kDense, data, rows}; }
// The transpose of a dense matrix that is stored with `rows` rows.
inline Operand transposed(const double* data, std::ptrdiff_t rows) { return {Operand::kTransposed, data, rows}; }
inline Operand packed(const double* data) { return {Operand::kPacked, data}; }
inline Operand diagonal(const double* data) { return {Operand::kDiagonal, data}; }

// The target by lines of contiguous lanes: the columns of a dense matrix, or the rows of a packed lower triangle, of
// which line k has lanes 0 ... k.
struct Target {
  double* data;
  std::ptrdiff_t ld;
  bool triangle;
};

inline Target dense_target(double* data, std::ptrdiff_t rows) { return {data, rows, false}; }
inline Target packed_target(double* data) { return {data, 0, true}; }

// Counts; below 1 there are none.
struct Extent {
  std::ptrdiff_t lanes;
  std::ptrdiff_t lines;
  std::ptrdiff_t terms;
};

// What becomes of the target's old elements, and the sign of every product.
struct Mode {
  bool clear;   // start each sum at +0.0 instead of the element
  bool negate;  // subtract the products
};

// A way to form products. All ways give the same bits. The target overlaps no operand.
struct ProductLoops {
  // target (+)= a b
  void (*product)(const Target& target, const Operand& a, const Operand& b, const Extent& extent, Mode mode);
  // target (+)= (x y) b: a = x y, a sum of `inner` terms, is rounded by itself.
  void (*product_on_left)(const Target& target, const Operand& x, const Operand& y, std::ptrdiff_t inner,
                          const Operand& b, const Extent& extent, Mode mode);
  // target (+)= a (y z): b = y z, a sum of `inner` terms, is rounded by itself.
  void (*product_on_right)(const Target& target, const Operand& a, const Operand& y, std::ptrdiff_t inner,
                           const Operand& z, const Extent& extent, Mode mode);
  // target (+)= a b' + b a', both dense, lanes x terms; the target has as many lines as lanes. The two products of a
  // term are added first.
  void (*symmetrized_product)(const Target& target, const Operand& a, const Operand& b, const Extent& extent,
                              Mode mode);
};

}  // namespace alidade

#endif
