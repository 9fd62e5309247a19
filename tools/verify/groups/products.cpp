#include <alidade/matrix.h>

#include "golden/workload.h"
#include "verify/groups/groups.h"

namespace verify {

using golden::Arguments;
using golden::Tokens;
using golden::Workload;

golden::Group products() {
  return {"products",
          "product kernels on bare buffers and the matrix members built on them",
          {
              {"MatrixProduct",
               [](Arguments& in, Tokens& out) {
                 const int n = in.integer();
                 const int m = in.integer();
                 const int k = in.integer();
                 Workload work(in);
                 const std::vector<double> a = work.dense(n, m);
                 const std::vector<double> b = work.dense(m, k);
                 std::vector<double> c = work.dense_target(n, k);
                 MatrixProduct(a.data(), b.data(), c.data(), n, m, k);
                 out.hash(c);
               }},
              {"MAtB",
               [](Arguments& in, Tokens& out) {
                 const int n = in.integer();
                 const int m = in.integer();
                 const int k = in.integer();
                 Workload work(in);
                 const std::vector<double> a = work.dense(n, m);
                 const std::vector<double> b = work.dense(n, k);
                 std::vector<double> c = work.dense_target(m, k);
                 MAtB(a.data(), b.data(), c.data(), n, m, k);
                 out.hash(c);
               }},
              {"SMatrProduct",
               [](Arguments& in, Tokens& out) {
                 const int n = in.integer();
                 const int m = in.integer();
                 const int mode_a = in.integer();
                 const int mode_b = in.integer();
                 const int k = in.integer();
                 Workload work(in);
                 const std::vector<double> a = work.operand(n, m);
                 const std::vector<double> b = work.operand(m, k);
                 std::vector<double> c = work.dense_target(n, k);
                 SMatrProduct(a.data(), b.data(), c.data(), n, m, mode_a, mode_b, k);
                 out.hash(c);
               }},
              {"SMatrProductAQAt",
               [](Arguments& in, Tokens& out) {
                 const int n = in.integer();
                 const int m = in.integer();
                 const char op = in.code();
                 Workload work(in);
                 const std::vector<double> a = work.dense(n, m);
                 const std::vector<double> q = work.packed(m);
                 std::vector<double> c = work.packed_target(n);
                 SMatrProductAQAt(a.data(), q.data(), c.data(), n, m, op);
                 out.hash(c);
               }},
              {"MRAtQL",
               [](Arguments& in, Tokens& out) {
                 const int n = in.integer();
                 const int m = in.integer();
                 const char op = in.code();
                 Workload work(in);
                 const std::vector<double> a = work.dense(n, m);
                 const std::vector<double> q = work.packed(n);
                 const std::vector<double> l = work.dense(n, 1);
                 std::vector<double> r = work.dense_target(m, 1);
                 MRAtQL(r.data(), op, a.data(), q.data(), l.data(), n, m);
                 out.hash(r);
               }},
              {"TSMatrix::A_This_At",
               [](Arguments& in, Tokens& out) {
                 const int n = in.integer();
                 const int m = in.integer();
                 Workload work(in);
                 std::vector<double> a = work.dense(n, m);
                 std::vector<double> q = work.packed(m);
                 std::vector<double> c = work.packed_target(n);
                 TSMatrix s(q.data(), m);
                 TSMatrix r(c.data(), n);
                 s.A_This_At(a.data(), r);
                 out.hash(c);
               }},
              {"TSMatrix::MatrProduct(column)",
               [](Arguments& in, Tokens& out) {
                 const int n = in.integer();
                 const char op = in.code();
                 Workload work(in);
                 std::vector<double> s = work.packed(n);
                 std::vector<double> b = work.dense(n, 1);
                 std::vector<double> p = work.dense_target(n, 1);
                 TSMatrix(s.data(), n).MatrProduct(b.data(), op, p.data());
                 out.hash(p);
               }},
              {"TSMatrix::MatrProduct(TMatrix)",
               [](Arguments& in, Tokens& out) {
                 const int n = in.integer();
                 const int k = in.integer();
                 const char op = in.code();
                 Workload work(in);
                 std::vector<double> s = work.packed(n);
                 std::vector<double> b = work.dense(n, k);
                 std::vector<double> p = work.dense_target(n, k);
                 TMatrix right(b.data(), n, k);
                 TMatrix product(p.data(), n, k);
                 TSMatrix(s.data(), n).MatrProduct(right, op, product);
                 out.hash(p);
               }},
          }};
}

}  // namespace verify
