#include <alidade/matrix.h>

#include <cstdint>

#include "strict_arithmetic.h"

namespace alidade {
namespace {

// Left rotation of the low `width` bits (8, 16 or 32). The low bits of a two's complement shift are the shift modulo
// the width, for negative shifts too: rotating right by r is rotating left by width - r.
std::uint32_t rotate_left(std::uint32_t value, int width, int shift) {
  const std::uint32_t field = 0xffffffffU >> (32 - width);
  const int left = static_cast<int>(static_cast<std::uint32_t>(shift) & static_cast<std::uint32_t>(width - 1));
  value &= field;
  if (left == 0) {
    return value;
  }
  return ((value << left) | (value >> (width - left))) & field;
}

}  // namespace

}  // namespace alidade

int ishc(long& v, int& s) { return static_cast<int>(alidade::rotate_left(static_cast<std::uint32_t>(v), 32, s)); }

int ishc(short& v, int& s) {
  const int shift = s < 0 ? 0 : s;  // unlike the other two widths: a negative shift rotates nothing
  return static_cast<int>(alidade::rotate_left(static_cast<std::uint32_t>(v), 16, shift));
}

int ishc(char& v, int& s) { return static_cast<int>(alidade::rotate_left(static_cast<std::uint32_t>(v), 8, s)); }
