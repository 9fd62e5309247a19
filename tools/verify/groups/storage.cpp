#include <alidade/linalg3.h>
#include <alidade/matrix.h>

#include "golden/block.h"
#include "golden/workload.h"
#include "verify/groups/groups.h"

namespace verify {
namespace {

using golden::Arguments;
using golden::Block;
using golden::Tokens;
using golden::Workload;

matr3_3 matrix_from(const std::vector<double>& buffer) {
  matr3_3 m;
  for (int k = 0; k < 9; ++k) {
    m[k] = buffer[static_cast<std::size_t>(k)];
  }
  return m;
}

void copy_to(std::vector<double>& buffer, const matr3_3& m) {
  for (int k = 0; k < 9; ++k) {
    buffer[static_cast<std::size_t>(k)] = m[k];
  }
}

covar covar_from(const std::vector<double>& buffer) {
  covar v;
  for (int k = 0; k < 6; ++k) {
    v[k] = buffer[static_cast<std::size_t>(k)];
  }
  return v;
}

void copy_to(std::vector<double>& buffer, const covar& v) {
  for (int k = 0; k < 6; ++k) {
    buffer[static_cast<std::size_t>(k)] = v[k];
  }
}

}  // namespace

golden::Group storage() {
  return {"storage",
          "packed and rectangular matrices: shapes, fills, scaling, block transfers",
          {
              {"TSMatrix::LinearIndex",
               [](Arguments& in, Tokens& out) {
                 const auto [i, j] = in.integers<2>();
                 out.integer(TSMatrix::LinearIndex(i, j));
               }},
              {"LOC1",
               [](Arguments& in, Tokens& out) {
                 const auto [i, j, n, m] = in.integers<4>();
                 out.integer(LOC1(i, j, n, m, in.integer()));
               }},
              {"TSMatrix(n,0)",
               [](Arguments& in, Tokens& out) {
                 const int n = in.integer();
                 const TSMatrix s(n, 0);
                 out.integer(s.GetDim1()).integer(s.GetInitDim1()).integer(s.GetDimension());
                 out.hash(std::vector<double>(static_cast<const double*>(s),
                                              static_cast<const double*>(s) + s.GetDimension()));
               }},
              {"TMatrix(n1,n2,0)",
               [](Arguments& in, Tokens& out) {
                 const auto [n1, n2] = in.integers<2>();
                 const TMatrix t(n1, n2, 0);
                 out.integer(t.GetN1()).integer(t.GetN2()).integer(t.GetDimension());
                 out.hash(std::vector<double>(static_cast<const double*>(t),
                                              static_cast<const double*>(t) + t.GetDimension()));
               }},
              {"TSMatrix::SetDim1",
               [](Arguments& in, Tokens& out) {
                 const int n = in.integer();
                 TSMatrix s(n, 0);
                 s.SetDim1(in.integer());
                 out.integer(s.GetDim1()).integer(s.GetInitDim1()).integer(s.GetDimension());
                 s.ResetDim1();
                 out.integer(s.GetDim1());
               }},
              {"TMatrix::SetDimension",
               [](Arguments& in, Tokens& out) {
                 const auto [n1, n2] = in.integers<2>();
                 TMatrix t(n1, n2, 0);
                 const auto [new1, new2] = in.integers<2>();
                 t.SetDimension(new1, new2);
                 out.integer(t.GetN1()).integer(t.GetN2()).integer(t.GetDimension()).integer(t.Index(1, 2));
               }},
              {"TSMatrix(TSMatrix)",
               [](Arguments& in, Tokens& out) {
                 const auto [order, active] = in.integers<2>();
                 Workload work(in);
                 std::vector<double> matrix = work.packed_target(order);
                 TSMatrix s(matrix.data(), order);
                 s.SetDim1(active);
                 TSMatrix copy(s);
                 out.integer(copy.GetDim1()).integer(copy.GetInitDim1());
                 const double* p = copy;
                 out.hash(std::vector<double>(p, p + golden::triangle(order)));
               }},
              {"TMatrix(TMatrix)",
               [](Arguments& in, Tokens& out) {
                 const auto [rows, cols] = in.integers<2>();
                 Workload work(in);
                 std::vector<double> matrix = work.dense_target(rows, cols);
                 TMatrix t(matrix.data(), rows, cols);
                 TMatrix copy(t);
                 out.integer(copy.GetN1()).integer(copy.GetN2());
                 const double* p = copy;
                 out.hash(std::vector<double>(p, p + golden::area(rows, cols)));
               }},
              {"TSMatrix=int",
               [](Arguments& in, Tokens& out) {
                 const auto [order, active, v] = in.integers<3>();
                 Workload work(in);
                 std::vector<double> matrix = work.packed_target(order);
                 TSMatrix s(matrix.data(), order);
                 s.SetDim1(active);
                 s = v;
                 out.hash(matrix);
               }},
              {"TMatrix=int",
               [](Arguments& in, Tokens& out) {
                 const auto [rows, cols, v] = in.integers<3>();
                 Workload work(in);
                 std::vector<double> matrix = work.dense_target(rows, cols);
                 TMatrix t(matrix.data(), rows, cols);
                 t = v;
                 out.hash(matrix);
               }},
              {"TSMatrix*=f",
               [](Arguments& in, Tokens& out) {
                 const auto [order, active] = in.integers<2>();
                 const double f = in.number();
                 Workload work(in);
                 std::vector<double> matrix = work.packed_target(order);
                 TSMatrix s(matrix.data(), order);
                 s.SetDim1(active);
                 s *= f;
                 out.hash(matrix);
               }},
              {"TMatrix*=f",
               [](Arguments& in, Tokens& out) {
                 const auto [rows, cols] = in.integers<2>();
                 const double f = in.number();
                 Workload work(in);
                 std::vector<double> matrix = work.dense_target(rows, cols);
                 TMatrix t(matrix.data(), rows, cols);
                 t *= f;
                 out.hash(matrix);
               }},
              {"TSMatrix::BlockOper(dense)",
               [](Arguments& in, Tokens& out) {
                 Block b = read_packed_block(in);
                 TSMatrix s(b.matrix.data(), b.rows);
                 s.BlockOper(b.i0, b.j0, b.n1, b.n2, b.op, b.buffer.data());
                 write_block(out, b);
               }},
              {"TSMatrix::BlockOper(TMatrix)",
               [](Arguments& in, Tokens& out) {
                 Block b = read_packed_block(in);
                 TSMatrix s(b.matrix.data(), b.rows);
                 TMatrix t(b.buffer.data(), b.n1, b.n2);
                 s.BlockOper(b.i0, b.j0, b.op, t);
                 write_block(out, b);
               }},
              {"TSMatrix::BlockOper(matr3_3)",
               [](Arguments& in, Tokens& out) {
                 Block b = read_packed_block(in);
                 TSMatrix s(b.matrix.data(), b.rows);
                 matr3_3 m = matrix_from(b.buffer);
                 s.BlockOper(b.i0, b.j0, b.op, m);
                 copy_to(b.buffer, m);
                 write_block(out, b);
               }},
              {"SMatrAndBlockOper",
               [](Arguments& in, Tokens& out) {
                 Block b = read_packed_block(in);
                 SMatrAndBlockOper(b.matrix.data(), b.i0, b.j0, b.n1, b.n2, b.op, b.buffer.data());
                 write_block(out, b);
               }},
              {"matr3_3(TSMatrix)",
               [](Arguments& in, Tokens& out) {
                 Block b = read_packed_block(in);
                 TSMatrix s(b.matrix.data(), b.rows);
                 copy_to(b.buffer, matr3_3(s, b.i0, b.j0));
                 write_block(out, b);
               }},
              {"TSMatrix::BlockOper(packed)",
               [](Arguments& in, Tokens& out) {
                 Block b = read_diagonal_block(in);
                 TSMatrix s(b.matrix.data(), b.rows);
                 s.BlockOper(b.i0, b.n1, b.op, b.buffer.data());
                 write_block(out, b);
               }},
              {"TSMatrix::BlockOper(TSMatrix)",
               [](Arguments& in, Tokens& out) {
                 Block b = read_diagonal_block(in);
                 TSMatrix s(b.matrix.data(), b.rows);
                 TSMatrix t(b.buffer.data(), b.n1);
                 s.BlockOper(b.i0, b.op, t);
                 write_block(out, b);
               }},
              {"TSMatrix::BlockOper(covar)",
               [](Arguments& in, Tokens& out) {
                 Block b = read_diagonal_block(in);
                 TSMatrix s(b.matrix.data(), b.rows);
                 covar v = covar_from(b.buffer);
                 s.BlockOper(b.i0, b.op, v);
                 copy_to(b.buffer, v);
                 write_block(out, b);
               }},
              {"SMatrAndSBlockOper",
               [](Arguments& in, Tokens& out) {
                 Block b = read_diagonal_block(in);
                 SMatrAndSBlockOper(b.matrix.data(), b.i0, b.n1, b.op, b.buffer.data());
                 write_block(out, b);
               }},
              {"covar(TSMatrix)",
               [](Arguments& in, Tokens& out) {
                 Block b = read_diagonal_block(in);
                 TSMatrix s(b.matrix.data(), b.rows);
                 copy_to(b.buffer, covar(s, b.i0));
                 write_block(out, b);
               }},
              {"TMatrix::SubMatrix(dense)",
               [](Arguments& in, Tokens& out) {
                 Block b = read_dense_block(in);
                 TMatrix t(b.matrix.data(), b.rows, b.cols);
                 t.SubMatrix(b.i0, b.j0, b.n1, b.n2, b.op, b.buffer.data());
                 write_block(out, b);
               }},
              {"TMatrix::SubMatrix(TMatrix)",
               [](Arguments& in, Tokens& out) {
                 Block b = read_dense_block(in);
                 TMatrix t(b.matrix.data(), b.rows, b.cols);
                 TMatrix m(b.buffer.data(), b.n1, b.n2);
                 t.SubMatrix(b.i0, b.j0, b.op, m);
                 write_block(out, b);
               }},
              {"TMatrix::SubMatrix(matr3_3)",
               [](Arguments& in, Tokens& out) {
                 Block b = read_dense_block(in);
                 TMatrix t(b.matrix.data(), b.rows, b.cols);
                 matr3_3 m = matrix_from(b.buffer);
                 t.SubMatrix(b.i0, b.j0, b.op, m);
                 copy_to(b.buffer, m);
                 write_block(out, b);
               }},
              {"MatrAndBlockOper",
               [](Arguments& in, Tokens& out) {
                 Block b = read_dense_block(in);
                 MatrAndBlockOper(b.rows, b.matrix.data(), b.i0, b.j0, b.n1, b.n2, b.op, b.buffer.data());
                 write_block(out, b);
               }},
              {"matr3_3(TMatrix)",
               [](Arguments& in, Tokens& out) {
                 Block b = read_dense_block(in);
                 TMatrix t(b.matrix.data(), b.rows, b.cols);
                 copy_to(b.buffer, matr3_3(t, b.i0, b.j0));
                 write_block(out, b);
               }},
          }};
}

}  // namespace verify
