#include "reference/scalars.h"

#include <climits>
#include <cmath>
#include <cstring>

namespace reference {
namespace {

template <class T>
T least_of(int n, const T* v) {
  T r = v[1] < v[0] ? v[1] : v[0];
  for (int i = 2; i < n; ++i) {
    if (v[i] < r) {
      r = v[i];
    }
  }
  return r;
}

template <class T>
T greatest_of(int n, const T* v) {
  T r = v[1] > v[0] ? v[1] : v[0];
  for (int i = 2; i < n; ++i) {
    if (v[i] > r) {
      r = v[i];
    }
  }
  return r;
}

// A product modulo 2^32 in 64 bits, read as a signed number.
int wrapped_product(int a, int b) {
  const long long product = static_cast<long long>(a) * b;
  long long low = product % 4294967296LL;
  if (low < -2147483648LL) {
    low += 4294967296LL;
  }
  if (low > 2147483647LL) {
    low -= 4294967296LL;
  }
  return static_cast<int>(low);
}

int exponent_of(double x) {
  if (x != x || x - x != 0.0 || x == 0.0) {
    return 0;
  }
  int e = 0;
  double m = std::fabs(x);
  while (m >= 1.0) {
    m *= 0.5;
    ++e;
  }
  while (m < 0.5) {
    m *= 2.0;
    --e;
  }
  return e;
}

}  // namespace

int least(int n, const int* v) { return least_of(n, v); }
int greatest(int n, const int* v) { return greatest_of(n, v); }
double least(int n, const double* v) { return least_of(n, v); }
double greatest(int n, const double* v) { return greatest_of(n, v); }

double real_power(double x, int n) {
  if (n == 0) {
    return 1.0;
  }
  if (n >= -31 && n <= 31) {
    double p = x;
    for (int i = 0; i < std::abs(n) - 1; ++i) {
      p *= x;
    }
    return n > 0 ? p : 1.0 / p;
  }
  double (*volatile call)(double, double) = std::pow;
  return call(x, n);
}

int integer_power(int a, int n) {
  if (a == 0 || a == 1) {
    return a;
  }
  if (n < 0) {
    return 0;
  }
  if (n == 0) {
    return 1;
  }
  if (a == -1) {
    return n & 1 ? -1 : 1;
  }
  if (n > 31) {
    return INT_MAX;
  }
  int p = a;
  for (int i = 0; i < n - 1; ++i) {
    p = wrapped_product(p, a);
  }
  return p;
}

int sign_transfer(int a, int b) {
  if (a == INT_MIN) {
    return INT_MIN;
  }
  const int magnitude = a < 0 ? -a : a;
  return b >= 0 ? magnitude : -magnitude;
}

double sign_transfer(double a, double b) {
  unsigned char bytes[8];
  const double one = -1.0;
  unsigned char sign_byte[8];
  std::memcpy(bytes, &a, 8);
  std::memcpy(sign_byte, &one, 8);
  const int top = sign_byte[7] & 0x80 ? 7 : 0;  // -1.0 is bff0 0000 0000 0000, so this finds the byte of the sign
  bytes[top] = static_cast<unsigned char>(bytes[top] & 0x7f);
  double magnitude;
  std::memcpy(&magnitude, bytes, 8);
  if (b >= 0.0) {
    return magnitude;
  }
  return -magnitude;
}

int rotate(long long v, int width, int shift, bool negative_rotates) {
  unsigned long long bits = static_cast<unsigned long long>(v);
  const unsigned long long all = (1ULL << width) - 1;
  bits &= all;
  if (shift >= 0) {
    for (int step = 0; step < shift % width; ++step) {
      const unsigned long long high = bits >> (width - 1);
      bits = ((bits << 1) & all) | high;
    }
  } else if (negative_rotates) {
    const long long back = (-static_cast<long long>(shift)) % width;
    for (int step = 0; step < back; ++step) {
      const unsigned long long low = bits & 1;
      bits = (bits >> 1) | (low << (width - 1));
    }
  }
  return static_cast<int>(static_cast<unsigned>(bits));
}

double step_double(double x, double s) {
  int e = exponent_of(x) - 55;
  if (e < -1021) {
    e = -1021;
  }
  double step = 1.0;
  for (; e > 0; --e) {
    step *= 2.0;
  }
  for (; e < 0; ++e) {
    step *= 0.5;
  }
  if (s >= 0.0) {
    return x + step;
  }
  return x - step;
}

float step_float(float x, float s) {
  int e = exponent_of(x) - 23;
  if (e < -125) {
    e = -125;
  }
  float step = 1.0F;
  for (; e > 0; --e) {
    step *= 2.0F;
  }
  for (; e < 0; ++e) {
    step *= 0.5F;
  }
  if (s >= 0.0F) {
    return x + step;
  }
  return x - step;
}

}  // namespace reference
