#include <alidade/matrix.h>
#include <gtest/gtest.h>

#include "support/bits.h"
#include "support/operator_cases.h"

namespace {

TEST(Operators, SmallShapesEqualTheReference) { operator_cases::compare_small(); }

TEST(Operators, LargeShapesEqualTheReference) { operator_cases::compare_large(); }

TEST(Operators, TargetsWithOverlappingColumns) { operator_cases::compare_overlapping(); }
TEST(Operators, NegativeSizesDoNothing) { operator_cases::compare_negative(); }

// R = (1 2; 3 4; 5 6) by columns; R'R = 35, 44, 56.
struct ThreeByTwo {
  double r[6] = {1, 3, 5, 2, 4, 6};
  double identity[6] = {1, 0, 1, 0, 0, 1};
  TMatrix R{r, 3, 2};
  TSMatrix S{identity, 3};
};

TEST(SMATRopRt_S_R, WithIdentityIsTheGramMatrix) {
  ThreeByTwo in;
  double t[3] = {7, 7, 7};
  TSMatrix T(t, 2);
  SMATRopRt_S_R(T, '=', in.R, in.S);
  const double gram[3] = {35, 44, 56};
  EXPECT_TRUE(bits::equal_arrays(t, gram, 3));
  SMATRopRt_S_R(T, '|', in.R, in.S);
  const double negated[3] = {-35, -44, -56};
  EXPECT_TRUE(bits::equal_arrays(t, negated, 3));
  T = 0;
  SMATRopRt_S_R(T, '+', in.R, in.S);
  SMATRopRt_S_R(T, '+', in.R, in.S);
  const double doubled[3] = {70, 88, 112};
  EXPECT_TRUE(bits::equal_arrays(t, doubled, 3));
}

TEST(Operators, AnUnknownCodeAddsExceptInTheForwarder) {
  ThreeByTwo in;
  double t[3] = {100, 100, 100};
  TSMatrix T(t, 2);
  SMATRopRt_R(T, '*', in.R);
  const double added[3] = {135, 144, 156};
  EXPECT_TRUE(bits::equal_arrays(t, added, 3));

  double order2[3] = {1, 0, 1};
  double u[6] = {100, 100, 100, 100, 100, 100};
  TSMatrix S2(order2, 2), U(u, 3);
  SMATRopR_S_Rt(U, '*', in.R, S2);
  const double overwritten[6] = {5, 11, 25, 17, 39, 61};
  EXPECT_TRUE(bits::equal_arrays(u, overwritten, 6));
}

TEST(Operators, ANarrowedTargetKeepsWhatLiesBeyondItsActiveOrder) {
  ThreeByTwo in;
  double t[10] = {9, 9, 9, 9, 9, 9, 9, 9, 9, 9};
  TSMatrix T(t, 4);
  T.SetDim1(3);
  SMATRopRt_R(T, '=', in.R);
  const double expected[10] = {35, 44, 56, 0, 0, 0, 9, 9, 9, 9};
  EXPECT_TRUE(bits::equal_arrays(t, expected, 10));
}

// The forwarder takes the extent that it clears from R, not from the target.
TEST(SMATRopR_S_Rt, ClearsByTheRowsOfR) {
  double r[2] = {1, 2}, s = 1.0, t[6] = {9, 9, 9, 9, 9, 9};
  TMatrix R(r, 2, 1);
  TSMatrix S(&s, 1), T(t, 3);
  T.SetDim1(1);
  SMATRopR_S_Rt(T, '=', R, S);
  const double expected[6] = {1, 2, 4, 9, 9, 9};
  EXPECT_TRUE(bits::equal_arrays(t, expected, 6));
}

// S1 S2 = (1 2; 2 3)(0 1; 1 5) = (2 11; 3 17): the lower 3 is stored, the upper 11 is never formed.
TEST(SMATRopS1_S2, KeepsTheLowerTriangleOfAProductThatIsNotSymmetric) {
  double s1[3] = {1, 2, 3}, s2[3] = {0, 1, 5}, t[3] = {9, 9, 9};
  TSMatrix S1(s1, 2), S2(s2, 2), T(t, 2);
  SMATRopS1_S2(T, '=', S1, S2);
  const double expected[3] = {2, 3, 17};
  EXPECT_TRUE(bits::equal_arrays(t, expected, 3));
  CHECK_BITS(T[TSMatrix::LinearIndex(0, 1)], 3.0);
}

TEST(MATRopR1_S_R2t, IgnoresColumnsOfR1BeyondThoseOfR2) {
  double r1[3] = {2, 3, 1000}, s[3] = {1, 0, 1}, r2[2] = {5, 7}, t = 9;
  TMatrix R1(r1, 1, 3), R2(r2, 1, 2), T(&t, 1, 1);
  TSMatrix S(s, 2);
  MATRopR1_S_R2t(T, '=', R1, S, R2);
  CHECK_BITS(t, 31.0);
}

// What an assignment leaves of a target that is larger than the product: three members clear it all, four nothing else.
TEST(Operators, LargerTargets) {
  double r[2] = {2, 3}, s = 5.0;  // R is 1 x 2 or 2 x 1
  TMatrix Row(r, 1, 2), Column(r, 2, 1);
  TSMatrix S(&s, 1);
  const double product_cleared_all[6] = {10, 15, 0, 0, 0, 0};
  double t[6] = {9, 9, 9, 9, 9, 9};
  TMatrix T(t, 3, 2);
  MATRopR_S(T, '=', Column, S);
  EXPECT_TRUE(bits::equal_arrays(t, product_cleared_all, 6));

  double u[6] = {9, 9, 9, 9, 9, 9};
  TMatrix U(u, 3, 2);
  MATRopR1_R2(U, '=', Column, Row);  // 2 x 2, its columns 2 apart although the target has 3 rows
  const double product_only[6] = {4, 6, 6, 9, 9, 9};
  EXPECT_TRUE(bits::equal_arrays(u, product_only, 6));
}

TEST(Operators, ADriverOfZeroLeavesTheTargetButForTheClearing) {
  double t[2] = {9, 9}, s = 1.0;
  TMatrix T(t, 1, 2), R(nullptr, 1, 0);
  TSMatrix S(&s, 1);
  MATRopS_R(T, '+', S, R);
  CHECK_BITS(t[0], 9.0);
  MATRopS_R(T, '=', S, R);
  CHECK_BITS(t[0], 0.0);
  CHECK_BITS(t[1], 0.0);
}

}  // namespace
