// How much of the stack a call takes: each runs in a thread of 32 KB, or of as little as the system allows, and what it
// has written to is counted.

#if defined(__linux__)
#include <alidade/matrix.h>
#include <gtest/gtest.h>
#include <pthread.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <limits>
#include <vector>

#include "reproducibility/fingerprint.h"
#include "support/kernel_sets.h"
#include "support/nasty.h"
#include "support/normal_matrices.h"

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__) || !defined(__OPTIMIZE__)
constexpr bool kFramesAreLarger = true;  // than the library's own
#else
constexpr bool kFramesAreLarger = false;
#endif

namespace {

constexpr std::size_t kPage = 4096;
constexpr std::size_t kMost = 16 * 1024;
constexpr unsigned char kPaint = 0xa5;

void* run(void* call) {
  (*static_cast<const std::function<void()>*>(call))();
  return nullptr;
}

// A small stack above a page that nothing may touch.
class SmallStack {
public:
  SmallStack()
      : size_(static_cast<std::size_t>(std::max(32L * 1024, sysconf(_SC_THREAD_STACK_MIN)))),
        memory_(static_cast<unsigned char*>(
            mmap(nullptr, kPage + size_, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0))) {
    mprotect(memory_, kPage, PROT_NONE);
  }
  ~SmallStack() { munmap(memory_, kPage + size_); }
  SmallStack(const SmallStack&) = delete;
  SmallStack& operator=(const SmallStack&) = delete;

  // Bytes from the lowest one written to.
  std::size_t used_by(const std::function<void()>& call) {
    unsigned char* stack = memory_ + kPage;
    std::memset(stack, kPaint, size_);
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    EXPECT_EQ(pthread_attr_setstack(&attributes, stack, size_), 0);
    pthread_t thread{};
    EXPECT_EQ(pthread_create(&thread, &attributes, run, const_cast<std::function<void()>*>(&call)), 0);
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
    std::size_t untouched = 0;
    while (untouched < size_ && stack[untouched] == kPaint) {
      ++untouched;
    }
    return size_ - untouched;
  }

private:
  std::size_t size_;
  unsigned char* memory_;
};

class Stack : public testing::Test {
protected:
  void SetUp() override {
    if (kFramesAreLarger) {
      GTEST_SKIP() << "built without optimisation or with a sanitizer";
    }
  }

  // On every set; the thread's own share is taken off.
  void expect_little(const std::function<void()>& call, const char* what, int n) {
    for (kernel_sets::InstructionSet set : kernel_sets::all()) {
      alidade::kernels::select(set);
      call();  // so that the loader has bound what it calls
      const std::size_t own = stack_.used_by([] {});
      EXPECT_LE(stack_.used_by(call), own + kMost) << what << ", order " << n << " on " << kernel_sets::name(set);
    }
  }

private:
  SmallStack stack_;
  kernel_sets::Restore restore_;
};

// The kernels to the end, to a failing pivot, and to where the plain loops go on in each phase.
TEST_F(Stack, RareInversion) {
  for (const int n : {1, 7, 8, 9, 16, 24, 28, 31, 32, 33, 48, 64, 65, 97, 130, 200}) {
    nasty::Random random(static_cast<std::uint64_t>(n));
    const std::vector<double> good =
        normal_matrices::definite(normal_matrices::Structure::kDense, n, random, normal_matrices::Zeros::kPositive);
    const auto invert = [&](const char* what, std::size_t changed, double value, double scale) {
      std::vector<double> matrix = good;
      for (double& v : matrix) {
        v *= scale;
      }
      matrix[changed] = value;
      std::vector<double> work;
      int progress = 0;
      expect_little(
          [&] {
            work = matrix;
            TSMatrix N(work.data(), n);
            RareInversion(N, &progress, 99);
          },
          what, n);
    };
    const std::size_t last = normal_matrices::at(n - 1, n - 1);
    invert("ordinary", 0, good[0], 1.0);
    invert("failing pivot", last, -1.0, 1.0);
    invert("infinity", last, std::numeric_limits<double>::infinity(), 1.0);
    invert("-0.0", normal_matrices::at(n - 1, 0), n > 1 ? -0.0 : 1.0, 1.0);
    invert("overflow in the factor", 0, 0x1p-1060, 1.0);
    invert("overflow in the inverse", last, 0x1p-1030, 0x1p-1030);
  }
}

TEST_F(Stack, PseudoInversion) {
  for (const int n : {6, 33, 70, 150}) {
    nasty::Random random(static_cast<std::uint64_t>(n));
    const std::vector<double> good = normal_matrices::gram(n, random);
    std::vector<double> work;
    for (const int d : {1, 3, n / 2}) {
      expect_little(
          [&] {
            work = good;
            TSMatrix N(work.data(), n);
            PseudoInversion(N, d);
          },
          "PseudoInversion", n);
    }
  }
}

// Shapes around those whose work space is taken from the stack, and beyond.
TEST_F(Stack, ProductsAndOperators) {
  for (const int n : {3, 12, 24, 30, 48, 64, 130}) {
    nasty::Random random(static_cast<std::uint64_t>(n));
    const auto size = static_cast<std::size_t>(n) * static_cast<std::size_t>(n);
    std::vector<double> a(size), b(size), s(size), t(size);
    for (std::vector<double>* v : {&a, &b, &s}) {
      for (double& x : *v) {
        x = random.unit();
      }
    }
    for (const int k : {1, 2, n / 2 + 1, n}) {  // columns of R
      TMatrix A(a.data(), n, n), B(b.data(), n, n), R(a.data(), n, k), R2(b.data(), n, k), T(t.data(), n, n);
      TMatrix Tk(t.data(), n, k), Tkk(t.data(), k, k);
      TSMatrix S(s.data(), n), U(t.data(), n), Uk(t.data(), k);
      expect_little([&] { MatrixProduct(a.data(), b.data(), t.data(), n, n, k); }, "MatrixProduct", n);
      expect_little([&] { MAtB(a.data(), b.data(), t.data(), n, n, k); }, "MAtB", n);
      expect_little([&] { SMatrProductAQAt(a.data(), s.data(), t.data(), n, k, '='); }, "SMatrProductAQAt", n);
      expect_little([&] { SMATRopRt_S_R(Uk, '+', R, S); }, "SMATRopRt_S_R", n);
      expect_little([&] { SMATRopRt_R(Uk, '+', R); }, "SMATRopRt_R", n);
      expect_little([&] { SMATRopABti(U, '-', R, R2); }, "SMATRopABti", n);
      expect_little([&] { SMATRopS1_S2(U, '+', S, S); }, "SMATRopS1_S2", n);
      expect_little([&] { SMATRopR_S_Rt(U, '+', A, S); }, "SMATRopR_S_Rt", n);
      expect_little([&] { MATRopS_R(Tk, '+', S, R); }, "MATRopS_R", n);
      expect_little([&] { MATRopR_S(T, '+', A, S); }, "MATRopR_S", n);
      expect_little([&] { MATRopR1t_R(Tkk, '+', R, R2); }, "MATRopR1t_R", n);
      expect_little([&] { MATRopR1_R2(Tk, '+', A, R); }, "MATRopR1_R2", n);
      expect_little([&] { MATRopR1_R2t(T, '+', R, R2); }, "MATRopR1_R2t", n);
      expect_little([&] { MATRopR1_S_R2t(T, '+', A, S, B); }, "MATRopR1_S_R2t", n);
      expect_little([&] { MATRopR1_R2_R3t(T, '+', A, R, R2); }, "MATRopR1_R2_R3t", n);
    }
  }
}

TEST_F(Stack, OtherMatrixFunctions) {
  for (const int n : {3, 24, 64, 130}) {
    nasty::Random random(static_cast<std::uint64_t>(n));
    const auto size = static_cast<std::size_t>(n) * static_cast<std::size_t>(n);
    std::vector<double> a(size), b(size), t(size);
    for (std::vector<double>* v : {&a, &b}) {
      for (double& x : *v) {
        x = random.unit();
      }
    }
    TMatrix A(a.data(), n, n), T(t.data(), n, n);
    TSMatrix S(b.data(), n), U(t.data(), n);
    for (const int modes : {0, 1, 2, 10, 11, 12, 20, 21, 22}) {
      expect_little([&] { SMatrProduct(a.data(), b.data(), t.data(), n, n, modes / 10, modes % 10, n); },
                    "SMatrProduct", n);
    }
    expect_little([&] { MRAtQL(t.data(), '=', a.data(), b.data(), a.data(), n, n); }, "MRAtQL", n);
    expect_little([&] { S.A_This_At(a.data(), U); }, "A_This_At", n);
    expect_little([&] { S.MatrProduct(A, '=', T); }, "MatrProduct", n);
    expect_little([&] { S.BlockOper(0, 0, '+', A); }, "BlockOper", n);
    expect_little([&] { T.SubMatrix(0, 0, '=', A); }, "SubMatrix", n);
  }
}

// Calls of every family over fixed numbers.
TEST_F(Stack, AllFamilies) {
  expect_little([] { fingerprints(); }, "all families", 0);
}

}  // namespace

#endif
