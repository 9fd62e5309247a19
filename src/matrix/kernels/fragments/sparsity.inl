#ifndef ALIDADE_SRC_MATRIX_KERNELS_FRAGMENTS_SPARSITY_INL
#define ALIDADE_SRC_MATRIX_KERNELS_FRAGMENTS_SPARSITY_INL

// Where a packed matrix has nonzeros.

#include <cstddef>
#include <cstdint>

#include "matrix/kernels/fragments/lanes.inl"
#include "matrix/kernels/fragments/pack.inl"
#include "matrix/kernels/kernel_table.h"

namespace alidade::kernels::ALIDADE_ISA {

// Which blocks of chunk x chunk elements may hold a nonzero: bit c of words[r] for rows chunk r, columns chunk c.
ALIDADE_INLINE std::uint64_t column_bits(const Sparsity& s, std::ptrdiff_t first, std::ptrdiff_t end) {
  const std::ptrdiff_t low = first / s.chunk;
  const std::ptrdiff_t count = (end - 1) / s.chunk - low + 1;
  return (~std::uint64_t{0} >> (64 - count)) << low;
}
ALIDADE_INLINE std::uint64_t row_bits(const Sparsity& s, std::ptrdiff_t first, std::ptrdiff_t end) {
  std::uint64_t bits = 0;
  for (std::ptrdiff_t r = first / s.chunk; r <= (end - 1) / s.chunk; ++r) {
    bits |= s.words[r];
  }
  return bits;
}
ALIDADE_INLINE void add_row_bits(Sparsity& s, std::ptrdiff_t first, std::ptrdiff_t end, std::uint64_t bits) {
  for (std::ptrdiff_t r = first / s.chunk; r <= (end - 1) / s.chunk; ++r) {
    s.words[r] |= bits;
  }
}

// The same for those rows alone that have one of the bits `cause` already.
ALIDADE_INLINE void spread_row_bits(Sparsity& s, std::ptrdiff_t first, std::ptrdiff_t end, std::uint64_t cause,
                                    std::uint64_t bits) {
  for (std::ptrdiff_t r = first / s.chunk; r <= (end - 1) / s.chunk; ++r) {
    s.words[r] |= (s.words[r] & cause) != 0 ? bits : 0;
  }
}

// Calls function(first, end) for every stretch of [first, end) whose chunks have their bits set.
template <typename Function>
ALIDADE_INLINE void for_each_stretch(const Sparsity& s, std::uint64_t bits, std::ptrdiff_t first, std::ptrdiff_t end,
                                     Function function) {
  while (first < end) {
    std::ptrdiff_t chunk = first / s.chunk;
    const bool set = bits >> chunk & 1;
    while (++chunk * s.chunk < end && (bits >> chunk & 1) == set) {
    }
    const std::ptrdiff_t stop = smaller(chunk * s.chunk, end);
    if (set) {
      function(first, stop);
    }
    first = stop;
  }
}

// What has been met in a matrix.
struct Findings {
  Bits negative_zero = {};
  Vector check = zero();  // zero as long as all was finite
};

// The word of the rows [first, end) of one chunk of rows.
static std::uint64_t nonzero_chunks(const double* packed, std::ptrdiff_t first, std::ptrdiff_t end,
                                    std::ptrdiff_t chunk, Findings& findings) {
  std::uint64_t word = 0;
  for (std::ptrdiff_t column = 0; column < end; column += chunk) {
    Bits any = {};
    for (std::ptrdiff_t i = larger(first, column); i < end; ++i) {
      const double* p = packed + packed_row(i) + column;
      const std::ptrdiff_t count = smaller(chunk, i + 1 - column);
      for (std::ptrdiff_t j = 0; j < count; j += kWidth) {
        const Vector v = load_lanes(p + j, count - j);
        any |= bits_of(v);
        findings.negative_zero |= negative_zeros(v);
        findings.check = v * zero() + findings.check;
      }
    }
    word |= static_cast<std::uint64_t>(any_bit(any)) << (column / chunk);
  }
  return word;
}

// Finds the blocks with nonzeros; false when the matrix holds an infinity, a NaN or a -0.0.
static bool survey(const double* packed, std::ptrdiff_t n, Sparsity& s) {
  Findings findings;
  for (std::ptrdiff_t first = 0; first < n; first += s.chunk) {
    s.words[first / s.chunk] = nonzero_chunks(packed, first, smaller(n, first + s.chunk), s.chunk, findings);
  }
  return all_zero(findings.check) && !any_bit(findings.negative_zero);
}

// Looks again where the chunks of rows that end in rows [first, end) have nonzeros, unless they received no bits since
// `before` was copied. What may become nonzero spreads from chunk to chunk, much further than the nonzeros themselves.
static void survey_again(const double* packed, std::ptrdiff_t first, std::ptrdiff_t end, Sparsity& s,
                         const std::uint64_t* before) {
  for (std::ptrdiff_t r = first / s.chunk; (r + 1) * s.chunk <= end; ++r) {
    if (r * s.chunk < first || s.words[r] != before[r - first / s.chunk]) {
      Findings ignored;
      s.words[r] = nonzero_chunks(packed, r * s.chunk, (r + 1) * s.chunk, s.chunk, ignored);
    }
  }
}

}  // namespace alidade::kernels::ALIDADE_ISA

#endif
