#include <vector>

#include "golden/functions.h"
#include "golden/workload.h"
#include "subject.h"

namespace golden {
namespace {

using Buffer = std::vector<double>;
using Index = Within<0, 65534>;
using NewSize = Within<-10, 2048>;

template <class Matrix>
Buffer elements(const Matrix& matrix, std::size_t count) {
  const double* first = matrix;
  return {first, first + count};
}

std::tuple<Buffer, Buffer> both(const Block& b) { return {b.matrix, b.buffer}; }

// The members for the types of order three take the block from such a value and give it back.
template <class T>
T of_order_three(const Block& b) {
  T value;
  std::size_t k = 0;
  for (double* field : fields(value)) {
    *field = b.buffer[k++];
  }
  return value;
}

template <class T>
std::tuple<Buffer, Buffer> both(Block& b, T value) {
  std::size_t k = 0;
  for (const double* field : fields(value)) {
    b.buffer[k++] = *field;
  }
  return both(b);
}

}  // namespace

Group storage() {
  return {"storage",
          "packed and rectangular matrices: shapes, fills, scaling, block transfers",
          {
              {"TSMatrix::LinearIndex", [](Index i, Index j) { return TSMatrix::LinearIndex(i, j); }},
              {"LOC1", [](Index i, Index j, Index n, Index m, int ms) { return LOC1(i, j, n, m, ms); }},
              {"TSMatrix(n,0)",
               [](Size n) {
                 const TSMatrix s(n, 0);
                 return std::tuple{s.GetDim1(), s.GetInitDim1(), s.GetDimension(), elements(s, triangle(n))};
               }},
              {"TMatrix(n1,n2,0)",
               [](Size n1, Size n2) {
                 const TMatrix t(n1, n2, 0);
                 return std::tuple{t.GetN1(), t.GetN2(), t.GetDimension(), elements(t, area(n1, n2))};
               }},
              {"TSMatrix::SetDim1",
               [](Size n, NewSize active) {
                 TSMatrix s(n, 0);
                 s.SetDim1(active);
                 const std::tuple narrowed{s.GetDim1(), s.GetInitDim1(), s.GetDimension()};
                 s.ResetDim1();
                 return std::tuple_cat(narrowed, std::tuple{s.GetDim1()});
               }},
              {"TMatrix::SetDimension",
               [](Size n1, Size n2, NewSize new1, NewSize new2) {
                 TMatrix t(n1, n2, 0);
                 t.SetDimension(new1, new2);
                 return std::tuple{t.GetN1(), t.GetN2(), t.GetDimension(), t.Index(1, 2)};
               }},
              {"TSMatrix(TSMatrix)",
               [](Size order, Size active, Workload work) {
                 Buffer matrix = work.packed_target(order);
                 TSMatrix s(matrix.data(), order);
                 s.SetDim1(active);
                 const TSMatrix copy(s);
                 return std::tuple{copy.GetDim1(), copy.GetInitDim1(), elements(copy, triangle(order))};
               }},
              {"TMatrix(TMatrix)",
               [](Size rows, Size cols, Workload work) {
                 Buffer matrix = work.dense_target(rows, cols);
                 TMatrix t(matrix.data(), rows, cols);
                 const TMatrix copy(t);
                 return std::tuple{copy.GetN1(), copy.GetN2(), elements(copy, area(rows, cols))};
               }},
              {"TSMatrix=int",
               [](Size order, Size active, int v, Workload work) {
                 Buffer matrix = work.packed_target(order);
                 TSMatrix s(matrix.data(), order);
                 s.SetDim1(active);
                 s = v;
                 return matrix;
               }},
              {"TMatrix=int",
               [](Size rows, Size cols, int v, Workload work) {
                 Buffer matrix = work.dense_target(rows, cols);
                 TMatrix t(matrix.data(), rows, cols);
                 t = v;
                 return matrix;
               }},
              {"TSMatrix*=f",
               [](Size order, Size active, double f, Workload work) {
                 Buffer matrix = work.packed_target(order);
                 TSMatrix s(matrix.data(), order);
                 s.SetDim1(active);
                 s *= f;
                 return matrix;
               }},
              {"TMatrix*=f",
               [](Size rows, Size cols, double f, Workload work) {
                 Buffer matrix = work.dense_target(rows, cols);
                 TMatrix t(matrix.data(), rows, cols);
                 t *= f;
                 return matrix;
               }},
              {"TSMatrix::BlockOper(dense)",
               [](PackedBlock b) {
                 TSMatrix(b.matrix.data(), b.rows).BlockOper(b.i0, b.j0, b.n1, b.n2, b.op, b.buffer.data());
                 return both(b);
               }},
              {"TSMatrix::BlockOper(TMatrix)",
               [](PackedBlock b) {
                 TMatrix t(b.buffer.data(), b.n1, b.n2);
                 TSMatrix(b.matrix.data(), b.rows).BlockOper(b.i0, b.j0, b.op, t);
                 return both(b);
               }},
              {"TSMatrix::BlockOper(matr3_3)",
               [](PackedBlock b) {
                 auto m = of_order_three<matr3_3>(b);
                 TSMatrix(b.matrix.data(), b.rows).BlockOper(b.i0, b.j0, b.op, m);
                 return both(b, m);
               }},
              {"SMatrAndBlockOper",
               [](PackedBlock b) {
                 SMatrAndBlockOper(b.matrix.data(), b.i0, b.j0, b.n1, b.n2, b.op, b.buffer.data());
                 return both(b);
               }},
              {"matr3_3(TSMatrix)",
               [](PackedBlock b) {
                 TSMatrix s(b.matrix.data(), b.rows);
                 return both(b, matr3_3(s, b.i0, b.j0));
               }},
              {"TSMatrix::BlockOper(packed)",
               [](DiagonalBlock b) {
                 TSMatrix(b.matrix.data(), b.rows).BlockOper(b.i0, b.n1, b.op, b.buffer.data());
                 return both(b);
               }},
              {"TSMatrix::BlockOper(TSMatrix)",
               [](DiagonalBlock b) {
                 TSMatrix t(b.buffer.data(), b.n1);
                 TSMatrix(b.matrix.data(), b.rows).BlockOper(b.i0, b.op, t);
                 return both(b);
               }},
              {"TSMatrix::BlockOper(covar)",
               [](DiagonalBlock b) {
                 auto v = of_order_three<covar>(b);
                 TSMatrix(b.matrix.data(), b.rows).BlockOper(b.i0, b.op, v);
                 return both(b, v);
               }},
              {"SMatrAndSBlockOper",
               [](DiagonalBlock b) {
                 SMatrAndSBlockOper(b.matrix.data(), b.i0, b.n1, b.op, b.buffer.data());
                 return both(b);
               }},
              {"covar(TSMatrix)",
               [](DiagonalBlock b) {
                 TSMatrix s(b.matrix.data(), b.rows);
                 return both(b, covar(s, b.i0));
               }},
              {"TMatrix::SubMatrix(dense)",
               [](DenseBlock b) {
                 TMatrix(b.matrix.data(), b.rows, b.cols).SubMatrix(b.i0, b.j0, b.n1, b.n2, b.op, b.buffer.data());
                 return both(b);
               }},
              {"TMatrix::SubMatrix(TMatrix)",
               [](DenseBlock b) {
                 TMatrix m(b.buffer.data(), b.n1, b.n2);
                 TMatrix(b.matrix.data(), b.rows, b.cols).SubMatrix(b.i0, b.j0, b.op, m);
                 return both(b);
               }},
              {"TMatrix::SubMatrix(matr3_3)",
               [](DenseBlock b) {
                 auto m = of_order_three<matr3_3>(b);
                 TMatrix(b.matrix.data(), b.rows, b.cols).SubMatrix(b.i0, b.j0, b.op, m);
                 return both(b, m);
               }},
              {"MatrAndBlockOper",
               [](DenseBlock b) {
                 MatrAndBlockOper(b.rows, b.matrix.data(), b.i0, b.j0, b.n1, b.n2, b.op, b.buffer.data());
                 return both(b);
               }},
              {"matr3_3(TMatrix)",
               [](DenseBlock b) {
                 TMatrix t(b.matrix.data(), b.rows, b.cols);
                 return both(b, matr3_3(t, b.i0, b.j0));
               }},
          }};
}

}  // namespace golden
