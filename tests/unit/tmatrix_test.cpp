#include <alidade/linalg3.h>
#include <alidade/matrix.h>

#include <cstring>
#include <type_traits>
#include <vector>

#include "reference/blocks.h"
#include "support/bits.h"

namespace {

struct Fields {
  bool owner;
  int capacity;
  int n1;
  int n2;
  double* data;
};
static_assert(sizeof(TMatrix) == sizeof(Fields) && std::is_standard_layout_v<TMatrix>);

Fields fields_of(const TMatrix& t) {
  Fields f;
  std::memcpy(&f, static_cast<const void*>(&t), sizeof f);
  return f;
}

void count_up(TMatrix& t) {
  for (int k = 0; k < t.GetDimension(); ++k) {
    t[k] = k + 1;
  }
}

TEST(TMatrix, KeepsItsFieldsInOrder) {
  double buffer[6];
  const TMatrix view(buffer, 2, 3);
  const Fields f = fields_of(view);
  EXPECT_FALSE(f.owner);
  EXPECT_EQ(f.capacity, 6);
  EXPECT_EQ(f.n1, 2);
  EXPECT_EQ(f.n2, 3);
  EXPECT_EQ(f.data, buffer);
  EXPECT_TRUE(fields_of(TMatrix(2, 3, 0)).owner);
}

TEST(TMatrix, IsStoredColumnByColumn) {
  const TMatrix t(3, 4, 0);
  EXPECT_EQ(t.GetN1(), 3);
  EXPECT_EQ(t.GetN2(), 4);
  EXPECT_EQ(t.GetDimension(), 12);
  for (int j = 0; j < 4; ++j) {
    for (int i = 0; i < 3; ++i) {
      EXPECT_EQ(t.Index(i, j), i + 3 * j);
    }
  }
  for (int k = 0; k < 12; ++k) {
    CHECK_BITS(t[k], 0.0);
  }
}

TEST(TMatrix, AnEmptyMatrixStillHasRoomForOneElement) {
  TMatrix t(0, 5, 0);
  EXPECT_EQ(t.GetDimension(), 0);
  EXPECT_EQ(fields_of(t).capacity, 1);
  t[0] = 1.5;
  CHECK_BITS(t[0], 1.5);
  TMatrix copy(t);
  EXPECT_EQ(fields_of(copy).capacity, 1);
  copy[0] = 2.5;
  const TMatrix negative(-2, 3, 0);
  EXPECT_EQ(fields_of(negative).capacity, 1);
  // A view has no such minimum.
  double nothing[1];
  EXPECT_EQ(fields_of(TMatrix(nothing, 0, 5)).capacity, 0);
}

TEST(TMatrix, ACopyHoldsTheElementsInUse) {
  TMatrix t(4, 3, 0);
  count_up(t);
  t.SetDimension(2, 3);
  TMatrix copy(t);
  EXPECT_EQ(fields_of(copy).capacity, 6);
  EXPECT_TRUE(fields_of(copy).owner);
  t[0] = -1.0;
  const double expected[6] = {1, 2, 3, 4, 5, 6};
  EXPECT_TRUE(bits::equal_arrays(copy, expected, 6));
}

// Deliberately shallow: afterwards both refer to one buffer.
TEST(TMatrix, AssignmentSharesTheBuffer) {
  double first[2] = {1, 2};
  double second[6] = {4, 5, 6, 7, 8, 9};
  TMatrix a(first, 1, 2);
  TMatrix b(second, 2, 3);
  EXPECT_EQ(&(a = b), &a);
  EXPECT_EQ(static_cast<double*>(a), second);
  EXPECT_EQ(a.GetN1(), 2);
  EXPECT_EQ(a.GetN2(), 3);
  EXPECT_EQ(fields_of(a).capacity, 6);
  a[5] = 0.5;
  CHECK_BITS(b[5], 0.5);
}

TEST(TMatrix, AssigningZeroClearsAndAnyOtherIntegerDoesNothing) {
  TMatrix t(2, 3, 1);
  count_up(t);
  t.SetDimension(2, 2);
  EXPECT_EQ(&(t = 1), &t);
  CHECK_BITS(t[0], 1.0);
  EXPECT_EQ(&(t = 0), &t);
  t.SetDimension(2, 3);
  const double expected[6] = {0.0, 0.0, 0.0, 0.0, 5, 6};
  EXPECT_TRUE(bits::equal_arrays(t, expected, 6));
}

TEST(TMatrix, SetDimensionReshapesInsideTheCapacity) {
  TMatrix t(4, 3, 0);
  count_up(t);
  t.SetDimension(6, 2);
  EXPECT_EQ(t.GetN1(), 6);
  EXPECT_EQ(t.GetN2(), 2);
  CHECK_BITS(t[t.Index(5, 1)], 12.0);
  t.SetDimension(13, 1);  // does not fit: SetDimension (3)
  EXPECT_EQ(t.GetN1(), 6);
  EXPECT_EQ(t.GetN2(), 2);
  t.SetDimension(5, -1);  // rows only: SetDimension (2)
  EXPECT_EQ(t.GetN1(), 5);
  EXPECT_EQ(t.GetN2(), 2);
  t.SetDimension(6, -1);  // more rows than there are
  EXPECT_EQ(t.GetN1(), 5);
  t.SetDimension(-1, 2);  // SetDimension (1)
  EXPECT_EQ(t.GetN1(), 5);
  EXPECT_EQ(t.GetN2(), 2);
  // Kept for compatibility: one row less than none, and one column more than there are, goes through.
  t.SetDimension(-1, 3);
  EXPECT_EQ(t.GetN1(), -1);
  EXPECT_EQ(t.GetN2(), 3);
}

TEST(TMatrix, SetDimensionFollowsItsThreeSteps) {
  for (int n1 = -3; n1 <= 7; ++n1) {
    for (int n2 = -3; n2 <= 7; ++n2) {
      for (int rows = 0; rows <= 4; ++rows) {
        for (int columns = 0; columns <= 4; ++columns) {
          TMatrix t(rows, columns, 0);
          reference::Shape shape{rows, columns, rows * columns > 1 ? rows * columns : 1};
          t.SetDimension(n1, n2);
          reference::set_dimension(shape, n1, n2);
          EXPECT_EQ(t.GetN1(), shape.n1);
          EXPECT_EQ(t.GetN2(), shape.n2);
        }
      }
    }
  }
}

TEST(TMatrix, SetDimensionFormsTheProductIn64Bits) {
  TMatrix t(2, 2, 0);
  t.SetDimension(65536, 65536);  // 0 in 32 bits
  EXPECT_EQ(t.GetN1(), 2);
  t.SetDimension(46341, 92682);
  EXPECT_EQ(t.GetN1(), 2);
}

TEST(TMatrix, SetDimensionReshapesWithinMoreThanAnIntHolds) {
  TMatrix large(static_cast<double*>(nullptr), 50000, 50000);
  large.SetDimension(25000, 50000);
  EXPECT_EQ(large.GetN1(), 25000);
  large.SetDimension(50000, 50000);
  EXPECT_EQ(large.GetN1(), 50000);
  large.SetDimension(50001, 50000);
  EXPECT_EQ(large.GetN1(), 50000);
  TMatrix larger(static_cast<double*>(nullptr), 65536, 65536);  // 0 in 32 bits
  larger.SetDimension(1, 1);
  larger.SetDimension(65536, 65536);
  EXPECT_EQ(larger.GetN1(), 65536);
  larger.SetDimension(65536, 65537);
  EXPECT_EQ(larger.GetN2(), 65536);
  TMatrix negative(static_cast<double*>(nullptr), -1, 2);
  negative.SetDimension(0, 0);
  EXPECT_EQ(negative.GetN1(), -1);
}

TEST(TMatrix, ScalingTouchesTheElementsInUse) {
  for (int columns = 0; columns <= 10; ++columns) {
    TMatrix t(3, 10, 0);
    count_up(t);
    t.SetDimension(3, columns);
    EXPECT_EQ(&(t *= -0.5), &t);
    t.SetDimension(3, 10);
    for (int k = 0; k < 30; ++k) {
      CHECK_BITS(t[k], k < 3 * columns ? (k + 1) * -0.5 : k + 1);
    }
  }
}

TEST(TMatrix, Blocks) {
  TMatrix t(4, 3, 0);
  count_up(t);
  double buffer[4] = {100, 200, 300, 400};
  t.SubMatrix(1, 1, 2, 2, '+', buffer);
  const double expected[12] = {1, 2, 3, 4, 5, 106, 207, 8, 9, 310, 411, 12};
  EXPECT_TRUE(bits::equal_arrays(t, expected, 12));
  t.SubMatrix(1, 1, 2, 2, 'x', buffer);
  t.SubMatrix(1, 1, 0, 2, '=', buffer);
  t.SubMatrix(1, 1, 2, 0, '=', buffer);
  EXPECT_TRUE(bits::equal_arrays(t, expected, 12));
  TMatrix block(2, 2, 0);
  t.SubMatrix(1, 1, '>', block);
  const double out[4] = {106, 207, 310, 411};
  EXPECT_TRUE(bits::equal_arrays(block, out, 4));
}

TEST(TMatrix, ExchangesBlocksOfOrderThree) {
  TMatrix t(4, 4, 0);
  count_up(t);
  matr3_3 m(0);
  t.SubMatrix(1, 0, '>', m);
  const double block[9] = {2, 3, 4, 6, 7, 8, 10, 11, 12};
  EXPECT_TRUE(bits::equal_arrays(m, block, 9));
  t.SubMatrix(0, 1, '=', m);
  const double expected[16] = {1, 2, 3, 4, 2, 3, 4, 8, 6, 7, 8, 12, 10, 11, 12, 16};
  EXPECT_TRUE(bits::equal_arrays(t, expected, 16));
}

}  // namespace
