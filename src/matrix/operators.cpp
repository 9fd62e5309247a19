#include "matrix/operators.h"

#include <algorithm>

#include "matrix/kernels/kernel_table.h"
#include "matrix/kernels/kernels.h"
#include "matrix/packed_index.h"
#include "matrix/plain/plain_kernels.h"
#include "strict_arithmetic.h"

namespace alidade {

namespace {

using kernels::Extent;
using kernels::Mode;
using kernels::Operand;
using kernels::Preparation;

Operand dense(const double* data, int ld) { return {Operand::kDense, data, ld}; }
Operand transposed(const double* data, int ld) { return {Operand::kTransposed, data, ld}; }
Operand packed(const double* data) { return {Operand::kPacked, data, 0}; }

bool clears(char op) { return op == '=' || op == '|'; }
bool subtracts(char op) { return op == '-' || op == '|'; }

// Dense operands are used as they lie, but the sign of a product is changed in a copy.
Preparation negated(char op) { return subtracts(op) ? Preparation::kCopies : Preparation::kNothing; }

// A target that is cleared by its own size and not by that of the product: zeros first, then the product is added.
Mode clear_whole(double* t, std::ptrdiff_t size, char op) {
  if (clears(op)) {
    std::fill_n(t, std::max<std::ptrdiff_t>(size, 0), 0.0);
  }
  return {false, subtracts(op)};
}
Mode clear_whole_packed(double* t, int order, char op) {
  return clear_whole(t, order > 0 ? packed_size(order) : 0, op);
}
Mode clear_whole_dense(double* t, int rows, int columns, char op) {
  return clear_whole(t, rows > 0 && columns > 0 ? dense_size(rows, columns) : 0, op);
}

// A target of which only the product's extent is cleared.
Mode clear_extent(char op) { return {clears(op), subtracts(op)}; }

}  // namespace

void op_transposed_congruence(double* t, int t_order, char op, const double* r, int a, int b, const double* s) {
  const Extent extent = {b, b, a};
  if (const kernels::KernelTable* fast = kernels::active_for(extent, Preparation::kCopies)) {
    fast->transposed_congruence(t, r, s, a, b, clear_whole_packed(t, t_order, op));
  } else {
    plain::op_transposed_congruence(t, t_order, op, r, a, b, s);
  }
}

void op_gram(double* t, int t_order, char op, const double* r, int a, int b) {
  const Extent extent = {b, b, a};
  if (const kernels::KernelTable* fast = kernels::active_for(extent, Preparation::kTransposes)) {
    fast->product({t, 0, true}, transposed(r, a), dense(r, a), extent, clear_whole_packed(t, t_order, op));
  } else {
    plain::op_gram(t, t_order, op, r, a, b);
  }
}

void op_symmetrized_product(double* t, int t_order, char op, const double* a, const double* b, int rows, int cols) {
  const Extent extent = {rows, rows, cols};
  if (const kernels::KernelTable* fast = kernels::active_for(extent, Preparation::kTwoCopies)) {
    fast->symmetrized_product(t, a, b, rows, cols, clear_whole_packed(t, t_order, op));
  } else {
    plain::op_symmetrized_product(t, t_order, op, a, b, rows, cols);
  }
}

void op_symmetric_product(double* t, int t_order, char op, const double* s1, const double* s2, int n) {
  const Extent extent = {n, n, n};
  if (const kernels::KernelTable* fast = kernels::active_for(extent, Preparation::kTransposes)) {
    fast->product({t, 0, true}, packed(s2), packed(s1), extent, clear_whole_packed(t, t_order, op));
  } else {
    plain::op_symmetric_product(t, t_order, op, s1, s2, n);
  }
}

void op_symmetric_dense(double* t, int t_rows, int t_cols, char op, const double* s, const double* r, int a, int b) {
  const Extent extent = {a, b, a};
  if (const kernels::KernelTable* fast = kernels::active_for(extent, Preparation::kMirrors)) {
    fast->product({t, t_rows, false}, packed(s), dense(r, a), extent, clear_whole_dense(t, t_rows, t_cols, op));
  } else {
    plain::op_symmetric_dense(t, t_rows, t_cols, op, s, r, a, b);
  }
}

void op_dense_symmetric(double* t, int t_rows, int t_cols, char op, const double* r, int a, int b, const double* s) {
  const Extent extent = {a, b, b};
  if (const kernels::KernelTable* fast = kernels::active_for(extent, Preparation::kCopies)) {
    fast->product({t, t_rows, false}, dense(r, a), packed(s), extent, clear_whole_dense(t, t_rows, t_cols, op));
  } else {
    plain::op_dense_symmetric(t, t_rows, t_cols, op, r, a, b, s);
  }
}

void op_transposed_dense(double* t, int t_rows, int t_cols, char op, const double* r1, int a, int b, const double* r2,
                         int r2_rows, int c) {
  const Extent extent = {b, c, a};
  if (const kernels::KernelTable* fast = kernels::active_for(extent, Preparation::kTransposes)) {
    fast->product({t, t_rows, false}, transposed(r1, a), dense(r2, r2_rows), extent,
                  clear_whole_dense(t, t_rows, t_cols, op));
  } else {
    plain::op_transposed_dense(t, t_rows, t_cols, op, r1, a, b, r2, r2_rows, c);
  }
}

void op_dense_dense(double* t, char op, const double* r1, int a, int b, const double* r2, int r2_rows, int c) {
  const Extent extent = {a, c, b};
  if (const kernels::KernelTable* fast = kernels::active_for(extent, negated(op))) {
    fast->product({t, a, false}, dense(r1, a), dense(r2, r2_rows), extent, clear_extent(op));
  } else {
    plain::op_dense_dense(t, op, r1, a, b, r2, r2_rows, c);
  }
}

void op_dense_transposed(double* t, char op, const double* r1, int a, const double* r2, int c, int b) {
  const Extent extent = {a, c, b};
  if (const kernels::KernelTable* fast = kernels::active_for(extent, negated(op))) {
    fast->product({t, a, false}, dense(r1, a), transposed(r2, c), extent, clear_extent(op));
  } else {
    plain::op_dense_transposed(t, op, r1, a, r2, c, b);
  }
}

void op_dense_symmetric_transposed(double* t, char op, const double* r1, int a, const double* s, const double* r2,
                                   int c, int b) {
  const Extent extent = {a, c, b};
  if (const kernels::KernelTable* fast = kernels::active_for(extent, Preparation::kCopies)) {
    fast->product_of_product({t, a, false}, dense(r1, a), packed(s), b, transposed(r2, c), extent, clear_extent(op));
  } else {
    plain::op_dense_symmetric_transposed(t, op, r1, a, s, r2, c, b);
  }
}

void op_dense_dense_transposed(double* t, char op, const double* r1, int a, const double* r2, int b, const double* r3,
                               int d, int c) {
  const Extent extent = {a, d, c};
  if (const kernels::KernelTable* fast = kernels::active_for(extent, Preparation::kNothing)) {
    fast->product_of_product({t, a, false}, dense(r1, a), dense(r2, b), b, transposed(r3, d), extent, clear_extent(op));
  } else {
    plain::op_dense_dense_transposed(t, op, r1, a, r2, b, r3, d, c);
  }
}

}  // namespace alidade
