// The congruences and the operator family, beside Eigen and OpenBLAS on dense storage.

#include <alidade/matrix.h>

#include <cstddef>
#include <functional>
#include <string>

#include "memory.h"
#include "peers.h"
#include "sets.h"
#include "views.h"
#include "works.h"

namespace benchmarks {
namespace {

using peers::MatrixPeer;

std::vector<double> packed_from(const std::vector<double>& square, int n) {
  std::vector<double> packed;
  for (int i = 0; i < n; ++i) {
    for (int j = 0; j <= i; ++j) {
      packed.push_back(square[static_cast<std::size_t>(i) + static_cast<std::size_t>(j) * static_cast<std::size_t>(n)]);
    }
  }
  return packed;
}

// A symmetric matrix of random values, dense.
std::vector<double> symmetric_values(int n, std::size_t skipped) {
  const auto order = static_cast<std::size_t>(n);
  const std::vector<double> values = random_values(skipped + order * order);
  std::vector<double> square(order * order);
  for (std::size_t i = 0; i < order; ++i) {
    for (std::size_t j = 0; j <= i; ++j) {
      square[i + j * order] = square[j + i * order] = values[skipped + i * order + j];
    }
  }
  return square;
}

struct Operands {
  const double* a;  // dense
  const double* b;
  const double* s;  // symmetric: dense, and packed
  const double* s_packed;
  const double* r;
  const double* r_packed;
  double* ours;
  double* theirs;
};

void measure_beside_peers(const std::string& work, const std::string& size, double flops, const Results& results,
                          const std::function<void()>& run, const std::function<void(const MatrixPeer&)>& run_peer) {
  std::vector<Variant> variants = on_every_set(flops, run);
  for (const MatrixPeer* peer : {&peers::eigen_default, &peers::eigen_native, &peers::openblas}) {
    variants.push_back({peer->name, flops, [=] { run_peer(*peer); }});
  }
  compare_results(work, variants, results);
  measure(work, size, variants);
}

void measure_congruences(int n, int m, const Operands& o) {
  const std::string size = std::to_string(n) + "x" + std::to_string(m);
  const double lines = n;
  const double columns = m;
  if (n <= 300) {
    measure_beside_peers(
        "SMatrProductAQAt", size, 2 * lines * columns * columns + lines * (lines + 1) * columns,
        {o.ours, o.theirs, n, n, true}, [=] { SMatrProductAQAt(o.a, o.s_packed, o.ours, n, m, '='); },
        [=](const MatrixPeer& peer) { peer.congruence(o.a, o.s, o.theirs, n, m); });
    measure_beside_peers(
        "SMATRopRt_S_R", size, 2 * lines * lines * columns + columns * (columns + 1) * lines,
        {o.ours, o.theirs, m, m, true},
        [=] { packed_op(SMATRopRt_S_R, o.ours, m, '=', dense_view(o.a, n, m), packed_view(o.r_packed, n)); },
        [=](const MatrixPeer& peer) { peer.transposed_congruence(o.a, o.r, o.theirs, m, n); });
  }
  measure_beside_peers(
      "SMATRopRt_R", size, columns * (columns + 1) * lines, {o.ours, o.theirs, m, m, true},
      [=] { packed_op(SMATRopRt_R, o.ours, m, '=', dense_view(o.a, n, m)); },
      [=](const MatrixPeer& peer) { peer.gram(o.a, o.theirs, m, n); });
}

void measure_family(int n, const Operands& o) {
  const std::string size = std::to_string(n);
  const double flops = 2.0 * n * n * n;
  const Results dense = {o.ours, o.theirs, n, n, false};
  const Results packed = {o.ours, o.theirs, n, n, true};
  const auto family = [&](const char* work, double count, const Results& results, const std::function<void()>& run,
                          const std::function<void(const MatrixPeer&)>& peer) {
    measure_beside_peers(work, size, count, results, run, peer);
  };
  family(
      "SMATRopABti", flops, packed,
      [=] { packed_op(SMATRopABti, o.ours, n, '=', dense_view(o.a, n, n), dense_view(o.b, n, n)); },
      [=](const MatrixPeer& peer) { peer.symmetrized_product(o.a, o.b, o.theirs, n, n); });
  family(
      "SMATRopS1_S2", flops / 2, packed,
      [=] { packed_op(SMATRopS1_S2, o.ours, n, '=', packed_view(o.s_packed, n), packed_view(o.r_packed, n)); },
      [=](const MatrixPeer& peer) { peer.symmetric_product(o.s, o.r, o.theirs, n); });
  family(
      "MATRopS_R", flops, dense,
      [=] { dense_op(MATRopS_R, o.ours, n, n, '=', packed_view(o.s_packed, n), dense_view(o.a, n, n)); },
      [=](const MatrixPeer& peer) { peer.symmetric_dense(o.s, o.a, o.theirs, n, n); });
  family(
      "MATRopR_S", flops, dense,
      [=] { dense_op(MATRopR_S, o.ours, n, n, '=', dense_view(o.a, n, n), packed_view(o.s_packed, n)); },
      [=](const MatrixPeer& peer) { peer.dense_symmetric(o.a, o.s, o.theirs, n, n); });
  family(
      "MATRopR1t_R", flops, dense,
      [=] { dense_op(MATRopR1t_R, o.ours, n, n, '=', dense_view(o.a, n, n), dense_view(o.b, n, n)); },
      [=](const MatrixPeer& peer) { peer.transposed_product(o.a, o.b, o.theirs, n, n, n); });
  family(
      "MATRopR1_R2", flops, dense,
      [=] { dense_op(MATRopR1_R2, o.ours, n, n, '=', dense_view(o.a, n, n), dense_view(o.b, n, n)); },
      [=](const MatrixPeer& peer) { peer.product(o.a, o.b, o.theirs, n, n, n); });
  family(
      "MATRopR1_R2t", flops, dense,
      [=] { dense_op(MATRopR1_R2t, o.ours, n, n, '=', dense_view(o.a, n, n), dense_view(o.b, n, n)); },
      [=](const MatrixPeer& peer) { peer.product_transposed(o.a, o.b, o.theirs, n, n, n); });
  family(
      "MATRopR1_S_R2t", 2 * flops, dense,
      [=] {
        dense_op(MATRopR1_S_R2t, o.ours, n, n, '=', dense_view(o.a, n, n), packed_view(o.s_packed, n),
                 dense_view(o.b, n, n));
      },
      [=](const MatrixPeer& peer) { peer.dense_symmetric_transposed(o.a, o.s, o.b, o.theirs, n, n, n); });
  family(
      "MATRopR1_R2_R3t", 2 * flops, dense,
      [=] {
        dense_op(MATRopR1_R2_R3t, o.ours, n, n, '=', dense_view(o.a, n, n), dense_view(o.s, n, n),
                 dense_view(o.b, n, n));
      },
      [=](const MatrixPeer& peer) { peer.dense_dense_transposed(o.a, o.s, o.b, o.theirs, n, n, n); });
}

// What one call takes, on the library's own choice of a set.
void measure_work_space(const Operands& o) {
  on_best_set(0.0, [] {}).front().prepare();
  for (int n : {10, 30, 100, 300}) {
    print_memory("MAtB", n, [=] { MAtB(o.a, o.b, o.ours, n, n, n); });
    print_memory("SMatrProductAQAt", n, [=] { SMatrProductAQAt(o.a, o.s_packed, o.ours, n, n, '='); });
    print_memory("SMATRopRt_S_R", n,
                 [=] { packed_op(SMATRopRt_S_R, o.ours, n, '=', dense_view(o.a, n, n), packed_view(o.s_packed, n)); });
    print_memory("SMATRopABti", n,
                 [=] { packed_op(SMATRopABti, o.ours, n, '=', dense_view(o.a, n, n), dense_view(o.b, n, n)); });
  }
}

}  // namespace

void measure_operators() {
  const std::vector<double> a = random_values(300000);
  const std::vector<double> b(a.rbegin(), a.rend());
  std::vector<double> ours(90000), theirs(90000);
  for (const auto& [n, m] : {std::pair<int, int>{3, 3}, {30, 10}, {100, 30}, {300, 100}, {1000, 300}}) {
    const std::vector<double> s = symmetric_values(m, 11);
    const std::vector<double> r = symmetric_values(n <= 300 ? n : 1, 17);
    const std::vector<double> s_packed = packed_from(s, m);
    const std::vector<double> r_packed = packed_from(r, n <= 300 ? n : 1);
    measure_congruences(
        n, m, {a.data(), b.data(), s.data(), s_packed.data(), r.data(), r_packed.data(), ours.data(), theirs.data()});
  }
  const int n = 300;
  const std::vector<double> s = symmetric_values(n, 11);
  const std::vector<double> r = symmetric_values(n, 17);
  const std::vector<double> s_packed = packed_from(s, n);
  const std::vector<double> r_packed = packed_from(r, n);
  const Operands operands = {a.data(), b.data(),        s.data(),    s_packed.data(),
                             r.data(), r_packed.data(), ours.data(), theirs.data()};
  measure_family(n, operands);
  measure_work_space(operands);
}

}  // namespace benchmarks
