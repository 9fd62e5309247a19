#ifndef ALIDADE_TOOLS_GOLDEN_CASES_INVERSION_H
#define ALIDADE_TOOLS_GOLDEN_CASES_INVERSION_H

#include <vector>

#include "golden/functions.h"
#include "golden/workload.h"

namespace golden {

template <class Api>
Group inversion() {
  return {"inversion",
          "inversion of normal matrices, pseudo-inverse",
          {
              // order, inactive rows, progress at entry (-1: none is passed), span, kind of matrix, seed
              {"RareInversion",
               [](Arguments& in, Tokens& out) {
                 const auto [n, narrowed, start, span] = in.integers<4>();
                 int progress = start;
                 Workload work(in);
                 std::vector<double> elements = work.to_invert(n + narrowed);
                 typename Api::PackedTarget matrix(elements.data(), n, narrowed);
                 out.integer(Api::rare_inversion(matrix, progress < 0 ? nullptr : &progress, span));
                 out.integer(progress).hash(elements);
               }},
              // order, rank defect, kind of matrix, seed
              {"PseudoInversion",
               [](Arguments& in, Tokens& out) {
                 const auto [n, defect] = in.integers<2>();
                 Workload work(in);
                 std::vector<double> elements = work.to_invert(n);
                 typename Api::Packed matrix{elements.data(), n};
                 out.integer(Api::pseudo_inversion(matrix, defect)).integer(Api::order(matrix)).hash(elements);
               }},
          }};
}

}  // namespace golden

#endif
