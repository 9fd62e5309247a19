#include "golden/functions.h"

namespace golden {

const Function* find_function(const Group& group, const std::string& name) {
  for (const Function& function : group.functions) {
    if (name == function.name) {
      return &function;
    }
  }
  return nullptr;
}

}  // namespace golden
