#include <alidade/linalg3.h>
#include <alidade/matrix.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <type_traits>
#include <vector>

#include "support/bits.h"

#if defined(__linux__)
#include <sys/mman.h>
#endif

namespace {

// The fields and their order; the size is checked below, the fields by their behaviour.
struct Fields {
  bool owner;
  int dim1;
  int init_dim1;
  double* data;
};
static_assert(sizeof(TSMatrix) == sizeof(Fields) && std::is_standard_layout_v<TSMatrix>);

Fields fields_of(const TSMatrix& s) {
  Fields f;
  std::memcpy(&f, static_cast<const void*>(&s), sizeof f);
  return f;
}

void count_up(TSMatrix& s) {
  for (int k = 0; k < s.GetDimension(); ++k) {
    s[k] = k + 1;
  }
}

TEST(TSMatrix, KeepsItsFieldsInOrder) {
  double buffer[6];
  TSMatrix view(buffer, 3);
  view.SetDim1(2);
  const Fields f = fields_of(view);
  EXPECT_FALSE(f.owner);
  EXPECT_EQ(f.dim1, 2);
  EXPECT_EQ(f.init_dim1, 3);
  EXPECT_EQ(f.data, buffer);
  TSMatrix owner(2, 0);
  EXPECT_TRUE(fields_of(owner).owner);
}

// TSMatrix::LinearIndex (1).
TEST(TSMatrix, LinearIndexIsSymmetric) {
  EXPECT_EQ(TSMatrix::LinearIndex(0, 0), 0);
  EXPECT_EQ(TSMatrix::LinearIndex(2, 5), 17);
  EXPECT_EQ(TSMatrix::LinearIndex(5, 2), 17);
  int position = 0;
  for (int i = 0; i < 50; ++i) {
    for (int j = 0; j <= i; ++j, ++position) {
      EXPECT_EQ(TSMatrix::LinearIndex(i, j), position);
      EXPECT_EQ(TSMatrix::LinearIndex(j, i), position);
    }
  }
  EXPECT_EQ(TSMatrix::LinearIndex(46340, 46340), 1073767310);
  EXPECT_EQ(TSMatrix::LinearIndex(46341, 0), 1073767311);
  EXPECT_EQ(TSMatrix::LinearIndex(65534, 65534), 2147450879);
}

TEST(TSMatrix, IsClearedUnlessAskedNotTo) {
  TSMatrix s(4, 0);
  EXPECT_EQ(s.GetDim1(), 4);
  EXPECT_EQ(s.GetInitDim1(), 4);
  EXPECT_EQ(s.GetDimension(), 10);
  for (int k = 0; k < 10; ++k) {
    CHECK_BITS(s[k], 0.0);
  }
  TSMatrix unset(4, 1);
  count_up(unset);
  CHECK_BITS(unset[9], 10.0);
}

TEST(TSMatrix, AnEmptyMatrixStillHasRoomForOneElement) {
  for (const int n : {0, -1, -4}) {
    TSMatrix s(n, 0);
    s[0] = 1.5;
    CHECK_BITS(s[0], 1.5);
    EXPECT_EQ(s.GetDim1(), n);
  }
  EXPECT_EQ(TSMatrix(0, 0).GetDimension(), 0);
}

TEST(TSMatrix, AViewNeitherCopiesNorOwns) {
  std::vector<double> buffer(6, 2.0);
  {
    TSMatrix view(buffer.data(), 3);
    EXPECT_EQ(static_cast<double*>(view), buffer.data());
    view[4] = -1.0;
  }
  CHECK_BITS(buffer[4], -1.0);
  CHECK_BITS(buffer[5], 2.0);
}

TEST(TSMatrix, TheActiveDimensionMovesInsideTheInitialOne) {
  TSMatrix s(4, 0);
  count_up(s);
  s.SetDim1(5);
  EXPECT_EQ(s.GetDim1(), 4);
  s.SetDim1(2);
  EXPECT_EQ(s.GetDim1(), 2);
  EXPECT_EQ(s.GetInitDim1(), 4);
  EXPECT_EQ(s.GetDimension(), 3);
  EXPECT_EQ(&(s = 0), &s);
  s.SetDim1(4);
  EXPECT_EQ(s.GetDim1(), 4);
  s.SetDim1(1);
  s.ResetDim1();
  EXPECT_EQ(s.GetDim1(), 4);
  const double expected[10] = {0.0, 0.0, 0.0, 4, 5, 6, 7, 8, 9, 10};
  EXPECT_TRUE(bits::equal_arrays(s, expected, 10));
}

TEST(TSMatrix, AnyOtherIntegerChangesNothing) {
  TSMatrix s(2, 0);
  count_up(s);
  for (const int v : {1, -1, 5}) {
    EXPECT_EQ(&(s = v), &s);
    const double expected[3] = {1, 2, 3};
    EXPECT_TRUE(bits::equal_arrays(s, expected, 3));
  }
}

TEST(TSMatrix, ACopyKeepsTheNarrowedDimensionAndTheWholeTriangle) {
  // Values of their own: memory that another test released must not pass for copied elements.
  const double expected[10] = {1001, 1002, 1003, 1004, 1005, 1006, 1007, 1008, 1009, 1010};
  TSMatrix s(4, 0);
  std::copy_n(expected, 10, static_cast<double*>(s));
  s.SetDim1(2);
  TSMatrix copy(s);
  EXPECT_EQ(copy.GetDim1(), 2);
  EXPECT_EQ(copy.GetInitDim1(), 4);
  EXPECT_NE(static_cast<double*>(copy), static_cast<double*>(s));
  s[9] = -1.0;
  copy.ResetDim1();
  EXPECT_TRUE(bits::equal_arrays(copy, expected, 10));
}

TEST(TSMatrix, ACopyOfAViewOwns) {
  double buffer[3] = {1, 2, 3};
  TSMatrix view(buffer, 2);
  TSMatrix copy(view);
  EXPECT_TRUE(fields_of(copy).owner);
  buffer[0] = 7;
  CHECK_BITS(copy[0], 1.0);
}

// Deliberately shallow: afterwards both refer to one buffer.
TEST(TSMatrix, AssignmentSharesTheBuffer) {
  double first[3] = {1, 2, 3};
  double second[6] = {4, 5, 6, 7, 8, 9};
  TSMatrix a(first, 2);
  TSMatrix b(second, 3);
  b.SetDim1(2);
  EXPECT_EQ(&(a = b), &a);
  EXPECT_EQ(static_cast<double*>(a), second);
  EXPECT_EQ(a.GetDim1(), 2);
  EXPECT_EQ(a.GetInitDim1(), 3);
  a[0] = -4;
  CHECK_BITS(b[0], -4.0);
  CHECK_BITS(first[0], 1.0);
  TSMatrix& self = a;
  a = self;
  EXPECT_EQ(static_cast<double*>(a), second);
}

TEST(TSMatrix, AssignmentCopiesTheOwnerFlag) {
  // The new owner releases the buffer; the old one is told to forget it by a second assignment.
  TSMatrix keeper(static_cast<double*>(nullptr), 0);
  TSMatrix nobody(static_cast<double*>(nullptr), 0);
  TSMatrix owner(2, 0);
  keeper = owner;
  EXPECT_TRUE(fields_of(keeper).owner);
  owner = nobody;
  EXPECT_FALSE(fields_of(owner).owner);
  keeper[2] = 1.0;
}

TEST(TSMatrix, ScalingTouchesTheActiveElementsOnly) {
  for (int n = 0; n <= 9; ++n) {
    TSMatrix s(10, 0);
    count_up(s);
    s.SetDim1(n);
    EXPECT_EQ(&(s *= -0.5), &s);
    const int active = n * (n + 1) / 2;
    EXPECT_EQ(s.GetDimension(), active);
    for (int k = 0; k < 55; ++k) {
      CHECK_BITS(s[k], k < active ? (k + 1) * -0.5 : k + 1);
    }
  }
}

TEST(TSMatrix, ANegativeDimensionStaysInsideTheAllocation) {
  std::vector<double> buffer(3 + 1, 2.0);
  TSMatrix s(buffer.data(), 2);
  s.SetDim1(-5);
  EXPECT_EQ(s.GetDim1(), -5);
  s *= 3.0;
  s = 0;
  CHECK_BITS(buffer[3], 2.0);
}

TEST(TSMatrix, RectangularBlocks) {
  TSMatrix s(4, 0);
  count_up(s);
  double buffer[4] = {100, 200, 300, 400};
  s.BlockOper(2, 0, 2, 2, '+', buffer);  // rows 2, 3 and columns 0, 1
  const double expected[10] = {1, 2, 3, 104, 305, 6, 207, 408, 9, 10};
  EXPECT_TRUE(bits::equal_arrays(s, expected, 10));
  s.BlockOper(2, 0, 2, 2, 'x', buffer);
  s.BlockOper(2, 0, 0, 2, '=', buffer);
  s.BlockOper(2, 0, 2, 0, '=', buffer);
  s.BlockOper(2, 0, 2, -1, '=', buffer);
  EXPECT_TRUE(bits::equal_arrays(s, expected, 10));

  TMatrix block(2, 1, 0);
  s.BlockOper(0, 3, '>', block);  // rows 0, 1 of column 3 through symmetry
  CHECK_BITS(block[0], 207.0);
  CHECK_BITS(block[1], 408.0);
}

TEST(TSMatrix, ABlockAcrossTheDiagonalReachesAnElementTwice) {
  TSMatrix s(2, 0);
  double buffer[4] = {1, 2, 4, 8};
  s.BlockOper(0, 0, 2, 2, '+', buffer);
  const double expected[3] = {1, 6, 8};
  EXPECT_TRUE(bits::equal_arrays(s, expected, 3));
}

TEST(TSMatrix, DiagonalBlocks) {
  TSMatrix s(4, 0);
  count_up(s);
  double buffer[3] = {};
  s.BlockOper(1, 2, '>', buffer);
  const double block[3] = {3, 5, 6};
  EXPECT_TRUE(bits::equal_arrays(buffer, block, 3));
  TSMatrix t(3, 0);
  t.SetDim1(2);
  s.BlockOper(2, '>', t);
  CHECK_BITS(t[0], 6.0);
  CHECK_BITS(t[1], 9.0);
  CHECK_BITS(t[2], 10.0);
  CHECK_BITS(t[3], 0.0);
  s.BlockOper(0, 0, '0', buffer);
  s.BlockOper(0, -1, '0', buffer);
  CHECK_BITS(s[0], 1.0);
}

TEST(TSMatrix, ExchangesBlocksOfOrderThree) {
  TSMatrix s(6, 0);
  count_up(s);
  covar v(0);
  s.BlockOper(3, '>', v);
  const double diagonal[6] = {10, 14, 15, 19, 20, 21};
  EXPECT_TRUE(bits::equal_arrays(v, diagonal, 6));
  s.BlockOper(0, '=', v);
  EXPECT_TRUE(bits::equal_arrays(s, diagonal, 6));

  matr3_3 m(0);
  s.BlockOper(3, 0, '>', m);
  const double block[9] = {7, 11, 16, 8, 12, 17, 9, 13, 18};
  EXPECT_TRUE(bits::equal_arrays(m, block, 9));
  s.BlockOper(3, 0, '-', m);
  for (int i = 3; i < 6; ++i) {
    for (int j = 0; j < 3; ++j) {
      CHECK_BITS(s[TSMatrix::LinearIndex(i, j)], 0.0);
    }
  }
  CHECK_BITS(s[20], 21.0);
}

// The products are those of bare buffers with the matrices' own sizes; the code is accepted and not used.
TEST(TSMatrix, TimesAColumnUsesTheActiveTriangle) {
  TSMatrix s(4, 0);
  count_up(s);
  s.SetDim1(3);
  double x[3] = {1, 10, 100};
  const double expected[4] = {421, 532, 654, -7};
  for (const char op : {'=', '+', '-', '|', '0', '\0', 'x'}) {
    double y[4] = {9, 9, 9, -7};
    s.MatrProduct(x, op, y);
    EXPECT_TRUE(bits::equal_arrays(y, expected, 4)) << op;
  }
}

TEST(TSMatrix, TimesAMatrixUsesItsColumns) {
  TSMatrix s(3, 0);
  count_up(s);
  double columns[6] = {1, 10, 100, 0, -1, 0};
  TMatrix b(columns, 3, 2);
  const double expected[9] = {421, 532, 654, -2, -3, -5, 9, 9, 9};
  for (const char op : {'=', '+', '-', '\0'}) {
    TMatrix p(3, 3, 0);
    for (int k = 0; k < 9; ++k) {
      p[k] = 9;
    }
    s.MatrProduct(b, op, p);
    EXPECT_TRUE(bits::equal_arrays(p, expected, 9)) << op;
    EXPECT_EQ(p.GetN2(), 3);
  }
}

TEST(TSMatrix, CongruenceOverwritesTheTargetOfItsOwnOrder) {
  TSMatrix s(4, 0);
  count_up(s);
  s.SetDim1(3);
  double a[6] = {1, 0, 2, 1, 0, 3};  // rows (1 2 0) and (0 1 3)
  TSMatrix r(3, 0);
  count_up(r);
  r.SetDim1(2);
  s.A_This_At(a, r);
  // s = (1 2 4; 2 3 5; 4 5 6): s times the first row is (5, 8, 14), 5 + 16 = 21, 8 + 42 = 50; 3 + 30 + 54 = 87.
  const double expected[6] = {21, 50, 87, 4, 5, 6};
  EXPECT_TRUE(bits::equal_arrays(r, expected, 6));
}

TEST(TSMatrix, TheLargestOrder) {
  TSMatrix s(static_cast<double*>(nullptr), 65535);
  EXPECT_EQ(s.GetDimension(), 2147450880);
  s.SetDim1(46341);
  EXPECT_EQ(s.GetDimension(), 1073767311);
}

#if defined(__linux__) && defined(__LP64__)
// 16 GiB of address space of which four pages are touched: offsets beyond 2^31 bytes and, as elements, near 2^31.
TEST(TSMatrix, BlocksAtTheFarEndOfTheLargestOrder) {
  constexpr int kOrder = 65535;
  const std::size_t elements = static_cast<std::size_t>(kOrder) * (kOrder + 1) / 2;
  void* place = mmap(nullptr, elements * sizeof(double), PROT_READ | PROT_WRITE,
                     MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
  if (place == MAP_FAILED) {
    GTEST_SKIP() << "no room for 16 GiB of addresses";
  }
  auto* data = static_cast<double*>(place);
  {
    TSMatrix s(data, kOrder);
    const covar v(1, 2, 3, 4, 5, 6);
    covar target(v);
    s.BlockOper(kOrder - 3, '=', target);
    CHECK_BITS(data[elements - 1], 6.0);
    CHECK_BITS(data[elements - 3], 4.0);
    EXPECT_TRUE(covar(s, kOrder - 3) == v);
    const matr3_3 corner(s, kOrder - 3, 0);
    CHECK_BITS(corner[0], 0.0);
    double row[2] = {7, 8};
    s.BlockOper(kOrder - 1, 0, 1, 2, '=', row);
    CHECK_BITS(data[elements - kOrder], 7.0);
    CHECK_BITS(data[elements - kOrder + 1], 8.0);
    s.BlockOper(0, kOrder - 1, 2, 1, '>', row);
    CHECK_BITS(row[1], 8.0);
  }
  munmap(place, elements * sizeof(double));
}
#endif

}  // namespace
