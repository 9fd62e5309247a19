// The inversion on every instruction set, bit for bit against the literal reference: every order, every failing pivot,
// every pattern of blocks, and the values at which the blocked way must leave the work to the plain loops.

#include <alidade/matrix.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "matrix/inversion_choice.h"
#include "matrix/kernels/kernel_table.h"
#include "reference/inversion.h"
#include "support/bits.h"
#include "support/kernel_sets.h"
#include "support/nasty.h"
#include "support/normal_matrices.h"
#include "support/product_shapes.h"
#include "support/sizes.h"

namespace {

using normal_matrices::at;
using normal_matrices::count;
using normal_matrices::Structure;
using normal_matrices::Zeros;

#if defined(__OPTIMIZE__) && !defined(ALIDADE_TESTS_FEW_SIZES)
constexpr int kStep = 1;
#else
constexpr int kStep = 11;  // one case in eleven
#endif

// Inverts by the reference once and by every instruction set; the result of both.
class KernelInversions : public testing::Test {
protected:
  int compare(const std::vector<double>& matrix, int n, const char* what) {
    expected_ = matrix;
    const int result = reference::rare_inversion(expected_.data(), n, nullptr, 99);
    for (kernel_sets::InstructionSet set : sets_) {
      alidade::kernels::select(set);
      actual_ = matrix;
      TSMatrix N(actual_.data(), n);
      EXPECT_EQ(RareInversion(N, nullptr, 99), result) << what << " of order " << n << " on " << kernel_sets::name(set);
      EXPECT_TRUE(bits::equal_arrays(actual_.data(), expected_.data(), expected_.size()))
          << what << " of order " << n << " on " << kernel_sets::name(set) << ", result " << result;
    }
    return result;
  }

  // The result of the last comparison.
  const std::vector<double>& inverse() const { return expected_; }

private:
  std::vector<double> expected_, actual_;
  std::vector<kernel_sets::InstructionSet> sets_ = kernel_sets::all();
  kernel_sets::Restore restore_;
};

// Around the sizes of blocks and chunks beyond the orders that are all taken.
const std::vector<int> kBeyondForty = {41, 47, 48, 49, 63, 64, 65, 66, 79, 95, 96, 97, 98, 112, 127, 128, 129, 140};

std::vector<int> all_orders() {
  std::vector<int> orders = sizes::up_to(40);
  orders.insert(orders.end(), kBeyondForty.begin(), kBeyondForty.end());
  return orders;
}

TEST_F(KernelInversions, EveryOrder) {
  for (int n : sizes::all_or_few(sizes::up_to(140), all_orders())) {
    nasty::Random random(static_cast<std::uint64_t>(n));
    for (Structure structure : normal_matrices::kAllStructures) {
      EXPECT_EQ(compare(normal_matrices::definite(structure, n, random, Zeros::kPositive), n, "definite"), 0);
    }
    EXPECT_EQ(compare(normal_matrices::gram(n, random), n, "gram"), 0);
    if (n <= 40) {
      EXPECT_EQ(compare(normal_matrices::definite(Structure::kScattered, n, random), n, "zeros of both signs"), 0);
    }
  }
}

// Pivot k fails because the diagonal is bad from the start, or because the elimination leaves nothing of it.
TEST_F(KernelInversions, EveryFailingPivot) {
  constexpr double kBad[] = {-1.0, 0.0, -0.0, std::numeric_limits<double>::quiet_NaN(),
                             -std::numeric_limits<double>::infinity()};
  int counter = 0;
  for (int n : all_orders()) {
    nasty::Random random(static_cast<std::uint64_t>(n) + 1000);
    for (Structure structure : normal_matrices::kAllStructures) {
      const std::vector<double> good = normal_matrices::definite(structure, n, random, Zeros::kPositive);
      for (int k = 0; k < n; ++k) {
        if (n > 40 && (k + n + static_cast<int>(structure)) % 5 != 0) {
          continue;  // the larger orders share their pivots out among the structures
        }
        if (++counter % kStep != 0 && n > 12) {
          continue;
        }
        std::vector<double> bad = good;
        bad[at(k, k)] = kBad[random.below(5)];
        EXPECT_EQ(compare(bad, n, "bad diagonal"), k + 1);
        std::vector<double> dependent = good;  // row k is row k - 1, or 0: the pivot cancels to nothing, or nearly
        for (int j = 0; j < n && k > 0; ++j) {
          dependent[at(k, j)] = good[at(k - 1, j)];
        }
        dependent[at(k, k)] = k > 0 ? good[at(k - 1, k - 1)] : 0.0;
        dependent[at(k, std::max(k - 1, 0))] = dependent[at(k, k)];
        if (n <= 40) {
          compare(dependent, n, "dependent row");
        }
      }
    }
  }
}

// Every pattern of nonzero blocks of 16 x 16 below the diagonal, in a matrix of five of them. A block that is there has
// one element, so that a stretch of terms too short or a row taken for empty is seen.
TEST_F(KernelInversions, EveryPatternOfBlocks) {
  constexpr int kGrain = 16;
  constexpr int kBlocks = 5;
  constexpr int kPairs = kBlocks * (kBlocks - 1) / 2;
  nasty::Random random(1616);
  for (int pattern = 0; pattern < 1 << kPairs; pattern += kStep) {
    const int n = kGrain * kBlocks - pattern % 3;
    std::vector<double> matrix(count(n));
    int bit = 0;
    for (int r = 1; r < kBlocks; ++r) {
      for (int c = 0; c < r; ++c) {
        if (pattern >> bit++ & 1) {
          const int rows = std::min(kGrain, n - r * kGrain);
          matrix[at(r * kGrain + random.below(rows), c * kGrain + random.below(kGrain))] = random.unit();
        }
      }
    }
    for (int k = 0; k < 4; ++k) {
      const int i = random.below(n - 1) + 1;
      matrix[at(i, i - 1)] = random.unit();
    }
    normal_matrices::dominate(matrix, n, random);
    EXPECT_EQ(compare(matrix, n, "pattern of blocks"), 0);
  }
}

// Patterns at random in matrices of more blocks, and of blocks that are not full; few of their elements are there.
TEST_F(KernelInversions, ScatteredElementsInManyBlocks) {
  nasty::Random random(3232);
  for (int round = 0; round < 120; round += kStep) {
    const int n = 65 + random.below(kStep == 1 ? 240 : 70);
    std::vector<double> matrix(count(n));
    for (int elements = random.below(2 * n); elements > 0; --elements) {
      const int i = random.below(n - 1) + 1;
      matrix[at(i, random.below(i))] = random.unit();
    }
    normal_matrices::dominate(matrix, n, random);
    EXPECT_EQ(compare(matrix, n, "scattered elements"), 0);
  }
}

// Every pattern of nonzeros in the smallest matrices, zeros of both signs.
TEST_F(KernelInversions, EveryPatternOfElements) {
  for (int n = 1; n <= 5; ++n) {
    const int pairs = n * (n - 1) / 2;
    for (int pattern = 0; pattern < 1 << pairs; ++pattern) {
      nasty::Random random(static_cast<std::uint64_t>(pattern));
      std::vector<double> matrix(count(n));
      int bit = 0;
      for (int i = 0; i < n; ++i) {
        for (int j = 0; j < i; ++j) {
          const double zero = random.one_in(2) ? 0.0 : -0.0;
          matrix[at(i, j)] = pattern >> bit++ & 1 ? random.unit() : zero;
        }
      }
      normal_matrices::dominate(matrix, n, random);
      EXPECT_EQ(compare(matrix, n, "pattern of elements"), 0);
    }
  }
}

// Orders of one block and more, the last one whole, nearly whole and a single row.
constexpr int kBlockedOrders[] = {33, 40, 64, 65, 100};

// One unusual value at every place of a matrix that is otherwise fit for blocks. A -0.0 must be kept where the plain
// loops keep it, an infinity must meet the same zeros as there.
TEST_F(KernelInversions, OneUnusualElementAnywhere) {
  constexpr double kUnusual[] = {-0.0,
                                 std::numeric_limits<double>::infinity(),
                                 -std::numeric_limits<double>::infinity(),
                                 std::numeric_limits<double>::quiet_NaN(),
                                 std::numeric_limits<double>::denorm_min(),
                                 -std::numeric_limits<double>::min()};
  int counter = 0;
  for (int n : {33, 40, 65}) {
    nasty::Random random(static_cast<std::uint64_t>(n) + 2000);
    const std::vector<double> good = normal_matrices::definite(Structure::kBordered, n, random, Zeros::kPositive);
    for (std::size_t place = 0; place < good.size(); ++place) {
      if (++counter % kStep == 0) {
        std::vector<double> matrix = good;
        matrix[place] = kUnusual[random.below(6)];
        compare(matrix, n, "one unusual element");
      }
    }
  }
}

// The reciprocal of pivot k overflows the product with element (i, k): an infinity in the factor. It stays in row i,
// whose own pivot then fails, unless the diagonal is infinite as well.
TEST_F(KernelInversions, FactorOverflowsAnywhere) {
  for (int n : kBlockedOrders) {
    nasty::Random random(static_cast<std::uint64_t>(n) + 3000);
    for (int round = 0; round < 400; ++round) {
      const int k = random.below(n - 1);
      const int i = k + 1 + random.below(n - 1 - k);
      std::vector<double> matrix = normal_matrices::scattered(n, 8, random);
      for (int j = 0; j < n; ++j) {
        if (j != k) {
          matrix[at(k, j)] = 0.0;
        }
      }
      matrix[at(k, k)] = 0x1p-1000;
      matrix[at(i, k)] = random.one_in(2) ? 0x1p+1000 : -0x1p+1000;
      if (round % kStep == 0) {
        EXPECT_EQ(compare(matrix, n, "overflow of r L"), i + 1);
        if (i + 1 < n) {  // also where more rows of the same column overflow or only nearly do
          matrix[at(n - 1, k)] = 0x1p+523;
          compare(matrix, n, "overflow of r L in two rows");
        }
      }
    }
  }
}

// Row k of the factor's inverse times its diagonal underflows. A negative one becomes -0.0, which a later zero of the
// other sign must turn into +0.0 only where the plain loops add it.
TEST_F(KernelInversions, ProductUnderflowsAnywhere) {
  for (int n : kBlockedOrders) {
    nasty::Random random(static_cast<std::uint64_t>(n) + 4000);
    for (int k = 1; k < n; ++k) {
      const int j = random.below(k);
      for (double sign : {1.0, -1.0}) {
        std::vector<double> matrix(count(n));
        for (int i = 0; i < n; ++i) {
          matrix[at(i, i)] = 1.0;
        }
        matrix[at(k, k)] = 0x1p+1000;
        matrix[at(k, j)] = sign * 0x1p-80;  // its inverse has -2^-580, times 2^-500: a zero
        EXPECT_EQ(compare(matrix, n, "underflow"), 0);
        EXPECT_EQ(bits::of(inverse()[at(k, j)]), bits::of(sign > 0 ? -0.0 : 0.0)) << n << " " << k << " " << j;
        if (k + 1 < n) {  // a row below adds its own zeros
          matrix[at(k + 1 + random.below(n - k - 1), random.one_in(2) ? k : j)] = 0x1p-540;
          EXPECT_EQ(compare(matrix, n, "underflow above another row"), 0);
        }
      }
    }
  }
}

// Rows of the inverse grow by a factor from one to the next until they overflow somewhere. Between the links lie
// unrelated parameters.
TEST_F(KernelInversions, InverseOverflowsAnywhere) {
  for (int n : kBlockedOrders) {
    nasty::Random random(static_cast<std::uint64_t>(n) + 5000);
    for (int growth = 1; growth <= 60; growth += kStep) {
      for (int step : {1, 3}) {
        std::vector<double> matrix(count(n));
        for (int i = 0; i < n; ++i) {
          const bool link = i % step == 0;
          // L: 2^-500 on the diagonal, 2^(growth - 500) beside it
          matrix[at(i, i)] = !link ? 1.0 : i == 0 ? 0x1p-1000 : 0x1p-1000 + std::ldexp(1.0, 2 * growth - 1000);
          if (link && i >= step) {
            matrix[at(i, i - step)] = std::ldexp(random.one_in(2) ? 1.0 : -1.0, growth - 1000);
          }
        }
        compare(matrix, n, "growing inverse");
      }
    }
  }
}

// Orders at which the chunks of the account of nonzeros grow to 32, 48 and 64, against the plain loops: 3x3 blocks with
// a border, an arrow, a band.
TEST_F(KernelInversions, LargeSparseOrders) {
  for (int n : sizes::all_or_few({1030, 2060, 3100}, {1030})) {
    for (int structure = 0; structure < 3; ++structure) {
      nasty::Random random(static_cast<std::uint64_t>(n + structure));
      std::vector<double> matrix(count(n));
      for (int i = 0; i < n; ++i) {
        for (int j = 0; j < i; ++j) {
          const bool present = structure == 0   ? i / 3 == j / 3 || i >= n - 5
                               : structure == 1 ? i >= n - 2
                                                : i - j <= 2 && i < 200;
          matrix[at(i, j)] = present ? random.unit() : 0.0;
        }
      }
      normal_matrices::dominate(matrix, n, random);
      alidade::kernels::select(kernel_sets::InstructionSet::kPlain);
      std::vector<double> expected = matrix;
      TSMatrix plain(expected.data(), n);
      EXPECT_EQ(RareInversion(plain, nullptr, 0), 0);
      for (kernel_sets::InstructionSet set : kernel_sets::all()) {
        alidade::kernels::select(set);
        std::vector<double> actual = matrix;
        TSMatrix N(actual.data(), n);
        EXPECT_EQ(RareInversion(N, nullptr, 0), 0);
        EXPECT_TRUE(bits::equal_arrays(actual.data(), expected.data(), actual.size()))
            << "structure " << structure << " of order " << n << " on " << kernel_sets::name(set);
      }
    }
  }
}

// What is left to the plain loops because it is sparse has the same bits; and that is not much.
TEST_F(KernelInversions, PlainLoopsDoWhatIsSparseWithoutBlocks) {
  constexpr int kOrder = 400;
  nasty::Random random(400);
  std::vector<double> scattered(count(kOrder));
  for (int i = 0; i < kOrder / 2; ++i) {
    const int row = 1 + random.below(kOrder - 1);
    scattered[at(row, random.below(row))] = random.unit();
  }
  normal_matrices::dominate(scattered, kOrder, random);
  const std::vector<double> dense = normal_matrices::definite(Structure::kDense, kOrder, random, Zeros::kPositive);
  const std::vector<double> bordered =
      normal_matrices::definite(Structure::kBordered, kOrder, random, Zeros::kPositive);
  std::vector<std::ptrdiff_t> indices(3 * kOrder);
  const auto left_to_plain_loops = [&](const std::vector<double>& matrix) {
    const alidade::kernels::KernelTable& fast = *alidade::kernels::active();
    alidade::kernels::Sparsity sparsity;
    sparsity.chunk = alidade::kernels::kGrain;
    EXPECT_TRUE(fast.survey(matrix.data(), kOrder, sparsity));
    return alidade::plain_loops_do_less(matrix.data(), kOrder, sparsity, fast.width, indices.data());
  };
  alidade::sparse_matrices_are_told = true;
  for (kernel_sets::InstructionSet set : kernel_sets::all()) {
    alidade::kernels::select(set);
    if (alidade::kernels::active() != nullptr) {
      EXPECT_TRUE(left_to_plain_loops(scattered)) << kernel_sets::name(set);
      EXPECT_FALSE(left_to_plain_loops(dense)) << kernel_sets::name(set);
    }
  }
  EXPECT_EQ(compare(scattered, kOrder, "scattered"), 0);
  EXPECT_EQ(compare(bordered, kOrder, "bordered"), 0);
  EXPECT_EQ(compare(dense, kOrder, "dense"), 0);
}

}  // namespace
