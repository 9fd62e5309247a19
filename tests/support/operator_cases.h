#ifndef ALIDADE_TESTS_SUPPORT_OPERATOR_CASES_H
#define ALIDADE_TESTS_SUPPORT_OPERATOR_CASES_H

// The operator family against its reference, bit for bit. The functions call the public names only and can be run again
// after another set of kernels has been selected.

#include <alidade/matrix.h>

#include <algorithm>
#include <cstddef>
#include <sstream>
#include <string>

#include "support/nasty.h"
#include "support/operator_calls.h"
#include "support/product_cases.h"

namespace operator_cases {

using product_cases::dense;
using product_cases::packed;
using reference::Dense;
using reference::Packed;

// A dense operand: a view for the library and one for the reference over the same elements.
class DenseOperand {
public:
  DenseOperand(int n1, int n2, nasty::Kind kind, nasty::Random& random)
      : n1_(n1), n2_(n2), buffer_(dense(n1, n2), kind, random) {}

  TMatrix view() { return TMatrix(buffer_.data(), n1_, n2_); }
  Dense plain() { return Dense{buffer_.data(), n1_, n2_}; }

private:
  int n1_;
  int n2_;
  nasty::Buffer buffer_;
};

class PackedOperand {
public:
  PackedOperand(int order, nasty::Kind kind, nasty::Random& random)
      : order_(order), buffer_(packed(order), kind, random) {}

  TSMatrix view() { return TSMatrix(buffer_.data(), order_); }
  Packed plain() { return Packed{buffer_.data(), order_}; }

private:
  int order_;
  nasty::Buffer buffer_;
};

struct Case {
  char op;
  nasty::Kind kind;
  int a, b, c;  // extents of the product and of the sums
  int extra;    // by how much targets and operands exceed what the product needs
  int narrow;   // by how much the active order of a packed target is narrowed

  std::string text(const char* name) const {
    std::ostringstream out;
    out << name << " op " << static_cast<int>(static_cast<unsigned char>(op)) << " kind " << static_cast<int>(kind)
        << " a " << a << " b " << b << " c " << c << " extra " << extra << " narrow " << narrow;
    return out.str();
  }
  nasty::Random random() const { return nasty::Random(static_cast<std::uint64_t>((a * 1000 + b) * 1000 + c)); }
};

// A packed target for a product of the given order. It has `extra` rows more, and its active order is then narrowed,
// possibly to less than the product's.
template <class Call, class... Operand>
void compare_packed(const char* name, const Call& call, const Case& c, int order, nasty::Random& random,
                    Operand&... operands) {
  const int full = std::max(order, 0) + c.extra;
  const int active = std::max(full - c.narrow, 0);
  const nasty::Buffer target(packed(full), c.kind, random);
  nasty::expect_same_bits(
      target,
      [&](double* t) {
        TSMatrix T(t, full);
        T.SetDim1(active);
        call(T, c.op, operands.view()...);
      },
      [&](double* t) {
        Packed T{t, active};
        call(T, c.op, operands.plain()...);
      },
      [&] { return c.text(name); });
}

// A dense target of n1 x n2 elements.
template <class Call, class... Operand>
void compare_dense(const char* name, const Call& call, const Case& c, int n1, int n2, nasty::Random& random,
                   Operand&... operands) {
  const nasty::Buffer target(dense(n1, n2), c.kind, random);
  nasty::expect_same_bits(
      target,
      [&](double* t) {
        TMatrix T(t, n1, n2);
        call(T, c.op, operands.view()...);
      },
      [&](double* t) {
        Dense T{t, n1, n2};
        call(T, c.op, operands.plain()...);
      },
      [&] { return c.text(name); });
}

inline void compare_packed_targets(const Case& c) {
  nasty::Random random = c.random();
  DenseOperand r(c.a, c.b, c.kind, random), r2(c.a, c.b, c.kind, random);
  PackedOperand sa(c.a, c.kind, random), sb(c.b, c.kind, random), sa2(c.a, c.kind, random);
  compare_packed("SMATRopRt_S_R", operator_calls::rt_s_r, c, c.b, random, r, sa);
  compare_packed("SMATRopRt_R", operator_calls::rt_r, c, c.b, random, r);
  compare_packed("SMATRopABti", operator_calls::a_bt, c, c.a, random, r, r2);
  compare_packed("SMATRopS1_S2", operator_calls::s1_s2, c, c.a, random, sa, sa2);
  compare_packed("SMATRopR_S_Rt", operator_calls::r_s_rt, c, c.a, random, r, sb);
}

// Targets of the three members that address and clear them by their own shape.
inline void compare_own_targets(const Case& c) {
  nasty::Random random = c.random();
  DenseOperand r(c.a, c.b, c.kind, random);
  DenseOperand taller(c.a > 0 ? c.a + c.extra : c.a, c.c, c.kind, random);
  PackedOperand sa(c.a, c.kind, random), sb(c.b, c.kind, random);
  compare_dense("MATRopS_R", operator_calls::s_r, c, c.a + c.extra, c.b + c.extra, random, sa, r);
  compare_dense("MATRopR_S", operator_calls::r_s, c, c.a + c.extra, c.b + c.extra, random, r, sb);
  compare_dense("MATRopR1t_R", operator_calls::r1t_r, c, c.b + c.extra, c.c + c.extra, random, r, taller);
}

// Targets of the four members that address and clear them by the product's extents. The target's own shape has the
// capacity and nothing else in common with the product.
inline void compare_product_targets(const Case& c) {
  nasty::Random random = c.random();
  const int wider = c.b > 0 ? c.b + c.extra : c.b;
  DenseOperand ab(c.a, c.b, c.kind, random), ab_wider(c.a, wider, c.kind, random);
  DenseOperand bc_taller(wider, c.c, c.kind, random), cb(c.c, c.b, c.kind, random);
  DenseOperand bc_wider(c.b, c.c > 0 ? c.c + c.extra : c.c, c.kind, random);
  DenseOperand dc(c.extra + 2, c.c, c.kind, random);
  PackedOperand sb(c.b, c.kind, random);
  const int n1 = std::max(c.c, 0) + c.extra;  // rows and columns swapped
  const int n2 = std::max(c.a, 0) + c.extra;
  compare_dense("MATRopR1_R2", operator_calls::r1_r2, c, n1, n2, random, ab, bc_taller);
  compare_dense("MATRopR1_R2t", operator_calls::r1_r2t, c, n1, n2, random, ab_wider, cb);
  compare_dense("MATRopR1_S_R2t", operator_calls::r1_s_r2t, c, n1, n2, random, ab_wider, sb, cb);
  compare_dense("MATRopR1_R2_R3t", operator_calls::r1_r2_r3t, c, c.extra + 3, n2, random, ab_wider, bc_wider, dc);
}

inline void compare_family(const Case& c) {
  compare_packed_targets(c);
  compare_own_targets(c);
  compare_product_targets(c);
}

inline void compare_small() {
  int counter = 0;
  for (int a : {0, 1, 2, 3, 8, 9}) {
    for (int b : {0, 1, 2, 3, 7, 17}) {
      for (int c : {0, 1, 2, 5, 8}) {
        for (char op : product_cases::kCodes) {
          const int extra = product_cases::scatter(counter + 1000000, 4);
          const int narrow = product_cases::scatter(counter + 2000000, 3);
          compare_family({op, product_cases::next_kind(counter), a, b, c, extra, narrow});
        }
      }
    }
  }
}

inline void compare_large() {
  int counter = 0;
  for (int s : product_cases::kLarge) {
    for (char op : {'=', '-'}) {
      compare_family({op, product_cases::next_kind(counter), s, 9, 4, 1, 0});
      compare_family({op, product_cases::next_kind(counter), 9, s, 4, 0, 3});
      compare_family({op, product_cases::next_kind(counter), 6, 3, s, 2, 1});
    }
    if (s <= 129) {
      compare_family({s % 2 == 0 ? '|' : '+', nasty::Kind::kWide, s, s, 17, 0, 0});
    }
  }
}

// A target with fewer rows than the product, in a buffer that is large enough: its columns overlap, so that the order
// in which the elements are reached shows in the bits.
inline void compare_overlapping() {
  int counter = 0;
  for (int a : {2, 5, 16, 40}) {
    for (int rows : {0, 1, a / 2, a - 1}) {
      for (char op : {'=', '|', '+', '-'}) {
        const Case c = {op, product_cases::next_kind(counter), a, 17, 9, 0, 0};
        nasty::Random random = c.random();
        DenseOperand wide(a, c.b, c.kind, random), tall(c.c, a, c.kind, random);
        DenseOperand other(c.c, c.b, c.kind, random);
        PackedOperand sa(a, c.kind, random), sb(c.b, c.kind, random);
        const TMatrix Wide = wide.view(), Tall = tall.view(), Other = other.view();
        const TSMatrix Sa = sa.view(), Sb = sb.view();
        const nasty::Buffer target(static_cast<std::ptrdiff_t>(rows) * c.b + a, c.kind, random);
        const auto compare = [&](const char* name, const auto& tested, const auto& expected) {
          nasty::expect_same_bits(
              target,
              [&](double* t) {
                TMatrix T(t, rows, c.b);
                tested(T);
              },
              [&](double* t) {
                expected(Dense{t, rows, c.b});
              },
              [&] { return c.text(name) + " rows " + std::to_string(rows); });
        };
        compare(
            "MATRopS_R", [&](TMatrix& T) { MATRopS_R(T, op, Sa, Wide); },
            [&](Dense t) { reference::MATRopS_R(t, op, sa.plain(), wide.plain()); });
        compare(
            "MATRopR_S", [&](TMatrix& T) { MATRopR_S(T, op, Wide, Sb); },
            [&](Dense t) { reference::MATRopR_S(t, op, wide.plain(), sb.plain()); });
        compare(
            "MATRopR1t_R", [&](TMatrix& T) { MATRopR1t_R(T, op, Tall, Other); },
            [&](Dense t) { reference::MATRopR1t_R(t, op, tall.plain(), other.plain()); });
      }
    }
  }
}

inline void compare_negative() {
  for (char op : product_cases::kCodes) {
    compare_family({op, nasty::Kind::kUnit, -1, 3, 2, 4, 0});
    compare_family({op, nasty::Kind::kUnit, 3, -1, 2, 4, 0});
    compare_family({op, nasty::Kind::kUnit, 3, 2, -1, 4, 0});
    compare_family({op, nasty::Kind::kUnit, -2, 3, -3, 4, 0});
    compare_family({op, nasty::Kind::kUnit, -2, -2, 3, 4, 0});
  }
}

}  // namespace operator_cases

#endif
