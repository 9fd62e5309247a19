#include <alidade/matrix.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "matrix/block_transfer.h"
#include "matrix/packed_index.h"
#include "strict_arithmetic.h"

namespace {

// Room for one element at least, so that an empty matrix has an address of its own.
double* allocate(std::ptrdiff_t count) {
  return new double[static_cast<std::size_t>(std::max<std::ptrdiff_t>(count, 1))];
}

// A capacity above 2^31 - 1 needs more than its int: the rest stands before it. 48 bits are enough for 1 PiB.
std::int64_t capacity_of(std::int64_t n1, std::int64_t n2) {
  constexpr std::int64_t kLargest = (std::int64_t{1} << 47) - 1;
  return std::clamp(n1 * n2, -kLargest, kLargest);
}
// What an own array has room for.
std::int64_t room_of(int n1, int n2) { return std::max<std::int64_t>(capacity_of(n1, n2), 1); }

short high_part(std::int64_t capacity) { return static_cast<short>(capacity >> 32); }
int low_part(std::int64_t capacity) { return static_cast<int>(static_cast<std::uint32_t>(capacity)); }
std::int64_t whole(short high, int low) { return high * (std::int64_t{1} << 32) + static_cast<std::uint32_t>(low); }

}  // namespace

TMatrix::TMatrix(int n1, int n2, int noClear)
    : owner_(true),
      capacity_high_(high_part(room_of(n1, n2))),
      capacity_(low_part(room_of(n1, n2))),
      n1_(n1),
      n2_(n2),
      data_(allocate(alidade::dense_size(n1, n2))) {
  if (noClear == 0) {
    *this = 0;
  }
}

TMatrix::TMatrix(double* p, int n1, int n2)
    : owner_(false),
      capacity_high_(high_part(capacity_of(n1, n2))),
      capacity_(low_part(capacity_of(n1, n2))),
      n1_(n1),
      n2_(n2),
      data_(p) {}

TMatrix::TMatrix(TMatrix& src)
    : owner_(true),
      capacity_high_(high_part(room_of(src.n1_, src.n2_))),
      capacity_(low_part(room_of(src.n1_, src.n2_))),
      n1_(src.n1_),
      n2_(src.n2_),
      data_(allocate(alidade::dense_size(src.n1_, src.n2_))) {
  std::copy_n(src.data_, alidade::dense_size(n1_, n2_), data_);
}

TMatrix::~TMatrix() {
  if (owner_) {
    delete[] data_;
  }
}

// Shallow on purpose: the fields as they stand.
TMatrix& TMatrix::operator=(const TMatrix& o) = default;

TMatrix& TMatrix::operator=(int v) {
  if (v == 0) {
    std::fill_n(data_, alidade::dense_size(n1_, n2_), 0.0);
  }
  return *this;
}

int TMatrix::GetDimension() const { return static_cast<int>(alidade::dense_size(n1_, n2_)); }

void TMatrix::SetDimension(int n1, int n2) {
  if (n1 == -1 && n2 <= n2_) {
    return;
  }
  if (n2 < 0) {
    if (n1 <= n1_) {
      n1_ = n1;
    }
    return;
  }
  if (static_cast<std::int64_t>(n1) * n2 <= whole(capacity_high_, capacity_)) {
    n1_ = n1;
    n2_ = n2;
  }
}

TMatrix& TMatrix::operator*=(double f) {
  const std::ptrdiff_t count = alidade::dense_size(n1_, n2_);
  for (std::ptrdiff_t k = 0; k < count; ++k) {
    data_[k] *= f;
  }
  return *this;
}

void TMatrix::SubMatrix(int i0, int j0, int n1, int n2, char op, double* buf) {
  alidade::block_transfer_dense(n1_, data_, i0, j0, n1, n2, op, buf);
}

void TMatrix::SubMatrix(int i0, int j0, char op, TMatrix& M) {
  alidade::block_transfer_dense(n1_, data_, i0, j0, M.n1_, M.n2_, op, M.data_);
}
