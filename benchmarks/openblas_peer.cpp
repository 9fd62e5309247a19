// OpenBLAS and the LAPACK in it.

#include <cstddef>
#include <vector>

#include "peers.h"

extern "C" {
void dgemm_(const char*, const char*, const int*, const int*, const int*, const double*, const double*, const int*,
            const double*, const int*, const double*, double*, const int*);
void dsymm_(const char*, const char*, const int*, const int*, const double*, const double*, const int*, const double*,
            const int*, const double*, double*, const int*);
void dsyrk_(const char*, const char*, const int*, const int*, const double*, const double*, const int*, const double*,
            double*, const int*);
void dsyr2k_(const char*, const char*, const int*, const int*, const double*, const double*, const int*, const double*,
             const int*, const double*, double*, const int*);
void dpotrf_(const char*, const int*, double*, const int*, int*);
void dpotri_(const char*, const int*, double*, const int*, int*);
void dpptrf_(const char*, const int*, double*, int*);
void dpptri_(const char*, const int*, double*, int*);
}

namespace {

const double kOne = 1.0;
const double kZero = 0.0;

// Room for a product on the way, kept between calls.
double* workspace(int rows, int columns) {
  static std::vector<double> values;
  const std::size_t size = static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns);
  if (values.size() < size) {
    values.resize(size);
  }
  return values.data();
}

void gemm(const char* ta, const char* tb, const double* a, int lda, const double* b, int ldb, double* c, int n, int m,
          int k) {
  dgemm_(ta, tb, &n, &k, &m, &kOne, a, &lda, b, &ldb, &kZero, c, &n);
}

void product(const double* a, const double* b, double* c, int n, int m, int k) {
  gemm("N", "N", a, n, b, m, c, n, m, k);
}
void transposed_product(const double* a, const double* b, double* c, int n, int m, int k) {
  gemm("T", "N", a, m, b, m, c, n, m, k);
}
void product_transposed(const double* a, const double* b, double* c, int n, int m, int k) {
  gemm("N", "T", a, n, b, k, c, n, m, k);
}
void symmetric_dense(const double* s, const double* b, double* c, int n, int k) {
  dsymm_("L", "L", &n, &k, &kOne, s, &n, b, &n, &kZero, c, &n);
}
void dense_symmetric(const double* a, const double* s, double* c, int n, int m) {
  dsymm_("R", "L", &n, &m, &kOne, s, &m, a, &n, &kZero, c, &n);
}
void congruence(const double* a, const double* q, double* c, int n, int m) {
  double* t = workspace(n, m);
  dense_symmetric(a, q, t, n, m);
  gemm("N", "T", t, n, a, n, c, n, m, n);  // it has no product that forms one triangle
}
void transposed_congruence(const double* a, const double* q, double* c, int n, int m) {
  double* t = workspace(m, n);
  symmetric_dense(q, a, t, m, n);
  gemm("T", "N", a, m, t, m, c, n, m, n);
}
void gram(const double* a, double* c, int n, int m) { dsyrk_("L", "T", &n, &m, &kOne, a, &m, &kZero, c, &n); }
void symmetrized_product(const double* a, const double* b, double* c, int n, int m) {
  dsyr2k_("L", "N", &n, &m, &kOne, a, &n, b, &n, &kZero, c, &n);
}
void symmetric_product(const double* s1, const double* s2, double* c, int n) {
  gemm("N", "N", s1, n, s2, n, c, n, n, n);
}
void dense_symmetric_transposed(const double* a, const double* s, const double* b, double* c, int n, int m, int k) {
  double* t = workspace(n, m);
  dense_symmetric(a, s, t, n, m);
  product_transposed(t, b, c, n, m, k);
}
void dense_dense_transposed(const double* a, const double* s, const double* b, double* c, int n, int m, int k) {
  double* t = workspace(n, m);
  product(a, s, t, n, m, m);
  product_transposed(t, b, c, n, m, k);
}
bool invert(double* a, int n) {
  int failed = 0;
  dpotrf_("L", &n, a, &n, &failed);
  if (failed == 0) {
    dpotri_("L", &n, a, &n, &failed);
  }
  return failed == 0;
}

}  // namespace

namespace peers {

const MatrixPeer openblas = {"OpenBLAS",
                             product,
                             transposed_product,
                             product_transposed,
                             congruence,
                             transposed_congruence,
                             gram,
                             symmetrized_product,
                             symmetric_product,
                             symmetric_dense,
                             dense_symmetric,
                             dense_symmetric_transposed,
                             dense_dense_transposed,
                             invert};

// The upper triangle by columns is the lower one by rows.
bool invert_packed(double* a, int n) {
  int failed = 0;
  dpptrf_("U", &n, a, &failed);
  if (failed == 0) {
    dpptri_("U", &n, a, &failed);
  }
  return failed == 0;
}

}  // namespace peers
