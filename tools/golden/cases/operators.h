#ifndef ALIDADE_TOOLS_GOLDEN_CASES_OPERATORS_H
#define ALIDADE_TOOLS_GOLDEN_CASES_OPERATORS_H

#include <deque>
#include <utility>
#include <vector>

#include "golden/functions.h"
#include "golden/workload.h"

namespace golden {

enum OperatorTarget { kDense, kPacked };

// The arguments of every operator are its sizes a, b, ..., the operation code, by how many rows (columns) the target is
// larger than the product, for a packed target also how many inactive rows it has, the kind of numbers and the seed.
template <class Api>
class Operator {
public:
  Operator(Arguments& in, int sizes, OperatorTarget target)
      : a(in.integer()),
        b(sizes > 1 ? in.integer() : 0),
        c(sizes > 2 ? in.integer() : 0),
        d(sizes > 3 ? in.integer() : 0),
        op(in.code()),
        extra_(in.integer()),
        narrowed_(target == kPacked ? in.integer() : 0),
        work_(in) {}

  const int a, b, c, d;
  const char op;

  typename Api::Dense dense(int rows, int cols) { return {keep(work_.dense(rows, cols)), rows, cols}; }
  typename Api::Packed packed(int order) { return {keep(work_.packed(order)), order}; }

  // The target is drawn last.
  typename Api::Dense dense_target(int rows, int cols) {
    return {keep(work_.dense_target(rows, cols + extra_)), rows, cols + extra_};
  }
  typename Api::PackedTarget packed_target(int order) {
    const int active = order + extra_;
    return {keep(work_.packed_target(active + narrowed_)), active, narrowed_};
  }
  void hash_target(Tokens& out) const { out.hash(buffers_.back()); }

private:
  double* keep(std::vector<double> elements) {
    buffers_.push_back(std::move(elements));
    return buffers_.back().data();
  }

  int extra_;
  int narrowed_;
  Workload work_;
  std::deque<std::vector<double>> buffers_;
};

// The operators have the same names in the library and in the reference: the types of the arguments decide which is
// called, since a function is also looked for in the namespace of its arguments' types.
template <class Api>
Group operators() {
  return {"operators",
          "combined operators on symmetric and rectangular targets",
          {
              {"SMATRopRt_S_R",
               [](Arguments& in, Tokens& out) {
                 Operator<Api> x(in, 2, kPacked);
                 const auto r = x.dense(x.a, x.b);
                 const auto s = x.packed(x.a);
                 auto t = x.packed_target(x.b);
                 SMATRopRt_S_R(t, x.op, r, s);
                 x.hash_target(out);
               }},
              {"SMATRopRt_R",
               [](Arguments& in, Tokens& out) {
                 Operator<Api> x(in, 2, kPacked);
                 const auto r = x.dense(x.a, x.b);
                 auto t = x.packed_target(x.b);
                 SMATRopRt_R(t, x.op, r);
                 x.hash_target(out);
               }},
              {"SMATRopABti",
               [](Arguments& in, Tokens& out) {
                 Operator<Api> x(in, 2, kPacked);
                 const auto left = x.dense(x.a, x.b);
                 const auto right = x.dense(x.a, x.b);
                 auto t = x.packed_target(x.a);
                 SMATRopABti(t, x.op, left, right);
                 x.hash_target(out);
               }},
              {"SMATRopS1_S2",
               [](Arguments& in, Tokens& out) {
                 Operator<Api> x(in, 1, kPacked);
                 const auto s1 = x.packed(x.a);
                 const auto s2 = x.packed(x.a);
                 auto t = x.packed_target(x.a);
                 SMATRopS1_S2(t, x.op, s1, s2);
                 x.hash_target(out);
               }},
              {"SMATRopR_S_Rt",
               [](Arguments& in, Tokens& out) {
                 Operator<Api> x(in, 2, kPacked);
                 const auto r = x.dense(x.a, x.b);
                 const auto s = x.packed(x.b);
                 auto t = x.packed_target(x.a);
                 SMATRopR_S_Rt(t, x.op, r, s);
                 x.hash_target(out);
               }},
              {"MATRopS_R",
               [](Arguments& in, Tokens& out) {
                 Operator<Api> x(in, 2, kDense);
                 const auto s = x.packed(x.a);
                 const auto r = x.dense(x.a, x.b);
                 auto t = x.dense_target(x.a, x.b);
                 MATRopS_R(t, x.op, s, r);
                 x.hash_target(out);
               }},
              {"MATRopR_S",
               [](Arguments& in, Tokens& out) {
                 Operator<Api> x(in, 2, kDense);
                 const auto r = x.dense(x.a, x.b);
                 const auto s = x.packed(x.b);
                 auto t = x.dense_target(x.a, x.b);
                 MATRopR_S(t, x.op, r, s);
                 x.hash_target(out);
               }},
              {"MATRopR1t_R",
               [](Arguments& in, Tokens& out) {
                 Operator<Api> x(in, 3, kDense);
                 const auto r1 = x.dense(x.a, x.b);
                 const auto r2 = x.dense(x.a, x.c);
                 auto t = x.dense_target(x.b, x.c);
                 MATRopR1t_R(t, x.op, r1, r2);
                 x.hash_target(out);
               }},
              {"MATRopR1_R2",
               [](Arguments& in, Tokens& out) {
                 Operator<Api> x(in, 3, kDense);
                 const auto r1 = x.dense(x.a, x.b);
                 const auto r2 = x.dense(x.b, x.c);
                 auto t = x.dense_target(x.a, x.c);
                 MATRopR1_R2(t, x.op, r1, r2);
                 x.hash_target(out);
               }},
              {"MATRopR1_R2t",
               [](Arguments& in, Tokens& out) {
                 Operator<Api> x(in, 3, kDense);
                 const auto r1 = x.dense(x.a, x.b);
                 const auto r2 = x.dense(x.c, x.b);
                 auto t = x.dense_target(x.a, x.c);
                 MATRopR1_R2t(t, x.op, r1, r2);
                 x.hash_target(out);
               }},
              {"MATRopR1_S_R2t",
               [](Arguments& in, Tokens& out) {
                 Operator<Api> x(in, 3, kDense);
                 const auto r1 = x.dense(x.a, x.b);
                 const auto s = x.packed(x.b);
                 const auto r2 = x.dense(x.c, x.b);
                 auto t = x.dense_target(x.a, x.c);
                 MATRopR1_S_R2t(t, x.op, r1, s, r2);
                 x.hash_target(out);
               }},
              {"MATRopR1_R2_R3t",
               [](Arguments& in, Tokens& out) {
                 Operator<Api> x(in, 4, kDense);
                 const auto r1 = x.dense(x.a, x.b);
                 const auto r2 = x.dense(x.b, x.c);
                 const auto r3 = x.dense(x.d, x.c);
                 auto t = x.dense_target(x.a, x.d);
                 MATRopR1_R2_R3t(t, x.op, r1, r2, r3);
                 x.hash_target(out);
               }},
          }};
}

}  // namespace golden

#endif
