#ifndef ALIDADE_BENCHMARKS_LIMIT_H
#define ALIDADE_BENCHMARKS_LIMIT_H

#include "harness.h"
#include "matrix/kernels/kernels.h"

namespace benchmarks {

// Multiplications and additions in registers alone, none waiting for another: the variant "limit <name>". Empty where
// there is no such loop for the set.
std::vector<Variant> limit(alidade::kernels::InstructionSet set, const std::string& name);

}  // namespace benchmarks

#endif
