#include <alidade/matrix.h>

#include <cstdarg>

#include "strict_arithmetic.h"

// Minimum and maximum of a counted list of arguments. The second value is read whatever the count says. The running
// result gives way only to a value that compares beyond it, so it stays on ties and against a NaN.

int min1(int n, int a1, ...) {
  std::va_list values;
  va_start(values, a1);
  int least = a1;
  int read = 1;
  do {
    const int value = va_arg(values, int);
    least = value < least ? value : least;
    ++read;
  } while (read < n);
  va_end(values);
  return least;
}

int max1(int n, int a1, ...) {
  std::va_list values;
  va_start(values, a1);
  int greatest = a1;
  int read = 1;
  do {
    const int value = va_arg(values, int);
    greatest = value > greatest ? value : greatest;
    ++read;
  } while (read < n);
  va_end(values);
  return greatest;
}

double amin1(int n, double a1, ...) {
  std::va_list values;
  va_start(values, a1);
  double least = a1;
  int read = 1;
  do {
    const double value = va_arg(values, double);
    least = value < least ? value : least;
    ++read;
  } while (read < n);
  va_end(values);
  return least;
}

double amax1(int n, double a1, ...) {
  std::va_list values;
  va_start(values, a1);
  double greatest = a1;
  int read = 1;
  do {
    const double value = va_arg(values, double);
    greatest = value > greatest ? value : greatest;
    ++read;
  } while (read < n);
  va_end(values);
  return greatest;
}
