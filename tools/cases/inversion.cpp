#include <vector>

#include "golden/functions.h"
#include "golden/workload.h"
#include "subject.h"

namespace golden {

using Progress = Within<-1, 100>;  // -1: none is passed

Group inversion() {
  return {"inversion",
          "inversion of normal matrices, pseudo-inverse",
          {
              {"RareInversion",
               [](Size n, Size inactive, Progress start, Within<-100, 1000> span, Workload work) {
                 std::vector<double> elements = work.to_invert(n + inactive);
                 TSMatrix matrix(elements.data(), n + inactive);
                 matrix.SetDim1(n);
                 int progress = start;
                 const int status = RareInversion(matrix, progress < 0 ? nullptr : &progress, span);
                 return std::tuple{status, progress, elements};
               }},
              {"PseudoInversion",
               [](Size n, Within<-1, 2048> defect, Workload work) {
                 std::vector<double> elements = work.to_invert(n);
                 TSMatrix matrix(elements.data(), n);
                 const int status = PseudoInversion(matrix, defect);
                 return std::tuple{status, matrix.GetDim1(), elements};
               }},
          }};
}

}  // namespace golden
