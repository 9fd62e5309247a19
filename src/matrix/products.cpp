#include "matrix/products.h"

#include <alidade/matrix.h>

#include "matrix/plain/plain_kernels.h"
#include "strict_arithmetic.h"

namespace alidade {

void matrix_product(const double* a, const double* b, double* c, int n, int m, int k) {
  plain::matrix_product(a, b, c, n, m, k);
}

void transposed_product(const double* a, const double* b, double* c, int n, int m, int k) {
  plain::transposed_product(a, b, c, n, m, k);
}

void mixed_product(const double* a, const double* b, double* c, int n, int m, int modeA, int modeB, int k) {
  plain::mixed_product(a, b, c, n, m, modeA, modeB, k);
}

void congruence_product(const double* a, const double* q, double* c, int n, int m, char op) {
  plain::congruence_product(a, q, c, n, m, op);
}

void transposed_congruence_vector(double* r, char op, const double* a, const double* q, const double* l, int n, int m) {
  plain::transposed_congruence_vector(r, op, a, q, l, n, m);
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
