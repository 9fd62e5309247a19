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

// Null where the plain loops serve: on a machine without vectors of doubles, in a build by a compiler without vector
// extensions, and in a host's static initialisers that run before the library's own. Where there is nothing to choose
// it is a constant, and what only kernels need is left out of the library.
#if defined(ALIDADE_KERNELS_X86) || defined(ALIDADE_KERNELS_NEON)
#if defined(__GNUC__) && !defined(_WIN32)
__attribute__((visibility("hidden")))  // so that it is read without a detour through a table
#endif
extern const KernelTable* chosen;
constexpr bool kThereAreKernels = true;
inline const KernelTable* active() { return __atomic_load_n(&chosen, __ATOMIC_RELAXED); }
#else
constexpr bool kThereAreKernels = false;
constexpr const KernelTable* active() { return nullptr; }
#endif

// Is the set in this build, and does the processor (and its operating system) have it?
bool available(InstructionSet set);

// For tests and benchmarks: uses the given set from now on, in all threads. False, and no change, if not available.
bool select(InstructionSet set);

}  // namespace alidade::kernels

#endif
