#ifndef ALIDADE_TESTS_GOLDEN_LITERAL_SCALARS_H
#define ALIDADE_TESTS_GOLDEN_LITERAL_SCALARS_H

#include "reference/scalars.h"
#include "reference/stats.h"

template <class... Int>
int min1(int n, Int... values) {
  const int list[] = {values...};
  return reference::least(n, list);
}
template <class... Int>
int max1(int n, Int... values) {
  const int list[] = {values...};
  return reference::greatest(n, list);
}
template <class... Double>
double amin1(int n, Double... values) {
  const double list[] = {values...};
  return reference::least(n, list);
}
template <class... Double>
double amax1(int n, Double... values) {
  const double list[] = {values...};
  return reference::greatest(n, list);
}

inline double power(double x, int n) { return reference::real_power(x, n); }
inline int power(int a, int n) { return reference::integer_power(a, n); }
inline int sign(int a, int b) { return reference::sign_transfer(a, b); }
inline double sign(double a, double b) { return reference::sign_transfer(a, b); }
inline int ishc(long& v, int& s) { return reference::rotate(v, 32, s, true); }
inline int ishc(short& v, int& s) { return reference::rotate(v, 16, s, false); }
inline int ishc(char& v, int& s) { return reference::rotate(v, 8, s, true); }
inline double nearest(double x, double s) { return reference::step_double(x, s); }
inline float nearest(float x, float s) { return reference::step_float(x, s); }

constexpr auto CHI_1SDE = reference::chi_one_sided;
constexpr auto CHI_2SDE = reference::chi_two_sided;
constexpr auto TAU = reference::tau;
constexpr auto RmsToKnown = reference::accuracy_class;

#endif
