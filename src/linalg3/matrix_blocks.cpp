#include <alidade/linalg3.h>
#include <alidade/matrix.h>

#include "matrix/block_transfer.h"
#include "strict_arithmetic.h"

// Between the matrices of any order and those of order three. It all stands here, the members of the large matrices
// too: so src/matrix knows nothing of this folder.

// The transfer fills all elements.
covar::covar(TSMatrix& S, int k) {  // NOLINT(cppcoreguidelines-pro-type-member-init)
  alidade::block_transfer_packed_diagonal(S, k, 3, '>', v_);
}

matr3_3::matr3_3(TSMatrix& S, int r, int c) { alidade::block_transfer_packed(S, r, c, 3, 3, '>', m_); }

matr3_3::matr3_3(TMatrix& T, int r, int c) { alidade::block_transfer_dense(T.GetN1(), T, r, c, 3, 3, '>', m_); }

void TSMatrix::BlockOper(int i0, int j0, char op, matr3_3& M) {
  alidade::block_transfer_packed(data_, i0, j0, 3, 3, op, M);
}

void TSMatrix::BlockOper(int i0, char op, covar& V) { alidade::block_transfer_packed_diagonal(data_, i0, 3, op, V); }

void TMatrix::SubMatrix(int i0, int j0, char op, matr3_3& M) {
  alidade::block_transfer_dense(n1_, data_, i0, j0, 3, 3, op, M);
}
