#include "matrix/plain/plain_inversion.h"

#include <algorithm>
#include <cstddef>
#include <memory>

#include "matrix/inversion_progress.h"
#include "matrix/packed_index.h"
#include "matrix/plain/ordered_sums.h"
#include "square_root.h"
#include "strict_arithmetic.h"

namespace alidade::plain {
namespace {

// Room for `count` elements; on the stack where that is little, for the heap costs as much as a small inversion.
template <typename T>
class WorkArray {
public:
  explicit WorkArray(std::ptrdiff_t count) : heap_(count > kFew ? new T[static_cast<std::size_t>(count)] : nullptr) {}
  T* data() { return heap_ ? heap_.get() : few_; }

private:
  static constexpr std::ptrdiff_t kFew = 32;
  T few_[kFew];
  std::unique_ptr<T[]> heap_;
};

// The nonzero factor entries left of the pivot of the row in hand: column and value.
struct Entry {
  std::ptrdiff_t column;
  double value;
};

struct Entries {
  const Entry* begin_;
  const Entry* end_;
  const Entry* begin() const { return begin_; }
  const Entry* end() const { return end_; }
};

Entries collect_nonzeros(const double* row, std::ptrdiff_t n, Entry* entries) {
  Entry* end = entries;
  for (std::ptrdiff_t j = 0; j < n; ++j) {
    if (row[j] != 0.0) {
      *end++ = {j, row[j]};
    }
  }
  return {entries, end};
}

// Column k of the factor below the pivot. An entry that starts as zero and meets no pair of nonzeros is structurally
// zero and becomes exactly 0.0: neither a negative zero nor the zero of an infinite reciprocal survives.
void finish_factor_column(double* matrix, std::ptrdiff_t n, std::ptrdiff_t k, double reciprocal,
                          const Entries& row_entries) {
  for (std::ptrdiff_t i = k + 1; i < n; ++i) {
    double* row = matrix + packed_size(i);
    double work = row[k];
    bool nonzero = work != 0.0;
    for (const Entry& entry : row_entries) {
      const double factor = row[entry.column];
      if (factor != 0.0) {
        work -= factor * entry.value;
        nonzero = true;
      }
    }
    row[k] = nonzero ? reciprocal * work : 0.0;
  }
}

}  // namespace

// N = L L', column by column, each from the finished ones to its left. Row i of the packed triangle holds what column k
// needs of it, so the sums run along rows. The diagonal keeps 1 / l(k, k).
int factorise(double* matrix, std::ptrdiff_t n, std::ptrdiff_t first, const InversionProgress& progress) {
  WorkArray<Entry> work(n);
  for (std::ptrdiff_t k = first; k < n; ++k) {
    progress.start_factor_row(k + 1);
    double* row = matrix + packed_size(k);
    const Entries entries = collect_nonzeros(row, k, work.data());
    double pivot = row[k];
    for (const Entry& entry : entries) {
      pivot -= entry.value * entry.value;
    }
    if (!(pivot > 0.0)) {  // so written that a NaN fails, too
      return static_cast<int>(k) + 1;
    }
    const double reciprocal = 1.0 / square_root(pivot);
    row[k] = reciprocal;
    finish_factor_column(matrix, n, k, reciprocal, entries);
  }
  return 0;
}

// X = inverse of L, row by row in place: row k is a combination of the rows above it.
void invert_factor(double* matrix, std::ptrdiff_t first, std::ptrdiff_t end, const InversionProgress& progress) {
  WorkArray<double> work(end);
  for (std::ptrdiff_t k = std::max<std::ptrdiff_t>(first, 1); k < end; ++k) {
    progress.start_inverse_row(k + 1);
    double* row = matrix + packed_size(k);
    clear(work.data(), k);
    for (std::ptrdiff_t j = 0; j < k; ++j) {
      if (row[j] != 0.0) {
        add_scaled<false>(work.data(), matrix + packed_size(j), -row[k] * row[j], j + 1);
      }
    }
    std::copy_n(work.data(), k, row);
  }
}

// X' X in place: row m of X is used up by the outer product that it adds to the rows above, then scaled into the
// first contribution to its own row.
void multiply_by_transpose(double* matrix, std::ptrdiff_t n, const InversionProgress& progress) {
  for (std::ptrdiff_t m = 0; m < n; ++m) {
    double* row = matrix + packed_size(m);
    for (std::ptrdiff_t p = 0; p < m; ++p) {
      if (row[p] != 0.0) {
        add_scaled<false>(matrix + packed_size(p), row, row[p], p + 1);
      }
    }
    const double diagonal = row[m];
    for (std::ptrdiff_t j = 0; j <= m; ++j) {
      row[j] *= diagonal;
    }
    progress.finish_product_row(m + 1);
  }
}

int invert_normal_matrix(double* packed, std::ptrdiff_t n, const InversionProgress& progress) {
  const int failed = factorise(packed, n, 0, progress);
  if (failed != 0) {
    return failed;
  }
  invert_factor(packed, 0, n, progress);
  multiply_by_transpose(packed, n, progress);
  return 0;
}

}  // namespace alidade::plain
