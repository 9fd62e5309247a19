#include "golden/generate/recorded_math.h"

#include <cstdlib>

namespace generate {
namespace {

RecordedMath* active = nullptr;

double note(const char* function, std::vector<double> arguments, double result) {
  if (active != nullptr) {
    active->add({function, std::move(arguments), result});
  }
  return result;
}

}  // namespace

RecordedMath::RecordedMath() { active = this; }

RecordedMath::~RecordedMath() { active = nullptr; }

// A call with arguments already seen needs no second line.
void RecordedMath::add(const golden::MathCall& call) {
  for (const golden::MathCall& known : calls_) {
    if (known.function == call.function && golden::format_call(known) == golden::format_call(call)) {
      return;
    }
  }
  calls_.push_back(call);
}

}  // namespace generate

// The names are the linker's: with --wrap=sin a call of sin goes to __wrap_sin, and __real_sin is the library's.
// NOLINTBEGIN(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp)
#define ALIDADE_RECORD_UNARY(function) \
  double __real_##function(double x);  \
  double __wrap_##function(double x) { return generate::note(#function, {x}, __real_##function(x)); }
#define ALIDADE_RECORD_BINARY(function)         \
  double __real_##function(double x, double y); \
  double __wrap_##function(double x, double y) { return generate::note(#function, {x, y}, __real_##function(x, y)); }

extern "C" {
ALIDADE_RECORD_UNARY(sin)
ALIDADE_RECORD_UNARY(cos)
ALIDADE_RECORD_UNARY(atan)
ALIDADE_RECORD_UNARY(asin)
ALIDADE_RECORD_UNARY(acos)
ALIDADE_RECORD_UNARY(sinh)
ALIDADE_RECORD_UNARY(cosh)
ALIDADE_RECORD_UNARY(log)
ALIDADE_RECORD_BINARY(atan2)
ALIDADE_RECORD_BINARY(pow)

// A compiler that merges sin and cos would slip past the record.
void __wrap_sincos(double, double*, double*) { std::abort(); }
}
// NOLINTEND(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp)
