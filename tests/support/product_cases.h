#ifndef ALIDADE_TESTS_SUPPORT_PRODUCT_CASES_H
#define ALIDADE_TESTS_SUPPORT_PRODUCT_CASES_H

// The products against their references, bit for bit. The functions call the public names only and can be run
// again after another set of kernels has been selected.

#include <alidade/matrix.h>

#include <algorithm>
#include <cstddef>
#include <sstream>
#include <string>

#include "reference/products.h"
#include "support/nasty.h"
#include "support/sizes.h"

namespace product_cases {

constexpr int kSmall[] = {0, 1, 2, 3, 7, 8, 9, 17};
constexpr int kPairs[] = {0, 1, 2, 3, 7, 8, 9, 15, 16, 17, 31, 33};
inline const std::vector<int> kLarge =
    sizes::all_or_few({15, 16, 31, 33, 64, 65, 100, 129, 200}, {15, 31, 33, 65, 129});
constexpr char kCodes[] = {'=', '|', '+', '-', '0', '>', '*', 'x', '\0', '\xff'};

inline std::ptrdiff_t dense(int rows, int cols) {
  return rows > 0 && cols > 0 ? static_cast<std::ptrdiff_t>(rows) * cols : 0;
}
inline std::ptrdiff_t packed(int order) { return order > 0 ? static_cast<std::ptrdiff_t>(order) * (order + 1) / 2 : 0; }

// A choice that changes from case to case without a period that the loops over the cases share.
inline int scatter(int counter, int choices) {
  return nasty::Random(static_cast<std::uint64_t>(counter)).below(choices);
}

inline nasty::Kind next_kind(int& counter) { return nasty::kAllKinds[scatter(counter++, 6)]; }

inline std::string describe(const char* name, nasty::Kind kind, char op, int n, int m, int k, int mode_a = 0,
                            int mode_b = 0) {
  std::ostringstream out;
  out << name << " kind " << static_cast<int>(kind) << " op " << static_cast<int>(static_cast<unsigned char>(op))
      << " n " << n << " m " << m << " k " << k << " modes " << mode_a << ", " << mode_b;
  return out.str();
}

inline void compare_dense(int n, int m, int k, nasty::Kind kind) {
  nasty::Random random(static_cast<std::uint64_t>((n * 1000 + m) * 1000 + k));
  {
    const nasty::Buffer a(dense(n, m), kind, random), b(dense(m, k), kind, random), c(dense(n, k), kind, random);
    nasty::expect_same_bits(
        c, [&](double* t) { MatrixProduct(a.data(), b.data(), t, n, m, k); },
        [&](double* t) { reference::matrix_product(a.data(), b.data(), t, n, m, k); },
        [&] { return describe("MatrixProduct", kind, '=', n, m, k); });
  }
  {
    const nasty::Buffer a(dense(n, m), kind, random), b(dense(n, k), kind, random), c(dense(m, k), kind, random);
    nasty::expect_same_bits(
        c, [&](double* t) { MAtB(a.data(), b.data(), t, n, m, k); },
        [&](double* t) { reference::transposed_product(a.data(), b.data(), t, n, m, k); },
        [&] { return describe("MAtB", kind, '=', n, m, k); });
  }
}

inline void compare_dense_products() {
  for (int n : kSmall) {
    for (int m : kSmall) {
      for (int k : kSmall) {
        for (nasty::Kind kind : nasty::kAllKinds) {
          compare_dense(n, m, k, kind);
        }
      }
    }
  }
  int counter = 0;
  for (int s : kLarge) {
    compare_dense(s, s, s, nasty::Kind::kWide);
    compare_dense(s, s, 3, next_kind(counter));
    compare_dense(s, 3, s, next_kind(counter));
    compare_dense(3, s, s, next_kind(counter));
    compare_dense(s, 1, 1, next_kind(counter));
    compare_dense(1, s, 1, next_kind(counter));
    compare_dense(1, 1, s, next_kind(counter));
    compare_dense(s, 7, 10, next_kind(counter));
    compare_dense(10, s, 7, next_kind(counter));
    compare_dense(7, 10, s, next_kind(counter));
  }
  for (int negative : {-1, -2, -7}) {
    compare_dense(negative, 3, 3, nasty::Kind::kUnit);
    compare_dense(3, negative, 3, nasty::Kind::kUnit);
    compare_dense(3, 3, negative, nasty::Kind::kUnit);
    compare_dense(negative, negative, 3, nasty::Kind::kUnit);
    compare_dense(negative, 3, negative, nasty::Kind::kUnit);
  }
}

// Elements that an operand of the given shape and mode can be asked for.
inline std::ptrdiff_t stored(int rows, int cols, int mode) {
  if (mode < 1) {
    return dense(rows, cols);
  }
  return mode == 1 ? packed(rows > 0 && cols > 0 ? std::max(rows, cols) : 0) : std::max(0, std::min(rows, cols));
}

inline void compare_mixed(int n, int m, int k, int mode_a, int mode_b, nasty::Kind kind) {
  const long long code = 10LL * mode_a + mode_b;
  nasty::Random random(static_cast<std::uint64_t>(((n * 1000LL + m) * 1000 + k) * 100 + code));
  const std::ptrdiff_t size_a = code == 22 ? n : stored(n, m, code == 0 ? 0 : mode_a);
  const std::ptrdiff_t size_b = code == 22 ? n : stored(m, k, code == 0 ? 0 : mode_b);
  const nasty::Buffer a(size_a, kind, random), b(size_b, kind, random);
  const nasty::Buffer c(code == 22 ? std::max<std::ptrdiff_t>(n, 0) : dense(n, k), kind, random);
  nasty::expect_same_bits(
      c, [&](double* t) { SMatrProduct(a.data(), b.data(), t, n, m, mode_a, mode_b, k); },
      [&](double* t) { reference::mixed_product(a.data(), b.data(), t, n, m, mode_a, mode_b, k); },
      [&] { return describe("SMatrProduct", kind, '=', n, m, k, mode_a, mode_b); });
}

inline void compare_mixed_products() {
  struct Modes {
    int a, b;
  };
  // The last six are the codes 0 and 22 formed by unlikely modes, and one that overflows an int.
  constexpr Modes kModes[] = {{0, 0}, {0, 1},   {0, 2},   {1, 0},  {1, 1},   {1, 2},  {2, 0},         {2, 1},
                              {2, 2}, {3, 3},   {-1, 0},  {0, -5}, {-1, -1}, {1, -1}, {-1, 2},        {5, 1},
                              {1, 7}, {-1, 10}, {1, -10}, {1, 12}, {3, -8},  {0, 22}, {2000000000, 1}};
  int counter = 0;
  for (const Modes& modes : kModes) {
    for (int n : {0, 1, 2, 3, 8, 17}) {
      for (int m : {0, 1, 2, 3, 8, 17}) {
        for (int k : {0, 1, 2, 3, 8, 17}) {
          compare_mixed(n, m, k, modes.a, modes.b, next_kind(counter));
        }
      }
    }
  }
  for (int s : kLarge) {
    for (int k : {1, 4}) {
      for (nasty::Kind kind : {nasty::Kind::kWide, nasty::Kind::kSparse, nasty::Kind::kSpecial}) {
        compare_mixed(s, s, k, 1, 0, kind);
        compare_mixed(s, s, k, 2, 0, kind);
        compare_mixed(k, s, s, 0, 1, kind);
      }
    }
  }
  compare_mixed(65, 65, 65, 1, 1, nasty::Kind::kWide);
  compare_mixed(-1, 3, 3, 1, 0, nasty::Kind::kUnit);
  compare_mixed(3, -1, 3, 1, 0, nasty::Kind::kUnit);
  compare_mixed(3, 3, -1, 1, 0, nasty::Kind::kUnit);
  compare_mixed(-2, -2, 3, 1, 1, nasty::Kind::kUnit);
}

inline void compare_congruence(int n, int m, char op, nasty::Kind kind) {
  nasty::Random random(static_cast<std::uint64_t>(n * 1000 + m));
  const nasty::Buffer a(dense(n, m), kind, random), q(packed(m), kind, random), c(packed(n), kind, random);
  nasty::expect_same_bits(
      c, [&](double* t) { SMatrProductAQAt(a.data(), q.data(), t, n, m, op); },
      [&](double* t) { reference::congruence_product(a.data(), q.data(), t, n, m, op); },
      [&] { return describe("SMatrProductAQAt", kind, op, n, m, 0); });
}

inline void compare_congruence_vector(int n, int m, char op, nasty::Kind kind) {
  nasty::Random random(static_cast<std::uint64_t>(n * 1000 + m));
  const nasty::Buffer a(dense(n, m), kind, random), q(packed(n), kind, random), l(n, kind, random), r(m, kind, random);
  nasty::expect_same_bits(
      r, [&](double* t) { MRAtQL(t, op, a.data(), q.data(), l.data(), n, m); },
      [&](double* t) { reference::transposed_congruence_vector(t, op, a.data(), q.data(), l.data(), n, m); },
      [&] { return describe("MRAtQL", kind, op, n, m, 0); });
}

inline void compare_congruence_products() {
  int counter = 0;
  for (int n : kPairs) {
    for (int m : kPairs) {
      for (char op : kCodes) {
        compare_congruence(n, m, op, next_kind(counter));
        compare_congruence_vector(n, m, op, next_kind(counter));
      }
    }
  }
  for (int s : kLarge) {
    compare_congruence(s, s, '-', nasty::Kind::kWide);
    compare_congruence_vector(s, s, '+', nasty::Kind::kWide);
    for (int thin : {1, 5}) {
      for (char op : {'=', '-', '+', '|'}) {
        compare_congruence(s, thin, op, next_kind(counter));
        compare_congruence(thin, s, op, next_kind(counter));
        compare_congruence_vector(s, thin, op, next_kind(counter));
        compare_congruence_vector(thin, s, op, next_kind(counter));
      }
    }
  }
  for (int negative : {-1, -2, -5}) {
    for (char op : kCodes) {
      compare_congruence(negative, 3, op, nasty::Kind::kUnit);
      compare_congruence(3, negative, op, nasty::Kind::kUnit);
      compare_congruence_vector(negative, 3, op, nasty::Kind::kUnit);
      compare_congruence_vector(3, negative, op, nasty::Kind::kUnit);
    }
  }
}

}  // namespace product_cases

#endif
