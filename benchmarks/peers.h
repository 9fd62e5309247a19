#ifndef ALIDADE_BENCHMARKS_PEERS_H
#define ALIDADE_BENCHMARKS_PEERS_H

// What a user might take instead for the matrix kernels. All matrices are dense and column by column; of a symmetric
// operand both triangles hold values, of a symmetric result the lower one is asked for.

namespace peers {

struct MatrixPeer {
  const char* name;
  // C(n x k) = A(n x m) B(m x k), with A or B given transposed.
  void (*product)(const double* a, const double* b, double* c, int n, int m, int k);
  void (*transposed_product)(const double* a, const double* b, double* c, int n, int m, int k);  // A is m x n
  void (*product_transposed)(const double* a, const double* b, double* c, int n, int m, int k);  // B is k x m
  // C(n x n) = A Q A', A(n x m); and the same with A(m x n) given transposed.
  void (*congruence)(const double* a, const double* q, double* c, int n, int m);
  void (*transposed_congruence)(const double* a, const double* q, double* c, int n, int m);
  void (*gram)(const double* a, double* c, int n, int m);                                  // A'A, A(m x n)
  void (*symmetrized_product)(const double* a, const double* b, double* c, int n, int m);  // AB' + BA', n x m
  void (*symmetric_product)(const double* s1, const double* s2, double* c, int n);
  void (*symmetric_dense)(const double* s, const double* b, double* c, int n, int k);
  void (*dense_symmetric)(const double* a, const double* s, double* c, int n, int m);
  // C(n x k) = A(n x m) S B', B(k x m), S symmetric or not.
  void (*dense_symmetric_transposed)(const double* a, const double* s, const double* b, double* c, int n, int m, int k);
  void (*dense_dense_transposed)(const double* a, const double* s, const double* b, double* c, int n, int m, int k);
  // The lower triangle of the inverse in place; false when there is none.
  bool (*invert)(double* a, int n);
};

extern const MatrixPeer eigen_default;
extern const MatrixPeer eigen_native;
extern const MatrixPeer openblas;

bool invert_packed(double* a, int n);  // dpptrf and dpptri

}  // namespace peers

#endif
