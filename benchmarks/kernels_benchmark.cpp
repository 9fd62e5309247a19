// Times the kernels on every instruction set, the plain loops and the peers, interleaved, and prints one line a figure:
// work, size, variant, microseconds, Gflop/s. scripts/bench makes docs/performance.md of it.
//
// Processor time of this thread, so that other programs on the machine count less; each figure is the median over
// rounds in which all variants of a work take turns, starting with another one each time.

#include <alidade/matrix.h>
#include <time.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <functional>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "matrix/kernels/dispatch.h"
#include "matrix/operators.h"

extern "C" {
void dgemm_(const char*, const char*, const int*, const int*, const int*, const double*, const double*, const int*,
            const double*, const int*, const double*, double*, const int*);
void dpotrf_(const char*, const int*, double*, const int*, int*);
void dpotri_(const char*, const int*, double*, const int*, int*);
void dpptrf_(const char*, const int*, double*, int*);
void dpptri_(const char*, const int*, double*, int*);
char* openblas_get_corename();
char* openblas_get_config();
}

namespace peers {
#define EIGEN_PEER(name)                                                                     \
  namespace name {                                                                           \
  void product(const double* a, const double* b, double* c, int n, int m, int k);            \
  void transposed_product(const double* a, const double* b, double* c, int n, int m, int k); \
  void invert(double* a, int n);                                                             \
  }
EIGEN_PEER(eigen_default)
EIGEN_PEER(eigen_native)
}  // namespace peers

namespace {

using alidade::kernels::InstructionSet;

double now() {
  timespec t;
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
  return static_cast<double>(t.tv_sec) + 1e-9 * static_cast<double>(t.tv_nsec);
}

// ---- The limit: multiplications and additions in registers alone, none waiting for another.

#if defined(__x86_64__)
typedef double V2 __attribute__((vector_size(16)));
typedef double V4 __attribute__((vector_size(32)));
typedef double V8 __attribute__((vector_size(64)));
#define ALIDADE_LIMIT(name, target_name, Vector, count, product)                     \
  __attribute__((target(target_name), noinline)) double name(long n) {               \
    Vector sums[count];                                                              \
    const Vector x = Vector{} + 1.1;                                                 \
    const Vector y = Vector{} + 0.9;                                                 \
    _Pragma("GCC unroll 16") for (int i = 0; i < (count); ++i) { sums[i] = x; }      \
    for (long k = 0; k < n; ++k) {                                                   \
      _Pragma("GCC unroll 16") for (int i = 0; i < (count); ++i) {                   \
        Vector p = y;                                                                \
        product;                                                                     \
      }                                                                              \
    }                                                                                \
    Vector total = x;                                                                \
    _Pragma("GCC unroll 16") for (int i = 0; i < (count); ++i) { total += sums[i]; } \
    return total[0];                                                                 \
  }
ALIDADE_LIMIT(limit_sse2, "sse2", V2, 10,
              __asm__ volatile("mulpd %1, %0"
                               : "+x"(p)
                               : "x"(x));
              __asm__ volatile("addpd %1, %0"
                               : "+x"(sums[i])
                               : "x"(p)))
ALIDADE_LIMIT(limit_avx2, "avx2", V4, 10,
              __asm__ volatile("vmulpd %1, %2, %0"
                               : "=x"(p)
                               : "x"(x), "x"(y));
              __asm__ volatile("vaddpd %1, %0, %0"
                               : "+x"(sums[i])
                               : "x"(p)))
ALIDADE_LIMIT(limit_avx512, "avx512f", V8, 16,
              __asm__ volatile("vmulpd %1, %2, %0"
                               : "=v"(p)
                               : "v"(x), "v"(y));
              __asm__ volatile("vaddpd %1, %0, %0"
                               : "+v"(sums[i])
                               : "v"(p)))

double measure_limit(double (*run)(long), int sums, std::size_t width) {
  constexpr long kRounds = 500000;
  double best = 0.0;
  for (int repeat = 0; repeat < 15; ++repeat) {
    const double start = now();
    volatile double sink = run(kRounds);
    static_cast<void>(sink);
    best = std::max(best, 2.0 * sums * static_cast<double>(width) * kRounds / (now() - start) * 1e-9);
  }
  return best;
}

double limit_of(InstructionSet set) {
  switch (set) {
    case InstructionSet::kSse2:
      return measure_limit(limit_sse2, 10, 2);
    case InstructionSet::kAvx2:
      return measure_limit(limit_avx2, 10, 4);
    case InstructionSet::kAvx512:
      return measure_limit(limit_avx512, 16, 8);
    default:
      return 0.0;
  }
}
#else
double limit_of(InstructionSet) { return 0.0; }
#endif

// ---- The variants of one work, in turns.

struct Variant {
  std::string name;
  InstructionSet set;
  std::function<void()> run;
};

void measure(const std::string& work, const std::string& size, double flops, const std::vector<Variant>& variants) {
  const std::size_t count = variants.size();
  std::vector<long> repeats(count);
  for (std::size_t i = 0; i < count; ++i) {
    alidade::kernels::select(variants[i].set);
    variants[i].run();
    const double start = now();
    variants[i].run();
    repeats[i] = std::max(1L, static_cast<long>(2e-3 / std::max(now() - start, 1e-8)));
  }
  const int rounds = flops > 1e9 ? 3 : 7;
  std::vector<std::vector<double>> times(count);
  for (int round = 0; round < rounds; ++round) {
    for (std::size_t turn = 0; turn < count; ++turn) {
      const std::size_t i = (turn + static_cast<std::size_t>(round)) % count;
      alidade::kernels::select(variants[i].set);
      const double start = now();
      for (long k = 0; k < repeats[i]; ++k) {
        variants[i].run();
      }
      times[i].push_back((now() - start) / static_cast<double>(repeats[i]));
    }
  }
  for (std::size_t i = 0; i < count; ++i) {
    std::sort(times[i].begin(), times[i].end());
    const double median = times[i][times[i].size() / 2];
    std::printf("%s,%s,%s,%.4f,%.3f\n", work.c_str(), size.c_str(), variants[i].name.c_str(), median * 1e6,
                flops / median * 1e-9);
  }
  std::fflush(stdout);
}

const std::pair<InstructionSet, const char*> kSets[] = {{InstructionSet::kPlain, "plain loops"},
                                                        {InstructionSet::kSse2, "SSE2"},
                                                        {InstructionSet::kAvx2, "AVX2"},
                                                        {InstructionSet::kAvx512, "AVX-512"},
                                                        {InstructionSet::kNeon, "NEON"}};

// The library on every set of this machine, then the peers.
std::vector<Variant> with_sets(const std::function<void()>& run, const std::vector<Variant>& others, bool plain) {
  std::vector<Variant> variants;
  for (const auto& [set, name] : kSets) {
    if (alidade::kernels::available(set) && (plain || set != InstructionSet::kPlain)) {
      variants.push_back({name, set, run});
    }
  }
  variants.insert(variants.end(), others.begin(), others.end());
  return variants;
}
Variant peer(const char* name, std::function<void()> run) { return {name, InstructionSet::kPlain, std::move(run)}; }

std::vector<double> random_values(std::size_t count) {
  std::mt19937_64 engine(7);
  std::vector<double> values(count);
  for (double& v : values) {
    v = static_cast<double>(engine() >> 11) * 0x1p-52 - 1.0;
  }
  return values;
}

void dgemm(char ta, const double* a, int lda, const double* b, double* c, int n, int k, int m) {
  const double one = 1.0, zero = 0.0;
  dgemm_(&ta, "N", &n, &k, &m, &one, a, &lda, b, &m, &zero, c, &n);
}

void measure_products(const double* a, const double* b, double* c) {
  for (int n : {3, 6, 12, 24, 50, 100, 300, 1000}) {
    const double flops = 2.0 * n * n * n;
    measure("MatrixProduct", std::to_string(n), flops,
            with_sets([=] { MatrixProduct(a, b, c, n, n, n); },
                      {peer("Eigen", [=] { peers::eigen_default::product(a, b, c, n, n, n); }),
                       peer("Eigen native", [=] { peers::eigen_native::product(a, b, c, n, n, n); }),
                       peer("OpenBLAS", [=] { dgemm('N', a, n, b, c, n, n, n); })},
                      true));
    measure("MAtB", std::to_string(n), flops,
            with_sets([=] { MAtB(a, b, c, n, n, n); },
                      {peer("Eigen", [=] { peers::eigen_default::transposed_product(a, b, c, n, n, n); }),
                       peer("Eigen native", [=] { peers::eigen_native::transposed_product(a, b, c, n, n, n); }),
                       peer("OpenBLAS", [=] { dgemm('T', a, n, b, c, n, n, n); })},
                      true));
  }
  for (int k : {1, 2, 4}) {
    for (int n : {3, 10, 24, 100, 300}) {
      const std::string size = std::to_string(n) + "x" + std::to_string(n) + "x" + std::to_string(k);
      measure("MatrixProduct", size, 2.0 * n * n * k, with_sets([=] { MatrixProduct(a, b, c, n, n, k); }, {}, true));
      measure("MAtB", size, 2.0 * n * n * k, with_sets([=] { MAtB(a, b, c, n, n, k); }, {}, true));
    }
  }
}

void measure_operators(const double* a, const double* b, const double* s, double* c) {
  using namespace alidade;
  for (const auto& [rows, columns] : {std::pair<int, int>{3, 3}, {30, 10}, {100, 30}, {300, 100}, {1000, 300}}) {
    const int n = rows, m = columns;
    const std::string size = std::to_string(n) + "x" + std::to_string(m);
    if (n <= 300) {
      measure("SMatrProductAQAt", size, 2.0 * n * m * m + 1.0 * n * (n + 1) * m,
              with_sets([=] { SMatrProductAQAt(a, s, c, n, m, '='); }, {}, true));
      measure("SMATRopRt_S_R", size, 2.0 * n * n * m + 1.0 * m * (m + 1) * n,
              with_sets([=] { op_transposed_congruence(c, m, '=', a, n, m, s); }, {}, true));
    }
    measure("SMATRopRt_R", size, 1.0 * m * (m + 1) * n, with_sets([=] { op_gram(c, m, '=', a, n, m); }, {}, true));
  }
  const int n = 300;
  const double f = 2.0 * n * n * n;
  const std::string size = std::to_string(n);
  const auto run = [&](const char* work, double flops, const std::function<void()>& function) {
    measure(work, size, flops, with_sets(function, {}, true));
  };
  run("SMATRopABti", f, [=] { op_symmetrized_product(c, n, '=', a, b, n, n); });
  run("SMATRopS1_S2", f / 2, [=] { op_symmetric_product(c, n, '=', a, s, n); });
  run("MATRopS_R", f, [=] { op_symmetric_dense(c, n, n, '=', s, a, n, n); });
  run("MATRopR_S", f, [=] { op_dense_symmetric(c, n, n, '=', a, n, n, s); });
  run("MATRopR1t_R", f, [=] { op_transposed_dense(c, n, n, '=', a, n, n, b, n, n); });
  run("MATRopR1_R2", f, [=] { op_dense_dense(c, '=', a, n, n, b, n, n); });
  run("MATRopR1_R2t", f, [=] { op_dense_transposed(c, '=', a, n, b, n, n); });
  run("MATRopR1_S_R2t", 2 * f, [=] { op_dense_symmetric_transposed(c, '=', a, n, s, b, n, n); });
  run("MATRopR1_R2_R3t", 2 * f, [=] { op_dense_dense_transposed(c, '=', a, n, b, n, s, n, n); });
}

// ---- Inversion of matrices whose inverses stay normal: values of about 1 against a diagonal that outweighs them.

enum class Shape { kDense, kBanded, kBordered };

bool present(Shape shape, int i, int j, int n) {
  switch (shape) {
    case Shape::kDense:
      return true;
    case Shape::kBanded:
      return i - j <= 20;
    case Shape::kBordered:
      return i / 3 == j / 3 || i >= n - 50;
  }
  return false;
}

std::vector<double> packed_matrix(Shape shape, int n, const std::vector<double>& values) {
  std::vector<double> packed;
  for (int i = 0; i < n; ++i) {
    for (int j = 0; j <= i; ++j) {
      const double v = values[packed.size() % values.size()];
      packed.push_back(i == j                    ? (shape == Shape::kDense    ? 0.6 * n
                                                    : shape == Shape::kBanded ? 8.0
                                                    : i >= n - 50             ? 1.0 * n
                                                                              : 4.0)
                       : present(shape, i, j, n) ? v
                                                 : 0.0);
    }
  }
  return packed;
}

std::vector<double> square_matrix(const std::vector<double>& packed, int n) {
  std::vector<double> square(static_cast<std::size_t>(n) * static_cast<std::size_t>(n));
  std::size_t k = 0;
  for (int i = 0; i < n; ++i) {
    for (int j = 0; j <= i; ++j, ++k) {
      square[static_cast<std::size_t>(i) + static_cast<std::size_t>(j) * static_cast<std::size_t>(n)] = packed[k];
      square[static_cast<std::size_t>(j) + static_cast<std::size_t>(i) * static_cast<std::size_t>(n)] = packed[k];
    }
  }
  return square;
}

void measure_inversion(const char* work, Shape shape, int n, bool peers_too, const std::vector<double>& values) {
  const std::vector<double> packed = packed_matrix(shape, n, values);
  const std::vector<double> square = peers_too ? square_matrix(packed, n) : std::vector<double>();
  std::vector<double> target(packed.size());
  std::vector<double> square_target(square.size());
  std::vector<Variant> others;
  if (peers_too) {
    others.push_back(peer("dpotrf+dpotri", [&] {
      std::copy(square.begin(), square.end(), square_target.begin());
      int info = 0;
      dpotrf_("L", &n, square_target.data(), &n, &info);
      dpotri_("L", &n, square_target.data(), &n, &info);
    }));
    others.push_back(peer("dpptrf+dpptri", [&] {  // the upper triangle by columns is our lower one by rows
      std::copy(packed.begin(), packed.end(), target.begin());
      int info = 0;
      dpptrf_("U", &n, target.data(), &info);
      dpptri_("U", &n, target.data(), &info);
    }));
    if (n <= 1000) {
      others.push_back(peer("Eigen native", [&] {
        std::copy(square.begin(), square.end(), square_target.begin());
        peers::eigen_native::invert(square_target.data(), n);
      }));
    }
  }
  const double cubed = 1.0 * n * n * n;
  std::vector<Variant> variants = with_sets(
      [&] {
        std::copy(packed.begin(), packed.end(), target.begin());
        TSMatrix matrix(target.data(), n);
        if (RareInversion(matrix, nullptr, 0) != 0) {
          std::fputs("a benchmark matrix is not definite\n", stderr);
        }
      },
      others, n <= 300);
  if (!peers_too && n > 1000) {
    variants = {variants.back()};
  }
  measure(work, std::to_string(n), cubed, variants);
}

}  // namespace

int main() {
  std::printf("core,%s,,,\n", openblas_get_corename());
  std::printf("config,%s,,,\n", openblas_get_config());
  for (const auto& [set, name] : kSets) {
    if (set != InstructionSet::kPlain && alidade::kernels::available(set)) {
      std::printf("limit,,%s,,%.2f\n", name, limit_of(set));
    }
  }
  const std::vector<double> a = random_values(1000000), b = random_values(1000000), s = random_values(500500);
  std::vector<double> c(1000000);
  measure_products(a.data(), b.data(), c.data());
  measure_operators(a.data(), b.data(), s.data(), c.data());
  for (int n : {3, 6, 10, 30, 50, 100, 300, 1000, 2000}) {
    measure_inversion("RareInversion", Shape::kDense, n, true, a);
  }
  measure_inversion("RareInversion, band of half-width 20", Shape::kBanded, 2000, true, a);
  measure_inversion("RareInversion, blocks of 3 with a border of 50", Shape::kBordered, 2000, true, a);
  for (int n : {100, 200, 500, 1000, 2000, 5000}) {
    measure_inversion("scaling dense", Shape::kDense, n, false, a);
    measure_inversion("scaling band of 20", Shape::kBanded, n, false, a);
    measure_inversion("scaling border of 50", Shape::kBordered, n, false, a);
  }
  for (const auto& [set, name] : kSets) {
    if (set != InstructionSet::kPlain && alidade::kernels::available(set)) {
      std::printf("limit,,%s,,%.2f\n", name, limit_of(set));
    }
  }
  return 0;
}
