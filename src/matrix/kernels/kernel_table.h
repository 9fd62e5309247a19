#ifndef ALIDADE_SRC_MATRIX_KERNELS_KERNEL_TABLE_H
#define ALIDADE_SRC_MATRIX_KERNELS_KERNEL_TABLE_H

#include <cstddef>
#include <cstdint>

#include "strict_arithmetic.h"

namespace alidade::kernels {

// An operand as it is stored; element (row, column) counts from (row0, column0) of the stored matrix.
struct Operand {
  enum Layout {
    kDense,       // at row + column * ld
    kTransposed,  // at column + row * ld: the transpose of a dense matrix
    kPacked       // symmetric, packed lower triangle
  };
  Layout layout;
  const double* data;
  std::ptrdiff_t ld;
  std::ptrdiff_t row0 = 0;
  std::ptrdiff_t column0 = 0;
};

// The target of a product, by lines of contiguous lanes: the columns of a dense matrix, or the rows of a packed lower
// triangle, of which line k has lanes 0 ... k.
struct Target {
  double* data;
  std::ptrdiff_t ld;
  bool triangle;
};

struct Extent {
  std::ptrdiff_t lanes;
  std::ptrdiff_t lines;
  std::ptrdiff_t terms;
};

// What becomes of the target's old elements, and the sign of every product.
struct Mode {
  bool clear;   // start each sum at +0.0 instead of the element
  bool negate;  // subtract the products
};

// Largest order of a matrix that is inverted as a single block, in stack tiles.
constexpr std::ptrdiff_t kSingleBlock = 64;

// Order of the diagonal blocks that an inversion works in, and rows of the inverse that are formed together.
constexpr std::ptrdiff_t kInversionBlock = 32;
constexpr std::ptrdiff_t kInversionRows = 96;

// Where a packed matrix may have nonzeros: bit c of words[r] stands for the elements of rows r * chunk ... and columns
// c * chunk ..., chunk of each. Bits are set before the elements become nonzero and never cleared.
constexpr std::ptrdiff_t kGrain = 16;
struct Sparsity {
  std::ptrdiff_t chunk;  // a multiple of kGrain
  std::uint64_t words[64];
};

struct FactorResult {
  std::ptrdiff_t finished;  // columns; fewer than asked for when the next pivot was not positive
  bool done;                // false: nothing has been changed, the plain loops have to do this block
  bool usual;               // false: done, but the plain loops have to do everything that follows
};

// What of a matrix of a single block was done.
struct SmallResult {
  enum Done {
    kNothing,  // it holds something unusual: the plain loops have to do everything
    kFactor,   // `finished` columns of the factor stand in it; if these are all, the plain loops have to go on
    kInverse
  };
  std::ptrdiff_t finished;
  Done done;
};

// The kernels of one instruction set. `a` supplies element (lane, term), `b` element (term, line) of every product.
struct KernelTable {
  const char* name;
  std::ptrdiff_t width;  // doubles in a vector
  // Order of a matrix from which on its inversion gains on the plain loops.
  std::ptrdiff_t least_inverted;
  // target(lane, line) (+)= sum of a(lane, term) b(term, line), terms ascending.
  void (*product)(const Target& target, const Operand& a, const Operand& b, Extent extent, Mode mode);
  // The same with a = x y, a sum of `inner` terms rounded by itself: target (+)= (x y) b.
  void (*product_of_product)(const Target& target, const Operand& x, const Operand& y, std::ptrdiff_t inner,
                             const Operand& b, Extent extent, Mode mode);
  // Packed target of order b (+)= r' (s r), r being a x b; the inner sum over the terms of s r is rounded by itself.
  void (*transposed_congruence)(double* target, const double* r, const double* s, std::ptrdiff_t a, std::ptrdiff_t b,
                                Mode mode);
  // Packed target of order rows (+)= a b' + b a'; the two products of a term are added first.
  void (*symmetrized_product)(double* target, const double* a, const double* b, std::ptrdiff_t rows,
                              std::ptrdiff_t columns, Mode mode);
  // All phases of invert_normal_matrix, for 0 < n <= kSingleBlock.
  SmallResult (*invert_small)(double* packed, std::ptrdiff_t n);
  // Finds where the matrix has nonzeros, for the given chunk; false when it holds an infinity, a NaN or a -0.0.
  bool (*survey)(const double* packed, std::ptrdiff_t n, Sparsity& sparsity);
  // The phases of invert_normal_matrix for one block of columns or rows, first ... end - 1, all before it being done.
  // No infinity, NaN or -0.0 may be in the matrix. `sizes` holds a bound of the absolute values in each row of X.
  FactorResult (*factor_columns)(double* packed, std::ptrdiff_t n, std::ptrdiff_t first, std::ptrdiff_t end,
                                 Sparsity& sparsity);
  // False: an overflow is possible; nothing has been changed, the plain loops have to do this block.
  bool (*invert_rows)(double* packed, std::ptrdiff_t first, std::ptrdiff_t end, Sparsity& sparsity, double* sizes);
  // Is one of the first contributions to the product -0.0, so that the plain loops have to form it?
  bool (*starts_from_negative_zero)(const double* packed, std::ptrdiff_t n);
  void (*multiply_rows)(double* packed, std::ptrdiff_t n, std::ptrdiff_t first, std::ptrdiff_t end,
                        const Sparsity& sparsity);
  // c = a b, nine elements each, column by column; c = a q a', q and c packed. c overlaps neither operand.
  void (*product3)(double* c, const double* a, const double* b);
  void (*congruence3)(double* c, const double* a, const double* q);
};

// The tables of the sets; which of them exist in a build is kernels.cpp's business.
namespace sse2 {
extern const KernelTable table;
}
namespace avx2 {
extern const KernelTable table;
}
namespace avx512 {
extern const KernelTable table;
}
namespace neon {
extern const KernelTable table;
}

}  // namespace alidade::kernels

#endif
