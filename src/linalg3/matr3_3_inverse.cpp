#include <alidade/linalg3.h>

#include "strict_arithmetic.h"

namespace {

// r = the transposed matrix of cofactors of m; the order of the factors is part of the result's bits.
void adjugate(const double* m, double* r) {
  r[0] = m[4] * m[8] - m[5] * m[7];
  r[1] = m[2] * m[7] - m[8] * m[1];
  r[2] = m[5] * m[1] - m[4] * m[2];
  r[3] = m[6] * m[5] - m[8] * m[3];
  r[4] = m[0] * m[8] - m[6] * m[2];
  r[5] = m[2] * m[3] - m[5] * m[0];
  r[6] = m[7] * m[3] - m[6] * m[4];
  r[7] = m[6] * m[1] - m[0] * m[7];
  r[8] = m[4] * m[0] - m[1] * m[3];
}

}  // namespace

// An unknown code leaves the elements unset, which is documented.
matr3_3::matr3_3(const matr3_3& A, char op) {  // NOLINT(cppcoreguidelines-pro-type-member-init)
  // Compared unsigned: the code of the inverse is -1 where char is signed and 255 where it is not.
  constexpr unsigned char kInverse = 255;
  const auto code = static_cast<unsigned char>(op);
  const double* m = A.m_;
  if (code == 't') {
    for (int column = 0; column < 3; ++column) {
      for (int row = 0; row < 3; ++row) {
        m_[Index(row, column)] = m[Index(column, row)];
      }
    }
  } else if (code == kInverse) {
    adjugate(m, m_);
    const double determinant = (m[0] * m_[0] + m_[1] * m[3]) + m[6] * m_[2];
    if (determinant != 0.0) {
      *this /= determinant;
    }
  }
}
