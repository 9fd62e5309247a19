#include <alidade/matrix.h>

#include <cstdarg>

#include "strict_arithmetic.h"

// Minimum and maximum of a counted list of arguments. The second value is read whatever the count says. The running
// result gives way only to a value that compares beyond it, so it stays on ties and against a NaN.

namespace {

// Not those of the standard library, of which a host compiled with other flags may bring its own copies.
constexpr auto less = [](auto x, auto y) { return x < y; };
constexpr auto greater = [](auto x, auto y) { return x > y; };

// `values` holds the arguments from the second one on; the caller ends it.
template <class Value, class Beyond>
Value extreme(int n, Value first, std::va_list values, Beyond beyond) {
  // Not a loop that tests after its body: with the smallest int as count GCC 12 at -O3 for s390x reads a value too
  // many.
  const int count = n < 2 ? 2 : n;
  Value result = first;
  for (int read = 1; read < count; ++read) {
    const Value value = va_arg(values, Value);
    result = beyond(value, result) ? value : result;
  }
  return result;
}

}  // namespace

int min1(int n, int a1, ...) {
  std::va_list values;
  va_start(values, a1);
  const int least = extreme(n, a1, values, less);
  va_end(values);
  return least;
}

int max1(int n, int a1, ...) {
  std::va_list values;
  va_start(values, a1);
  const int greatest = extreme(n, a1, values, greater);
  va_end(values);
  return greatest;
}

double amin1(int n, double a1, ...) {
  std::va_list values;
  va_start(values, a1);
  const double least = extreme(n, a1, values, less);
  va_end(values);
  return least;
}

double amax1(int n, double a1, ...) {
  std::va_list values;
  va_start(values, a1);
  const double greatest = extreme(n, a1, values, greater);
  va_end(values);
  return greatest;
}
