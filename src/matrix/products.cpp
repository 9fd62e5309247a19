// The exported products on bare buffers.

#include "matrix/products.h"

#include <alidade/matrix.h>

#include <cstddef>
#include <cstdint>

#include "matrix/multiply.h"
#include "matrix/products3.h"
#include "strict_arithmetic.h"

namespace alidade {
namespace {

Operand operand(const double* data, int mode, int rows) {
  return mode < 1 ? dense(data, rows) : mode == 1 ? packed(data) : diagonal(data);
}

}  // namespace

void congruence_product(const double* a, const double* q, double* c, int n, int m, char op) {
  const Mode mode = {op != '+' && op != '-', op == '-' || op == '|'};
  if (n == 3 && m == 3 && mode.clear && !mode.negate) {
    congruence_product3(a, q, c);
    return;
  }
  multiply_on_left(packed_target(c), dense(a, n), packed(q), m, transposed(a, n), {n, n, m}, mode);
}

}  // namespace alidade

using namespace alidade;

void MatrixProduct(const double* a, const double* b, double* c, int n, int m, int k) {
  if (n == 3 && m == 3 && k == 3) {
    dense_product3(a, b, c);
    return;
  }
  multiply(dense_target(c, n), dense(a, n), dense(b, m), {n, k, m}, {true, false});
}

void MAtB(const double* a, const double* b, double* c, int n, int m, int k) {
  multiply(dense_target(c, m), transposed(a, n), dense(b, n), {m, k, n}, {true, false});
}

// The sum of the two digits decides, whatever the modes: (3, 3) is no product of diagonals here, (1, 12) is one.
void SMatrProduct(const double* a, const double* b, double* c, int n, int m, int modeA, int modeB, int k) {
  const std::int64_t code = std::int64_t{modeA} * 10 + modeB;
  if (code == 22) {
    for (std::ptrdiff_t i = 0; i < n; ++i) {
      c[i] = a[i] * b[i];
    }
    return;
  }
  multiply(dense_target(c, n), operand(a, code == 0 ? 0 : modeA, n), operand(b, code == 0 ? 0 : modeB, m), {n, k, m},
           {true, false});
}

void SMatrProductAQAt(const double* a, const double* q, double* c, int n, int m, char op) {
  congruence_product(a, q, c, n, m, op);
}

void MRAtQL(double* r, char op, const double* a, const double* q, const double* l, int n, int m) {
  multiply_on_left(dense_target(r, m), transposed(a, n), packed(q), n, dense(l, n), {m, 1, n}, {op != '+', false});
}
