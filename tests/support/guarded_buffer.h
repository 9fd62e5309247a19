#ifndef ALIDADE_TESTS_SUPPORT_GUARDED_BUFFER_H
#define ALIDADE_TESTS_SUPPORT_GUARDED_BUFFER_H

// Memory between two pages that cannot be accessed: one element read or written too far on that side ends the program,
// also where a vector instruction is masked or the element would never be used. Where there are no such pages (no
// POSIX) the buffer is ordinary memory, and what is computed in it can still be compared.

#include <cstddef>
#include <vector>

#if (defined(__unix__) || defined(__APPLE__)) && !defined(__EMSCRIPTEN__)
#define ALIDADE_TESTS_GUARD_PAGES 1
#include <sys/mman.h>
#include <unistd.h>

#include <new>
#else
#define ALIDADE_TESTS_GUARD_PAGES 0
#endif

class GuardedBuffer {
public:
  static constexpr bool kGuarded = ALIDADE_TESTS_GUARD_PAGES != 0;

  explicit GuardedBuffer(std::size_t capacity) { allocate(capacity * sizeof(double)); }
  ~GuardedBuffer() { release(); }
  GuardedBuffer(const GuardedBuffer&) = delete;
  GuardedBuffer& operator=(const GuardedBuffer&) = delete;

  // Room for `count` elements that begin right after a page that cannot be accessed, or end right before one.
  double* beginning() { return first_; }
  double* ending(std::size_t count) { return first_ + size_ - count; }

private:
#if ALIDADE_TESTS_GUARD_PAGES
  void allocate(std::size_t bytes) {
    const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    const std::size_t usable = (bytes + page - 1) / page * page;
    mapped_ = usable + 2 * page;
    base_ = static_cast<char*>(mmap(nullptr, mapped_, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
    if (base_ == MAP_FAILED || mprotect(base_ + page, usable, PROT_READ | PROT_WRITE) != 0) {
      throw std::bad_alloc();
    }
    first_ = reinterpret_cast<double*>(base_ + page);
    size_ = usable / sizeof(double);
  }
  void release() { munmap(base_, mapped_); }

  char* base_ = nullptr;
  std::size_t mapped_ = 0;
#else
  void allocate(std::size_t bytes) {
    size_ = bytes / sizeof(double);
    memory_.resize(size_ + 1);
    first_ = memory_.data();
  }
  void release() {}

  std::vector<double> memory_;
#endif
  double* first_ = nullptr;
  std::size_t size_ = 0;
};

#endif
