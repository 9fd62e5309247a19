#ifndef ALIDADE_TESTS_REFERENCE_POINTS_H
#define ALIDADE_TESTS_REFERENCE_POINTS_H

// Points of n components (2 or 3) as plain arrays, written out one by one.

namespace reference {

void point_add(int n, const double* a, const double* b, double* r);
void point_subtract(int n, const double* a, const double* b, double* r);
void point_scale(int n, const double* a, double s, double* r);
void point_divide_by_scalar(int n, const double* a, double s, double* r);
void point_multiply(int n, const double* a, const double* b, double* r);
void point_divide(int n, const double* a, const double* b, double* r);  // traps masked
void point_negate(int n, const double* a, double* r);
double point_dot(int n, const double* a, const double* b);
double point_square(int n, const double* a);
double point_length(int n, const double* a);
double point_sum(int n, const double* a);
void point_abs(int n, const double* a, double* r);
void point_maximum(int n, const double* a, const double* b, double* r);
void point_minimum(int n, const double* a, const double* b, double* r);
bool point_equal(int n, const double* a, const double* b);

// Conversion to int towards zero; the smallest int outside the range and for a NaN.
int to_int(double v);

}  // namespace reference

#endif
