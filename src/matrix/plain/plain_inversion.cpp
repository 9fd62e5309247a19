#include "matrix/plain/plain_inversion.h"

#include <algorithm>
#include <cstddef>

#include "matrix/inversion_progress.h"
#include "matrix/inversion_work.h"
#include "matrix/packed_index.h"
#include "matrix/plain/ordered_sums.h"
#include "square_root.h"
#include "strict_arithmetic.h"

namespace alidade::plain {
namespace {

// The nonzero factor entries left of the pivot of the row in hand: columns and values.
struct Entries {
  const std::ptrdiff_t* columns;
  const double* values;
  std::ptrdiff_t count;
};

Entries collect_nonzeros(const double* row, std::ptrdiff_t n, const InversionWork& work) {
  std::ptrdiff_t count = 0;
  for (std::ptrdiff_t j = 0; j < n; ++j) {
    if (row[j] != 0.0) {
      work.indices[count] = j;
      work.values[count] = row[j];
      ++count;
    }
  }
  return {work.indices, work.values, count};
}

// Column k of the factor below the pivot. An entry that starts as zero and meets no pair of nonzeros is structurally
// zero and becomes exactly 0.0: no negative zero survives.
void finish_factor_column(double* matrix, std::ptrdiff_t n, std::ptrdiff_t k, double reciprocal,
                          const Entries& row_entries) {
  for (std::ptrdiff_t i = k + 1; i < n; ++i) {
    double* row = matrix + packed_size(i);
    double work = row[k];
    bool nonzero = work != 0.0;
    for (std::ptrdiff_t e = 0; e < row_entries.count; ++e) {
      const double factor = row[row_entries.columns[e]];
      if (factor != 0.0) {
        work -= factor * row_entries.values[e];
        nonzero = true;
      }
    }
    row[k] = nonzero ? reciprocal * work : 0.0;
  }
}

}  // namespace

// N = L L', column by column, each from the finished ones to its left. Row i of the packed triangle holds what column k
// needs of it, so the sums run along rows. The diagonal keeps 1 / l(k, k).
int factorise(double* matrix, std::ptrdiff_t n, std::ptrdiff_t first, const InversionWork& work,
              const InversionProgress& progress) {
  for (std::ptrdiff_t k = first; k < n; ++k) {
    progress.start_factor_row(k + 1);
    double* row = matrix + packed_size(k);
    const Entries entries = collect_nonzeros(row, k, work);
    double pivot = row[k];
    for (std::ptrdiff_t e = 0; e < entries.count; ++e) {
      pivot -= entries.values[e] * entries.values[e];
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
void invert_factor(double* matrix, std::ptrdiff_t first, std::ptrdiff_t end, const InversionWork& work,
                   const InversionProgress& progress) {
  for (std::ptrdiff_t k = std::max<std::ptrdiff_t>(first, 1); k < end; ++k) {
    progress.start_inverse_row(k + 1);
    double* row = matrix + packed_size(k);
    clear(work.values, k);
    for (std::ptrdiff_t j = 0; j < k; ++j) {
      if (row[j] != 0.0) {
        add_scaled<false>(work.values, matrix + packed_size(j), -row[k] * row[j], j + 1);
      }
    }
    std::copy_n(work.values, k, row);
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

int invert_normal_matrix(double* packed, std::ptrdiff_t n, const InversionWork& work,
                         const InversionProgress& progress) {
  const int failed = factorise(packed, n, 0, work, progress);
  if (failed != 0) {
    return failed;
  }
  invert_factor(packed, 0, n, work, progress);
  multiply_by_transpose(packed, n, progress);
  return 0;
}

}  // namespace alidade::plain
