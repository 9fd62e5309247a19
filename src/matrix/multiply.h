#ifndef ALIDADE_SRC_MATRIX_MULTIPLY_H
#define ALIDADE_SRC_MATRIX_MULTIPLY_H

// Products as the library itself calls for them: described by operands, formed in the way that is fastest for the size.

#include <cstddef>
#include <cstdint>

#include "matrix/kernels/kernels.h"
#include "matrix/kernels/operands.h"
#include "matrix/plain/plain_products.h"
#include "strict_arithmetic.h"

namespace alidade {

// What has to be done with the operands before or while register tiles run over them.
enum class Preparation {
  kNothing,     // they are used as they lie
  kCopies,      // stretches are copied, such as the diagonal blocks of a packed operand
  kTransposes,  // blocks are transposed
  kTwoCopies,   // two operands are copied
  kOneLine,     // a single line
  kInnerLeft,   // a product on the way is kept
  kInnerRight,  // and transposed
  kInnerFew,    // the same for a target of few lines
  kMirrors      // a packed operand supplies the lanes: the plain loops have to jump about in it
};

// How much there is to do: sums * terms products. Where one product stands in the other, `sums` counts the elements of
// the one on the way, and `terms` what each of them costs and then meets; `least_terms` is the smaller of both counts.
struct Work {
  std::int64_t sums;
  std::int64_t terms;
  std::int64_t least_terms;
};

// The loops to take. A tile has a fixed cost, so that the plain loops serve for small work. Measured by the benchmark
// of small shapes; a wrong choice costs time, never bits.
inline const ProductLoops& loops_for(const Target& target, const Extent& extent, const Work& work,
                                     Preparation preparation) {
  struct Least {
    int lines, terms, products;
  };
  static constexpr Least kOfTwo[] = {{2, 5, 100},  {6, 5, 1400}, {6, 5, 1500}, {6, 6, 3000}, {1, 5, 200},
                                     {2, 5, 2000}, {4, 5, 2000}, {1, 5, 6000}, {4, 3, 120}};
  static constexpr Least kOfMore[] = {{2, 3, 30},  {2, 3, 350}, {3, 5, 700},  {3, 6, 450}, {1, 3, 125},
                                      {2, 3, 400}, {4, 3, 330}, {1, 5, 6000}, {3, 3, 100}};
  const kernels::KernelTable* fast = kernels::active();
  if (fast == nullptr) {
    return plain::product_loops;
  }
  const Least& least = (fast->width > 2 ? kOfMore : kOfTwo)[static_cast<int>(preparation)];
  const bool lines_overlap = !target.triangle && target.ld < extent.lanes && extent.lines > 1;
  if (extent.lanes < 1 || extent.lines < least.lines || work.least_terms < least.terms || lines_overlap) {
    return plain::product_loops;
  }
  return work.sums >= least.products || work.sums * work.terms >= least.products ? fast->products
                                                                                 : plain::product_loops;
}

inline Work work_of(const Target& target, const Extent& extent) {
  const std::int64_t elements = std::int64_t{extent.lanes} * extent.lines;
  return {target.triangle ? elements / 2 : elements, extent.terms, extent.terms};
}

// With a product on the way of which each element is a sum of `inner` terms and meets `others` elements of a third
// operand.
inline Work work_with_inner(const Target& target, std::int64_t elements, std::ptrdiff_t inner, std::ptrdiff_t others,
                            std::ptrdiff_t terms) {
  return {elements, inner + (target.triangle ? others / 2 : others), inner < terms ? inner : terms};
}

// target (+)= a b
inline void multiply(const Target& target, const Operand& a, const Operand& b, const Extent& extent, Mode mode) {
  if (a.layout == Operand::kDiagonal || b.layout == Operand::kDiagonal) {  // no work for tiles
    plain::product_loops.product(target, a, b, extent, mode);
    return;
  }
  const bool mirrors = a.layout == Operand::kPacked && !(target.triangle && b.layout == Operand::kPacked);
  const bool transposes = a.layout == Operand::kTransposed;
  const bool copies = b.layout == Operand::kPacked || mode.negate;
  const Preparation preparation = mirrors                        ? Preparation::kMirrors
                                  : a.layout == Operand::kPacked ? Preparation::kTwoCopies
                                  : transposes                   ? Preparation::kTransposes
                                  : copies                       ? Preparation::kCopies
                                  : extent.lines > 1             ? Preparation::kNothing
                                                                 : Preparation::kOneLine;
  loops_for(target, extent, work_of(target, extent), preparation).product(target, a, b, extent, mode);
}

// target (+)= (x y) b, the product in brackets a sum of `inner` terms and rounded by itself
inline void multiply_on_left(const Target& target, const Operand& x, const Operand& y, std::ptrdiff_t inner,
                             const Operand& b, const Extent& extent, Mode mode) {
  const bool is_vector = x.layout == Operand::kTransposed;
  const Work work =
      is_vector ? work_of(target, extent)
                : work_with_inner(target, std::int64_t{extent.lanes} * extent.terms, inner, extent.lines, extent.terms);
  loops_for(target, extent, work, is_vector ? Preparation::kOneLine : Preparation::kInnerLeft)
      .product_on_left(target, x, y, inner, b, extent, mode);
}

// target (+)= a (y z)
inline void multiply_on_right(const Target& target, const Operand& a, const Operand& y, std::ptrdiff_t inner,
                              const Operand& z, const Extent& extent, Mode mode) {
  const Work work =
      work_with_inner(target, std::int64_t{extent.lines} * extent.terms, inner, extent.lanes, extent.terms);
  loops_for(target, extent, work, extent.lines < 4 ? Preparation::kInnerFew : Preparation::kInnerRight)
      .product_on_right(target, a, y, inner, z, extent, mode);
}

// target (+)= a b' + b a'
inline void multiply_symmetrized(const Target& target, const Operand& a, const Operand& b, const Extent& extent,
                                 Mode mode) {
  loops_for(target, extent, work_of(target, extent), Preparation::kTwoCopies)
      .symmetrized_product(target, a, b, extent, mode);
}

}  // namespace alidade

#endif
