// MatrixProduct and MAtB on square matrices, beside what a user might take instead.

#include <alidade/matrix.h>

#include <string>

#include "matrix/plain/plain_products.h"
#include "peers.h"
#include "sets.h"
#include "works.h"

namespace benchmarks {
namespace {

void measure_square(int n, const double* a, const double* b, double* c, double* d) {
  const double flops = 2.0 * n * n * n;
  const Effort effort = n < 1000 ? kUsual : kLarge;
  std::vector<Variant> product = on_every_set(flops, [=] { MatrixProduct(a, b, c, n, n, n); });
  std::vector<Variant> transposed = on_every_set(flops, [=] { MAtB(a, b, c, n, n, n); });
  for (const peers::MatrixPeer* peer : {&peers::eigen_default, &peers::eigen_native, &peers::openblas}) {
    product.push_back({peer->name, flops, [=] { peer->product(a, b, d, n, n, n); }});
    transposed.push_back({peer->name, flops, [=] { peer->transposed_product(a, b, d, n, n, n); }});
  }
  compare_results("MatrixProduct", product, {c, d, n, n, false});
  compare_results("MAtB", transposed, {c, d, n, n, false});
  measure("MatrixProduct", std::to_string(n), product, effort);
  measure("MAtB", std::to_string(n), transposed, effort);
}

// What the choice of the kernels costs where the plain loops do the work: the exported name beside the bare loops.
void measure_dispatch(int n, const double* a, const double* b, double* c) {
  std::vector<Variant> variants = on_best_set(0.0, [=] { MatrixProduct(a, b, c, n, n, n); });
  using namespace alidade;
  variants.push_back(
      {"plain loops, called directly", 0.0, [=] {
         plain::product_loops.product(dense_target(c, n), dense(a, n), dense(b, n), {n, n, n}, {true, false});
       }});
  measure("dispatch", std::to_string(n), variants);
}

}  // namespace

void measure_products() {
  const std::vector<double> a = random_values(1000000);
  const std::vector<double> b(a.rbegin(), a.rend());
  std::vector<double> c(1000000), d(1000000);
  for (int n : {3, 6, 12, 24, 50, 100, 300, 1000}) {
    measure_square(n, a.data(), b.data(), c.data(), d.data());
  }
  for (int n : {2, 3, 4, 6}) {
    measure_dispatch(n, a.data(), b.data(), c.data());
  }
}

}  // namespace benchmarks
