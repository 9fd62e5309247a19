#include "matrix/inversion_choice.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "matrix/kernels/kernel_table.h"
#include "matrix/packed_index.h"
#include "strict_arithmetic.h"

namespace alidade {
namespace {

using kernels::kInversionBlock;
using kernels::Sparsity;

// The factor's structure follows from the matrix's by the elimination tree: the parent of column j is the first row
// below with a nonzero in it, row i of the factor has nonzeros in the columns on the ways from those of row i of the
// matrix up the tree to i, and row i of the factor's inverse in all columns below i in the tree (Davis, Direct Methods
// for Sparse Linear Systems, 4.1, 4.4).

// Products of elements that the tiles form in the three phases together, block by block of the chunks' size or of that
// of the blocks on the diagonal.
double tile_products(std::ptrdiff_t n, const Sparsity& s) {
  constexpr int kMost = 64;
  const int merged = s.chunk < kInversionBlock ? 2 : 1;  // chunks to a block
  const auto chunks = static_cast<int>((n + s.chunk - 1) / s.chunk);
  const int count = (chunks + merged - 1) / merged;
  std::uint64_t below[kMost] = {};  // the nonzero rows of each column of the factor
  for (int r = 0; r < chunks; ++r) {
    for (int c = 0; c < r; ++c) {
      below[c / merged] |= (s.words[r] >> c & 1) << (r / merged);
    }
  }
  double sizes[kMost] = {};  // of the subtrees, their roots left out
  double products = 0.0;
  for (int c = 0; c < count; ++c) {
    const double size = sizes[c] + 1.0;
    double rows = 1.0;
    bool first = true;
    for (int r = c + 1; r < count; ++r) {
      if ((below[c] >> r & 1) != 0) {
        if (first) {
          below[r] |= below[c] & ~((std::uint64_t{2} << r) - 1);  // those beyond the parent
          sizes[r] += size;
          first = false;
        }
        rows += 1.0;
        products += size;
      }
    }
    products += (rows * rows + size * size) / 2.0;
  }
  const auto block = static_cast<double>(merged * s.chunk);
  return products * block * block * block;
}

// Elements that the plain loops look at or add to; counted no further than to `enough`.
double plain_steps(const double* packed, std::ptrdiff_t n, const Sparsity& s, double enough, std::ptrdiff_t* indices) {
  std::ptrdiff_t* parents = indices;
  std::ptrdiff_t* visitors = indices + n;
  std::ptrdiff_t* lengths = indices + 2 * n;  // of all rows below a column in the tree, together
  double steps = 0.0;
  for (std::ptrdiff_t i = 0; i < n && steps < enough; ++i) {
    const double* row = packed + packed_size(i);
    const std::uint64_t word = s.words[i / s.chunk];
    parents[i] = n;
    visitors[i] = i;
    lengths[i] = 0;
    std::ptrdiff_t entries = 0;
    std::ptrdiff_t length = 0;
    for (std::ptrdiff_t first = 0; first < i; first += s.chunk) {
      for (std::ptrdiff_t j = first; (word >> first / s.chunk & 1) != 0 && j < std::min(i, first + s.chunk); ++j) {
        for (std::ptrdiff_t k = row[j] != 0.0 ? j : i; visitors[k] != i; k = parents[k]) {
          visitors[k] = i;
          parents[k] = std::min(parents[k], i);
          ++entries;
          length += k + 1;
        }
      }
    }
    steps += static_cast<double>(entries) * static_cast<double>(n - i) + static_cast<double>(length);
  }
  for (std::ptrdiff_t j = 0; j < n && steps < enough; ++j) {
    steps += static_cast<double>(lengths[j]);
    if (parents[j] < n) {
      lengths[parents[j]] += lengths[j] + j + 1;
    }
  }
  return steps;
}

// Where there are nonzeros, are more than a third of the elements, as far as every sixteenth row tells? Then the tiles
// have less to do.
bool is_in_blocks(const double* packed, std::ptrdiff_t n, const Sparsity& s) {
  std::ptrdiff_t nonzeros = 0;
  std::ptrdiff_t elements = 0;
  for (std::ptrdiff_t i = 15; i < n; i += 16) {
    const double* row = packed + packed_size(i);
    const std::uint64_t word = s.words[i / s.chunk];
    for (std::ptrdiff_t first = 0; first <= i; first += s.chunk) {
      if ((word >> first / s.chunk & 1) != 0) {
        const std::ptrdiff_t count = std::min(s.chunk, i + 1 - first);
        nonzeros += count - std::count(row + first, row + first + count, 0.0);
        elements += count;
      }
    }
  }
  return 3 * nonzeros > elements;
}

}  // namespace

bool sparse_matrices_are_told = true;

bool plain_loops_do_less(const double* packed, std::ptrdiff_t n, const Sparsity& sparsity, std::ptrdiff_t width,
                         std::ptrdiff_t* indices) {
  // A look at an element, or an addition to it, takes the plain loops as long as a tile a vector of products, or half
  // as long again when the matrix does not fit in a cache. They look at each element six times in search of nonzeros.
  constexpr double kMemory = 1.5;
  const auto order = static_cast<double>(n);
  const double tile_steps = tile_products(n, sparsity) / static_cast<double>(width);
  const double enough = (tile_steps - 3.0 * order * order) / kMemory;
  return enough > 0.0 && !is_in_blocks(packed, n, sparsity) &&
         plain_steps(packed, n, sparsity, enough, indices) < enough;
}

}  // namespace alidade
