#include <alidade/matrix.h>

#include <algorithm>
#include <cstddef>

#include "matrix/block_transfer.h"
#include "matrix/packed_index.h"
#include "strict_arithmetic.h"

namespace {

// Room for one element at least, so that an empty matrix has an address of its own.
double* allocate(std::ptrdiff_t count) {
  return new double[static_cast<std::size_t>(std::max<std::ptrdiff_t>(count, 1))];
}

// Number of elements in use. SetDim1 takes any dimension below the initial one, negative ones too; their formula must
// not lead out of the allocation.
std::ptrdiff_t active_size(int dim1, int init_dim1) {
  return std::min(alidade::packed_size(dim1), alidade::packed_size(init_dim1));
}

}  // namespace

TSMatrix::TSMatrix(int n, int noClear)
    : owner_(true), dim1_(n), init_dim1_(n), data_(allocate(alidade::packed_size(n))) {
  if (noClear == 0) {
    std::fill_n(data_, alidade::packed_size(n), 0.0);
  }
}

TSMatrix::TSMatrix(double* p, int n) : owner_(false), dim1_(n), init_dim1_(n), data_(p) {}

TSMatrix::TSMatrix(TSMatrix& src)
    : owner_(true),
      dim1_(src.dim1_),
      init_dim1_(src.init_dim1_),
      data_(allocate(alidade::packed_size(src.init_dim1_))) {
  // The whole triangle, not only its active part: ResetDim1 must bring back the rest.
  std::copy_n(src.data_, alidade::packed_size(init_dim1_), data_);
}

TSMatrix::~TSMatrix() {
  if (owner_) {
    delete[] data_;
  }
}

// Shallow on purpose: the four fields as they stand.
TSMatrix& TSMatrix::operator=(const TSMatrix& o) = default;

TSMatrix& TSMatrix::operator=(int v) {
  if (v == 0) {
    std::fill_n(data_, active_size(dim1_, init_dim1_), 0.0);
  }
  return *this;
}

int TSMatrix::LinearIndex(int i, int j) { return static_cast<int>(alidade::packed_index(i, j)); }

int TSMatrix::GetDimension() const { return static_cast<int>(alidade::packed_size(dim1_)); }

void TSMatrix::SetDim1(int d) {
  if (d <= init_dim1_) {
    dim1_ = d;
  }
}

void TSMatrix::ResetDim1() { dim1_ = init_dim1_; }

TSMatrix& TSMatrix::operator*=(double f) {
  const std::ptrdiff_t count = active_size(dim1_, init_dim1_);
  for (std::ptrdiff_t k = 0; k < count; ++k) {
    data_[k] *= f;
  }
  return *this;
}

void TSMatrix::BlockOper(int i0, int j0, int n1, int n2, char op, double* buf) {
  alidade::block_transfer_packed(data_, i0, j0, n1, n2, op, buf);
}

void TSMatrix::BlockOper(int i0, int j0, char op, TMatrix& M) {
  alidade::block_transfer_packed(data_, i0, j0, M.GetN1(), M.GetN2(), op, M);
}

void TSMatrix::BlockOper(int i0, int n, char op, double* buf) {
  alidade::block_transfer_packed_diagonal(data_, i0, n, op, buf);
}

void TSMatrix::BlockOper(int i0, char op, TSMatrix& T) {
  alidade::block_transfer_packed_diagonal(data_, i0, T.dim1_, op, T.data_);
}
