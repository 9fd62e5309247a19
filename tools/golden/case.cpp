#include "golden/case.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <stdexcept>

#include "golden/hash.h"
#include "golden/hex_float.h"

namespace golden {
namespace {

double number_from(const std::string& text) {
  double v = 0;
  if (!from_text(text, v)) {
    throw std::runtime_error("not a hex float: " + text);
  }
  return v;
}

// Reads "<function> <argument>... <result>" up to the next ";" or the end.
MathCall read_math_call(std::istringstream& in) {
  MathCall call;
  in >> call.function;
  std::string token;
  while (in >> token && token != ";") {
    call.arguments.push_back(number_from(token));
  }
  if (call.arguments.size() < 2) {
    throw std::runtime_error("a recorded call needs an argument and a result");
  }
  call.result = call.arguments.back();
  call.arguments.pop_back();
  return call;
}

}  // namespace

Case parse_case(const std::string& line) {
  std::istringstream in(line);
  Case c;
  std::string token;
  in >> token >> c.function;
  if (token.size() != 1 || c.function.empty()) {
    throw std::runtime_error("a case starts with its class and its function");
  }
  c.bit_class = token[0];
  while (in >> token && token != "->") {
    c.arguments.push_back(token);
  }
  if (token != "->") {
    throw std::runtime_error("no results");
  }
  while (in >> token && token != ";") {
    c.results.push_back(token);
  }
  while (in) {
    c.math_calls.push_back(read_math_call(in));
  }
  return c;
}

std::string format_call(const MathCall& call) {
  std::string text = call.function;
  for (const double argument : call.arguments) {
    text += ' ' + to_text(argument);
  }
  return text + ' ' + to_text(call.result);
}

std::string format_case(const Case& c) {
  std::string line(1, c.bit_class);
  line += ' ' + c.function;
  for (const std::string& argument : c.arguments) {
    line += ' ' + argument;
  }
  line += " ->";
  for (const std::string& result : c.results) {
    line += ' ' + result;
  }
  for (const MathCall& call : c.math_calls) {
    line += " ; " + format_call(call);
  }
  return line;
}

const std::string& Arguments::next() {
  if (done()) {
    throw std::runtime_error("too few arguments");
  }
  return (*tokens_)[next_++];
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

std::uint64_t Arguments::seed() {
  const std::string& text = next();
  char* end = nullptr;
  const std::uint64_t v = std::strtoull(text.c_str(), &end, 10);
  if (end == text.c_str() || *end != '\0') {
    throw std::runtime_error("not a seed: " + text);
  }
  return v;
}

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

Tokens& Tokens::append(const Tokens& other) {
  list_.insert(list_.end(), other.list_.begin(), other.list_.end());
  return *this;
}

Tokens& Tokens::hash(const std::vector<double>& values) {
  const std::uint64_t hash = hash_of(values.data(), values.size());
  char text[32];
  std::snprintf(text, sizeof text, "#%08lx%08lx", static_cast<unsigned long>(hash >> 32),
                static_cast<unsigned long>(hash & 0xffffffffU));
  return word(text);
}

}  // namespace golden
