#ifndef ALIDADE_TESTS_REFERENCE_LINALG3_H
#define ALIDADE_TESTS_REFERENCE_LINALG3_H

// Literal versions of the algebra of order three. Vectors are three doubles, covariances six (lower triangle row by
// row), matrices nine (column by column).

namespace reference {

void triad_sqrt(double* v);
void vector_product(const double* a, const double* b, double* r);
bool triad_is_undefined(const double* v);
bool triad_is_partly_undefined(const double* v);

void covar_from_deviations(const double* s, double* v);
void covar_from_matrix(const double* m, double* v);
void covar_plus_matrix(double* v, const double* m);
void covar_minus_matrix(double* v, const double* m);
void covar_times_vector(const double* v, const double* x, double* y);

void matrix_from_covar(const double* v, double* m);
void matrix_times_matrix(const double* a, const double* b, double* c);
void matrix_times_vector(const double* m, const double* x, double* y);
void propagate(const double* m, const double* v, double* r);
void matrix_transposed(const double* m, double* r);
void matrix_inverse(const double* m, double* r);

void multiply_all(double* p, int count, double factor);
void divide_all(double* p, int count, double divisor);

int invert_covar(double* v);
void covar_eigenvector(const double* v, double eigenvalue, double* u);
void covar_axes(const double* v, double* axes);

}  // namespace reference

#endif
