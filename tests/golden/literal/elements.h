#ifndef ALIDADE_TESTS_GOLDEN_LITERAL_ELEMENTS_H
#define ALIDADE_TESTS_GOLDEN_LITERAL_ELEMENTS_H

// The types in this folder bear the library's names and stand in front of the literal reference, so that one
// description of each golden function (tools/cases) serves both. An assigning form that must give the same as its
// operator returns that value and assigns nothing: the descriptions look at the value only.

#include <array>

template <int N>
struct Elements {
  static constexpr int kCount = N;
  double v[N] = {};
};

// Derived types are found by their base.
template <int N>
std::array<double*, N> fields(Elements<N>& e) {
  std::array<double*, N> pointers;
  for (int i = 0; i < N; ++i) {
    pointers[static_cast<std::size_t>(i)] = &e.v[i];
  }
  return pointers;
}

// f of each element, or of the elements of both in pairs.
template <class T, class F>
T each(T a, F f) {
  for (double& v : a.v) {
    v = f(v);
  }
  return a;
}
template <class T, class F>
T each(T a, const T& b, F f) {
  for (int i = 0; i < T::kCount; ++i) {
    a.v[i] = f(a.v[i], b.v[i]);
  }
  return a;
}

#endif
