// Every product on every small and thin shape: is a set of instructions ever slower than the plain loops?

#include <alidade/matrix.h>

#include <algorithm>
#include <array>
#include <functional>
#include <string>
#include <utility>

#include "sets.h"
#include "views.h"
#include "works.h"

namespace benchmarks {
namespace {

// A product of an (n x m) matrix with an (m x k) one, or what comes nearest to it.
struct Work {
  const char* name;
  std::function<void(int n, int m, int k)> run;
  bool two_sizes;  // k does not count
};

double median_ratio(const std::vector<double>& x, const std::vector<double>& y) {
  std::vector<double> ratios;
  for (std::size_t i = 0; i < x.size(); ++i) {
    ratios.push_back(x[i] / y[i]);
  }
  std::sort(ratios.begin(), ratios.end());
  return ratios[ratios.size() / 2];
}

// Of thousands of figures some are off by chance: a set that seems slower is measured again, and longer.
void measure_shape(const Work& work, int n, int m, int k) {
  constexpr double kSuspicious = 1.04;
  constexpr Effort kAgain = {15, 4e-4};
  const std::vector<Variant> variants = on_every_set(0.0, [&] { work.run(n, m, k); });
  std::vector<std::vector<double>> seconds = take_turns(variants, kQuick);
  for (int again = 0; again < 2; ++again) {
    if (std::any_of(seconds.begin() + 1, seconds.end(),
                    [&](const auto& set) { return median_ratio(set, seconds[0]) > kSuspicious; })) {
      seconds = take_turns(variants, kAgain);
    }
  }
  const std::string size =
      std::to_string(n) + "x" + std::to_string(m) + (work.two_sizes ? "" : "x" + std::to_string(k));
  print(std::string("small ") + work.name, size, variants, seconds);
}

std::vector<std::array<int, 3>> shapes(bool two_sizes) {
  std::vector<std::array<int, 3>> list;
  for (int n = 1; n <= 24; ++n) {
    list.push_back({n, n, n});
    for (int thin : {1, 2, 4}) {
      list.push_back({n, thin, n});
      if (two_sizes) {
        list.push_back({thin, n, n});
      } else {
        list.push_back({n, n, thin});
        list.push_back({thin, n, n});
        list.push_back({n, 100, thin});
      }
    }
  }
  for (int n : {50, 100, 300}) {
    for (int thin : {1, 2, 4}) {
      list.push_back({n, thin, n});
      list.push_back({n, n, thin});
      list.push_back({thin, n, n});
    }
  }
  for (auto& [n, m, k] : list) {
    k = two_sizes ? 0 : k;
  }
  std::sort(list.begin(), list.end());
  list.erase(std::unique(list.begin(), list.end()), list.end());
  return list;
}

}  // namespace

void measure_small_shapes() {
  const std::vector<double> values = random_values(100000);
  const std::vector<double> others(values.rbegin(), values.rend());
  std::vector<double> target(100000);
  const double* a = values.data();
  const double* b = others.data();
  double* c = target.data();
  const Work works[] = {
      {"MatrixProduct", [=](int n, int m, int k) { MatrixProduct(a, b, c, n, m, k); }, false},
      {"MAtB", [=](int n, int m, int k) { MAtB(a, b, c, m, n, k); }, false},
      {"SMatrProduct, a packed", [=](int n, int m, int k) { SMatrProduct(a, b, c, n, m, 1, 0, k); }, false},
      {"SMatrProduct, b packed", [=](int n, int m, int k) { SMatrProduct(a, b, c, n, m, 0, 1, k); }, false},
      {"SMatrProductAQAt", [=](int n, int m, int) { SMatrProductAQAt(a, b, c, n, m, '='); }, true},
      {"MRAtQL", [=](int n, int m, int) { MRAtQL(c, '=', a, b, a, n, m); }, true},
      {"SMATRopRt_S_R",
       [=](int n, int m, int) { packed_op(SMATRopRt_S_R, c, n, '=', dense_view(a, m, n), packed_view(b, m)); }, true},
      {"SMATRopRt_R", [=](int n, int m, int) { packed_op(SMATRopRt_R, c, n, '=', dense_view(a, m, n)); }, true},
      {"SMATRopABti",
       [=](int n, int m, int) { packed_op(SMATRopABti, c, n, '=', dense_view(a, n, m), dense_view(b, n, m)); }, true},
      {"SMATRopS1_S2",
       [=](int n, int, int) { packed_op(SMATRopS1_S2, c, n, '=', packed_view(a, n), packed_view(b, n)); }, true},
      {"MATRopS_R",
       [=](int n, int m, int) { dense_op(MATRopS_R, c, n, m, '=', packed_view(a, n), dense_view(b, n, m)); }, true},
      {"MATRopR_S",
       [=](int n, int m, int) { dense_op(MATRopR_S, c, n, m, '=', dense_view(a, n, m), packed_view(b, m)); }, true},
      {"MATRopR_S, subtracted",
       [=](int n, int m, int) { dense_op(MATRopR_S, c, n, m, '|', dense_view(a, n, m), packed_view(b, m)); }, true},
      {"MATRopR1t_R",
       [=](int n, int m, int k) { dense_op(MATRopR1t_R, c, n, k, '=', dense_view(a, m, n), dense_view(b, m, k)); },
       false},
      {"MATRopR1_R2",
       [=](int n, int m, int k) { dense_op(MATRopR1_R2, c, n, k, '=', dense_view(a, n, m), dense_view(b, m, k)); },
       false},
      {"MATRopR1_R2, subtracted",
       [=](int n, int m, int k) { dense_op(MATRopR1_R2, c, n, k, '|', dense_view(a, n, m), dense_view(b, m, k)); },
       false},
      {"MATRopR1_R2t",
       [=](int n, int m, int k) { dense_op(MATRopR1_R2t, c, n, k, '=', dense_view(a, n, m), dense_view(b, k, m)); },
       false},
      {"MATRopR1_S_R2t",
       [=](int n, int m, int k) {
         dense_op(MATRopR1_S_R2t, c, n, k, '=', dense_view(a, n, m), packed_view(b, m), dense_view(a, k, m));
       },
       false},
      {"MATRopR1_R2_R3t",
       [=](int n, int m, int k) {
         dense_op(MATRopR1_R2_R3t, c, n, k, '=', dense_view(a, n, m), dense_view(b, m, m), dense_view(a, k, m));
       },
       false},
  };
  for (const Work& work : works) {
    for (const auto& [n, m, k] : shapes(work.two_sizes)) {
      if (std::string(work.name) != "SMATRopS1_S2" || n == m) {
        measure_shape(work, n, m, k);
      }
    }
  }
  for (int n = 1; n <= 40; ++n) {
    std::vector<double> matrix;
    for (int i = 0; i < n; ++i) {
      for (int j = 0; j <= i; ++j) {
        matrix.push_back(i == j ? n + 1.0 : values[matrix.size()]);
      }
    }
    measure_shape({"RareInversion",
                   [=, &matrix](int order, int, int) {
                     std::copy(matrix.begin(), matrix.end(), c);
                     TSMatrix wrapped(c, order);
                     RareInversion(wrapped, nullptr, 0);
                   },
                   true},
                  n, n, 0);
  }
}

}  // namespace benchmarks
