#ifndef ALIDADE_SRC_POINTS_INSTANTIATION_H
#define ALIDADE_SRC_POINTS_INSTANTIATION_H

#include <alidade/export.h>

// ALIDADE_INSTANTIATION X; defines the instantiation X of a template class in the library. It is exported by the
// attribute of its declaration in the public header; only Visual C++ wants the attribute here.
#if defined(_MSC_VER)
#define ALIDADE_INSTANTIATION template class ALIDADE_API
#else
#define ALIDADE_INSTANTIATION template class
#endif

#endif
