// Every product on every instruction set for every shape up to 40, and for thin shapes beyond, bit for bit against the
// literal references, in buffers that end where the shape ends.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/product_shapes.h"
#include "support/sizes.h"

namespace {

using product_shapes::Codes;
using product_shapes::compare;
using product_shapes::Placement;
using product_shapes::Product;
using product_shapes::Space;
using sizes::all_or_few;
using sizes::up_to;

// Around the heights and widths of the tiles of all instruction sets.
const std::vector<int> kFew =
    all_or_few({1, 2, 3, 4, 5, 7, 8, 9, 12, 15, 16, 17, 24, 31, 32, 33, 40}, {1, 2, 3, 4, 5, 8, 9, 12, 17, 33});

// Slow builds, instrumented ones and those that ask for few sizes go through a few extents instead of all.
std::vector<int> every_extent() {
#if defined(__OPTIMIZE__) && !defined(ALIDADE_TESTS_FEW_SIZES) && !defined(ALIDADE_TESTS_ADDRESS_SANITIZER)
  return up_to(40);
#else
  return kFew;
#endif
}

class Shapes : public testing::TestWithParam<Product> {};

std::string name_of(const testing::TestParamInfo<Product>& info) { return info.param.name; }

// Every operation code meets every shape of two extents; those of three have shapes enough for the codes to take turns.
// The product of three factors has four extents. All pairs of rows and columns meet some pairs of terms, and all pairs
// of terms meet some of rows and columns.
TEST_P(Shapes, Every) {
  const Product& product = GetParam();
  const std::vector<int> every = every_extent();
  if (product.has(product_shapes::kInner)) {
    compare(product, {every, every, {1, 5, 8, 33}, {1, 3, 17, 40}}, Placement::kBeforeGuard);
    compare(product, {{1, 9, 40}, {4, 33}, every, every}, Placement::kBeforeGuard);
  } else {
    const bool two_free = product.has(product_shapes::kRows) && product.has(product_shapes::kColumns);
    compare(product, {every, every, every}, Placement::kBeforeGuard, two_free ? Codes::kInTurn : Codes::kEach);
  }
}

// One, two and four columns or rows, of one to 24 of the other, over sums long enough for several blocks of terms; and
// short sums of few elements in long lines.
TEST_P(Shapes, Thin) {
  const Product& product = GetParam();
  const std::vector<int> rows = all_or_few(up_to(24), {1, 2, 3, 4, 6, 8, 12, 13, 24});
  const std::vector<int> thin = {1, 2, 4}, some = {1, 3, 8, 24};
  const std::vector<int> longer = all_or_few({41, 48, 63, 64, 65, 96, 127, 128, 129, 257}, {41, 64, 65, 129, 257});
  const std::vector<int> inner = {1, 9, 40};
  compare(product, {rows, thin, longer, inner}, Placement::kBeforeGuard);
  compare(product, {thin, rows, longer, inner}, Placement::kBeforeGuard);
  compare(product, {longer, thin, some, inner}, Placement::kBeforeGuard);
  compare(product, {thin, longer, some, inner}, Placement::kBeforeGuard);
}

INSTANTIATE_TEST_SUITE_P(Kernels, Shapes, testing::ValuesIn(product_shapes::kernels()), name_of);
INSTANTIATE_TEST_SUITE_P(Operators, Shapes, testing::ValuesIn(product_shapes::operators()), name_of);

// No instruction set treats diagonal factors apart, so a few extents serve.
class DiagonalShapes : public testing::TestWithParam<Product> {};

TEST_P(DiagonalShapes, Few) { compare(GetParam(), {kFew, kFew, kFew}, Placement::kBeforeGuard); }

INSTANTIATE_TEST_SUITE_P(Kernels, DiagonalShapes, testing::ValuesIn(product_shapes::diagonal_kernels()), name_of);

}  // namespace
