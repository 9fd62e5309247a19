// Where a packed matrix has nonzeros. Included once per instruction set, after lanes.h, inside namespace ALIDADE_ISA.

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

// Finds the blocks with nonzeros; false when the matrix holds an infinity, a NaN or a -0.0.
static bool survey(const double* packed, std::ptrdiff_t n, Sparsity& s) {
  Bits found = {};
  Vector check = zero();
  for (std::ptrdiff_t first = 0; first < n; first += s.chunk) {
    const std::ptrdiff_t end = smaller(n, first + s.chunk);
    std::uint64_t word = 0;
    for (std::ptrdiff_t column = 0; column < end; column += s.chunk) {
      Bits any = {};
      for (std::ptrdiff_t i = larger(first, column); i < end; ++i) {
        const double* p = packed + packed_row(i) + column;
        const std::ptrdiff_t count = smaller(s.chunk, i + 1 - column);
        for (std::ptrdiff_t j = 0; j < count; j += kWidth) {
          const Vector v = load_lanes(p + j, count - j);
          any |= bits_of(v);
          found |= negative_zeros(v);
          check = v * zero() + check;
        }
      }
      word |= static_cast<std::uint64_t>(any_bit(any)) << (column / s.chunk);
    }
    s.words[first / s.chunk] = word;
  }
  return all_zero(check) && !any_bit(found);
}
