#include <alidade/matrix.h>
#include <gtest/gtest.h>

#include "support/bits.h"
#include "support/product_cases.h"

namespace {

TEST(Products, DenseEqualTheReference) { product_cases::compare_dense_products(); }

// SMatrProduct (1), SMatrProduct (2) and SMatrProduct (3), in all sizes.
TEST(Products, MixedStorageEqualsTheReference) { product_cases::compare_mixed_products(); }

TEST(Products, CongruenceEqualsTheReference) { product_cases::compare_congruence_products(); }

TEST(MatrixProduct, WithoutTermsIsZero) {
  double c[6] = {1, 2, 3, 4, 5, 6};
  MatrixProduct(nullptr, nullptr, c, 3, 0, 2);
  for (double v : c) {
    CHECK_BITS(v, 0.0);
  }
}

TEST(MatrixProduct, WithoutColumnsWritesNothing) {
  const double a[4] = {1, 2, 3, 4};
  double c[4] = {1, 2, 3, 4};
  MatrixProduct(a, a, c, 2, 2, 0);
  for (int i = 0; i < 4; ++i) {
    CHECK_BITS(c[i], i + 1.0);
  }
}

// The sum starts at +0.0: a product of -0.0 alone gives +0.0.
TEST(MatrixProduct, SumStartsAtPositiveZero) {
  const double a = -0.0, b = 1.0;
  double c = 5.0;
  MatrixProduct(&a, &b, &c, 1, 1, 1);
  CHECK_BITS(c, 0.0);
}

// 1 + 2^-53 + 2^-53 is 1 when summed first to last, and more than 1 the other way round.
TEST(MAtB, ColumnsAreSummedFirstToLast) {
  const double a[3] = {1.0, 0x1p-53, 0x1p-53};
  const double backwards[3] = {0x1p-53, 0x1p-53, 1.0};
  const double one[3] = {1.0, 1.0, 1.0};
  double c = 0.0;
  MAtB(a, one, &c, 3, 1, 1);
  CHECK_BITS(c, 1.0);
  MAtB(backwards, one, &c, 3, 1, 1);
  CHECK_BITS(c, 0x1.0000000000001p+0);
}

// SMatrProduct (1).
TEST(SMatrProduct, TwoDiagonalsWriteExactlyTheirProducts) {
  const double a[3] = {2, 3, 4}, b[3] = {5, 7, -0.5};
  double c[9] = {1, 1, 1, 1, 1, 1, 1, 1, 1};
  SMatrProduct(a, b, c, 3, 3, 2, 2, 3);
  const double expected[9] = {10, 21, -2, 1, 1, 1, 1, 1, 1};
  EXPECT_TRUE(bits::equal_arrays(c, expected, 9));
}

// The product of two diagonals keeps the sign of a zero: nothing is added to it.
TEST(SMatrProduct, TwoDiagonalsKeepNegativeZero) {
  const double a = -0.0, b = 1.0;
  double c = 5.0;
  SMatrProduct(&a, &b, &c, 1, 0, 2, 2, 0);
  CHECK_BITS(c, -0.0);
}

// SMatrProduct (1) and, for other diagonals, SMatrProduct (3).
TEST(SMatrProduct, OnlyTheCodeTwentyTwoIsTheSpecialCase) {
  const double a[2] = {2, 3}, b[2] = {5, 7};
  double c[4] = {9, 9, 9, 9};
  SMatrProduct(a, b, c, 2, 2, 3, 3, 2);  // diagonal, too, but written as a dense matrix
  const double dense[4] = {10, 0, 0, 21};
  EXPECT_TRUE(bits::equal_arrays(c, dense, 4));
  double d[4] = {9, 9, 9, 9};
  SMatrProduct(a, b, d, 2, 2, 1, 12, 2);
  const double vector[4] = {10, 21, 9, 9};
  EXPECT_TRUE(bits::equal_arrays(d, vector, 4));
}

TEST(SMatrProduct, PackedTimesVectorReadsTheUpperPartBySymmetry) {
  const double s[6] = {1, 2, 3, 4, 5, 6}, x[3] = {1, 10, 100};
  double y[3];
  SMatrProduct(s, x, y, 3, 3, 1, 0, 1);
  const double expected[3] = {421, 532, 654};
  EXPECT_TRUE(bits::equal_arrays(y, expected, 3));
}

TEST(SMatrProductAQAt, OperationCodes) {
  const double a[2] = {1, 2}, q = 3;  // a q a' = 3, 6, 12
  const auto result = [&](char op) {
    double c[3] = {100, 200, 300};
    SMatrProductAQAt(a, &q, c, 2, 1, op);
    return std::to_string(c[0]) + " " + std::to_string(c[1]) + " " + std::to_string(c[2]);
  };
  const std::string product = "3.000000 6.000000 12.000000";
  EXPECT_EQ(result('='), product);
  EXPECT_EQ(result('\0'), product);
  EXPECT_EQ(result('0'), product);
  EXPECT_EQ(result('*'), product);
  EXPECT_EQ(result('+'), "103.000000 206.000000 312.000000");
  EXPECT_EQ(result('-'), "97.000000 194.000000 288.000000");
  EXPECT_EQ(result('|'), "-3.000000 -6.000000 -12.000000");
}

TEST(SMatrProductAQAt, ClearsBeforeItLooksAtTheNumberOfTerms) {
  double c[3] = {1, 2, 3};
  SMatrProductAQAt(nullptr, nullptr, c, 2, 0, '=');
  const double zeros[3] = {0, 0, 0};
  EXPECT_TRUE(bits::equal_arrays(c, zeros, 3));
}

TEST(MRAtQL, NeverSubtracts) {
  const double a = 2, q = 3, l = 5;
  for (char op : {'=', '-', '|', 'x', '\0'}) {
    double r = 100;
    MRAtQL(&r, op, &a, &q, &l, 1, 1);
    CHECK_BITS(r, 30.0);
  }
  double r = 100;
  MRAtQL(&r, '+', &a, &q, &l, 1, 1);
  CHECK_BITS(r, 130.0);
}

}  // namespace
