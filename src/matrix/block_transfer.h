#ifndef ALIDADE_SRC_MATRIX_BLOCK_TRANSFER_H
#define ALIDADE_SRC_MATRIX_BLOCK_TRANSFER_H

// Element by element between a block of a matrix and a caller's buffer. Codes: '+' and '-' add the buffer to the matrix
// and subtract it, '=' copies into the matrix, '>' out of it, '0' clears the block (the buffer may be null); any other
// code does nothing. Indices count from zero. The exported functions and the members of the matrix classes
// stand on these.

namespace alidade {

// Rows i0 ... i0 + n1 - 1 and columns j0 ... j0 + n2 - 1 of a packed matrix; the buffer is dense, n1 by n2, and is
// walked in sequence. Across the diagonal an element and its mirror are one: it is reached twice.
void block_transfer_packed(double* s, int i0, int j0, int n1, int n2, char op, double* buf);

// The diagonal block of order n from (k0, k0) on; the buffer is a packed triangle of order n.
void block_transfer_packed_diagonal(double* s, int k0, int n, char op, double* buf);

// Rows i0 ... and columns j0 ... of a dense matrix with `rows` rows; the buffer is dense, n1 by n2.
void block_transfer_dense(int rows, double* m, int i0, int j0, int n1, int n2, char op, double* buf);

}  // namespace alidade

#endif
