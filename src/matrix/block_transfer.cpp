#include "matrix/block_transfer.h"

#include <algorithm>
#include <cstddef>

#include "matrix/packed_index.h"
#include "strict_arithmetic.h"

namespace alidade {
namespace {

// Calls walk with what the code does to a matrix element and buffer element k. The buffer is passed whole, not as an
// element: clearing must not form the address of an element of a null buffer.
template <class Walk>
void with_operation(char op, Walk walk) {
  switch (op) {
    case '+':
      walk([](double& element, const double* buf, std::ptrdiff_t k) { element = element + buf[k]; });
      break;
    case '-':
      walk([](double& element, const double* buf, std::ptrdiff_t k) { element = element - buf[k]; });
      break;
    case '0':
      walk([](double& element, double*, std::ptrdiff_t) { element = 0.0; });
      break;
    case '=':
      walk([](double& element, const double* buf, std::ptrdiff_t k) { element = buf[k]; });
      break;
    case '>':
      walk([](double& element, double* buf, std::ptrdiff_t k) { buf[k] = element; });
      break;
    default:
      break;
  }
}

}  // namespace

void block_transfer_packed(double* s, int i0, int j0, int n1, int n2, char op, double* buf) {
  with_operation(op, [=](auto apply) {
    std::ptrdiff_t k = 0;
    for (std::ptrdiff_t column = 0; column < n2; ++column) {
      const std::ptrdiff_t j = std::ptrdiff_t{j0} + column;
      // Down to the diagonal the elements lie side by side in row j; below it, in column j of rows of growing length.
      std::ptrdiff_t i = i0;
      std::ptrdiff_t position = packed_index(i, j);
      const std::ptrdiff_t end = i + n1;
      for (const std::ptrdiff_t diagonal = std::min(j, end); i < diagonal; ++i, ++position, ++k) {
        apply(s[position], buf, k);
      }
      for (; i < end; ++i, position += i, ++k) {
        apply(s[position], buf, k);
      }
    }
  });
}

void block_transfer_packed_diagonal(double* s, int k0, int n, char op, double* buf) {
  with_operation(op, [=](auto apply) {
    std::ptrdiff_t k = 0;
    for (std::ptrdiff_t i = 0; i < n; ++i) {
      double* row = s + (packed_size(k0 + i) + k0);
      for (std::ptrdiff_t j = 0; j <= i; ++j, ++k) {
        apply(row[j], buf, k);
      }
    }
  });
}

void block_transfer_dense(int rows, double* m, int i0, int j0, int n1, int n2, char op, double* buf) {
  with_operation(op, [=](auto apply) {
    std::ptrdiff_t k = 0;
    for (std::ptrdiff_t column = 0; column < n2; ++column) {
      const std::ptrdiff_t start = dense_index(i0, j0 + column, rows);
      for (std::ptrdiff_t row = 0; row < n1; ++row, ++k) {
        apply(m[start + row], buf, k);
      }
    }
  });
}

}  // namespace alidade
