#ifndef ALIDADE_ENVIRONMENT_H
#define ALIDADE_ENVIRONMENT_H

/// @file
/// Is the floating-point environment of the calling thread the one for which the results are promised?

#include <alidade/export.h>

/// What is newer than the library's old names, which stand in the global namespace.
namespace alidade {

/// What can be wrong with the floating-point environment of a thread. The values are bits and may be combined.
enum EnvironmentFault : unsigned {
  /// The rounding mode is not "to nearest, ties to even" (the host called `fesetround`).
  kRoundingNotToNearest = 1U,
  /// A subnormal result is replaced by zero. On x86, linking a program with GCC's `-ffast-math` sets this at start-up
  /// for the whole process, whatever the flags its libraries were compiled with.
  kFlushesToZero = 2U,
  /// A subnormal operand is read as zero.
  kDenormalsAreZero = 4U,
  /// Intermediate results are kept with more digits or range than a double (the x87 registers).
  kExcessPrecision = 8U
};

/// Tells what is wrong with the floating-point environment of the calling thread.
///
/// @return 0 when the environment is as required, else the sum of the EnvironmentFault values found
///
/// The library's promise, the same input gives the same bits, holds in the environment every program starts with:
/// round to nearest, subnormal numbers kept, every operation rounded to double. A host that cannot be sure of its own
/// start-up code, of a plug-in or of a driver calls this once in every thread that computes.
///
///     if (alidade::environment_faults() != 0) {
///       std::fesetenv(FE_DFL_ENV);   // back to the start-up environment (on x86 also clears flush-to-zero)
///     }
///
/// MinGW's fesetenv does not reach the SSE unit; there `_mm_setcsr(0x1f80)` does it.
///
/// Never fails; reads and writes no memory of the host. Exception flags and the host's trap settings are afterwards as
/// before, and no trap is taken. Method: the operations that would go wrong are carried out and their results looked
/// at; no control register is read, so the answer is the same kind of evidence on every processor.
/// Bits: class C (it reports the host's settings).
ALIDADE_API unsigned environment_faults();

}  // namespace alidade

#endif
