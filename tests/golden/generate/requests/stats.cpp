#include "golden/generate/requests.h"
#include "golden/generate/requests/awkward.h"

namespace generate {

using golden::Tokens;

Requests chi_square_requests(std::uint64_t round) {
  Requests r(601, round);
  for (const int level : {68, 95, 99, 50, 0}) {
    for (int df = -2; df <= 100; ++df) {
      r.add('A', "CHI_1SDE", Tokens().integer(level).integer(df));
      r.add('A', "CHI_2SDE", Tokens().integer(level).integer(df));
    }
    // The last three tell the order of the factors and of the sum through the conversion to float.
    for (const int df : {127, 200, 365, 1000, 4095, 10000, 65536, 1000000, 2147483647, -2147483647, 1103780032,
                         1900584757, 262482957}) {
      r.add('A', "CHI_1SDE", Tokens().integer(level).integer(df));
      r.add('A', "CHI_2SDE", Tokens().integer(level).integer(df));
    }
  }
  for (int i = 0; i < 40; ++i) {
    const int level = i % 2 == 0 ? r.any_integer() : 95;
    const int df = r.any_integer();
    r.add('A', "CHI_1SDE", Tokens().integer(level).integer(df));
    r.add('A', "CHI_2SDE", Tokens().integer(level).integer(df));
  }
  add_awkward_levels(r, round);
  return r;
}

Requests tau_requests(std::uint64_t round) {
  Requests r(602, round);
  const double kLevels[] = {0.05, 0.01, 0.001, 0.1, 0.5, 0.50001, 0.9, 1.0, 0.0, -1.0, 1.5};
  for (const double alpha : kLevels) {
    for (const int n : {1, 2, 5, 20, 100}) {
      for (const int f : {0, 1, 2, 3, 4, 5, 6, 7, 10, 15, 30, 61, 200}) {
        r.add('B', "TAU", Tokens().integer(n).integer(f).number(alpha));
      }
    }
  }
  for (int i = 0; i < 300; ++i) {
    r.add('B', "TAU",
          Tokens()
              .integer(r.between(1, 300))
              .integer(r.between(1, 150))
              .number(r.uniform(0.0001, i % 4 == 0 ? 1.0 : 0.2)));
  }
  for (const int n : {0, -1, -7}) {
    for (const int f : {-3, 1, 5, 40}) {
      r.add('B', "TAU", Tokens().integer(n).integer(f).number(0.05));
      r.add('B', "TAU", Tokens().integer(n).integer(f).number(0.7));
    }
  }
  r.add('B', "TAU", Tokens().integer(5).integer(9).number(0x0.8p-1022));
  for (const double threshold : {200.0, 10.0, 5.0, 1.0, 0.5, 0.1, 0.05, 0.01}) {
    r.add('A', "RmsToKnown", Tokens().number(threshold));
    r.add('A', "RmsToKnown", Tokens().number(threshold * (1.0 + 0x1p-52)));
    r.add('A', "RmsToKnown", Tokens().number(threshold * (1.0 - 0x1p-53)));
  }
  for (int i = 0; i < 100; ++i) {
    r.add('A', "RmsToKnown", Tokens().number(r.uniform(0.0, i % 2 == 0 ? 0.2 : 20.0)));
  }
  r.add_numbers('A', "RmsToKnown", 1, 80);
  for (int i = 0; i < 40; ++i) {
    const int n = i % 2 == 0 ? r.any_integer() : r.between(1, 500);
    r.add('B', "TAU", Tokens().integer(n).integer(r.between(-2, 60)).number(r.number(r.kind())));
  }
  add_awkward_quantiles(r, round);
  return r;
}

}  // namespace generate
