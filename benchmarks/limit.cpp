#include "limit.h"

namespace benchmarks {
namespace {

using alidade::kernels::InstructionSet;

// Rounds of one call: some tens of microseconds.
constexpr long kRounds = 4000;

#if defined(__x86_64__)

typedef double V2 __attribute__((vector_size(16)));
typedef double V4 __attribute__((vector_size(32)));
typedef double V8 __attribute__((vector_size(64)));

// `count` sums, more than the latency of an addition times the additions begun in a cycle, each fed with a product of
// its own. Assembly, so that no compiler fuses, hoists or drops anything; all registers are set, since arithmetic on
// what happens to be there, subnormals or NaN, may be slower.
#define ALIDADE_LIMIT(name, target_name, Vector, count, multiply, add)               \
  __attribute__((target(target_name), noinline)) double name() {                     \
    Vector sums[count];                                                              \
    const Vector x = Vector{} + 1.1;                                                 \
    const Vector y = Vector{} + 0.9;                                                 \
    _Pragma("GCC unroll 16") for (int i = 0; i < (count); ++i) { sums[i] = x; }      \
    for (long k = 0; k < kRounds; ++k) {                                             \
      _Pragma("GCC unroll 16") for (int i = 0; i < (count); ++i) {                   \
        Vector p = y;                                                                \
        multiply;                                                                    \
        add;                                                                         \
      }                                                                              \
    }                                                                                \
    Vector total = x;                                                                \
    _Pragma("GCC unroll 16") for (int i = 0; i < (count); ++i) { total += sums[i]; } \
    return total[0];                                                                 \
  }
constexpr int kSums = 10;      // of 16 registers
constexpr int kManySums = 16;  // of 32
ALIDADE_LIMIT(limit_sse2, "sse2", V2, kSums,
              __asm__ volatile("mulpd %1, %0"
                               : "+x"(p)
                               : "x"(x)),
              __asm__ volatile("addpd %1, %0"
                               : "+x"(sums[i])
                               : "x"(p)))
ALIDADE_LIMIT(limit_avx2, "avx2", V4, kSums,
              __asm__ volatile("vmulpd %1, %2, %0"
                               : "=x"(p)
                               : "x"(x), "x"(y)),
              __asm__ volatile("vaddpd %1, %0, %0"
                               : "+x"(sums[i])
                               : "x"(p)))
ALIDADE_LIMIT(limit_avx512, "avx512f", V8, kManySums,
              __asm__ volatile("vmulpd %1, %2, %0"
                               : "=v"(p)
                               : "v"(x), "v"(y)),
              __asm__ volatile("vaddpd %1, %0, %0"
                               : "+v"(sums[i])
                               : "v"(p)))

#elif defined(__aarch64__)

typedef double V2 __attribute__((vector_size(16)));
constexpr int kManySums = 16;
double limit_neon() {
  V2 sums[kManySums];
  const V2 x = V2{} + 1.1;
  const V2 y = V2{} + 0.9;
  _Pragma("GCC unroll 16") for (V2& sum : sums) { sum = x; }
  for (long k = 0; k < kRounds; ++k) {
    _Pragma("GCC unroll 16") for (int i = 0; i < kManySums; ++i) {
      V2 p;
      __asm__ volatile("fmul %0.2d, %1.2d, %2.2d" : "=w"(p) : "w"(x), "w"(y));
      __asm__ volatile("fadd %0.2d, %0.2d, %1.2d" : "+w"(sums[i]) : "w"(p));
    }
  }
  V2 total = x;
  _Pragma("GCC unroll 16") for (int i = 0; i < kManySums; ++i) { total += sums[i]; }
  return total[0];
}

#endif

std::vector<Variant> variant(const std::string& name, double (*loop)(), int sums, int width) {
  return {{"limit " + name, 2.0 * sums * width * kRounds, [loop] {
             const volatile double sink = loop();
             static_cast<void>(sink);
           }}};
}

}  // namespace

std::vector<Variant> limit(InstructionSet set, const std::string& name) {
  switch (set) {
#if defined(__x86_64__)
    case InstructionSet::kSse2:
      return variant(name, limit_sse2, kSums, 2);
    case InstructionSet::kAvx2:
      return variant(name, limit_avx2, kSums, 4);
    case InstructionSet::kAvx512:
      return variant(name, limit_avx512, kManySums, 8);
#elif defined(__aarch64__)
    case InstructionSet::kNeon:
      return variant(name, limit_neon, kManySums, 2);
#endif
    default:
      return {};
  }
}

}  // namespace benchmarks
