#include "golden/case.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <stdexcept>

#include "golden/hash.h"
#include "golden/hex_float.h"
#include "golden/inputs.h"

namespace golden {
namespace {

double number_from(const std::string& text) {
  double v = 0;
  if (!from_text(text, v)) {
    throw std::runtime_error("not a hex float: " + text);
  }
  return v;
}

std::uint64_t natural_from(const std::string& text) {
  char* end = nullptr;
  errno = 0;
  const unsigned long long v = std::strtoull(text.c_str(), &end, 10);
  if (text.empty() || text[0] < '0' || text[0] > '9' || *end != '\0' || errno != 0) {
    throw std::runtime_error("not a natural number: " + text);
  }
  return v;
}

std::string hash_text(std::uint64_t hash) {
  char text[32];
  std::snprintf(text, sizeof text, "#%08lx%08lx", static_cast<unsigned long>(hash >> 32),
                static_cast<unsigned long>(hash & 0xffffffffU));
  return text;
}

// Reads "<function> <argument>... <result>" up to the next ";" or the end; "=" stands for the arguments of the call
// before.
MathCall read_math_call(std::istringstream& in, const std::vector<MathCall>& before) {
  MathCall call;
  in >> call.function;
  std::string token;
  while (in >> token && token != ";") {
    if (token == "=" && !before.empty()) {
      call.arguments = before.back().arguments;
    } else {
      call.arguments.push_back(number_from(token));
    }
  }
  if (call.arguments.size() < 2) {
    throw std::runtime_error("a recorded call needs an argument and a result");
  }
  call.result = call.arguments.back();
  call.arguments.pop_back();
  return call;
}

std::string arguments_of(const MathCall& call) {
  Tokens tokens;
  return joined(tokens.numbers(call.arguments.data(), call.arguments.size()).list());
}

}  // namespace

Case parse_heading(const std::string& line) {
  Case c;
  if (line.size() < 5 || line[0] != '[' || line[2] != ' ' || line.back() != ']') {
    throw std::runtime_error("not a heading: [<class> <function>]");
  }
  c.bit_class = line[1];
  c.function = line.substr(3, line.size() - 4);
  return c;
}

Case parse_case(const Case& heading, const std::string& line) {
  std::istringstream in(line);
  Case c = heading;
  std::string token;
  while (in >> token && token != "->") {
    c.arguments.push_back(token);
  }
  if (token != "->") {
    throw std::runtime_error("no results");
  }
  while (in >> token && token != ";") {
    c.results.push_back(token);
  }
  if (c.results.empty()) {
    throw std::runtime_error("no results");
  }
  while (in) {
    c.math_calls.push_back(read_math_call(in, c.math_calls));
  }
  return c;
}

std::string format_heading(const Case& c) { return std::string("[") + c.bit_class + ' ' + c.function + ']'; }

std::string format_call(const MathCall& call) {
  return call.function + ' ' + arguments_of(call) + ' ' + to_text(call.result);
}

std::string format_case(const Case& c) {
  std::string line = joined(c.arguments) + (c.arguments.empty() ? "-> " : " -> ") + joined(c.results);
  std::string before;
  for (const MathCall& call : c.math_calls) {
    const std::string arguments = arguments_of(call);
    line += " ; " + call.function + ' ' + (arguments == before ? "=" : arguments) + ' ' + to_text(call.result);
    before = arguments;
  }
  return line;
}

Arguments::Arguments(const std::vector<std::string>& tokens) {
  for (const std::string& token : tokens) {
    const std::size_t star = token.find('*');
    const std::size_t at = token.find('@');
    if (star == std::string::npos || at == std::string::npos || at < star) {
      tokens_.push_back(token);
      continue;
    }
    constexpr unsigned long long kMost = 100;
    const unsigned long long n = natural_from(token.substr(0, star));
    RandomBits bits(natural_from(token.substr(at + 1)));
    const std::string kind = token.substr(star + 1, at - star - 1);
    for (unsigned long long i = 0; i < std::min(n, kMost); ++i) {
      tokens_.push_back(to_text(random_double(bits, kind)));
    }
  }
}

const std::string& Arguments::next() {
  if (done()) {
    throw std::runtime_error("too few arguments");
  }
  return tokens_[next_++];
}

double Arguments::number() { return number_from(next()); }

int Arguments::integer(int lowest, int highest) {
  const std::string& text = next();
  char* end = nullptr;
  errno = 0;
  const long long v = std::strtoll(text.c_str(), &end, 10);
  if (end == text.c_str() || *end != '\0') {
    throw std::runtime_error("not an integer: " + text);
  }
  if (errno != 0 || v < lowest || v > highest) {
    throw std::runtime_error("out of range: " + text);
  }
  return static_cast<int>(v);
}

std::uint64_t Arguments::seed() { return natural_from(next()); }

std::string Arguments::word() { return next(); }

char Arguments::code() {
  const std::string& text = next();
  if (text == "'\\0'") {
    return '\0';
  }
  if (text == "'\\xff'") {
    return static_cast<char>(255);
  }
  if (text.size() != 3 || text.front() != '\'' || text.back() != '\'') {
    throw std::runtime_error("not an operation code: " + text);
  }
  return text[1];
}

Tokens& Tokens::number(double v) { return word(to_text(v)); }

Tokens& Tokens::integer(long long v) { return word(std::to_string(v)); }

Tokens& Tokens::word(const std::string& text) {
  list_.push_back(text);
  return *this;
}

Tokens& Tokens::code(char c) {
  if (c == '\0') {
    return word("'\\0'");
  }
  if (static_cast<unsigned char>(c) == 255) {
    return word("'\\xff'");
  }
  return word(std::string("'") + c + "'");
}

Tokens& Tokens::numbers(const double* v, std::size_t n) {
  for (std::size_t i = 0; i < n; ++i) {
    number(v[i]);
  }
  return *this;
}

Tokens& Tokens::drawn(std::size_t n, const std::string& kind, std::uint64_t seed) {
  return word(std::to_string(n) + '*' + kind + '@' + std::to_string(seed));
}

Tokens& Tokens::append(const Tokens& other) {
  list_.insert(list_.end(), other.list_.begin(), other.list_.end());
  return *this;
}

Tokens& Tokens::hash(const std::vector<double>& values) {
  return word(hash_text(hash_of(values.data(), values.size())));
}

std::string joined(const std::vector<std::string>& words) {
  std::string text;
  for (const std::string& word : words) {
    text += (text.empty() ? "" : " ") + word;
  }
  return text;
}

std::string hash_of_words(const std::vector<std::string>& words) { return hash_text(hash_of(joined(words))); }

bool are_results_of(const Case& c, const Tokens& results) {
  return results.list() == c.results || (c.results.size() == 1 && c.results[0] == hash_of_words(results.list()));
}

}  // namespace golden
