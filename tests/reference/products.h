#ifndef ALIDADE_TESTS_REFERENCE_PRODUCTS_H
#define ALIDADE_TESTS_REFERENCE_PRODUCTS_H

// The products of bare buffers element by element. Dense matrices lie column by column, packed ones as the lower
// triangle row by row. Arguments as in include/alidade/matrix.h.

namespace reference {

void matrix_product(const double* a, const double* b, double* c, int n, int m, int k);
void transposed_product(const double* a, const double* b, double* c, int n, int m, int k);
void mixed_product(const double* a, const double* b, double* c, int n, int m, int mode_a, int mode_b, int k);
void congruence_product(const double* a, const double* q, double* c, int n, int m, char op);
void transposed_congruence_vector(double* r, char op, const double* a, const double* q, const double* l, int n, int m);

}  // namespace reference

#endif
