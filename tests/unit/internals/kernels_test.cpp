// Every instruction set that this machine has, bit for bit against the literal references.

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

#include "bits.h"
#include "inversion_cases.h"
#include "matrix/kernels/dispatch.h"
#include "nasty.h"
#include "operator_cases.h"
#include "product_cases.h"

namespace {

using alidade::kernels::InstructionSet;

class Kernels : public testing::TestWithParam<InstructionSet> {
protected:
  void SetUp() override {
    if (!alidade::kernels::select(GetParam())) {
      GTEST_SKIP() << "not on this machine or not in this build";
    }
  }
  void TearDown() override {
    for (InstructionSet set : alidade::kernels::kInstructionSets) {
      alidade::kernels::select(set);
    }
  }
};

std::string name_of(const testing::TestParamInfo<InstructionSet>& info) {
  constexpr const char* kNames[] = {"Plain", "Sse2", "Avx2", "Avx512", "Neon"};
  return kNames[static_cast<int>(info.param)];
}

INSTANTIATE_TEST_SUITE_P(All, Kernels, testing::ValuesIn(alidade::kernels::kInstructionSets), name_of);

TEST_P(Kernels, DenseProducts) { product_cases::compare_dense_products(); }
TEST_P(Kernels, MixedProducts) { product_cases::compare_mixed_products(); }
TEST_P(Kernels, CongruenceProducts) { product_cases::compare_congruence_products(); }
TEST_P(Kernels, OperatorsOnSmallShapes) { operator_cases::compare_small(); }
TEST_P(Kernels, OperatorsOnLargeShapes) { operator_cases::compare_large(); }
TEST_P(Kernels, OperatorsOnNegativeSizes) { operator_cases::compare_negative(); }

TEST_P(Kernels, DefiniteMatrices) { inversion_cases::compare_definite(); }
TEST_P(Kernels, ScatteredMatrices) { inversion_cases::compare_scattered(); }
TEST_P(Kernels, FailingPivots) { inversion_cases::compare_failures(); }
TEST_P(Kernels, SemidefiniteMatrices) { inversion_cases::compare_semidefinite(); }
TEST_P(Kernels, MatricesWithSpecialValues) { inversion_cases::compare_special(); }
TEST_P(Kernels, ScaledMatrices) { inversion_cases::compare_scaled(); }
TEST_P(Kernels, OverflowingChains) { inversion_cases::compare_overflowing_chain(); }
TEST_P(Kernels, InversionProgress) { inversion_cases::compare_progress(); }
TEST_P(Kernels, PseudoInversion) { inversion_cases::compare_pseudo(); }

// Beyond the sizes that all tests share: several blocks of terms, chunks of the sparsity of more than one grain.
TEST_P(Kernels, LargeMatrices) {
  for (int n : {257, 300, 520}) {
    nasty::Random random(static_cast<std::uint64_t>(n));
    for (normal_matrices::Structure structure : normal_matrices::kAllStructures) {
      const std::vector<double> matrix =
          normal_matrices::definite(structure, n, random, normal_matrices::Zeros::kPositive);
      EXPECT_EQ(inversion_cases::compare(matrix, n, 0, 99, "large"), 0);
    }
    std::vector<double> failing = normal_matrices::definite(normal_matrices::Structure::kDense, n, random);
    failing[normal_matrices::at(n - 40, n - 40)] = -1.0;
    EXPECT_EQ(inversion_cases::compare(failing, n, 0, 99, "large and failing"), n - 39);
  }
  nasty::Random random(1100);
  const std::vector<double> banded =
      normal_matrices::definite(normal_matrices::Structure::kBanded, 1100, random, normal_matrices::Zeros::kPositive);
  EXPECT_EQ(inversion_cases::compare(banded, 1100, 0, 99, "large and banded"), 0);
}

// Runs one function of the library on every instruction set and compares with one run of the reference.
template <class Tested, class Reference>
void compare_all_sets(std::vector<double>& target, Tested tested, Reference reference, int n, int m, int k) {
  std::vector<double> expected(target);
  reference(expected.data());
  for (InstructionSet set : alidade::kernels::kInstructionSets) {
    if (set != InstructionSet::kPlain && alidade::kernels::select(set)) {
      std::vector<double> actual(target);
      tested(actual.data());
      ASSERT_TRUE(bits::equal_arrays(actual.data(), expected.data(), expected.size()))
          << "set " << static_cast<int>(set) << ", " << n << " x " << m << " x " << k;
    }
  }
}

// All shapes up to 40 in each dimension, in buffers without an element to spare. The operands are stretches of one
// sequence of values of all kinds, so that most of the time goes to the products.
TEST(AllKernels, EveryShapeOfDenseProducts) {
  if (alidade::kernels::active() == nullptr) {
    GTEST_SKIP() << "no instruction set but the plain loops on this machine or in this build";
  }
  std::vector<double> values;
  nasty::Random random(40);
  for (nasty::Kind kind : nasty::kAllKinds) {
    for (int i = 0; i < 4000; ++i) {
      values.push_back(nasty::value(kind, random));
    }
  }
  const auto stretch = [&](std::size_t size) {
    const auto first = values.begin() + random.below(static_cast<int>(values.size() - size));
    return std::vector<double>(first, first + static_cast<std::ptrdiff_t>(size));
  };
  for (int n = 1; n <= 40; ++n) {
    for (int m = 1; m <= 40; ++m) {
      for (int k = 1; k <= 40; ++k) {
        const auto size = [](int rows, int columns) { return static_cast<std::size_t>(rows) * columns; };
        const std::vector<double> a = stretch(size(n, m)), b = stretch(size(m, k)), b2 = stretch(size(n, k));
        std::vector<double> c = stretch(size(n, k)), c2 = stretch(size(m, k));
        compare_all_sets(
            c, [&](double* t) { MatrixProduct(a.data(), b.data(), t, n, m, k); },
            [&](double* t) { reference::matrix_product(a.data(), b.data(), t, n, m, k); }, n, m, k);
        compare_all_sets(
            c2, [&](double* t) { MAtB(a.data(), b2.data(), t, n, m, k); },
            [&](double* t) { reference::transposed_product(a.data(), b2.data(), t, n, m, k); }, n, m, k);
        ASSERT_FALSE(HasFatalFailure());
      }
    }
  }
}

}  // namespace
