#include <alidade/matrix.h>

#include "matrix/block_transfer.h"
#include "matrix/packed_index.h"
#include "strict_arithmetic.h"

void SMatrAndBlockOper(double* s, int i0, int j0, int n1, int n2, char op, double* buf) {
  alidade::block_transfer_packed(s, i0, j0, n1, n2, op, buf);
}

void SMatrAndSBlockOper(double* s, int k0, int nk, char op, double* buf) {
  alidade::block_transfer_packed_diagonal(s, k0, nk, op, buf);
}

void MatrAndBlockOper(int ld, double* m, int i0, int j0, int n1, int n2, char op, double* buf) {
  alidade::block_transfer_dense(ld, m, i0, j0, n1, n2, op, buf);
}

int LOC1(int i, int j, int n, int m, int ms) {
  static_cast<void>(m);
  return static_cast<int>(alidade::mode_location(i, j, n, ms));
}
