#ifndef ALIDADE_TESTS_REFERENCE_SCALARS_H
#define ALIDADE_TESTS_REFERENCE_SCALARS_H

namespace reference {

int least(int n, const int* v);
int greatest(int n, const int* v);
double least(int n, const double* v);
double greatest(int n, const double* v);
double real_power(double x, int n);
int integer_power(int a, int n);
int sign_transfer(int a, int b);
double sign_transfer(double a, double b);
// The low `width` bits of v, rotated bit by bit; negative shifts to the right, or not at all.
int rotate(long long v, int width, int shift, bool negative_rotates);
double step_double(double x, double s);
float step_float(float x, float s);

}  // namespace reference

#endif
