#ifndef ALIDADE_TESTS_REFERENCE_INVERSION_H
#define ALIDADE_TESTS_REFERENCE_INVERSION_H

#include <vector>

namespace reference {

// RareInversion on a packed matrix of order n, rows counted from 1, column by column with work arrays and flags. When
// `progress` is not null, every value that it takes is also appended to `sequence`, if given.
int rare_inversion(double* packed, int n, int* progress, int span, std::vector<int>* sequence = nullptr);

// PseudoInversion on a packed matrix of order n with a defect of d.
int pseudo_inversion(double* packed, int n, int d);

}  // namespace reference

#endif
