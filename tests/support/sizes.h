#ifndef ALIDADE_TESTS_SUPPORT_SIZES_H
#define ALIDADE_TESTS_SUPPORT_SIZES_H

// How many sizes or cases a loop of the tests goes through: all of them, or few where the build asks for few, because
// its processor is emulated or because the same tests run many times.

#include <vector>

namespace sizes {

inline std::vector<int> up_to(int last) {
  std::vector<int> values;
  for (int i = 1; i <= last; ++i) {
    values.push_back(i);
  }
  return values;
}

template <class T>
constexpr const T& choose(const T& all, const T& few) {
#if defined(ALIDADE_TESTS_FEW_SIZES)
  static_cast<void>(all);
  return few;
#else
  static_cast<void>(few);
  return all;
#endif
}

inline std::vector<int> all_or_few(const std::vector<int>& all, const std::vector<int>& few) {
  return choose(all, few);
}
constexpr int all_or_few(int all, int few) { return choose(all, few); }

}  // namespace sizes

#endif
