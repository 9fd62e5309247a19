#include "golden/generate/requests.h"

namespace generate {
namespace {

using golden::Tokens;

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

Requests storage_requests(std::uint64_t round) {
  Requests r(501, round);
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
  return r;
}

}  // namespace generate
