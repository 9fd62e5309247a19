#include "memory.h"

#include <pthread.h>
#include <sys/mman.h>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <new>

namespace {

// What the library takes from the heap: it calls nothing but new.
std::atomic<std::size_t> allocated{0};

}  // namespace

void* operator new(std::size_t size) {
  allocated += size;
  if (void* p = std::malloc(size)) {
    return p;
  }
  throw std::bad_alloc();
}
void operator delete(void* p) noexcept { std::free(p); }
void operator delete(void* p, std::size_t) noexcept { std::free(p); }

namespace benchmarks {

namespace {

void* run(void* call) {
  (*static_cast<const std::function<void()>*>(call))();
  return nullptr;
}

// Bytes of stack that a thread touches: it runs on one that was filled before.
std::size_t stack_of(std::function<void()> call) {
  constexpr std::size_t kSize = std::size_t{1} << 21;
  constexpr unsigned char kFill = 0xa5;
  void* stack = mmap(nullptr, kSize, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  auto* bytes = static_cast<unsigned char*>(stack);
  std::fill_n(bytes, kSize, kFill);
  pthread_attr_t attributes;
  pthread_attr_init(&attributes);
  pthread_attr_setstack(&attributes, stack, kSize);
  pthread_t thread;
  pthread_create(&thread, &attributes, run, &call);
  pthread_join(thread, nullptr);
  pthread_attr_destroy(&attributes);
  const auto untouched = static_cast<std::size_t>(
      std::find_if(bytes, bytes + kSize, [](unsigned char byte) { return byte != kFill; }) - bytes);
  munmap(stack, kSize);
  return kSize - untouched;
}

}  // namespace

void print_memory(const std::string& work, int size, const std::function<void()>& call) {
  allocated = 0;
  call();
  const std::size_t heap = allocated;
  const std::size_t bare = stack_of([] {});  // the thread's own
  std::printf("memory of %s|%d|heap|%zu|\nmemory of %s|%d|stack|%zu|\n", work.c_str(), size, heap, work.c_str(), size,
              stack_of(call) - bare);
}

}  // namespace benchmarks
