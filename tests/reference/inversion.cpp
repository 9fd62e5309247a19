#include "reference/inversion.h"

#include <climits>
#include <cmath>

#include "reference/operators.h"

namespace reference {
namespace {

// Element (i, j), both from 1, i >= j.
double& element(double* packed, long i, long j) { return packed[(i - 1) * i / 2 + (j - 1)]; }

struct Progress {
  int* value;
  std::vector<int>* sequence;

  void report(double v) const {
    v = v + 0.5;
    if (v >= 100.0) {
      *value = 99;
    } else if (v <= static_cast<double>(INT_MIN)) {
      *value = INT_MIN;
    } else {
      *value = static_cast<int>(v);
    }
    if (sequence != nullptr) {
      sequence->push_back(*value);
    }
  }
};

double cube(double x) { return (x * x) * x; }

}  // namespace

int rare_inversion(double* packed, int n, int* progress, int span, std::vector<int>* sequence) {
  if (n < 1) {
    return 0;
  }
  const double third = 1.0 / 3.0;
  const double t = static_cast<double>(span) * third;
  const double u = ((t / n) / n) / n;
  const double b = progress != nullptr ? *progress : 0.0;
  const Progress out = {progress, sequence};
  std::vector<double> reciprocal(static_cast<std::size_t>(n) + 1);
  std::vector<double> work(static_cast<std::size_t>(n) + 1);
  std::vector<unsigned char> flag(static_cast<std::size_t>(n) + 1);

  for (int k = 1; k <= n; ++k) {
    if (progress != nullptr && k % 8 == 0) {
      out.report(b + (t - cube(n - k + 1) * u));
    }
    double s = element(packed, k, k);
    for (int i = k + 1; i <= n; ++i) {
      work[i] = element(packed, i, k);
      flag[i] = work[i] != 0.0 ? 1 : 0;
    }
    for (int j = 1; j < k; ++j) {
      const double l = element(packed, k, j);
      if (l != 0.0) {
        s = s - l * l;
        for (int i = k + 1; i <= n; ++i) {
          if (element(packed, i, j) != 0.0) {
            work[i] = work[i] - element(packed, i, j) * l;
            flag[i] = 1;
          }
        }
      }
    }
    if (!(s > 0.0)) {
      return k;
    }
    const double r = 1.0 / std::sqrt(s);
    reciprocal[k] = r;
    element(packed, k, k) = r;
    for (int i = k + 1; i <= n; ++i) {
      element(packed, i, k) = flag[i] != 0 ? r * work[i] : 0.0;
    }
  }

  for (int k = 2; k <= n; ++k) {
    if (progress != nullptr && k % 8 == 0) {
      out.report((b + t) + cube(k) * u);
    }
    for (int i = 1; i < k; ++i) {
      work[i] = 0.0;
    }
    for (int j = 1; j < k; ++j) {
      if (element(packed, k, j) != 0.0) {
        const double c = -reciprocal[k] * element(packed, k, j);
        for (int i = 1; i <= j; ++i) {
          work[i] = work[i] + c * element(packed, j, i);
        }
      }
    }
    for (int i = 1; i < k; ++i) {
      element(packed, k, i) = work[i];
    }
  }

  for (int m = 1; m <= n; ++m) {
    for (int p = 1; p < m; ++p) {
      const double x = element(packed, m, p);
      if (x != 0.0) {
        for (int q = 1; q <= p; ++q) {
          element(packed, p, q) = element(packed, p, q) + x * element(packed, m, q);
        }
      }
    }
    const double diagonal = element(packed, m, m);
    for (int j = 1; j <= m; ++j) {
      element(packed, m, j) = element(packed, m, j) * diagonal;
    }
    if (progress != nullptr && m % 8 == 0) {
      out.report(((b + t) + t) + cube(m) * u);
    }
  }
  return 0;
}

int pseudo_inversion(double* packed, int n, int d) {
  if (d < 1) {
    return 0;
  }
  const int m = n - d;
  if (m < 0) {
    return -1;
  }
  const auto rectangle = static_cast<std::size_t>(m) * static_cast<std::size_t>(d);
  const auto triangle = static_cast<std::size_t>(d) * (static_cast<std::size_t>(d) + 1) / 2;
  std::vector<double> g_data(rectangle), h_data(rectangle), k_data(rectangle), m_data(rectangle);
  std::vector<double> d_data(triangle), e_data(triangle);
  const Dense g{g_data.data(), m, d}, h{h_data.data(), m, d}, k{k_data.data(), m, d}, mm{m_data.data(), m, d};
  const Packed dd{d_data.data(), d}, e{e_data.data(), d}, q{packed, m}, whole{packed, n};

  for (int j = 0; j < d; ++j) {
    for (int i = 0; i < m; ++i) {
      g.at(i, j) = whole.at(i, m + j);
    }
  }
  MATRopS_R(h, '=', q, g);
  for (int i = 0; i < d; ++i) {
    dd.at(i, i) = 1.0;
  }
  SMATRopRt_R(dd, '+', h);
  if (rare_inversion(dd.data, d, nullptr, 99) != 0) {
    return -1;
  }
  MATRopR_S(k, '=', h, dd);
  MATRopS_R(mm, '=', q, k);
  SMATRopRt_S_R(e, '=', h, q);
  SMATRopABti(q, '-', h, mm);
  SMATRopR_S_Rt(q, '+', k, e);
  MATRopS_R(g, '=', q, h);
  SMATRopRt_S_R(e, '=', h, q);
  for (int j = 0; j < d; ++j) {
    for (int i = 0; i < m; ++i) {
      whole.at(i, m + j) = g.at(i, j);
    }
    for (int i = j; i < d; ++i) {
      whole.at(m + i, m + j) = e.at(i, j);
    }
  }
  return 0;
}

}  // namespace reference
