#include "matrix/plain/plain_products.h"

#include <algorithm>
#include <cstddef>

#include "matrix/kernels/operands.h"
#include "matrix/packed_index.h"
#include "matrix/plain/ordered_sums.h"
#include "strict_arithmetic.h"

namespace alidade::plain {
namespace {

double* line_of(const Target& target, std::ptrdiff_t k) {
  return target.data + (target.triangle ? packed_size(k) : dense_size(target.ld, k));
}

std::ptrdiff_t lanes_of(const Target& target, std::ptrdiff_t k, const Extent& extent) {
  return target.triangle ? k + 1 : extent.lanes;
}

std::ptrdiff_t position(const Operand& m, std::ptrdiff_t row, std::ptrdiff_t column) {
  switch (m.layout) {
    case Operand::kDense:
      return dense_index(row, column, m.ld);
    case Operand::kTransposed:
      return dense_index(column, row, m.ld);
    case Operand::kPacked:
      return packed_index(row, column);
    default:
      return row;
  }
}

// The terms of line k that operand b stores.
struct Terms {
  std::ptrdiff_t first;
  std::ptrdiff_t end;
};
Terms terms_of(const Operand& b, std::ptrdiff_t k, std::ptrdiff_t terms) {
  return b.layout == Operand::kDiagonal ? Terms{std::min(k, terms), std::min(k + 1, terms)} : Terms{0, terms};
}

// Element (i, j) of a dense matrix or of the transpose of one.
struct Strides {
  explicit Strides(const Operand& m)
      : data(m.data),
        row(m.layout == Operand::kTransposed ? m.ld : 1),
        column(m.layout == Operand::kTransposed ? 1 : m.ld) {}
  double operator()(std::ptrdiff_t i, std::ptrdiff_t j) const { return data[i * row + j * column]; }
  const double* data;
  std::ptrdiff_t row;
  std::ptrdiff_t column;
};

// y += the sum of b(l, k) times column l of a dense a, or -=; n rows from `first` on.
template <bool kSubtract>
void add_dense_line(double* y, const Operand& a, std::ptrdiff_t first, const Operand& b, std::ptrdiff_t k,
                    std::ptrdiff_t n, std::ptrdiff_t terms) {
  const double* column = a.data + first;
  if (b.layout == Operand::kPacked) {  // up to the diagonal row k holds its column, beyond it other rows do
    const double* element = b.data + packed_size(k);
    for (std::ptrdiff_t l = 0; l < terms; ++l, column += a.ld) {
      add_scaled<kSubtract>(y, column, *element, n);
      element += l < k ? 1 : l + 1;
    }
  } else if (b.layout == Operand::kDiagonal) {
    if (k < terms) {
      add_scaled<kSubtract>(y, column + k * a.ld, b.data[k], n);
    }
  } else {
    const Strides element(b);
    for (std::ptrdiff_t l = 0; l < terms; ++l, column += a.ld) {
      add_scaled<kSubtract>(y, column, element(l, k), n);
    }
  }
}

// y(i) += f a(i, l), or -=, for n rows of column l of an a that is packed or diagonal.
template <bool kSubtract>
void add_scaled_column(double* y, const Operand& a, std::ptrdiff_t l, double f, std::ptrdiff_t n) {
  if (a.layout == Operand::kDiagonal) {
    if (l < n) {
      y[l] = add_term<kSubtract>(y[l], a.data[l] * f);
    }
    return;
  }
  add_scaled<kSubtract>(y, a.data + packed_size(l), f, std::min(l, n));  // row l holds the column up to the diagonal
  for (std::ptrdiff_t i = l; i < n; ++i) {
    y[i] = add_term<kSubtract>(y[i], a.data[packed_size(i) + l] * f);
  }
}

// Line k: n of its lanes, from lane `first` on, at y. Lanes of a diagonal a, and of a packed one beside anything but a
// dense b, are taken from the first on.
template <bool kSubtract>
void add_line(double* y, const Operand& a, std::ptrdiff_t first, const Operand& b, std::ptrdiff_t k, std::ptrdiff_t n,
              std::ptrdiff_t terms) {
  if (terms < 1) {
    return;  // the operands may be null
  }
  if (a.layout == Operand::kDense) {
    add_dense_line<kSubtract>(y, a, first, b, k, n, terms);
  } else if (a.layout == Operand::kTransposed) {
    add_dots<kSubtract>(y, a.data + first * a.ld, a.ld, n, b.data + k * b.ld, terms);
  } else if (a.layout == Operand::kPacked && b.layout == Operand::kDense) {
    add_symmetric_rows<kSubtract>(y, a.data, first, n, DenseColumn{b.data + k * b.ld}, terms);
  } else if (a.layout == Operand::kPacked && b.layout == Operand::kPacked && n <= k + 1) {
    add_symmetric_rows<kSubtract>(y, a.data, 0, n, PackedColumn{b.data, k}, terms);
  } else {
    const Terms stored = terms_of(b, k, terms);
    for (std::ptrdiff_t l = stored.first; l < stored.end; ++l) {
      add_scaled_column<kSubtract>(y, a, l, b.data[position(b, l, k)], n);
    }
  }
}

// The usual layout has a loop of its own: for a few elements finding the loop takes as long as running it.
template <bool kSubtract>
void add_product(const Target& target, const Operand& a, const Operand& b, const Extent& extent) {
  if (a.layout == Operand::kTransposed && b.layout == Operand::kDense) {
    for (std::ptrdiff_t k = 0; k < extent.lines; ++k) {
      add_dots<kSubtract>(line_of(target, k), a.data, a.ld, lanes_of(target, k, extent), b.data + k * b.ld,
                          extent.terms);
    }
    return;
  }
  for (std::ptrdiff_t k = 0; k < extent.lines; ++k) {
    add_line<kSubtract>(line_of(target, k), a, 0, b, k, lanes_of(target, k, extent), extent.terms);
  }
}

// In a product of three b is dense or the transpose of a dense matrix. The elements (x y)(i, j) of a block of lanes i
// are formed for one term j and spread over the lines.
template <bool kSubtract>
void add_product_on_left(const Target& target, const Operand& x, const Operand& y, std::ptrdiff_t inner,
                         const Operand& b, const Extent& extent) {
  const Strides element(b);
  double left[kBlock];
  for (std::ptrdiff_t first = 0; first < extent.lanes; first += kBlock) {
    const std::ptrdiff_t count = std::min(kBlock, extent.lanes - first);
    for (std::ptrdiff_t j = 0; j < extent.terms; ++j) {
      clear(left, count);
      add_line<false>(left, x, first, y, j, count, inner);
      const std::ptrdiff_t above = target.triangle ? first : 0;
      double* line = line_of(target, above) + first;
      std::ptrdiff_t step = target.triangle ? first + 1 : target.ld;
      for (std::ptrdiff_t k = above; k < extent.lines; ++k) {
        add_scaled<kSubtract>(line, left, element(j, k), std::min(count, lanes_of(target, k, extent) - first));
        line += step;
        step += target.triangle ? 1 : 0;
      }
    }
  }
}

// The same for x = the transpose of a dense matrix and y packed: a lane's row of x y is formed as a column of y x', in
// one pass over the packed rows.
template <bool kSubtract>
void add_product_with_row_on_left(const Target& target, const Operand& x, const Operand& y, std::ptrdiff_t inner,
                                  const Operand& b, const Extent& extent) {
  const Strides element(b);
  double left[kBlock];
  for (std::ptrdiff_t i = 0; i < extent.lanes; ++i) {
    for (std::ptrdiff_t first = 0; first < extent.terms; first += kBlock) {
      const std::ptrdiff_t count = std::min(kBlock, extent.terms - first);
      clear(left, count);
      add_symmetric_rows<false>(left, y.data, first, count, DenseColumn{x.data + i * x.ld}, inner);
      for (std::ptrdiff_t k = target.triangle ? i : 0; k < extent.lines; ++k) {
        double& sum = line_of(target, k)[i];
        for (std::ptrdiff_t j = 0; j < count; ++j) {
          sum = add_term<kSubtract>(sum, left[j] * element(first + j, k));
        }
      }
    }
  }
}

// The elements (y z)(j, k) of a block of terms j are formed for one line k.
template <bool kSubtract>
void add_product_on_right(const Target& target, const Operand& a, const Operand& y, std::ptrdiff_t inner,
                          const Operand& z, const Extent& extent) {
  double right[kBlock];
  for (std::ptrdiff_t first = 0; first < extent.terms; first += kBlock) {
    const std::ptrdiff_t count = std::min(kBlock, extent.terms - first);
    Operand block = a;
    block.data += a.layout == Operand::kTransposed ? first : first * a.ld;
    for (std::ptrdiff_t k = 0; k < extent.lines; ++k) {
      clear(right, count);
      add_line<false>(right, y, first, z, k, count, inner);
      add_line<kSubtract>(line_of(target, k), block, 0, dense(right, 0), 0, lanes_of(target, k, extent), count);
    }
  }
}

// The two products of one term are summed before they meet the target.
template <bool kSubtract>
void add_symmetrized_product(const Target& target, const Operand& a, const Operand& b, const Extent& extent) {
  for (std::ptrdiff_t k = 0; k < extent.lines; ++k) {
    double* line = line_of(target, k);
    const std::ptrdiff_t n = lanes_of(target, k, extent);
    for (std::ptrdiff_t l = 0; l < extent.terms; ++l) {
      const double* al = a.data + l * a.ld;
      const double* bl = b.data + l * b.ld;
      const double ak = al[k];
      const double bk = bl[k];
      for (std::ptrdiff_t i = 0; i < n; ++i) {
        line[i] = add_term<kSubtract>(line[i], ak * bl[i] + al[i] * bk);
      }
    }
  }
}

void start(const Target& target, const Extent& extent, Mode mode) {
  if (!mode.clear || extent.lanes < 1 || extent.lines < 1) {
    return;
  }
  if (target.triangle || target.ld == extent.lanes) {  // the lines follow each other
    clear(target.data, line_of(target, extent.lines) - target.data);
    return;
  }
  for (std::ptrdiff_t k = 0; k < extent.lines; ++k) {
    clear(line_of(target, k), extent.lanes);
  }
}

void product(const Target& target, const Operand& a, const Operand& b, const Extent& extent, Mode mode) {
  start(target, extent, mode);
  mode.negate ? add_product<true>(target, a, b, extent) : add_product<false>(target, a, b, extent);
}

void product_on_left(const Target& target, const Operand& x, const Operand& y, std::ptrdiff_t inner, const Operand& b,
                     const Extent& extent, Mode mode) {
  start(target, extent, mode);
  if (x.layout == Operand::kTransposed && y.layout == Operand::kPacked) {
    (mode.negate ? add_product_with_row_on_left<true> : add_product_with_row_on_left<false>)(target, x, y, inner, b,
                                                                                             extent);
  } else {
    (mode.negate ? add_product_on_left<true> : add_product_on_left<false>)(target, x, y, inner, b, extent);
  }
}

void product_on_right(const Target& target, const Operand& a, const Operand& y, std::ptrdiff_t inner, const Operand& z,
                      const Extent& extent, Mode mode) {
  start(target, extent, mode);
  (mode.negate ? add_product_on_right<true> : add_product_on_right<false>)(target, a, y, inner, z, extent);
}

void symmetrized_product(const Target& target, const Operand& a, const Operand& b, const Extent& extent, Mode mode) {
  start(target, extent, mode);
  (mode.negate ? add_symmetrized_product<true> : add_symmetrized_product<false>)(target, a, b, extent);
}

}  // namespace

const ProductLoops product_loops = {product, product_on_left, product_on_right, symmetrized_product};

}  // namespace alidade::plain
