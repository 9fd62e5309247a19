#include "golden/generate/requests.h"
#include "golden/generate/sizes.h"

namespace generate {
namespace {

using golden::Tokens;

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

Requests operators_requests(std::uint64_t round) {
  Requests r(503, round);
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
  return r;
}

}  // namespace generate
