#include "reference/products.h"

namespace reference {
namespace {

// Position, from 0, of element (i, j), from 0; -1 where the mode stores no such element.
long position(long i, long j, long rows, int mode) {
  if (mode < 1) {
    return i + j * rows;
  }
  if (mode == 1) {
    return i >= j ? i * (i + 1) / 2 + j : j * (j + 1) / 2 + i;
  }
  return i == j ? i : -1;
}

long packed(long i, long j) { return position(i, j, 0, 1); }

}  // namespace

void matrix_product(const double* a, const double* b, double* c, int n, int m, int k) {
  for (long j = 0; j < k; ++j) {
    for (long i = 0; i < n; ++i) {
      c[i + j * n] = 0.0;
      for (long l = 0; l < m; ++l) {
        c[i + j * n] = a[i + l * n] * b[l + j * m] + c[i + j * n];
      }
    }
  }
}

void transposed_product(const double* a, const double* b, double* c, int n, int m, int k) {
  for (long j = 0; j < k; ++j) {
    for (long i = 0; i < m; ++i) {
      c[i + j * m] = 0.0;
      for (long l = 0; l < n; ++l) {
        c[i + j * m] = a[l + i * n] * b[l + j * n] + c[i + j * m];
      }
    }
  }
}

void mixed_product(const double* a, const double* b, double* c, int n, int m, int mode_a, int mode_b, int k) {
  const long long code = 10LL * mode_a + mode_b;
  if (code == 22) {
    for (long i = 0; i < n; ++i) {
      c[i] = a[i] * b[i];
    }
    return;
  }
  for (long j = 0; j < k; ++j) {
    for (long i = 0; i < n; ++i) {
      c[i + j * n] = 0.0;
      for (long l = 0; l < m; ++l) {
        const long pa = position(i, l, n, code == 0 ? 0 : mode_a);
        const long pb = position(l, j, m, code == 0 ? 0 : mode_b);
        if (pa < 0 || pb < 0) {
          continue;
        }
        c[i + j * n] = a[pa] * b[pb] + c[i + j * n];
      }
    }
  }
}

void congruence_product(const double* a, const double* q, double* c, int n, int m, char op) {
  if (op != '+' && op != '-') {
    for (long i = 0; i < n; ++i) {
      for (long j = 0; j <= i; ++j) {
        c[packed(i, j)] = 0.0;
      }
    }
  }
  const bool subtract = op == '-' || op == '|';
  for (long l = 0; l < m; ++l) {
    for (long j = 0; j < n; ++j) {
      double t = 0.0;
      for (long p = 0; p < m; ++p) {
        t = t + a[j + p * n] * q[packed(p, l)];
      }
      for (long i = j; i < n; ++i) {
        if (subtract) {
          c[packed(i, j)] = c[packed(i, j)] - a[i + l * n] * t;
        } else {
          c[packed(i, j)] = a[i + l * n] * t + c[packed(i, j)];
        }
      }
    }
  }
}

void transposed_congruence_vector(double* r, char op, const double* a, const double* q, const double* l, int n, int m) {
  if (op != '+') {
    for (long i = 0; i < m; ++i) {
      r[i] = 0.0;
    }
  }
  for (long i = 0; i < m; ++i) {
    for (long j = 0; j < n; ++j) {
      double t = 0.0;
      for (long p = 0; p < n; ++p) {
        t = t + q[packed(j, p)] * a[p + i * n];
      }
      r[i] = l[j] * t + r[i];
    }
  }
}

}  // namespace reference
