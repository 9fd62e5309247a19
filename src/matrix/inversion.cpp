#include "matrix/inversion.h"

#include <alidade/matrix.h>

#include "matrix/plain/plain_kernels.h"
#include "strict_arithmetic.h"

namespace alidade {

int invert_normal_matrix(double* packed, int n, int* progress, int span) {
  return plain::invert_normal_matrix(packed, n, progress, span);
}

}  // namespace alidade

int RareInversion(TSMatrix& N, int* progress, int span) {
  return alidade::invert_normal_matrix(static_cast<double*>(N), N.GetDim1(), progress, span);
}
