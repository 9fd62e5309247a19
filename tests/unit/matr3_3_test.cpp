#include <alidade/linalg3.h>
#include <alidade/matrix.h>

#include <cstring>
#include <limits>
#include <new>
#include <type_traits>

#include "support/bits.h"

namespace {

const double kNaN = std::numeric_limits<double>::quiet_NaN();

static_assert(sizeof(matr3_3) == 9 * sizeof(double));
static_assert(std::is_standard_layout_v<matr3_3> && std::is_trivially_copyable_v<matr3_3>);

void check(const matr3_3& m, const double (&expected)[9]) {
  for (int k = 0; k < 9; ++k) {
    CHECK_BITS(m[k], expected[k]);
  }
}

matr3_3 matrix(const double (&elements)[9]) {
  matr3_3 m(0);
  for (int k = 0; k < 9; ++k) {
    m[k] = elements[k];
  }
  return m;
}

TEST(Matr3, IsStoredColumnByColumn) {
  EXPECT_EQ(matr3_3::Index(1, 2), 7);
  for (int j = 0; j < 3; ++j) {
    for (int i = 0; i < 3; ++i) {
      EXPECT_EQ(matr3_3::Index(i, j), i + 3 * j);
    }
  }
}

TEST(Matr3, ColumnIsATriadInPlace) {
  matr3_3 m = matrix({0, 1, 2, 3, 4, 5, 6, 7, 8});
  triad* third = m.Column(2);
  CHECK_BITS((*third)[0], 6.0);
  CHECK_BITS((*third)[2], 8.0);
  EXPECT_EQ(static_cast<void*>(third), static_cast<void*>(static_cast<double*>(m) + 6));
  *third = triad(-6, -7, -8);
  matr3_3 copy = m;
  check(copy, {0, 1, 2, 3, 4, 5, -6, -7, -8});
  (*m.Column(0))[1] = 0.5;
  CHECK_BITS(m[1], 0.5);
}

// The address of a column has the type triad; a whole-object copy before and after must not be reordered with it.
TEST(Matr3, ColumnsAndWholeObjectsMayBeMixed) {
  double total = 0;
  matr3_3 m(0);
  for (int round = 0; round < 100; ++round) {
    *m.Column(round % 3) = triad(round, round, round);
    const matr3_3 copy = m;
    total += copy[3 * (round % 3)];
    m = copy;
  }
  CHECK_BITS(total, 4950.0);
}

TEST(Matr3, AnyIntegerMakesTheZeroMatrix) {
  check(matr3_3(5), {0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0});
  // Unlike triad and covar: assignment of a nonzero integer clears as well.
  for (const int n : {0, 5, -1}) {
    matr3_3 m = matrix({1, 2, 3, 4, 5, 6, 7, 8, 9});
    EXPECT_EQ(&(m = n), &m);
    check(m, {0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0});
  }
}

TEST(Matr3, SpreadsACovariance) { check(matr3_3(covar(0, 1, 2, 3, 4, 5)), {0, 1, 3, 1, 2, 4, 3, 4, 5}); }

TEST(Matr3, GivesItsStorage) {
  matr3_3 m = matrix({0, 1, 2, 3, 4, 5, 6, 7, 8});
  double* p = m;
  CHECK_BITS(p[8], 8.0);
  const matr3_3& constant = m;
  const double* q = constant;
  EXPECT_EQ(p, q);
  double& first = m;
  first = 42;
  CHECK_BITS(m[0], 42.0);
}

TEST(Matr3, Arithmetic) {
  const matr3_3 a = matrix({0, 1, 2, 3, 4, 5, 6, 7, 8});
  matr3_3 m = a;
  EXPECT_EQ(&(m += a), &m);
  check(m, {0, 2, 4, 6, 8, 10, 12, 14, 16});
  EXPECT_EQ(&(m -= matrix({1, 1, 1, 1, 1, 1, 1, 1, 1})), &m);
  check(m, {-1, 1, 3, 5, 7, 9, 11, 13, 15});
  EXPECT_EQ(&(m *= 0.5), &m);
  check(m, {-0.5, 0.5, 1.5, 2.5, 3.5, 4.5, 5.5, 6.5, 7.5});
}

TEST(Matr3, DivisionMultipliesByTheReciprocal) {
  const double reciprocal = 1.0 / 49.0;
  matr3_3 m = matrix({5, 5, 5, 5, 5, 5, 5, 5, 5});
  EXPECT_EQ(&(m /= 49.0), &m);
  for (int k = 0; k < 9; ++k) {
    CHECK_BITS(m[k], 5.0 * reciprocal);
  }
  matr3_3 zero(0);
  zero /= 0.0;
  EXPECT_TRUE(zero[0] != zero[0]);
}

TEST(Matr3, Products) {
  const matr3_3 a = matrix({1, 2, 3, 4, 5, 6, 7, 8, 9});
  const matr3_3 b = matrix({1, 0, 0, 0, 2, 0, 1, 1, 1});
  check(a * b, {1, 2, 3, 8, 10, 12, 12, 15, 18});
  const triad y = a * triad(1, 10, 100);
  CHECK_BITS(y[0], 741.0);
  CHECK_BITS(y[1], 852.0);
  CHECK_BITS(y[2], 963.0);
  // The product goes through a temporary, so a target that is an operand is safe.
  matr3_3 c = a;
  c = c * b;
  check(c, {1, 2, 3, 8, 10, 12, 12, 15, 18});
}

TEST(Matr3, SumsStartAtPlusZero) {
  const matr3_3 negative = matrix({-1, -1, -1, -1, -1, -1, -1, -1, -1});
  check(matr3_3(0) * negative, {0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0});
  const triad y = matr3_3(0) * triad(-1, -1, -1);
  CHECK_BITS(y[1], 0.0);
  const covar v = negative & covar(0);
  CHECK_BITS(v[4], 0.0);
}

TEST(Matr3, PropagatesACovariance) {
  const covar v(1.5, -0.25, 2.5, 0.125, 0.75, 3.5);
  const matr3_3 identity(covar(triad(1, 1, 1)));
  EXPECT_TRUE((identity & v) == v);
  const matr3_3 twice(covar(triad(2, 2, 2)));
  covar scaled(v);
  scaled *= 16.0;
  EXPECT_TRUE((twice & v) == scaled);
  // M V M' with M = (1 2 0; 0 1 0; 0 0 3) and V = diag(1, 1, 1).
  const matr3_3 m = matrix({1, 0, 0, 2, 1, 0, 0, 0, 3});
  EXPECT_TRUE((m & covar(triad(1, 1, 1))) == covar(5, 2, 1, 0, 0, 9));
}

TEST(Matr3, TakesABlockOfAPackedMatrix) {
  TSMatrix s(6, 0);
  for (int k = 0; k < s.GetDimension(); ++k) {
    s[k] = k;
  }
  for (int r = 0; r <= 3; ++r) {
    for (int c = 0; c <= 3; ++c) {
      const matr3_3 m(s, r, c);
      for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j) {
          CHECK_BITS(m[matr3_3::Index(i, j)], s[TSMatrix::LinearIndex(r + i, c + j)]);
        }
      }
    }
  }
}

TEST(Matr3, TakesABlockOfARectangularMatrix) {
  TMatrix t(5, 4, 0);
  for (int k = 0; k < t.GetDimension(); ++k) {
    t[k] = k;
  }
  for (int r = 0; r <= 2; ++r) {
    for (int c = 0; c <= 1; ++c) {
      const matr3_3 m(t, r, c);
      for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j) {
          CHECK_BITS(m[matr3_3::Index(i, j)], t[t.Index(r + i, c + j)]);
        }
      }
    }
  }
}

TEST(Matr3, TransposedTwiceIsTheMatrix) {
  const matr3_3 a = matrix({0, 1, 2, 3, 4, 5, 6, -0.0, kNaN});
  check(matr3_3(a, 't'), {0, 3, 6, 1, 4, -0.0, 2, 5, kNaN});
  check(matr3_3(matr3_3(a, 't'), 't'), {0, 1, 2, 3, 4, 5, 6, -0.0, kNaN});
}

TEST(Matr3, Inverse) {
  check(matr3_3(matrix({2, 0, 0, 0, 4, 0, 0, 0, 8}), static_cast<char>(255)), {0.5, 0, 0, 0, 0.25, 0, 0, 0, 0.125});
  // A rotation by a quarter turn about the third axis; minus one is the same code where char is signed.
  check(matr3_3(matrix({0, 1, 0, -1, 0, 0, 0, 0, 1}), static_cast<char>(-1)), {0, -1, 0, 1, 0, -0.0, -0.0, 0, 1});
}

TEST(Matr3, InverseOfASingularMatrixIsTheAdjugateUnscaled) {
  // Third column = first + second; the adjugate by hand.
  const matr3_3 a = matrix({1, 0, 2, 0, 1, 3, 1, 1, 5});
  check(matr3_3(a, static_cast<char>(255)), {2, 2, -2, 3, 3, -3, -1, -1, 1});
  EXPECT_TRUE(a[0] == 1.0);
}

TEST(Matr3, AnyOtherCodeLeavesTheMatrixUnset) {
  const matr3_3 a = matrix({1, 2, 3, 4, 5, 6, 7, 8, 10});
  int written = 0;
  for (int code = 0; code < 256; ++code) {
    // Poisoned storage below the new object: a code that writes shows in what is read back byte by byte.
    alignas(matr3_3) unsigned char storage[sizeof(matr3_3)];
    std::memset(storage, 0xA5, sizeof storage);
    void* place = storage;
    // Without this the compiler may take the bytes before construction for dead.
    asm volatile("" : "+r"(place) : : "memory");
    new (place) matr3_3(a, static_cast<char>(code));
    asm volatile("" : "+r"(place) : : "memory");
    bool touched = false;
    for (const unsigned char byte : storage) {
      touched = touched || byte != 0xA5;
    }
    EXPECT_EQ(touched, code == 't' || code == 255) << code;
    written += touched ? 1 : 0;
  }
  EXPECT_EQ(written, 2);
}

TEST(Matr3, InfiniteDeterminantScalesByZero) {
  const matr3_3 a(covar(1e150, 0, 1e150, 0, 0, 1e150));
  const matr3_3 inverse(a, static_cast<char>(255));
  // The adjugate is finite, 1e300; the determinant is not, and its reciprocal is zero.
  CHECK_BITS(inverse[0], 0.0);
  CHECK_BITS(inverse[4], 0.0);
  CHECK_BITS(inverse[8], 0.0);
}

}  // namespace
