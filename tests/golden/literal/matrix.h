#ifndef ALIDADE_TESTS_GOLDEN_LITERAL_MATRIX_H
#define ALIDADE_TESTS_GOLDEN_LITERAL_MATRIX_H

#include <algorithm>
#include <memory>
#include <vector>

#include "golden/literal/linalg3.h"
#include "reference/inversion.h"
#include "reference/operators.h"
#include "reference/products.h"

constexpr auto MatrixProduct = reference::matrix_product;
constexpr auto MAtB = reference::transposed_product;
constexpr auto SMatrProduct = reference::mixed_product;
constexpr auto SMatrProductAQAt = reference::congruence_product;
constexpr auto MRAtQL = reference::transposed_congruence_vector;
constexpr auto SMatrAndBlockOper = reference::packed_block;
constexpr auto SMatrAndSBlockOper = reference::packed_diagonal_block;
constexpr auto MatrAndBlockOper = reference::dense_block;

inline int LOC1(int i, int j, int n, int /*m*/, int ms) { return static_cast<int>(reference::locate(i, j, n, ms)); }

// The bases find the operators, which bear the same names in the reference.
struct TMatrix : reference::Dense {
  TMatrix(double* p, int rows, int cols) : reference::Dense{p, rows, cols} {}
  TMatrix(int rows, int cols, int /*no_clear*/) : TMatrix(nullptr, rows, cols) {
    capacity_ = std::max(rows * cols, 1);
    owned_.resize(static_cast<std::size_t>(capacity_));
    data = owned_.data();
  }
  TMatrix(TMatrix& o) : TMatrix(o.n1, o.n2, 0) { std::copy_n(o.data, GetDimension(), data); }
  void operator=(int value) { std::fill_n(data, value == 0 ? GetDimension() : 0, 0.0); }
  void operator*=(double f) { reference::multiply_all(data, GetDimension(), f); }
  operator const double*() const { return data; }

  int GetN1() const { return n1; }
  int GetN2() const { return n2; }
  int GetDimension() const { return n1 * n2; }
  int Index(int i, int j) const { return i + j * n1; }
  void SetDimension(int rows, int cols) {
    reference::Shape shape{n1, n2, capacity_};
    reference::set_dimension(shape, rows, cols);
    n1 = shape.n1;
    n2 = shape.n2;
  }
  void SubMatrix(int i0, int j0, int rows, int cols, char op, double* buffer) {
    reference::dense_block(n1, data, i0, j0, rows, cols, op, buffer);
  }
  void SubMatrix(int i0, int j0, char op, TMatrix& m) { SubMatrix(i0, j0, m.n1, m.n2, op, m.data); }
  void SubMatrix(int i0, int j0, char op, matr3_3& m) { SubMatrix(i0, j0, 3, 3, op, m.v); }

private:
  int capacity_ = 0;
  std::vector<double> owned_;
};

struct TSMatrix : reference::Packed {
  TSMatrix(double* p, int rows) : reference::Packed{p, rows}, rows_(rows) {}
  TSMatrix(int rows, int /*no_clear*/) : TSMatrix(nullptr, rows) {
    owned_.resize(static_cast<std::size_t>(GetDimension()));
    data = owned_.data();
  }
  TSMatrix(TSMatrix& o) : TSMatrix(o.rows_, 0) {
    std::copy_n(o.data, GetDimension(), data);
    order = o.order;
  }
  void operator=(int value) { std::fill_n(data, value == 0 ? GetDimension() : 0, 0.0); }
  void operator*=(double f) { reference::multiply_all(data, GetDimension(), f); }
  operator const double*() const { return data; }

  // The locator of the symmetric mode counts from 1.
  static int LinearIndex(int i, int j) { return static_cast<int>(reference::locate(i + 1, j + 1, 0, 1) - 1); }
  int GetDim1() const { return order; }
  int GetInitDim1() const { return rows_; }
  int GetDimension() const { return order * (order + 1) / 2; }
  void SetDim1(int rows) { order = std::min(rows, rows_); }
  void ResetDim1() { order = rows_; }

  void BlockOper(int i0, int j0, int n1, int n2, char op, double* buffer) {
    reference::packed_block(data, i0, j0, n1, n2, op, buffer);
  }
  void BlockOper(int i0, int j0, char op, TMatrix& m) { BlockOper(i0, j0, m.n1, m.n2, op, m.data); }
  void BlockOper(int i0, int j0, char op, matr3_3& m) { BlockOper(i0, j0, 3, 3, op, m.v); }
  void BlockOper(int i0, int n, char op, double* buffer) { reference::packed_diagonal_block(data, i0, n, op, buffer); }
  void BlockOper(int i0, char op, TSMatrix& m) { BlockOper(i0, m.order, op, m.data); }
  void BlockOper(int i0, char op, covar& m) { BlockOper(i0, 3, op, m.v); }

  // The members pass fixed arguments to the kernels, whatever operation code they are given.
  void A_This_At(const double* a, TSMatrix& r) const {
    reference::congruence_product(a, data, r.data, r.order, order, '\0');
  }
  void MatrProduct(const double* b, char /*op*/, double* p) const {
    reference::mixed_product(data, b, p, order, order, 1, 0, 1);
  }
  void MatrProduct(const TMatrix& b, char /*op*/, TMatrix& p) const {
    reference::mixed_product(data, b.data, p.data, order, order, 1, 0, b.n2);
  }

private:
  int rows_;
  std::vector<double> owned_;
};

inline covar::covar(TSMatrix& s, int k) { s.BlockOper(k, '>', *this); }
inline matr3_3::matr3_3(TSMatrix& s, int i, int j) { s.BlockOper(i, j, '>', *this); }
inline matr3_3::matr3_3(TMatrix& t, int i, int j) { t.SubMatrix(i, j, '>', *this); }

inline int RareInversion(TSMatrix& m, int* progress, int span) {
  return reference::rare_inversion(m.data, m.order, progress, span);
}
inline int PseudoInversion(TSMatrix& m, int defect) { return reference::pseudo_inversion(m.data, m.order, defect); }

#endif
