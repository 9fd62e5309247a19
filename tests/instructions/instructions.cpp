// instructions FUNCTION library|loops ROUNDS: calls a function of the library, or its literal version as a host would
// compile it, ROUNDS times for each of the same inputs. The difference between two numbers of rounds is what the calls
// cost, without what starting takes.

#include <alidade/coords.h>
#include <alidade/linalg3.h>
#include <alidade/matrix.h>
#include <alidade/stats.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "reference/coords.h"
#include "reference/inversion.h"
#include "reference/linalg3.h"
#include "reference/stats.h"
#include "support/nasty.h"

namespace {

constexpr int kInputs = 32;

struct Inputs {
  nasty::Random random{1};
  std::vector<double> values;

  double next(double centre, double half_width) { return centre + half_width * random.unit(); }
};

// Latitude, longitude and height of a point on land.
std::vector<double> positions() {
  Inputs in;
  for (int i = 0; i < kInputs; ++i) {
    in.values.insert(in.values.end(), {in.next(0.8, 0.3), in.next(0.5, 0.4), in.next(300.0, 300.0)});
  }
  return in.values;
}

std::vector<double> geocentric() {
  std::vector<double> values = positions();
  for (int i = 0; i < kInputs; ++i) {
    double xyz[3];
    reference::blh2xyz(&values[3 * i], xyz);
    std::memcpy(&values[3 * i], xyz, sizeof xyz);
  }
  return values;
}

// A normal matrix whose every row meets four others, packed.
std::vector<double> normal_matrix(int order) {
  Inputs in;
  for (int i = 0; i < order; ++i) {
    for (int j = 0; j <= i; ++j) {
      in.values.push_back(i == j ? 40.0 + in.next(0.0, 1.0) : i - j <= 4 ? in.next(0.0, 4.0) : 0.0);
    }
  }
  return in.values;
}

void run_blh2xyz(bool library, int rounds) {
  const std::vector<double> v = positions();
  for (int i = 0; i < rounds * kInputs; ++i) {
    const double* p = &v[3 * (i % kInputs)];
    if (library) {
      GeoCoord g;
      g.b = p[0];
      g.l = p[1];
      g.h = p[2];
      Coord().blh2xyz(g);
    } else {
      double xyz[3];
      reference::blh2xyz(p, xyz);
    }
  }
}

void run_xyz2blh(bool library, int rounds) {
  const std::vector<double> v = geocentric();
  for (int i = 0; i < rounds * kInputs; ++i) {
    const double* p = &v[3 * (i % kInputs)];
    if (library) {
      GeoCoord().xyz2blh(Coord(p[0], p[1], p[2]));
    } else {
      double blh[3];
      std::int64_t passes = 0;
      reference::xyz2blh_plain(p, 100, blh, &passes);
    }
  }
}

void run_relat_coord(bool library, int rounds) {
  const std::vector<double> v = geocentric();
  for (int i = 0; i < rounds * kInputs; ++i) {
    const double* p = &v[3 * (i % kInputs)];
    const double* q = &v[3 * ((i + 1) % kInputs)];
    if (library) {
      Coord neu;
      PolCoord polar;
      Coord(p[0], p[1], p[2]).relatCoord(Coord(q[0], q[1], q[2]), neu, polar);
    } else {
      double neu[3];
      double polar[3];
      reference::relat_coord(p, q, neu, polar);
    }
  }
}

void run_propagation(bool library, int rounds) {
  Inputs in;
  double m[9];
  for (double& x : m) {
    x = in.next(0.0, 1.0);
  }
  const double v[6] = {4.0, 1.5, 3.0, -0.5, 0.25, 9.0};
  matr3_3 M;
  covar V;
  std::memcpy(static_cast<double*>(M), m, sizeof m);
  std::memcpy(static_cast<double*>(V), v, sizeof v);
  for (int i = 0; i < rounds * kInputs; ++i) {
    if (library) {
      static_cast<void>(M & V);
    } else {
      double r[6];
      reference::propagate(m, v, r);
    }
  }
}

void run_inversion(int order, bool library, int rounds) {
  const std::vector<double> normal = normal_matrix(order);
  TSMatrix N(order, 1);
  double* packed = N;
  for (int i = 0; i < rounds; ++i) {
    std::memcpy(packed, normal.data(), normal.size() * sizeof(double));
    library ? RareInversion(N, nullptr, 0) : reference::rare_inversion(packed, order, nullptr, 0);
  }
}

void run_tau(bool library, int rounds) {
  for (int i = 0; i < rounds * kInputs; ++i) {
    const int f = 3 + i % kInputs;
    library ? TAU(f + 10, f, 0.05) : reference::tau(f + 10, f, 0.05);
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) {
    return 2;
  }
  const std::string function = argv[1];
  const bool library = std::string(argv[2]) == "library";
  const int rounds = std::atoi(argv[3]);
  if (function == "blh2xyz") {
    run_blh2xyz(library, rounds);
  } else if (function == "xyz2blh") {
    run_xyz2blh(library, rounds);
  } else if (function == "relatCoord") {
    run_relat_coord(library, rounds);
  } else if (function == "propagation") {
    run_propagation(library, rounds);
  } else if (function == "inversion-10") {
    run_inversion(10, library, rounds);
  } else if (function == "inversion-30") {
    run_inversion(30, library, rounds);
  } else if (function == "TAU") {
    run_tau(library, rounds);
  } else {
    return 2;
  }
}
