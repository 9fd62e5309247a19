// What the inversions leave behind when memory runs out: every allocation of a call fails once.

#include <alidade/matrix.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdlib>
#include <new>
#include <vector>

#include "support/bits.h"
#include "support/nasty.h"
#include "support/normal_matrices.h"

namespace {

// Allocations still allowed; negative: no limit.
long allowed = -1;

void* allocate(std::size_t size) {
  if (allowed == 0) {
    throw std::bad_alloc();
  }
  if (allowed > 0) {
    --allowed;
  }
  void* p = std::malloc(size > 0 ? size : 1);
  if (p == nullptr) {
    throw std::bad_alloc();
  }
  return p;
}

}  // namespace

void* operator new(std::size_t size) { return allocate(size); }
void* operator new[](std::size_t size) { return allocate(size); }
void operator delete(void* p) noexcept { std::free(p); }
void operator delete[](void* p) noexcept { std::free(p); }
void operator delete(void* p, std::size_t) noexcept { std::free(p); }
void operator delete[](void* p, std::size_t) noexcept { std::free(p); }

namespace {

// Runs the call with 0, 1, 2, ... allocations allowed until it gets through; true when it threw at least once.
template <class Call, class Check>
bool fail_every_allocation(Call call, Check check) {
  for (long limit = 0; limit < 1000; ++limit) {
    bool threw = false;
    allowed = limit;
    try {
      call();
    } catch (const std::bad_alloc&) {
      threw = true;
    }
    allowed = -1;
    if (!threw) {
      return limit > 0;
    }
    check();
  }
  return false;
}

TEST(PseudoInversion, RestoresTheOrderAndLeavesTheElementsWhenMemoryRunsOut) {
  constexpr int kOrder = 12;
  nasty::Random random(1);
  const std::vector<double> before = normal_matrices::gram(kOrder, random);
  std::vector<double> matrix = before;
  TSMatrix N(matrix.data(), kOrder);
  const bool threw =
      fail_every_allocation([&] { EXPECT_EQ(PseudoInversion(N, 3), 0); },
                            [&] {
                              EXPECT_EQ(N.GetDim1(), kOrder);
                              EXPECT_TRUE(bits::equal_arrays(matrix.data(), before.data(), before.size()));
                            });
  EXPECT_TRUE(threw);
  EXPECT_EQ(N.GetDim1(), kOrder);
}

}  // namespace
