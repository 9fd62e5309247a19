#include "reference/operators.h"

#include "generate/requests.h"
#include "generate/sizes.h"
#include "golden/workload.h"

namespace generate {
namespace {

using golden::Arguments;
using golden::Tokens;
using golden::Workload;

// Sizes of the operands, drawn so that the product stays below this many terms.
constexpr int kMostTerms = 40000;

struct Shape {
  int a, b, c, d;
};

Shape draw_shape(Requests& r, int turn) {
  const int first = kSizes[turn % kSizeCount];
  for (;;) {
    const Shape s = {first, size_up_to(r, 97), size_up_to(r, 65), size_up_to(r, 33)};
    if (static_cast<long>(s.a + 1) * (s.b + 1) * (s.c + 1) <= kMostTerms && s.a * s.b <= 8000) {
      // Every size takes every place.
      const int sizes[3] = {s.a, s.b, s.c};
      return {sizes[turn / kSizeCount % 3], sizes[(turn / kSizeCount + 1) % 3], sizes[(turn / kSizeCount + 2) % 3],
              s.d};
    }
  }
}

void finish(Requests& r, const char* function, Tokens t, int turn, bool packed_target) {
  t.code(operation(turn)).integer(r.below(3) == 0 ? r.between(1, 4) : 0);
  if (packed_target) {
    t.integer(r.below(3) == 0 ? r.between(1, 4) : 0);
  }
  r.add('A', function, t.word(kind_of_terms(turn)).integer(r.seed()));
}

}  // namespace

Source operators() {
  Source source = {{"operators",
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
                           reference::SMATRopRt_S_R({t.data(), b + extra}, op, {r.data(), a, b}, {s.data(), a});
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
                           reference::SMATRopRt_R({t.data(), b + extra}, op, {r.data(), a, b});
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
                           reference::SMATRopABti({t.data(), a + extra}, op, {left.data(), a, b}, {right.data(), a, b});
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
                           reference::SMATRopS1_S2({t.data(), n + extra}, op, {s1.data(), n}, {s2.data(), n});
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
                           reference::SMATRopR_S_Rt({t.data(), a + extra}, op, {r.data(), a, b}, {s.data(), b});
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
                           reference::MATRopS_R({t.data(), a, b + extra}, op, {s.data(), a}, {r.data(), a, b});
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
                           reference::MATRopR_S({t.data(), a, b + extra}, op, {r.data(), a, b}, {s.data(), b});
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
                           reference::MATRopR1t_R({t.data(), b, c + extra}, op, {r1.data(), a, b}, {r2.data(), a, c});
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
                           reference::MATRopR1_R2({t.data(), a, c + extra}, op, {r1.data(), a, b}, {r2.data(), b, c});
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
                           reference::MATRopR1_R2t({t.data(), a, c + extra}, op, {r1.data(), a, b}, {r2.data(), c, b});
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
                           reference::MATRopR1_S_R2t({t.data(), a, c + extra}, op, {r1.data(), a, b}, {s.data(), b},
                                                     {r2.data(), c, b});
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
                           reference::MATRopR1_R2_R3t({t.data(), a, d + extra}, op, {r1.data(), a, b},
                                                      {r2.data(), b, c}, {r3.data(), d, c});
                           out.hash(t);
                         }},
                    }},
                   Requests(503)};
  Requests& r = source.requests;
  for (int turn = 0; turn < 6 * kSizeCount; ++turn) {
    for (const char* function : {"SMATRopRt_S_R", "SMATRopRt_R", "SMATRopABti", "SMATRopR_S_Rt"}) {
      const Shape shape = draw_shape(r, turn);
      finish(r, function, Tokens().integer(shape.a).integer(shape.b), turn, true);
    }
    finish(r, "SMATRopS1_S2", Tokens().integer(turn < kSizeCount ? kSizes[turn] : size_up_to(r, 40)), turn, true);
    for (const char* function : {"MATRopS_R", "MATRopR_S"}) {
      const Shape shape = draw_shape(r, turn);
      finish(r, function, Tokens().integer(shape.a).integer(shape.b), turn, false);
    }
    for (const char* function : {"MATRopR1t_R", "MATRopR1_R2", "MATRopR1_R2t", "MATRopR1_S_R2t"}) {
      const Shape shape = draw_shape(r, turn);
      finish(r, function, Tokens().integer(shape.a).integer(shape.b).integer(shape.c), turn, false);
    }
    const Shape shape = draw_shape(r, turn);
    finish(r, "MATRopR1_R2_R3t", Tokens().integer(shape.a).integer(shape.b).integer(shape.c).integer(shape.d), turn,
           false);
  }
  return source;
}

}  // namespace generate
