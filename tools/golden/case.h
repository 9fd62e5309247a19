#ifndef ALIDADE_TOOLS_GOLDEN_CASE_H
#define ALIDADE_TOOLS_GOLDEN_CASE_H

// One golden case is one line under the heading of its function:
//
//     [<class> <function>]
//     <arguments> -> <results> [; <math function> <arguments> <result>]...
//
// tests/golden/README.md describes the file for its readers.

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

namespace golden {

// One call of the math library that the literal reference made while it computed the results.
struct MathCall {
  std::string function;
  std::vector<double> arguments;
  double result = 0;
};

struct Case {
  char bit_class = 'A';
  std::string function;
  std::vector<std::string> arguments;
  std::vector<std::string> results;
  std::vector<MathCall> math_calls;
};

// Reads a heading into a case without anything else, and one line under it. Both throw std::runtime_error with the
// reason when the text is neither.
Case parse_heading(const std::string& line);
Case parse_case(const Case& heading, const std::string& line);

std::string format_heading(const Case& c);
std::string format_call(const MathCall& call);
std::string format_case(const Case& c);

// The arguments of a case, taken from left to right. Drawn numbers come one by one as if each were written out.
class Arguments {
public:
  explicit Arguments(const std::vector<std::string>& tokens);

  double number();
  int integer() { return integer(std::numeric_limits<int>::min(), std::numeric_limits<int>::max()); }
  int integer(int lowest, int highest);
  std::uint64_t seed();
  std::string word();
  char code();  // a quoted character: '=' or '\0' or '\xff'
  bool done() const { return next_ == tokens_.size(); }
  const std::vector<std::string>& list() const { return tokens_; }

private:
  const std::string& next();

  std::vector<std::string> tokens_;
  std::size_t next_ = 0;
};

// The results of a case, or the arguments of one being written, from left to right.
class Tokens {
public:
  Tokens& number(double v);
  Tokens& integer(long long v);
  Tokens& word(const std::string& text);
  Tokens& code(char c);
  Tokens& numbers(const double* v, std::size_t n);
  // The next n numbers that the seed makes, as "<n>*<kind>@<seed>".
  Tokens& drawn(std::size_t n, const std::string& kind, std::uint64_t seed);
  Tokens& append(const Tokens& other);
  Tokens& hash(const std::vector<double>& values);
  const std::vector<std::string>& list() const { return list_; }

private:
  std::vector<std::string> list_;
};

// The words with a space between them, and the hash that a case may keep in their place.
std::string joined(const std::vector<std::string>& words);
std::string hash_of_words(const std::vector<std::string>& words);

// Whether these are the results that the case keeps, in words or as their hash.
bool are_results_of(const Case& c, const Tokens& results);

}  // namespace golden

#endif
