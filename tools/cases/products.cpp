#include <vector>

#include "golden/functions.h"
#include "golden/workload.h"
#include "subject.h"

namespace golden {

using Buffer = std::vector<double>;
using Mode = Within<-100, 100>;

Group products() {
  return {"products",
          "product kernels on bare buffers and the matrix members built on them",
          {
              {"MatrixProduct",
               [](Size n, Size m, Size k, Workload work) {
                 const Buffer a = work.dense(n, m);
                 const Buffer b = work.dense(m, k);
                 Buffer c = work.dense_target(n, k);
                 MatrixProduct(a.data(), b.data(), c.data(), n, m, k);
                 return c;
               }},
              {"MAtB",
               [](Size n, Size m, Size k, Workload work) {
                 const Buffer a = work.dense(n, m);
                 const Buffer b = work.dense(n, k);
                 Buffer c = work.dense_target(m, k);
                 MAtB(a.data(), b.data(), c.data(), n, m, k);
                 return c;
               }},
              {"SMatrProduct",
               [](Size n, Size m, Mode mode_a, Mode mode_b, Size k, Workload work) {
                 const Buffer a = work.operand(n, m);
                 const Buffer b = work.operand(m, k);
                 Buffer c = work.dense_target(n, k);
                 SMatrProduct(a.data(), b.data(), c.data(), n, m, mode_a, mode_b, k);
                 return c;
               }},
              {"SMatrProductAQAt",
               [](Size n, Size m, char op, Workload work) {
                 const Buffer a = work.dense(n, m);
                 const Buffer q = work.packed(m);
                 Buffer c = work.packed_target(n);
                 SMatrProductAQAt(a.data(), q.data(), c.data(), n, m, op);
                 return c;
               }},
              {"MRAtQL",
               [](Size n, Size m, char op, Workload work) {
                 const Buffer a = work.dense(n, m);
                 const Buffer q = work.packed(n);
                 const Buffer l = work.dense(n, 1);
                 Buffer r = work.dense_target(m, 1);
                 MRAtQL(r.data(), op, a.data(), q.data(), l.data(), n, m);
                 return r;
               }},
              {"TSMatrix::A_This_At",
               [](Size n, Size m, Workload work) {
                 Buffer a = work.dense(n, m);
                 Buffer q = work.packed(m);
                 Buffer c = work.packed_target(n);
                 TSMatrix target(c.data(), n);
                 TSMatrix(q.data(), m).A_This_At(a.data(), target);
                 return c;
               }},
              {"TSMatrix::MatrProduct(column)",
               [](Size n, char op, Workload work) {
                 Buffer s = work.packed(n);
                 Buffer b = work.dense(n, 1);
                 Buffer p = work.dense_target(n, 1);
                 TSMatrix(s.data(), n).MatrProduct(b.data(), op, p.data());
                 return p;
               }},
              {"TSMatrix::MatrProduct(TMatrix)",
               [](Size n, Size k, char op, Workload work) {
                 Buffer s = work.packed(n);
                 Buffer b = work.dense(n, k);
                 Buffer p = work.dense_target(n, k);
                 TMatrix right(b.data(), n, k);
                 TMatrix product(p.data(), n, k);
                 TSMatrix(s.data(), n).MatrProduct(right, op, product);
                 return p;
               }},
          }};
}

}  // namespace golden
