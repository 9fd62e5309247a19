#include "matrix/inversion.h"

#include <alidade/matrix.h>

#include "matrix/blocked_inversion.h"
#include "matrix/inversion_progress.h"
#include "matrix/kernels/kernel_table.h"
#include "matrix/kernels/kernels.h"
#include "matrix/plain/plain_inversion.h"
#include "strict_arithmetic.h"

namespace alidade {

int invert_normal_matrix(double* packed, int n, int* progress, int span) {
  if (n < 1) {
    return 0;
  }
  const InversionProgress report(progress, span, n);
  const kernels::KernelTable* fast = kernels::active();
  return fast != nullptr && n >= fast->least_inverted ? invert_in_blocks(*fast, packed, n, report)
                                                      : plain::invert_normal_matrix(packed, n, report);
}

}  // namespace alidade

int RareInversion(TSMatrix& N, int* progress, int span) {
  return alidade::invert_normal_matrix(static_cast<double*>(N), N.GetDim1(), progress, span);
}
