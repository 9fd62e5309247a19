#ifndef ALIDADE_TOOLS_GOLDEN_CASES_PRODUCTS_H
#define ALIDADE_TOOLS_GOLDEN_CASES_PRODUCTS_H

#include <vector>

#include "golden/functions.h"
#include "golden/workload.h"

namespace golden {

template <class Api>
Group products() {
  return {"products",
          "product kernels on bare buffers and the matrix members built on them",
          {
              {"MatrixProduct",
               [](Arguments& in, Tokens& out) {
                 const auto [n, m, k] = in.integers<3>();
                 Workload work(in);
                 std::vector<double> a = work.dense(n, m);
                 std::vector<double> b = work.dense(m, k);
                 std::vector<double> c = work.dense_target(n, k);
                 Api::matrix_product(a.data(), b.data(), c.data(), n, m, k);
                 out.hash(c);
               }},
              {"MAtB",
               [](Arguments& in, Tokens& out) {
                 const auto [n, m, k] = in.integers<3>();
                 Workload work(in);
                 std::vector<double> a = work.dense(n, m);
                 std::vector<double> b = work.dense(n, k);
                 std::vector<double> c = work.dense_target(m, k);
                 Api::transposed_product(a.data(), b.data(), c.data(), n, m, k);
                 out.hash(c);
               }},
              {"SMatrProduct",
               [](Arguments& in, Tokens& out) {
                 const auto [n, m, mode_a, mode_b, k] = in.integers<5>();
                 Workload work(in);
                 std::vector<double> a = work.operand(n, m);
                 std::vector<double> b = work.operand(m, k);
                 std::vector<double> c = work.dense_target(n, k);
                 Api::mixed_product(a.data(), b.data(), c.data(), n, m, mode_a, mode_b, k);
                 out.hash(c);
               }},
              {"SMatrProductAQAt",
               [](Arguments& in, Tokens& out) {
                 const auto [n, m] = in.integers<2>();
                 const char op = in.code();
                 Workload work(in);
                 std::vector<double> a = work.dense(n, m);
                 std::vector<double> q = work.packed(m);
                 std::vector<double> c = work.packed_target(n);
                 Api::congruence_product(a.data(), q.data(), c.data(), n, m, op);
                 out.hash(c);
               }},
              {"MRAtQL",
               [](Arguments& in, Tokens& out) {
                 const auto [n, m] = in.integers<2>();
                 const char op = in.code();
                 Workload work(in);
                 std::vector<double> a = work.dense(n, m);
                 std::vector<double> q = work.packed(n);
                 std::vector<double> l = work.dense(n, 1);
                 std::vector<double> r = work.dense_target(m, 1);
                 Api::transposed_congruence_vector(r.data(), op, a.data(), q.data(), l.data(), n, m);
                 out.hash(r);
               }},
              {"TSMatrix::A_This_At",
               [](Arguments& in, Tokens& out) {
                 const auto [n, m] = in.integers<2>();
                 Workload work(in);
                 std::vector<double> a = work.dense(n, m);
                 std::vector<double> q = work.packed(m);
                 std::vector<double> c = work.packed_target(n);
                 Api::a_this_at(a.data(), q.data(), c.data(), n, m);
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
                 Api::packed_times_column(s.data(), b.data(), op, p.data(), n);
                 out.hash(p);
               }},
              {"TSMatrix::MatrProduct(TMatrix)",
               [](Arguments& in, Tokens& out) {
                 const auto [n, k] = in.integers<2>();
                 const char op = in.code();
                 Workload work(in);
                 std::vector<double> s = work.packed(n);
                 std::vector<double> b = work.dense(n, k);
                 std::vector<double> p = work.dense_target(n, k);
                 Api::packed_times_dense(s.data(), b.data(), op, p.data(), n, k);
                 out.hash(p);
               }},
          }};
}

}  // namespace golden

#endif
