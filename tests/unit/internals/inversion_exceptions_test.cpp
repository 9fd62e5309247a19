// Which floating-point exceptions an inversion raises: on every instruction set those of the plain loops.

#include <alidade/matrix.h>
#include <gtest/gtest.h>

#include <cfenv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

#include "support/bits.h"
#include "support/kernel_sets.h"
#include "support/nasty.h"
#include "support/normal_matrices.h"

#if defined(FE_INVALID) && defined(FE_OVERFLOW) && defined(FE_DIVBYZERO)

namespace {

using normal_matrices::at;

constexpr int kCompared = FE_INVALID | FE_OVERFLOW | FE_DIVBYZERO;

class InversionExceptions : public testing::Test {
protected:
  void SetUp() override {
    std::fegetenv(&saved_);
    if (kernel_sets::all().size() == 1) {
      GTEST_SKIP() << "there are the plain loops alone";
    }
  }
  void TearDown() override { std::fesetenv(&saved_); }

  // The exceptions that the plain loops raise.
  int compare(const std::vector<double>& matrix, int n, const char* what) {
    std::vector<double> expected = matrix;
    const Outcome plain = invert_on(kernel_sets::InstructionSet::kPlain, expected, n);
    for (kernel_sets::InstructionSet set : kernel_sets::all()) {
      std::vector<double> actual = matrix;
      const Outcome outcome = invert_on(set, actual, n);
      EXPECT_EQ(outcome.result, plain.result) << what << ", order " << n << " on " << kernel_sets::name(set);
      EXPECT_EQ(outcome.raised, plain.raised) << what << ", order " << n << " on " << kernel_sets::name(set);
      EXPECT_TRUE(bits::equal_arrays(actual.data(), expected.data(), actual.size()));
    }
    return plain.raised;
  }

private:
  struct Outcome {
    int result;
    int raised;
  };
  static Outcome invert_on(kernel_sets::InstructionSet set, std::vector<double>& matrix, int n) {
    alidade::kernels::select(set);
    TSMatrix N(matrix.data(), n);
    std::feclearexcept(FE_ALL_EXCEPT);
    const int result = RareInversion(N, nullptr, 99);
    const int raised = std::fetestexcept(kCompared);
    std::feclearexcept(FE_ALL_EXCEPT);
    return {result, raised};
  }

  kernel_sets::Restore restore_;
  std::fenv_t saved_{};
};

std::vector<double> good(int n, normal_matrices::Structure structure, std::uint64_t seed) {
  nasty::Random random(seed);
  return normal_matrices::definite(structure, n, random, normal_matrices::Zeros::kPositive);
}

constexpr int kOrders[] = {3, 8, 12, 17, 31, 33, 64, 65, 100, 129};

TEST_F(InversionExceptions, NoneForAnOrdinaryMatrix) {
  for (int n : kOrders) {
    for (normal_matrices::Structure structure : normal_matrices::kAllStructures) {
      std::vector<double> matrix = good(n, structure, 1);
      EXPECT_EQ(compare(matrix, n, "ordinary"), 0);
      matrix[at(n - 1, n - 1)] = -1.0;
      EXPECT_EQ(compare(matrix, n, "failing pivot"), 0);
    }
  }
}

// An infinity in a row that is not reached, or that meets zeros alone, raises nothing.
TEST_F(InversionExceptions, InfiniteElementAndFailingPivot) {
  for (int n : kOrders) {
    for (normal_matrices::Structure structure : normal_matrices::kAllStructures) {
      for (int k : {0, n / 2, n - 2}) {
        std::vector<double> matrix = good(n, structure, 2);
        matrix[at(n - 1, n - 1)] = std::numeric_limits<double>::infinity();
        compare(matrix, n, "infinite diagonal element");
        matrix[at(k, k)] = -1.0;
        compare(matrix, n, "infinite diagonal element and failing pivot");
        matrix[at(n - 1, k)] = std::numeric_limits<double>::infinity();
        compare(matrix, n, "infinite element and failing pivot");
      }
    }
  }
}

TEST_F(InversionExceptions, SpecialValues) {
  for (int n : kOrders) {
    nasty::Random random(static_cast<std::uint64_t>(n));
    for (int round = 0; round < 20; ++round) {
      std::vector<double> matrix = good(n, normal_matrices::kAllStructures[round % 5], 3);
      for (int changes = random.below(3); changes >= 0; --changes) {
        matrix[static_cast<std::size_t>(random.below(static_cast<int>(matrix.size())))] = nasty::special(random);
      }
      compare(matrix, n, "special values");
    }
  }
}

// Each phase overflows: squares of the factor, the factor, its inverse, the product.
TEST_F(InversionExceptions, OverflowInEachPhase) {
  int overflows = 0;
  for (int n : kOrders) {
    for (normal_matrices::Structure structure : normal_matrices::kAllStructures) {
      for (int k : {0, n / 2, n - 2}) {
        for (const double pivot : {0x1p-1060, 0x1p-1000, 0x1p-700}) {
          for (const double element : {0x1p1000, 0x1p600, 0x1p300, 0x1p20}) {
            std::vector<double> matrix = good(n, structure, 4);
            matrix[at(k, k)] = pivot;
            for (int j = 0; j < k; ++j) {
              matrix[at(k, j)] = 0.0;
            }
            matrix[at(n - 1, k)] = element;
            overflows += (compare(matrix, n, "overflow") & FE_OVERFLOW) != 0 ? 1 : 0;
          }
        }
      }
      for (int exponent : {-1070, -1030, -520, 520, 1010}) {
        std::vector<double> matrix = good(n, structure, 5);
        for (double& v : matrix) {
          v = std::ldexp(v, exponent);
        }
        compare(matrix, n, "scaled");
      }
    }
  }
  EXPECT_GT(overflows, 100);
}

#if defined(__GLIBC__) && defined(__x86_64__)
TEST_F(InversionExceptions, NoTrapIsTakenThatNoPlainLoopTakes) {
  for (int n : kOrders) {
    std::vector<double> matrix = good(n, normal_matrices::Structure::kBordered, 6);
    matrix[at(n - 1, n - 1)] = std::numeric_limits<double>::infinity();
    matrix[at(n - 2, n - 2)] = -1.0;
    for (kernel_sets::InstructionSet set : kernel_sets::all()) {
      alidade::kernels::select(set);
      std::vector<double> actual = matrix;
      TSMatrix N(actual.data(), n);
      std::feclearexcept(FE_ALL_EXCEPT);
      feenableexcept(kCompared);
      const int result = RareInversion(N, nullptr, 99);
      const int trapped = fegetexcept();
      fedisableexcept(FE_ALL_EXCEPT);
      EXPECT_EQ(result, n - 1);
      EXPECT_EQ(trapped, kCompared) << "the host's traps stay enabled";
    }
  }
}
#endif

}  // namespace

#endif
