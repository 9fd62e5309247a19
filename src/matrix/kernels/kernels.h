#ifndef ALIDADE_SRC_MATRIX_KERNELS_KERNELS_H
#define ALIDADE_SRC_MATRIX_KERNELS_KERNELS_H

// Which kernels this processor runs. Every choice gives the same bits.

#include <cstddef>

#include "matrix/kernels/kernel_table.h"
#include "strict_arithmetic.h"

namespace alidade::kernels {

enum class InstructionSet { kPlain, kSse2, kAvx2, kAvx512, kNeon };
constexpr InstructionSet kInstructionSets[] = {InstructionSet::kPlain, InstructionSet::kSse2, InstructionSet::kAvx2,
                                               InstructionSet::kAvx512, InstructionSet::kNeon};

#if defined(__GNUC__) && !defined(_WIN32)
__attribute__((visibility("hidden")))  // so that it is read without a detour through a table
#endif
extern const KernelTable* chosen;

// Null where the plain loops serve: on a machine without vectors of doubles, in a build by a compiler without vector
// extensions, and in a host's static initialisers that run before the library's own.
inline const KernelTable* active() { return chosen; }

// Is the set in this build, and does the processor (and its operating system) have it?
bool available(InstructionSet set);

// What has to be done with the operands before or while the tiles run over them.
enum class Preparation {
  kNothing,     // they are used as they lie
  kCopies,      // stretches are copied, such as the diagonal blocks of a packed operand
  kTransposes,  // blocks are transposed
  kTwoCopies,   // two operands are copied, for a sum of two products
  kMirrors      // a packed operand supplies the lanes: the plain loops have to jump about in it
};

// The kernels, or null where the plain loops are as fast: a tile has a fixed cost. Measured by the benchmark of small
// shapes; a wrong choice costs time, never bits.
inline const KernelTable* active_for(Extent extent, Preparation preparation) {
  struct Least {
    std::ptrdiff_t lines, terms, products;
  };
  constexpr Least kOfTwo[] = {{1, 5, 200}, {2, 5, 1000}, {3, 5, 1500}, {6, 5, 3000}, {3, 2, 60}};
  constexpr Least kOfMore[] = {{1, 3, 125}, {2, 3, 300}, {3, 3, 1000}, {3, 3, 400}, {3, 2, 60}};
  const KernelTable* fast = active();
  if (fast == nullptr) {
    return nullptr;
  }
  const Least& least = (fast->width > 2 ? kOfMore : kOfTwo)[static_cast<int>(preparation)];
  if (extent.lanes < 1 || extent.lines < least.lines || extent.terms < least.terms) {
    return nullptr;
  }
  const bool large = extent.lanes >= least.products || extent.lines >= least.products ||
                     extent.terms >= least.products;  // so that the product below does not overflow
  return large || extent.lanes * extent.lines * extent.terms >= least.products ? fast : nullptr;
}

// For tests and benchmarks: uses the given set from now on, in all threads. False, and no change, if not available.
bool select(InstructionSet set);

}  // namespace alidade::kernels

#endif
