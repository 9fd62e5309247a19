#ifndef ALIDADE_TESTS_REFERENCE_BLOCKS_H
#define ALIDADE_TESTS_REFERENCE_BLOCKS_H

// Literal versions of the block transfers, of the locator and of the shape rules of the rectangular matrix.

#include <cstdint>

namespace reference {

void packed_block(double* s, int i0, int j0, int n1, int n2, char op, double* buf);
void packed_diagonal_block(double* s, int k0, int nk, char op, double* buf);
void dense_block(int ld, double* m, int i0, int j0, int n1, int n2, char op, double* buf);
std::int64_t locate(std::int64_t i, std::int64_t j, std::int64_t n, int ms);

struct Shape {
  int n1;
  int n2;
  int capacity;
};
void set_dimension(Shape& shape, int n1, int n2);

}  // namespace reference

#endif
