#include <alidade/matrix.h>

#include "golden/workload.h"
#include "verify/groups/groups.h"

namespace verify {

using golden::Arguments;
using golden::Tokens;
using golden::Workload;

golden::Group inversion() {
  return {"inversion",
          "inversion of normal matrices, pseudo-inverse",
          {
              // order, inactive rows, progress at entry (-1: none is passed), span, kind of matrix, seed
              {"RareInversion",
               [](Arguments& in, Tokens& out) {
                 const int n = in.integer();
                 const int narrowed = in.integer();
                 int progress = in.integer();
                 const int span = in.integer();
                 Workload work(in);
                 std::vector<double> elements = work.to_invert(n + narrowed);
                 TSMatrix matrix(elements.data(), n + narrowed);
                 matrix.SetDim1(n);
                 out.integer(RareInversion(matrix, progress < 0 ? nullptr : &progress, span));
                 out.integer(progress).hash(elements);
               }},
              // order, rank defect, kind of matrix, seed
              {"PseudoInversion",
               [](Arguments& in, Tokens& out) {
                 const int n = in.integer();
                 const int defect = in.integer();
                 Workload work(in);
                 std::vector<double> elements = work.to_invert(n);
                 TSMatrix matrix(elements.data(), n);
                 out.integer(PseudoInversion(matrix, defect));
                 out.integer(matrix.GetDim1()).hash(elements);
               }},
          }};
}

}  // namespace verify
