// Every instruction set that this machine has, bit for bit against the literal references, on the cases that the tests
// of the public functions run on the set chosen at load. kernel_shapes_test and kernel_inversions_test go through all
// small shapes, kernel_guard_pages_test looks for accesses outside them.

#include "matrix/kernels/kernels.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

#include "matrix/products3.h"
#include "reference/linalg3.h"
#include "support/bits.h"
#include "support/inversion_cases.h"
#include "support/kernel_sets.h"
#include "support/nasty.h"
#include "support/operator_cases.h"
#include "support/product_cases.h"
#include "support/product_shapes.h"
#include "support/sizes.h"

namespace {

using kernel_sets::InstructionSet;

class Kernels : public testing::TestWithParam<InstructionSet> {
protected:
  void SetUp() override {
    if (!alidade::kernels::select(GetParam())) {
      GTEST_SKIP() << "not on this machine or not in this build";
    }
    if (kernel_sets::all().size() == 1) {
      GTEST_SKIP() << "there are the plain loops alone: the tests of the public functions have run all this";
    }
  }

private:
  kernel_sets::Restore restore_;
};

std::string name_of(const testing::TestParamInfo<InstructionSet>& info) { return kernel_sets::name(info.param); }

INSTANTIATE_TEST_SUITE_P(All, Kernels, testing::ValuesIn(alidade::kernels::kInstructionSets), name_of);

TEST_P(Kernels, DenseProducts) { product_cases::compare_dense_products(); }
TEST_P(Kernels, MixedProducts) { product_cases::compare_mixed_products(); }
TEST_P(Kernels, CongruenceProducts) { product_cases::compare_congruence_products(); }
TEST_P(Kernels, OperatorsOnSmallShapes) { operator_cases::compare_small(); }
TEST_P(Kernels, OperatorsOnLargeShapes) { operator_cases::compare_large(); }
TEST_P(Kernels, OperatorsOnTargetsWithOverlappingColumns) { operator_cases::compare_overlapping(); }
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

// Nine and six doubles in buffers without an element to spare; among the kinds of values are sums of -0.0 alone.
TEST_P(Kernels, ProductsOfOrderThree) {
  nasty::Random random(3);
  for (nasty::Kind kind : nasty::kAllKinds) {
    for (int round = 0; round < 30000; ++round) {
      std::vector<double> a(9), b(9), q(6), product(9), propagated(6);
      for (std::vector<double>* operand : {&a, &b, &q}) {
        for (double& x : *operand) {
          x = nasty::value(kind, random);
          x = random.one_in(3) ? 0.0 * x : x;
        }
      }
      double expected[9];
      alidade::dense_product3(a.data(), b.data(), product.data());
      reference::matrix_times_matrix(a.data(), b.data(), expected);
      ASSERT_TRUE(bits::equal_arrays(product.data(), expected, 9)) << round;
      alidade::congruence_product3(a.data(), q.data(), propagated.data());
      reference::propagate(a.data(), q.data(), expected);
      ASSERT_TRUE(bits::equal_arrays(propagated.data(), expected, 6)) << round;
    }
  }
}

// Beyond the sizes that all tests share: several blocks of terms, chunks of the sparsity of more than one grain.
TEST_P(Kernels, LargeMatrices) {
  for (int n : sizes::all_or_few({257, 300, 520}, {257})) {
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
  for (int n : sizes::all_or_few({600, 1100}, {600})) {
    nasty::Random random(static_cast<std::uint64_t>(n));
    const std::vector<double> banded =
        normal_matrices::definite(normal_matrices::Structure::kBanded, n, random, normal_matrices::Zeros::kPositive);
    EXPECT_EQ(inversion_cases::compare(banded, n, 0, 99, "large and banded"), 0);
  }
}

}  // namespace
