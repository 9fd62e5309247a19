#ifndef ALIDADE_SRC_LINALG3_COVAR_INVERSE_H
#define ALIDADE_SRC_LINALG3_COVAR_INVERSE_H

#include <alidade/linalg3.h>

namespace alidade {

// InvertSMatr3, for calls from inside the library.
int invert_covariance(covar& v);

}  // namespace alidade

#endif
