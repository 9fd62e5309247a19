#include <alidade/matrix.h>
#include <gtest/gtest.h>

#include <limits>
#include <vector>

#include "support/bits.h"
#include "support/inversion_cases.h"

namespace {

TEST(RareInversion, DefiniteMatricesEqualTheReference) { inversion_cases::compare_definite(); }

TEST(RareInversion, ScatteredMatricesEqualTheReference) { inversion_cases::compare_scattered(); }

TEST(RareInversion, FailuresEqualTheReference) { inversion_cases::compare_failures(); }

TEST(RareInversion, SemidefiniteMatricesEqualTheReference) { inversion_cases::compare_semidefinite(); }

TEST(RareInversion, SpecialValuesEqualTheReference) { inversion_cases::compare_special(); }

TEST(RareInversion, ExtremeScalesEqualTheReference) { inversion_cases::compare_scaled(); }

TEST(RareInversion, OverflowingInversesEqualTheReference) { inversion_cases::compare_overflowing_chain(); }

TEST(RareInversion, ProgressEqualsTheReference) { inversion_cases::compare_progress(); }

TEST(PseudoInversion, EqualsTheReference) { inversion_cases::compare_pseudo(); }

TEST(RareInversion, OrderOne) {
  double n = 4.0;
  TSMatrix N(&n, 1);
  EXPECT_EQ(RareInversion(N, nullptr, 0), 0);
  CHECK_BITS(n, 0.25);
}

TEST(RareInversion, OrderTwo) {
  // Exactly representable but for the roots: 1/2, and r = 1/sqrt(2) twice.
  double n[3] = {4, 2, 3};
  TSMatrix N(n, 2);
  EXPECT_EQ(RareInversion(N, nullptr, 0), 0);
  EXPECT_NEAR(n[0], 0.375, 1e-15);
  EXPECT_NEAR(n[1], -0.25, 1e-15);
  EXPECT_NEAR(n[2], 0.5, 1e-15);
}

TEST(RareInversion, NothingToDoForAnEmptyMatrix) {
  double n = 4.0;
  int progress = 7;
  TSMatrix N(&n, 1);
  N.SetDim1(0);
  EXPECT_EQ(RareInversion(N, &progress, 99), 0);
  N.SetDim1(-3);
  EXPECT_EQ(RareInversion(N, &progress, 99), 0);
  CHECK_BITS(n, 4.0);
  EXPECT_EQ(progress, 7);
}

TEST(RareInversion, FailingPivotLeavesTheRestAndTheFinishedColumns) {
  double n[6] = {4, 2, 1, 6, 5, 100};  // second pivot: 1 - (2/2)^2 = 0
  TSMatrix N(n, 3);
  EXPECT_EQ(RareInversion(N, nullptr, 0), 2);
  const double expected[6] = {0.5, 1, 1, 3, 5, 100};
  EXPECT_TRUE(bits::equal_arrays(n, expected, 6));
  double zero[3] = {0, 1, 1};
  TSMatrix Z(zero, 2);
  EXPECT_EQ(RareInversion(Z, nullptr, 0), 1);
  const double untouched[3] = {0, 1, 1};
  EXPECT_TRUE(bits::equal_arrays(zero, untouched, 3));
}

TEST(RareInversion, BlocksKeepExactZerosOutside) {
  nasty::Random random(3);
  for (int n : {3, 9, 30, 66}) {
    std::vector<double> m = normal_matrices::definite(normal_matrices::Structure::kBlocks, n, random);
    TSMatrix N(m.data(), n);
    ASSERT_EQ(RareInversion(N, nullptr, 0), 0);
    for (int i = 0; i < n; ++i) {
      for (int j = 0; j < i; ++j) {
        if (i / 3 != j / 3) {
          CHECK_BITS(m[normal_matrices::at(i, j)], 0.0);
        }
      }
    }
  }
}

// A NaN is no zero: it takes part, spoils what depends on it, and fails the first pivot it reaches.
TEST(RareInversion, NaNFailsThePivotThatItReaches) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  double n[6] = {4, 0, 4, nan, 0, 4};
  TSMatrix N(n, 3);
  EXPECT_EQ(RareInversion(N, nullptr, 0), 3);
  CHECK_BITS(n[2], 0.5);  // the second column is finished and knows nothing of it
  CHECK_BITS(n[5], 4.0);
}

int progress_of_identity(int n, int start, int span, int failing_row = 0) {
  std::vector<double> m(normal_matrices::count(n));
  for (int i = 0; i < n; ++i) {
    m[normal_matrices::at(i, i)] = i + 1 == failing_row ? 0.0 : 1.0;
  }
  TSMatrix N(m.data(), n);
  int progress = start;
  EXPECT_EQ(RareInversion(N, &progress, span), failing_row);
  return progress;
}

TEST(RareInversion, ProgressByHand) {
  EXPECT_EQ(progress_of_identity(7, 5, 99), 5);       // never written below order 8
  EXPECT_EQ(progress_of_identity(8, 0, 30), 30);      // 10 + 10 + 10 * 8^3 / 8^3
  EXPECT_EQ(progress_of_identity(9, 0, 30), 27);      // 20 + 10 * 512 / 729 = 27.02
  EXPECT_EQ(progress_of_identity(9, -100, 30), -72);  // -72.98 + 0.5, truncated towards zero
  EXPECT_EQ(progress_of_identity(8, 0, 99), 99);
  EXPECT_EQ(progress_of_identity(8, 90, 99), 99);  // 189 is written as 99
  EXPECT_EQ(progress_of_identity(8, 150, 0), 99);
  EXPECT_EQ(progress_of_identity(16, 10, 60), 70);
  EXPECT_EQ(progress_of_identity(9, 0, 30, 8), 10);  // 10 - 10 * 2^3 / 729 = 9.89, and then row 8 fails
  EXPECT_EQ(progress_of_identity(16, 0, 30, 9), 8);  // row 8: 10 - 10 * 9^3 / 16^3 = 8.22
  EXPECT_EQ(progress_of_identity(16, 4, 30, 7), 4);
}

TEST(PseudoInversion, WithoutADefectNothingIsDone) {
  double n[3] = {4, 2, 3};
  TSMatrix N(n, 2);
  EXPECT_EQ(PseudoInversion(N, 0), 0);
  EXPECT_EQ(PseudoInversion(N, -1), 0);
  const double unchanged[3] = {4, 2, 3};
  EXPECT_TRUE(bits::equal_arrays(n, unchanged, 3));
}

TEST(PseudoInversion, ADefectLargerThanTheMatrixIsRefused) {
  double n[3] = {4, 2, 3};
  TSMatrix N(n, 2);
  EXPECT_EQ(PseudoInversion(N, 3), -1);
  const double unchanged[3] = {4, 2, 3};
  EXPECT_TRUE(bits::equal_arrays(n, unchanged, 3));
  EXPECT_EQ(N.GetDim1(), 2);
}

TEST(PseudoInversion, FailureLeavesTheMatrix) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  double n[6] = {1, 0, 1, nan, 0, 5};
  TSMatrix N(n, 3);
  EXPECT_EQ(PseudoInversion(N, 1), -1);
  const double unchanged[6] = {1, 0, 1, nan, 0, 5};
  EXPECT_TRUE(bits::equal_arrays(n, unchanged, 6));
  EXPECT_EQ(N.GetDim1(), 3);
}

}  // namespace
