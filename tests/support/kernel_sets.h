#ifndef ALIDADE_TESTS_SUPPORT_KERNEL_SETS_H
#define ALIDADE_TESTS_SUPPORT_KERNEL_SETS_H

// The instruction sets that this machine and this build have. For tests that link the library's objects.

#include <vector>

#include "matrix/inversion_choice.h"
#include "matrix/kernels/kernels.h"

namespace kernel_sets {

using alidade::kernels::InstructionSet;

constexpr const char* kNames[] = {"Plain", "Sse2", "Avx2", "Avx512", "Neon"};

inline const char* name(InstructionSet set) { return kNames[static_cast<int>(set)]; }

inline std::vector<InstructionSet> all() {
  std::vector<InstructionSet> sets;
  for (InstructionSet set : alidade::kernels::kInstructionSets) {
    if (alidade::kernels::available(set)) {
      sets.push_back(set);
    }
  }
  return sets;
}

// Leaves the fastest set behind, as the library chooses it. In between, tiles invert sparse matrices, too.
class Restore {
public:
  Restore() { alidade::sparse_matrices_are_told = false; }
  ~Restore() {
    alidade::sparse_matrices_are_told = true;
    for (InstructionSet set : alidade::kernels::kInstructionSets) {
      alidade::kernels::select(set);
    }
  }
  Restore(const Restore&) = delete;
  Restore& operator=(const Restore&) = delete;
};

}  // namespace kernel_sets

#endif
