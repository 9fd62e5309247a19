#ifndef ALIDADE_TESTS_GOLDEN_LITERAL_SUBJECT_H
#define ALIDADE_TESTS_GOLDEN_LITERAL_SUBJECT_H

// What the descriptions in tools/cases are about: here the literal reference under the library's names.

#include "golden/literal/coords.h"
#include "golden/literal/geometry.h"
#include "golden/literal/linalg3.h"
#include "golden/literal/matrix.h"
#include "golden/literal/scalars.h"

#endif
