#include <alidade/matrix.h>

#include "golden/workload.h"
#include "verify/groups/groups.h"

namespace verify {
namespace {

using golden::Arguments;
using golden::Tokens;
using golden::Workload;

// Target of a symmetric operator: a view of order `order + narrowed`, of which `order` rows are active.
struct PackedTarget {
  PackedTarget(std::vector<double>& elements, int order, int narrowed) : matrix(elements.data(), order + narrowed) {
    matrix.SetDim1(order);
  }
  TSMatrix matrix;
};

}  // namespace

// The arguments of every operator are its sizes, the operation code, by how many rows (columns) the target is larger
// than the product, for a symmetric target also how many inactive rows it has, the kind of numbers and the seed.
golden::Group operators() {
  return {"operators",
          "combined operators on symmetric and rectangular targets",
          {
              {"SMATRopRt_S_R",
               [](Arguments& in, Tokens& out) {
                 const int a = in.integer();
                 const int b = in.integer();
                 const char op = in.code();
                 const int extra = in.integer();
                 const int narrowed = in.integer();
                 Workload work(in);
                 std::vector<double> r = work.dense(a, b);
                 std::vector<double> s = work.packed(a);
                 std::vector<double> t = work.packed_target(b + extra + narrowed);
                 PackedTarget target(t, b + extra, narrowed);
                 SMATRopRt_S_R(target.matrix, op, TMatrix(r.data(), a, b), TSMatrix(s.data(), a));
                 out.hash(t);
               }},
              {"SMATRopRt_R",
               [](Arguments& in, Tokens& out) {
                 const int a = in.integer();
                 const int b = in.integer();
                 const char op = in.code();
                 const int extra = in.integer();
                 const int narrowed = in.integer();
                 Workload work(in);
                 std::vector<double> r = work.dense(a, b);
                 std::vector<double> t = work.packed_target(b + extra + narrowed);
                 PackedTarget target(t, b + extra, narrowed);
                 SMATRopRt_R(target.matrix, op, TMatrix(r.data(), a, b));
                 out.hash(t);
               }},
              {"SMATRopABti",
               [](Arguments& in, Tokens& out) {
                 const int a = in.integer();
                 const int b = in.integer();
                 const char op = in.code();
                 const int extra = in.integer();
                 const int narrowed = in.integer();
                 Workload work(in);
                 std::vector<double> left = work.dense(a, b);
                 std::vector<double> right = work.dense(a, b);
                 std::vector<double> t = work.packed_target(a + extra + narrowed);
                 PackedTarget target(t, a + extra, narrowed);
                 SMATRopABti(target.matrix, op, TMatrix(left.data(), a, b), TMatrix(right.data(), a, b));
                 out.hash(t);
               }},
              {"SMATRopS1_S2",
               [](Arguments& in, Tokens& out) {
                 const int n = in.integer();
                 const char op = in.code();
                 const int extra = in.integer();
                 const int narrowed = in.integer();
                 Workload work(in);
                 std::vector<double> s1 = work.packed(n);
                 std::vector<double> s2 = work.packed(n);
                 std::vector<double> t = work.packed_target(n + extra + narrowed);
                 PackedTarget target(t, n + extra, narrowed);
                 SMATRopS1_S2(target.matrix, op, TSMatrix(s1.data(), n), TSMatrix(s2.data(), n));
                 out.hash(t);
               }},
              {"SMATRopR_S_Rt",
               [](Arguments& in, Tokens& out) {
                 const int a = in.integer();
                 const int b = in.integer();
                 const char op = in.code();
                 const int extra = in.integer();
                 const int narrowed = in.integer();
                 Workload work(in);
                 std::vector<double> r = work.dense(a, b);
                 std::vector<double> s = work.packed(b);
                 std::vector<double> t = work.packed_target(a + extra + narrowed);
                 PackedTarget target(t, a + extra, narrowed);
                 SMATRopR_S_Rt(target.matrix, op, TMatrix(r.data(), a, b), TSMatrix(s.data(), b));
                 out.hash(t);
               }},
              {"MATRopS_R",
               [](Arguments& in, Tokens& out) {
                 const int a = in.integer();
                 const int b = in.integer();
                 const char op = in.code();
                 const int extra = in.integer();
                 Workload work(in);
                 std::vector<double> s = work.packed(a);
                 std::vector<double> r = work.dense(a, b);
                 std::vector<double> t = work.dense_target(a, b + extra);
                 TMatrix target(t.data(), a, b + extra);
                 MATRopS_R(target, op, TSMatrix(s.data(), a), TMatrix(r.data(), a, b));
                 out.hash(t);
               }},
              {"MATRopR_S",
               [](Arguments& in, Tokens& out) {
                 const int a = in.integer();
                 const int b = in.integer();
                 const char op = in.code();
                 const int extra = in.integer();
                 Workload work(in);
                 std::vector<double> r = work.dense(a, b);
                 std::vector<double> s = work.packed(b);
                 std::vector<double> t = work.dense_target(a, b + extra);
                 TMatrix target(t.data(), a, b + extra);
                 MATRopR_S(target, op, TMatrix(r.data(), a, b), TSMatrix(s.data(), b));
                 out.hash(t);
               }},
              {"MATRopR1t_R",
               [](Arguments& in, Tokens& out) {
                 const int a = in.integer();
                 const int b = in.integer();
                 const int c = in.integer();
                 const char op = in.code();
                 const int extra = in.integer();
                 Workload work(in);
                 std::vector<double> r1 = work.dense(a, b);
                 std::vector<double> r2 = work.dense(a, c);
                 std::vector<double> t = work.dense_target(b, c + extra);
                 TMatrix target(t.data(), b, c + extra);
                 MATRopR1t_R(target, op, TMatrix(r1.data(), a, b), TMatrix(r2.data(), a, c));
                 out.hash(t);
               }},
              {"MATRopR1_R2",
               [](Arguments& in, Tokens& out) {
                 const int a = in.integer();
                 const int b = in.integer();
                 const int c = in.integer();
                 const char op = in.code();
                 const int extra = in.integer();
                 Workload work(in);
                 std::vector<double> r1 = work.dense(a, b);
                 std::vector<double> r2 = work.dense(b, c);
                 std::vector<double> t = work.dense_target(a, c + extra);
                 TMatrix target(t.data(), a, c + extra);
                 MATRopR1_R2(target, op, TMatrix(r1.data(), a, b), TMatrix(r2.data(), b, c));
                 out.hash(t);
               }},
              {"MATRopR1_R2t",
               [](Arguments& in, Tokens& out) {
                 const int a = in.integer();
                 const int b = in.integer();
                 const int c = in.integer();
                 const char op = in.code();
                 const int extra = in.integer();
                 Workload work(in);
                 std::vector<double> r1 = work.dense(a, b);
                 std::vector<double> r2 = work.dense(c, b);
                 std::vector<double> t = work.dense_target(a, c + extra);
                 TMatrix target(t.data(), a, c + extra);
                 MATRopR1_R2t(target, op, TMatrix(r1.data(), a, b), TMatrix(r2.data(), c, b));
                 out.hash(t);
               }},
              {"MATRopR1_S_R2t",
               [](Arguments& in, Tokens& out) {
                 const int a = in.integer();
                 const int b = in.integer();
                 const int c = in.integer();
                 const char op = in.code();
                 const int extra = in.integer();
                 Workload work(in);
                 std::vector<double> r1 = work.dense(a, b);
                 std::vector<double> s = work.packed(b);
                 std::vector<double> r2 = work.dense(c, b);
                 std::vector<double> t = work.dense_target(a, c + extra);
                 TMatrix target(t.data(), a, c + extra);
                 MATRopR1_S_R2t(target, op, TMatrix(r1.data(), a, b), TSMatrix(s.data(), b), TMatrix(r2.data(), c, b));
                 out.hash(t);
               }},
              {"MATRopR1_R2_R3t",
               [](Arguments& in, Tokens& out) {
                 const int a = in.integer();
                 const int b = in.integer();
                 const int c = in.integer();
                 const int d = in.integer();
                 const char op = in.code();
                 const int extra = in.integer();
                 Workload work(in);
                 std::vector<double> r1 = work.dense(a, b);
                 std::vector<double> r2 = work.dense(b, c);
                 std::vector<double> r3 = work.dense(d, c);
                 std::vector<double> t = work.dense_target(a, d + extra);
                 TMatrix target(t.data(), a, d + extra);
                 MATRopR1_R2_R3t(target, op, TMatrix(r1.data(), a, b), TMatrix(r2.data(), b, c),
                                 TMatrix(r3.data(), d, c));
                 out.hash(t);
               }},
          }};
}

}  // namespace verify
