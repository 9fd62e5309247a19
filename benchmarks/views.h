#ifndef ALIDADE_BENCHMARKS_VIEWS_H
#define ALIDADE_BENCHMARKS_VIEWS_H

// Matrices over the benchmark's buffers, as the operators take them.

#include <alidade/matrix.h>

namespace benchmarks {

inline TMatrix dense_view(const double* p, int rows, int columns) {
  return TMatrix(const_cast<double*>(p), rows, columns);
}
inline TSMatrix packed_view(const double* p, int order) { return TSMatrix(const_cast<double*>(p), order); }

// Calls a member of the operator family on a target over c.
template <class Operator, class... Operands>
void packed_op(Operator op, double* c, int order, char code, const Operands&... operands) {
  TSMatrix target(c, order);
  op(target, code, operands...);
}
template <class Operator, class... Operands>
void dense_op(Operator op, double* c, int rows, int columns, char code, const Operands&... operands) {
  TMatrix target(c, rows, columns);
  op(target, code, operands...);
}

}  // namespace benchmarks

#endif
