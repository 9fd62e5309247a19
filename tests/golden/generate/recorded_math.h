#ifndef ALIDADE_TESTS_GOLDEN_GENERATE_RECORDED_MATH_H
#define ALIDADE_TESTS_GOLDEN_GENERATE_RECORDED_MATH_H

#include <vector>

#include "golden/case.h"

namespace generate {

// While one of these lives, every call of the math library made by the literal reference is written down.
//
// The linker does it (--wrap): in this program the symbol sin means the recording function, which calls the real one.
// The reference sources know nothing of it and are the very objects that the tests use.
class RecordedMath {
public:
  RecordedMath();
  ~RecordedMath();
  RecordedMath(const RecordedMath&) = delete;
  RecordedMath& operator=(const RecordedMath&) = delete;

  const std::vector<golden::MathCall>& calls() const { return calls_; }
  void add(const golden::MathCall& call);

private:
  std::vector<golden::MathCall> calls_;
};

}  // namespace generate

#endif
