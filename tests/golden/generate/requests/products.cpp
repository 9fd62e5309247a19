#include "golden/generate/requests.h"
#include "golden/generate/sizes.h"

namespace generate {
namespace {

using golden::Tokens;

constexpr int kMostTerms = 60000;

int limit_for(int used) { return used == 0 ? 129 : kMostTerms / used; }

Tokens& with_inputs(Requests& r, Tokens& t, int turn) { return t.word(kind_of_terms(turn)).integer(r.seed()); }

// Every size in every place, the other two sizes drawn; then shapes that are long in one direction, and large ones.
void add_products(Requests& r, const char* function) {
  int turn = 0;
  const auto add = [&](int n, int m, int k) {
    Tokens t;
    t.integer(n).integer(m).integer(k);
    r.add('A', function, with_inputs(r, t, turn++));
  };
  for (const int size : kSizes) {
    for (int place = 0; place < 6; ++place) {
      const int second = size_up_to(r, 129);
      const int third = size_up_to(r, limit_for(size * second));
      const int shape[3] = {size, second, third};
      add(shape[place % 3], shape[(place + 1) % 3], shape[(place + 2) % 3]);
    }
  }
  const int kLong[][3] = {{1000, 3, 3}, {3, 1000, 3},  {3, 3, 1000},    {2000, 1, 2},   {1, 2000, 2},   {2, 1, 2000},
                          {97, 257, 9}, {49, 513, 17}, {130, 520, 8},   {530, 600, 2},  {257, 255, 13}, {8, 1025, 24},
                          {48, 256, 6}, {600, 530, 3}, {100, 100, 100}, {129, 130, 131}};
  for (const auto& shape : kLong) {
    add(shape[0], shape[1], shape[2]);
    add(shape[0], shape[1], shape[2]);
  }
}

void add_mixed_products(Requests& r) {
  int turn = 0;
  for (int mode_a = -1; mode_a <= 3; ++mode_a) {
    for (int mode_b = -1; mode_b <= 3; ++mode_b) {
      for (int i = 0; i < 10; ++i) {
        const int n = size_up_to(r, 33);
        const int m = mode_a >= 1 ? n : size_up_to(r, 33);
        const int k = mode_b >= 1 ? m : size_up_to(r, 33);
        Tokens t;
        t.integer(n).integer(m).integer(mode_a).integer(mode_b).integer(k);
        r.add('A', "SMatrProduct", with_inputs(r, t, turn++));
      }
    }
  }
  // Codes that decide although neither mode is what it seems: -1 and 10 give 0, 0 and 22 give 22.
  for (const auto& modes : {std::pair<int, int>(-1, 10), {1, -10}, {0, 22}, {3, -8}, {2, 2}, {1, 12}}) {
    for (int i = 0; i < 8; ++i) {
      const int n = size_up_to(r, 25);
      Tokens t;
      t.integer(n).integer(n).integer(modes.first).integer(modes.second).integer(n);
      r.add('A', "SMatrProduct", with_inputs(r, t, turn++));
    }
  }
  for (const int n : kSizes) {
    for (const int k : {1, 2, 5}) {
      Tokens t;
      t.integer(n).integer(n).integer(1).integer(0).integer(k);
      r.add('A', "SMatrProduct", with_inputs(r, t, turn++));
    }
  }
}

void add_congruences(Requests& r) {
  int turn = 0;
  const auto add = [&](int n, int m) {
    Tokens t;
    t.integer(n).integer(m).code("=+-|*\0"[turn % 6]);
    r.add('A', "SMatrProductAQAt", with_inputs(r, t, turn++));
  };
  for (const int size : kSizes) {
    for (int i = 0; i < 4; ++i) {
      const int other = size_up_to(r, 65);
      add(size, other);
      add(other, size);
    }
  }
  for (const int n : {3, 48, 49, 65, 100, 129, 200}) {
    add(n, 130);
    add(n, 66);
    add(n, 3);
  }
}

}  // namespace

Requests products_requests(std::uint64_t round) {
  Requests r(502, round);
  add_products(r, "MatrixProduct");
  add_products(r, "MAtB");
  add_mixed_products(r);
  add_congruences(r);
  int turn = 0;
  for (const int size : kSizes) {
    for (int i = 0; i < 3; ++i) {
      const int other = size_up_to(r, 49);
      Tokens t;
      t.integer(size > 65 ? other : size).integer(size > 65 ? size : other).code("=+-|*"[turn % 5]);
      r.add('A', "MRAtQL", with_inputs(r, t, turn++));
      Tokens q;
      q.integer(size_up_to(r, 65)).integer(size_up_to(r, 65));
      r.add('A', "TSMatrix::A_This_At", with_inputs(r, q, turn));
      Tokens column;
      column.integer(size).code("=+-|0>"[turn % 6]);
      r.add('A', "TSMatrix::MatrProduct(column)", with_inputs(r, column, turn));
      Tokens columns;
      columns.integer(size).integer(r.between(0, 9)).code("=+-|0>"[turn % 6]);
      r.add('A', "TSMatrix::MatrProduct(TMatrix)", with_inputs(r, columns, turn));
    }
  }
  return r;
}

}  // namespace generate
