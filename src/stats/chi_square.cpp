#include <alidade/stats.h>

#include "square_root.h"
#include "stats/chi_square_tables.h"
#include "strict_arithmetic.h"

namespace alidade {
namespace {

// 2/9, rounded to nearest: divided by the degrees of freedom it is the variance in Wilson and Hilferty's (1931) normal
// approximation of the cube root.
constexpr double kTwoNinths = 0.2222222222222222;  // 0x1.c71c71c71c71cp-3

// Normal quantiles, two decimals as in the printed tables.
constexpr double kNormal95 = 1.64;       // one-sided 95 %; 0x1.a3d70a3d70a3dp+0
constexpr double kNormal99 = 2.33;       // one-sided 99 %; 0x1.2a3d70a3d70a4p+1
constexpr double kNormalTwice68 = 0.99;  // two-sided 68 %; 0x1.fae147ae147aep-1
constexpr double kNormalTwice95 = 1.96;  // two-sided 95 %; 0x1.f5c28f5c28f5cp+0
constexpr double kNormalTwice99 = 2.58;  // two-sided 99 %; 0x1.4a3d70a3d70a4p+1

// df w^3, multiplied in this order, as a float.
float cubed(int df, double w) { return static_cast<float>(df * w * w * w); }

// For many degrees of freedom an unknown level takes the 68 % quantile.
double two_sided_normal(int level) {
  if (level == 99) {
    return kNormalTwice99;
  }
  return level == 95 ? kNormalTwice95 : kNormalTwice68;
}

struct Bounds {
  const float* lower;
  const float* upper;
};

// In the tables an unknown level takes those of 95 %: deliberately another choice than two_sided_normal's.
Bounds two_sided_tables(int level) {
  if (level == 68) {
    return {kLower68, kUpper68};
  }
  if (level == 99) {
    return {kLower99, kUpper99};
  }
  return {kLower95, kUpper95};
}

}  // namespace
}  // namespace alidade

float CHI_1SDE(int level, int df) {
  if (df < 1) {
    return 0.0F;  // nothing stands before the table
  }
  if (df <= alidade::kTableSize) {
    return level == 99 ? alidade::kOneSided99[df - 1] : alidade::kOneSided95[df - 1];
  }
  const double h = alidade::kTwoNinths / df;
  const double z = level == 99 ? alidade::kNormal99 : alidade::kNormal95;
  return alidade::cubed(df, z * alidade::square_root(h) + (1.0 - h));
}

void CHI_2SDE(int level, int df, float* const out) {
  if (df < 1) {
    out[0] = 0.0F;
    out[1] = 0.0F;
    return;
  }
  if (df <= alidade::kTableSize) {
    const alidade::Bounds tables = alidade::two_sided_tables(level);
    out[0] = tables.lower[df - 1];
    out[1] = tables.upper[df - 1];
    return;
  }
  const double h = alidade::kTwoNinths / df;
  const double s = alidade::two_sided_normal(level) * alidade::square_root(h);
  out[0] = alidade::cubed(df, (1.0 - h) - s);
  out[1] = alidade::cubed(df, (1.0 - h) + s);
}
