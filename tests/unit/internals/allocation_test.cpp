// What is left behind when memory runs out: every allocation of a call fails once, on every instruction set.

#include <alidade/matrix.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <new>
#include <vector>

#include "support/bits.h"
#include "support/kernel_sets.h"
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

void* allocate_or_null(std::size_t size) noexcept {
  if (allowed == 0) {
    return nullptr;
  }
  return allocate(size);
}

}  // namespace

void* operator new(std::size_t size) { return allocate(size); }
void* operator new[](std::size_t size) { return allocate(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return allocate_or_null(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return allocate_or_null(size); }
void operator delete(void* p) noexcept { std::free(p); }
void operator delete[](void* p) noexcept { std::free(p); }
void operator delete(void* p, std::size_t) noexcept { std::free(p); }
void operator delete[](void* p, std::size_t) noexcept { std::free(p); }
void operator delete(void* p, const std::nothrow_t&) noexcept { std::free(p); }
void operator delete[](void* p, const std::nothrow_t&) noexcept { std::free(p); }

namespace {

// Runs the call with `limit` allocations allowed; true when it threw.
template <class Call>
bool throws_with(long limit, Call call) {
  allowed = limit;
  bool threw = false;
  try {
    call();
  } catch (const std::bad_alloc&) {
    threw = true;
  }
  allowed = -1;
  return threw;
}

// Allows 0, 1, 2, ... allocations until the call gets through; the number of times it threw.
template <class Call, class Check>
long fail_every_allocation(Call call, Check check) {
  constexpr long kEnough = 100;
  for (long limit = 0; limit < kEnough; ++limit) {
    if (!throws_with(limit, call)) {
      return limit;
    }
    check();
  }
  return kEnough;
}

class FailingAllocations : public testing::Test {
protected:
  template <class Test>
  void on_every_set(Test test) {
    for (kernel_sets::InstructionSet set : kernel_sets::all()) {
      alidade::kernels::select(set);
      SCOPED_TRACE(kernel_sets::name(set));
      test();
    }
  }

private:
  kernel_sets::Restore restore_;
};

// Matrices that take each way through the inversion: the kernels to the end, up to a failing pivot, and to where an
// infinity, a NaN or a -0.0 makes the plain loops go on.
std::vector<std::vector<double>> matrices(int n) {
  nasty::Random random(static_cast<std::uint64_t>(n));
  const std::vector<double> good =
      normal_matrices::definite(normal_matrices::Structure::kDense, n, random, normal_matrices::Zeros::kPositive);
  std::vector<std::vector<double>> all(7, good);
  const int last = n - 1;
  all[1][normal_matrices::at(last, last)] = -1.0;
  all[2][normal_matrices::at(last, 0)] = -0.0;
  all[3][normal_matrices::at(last, last)] = std::numeric_limits<double>::infinity();
  all[4][normal_matrices::at(last, last / 2)] = std::numeric_limits<double>::quiet_NaN();
  all[5][normal_matrices::at(0, 0)] = 0x1p-1060;  // overflow in the factor
  all[5][normal_matrices::at(last, 0)] = 0x1p600;
  for (double& v : all[6]) {  // underflow, and overflow in the inverse
    v *= 0x1p-1030;
  }
  return all;
}

TEST_F(FailingAllocations, RareInversionLeavesMatrixOrderAndProgress) {
  on_every_set([] {
    const int few = alidade::kernels::kThereAreKernels ? 24 : 64;  // those that the stack serves
    for (const int n : {1, 8, 24, 25, 32, 33, 40, 64, 65, 97, 200}) {
      for (const std::vector<double>& before : matrices(n)) {
        std::vector<double> matrix = before;
        TSMatrix N(matrix.data(), n);
        int progress = 7;
        const long failed = fail_every_allocation(
            [&] { RareInversion(N, &progress, 80); },
            [&] {
              EXPECT_EQ(N.GetDim1(), n);
              EXPECT_EQ(progress, 7);
              EXPECT_TRUE(bits::equal_arrays(matrix.data(), before.data(), before.size())) << "order " << n;
            });
        EXPECT_EQ(failed, n <= few ? 0 : 2) << "allocations at order " << n;
      }
    }
  });
}

TEST_F(FailingAllocations, PseudoInversionLeavesMatrixAndOrder) {
  on_every_set([] {
    for (const int d : {3, 40, 70}) {
      const int n = 2 * d + 6;
      nasty::Random random(1);
      const std::vector<double> before = normal_matrices::gram(n, random);
      std::vector<double> matrix = before, expected = before;
      TSMatrix N(matrix.data(), n), E(expected.data(), n);
      ASSERT_EQ(PseudoInversion(E, d), 0);
      int successes = 0;
      // The products inside do without the memory they are refused, so that not every refusal ends the call.
      for (long limit = 0; limit < 40; ++limit) {
        int result = -1;
        if (throws_with(limit, [&] { result = PseudoInversion(N, d); })) {
          EXPECT_TRUE(bits::equal_arrays(matrix.data(), before.data(), before.size())) << "limit " << limit;
        } else {
          EXPECT_GE(limit, 6);
          EXPECT_EQ(result, 0);
          EXPECT_TRUE(bits::equal_arrays(matrix.data(), expected.data(), expected.size())) << "limit " << limit;
          matrix = before;
          ++successes;
        }
        EXPECT_EQ(N.GetDim1(), n);
      }
      EXPECT_GT(successes, 0);
    }
  });
}

TEST_F(FailingAllocations, OwningConstructorsThrow) {
  TSMatrix triangle(5, 0);
  TMatrix block(3, 4, 0);
  const auto nothing = [] {};
  EXPECT_EQ(fail_every_allocation([] { TSMatrix(5, 0); }, nothing), 1);
  EXPECT_EQ(fail_every_allocation([&] { TSMatrix copy(triangle); }, nothing), 1);
  EXPECT_EQ(fail_every_allocation([] { TMatrix(3, 4, 0); }, nothing), 1);
  EXPECT_EQ(fail_every_allocation([&] { TMatrix copy(block); }, nothing), 1);
  double room[12];
  EXPECT_EQ(fail_every_allocation([&] { TSMatrix view(room, 4); }, nothing), 0);
  EXPECT_EQ(fail_every_allocation([&] { TMatrix view(room, 3, 4); }, nothing), 0);
}

// Products and operators do with less, to the same bits.
TEST_F(FailingAllocations, ProductsNeverThrow) {
  on_every_set([] {
    constexpr int kRows = 150;
    constexpr int kColumns = 130;
    nasty::Random random(2);
    std::vector<double> a(kRows * kColumns), s(normal_matrices::count(kRows)), square(kRows * kRows);
    for (std::vector<double>* v : {&a, &s, &square}) {
      for (double& x : *v) {
        x = random.unit();
      }
    }
    TMatrix R(a.data(), kRows, kColumns), Q(square.data(), kRows, kRows);
    TSMatrix S(s.data(), kRows);
    const auto compare = [&](auto call, std::size_t size) {
      std::vector<double> expected(size, 0.5);
      call(expected.data());
      for (const long limit : {0, 1, 2}) {
        std::vector<double> actual(size, 0.5);
        EXPECT_FALSE(throws_with(limit, [&] { call(actual.data()); }));
        EXPECT_TRUE(bits::equal_arrays(actual.data(), expected.data(), size));
      }
    };
    const std::size_t triangle = normal_matrices::count(kColumns);
    compare(
        [&](double* t) {
          TSMatrix T(t, kColumns);
          SMATRopRt_S_R(T, '+', R, S);
        },
        triangle);
    compare(
        [&](double* t) {
          TSMatrix T(t, kColumns);
          SMATRopRt_R(T, '+', R);
        },
        triangle);
    compare(
        [&](double* t) {
          TMatrix T(t, kRows, kColumns);
          MATRopS_R(T, '+', S, R);
        },
        a.size());
    compare(
        [&](double* t) {
          TMatrix T(t, kRows, kColumns);
          MATRopR1_R2(T, '+', Q, R);
        },
        a.size());
    compare(
        [&](double* t) {
          TSMatrix T(t, kRows);
          SMATRopABti(T, '-', R, R);
        },
        s.size());
    compare(
        [&](double* t) {
          TMatrix T(t, kColumns, kColumns);
          MATRopR1t_R(T, '=', R, R);
        },
        kColumns * kColumns);
  });
}

}  // namespace
