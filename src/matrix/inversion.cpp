#include "matrix/inversion.h"

#include <alidade/matrix.h>

#include "matrix/kernels/blocked_inversion.h"
#include "matrix/kernels/dispatch.h"
#include "matrix/kernels/walk.h"
#include "matrix/plain/plain_kernels.h"
#include "strict_arithmetic.h"

namespace alidade {

int invert_normal_matrix(double* packed, int n, int* progress, int span) {
  constexpr int kFewestRows = 33;  // a single block gains nothing on the plain loops
  const kernels::Kernels* fast = kernels::active();
  return fast != nullptr && n >= kFewestRows ? kernels::invert_in_blocks(*fast, packed, n, progress, span)
                                             : plain::invert_normal_matrix(packed, n, progress, span);
}

}  // namespace alidade

int RareInversion(TSMatrix& N, int* progress, int span) {
  return alidade::invert_normal_matrix(static_cast<double*>(N), N.GetDim1(), progress, span);
}
