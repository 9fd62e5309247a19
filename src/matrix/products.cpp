#include "matrix/products.h"

#include <alidade/matrix.h>

#include <cstdint>

#include "matrix/kernels/kernel_table.h"
#include "matrix/kernels/kernels.h"
#include "matrix/plain/plain_kernels.h"
#include "matrix/products3.h"
#include "strict_arithmetic.h"

namespace alidade {

namespace {

using kernels::Extent;
using kernels::Operand;
using kernels::Preparation;

Operand dense(const double* data, int ld) { return {Operand::kDense, data, ld}; }
Operand transposed(const double* data, int ld) { return {Operand::kTransposed, data, ld}; }
Operand packed(const double* data) { return {Operand::kPacked, data, 0}; }

}  // namespace

void matrix_product(const double* a, const double* b, double* c, int n, int m, int k) {
  if (n == 3 && m == 3 && k == 3) {
    dense_product3(a, b, c);
    return;
  }
  const Extent extent = {n, k, m};
  if (const kernels::KernelTable* fast = kernels::active_for(extent, Preparation::kNothing)) {
    fast->product({c, n, false}, dense(a, n), dense(b, m), extent, {true, false});
  } else {
    plain::matrix_product(a, b, c, n, m, k);
  }
}

void transposed_product(const double* a, const double* b, double* c, int n, int m, int k) {
  const Extent extent = {m, k, n};
  if (const kernels::KernelTable* fast = kernels::active_for(extent, Preparation::kTransposes)) {
    fast->product({c, m, false}, transposed(a, n), dense(b, n), extent, {true, false});
  } else {
    plain::transposed_product(a, b, c, n, m, k);
  }
}

void mixed_product(const double* a, const double* b, double* c, int n, int m, int modeA, int modeB, int k) {
  const Extent extent = {n, k, m};
  const Preparation preparation = modeA == 1   ? Preparation::kMirrors
                                  : modeB == 1 ? Preparation::kCopies
                                               : Preparation::kNothing;
  const kernels::KernelTable* fast = kernels::active_for(extent, preparation);
  const std::int64_t code = std::int64_t{modeA} * 10 + modeB;
  const bool diagonal = modeA > 1 || modeB > 1;
  if (fast == nullptr || (diagonal && code != 0)) {  // diagonal operands are no work for tiles
    plain::mixed_product(a, b, c, n, m, modeA, modeB, k);
    return;
  }
  const Operand left = modeA == 1 && code != 0 ? packed(a) : dense(a, n);
  const Operand right = modeB == 1 && code != 0 ? packed(b) : dense(b, m);
  fast->product({c, n, false}, left, right, extent, {true, false});
}

void congruence_product(const double* a, const double* q, double* c, int n, int m, char op) {
  if (n == 3 && m == 3 && op != '+' && op != '-' && op != '|') {
    congruence_product3(a, q, c);
    return;
  }
  const Extent extent = {n, n, m};
  if (const kernels::KernelTable* fast = kernels::active_for(extent, Preparation::kCopies)) {
    fast->product_of_product({c, 0, true}, dense(a, n), packed(q), m, transposed(a, n), extent,
                             {op != '+' && op != '-', op == '-' || op == '|'});
  } else {
    plain::congruence_product(a, q, c, n, m, op);
  }
}

void transposed_congruence_vector(double* r, char op, const double* a, const double* q, const double* l, int n, int m) {
  if (const kernels::KernelTable* fast = kernels::active_for({m, 1, n}, Preparation::kNothing)) {
    fast->product_of_product({r, m, false}, transposed(a, n), packed(q), n, dense(l, n), Extent{m, 1, n},
                             {op != '+', false});
  } else {
    plain::transposed_congruence_vector(r, op, a, q, l, n, m);
  }
}

}  // namespace alidade

void MatrixProduct(const double* a, const double* b, double* c, int n, int m, int k) {
  alidade::matrix_product(a, b, c, n, m, k);
}

void MAtB(const double* a, const double* b, double* c, int n, int m, int k) {
  alidade::transposed_product(a, b, c, n, m, k);
}

void SMatrProduct(const double* a, const double* b, double* c, int n, int m, int modeA, int modeB, int k) {
  alidade::mixed_product(a, b, c, n, m, modeA, modeB, k);
}

void SMatrProductAQAt(const double* a, const double* q, double* c, int n, int m, char op) {
  alidade::congruence_product(a, q, c, n, m, op);
}

void MRAtQL(double* r, char op, const double* a, const double* q, const double* l, int n, int m) {
  alidade::transposed_congruence_vector(r, op, a, q, l, n, m);
}
