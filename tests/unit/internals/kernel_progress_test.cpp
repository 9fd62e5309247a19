// Every value that the inversion writes to the caller's percentage, in order, on every instruction set. Another thread
// could miss some, so the percentage lies on a page that is read-only: each write raises a signal, is let through as a
// single step of the processor, and is then recorded.

#include <alidade/matrix.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <vector>

#include "reference/inversion.h"
#include "support/kernel_sets.h"
#include "support/nasty.h"
#include "support/normal_matrices.h"

#if defined(__linux__) && defined(__x86_64__) && defined(__GLIBC__)
#include <signal.h>
#include <sys/mman.h>
#include <ucontext.h>
#include <unistd.h>

namespace {

using normal_matrices::Structure;

// There is one at a time, and the signal handlers need to find it.
class RecordedInt {
public:
  RecordedInt() : size_(static_cast<std::size_t>(sysconf(_SC_PAGESIZE))) {
    page_ = static_cast<int*>(mmap(nullptr, size_, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
    current = this;
    install(SIGSEGV, before_write, old_segv_);
    install(SIGTRAP, after_write, old_trap_);
  }
  ~RecordedInt() {
    sigaction(SIGSEGV, &old_segv_, nullptr);
    sigaction(SIGTRAP, &old_trap_, nullptr);
    munmap(page_, size_);
    current = nullptr;
  }
  RecordedInt(const RecordedInt&) = delete;
  RecordedInt& operator=(const RecordedInt&) = delete;

  // Starts a new recording; to be written to until values() is called.
  int* start(int value) {
    mprotect(page_, size_, PROT_READ | PROT_WRITE);
    *page_ = value;
    count_ = 0;
    mprotect(page_, size_, PROT_READ);
    return page_;
  }
  std::vector<int> values() const { return std::vector<int>(recorded_, recorded_ + count_); }

private:
  static constexpr std::size_t kMost = 1000;
  static constexpr greg_t kTrapFlag = 0x100;
  static RecordedInt* current;

  static void install(int signal, void (*handler)(int, siginfo_t*, void*), struct sigaction& old) {
    struct sigaction action = {};
    action.sa_sigaction = handler;
    action.sa_flags = SA_SIGINFO;
    sigaction(signal, &action, &old);
  }
  static void before_write(int, siginfo_t* info, void* context) {
    if (info->si_addr != current->page_) {
      sigaction(SIGSEGV, &current->old_segv_, nullptr);  // not ours: happens again, as a crash
      return;
    }
    mprotect(current->page_, current->size_, PROT_READ | PROT_WRITE);
    static_cast<ucontext_t*>(context)->uc_mcontext.gregs[REG_EFL] |= kTrapFlag;
  }
  static void after_write(int, siginfo_t*, void* context) {
    if (current->count_ < kMost) {
      current->recorded_[current->count_++] = *current->page_;
    }
    mprotect(current->page_, current->size_, PROT_READ);
    static_cast<ucontext_t*>(context)->uc_mcontext.gregs[REG_EFL] &= ~kTrapFlag;
  }

  std::size_t size_;
  int* page_;
  int recorded_[kMost] = {};
  std::size_t count_ = 0;
  struct sigaction old_segv_ = {};
  struct sigaction old_trap_ = {};
};

RecordedInt* RecordedInt::current = nullptr;

class KernelProgress : public testing::Test {
protected:
  void compare(const std::vector<double>& matrix, int n, int start, int span) {
    std::vector<double> expected = matrix;
    std::vector<int> sequence;
    int progress = start;
    reference::rare_inversion(expected.data(), n, &progress, span, &sequence);
    for (kernel_sets::InstructionSet set : kernel_sets::all()) {
      alidade::kernels::select(set);
      std::vector<double> actual = matrix;
      TSMatrix N(actual.data(), n);
      RareInversion(N, recorded_.start(start), span);
      EXPECT_EQ(recorded_.values(), sequence)
          << kernel_sets::name(set) << ", order " << n << ", start " << start << ", span " << span;
    }
  }

private:
  RecordedInt recorded_;
  kernel_sets::Restore restore_;
};

TEST_F(KernelProgress, EveryValueInOrder) {
  for (int n : {1, 7, 8, 9, 31, 32, 33, 40, 64, 65, 96, 100, 129, 200, 257}) {
    nasty::Random random(static_cast<std::uint64_t>(n));
    for (Structure structure : normal_matrices::kAllStructures) {
      std::vector<double> matrix = normal_matrices::definite(structure, n, random, normal_matrices::Zeros::kPositive);
      compare(matrix, n, 0, 99);
      compare(matrix, n, 40, -77);
      matrix[normal_matrices::at(n - 1, 0)] = -0.0;  // all by the plain loops, for n > 1
      compare(matrix, n, 5, 300);
    }
  }
}

TEST_F(KernelProgress, UpToEveryFailingPivot) {
  for (int n : {40, 72, 101}) {
    nasty::Random random(static_cast<std::uint64_t>(n));
    const std::vector<double> good =
        normal_matrices::definite(Structure::kDense, n, random, normal_matrices::Zeros::kPositive);
    for (int k = 0; k < n; ++k) {
      std::vector<double> bad = good;
      bad[normal_matrices::at(k, k)] = -1.0;
      compare(bad, n, 0, 99);
    }
  }
}

// Work that changes over to the plain loops in the middle: an infinity in the factor, an inverse that may overflow, a
// product that underflows to -0.0.
TEST_F(KernelProgress, WhereThePlainLoopsTakeOver) {
  for (int n : {40, 72, 101, 200}) {
    for (int k = 1; k < n - 1; k += 3) {
      std::vector<double> matrix(normal_matrices::count(n));
      for (int i = 0; i < n; ++i) {
        matrix[normal_matrices::at(i, i)] = 1.0;
      }
      std::vector<double> underflows = matrix;
      underflows[normal_matrices::at(k, k)] = 0x1p+1000;
      underflows[normal_matrices::at(k, 0)] = 0x1p-80;
      compare(underflows, n, 0, 99);
      std::vector<double> overflows = matrix;
      overflows[normal_matrices::at(k, k)] = 0x1p-1000;
      overflows[normal_matrices::at(n - 1, k)] = 0x1p+1000;
      compare(overflows, n, 0, 99);
      std::vector<double> large = matrix;
      large[normal_matrices::at(k, k)] = 0x1p-1060;
      large[normal_matrices::at(k + 1, k + 1)] = 0x1p-1000;
      large[normal_matrices::at(k + 1, k)] = 0x1p-1031;
      compare(large, n, 0, 99);
    }
  }
}

}  // namespace

#else

TEST(KernelProgress, EveryValueInOrder) { GTEST_SKIP() << "records writes on x86-64 Linux only"; }

#endif
