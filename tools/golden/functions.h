#ifndef ALIDADE_TOOLS_GOLDEN_FUNCTIONS_H
#define ALIDADE_TOOLS_GOLDEN_FUNCTIONS_H

// The functions that golden cases name. alidade-verify binds each name to the library, the generator binds the same
// name to the literal reference; both read the arguments of a case and write its results in the same order. Where they
// would do it in the same words, golden/cases/ holds the case once, for both.

#include <vector>

#include "golden/case.h"

namespace golden {

struct Function {
  const char* name;
  void (*run)(Arguments& in, Tokens& out);
};

// One file of cases.
struct Group {
  const char* name;   // of the file, without .txt
  const char* about;  // one line for its head
  std::vector<Function> functions;
};

const Function* find_function(const Group& group, const std::string& name);

// All groups, in the order of the report. Defined once by each program.
const std::vector<Group>& all_groups();

}  // namespace golden

#endif
