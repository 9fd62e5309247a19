#include <alidade/linalg3.h>

#include <limits>

#include "strict_arithmetic.h"

namespace {

// Marks a component that has not been computed: the largest finite double, bits 0x7FEFFFFFFFFFFFFF.
constexpr double kUndefined = std::numeric_limits<double>::max();  // 0x1.fffffffffffffp+1023

}  // namespace

DefTriad::DefTriad() : triad(kUndefined, kUndefined, kUndefined) {}

DefTriad& DefTriad::operator=(const triad& o) {
  triad::operator=(o);
  return *this;
}

bool DefTriad::IsUndef(const triad& t) { return t[0] == kUndefined && t[1] == kUndefined && t[2] == kUndefined; }

bool DefTriad::IsPartialUndef(const triad& t) { return t[0] == kUndefined || t[1] == kUndefined || t[2] == kUndefined; }

bool DefTriad::IsUndef() const { return IsUndef(*this); }

bool DefTriad::IsPartialUndef() const { return IsPartialUndef(*this); }
