#ifndef ALIDADE_TOOLS_GOLDEN_INPUTS_H
#define ALIDADE_TOOLS_GOLDEN_INPUTS_H

// Inputs from a seed. A case of a large product or inversion stores a seed and the name of a kind of numbers instead
// of thousands of doubles; every platform makes the same inputs from them, because each double is put together from
// random bits by integer operations (or is an integer scaled by a power of two, which is exact).

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace golden {

// splitmix64 (Steele, Lea, Flood, "Fast splittable pseudorandom number generators", 2014).
class RandomBits {
public:
  explicit RandomBits(std::uint64_t seed) : state_(seed) {}

  std::uint64_t next();

  // The seed from which the next words would come again.
  std::uint64_t state() const { return state_; }

  // 0 ... n-1, the upper bits of the next word scaled down.
  int below(int n);

private:
  std::uint64_t state_;
};

// One double of the given kind:
//   plain   random sign and fraction, exponent -8 ... 7: what survey work is made of
//   short   as plain, with twelve bits of fraction: reads well, and sums are often exact
//   whole   an integer -8 ... 8 (zero with either sign): sums cancel exactly
//   wide    random sign and fraction, exponent -400 ... 399: products overflow and underflow
//   tiny    random sign and fraction, exponent -560 ... -480: products are subnormal
//   sparse  three in four a zero, of either sign; else plain
//   nasty   one in four a special value (zeros, subnormal and normal limits, infinities, NaN, +-1); else any exponent
double random_double(RandomBits& bits, const std::string& kind);

std::vector<double> random_doubles(RandomBits& bits, const std::string& kind, std::size_t n);

// Packed symmetric matrix of order n, positive definite unless the kind says otherwise. Off-diagonal entries are
// k/1024 with |k| <= 1000, the diagonal exceeds n, so that the matrix is diagonally dominant.
//   dense      all entries
//   banded     entries up to 4 columns from the diagonal
//   blocks     3x3 blocks on the diagonal and a border of the last 3 rows
//   signed     as banded, the empty places hold -0.0 as often as +0.0
//   graded     dense, row and column i scaled by 2^(20*(i%5) - 40)
//   huge       dense, all entries scaled by 2^1000: the squares of factors stay finite, intermediate products do not
//   small      dense, all entries scaled by 2^-1030: the entries are subnormal or nearly so
//   zeropivot, negative, nanpivot   dense, one diagonal entry (drawn) is 0, -1, NaN
//   indefinite dense, one diagonal entry (drawn) is 1/1024 so that its pivot becomes negative
//   nasty      dense, one in 16 entries a special value
std::vector<double> symmetric_matrix(RandomBits& bits, const std::string& kind, int n);

}  // namespace golden

#endif
