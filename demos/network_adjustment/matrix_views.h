#ifndef NETWORK_ADJUSTMENT_MATRIX_VIEWS_H
#define NETWORK_ADJUSTMENT_MATRIX_VIEWS_H

// Views of the library's matrix classes over a vector's elements. The vectors own the storage: assigning a TMatrix or
// TSMatrix shares the buffer, so the classes themselves are not kept in containers here.

#include <alidade/matrix.h>

#include <cstddef>
#include <vector>

namespace network {

inline std::size_t packed_size(int order) {
  const auto n = static_cast<std::size_t>(order);
  return n * (n + 1) / 2;
}

inline std::size_t dense_size(int rows, int columns) {
  return static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns);
}

inline TSMatrix packed_view(std::vector<double>& elements, int order) { return {elements.data(), order}; }
inline TMatrix dense_view(std::vector<double>& elements, int rows, int columns) {
  return {elements.data(), rows, columns};
}

// For operands that are only read. The classes hold a pointer to non-const elements; the operators leave operands
// alone.
inline const TSMatrix packed_view(const std::vector<double>& elements, int order) {
  return {const_cast<double*>(elements.data()), order};
}
inline const TMatrix dense_view(const std::vector<double>& elements, int rows, int columns) {
  return {const_cast<double*>(elements.data()), rows, columns};
}

}  // namespace network

#endif
