// Every product and the inversion on every instruction set in buffers of exactly the implied size, beside memory that
// cannot be accessed: once right after it, once right before it. kernel_shapes_test has all small shapes before it.

#include <alidade/matrix.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "matrix/products3.h"
#include "reference/inversion.h"
#include "reference/linalg3.h"
#include "support/bits.h"
#include "support/guarded_buffer.h"
#include "support/kernel_sets.h"
#include "support/nasty.h"
#include "support/normal_matrices.h"
#include "support/product_shapes.h"
#include "support/sizes.h"

namespace {

using product_shapes::Placement;
using product_shapes::Product;

class GuardPages : public testing::Test {
protected:
  void SetUp() override {
    if (!GuardedBuffer::kGuarded) {
      GTEST_SKIP() << "no inaccessible pages on this system";
    }
  }
};

class ProductsBesideGuardPages : public GuardPages, public testing::WithParamInterface<Product> {};

TEST_P(ProductsBesideGuardPages, After) {
  const std::vector<int> few = sizes::all_or_few({1, 2, 3, 4, 5, 7, 8, 9, 15, 16, 17, 25, 33, 40}, {1, 3, 8, 9, 40});
  compare(GetParam(), {few, few, few, {1, 8, 17}}, Placement::kAfterGuard);
}

// Several blocks of rows and of terms, of sizes around the blocks' own.
TEST_P(ProductsBesideGuardPages, LargeShapes) {
  const std::vector<int> large = sizes::all_or_few({49, 64, 97, 130}, {49});
  const std::vector<int> terms = sizes::all_or_few({63, 129}, {63});
  const std::vector<int> long_sum = sizes::all_or_few({257, 521}, {257});
  for (Placement placement : {Placement::kBeforeGuard, Placement::kAfterGuard}) {
    compare(GetParam(), {large, {65, 96}, terms, {64, 100}}, placement);
    compare(GetParam(), {{9, 66}, {8, 65}, long_sum, {64}}, placement);
  }
}

std::string name_of(const testing::TestParamInfo<Product>& info) { return info.param.name; }

INSTANTIATE_TEST_SUITE_P(All, ProductsBesideGuardPages, testing::ValuesIn(product_shapes::all_products()), name_of);

using ProductsOfOrderThree = GuardPages;

TEST_F(ProductsOfOrderThree, BesideGuardPages) {
  const kernel_sets::Restore restore;
  nasty::Random random(3);
  GuardedBuffer a(9), b(9), c(9);
  for (int round = 0; round < 200; ++round) {
    for (bool before : {true, false}) {
      const auto place = [before](GuardedBuffer& buffer, std::size_t size) {
        return before ? buffer.ending(size) : buffer.beginning();
      };
      const auto filled = [&](GuardedBuffer& buffer, std::size_t size) {
        double* values = place(buffer, size);
        std::generate_n(values, size, [&] { return nasty::value(nasty::kAllKinds[random.below(6)], random); });
        return values;
      };
      const double* matrix = filled(a, 9);
      const double* other = filled(b, 9);
      double expected[9];
      reference::matrix_times_matrix(matrix, other, expected);
      for (kernel_sets::InstructionSet set : kernel_sets::all()) {
        alidade::kernels::select(set);
        alidade::dense_product3(matrix, other, place(c, 9));
        EXPECT_TRUE(bits::equal_arrays(place(c, 9), expected, 9)) << kernel_sets::name(set);
      }
      const double* packed = filled(b, 6);
      reference::propagate(matrix, packed, expected);
      for (kernel_sets::InstructionSet set : kernel_sets::all()) {
        alidade::kernels::select(set);
        alidade::congruence_product3(matrix, packed, place(c, 6));
        EXPECT_TRUE(bits::equal_arrays(place(c, 6), expected, 6)) << kernel_sets::name(set);
      }
    }
  }
}

class InversionBesideGuardPages : public GuardPages {
protected:
  void compare(const std::vector<double>& matrix, int n) {
    std::vector<double> expected = matrix;
    const int result = reference::rare_inversion(expected.data(), n, nullptr, 99);
    for (kernel_sets::InstructionSet set : kernel_sets::all()) {
      alidade::kernels::select(set);
      for (double* packed : {buffer_.beginning(), buffer_.ending(matrix.size())}) {
        std::copy(matrix.begin(), matrix.end(), packed);
        TSMatrix N(packed, n);
        ASSERT_EQ(RareInversion(N, nullptr, 99), result) << kernel_sets::name(set) << ", order " << n;
        ASSERT_TRUE(bits::equal_arrays(packed, expected.data(), expected.size()))
            << kernel_sets::name(set) << ", order " << n << ", result " << result;
      }
    }
  }

private:
  GuardedBuffer buffer_{normal_matrices::count(kLargest)};
  kernel_sets::Restore restore_;

protected:
  static constexpr int kLargest = 300;
};

TEST_F(InversionBesideGuardPages, EveryStructure) {
  std::vector<int> orders = sizes::up_to(70);
  orders.insert(orders.end(), {95, 96, 97, 127, 128, 129, 140, 191, 193, kLargest});
  orders = sizes::all_or_few(orders, {1, 2, 3, 4, 5, 8, 15, 16, 17, 31, 33, 48, 63, 64, 65, 96, 97, 129});
  for (int n : orders) {
    nasty::Random random(static_cast<std::uint64_t>(n));
    for (normal_matrices::Structure structure : normal_matrices::kAllStructures) {
      std::vector<double> matrix = normal_matrices::definite(structure, n, random, normal_matrices::Zeros::kPositive);
      compare(matrix, n);
      matrix[normal_matrices::at(n / 2, n / 2)] = -1.0;
      compare(matrix, n);
      matrix[normal_matrices::at(n / 2, 0)] = -0.0;  // leaves everything to the plain loops
      compare(matrix, n);
      ASSERT_FALSE(HasFatalFailure());
    }
  }
}

}  // namespace
