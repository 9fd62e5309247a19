#ifndef ALIDADE_SRC_MATRIX_KERNELS_KERNEL_TABLE_H
#define ALIDADE_SRC_MATRIX_KERNELS_KERNEL_TABLE_H

#include <cstddef>
#include <cstdint>

#include "matrix/kernels/operands.h"
#include "strict_arithmetic.h"

namespace alidade::kernels {

// Largest order of a matrix that is inverted as a single block, in one tile. Its lines have `kAside` elements more than
// the order rounded up to kStrip.
constexpr std::ptrdiff_t kSingleBlock = 64;
constexpr std::ptrdiff_t kStrip = 8;
constexpr std::ptrdiff_t kAside = 16;

// Order of the diagonal blocks that an inversion works in, and rows of the inverse that are formed together.
constexpr std::ptrdiff_t kInversionBlock = 32;
constexpr std::ptrdiff_t kInversionRows = 96;

// What larger inversions work in, beside the matrix.
constexpr std::ptrdiff_t kInversionLanes = 48;
constexpr std::ptrdiff_t kInversionTerms = 128;
constexpr std::ptrdiff_t kRowTerms = 64;
struct InversionTiles {
  double* tile;     // kInversionTerms lines, or as many as the order, of kInversionLanes
  double* squares;  // two squares of kInversionBlock
  double* columns;  // kRowTerms lines, or as many as there are rows beyond kInversionRows, of kInversionRows
};

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

struct SmallResult {
  std::ptrdiff_t finished;  // all: the matrix is the inverse; fewer: these columns of the factor stand in it
  bool done;                // false: nothing has been changed, the plain loops have to do everything
};

// The kernels of one instruction set.
struct KernelTable {
  std::ptrdiff_t width;  // doubles in a vector
  ProductLoops products;
  // Order of a matrix from which on its inversion gains on the plain loops.
  std::ptrdiff_t least_inverted;
  // All phases of invert_normal_matrix, for 0 < n <= kSingleBlock.
  SmallResult (*invert_small)(double* packed, std::ptrdiff_t n, double* room);
  // Finds where the matrix has nonzeros, for the given chunk; false when it holds an infinity, a NaN or a -0.0.
  bool (*survey)(const double* packed, std::ptrdiff_t n, Sparsity& sparsity);
  // The phases of invert_normal_matrix for one block of columns or rows, first ... end - 1, all before it being done.
  // No infinity, NaN or -0.0 may be in the matrix.
  FactorResult (*factor_columns)(double* packed, std::ptrdiff_t n, std::ptrdiff_t first, std::ptrdiff_t end,
                                 Sparsity& sparsity, const InversionTiles& tiles);
  // False: a result is not finite; the plain loops have to do this block, from its rows as they were.
  bool (*invert_rows)(double* packed, std::ptrdiff_t first, std::ptrdiff_t end, Sparsity& sparsity,
                      const InversionTiles& tiles);
  // Is one of the first contributions to the product -0.0, so that the plain loops have to form it?
  bool (*starts_from_negative_zero)(const double* packed, std::ptrdiff_t n);
  void (*multiply_rows)(double* packed, std::ptrdiff_t n, std::ptrdiff_t first, std::ptrdiff_t end,
                        const Sparsity& sparsity, const InversionTiles& tiles);
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
