#include <alidade/stats.h>

#include "verify/groups/groups.h"

namespace verify {

using golden::Arguments;
using golden::Tokens;

golden::Group chi_square() {
  return {"chi_square",
          "chi-square quantiles",
          {
              {"CHI_1SDE",
               [](Arguments& in, Tokens& out) {
                 const auto [level, df] = in.integers<2>();
                 out.number(CHI_1SDE(level, df));
               }},
              {"CHI_2SDE",
               [](Arguments& in, Tokens& out) {
                 const auto [level, df] = in.integers<2>();
                 float bounds[2] = {-1, -1};
                 CHI_2SDE(level, df, bounds);
                 out.number(bounds[0]).number(bounds[1]);
               }},
          }};
}

golden::Group tau() {
  return {"tau",
          "tau quantile and accuracy class",
          {
              {"TAU",
               [](Arguments& in, Tokens& out) {
                 const auto [n, f] = in.integers<2>();
                 const double alpha = in.number();
                 out.number(TAU(n, f, alpha));
               }},
              {"RmsToKnown", [](Arguments& in, Tokens& out) { out.integer(RmsToKnown(in.number())); }},
          }};
}

}  // namespace verify
