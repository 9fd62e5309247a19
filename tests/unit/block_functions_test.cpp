#include <alidade/matrix.h>

#include <algorithm>
#include <cstring>
#include <iterator>
#include <vector>

#include "reference/blocks.h"
#include "support/bits.h"

namespace {

constexpr double kGuard = -7.25e77;
constexpr int kOrder = 7;

// A buffer between two guards; a transfer that leaves its sizes shows. Plain bytes, half a million of them are
// compared.
struct Guarded {
  Guarded(int count, double first) {
    std::fill(std::begin(all), std::end(all), kGuard);
    for (int k = 0; k < count; ++k) {
      // Alternating signs, a signed zero now and then: what is copied must be copied whole.
      data()[k] = k % 7 == 3 ? -0.0 : (k % 2 == 0 ? first + k : -first - k);
    }
  }
  double* data() { return all + 1; }

  double all[kOrder * kOrder + 2];
};

bool same(const Guarded& a, const Guarded& b) { return std::memcmp(a.all, b.all, sizeof a.all) == 0; }

TEST(BlockFunctions, PackedBlocksOfAllShapesOffsetsAndCodes) {
  for (int n1 = -1; n1 <= 5; ++n1) {
    for (int n2 = -1; n2 <= 5; ++n2) {
      for (int i0 = 0; i0 + n1 <= kOrder && i0 < kOrder; ++i0) {
        for (int j0 = 0; j0 + n2 <= kOrder && j0 < kOrder; ++j0) {
          for (int code = 0; code < 256; ++code) {
            const int count = n1 > 0 && n2 > 0 ? n1 * n2 : 0;
            Guarded s(kOrder * (kOrder + 1) / 2, 1.5), s_expected = s;
            Guarded buffer(count, 100.25), buffer_expected = buffer;
            const auto op = static_cast<char>(code);
            SMatrAndBlockOper(s.data(), i0, j0, n1, n2, op, buffer.data());
            reference::packed_block(s_expected.data(), i0, j0, n1, n2, op, buffer_expected.data());
            ASSERT_TRUE(same(s, s_expected) && same(buffer, buffer_expected))
                << i0 << ' ' << j0 << ' ' << n1 << ' ' << n2 << ' ' << code;
          }
        }
      }
    }
  }
}

TEST(BlockFunctions, DiagonalBlocksOfAllShapesOffsetsAndCodes) {
  for (int n = -1; n <= 5; ++n) {
    for (int k0 = 0; k0 + n <= kOrder && k0 < kOrder; ++k0) {
      for (int code = 0; code < 256; ++code) {
        Guarded s(kOrder * (kOrder + 1) / 2, 1.5), s_expected = s;
        Guarded buffer(n > 0 ? n * (n + 1) / 2 : 0, 100.25), buffer_expected = buffer;
        const auto op = static_cast<char>(code);
        SMatrAndSBlockOper(s.data(), k0, n, op, buffer.data());
        reference::packed_diagonal_block(s_expected.data(), k0, n, op, buffer_expected.data());
        ASSERT_TRUE(same(s, s_expected) && same(buffer, buffer_expected)) << k0 << ' ' << n << ' ' << code;
      }
    }
  }
}

TEST(BlockFunctions, DenseBlocksOfAllShapesOffsetsAndCodes) {
  constexpr int kRows = 6;
  constexpr int kColumns = 7;
  for (int n1 = -1; n1 <= 5; ++n1) {
    for (int n2 = -1; n2 <= 5; ++n2) {
      for (int i0 = 0; i0 + n1 <= kRows && i0 < kRows; ++i0) {
        for (int j0 = 0; j0 + n2 <= kColumns && j0 < kColumns; ++j0) {
          for (int code = 0; code < 256; ++code) {
            Guarded m(kRows * kColumns, 1.5), m_expected = m;
            Guarded buffer(n1 > 0 && n2 > 0 ? n1 * n2 : 0, 100.25), buffer_expected = buffer;
            const auto op = static_cast<char>(code);
            MatrAndBlockOper(kRows, m.data(), i0, j0, n1, n2, op, buffer.data());
            reference::dense_block(kRows, m_expected.data(), i0, j0, n1, n2, op, buffer_expected.data());
            ASSERT_TRUE(same(m, m_expected) && same(buffer, buffer_expected))
                << i0 << ' ' << j0 << ' ' << n1 << ' ' << n2 << ' ' << code;
          }
        }
      }
    }
  }
}

// Exactly sized heap buffers: a sanitizer sees a read outside, too.
TEST(BlockFunctions, StayInsideExactlySizedBuffers) {
  for (const char op : {'+', '-', '0', '=', '>', 'x'}) {
    for (int n1 = 1; n1 <= 4; ++n1) {
      for (int n2 = 1; n2 <= 4; ++n2) {
        for (int i0 = 0; i0 <= 4; ++i0) {
          for (int j0 = 0; j0 <= 4; ++j0) {
            const auto order = static_cast<std::size_t>(std::max(i0 + n1, j0 + n2));
            const auto count = static_cast<std::size_t>(n1 * n2);
            std::vector<double> s(order * (order + 1) / 2, 1.0);
            std::vector<double> m(static_cast<std::size_t>((i0 + n1) * (j0 + n2)), 1.0);
            std::vector<double> buffer(count, 2.0);
            SMatrAndBlockOper(s.data(), i0, j0, n1, n2, op, buffer.data());
            MatrAndBlockOper(i0 + n1, m.data(), i0, j0, n1, n2, op, buffer.data());
            EXPECT_EQ(m.back() == 1.0, op == '>' || op == 'x');
          }
        }
      }
      for (int k0 = 0; k0 <= 4; ++k0) {
        const auto order = static_cast<std::size_t>(k0 + n1);
        std::vector<double> s(order * (order + 1) / 2, 1.0);
        std::vector<double> buffer(static_cast<std::size_t>(n1 * (n1 + 1) / 2), 2.0);
        SMatrAndSBlockOper(s.data(), k0, n1, op, buffer.data());
        EXPECT_EQ(s.back() == 1.0, op == '>' || op == 'x');
      }
    }
  }
}

TEST(BlockFunctions, CopyOutFillsTheBufferAndLeavesTheMatrix) {
  double s[6] = {1, 2, 3, 4, 5, 6};
  double buffer[4] = {};
  SMatrAndBlockOper(s, 0, 1, 2, 2, '>', buffer);  // rows 0 and 1, columns 1 and 2
  const double expected[4] = {2, 3, 4, 5};
  EXPECT_TRUE(bits::equal_arrays(buffer, expected, 4));
  const double unchanged[6] = {1, 2, 3, 4, 5, 6};
  EXPECT_TRUE(bits::equal_arrays(s, unchanged, 6));
}

// Across the diagonal (a, b) and (b, a) are one element: it is visited twice.
TEST(BlockFunctions, ABlockAcrossTheDiagonalReachesAnElementTwice) {
  double s[3] = {10, 20, 30};
  double buffer[4] = {1, 2, 4, 8};
  SMatrAndBlockOper(s, 0, 0, 2, 2, '+', buffer);
  const double added[3] = {11, 26, 38};
  EXPECT_TRUE(bits::equal_arrays(s, added, 3));
  SMatrAndBlockOper(s, 0, 0, 2, 2, '-', buffer);
  const double subtracted[3] = {10, 20, 30};
  EXPECT_TRUE(bits::equal_arrays(s, subtracted, 3));
  SMatrAndBlockOper(s, 0, 0, 2, 2, '=', buffer);
  const double later_wins[3] = {1, 4, 8};
  EXPECT_TRUE(bits::equal_arrays(s, later_wins, 3));
  SMatrAndBlockOper(s, 0, 0, 2, 2, '>', buffer);
  const double full[4] = {1, 4, 4, 8};
  EXPECT_TRUE(bits::equal_arrays(buffer, full, 4));
}

TEST(BlockFunctions, UnknownCodesChangeNothing) {
  for (const char op : {'*', 'x', '|', '\0'}) {
    double s[6] = {1, 2, 3, 4, 5, 6};
    double buffer[9] = {1, 1, 1, 1, 1, 1, 1, 1, 1};
    SMatrAndBlockOper(s, 0, 0, 3, 3, op, buffer);
    SMatrAndSBlockOper(s, 0, 3, op, buffer);
    MatrAndBlockOper(3, s, 0, 0, 3, 2, op, buffer);
    const double unchanged[6] = {1, 2, 3, 4, 5, 6};
    EXPECT_TRUE(bits::equal_arrays(s, unchanged, 6));
    for (const double b : buffer) {
      CHECK_BITS(b, 1.0);
    }
  }
}

TEST(BlockFunctions, ClearingDoesNotReadTheBuffer) {
  double s[6] = {1, 2, 3, 4, 5, 6};
  SMatrAndBlockOper(s, 2, 0, 1, 2, '0', nullptr);
  const double row[6] = {1, 2, 3, 0.0, 0.0, 6};
  EXPECT_TRUE(bits::equal_arrays(s, row, 6));
  SMatrAndSBlockOper(s, 0, 2, '0', nullptr);
  const double corner[6] = {0.0, 0.0, 0.0, 0.0, 0.0, 6};
  EXPECT_TRUE(bits::equal_arrays(s, corner, 6));
  double m[4] = {1, 2, 3, 4};
  MatrAndBlockOper(2, m, 1, 0, 1, 2, '0', nullptr);
  const double dense[4] = {1, 0.0, 3, 0.0};
  EXPECT_TRUE(bits::equal_arrays(m, dense, 4));
}

TEST(Loc1, KnownPositions) {
  EXPECT_EQ(LOC1(2, 3, 5, 5, 0), 12);
  EXPECT_EQ(LOC1(2, 3, 5, 5, 1), 5);
  EXPECT_EQ(LOC1(3, 2, 5, 5, 1), 5);
  EXPECT_EQ(LOC1(2, 3, 5, 5, 2), 0);
  EXPECT_EQ(LOC1(3, 3, 5, 5, 2), 3);
}

TEST(Loc1, AllModes) {
  for (const int ms : {-1000, -1, 0, 1, 2, 3, 1000}) {
    for (int n = 1; n <= 9; ++n) {
      for (int i = 1; i <= n; ++i) {
        for (int j = 1; j <= 9; ++j) {
          EXPECT_EQ(LOC1(i, j, n, -3, ms), reference::locate(i, j, n, ms));
        }
      }
    }
  }
}

TEST(Loc1, MatchesThePackedIndex) {
  for (int i = 0; i < 20; ++i) {
    for (int j = 0; j < 20; ++j) {
      EXPECT_EQ(LOC1(i + 1, j + 1, 20, 20, 1), TSMatrix::LinearIndex(i, j) + 1);
    }
  }
}

TEST(Loc1, LargestOrders) {
  // j (j - 1) / 2 for j = 65,535: the product alone leaves int.
  EXPECT_EQ(LOC1(1, 65535, 65535, 65535, 1), 2147385346);
  EXPECT_EQ(LOC1(65535, 65535, 65535, 65535, 1), 2147450880);
  EXPECT_EQ(LOC1(46341, 46341, 46341, 46341, 0), static_cast<int>(46341LL * 46341LL - (1LL << 32)));
}

}  // namespace
