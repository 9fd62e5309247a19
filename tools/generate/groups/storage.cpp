#include "generate/requests.h"
#include "golden/block.h"
#include "reference/blocks.h"

namespace generate {
namespace {

using golden::Arguments;
using golden::Block;
using golden::Tokens;
using golden::Workload;

void packed_block(Arguments& in, Tokens& out) {
  Block b = read_packed_block(in);
  reference::packed_block(b.matrix.data(), b.i0, b.j0, b.n1, b.n2, b.op, b.buffer.data());
  write_block(out, b);
}

void diagonal_block(Arguments& in, Tokens& out) {
  Block b = read_diagonal_block(in);
  reference::packed_diagonal_block(b.matrix.data(), b.i0, b.n1, b.op, b.buffer.data());
  write_block(out, b);
}

void dense_block(Arguments& in, Tokens& out) {
  Block b = read_dense_block(in);
  reference::dense_block(b.rows, b.matrix.data(), b.i0, b.j0, b.n1, b.n2, b.op, b.buffer.data());
  write_block(out, b);
}

// The first n elements.
std::vector<double> first(const std::vector<double>& v, std::size_t n) {
  return {v.begin(), v.begin() + static_cast<std::ptrdiff_t>(n)};
}

const char* const kOps = "=+-0>*";

void add_packed_blocks(Requests& r, const char* function, bool of_order_three, const char* ops) {
  for (int i = 0; i < 70; ++i) {
    const int n1 = of_order_three ? 3 : r.between(i < 8 ? 0 : 1, 12);
    const int n2 = of_order_three ? 3 : r.between(i < 8 ? 0 : 1, 12);
    const int order = (n1 > n2 ? n1 : n2) + r.between(0, 20);
    const char op = ops[i % static_cast<int>(std::char_traits<char>::length(ops))];
    r.add('A', function,
          Tokens()
              .integer(order)
              .integer(r.between(0, order - n1))
              .integer(r.between(0, order - n2))
              .integer(n1)
              .integer(n2)
              .code(op)
              .word(r.kind())
              .integer(r.seed()));
  }
}

void add_diagonal_blocks(Requests& r, const char* function, bool of_order_three, const char* ops) {
  for (int i = 0; i < 60; ++i) {
    const int n = of_order_three ? 3 : r.between(i < 8 ? 0 : 1, 14);
    const int order = n + r.between(0, 20);
    const char op = ops[i % static_cast<int>(std::char_traits<char>::length(ops))];
    r.add(
        'A', function,
        Tokens().integer(order).integer(r.between(0, order - n)).integer(n).code(op).word(r.kind()).integer(r.seed()));
  }
}

void add_dense_blocks(Requests& r, const char* function, bool of_order_three, const char* ops) {
  for (int i = 0; i < 60; ++i) {
    const int n1 = of_order_three ? 3 : r.between(i < 8 ? 0 : 1, 12);
    const int n2 = of_order_three ? 3 : r.between(i < 8 ? 0 : 1, 12);
    const int rows = n1 + r.between(0, 15);
    const int cols = n2 + r.between(0, 15);
    const char op = ops[i % static_cast<int>(std::char_traits<char>::length(ops))];
    r.add('A', function,
          Tokens()
              .integer(rows)
              .integer(cols)
              .integer(r.between(0, rows - n1))
              .integer(r.between(0, cols - n2))
              .integer(n1)
              .integer(n2)
              .code(op)
              .word(r.kind())
              .integer(r.seed()));
  }
}

}  // namespace

Source storage() {
  Source s = {
      {"storage",
       "packed and rectangular matrices: shapes, fills, scaling, block transfers",
       {
           // The packed index is the locator of the symmetric mode, which counts from 1.
           {"TSMatrix::LinearIndex",
            [](Arguments& in, Tokens& out) {
              const int i = in.integer();
              out.integer(reference::locate(i + 1, in.integer() + 1, 0, 1) - 1);
            }},
           {"LOC1",
            [](Arguments& in, Tokens& out) {
              const auto [i, j, n] = in.integers<3>();
              in.integer();  // the number of columns is never looked at
              out.integer(reference::locate(i, j, n, in.integer()));
            }},
           {"TSMatrix(n,0)",
            [](Arguments& in, Tokens& out) {
              const int n = in.integer();
              const std::vector<double> zeros(golden::triangle(n), 0.0);
              out.integer(n).integer(n).integer(static_cast<int>(zeros.size())).hash(zeros);
            }},
           {"TMatrix(n1,n2,0)",
            [](Arguments& in, Tokens& out) {
              const auto [n1, n2] = in.integers<2>();
              const std::vector<double> zeros(golden::area(n1, n2), 0.0);
              out.integer(n1).integer(n2).integer(static_cast<int>(zeros.size())).hash(zeros);
            }},
           {"TSMatrix::SetDim1",
            [](Arguments& in, Tokens& out) {
              const auto [n, requested] = in.integers<2>();
              const int active = requested <= n ? requested : n;
              out.integer(active).integer(n).integer(static_cast<int>(golden::triangle(active))).integer(n);
            }},
           {"TMatrix::SetDimension",
            [](Arguments& in, Tokens& out) {
              reference::Shape shape{};
              shape.n1 = in.integer();
              shape.n2 = in.integer();
              shape.capacity = shape.n1 * shape.n2 > 1 ? shape.n1 * shape.n2 : 1;
              const int n1 = in.integer();
              reference::set_dimension(shape, n1, in.integer());
              out.integer(shape.n1).integer(shape.n2).integer(shape.n1 * shape.n2).integer(1 + 2 * shape.n1);
            }},
           {"TSMatrix(TSMatrix)",
            [](Arguments& in, Tokens& out) {
              const int order = in.integer();
              out.integer(in.integer()).integer(order);
              Workload work(in);
              out.hash(first(work.packed_target(order), golden::triangle(order)));
            }},
           {"TMatrix(TMatrix)",
            [](Arguments& in, Tokens& out) {
              const auto [rows, cols] = in.integers<2>();
              Workload work(in);
              out.integer(rows).integer(cols).hash(first(work.dense_target(rows, cols), golden::area(rows, cols)));
            }},
           {"TSMatrix=int",
            [](Arguments& in, Tokens& out) {
              const auto [order, active, v] = in.integers<3>();
              Workload work(in);
              std::vector<double> matrix = work.packed_target(order);
              for (std::size_t k = 0; v == 0 && k < golden::triangle(active); ++k) {
                matrix[k] = 0.0;
              }
              out.hash(matrix);
            }},
           {"TMatrix=int",
            [](Arguments& in, Tokens& out) {
              const auto [rows, cols, v] = in.integers<3>();
              Workload work(in);
              std::vector<double> matrix = work.dense_target(rows, cols);
              for (std::size_t k = 0; v == 0 && k < golden::area(rows, cols); ++k) {
                matrix[k] = 0.0;
              }
              out.hash(matrix);
            }},
           {"TSMatrix*=f",
            [](Arguments& in, Tokens& out) {
              const auto [order, active] = in.integers<2>();
              const double f = in.number();
              Workload work(in);
              std::vector<double> matrix = work.packed_target(order);
              for (std::size_t k = 0; k < golden::triangle(active); ++k) {
                matrix[k] = matrix[k] * f;
              }
              out.hash(matrix);
            }},
           {"TMatrix*=f",
            [](Arguments& in, Tokens& out) {
              const auto [rows, cols] = in.integers<2>();
              const double f = in.number();
              Workload work(in);
              std::vector<double> matrix = work.dense_target(rows, cols);
              for (std::size_t k = 0; k < golden::area(rows, cols); ++k) {
                matrix[k] = matrix[k] * f;
              }
              out.hash(matrix);
            }},
           {"TSMatrix::BlockOper(dense)", packed_block},
           {"TSMatrix::BlockOper(TMatrix)", packed_block},
           {"TSMatrix::BlockOper(matr3_3)", packed_block},
           {"SMatrAndBlockOper", packed_block},
           {"matr3_3(TSMatrix)", packed_block},
           {"TSMatrix::BlockOper(packed)", diagonal_block},
           {"TSMatrix::BlockOper(TSMatrix)", diagonal_block},
           {"TSMatrix::BlockOper(covar)", diagonal_block},
           {"SMatrAndSBlockOper", diagonal_block},
           {"covar(TSMatrix)", diagonal_block},
           {"TMatrix::SubMatrix(dense)", dense_block},
           {"TMatrix::SubMatrix(TMatrix)", dense_block},
           {"TMatrix::SubMatrix(matr3_3)", dense_block},
           {"MatrAndBlockOper", dense_block},
           {"matr3_3(TMatrix)", dense_block},
       }},
      Requests(501)};
  Requests& r = s.requests;
  for (int i = 0; i < 12; ++i) {
    for (int j = 0; j < 12; j += 1 + i % 3) {
      r.add('A', "TSMatrix::LinearIndex", Tokens().integer(i).integer(j));
      r.add('A', "LOC1", Tokens().integer(i + 1).integer(j + 1).integer(12).integer(12).integer((i + j) % 5 - 1));
    }
  }
  r.add('A', "TSMatrix::LinearIndex", Tokens().integer(60000).integer(59999));
  for (int n = 0; n < 12; ++n) {
    r.add('A', "TSMatrix(n,0)", Tokens().integer(n));
    r.add('A', "TMatrix(n1,n2,0)", Tokens().integer(n).integer(r.between(0, 9)));
    for (const int d : {0, n / 2, n, n + 1}) {
      r.add('A', "TSMatrix::SetDim1", Tokens().integer(n).integer(d));
    }
  }
  for (int i = 0; i < 120; ++i) {
    r.add(
        'A', "TMatrix::SetDimension",
        Tokens().integer(r.between(0, 6)).integer(r.between(0, 6)).integer(r.between(-1, 7)).integer(r.between(-1, 7)));
  }
  for (int i = 0; i < 40; ++i) {
    const int order = i;
    const int active = r.between(0, order);
    const int cols = r.between(0, 12);
    const auto tail = [&r](Tokens t) { return t.word(r.kind()).integer(r.seed()); };
    r.add('A', "TSMatrix(TSMatrix)", tail(Tokens().integer(order).integer(active)));
    r.add('A', "TMatrix(TMatrix)", tail(Tokens().integer(order).integer(cols)));
    r.add('A', "TSMatrix=int", tail(Tokens().integer(order).integer(active).integer(i % 3 - 1)));
    r.add('A', "TMatrix=int", tail(Tokens().integer(order).integer(cols).integer(i % 3 - 1)));
    const double factor = r.number(i % 8 == 0 ? "nasty" : "plain");
    r.add('A', "TSMatrix*=f", tail(Tokens().integer(order).integer(active).number(factor)));
    r.add('A', "TMatrix*=f", tail(Tokens().integer(order).integer(cols).number(factor)));
  }
  add_packed_blocks(r, "TSMatrix::BlockOper(dense)", false, kOps);
  add_packed_blocks(r, "TSMatrix::BlockOper(TMatrix)", false, kOps);
  add_packed_blocks(r, "TSMatrix::BlockOper(matr3_3)", true, kOps);
  add_packed_blocks(r, "SMatrAndBlockOper", false, kOps);
  add_packed_blocks(r, "matr3_3(TSMatrix)", true, ">");
  add_diagonal_blocks(r, "TSMatrix::BlockOper(packed)", false, kOps);
  add_diagonal_blocks(r, "TSMatrix::BlockOper(TSMatrix)", false, kOps);
  add_diagonal_blocks(r, "TSMatrix::BlockOper(covar)", true, kOps);
  add_diagonal_blocks(r, "SMatrAndSBlockOper", false, kOps);
  add_diagonal_blocks(r, "covar(TSMatrix)", true, ">");
  add_dense_blocks(r, "TMatrix::SubMatrix(dense)", false, kOps);
  add_dense_blocks(r, "TMatrix::SubMatrix(TMatrix)", false, kOps);
  add_dense_blocks(r, "TMatrix::SubMatrix(matr3_3)", true, kOps);
  add_dense_blocks(r, "MatrAndBlockOper", false, kOps);
  add_dense_blocks(r, "matr3_3(TMatrix)", true, ">");
  return s;
}

}  // namespace generate
