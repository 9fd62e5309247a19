// Quantiles against Boost.Math, which computes them to the last digits.

#include <alidade/stats.h>
#include <gtest/gtest.h>

#include <boost/math/distributions/chi_squared.hpp>
#include <boost/math/distributions/normal.hpp>
#include <boost/math/distributions/students_t.hpp>
#include <boost/math/special_functions/beta.hpp>
#include <cmath>
#include <cstdio>
#include <cstring>

namespace {

double chi_square(int df, double probability) {
  return boost::math::quantile(boost::math::chi_squared(df), probability);
}

// Half a unit of the last printed digit: two decimals from 1 upwards, as many as the figure shows below.
double rounding_of(float printed) {
  if (printed >= 1.0F) {
    return 0.005;
  }
  char digits[32];
  std::snprintf(digits, sizeof digits, "%.7g", static_cast<double>(printed));
  double unit = 1.0;
  if (std::strchr(digits, 'e') != nullptr) {
    return 0.5e-6;  // 0.000039
  }
  for (const char* p = std::strchr(digits, '.') + 1; *p != '\0'; ++p) {
    unit /= 10.0;
  }
  return unit / 2;
}

struct Table {
  const char* name;
  int level;
  int bound;  // -1 one-sided, 0 lower, 1 upper
  double probability;
  double deviate;  // two decimals, as used above the tables
};

const Table kTables[] = {
    {"one-sided 95", 95, -1, 0.95, 1.64}, {"one-sided 99", 99, -1, 0.99, 2.33}, {"lower 68", 68, 0, 0.16, -0.99},
    {"upper 68", 68, 1, 0.84, 0.99},      {"lower 95", 95, 0, 0.025, -1.96},    {"upper 95", 95, 1, 0.975, 1.96},
    {"lower 99", 99, 0, 0.005, -2.58},    {"upper 99", 99, 1, 0.995, 2.58},
};

float entry(const Table& table, int df) {
  if (table.bound < 0) {
    return CHI_1SDE(table.level, df);
  }
  float out[2];
  CHI_2SDE(table.level, df, out);
  return out[table.bound];
}

// Entries that differ from the rounded quantile: three were rounded the wrong way, two are misprints. All are kept.
double known_difference(const Table& table, int df) {
  if (std::strcmp(table.name, "one-sided 95") == 0 && df == 26) {
    return 38.88 - 38.885139;
  }
  if (std::strcmp(table.name, "one-sided 99") == 0 && df == 11) {
    return 24.73 - 24.724970;
  }
  if (std::strcmp(table.name, "upper 99") == 0 && df == 8) {
    return 21.96 - 21.954955;
  }
  if (std::strcmp(table.name, "upper 95") == 0 && df == 3) {
    return 9.36 - 9.348404;
  }
  if (std::strcmp(table.name, "upper 99") == 0 && df == 17) {
    return 36.72 - 35.718466;
  }
  return 0.0;
}

TEST(StatsBoost, ChiSquareTablesAreRoundedQuantiles) {
  for (const Table& table : kTables) {
    for (int df = 1; df <= 30; ++df) {
      const float printed = entry(table, df);
      const double difference = printed - chi_square(df, table.probability);
      const double known = known_difference(table, df);
      const double half_ulp = std::fabs(printed) * 0x1p-24;  // of the float
      if (known != 0.0) {
        EXPECT_GT(std::fabs(difference), rounding_of(printed)) << table.name << ' ' << df;
        EXPECT_NEAR(difference, known, 1e-6 + half_ulp) << table.name << ' ' << df;
      } else {
        EXPECT_LE(std::fabs(difference), rounding_of(printed) + half_ulp) << table.name << ' ' << df;
      }
    }
  }
}

// Above the tables two errors add up. The normal deviate has two decimals. And the approximation of Wilson and Hilferty
// is that of a deviate wrong by (60/df) h, h below 0.005 for the deviates here (h is tabulated for better
// approximations, Abramowitz and Stegun 26.4.18). Both are multiplied by the slope of the quantile over the deviate.
TEST(StatsBoost, ChiSquareAboveTheTables) {
  for (const Table& table : kTables) {
    const double exact_deviate = boost::math::quantile(boost::math::normal(), table.probability);
    const double two_decimals = table.deviate;
    for (int df = 31; df <= 5000; df += 7) {
      const double spread = std::sqrt(2.0 / (9.0 * df));
      const double w = 1.0 - 2.0 / (9.0 * df) + std::fabs(exact_deviate) * spread;
      const double slope = 3.0 * df * w * w * spread;
      const double bound = slope * (std::fabs(two_decimals - exact_deviate) + 0.005 * 60 / df);
      const double expected = chi_square(df, table.probability);
      EXPECT_NEAR(entry(table, df), expected, bound + expected * 0x1p-23) << table.name << ' ' << df;
    }
  }
}

// The bound of TAU's doc comment. The last Newton step, below 1e-10, is not applied. The series for the level of one
// test drops terms below 1e-14, whose sum is below 2e-14, and the closed distribution adds a rounding for each of its
// nu/2 terms; both are divided by the density of r.
TEST(StatsBoost, TauIsTheScaledQuantileOfStudent) {
  const double alphas[] = {1e-6, 1e-4, 0.001, 0.01, 0.05, 0.1, 0.2, 0.3, 0.5, 0.7, 0.9, 0.99};
  int compared = 0;
  for (int f = 3; f <= 3000; f = f < 40 ? f + 1 : f + f / 3) {
    for (const int n : {1, 2, 5, 20, 100, 1000, 10000}) {
      for (const double alpha : alphas) {
        const double level = -std::expm1(std::log1p(-alpha) / n);
        if (level < 1e-9) {
          continue;  // below that the refinement may stop early
        }
        const double nu = f - 1;
        const boost::math::students_t student(nu);
        const double t = boost::math::quantile(boost::math::complement(student, level / 2));
        const double tau = std::sqrt(f) * t / std::sqrt(nu + t * t);
        const double q = nu / (nu + t * t);
        const double density = 2 * boost::math::pdf(student, t) * std::sqrt(nu) / (q * std::sqrt(q));
        const double bound = std::sqrt(f) * (1e-10 + (2e-14 + (nu / 2 + 10) * 0x1p-52) / density);
        EXPECT_NEAR(TAU(n, f, alpha), tau, bound) << n << ' ' << f << ' ' << alpha;
        if (alpha >= 0.001 && n <= 1000) {
          EXPECT_NEAR(TAU(n, f, alpha), tau, 1e-8) << n << ' ' << f << ' ' << alpha;
        }
        ++compared;
      }
    }
  }
  EXPECT_GT(compared, 3000);
}

// Two degrees of freedom: tau is sqrt(2) sin(pi P / 2) exactly.
// What the header says about levels of one test that are too small for the figures above.
TEST(StatsBoost, TauLosesDigitsAtSmallLevels) {
  const struct { double level, bound; } rows[] = {{1e-9, 2e-6}, {1e-10, 2e-5}, {1e-11, 3e-4}, {1e-12, 2e-3}};
  for (const auto& row : rows) {
    for (int f = 3; f <= 3000; f = f < 40 ? f + 1 : f + f / 30) {
      for (const double times : {1.0, 1.5, 2.8, 5.0, 9.9}) {
        const double level = row.level * times;
        const double tau = std::sqrt(f * boost::math::ibetac_inv(0.5, (f - 1) / 2.0, level));
        EXPECT_NEAR(TAU(1, f, level), tau, row.bound) << f << ' ' << level;
      }
    }
  }
}

TEST(StatsBoost, TauOfTwoDegreesOfFreedom) {
  for (const double alpha : {0.001, 0.01, 0.05, 0.1, 0.3}) {
    const boost::math::students_t student(1.0);
    const double t = boost::math::quantile(boost::math::complement(student, alpha / 2));
    EXPECT_NEAR(TAU(1, 2, alpha), std::sqrt(2.0) * t / std::sqrt(1.0 + t * t), 1e-14) << alpha;
  }
}

}  // namespace
