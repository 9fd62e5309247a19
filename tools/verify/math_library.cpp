#include "verify/math_library.h"

#include <cmath>
#include <stdexcept>

#include "golden/hex_float.h"

namespace verify {
namespace {

using UnaryFunction = double (*)(double);
using BinaryFunction = double (*)(double, double);

struct Unary {
  const char* name;
  UnaryFunction function;
};

struct Binary {
  const char* name;
  BinaryFunction function;
};

constexpr Unary kUnary[] = {{"sin", std::sin},   {"cos", std::cos},   {"atan", std::atan}, {"asin", std::asin},
                            {"acos", std::acos}, {"sinh", std::sinh}, {"cosh", std::cosh}, {"log", std::log}};
constexpr Binary kBinary[] = {{"atan2", std::atan2}, {"pow", std::pow}};

double answer(const golden::MathCall& call) {
  for (const Unary& unary : kUnary) {
    if (call.function == unary.name && call.arguments.size() == 1) {
      return unary.function(call.arguments[0]);
    }
  }
  for (const Binary& binary : kBinary) {
    if (call.function == binary.name && call.arguments.size() == 2) {
      return binary.function(call.arguments[0], call.arguments[1]);
    }
  }
  throw std::runtime_error("unknown math function: " + call.function);
}

}  // namespace

bool math_library_agrees(const golden::MathCall& call) {
  return golden::canonical_bits(answer(call)) == golden::canonical_bits(call.result);
}

bool math_library_agrees(const golden::Case& c) {
  bool agrees = true;
  for (const golden::MathCall& call : c.math_calls) {
    agrees = math_library_agrees(call) && agrees;
  }
  return agrees;
}

}  // namespace verify
