#ifndef ALIDADE_TESTS_SUPPORT_BITS_H
#define ALIDADE_TESTS_SUPPORT_BITS_H

// Comparison of floating-point results by bit pattern: -0.0 differs from 0.0, any NaN equals any NaN.

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>

#if defined(ALIDADE_ARM_ADDITION)
#include "strict_arithmetic.h"
#endif

namespace bits {

inline std::uint64_t of(double v) {
  std::uint64_t u = 0;
  std::memcpy(&u, &v, sizeof u);
  return u;
}

inline std::uint32_t of(float v) {
  std::uint32_t u = 0;
  std::memcpy(&u, &v, sizeof u);
  return u;
}

inline double from(std::uint64_t u) {
  double v = 0;
  std::memcpy(&v, &u, sizeof v);
  return v;
}

template <class T>
bool same(T a, T b) {
  return of(a) == of(b) || (a != a && b != b);
}

inline std::string text(double v) {
  char buffer[64];
  std::snprintf(buffer, sizeof buffer, "%a (%.17g)", v, v);
  return buffer;
}

template <class T>
testing::AssertionResult equal(const char* ea, const char* eb, T a, T b) {
  if (same(a, b)) {
    return testing::AssertionSuccess();
  }
  return testing::AssertionFailure() << ea << " is " << text(a) << "\n" << eb << " is " << text(b);
}

template <class A, class B>
testing::AssertionResult equal_mixed(const char* ea, const char* eb, A a, B b) {
  return equal<A>(ea, eb, a, static_cast<A>(b));
}

// Compares n doubles; reports the first that differs.
inline testing::AssertionResult equal_arrays(const double* a, const double* b, std::size_t n) {
  for (std::size_t i = 0; i < n; ++i) {
    if (!same(a[i], b[i])) {
      return testing::AssertionFailure() << "element " << i << " of " << n << ": " << text(a[i]) << " against "
                                         << text(b[i]);
    }
  }
  return testing::AssertionSuccess();
}

}  // namespace bits

#define CHECK_BITS(a, b) EXPECT_PRED_FORMAT2(bits::equal_mixed, a, b)

#endif
