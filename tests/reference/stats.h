#ifndef ALIDADE_TESTS_REFERENCE_STATS_H
#define ALIDADE_TESTS_REFERENCE_STATS_H

namespace reference {

float chi_one_sided(int level, int df);
void chi_two_sided(int level, int df, float out[2]);
double tau(int n, int f, double alpha);
int accuracy_class(double rms);

}  // namespace reference

#endif
