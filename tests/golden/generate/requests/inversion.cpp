#include "golden/generate/requests.h"

namespace generate {
namespace {

using golden::Tokens;

const char* const kMatrixKinds[] = {"dense", "banded",    "blocks",   "signed",   "graded",     "huge",
                                    "small", "zeropivot", "negative", "nanpivot", "indefinite", "nasty"};

void add_inversion(Requests& r, int n, const std::string& kind) {
  const int turn = r.below(4);
  const int narrowed = turn == 0 ? r.between(1, 5) : 0;
  const int progress = turn == 1 ? -1 : r.between(0, 40);
  r.add(
      'A', "RareInversion",
      Tokens().integer(n).integer(narrowed).integer(progress).integer(r.between(0, 100)).word(kind).integer(r.seed()));
}

}  // namespace

Requests inversion_requests(std::uint64_t round) {
  Requests r(504, round);
  for (int n = 0; n <= 40; ++n) {
    for (const char* kind : kMatrixKinds) {
      add_inversion(r, n, kind);
    }
    add_inversion(r, n, "dense");
    add_inversion(r, n, "banded");
  }
  for (const int n : {47, 48, 49, 63, 64, 65, 79, 80, 81, 95, 96, 97, 127, 128, 129, 130}) {
    for (const char* kind : kMatrixKinds) {
      add_inversion(r, n, kind);
    }
  }
  for (const int n : {159, 160, 161, 192, 200, 255, 257}) {
    add_inversion(r, n, "dense");
    add_inversion(r, n, "banded");
    add_inversion(r, n, "blocks");
    add_inversion(r, n, "indefinite");
  }
  add_inversion(r, 385, "dense");
  add_inversion(r, 400, "blocks");
  add_inversion(r, 500, "banded");
  for (int n = 1; n <= 40; ++n) {
    for (int i = 0; i < 6; ++i) {
      const int defect = i == 0 ? r.between(-1, 0) : r.between(1, n < 7 ? n : 7);
      const char* kind = i == 5 ? "nasty" : i == 4 ? "graded" : i == 3 ? "blocks" : "dense";
      r.add('A', "PseudoInversion", Tokens().integer(n).integer(defect).word(kind).integer(r.seed()));
    }
  }
  for (const int n : {49, 64, 65, 97}) {
    for (const int defect : {1, 3, 4, 5, 33}) {
      r.add('A', "PseudoInversion", Tokens().integer(n).integer(defect).word("dense").integer(r.seed()));
    }
  }
  return r;
}

}  // namespace generate
