#include <deque>
#include <utility>
#include <vector>

#include "golden/functions.h"
#include "golden/workload.h"
#include "subject.h"

namespace golden {
namespace {

enum Target { kDense, kPacked };

// A view of active + inactive rows.
struct PackedTarget : TSMatrix {
  PackedTarget(double* elements, int active, int inactive) : TSMatrix(elements, active + inactive) { SetDim1(active); }
};

// The arguments of every operator are its sizes a, b, ..., the operation code, by how many rows (columns) the target is
// larger than the product, for a packed target also how many inactive rows it has, the kind of numbers and the seed.
template <int sizes, Target target>
class Operator {
public:
  explicit Operator(Arguments& in)
      : a(read<Size>(in)),
        b(sizes > 1 ? read<Size>(in) : 0),
        c(sizes > 2 ? read<Size>(in) : 0),
        d(sizes > 3 ? read<Size>(in) : 0),
        op(in.code()),
        extra_(read<Size>(in)),
        inactive_(target == kPacked ? read<Size>(in) : 0),
        work_(in) {}

  int a, b, c, d;
  char op;

  TMatrix dense(int rows, int cols) { return {keep(work_.dense(rows, cols)), rows, cols}; }
  TSMatrix packed(int order) { return {keep(work_.packed(order)), order}; }

  // The target is drawn last.
  TMatrix dense_target(int rows, int cols) {
    return {keep(work_.dense_target(rows, cols + extra_)), rows, cols + extra_};
  }
  PackedTarget packed_target(int order) {
    const int active = order + extra_;
    return {keep(work_.packed_target(active + inactive_)), active, inactive_};
  }
  std::vector<double> target_elements() const { return buffers_.back(); }

private:
  double* keep(std::vector<double> elements) {
    buffers_.push_back(std::move(elements));
    return buffers_.back().data();
  }

  int extra_;
  int inactive_;
  Workload work_;
  std::deque<std::vector<double>> buffers_;
};

}  // namespace

Group operators() {
  return {"operators",
          "combined operators on symmetric and rectangular targets",
          {
              {"SMATRopRt_S_R",
               [](Operator<2, kPacked> x) {
                 const auto r = x.dense(x.a, x.b);
                 const auto s = x.packed(x.a);
                 auto t = x.packed_target(x.b);
                 SMATRopRt_S_R(t, x.op, r, s);
                 return x.target_elements();
               }},
              {"SMATRopRt_R",
               [](Operator<2, kPacked> x) {
                 const auto r = x.dense(x.a, x.b);
                 auto t = x.packed_target(x.b);
                 SMATRopRt_R(t, x.op, r);
                 return x.target_elements();
               }},
              {"SMATRopABti",
               [](Operator<2, kPacked> x) {
                 const auto a = x.dense(x.a, x.b);
                 const auto b = x.dense(x.a, x.b);
                 auto t = x.packed_target(x.a);
                 SMATRopABti(t, x.op, a, b);
                 return x.target_elements();
               }},
              {"SMATRopS1_S2",
               [](Operator<1, kPacked> x) {
                 const auto s1 = x.packed(x.a);
                 const auto s2 = x.packed(x.a);
                 auto t = x.packed_target(x.a);
                 SMATRopS1_S2(t, x.op, s1, s2);
                 return x.target_elements();
               }},
              {"SMATRopR_S_Rt",
               [](Operator<2, kPacked> x) {
                 const auto r = x.dense(x.a, x.b);
                 const auto s = x.packed(x.b);
                 auto t = x.packed_target(x.a);
                 SMATRopR_S_Rt(t, x.op, r, s);
                 return x.target_elements();
               }},
              {"MATRopS_R",
               [](Operator<2, kDense> x) {
                 const auto s = x.packed(x.a);
                 const auto r = x.dense(x.a, x.b);
                 auto t = x.dense_target(x.a, x.b);
                 MATRopS_R(t, x.op, s, r);
                 return x.target_elements();
               }},
              {"MATRopR_S",
               [](Operator<2, kDense> x) {
                 const auto r = x.dense(x.a, x.b);
                 const auto s = x.packed(x.b);
                 auto t = x.dense_target(x.a, x.b);
                 MATRopR_S(t, x.op, r, s);
                 return x.target_elements();
               }},
              {"MATRopR1t_R",
               [](Operator<3, kDense> x) {
                 const auto r1 = x.dense(x.a, x.b);
                 const auto r2 = x.dense(x.a, x.c);
                 auto t = x.dense_target(x.b, x.c);
                 MATRopR1t_R(t, x.op, r1, r2);
                 return x.target_elements();
               }},
              {"MATRopR1_R2",
               [](Operator<3, kDense> x) {
                 const auto r1 = x.dense(x.a, x.b);
                 const auto r2 = x.dense(x.b, x.c);
                 auto t = x.dense_target(x.a, x.c);
                 MATRopR1_R2(t, x.op, r1, r2);
                 return x.target_elements();
               }},
              {"MATRopR1_R2t",
               [](Operator<3, kDense> x) {
                 const auto r1 = x.dense(x.a, x.b);
                 const auto r2 = x.dense(x.c, x.b);
                 auto t = x.dense_target(x.a, x.c);
                 MATRopR1_R2t(t, x.op, r1, r2);
                 return x.target_elements();
               }},
              {"MATRopR1_S_R2t",
               [](Operator<3, kDense> x) {
                 const auto r1 = x.dense(x.a, x.b);
                 const auto s = x.packed(x.b);
                 const auto r2 = x.dense(x.c, x.b);
                 auto t = x.dense_target(x.a, x.c);
                 MATRopR1_S_R2t(t, x.op, r1, s, r2);
                 return x.target_elements();
               }},
              {"MATRopR1_R2_R3t",
               [](Operator<4, kDense> x) {
                 const auto r1 = x.dense(x.a, x.b);
                 const auto r2 = x.dense(x.b, x.c);
                 const auto r3 = x.dense(x.d, x.c);
                 auto t = x.dense_target(x.a, x.d);
                 MATRopR1_R2_R3t(t, x.op, r1, r2, r3);
                 return x.target_elements();
               }},
          }};
}

}  // namespace golden
