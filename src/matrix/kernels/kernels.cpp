#include "matrix/kernels/kernels.h"

#include <cstddef>

#include "matrix/kernels/kernel_table.h"
#include "strict_arithmetic.h"

namespace alidade::kernels {

#if defined(ALIDADE_KERNELS_X86) || defined(ALIDADE_KERNELS_NEON)

// Constant-initialised: before the best set has been chosen, the plain loops serve.
const KernelTable* chosen = nullptr;

namespace {

const KernelTable* table_of(InstructionSet set) {
#if defined(ALIDADE_KERNELS_X86)
  __builtin_cpu_init();
  switch (set) {
    case InstructionSet::kSse2:
      return &sse2::table;
    case InstructionSet::kAvx2:
      return __builtin_cpu_supports("avx2") ? &avx2::table : nullptr;
    case InstructionSet::kAvx512:
      return __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512dq") &&
                     __builtin_cpu_supports("avx512vl")
                 ? &avx512::table
                 : nullptr;
    default:
      return nullptr;
  }
#else
  return set == InstructionSet::kNeon ? &neon::table : nullptr;
#endif
}

void choose(const KernelTable* table) { __atomic_store_n(&chosen, table, __ATOMIC_RELAXED); }

// The last in the list that is available: they stand in ascending order of speed.
struct ChooseAtLoad {
  ChooseAtLoad() {
    const KernelTable* best = nullptr;
    for (InstructionSet set : kInstructionSets) {
      const KernelTable* table = table_of(set);
      best = table != nullptr ? table : best;
    }
    choose(best);
  }
};
const ChooseAtLoad choose_at_load;

}  // namespace

bool available(InstructionSet set) { return set == InstructionSet::kPlain || table_of(set) != nullptr; }

bool select(InstructionSet set) {
  if (!available(set)) {
    return false;
  }
  choose(table_of(set));
  return true;
}

#else

bool available(InstructionSet set) { return set == InstructionSet::kPlain; }

bool select(InstructionSet set) { return available(set); }

#endif

}  // namespace alidade::kernels
