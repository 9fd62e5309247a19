#ifndef ALIDADE_BENCHMARKS_MEMORY_H
#define ALIDADE_BENCHMARKS_MEMORY_H

#include <functional>
#include <string>

namespace benchmarks {

// Prints the bytes of heap and of stack that one call takes: "memory of work|size|heap|bytes|", and the same for stack.
void print_memory(const std::string& work, int size, const std::function<void()>& call);

}  // namespace benchmarks

#endif
