#include "golden/functions.h"
#include "subject.h"

namespace golden {

Group chi_square() {
  return {"chi_square",
          "chi-square quantiles",
          {
              {"CHI_1SDE", [](int level, int df) { return CHI_1SDE(level, df); }},
              {"CHI_2SDE",
               [](int level, int df) {
                 std::array<float, 2> bounds = {-1, -1};
                 CHI_2SDE(level, df, bounds.data());
                 return bounds;
               }},
          }};
}

Group tau() {
  using Freedom = Within<-10, 2000>;  // the time grows with it
  return {"tau",
          "tau quantile and accuracy class",
          {
              {"TAU", [](int n, Freedom f, double alpha) { return TAU(n, f, alpha); }},
              {"RmsToKnown", [](double rms) { return RmsToKnown(rms); }},
          }};
}

}  // namespace golden
