#include "record.h"

#include <charconv>
#include <cmath>
#include <locale>
#include <sstream>

namespace network {
namespace {

std::vector<std::string> split(const std::string& text) {
  std::istringstream stream(text);
  std::vector<std::string> words;
  for (std::string word; stream >> word;) {
    words.push_back(word);
  }
  return words;
}

// The whole text as a decimal number, whatever the locale. Infinities and NaN are no measurements. (std::from_chars
// would do, but older standard libraries lack it for doubles.)
bool parse(const std::string& text, double& value) {
  std::istringstream stream(text);
  stream.imbue(std::locale::classic());
  stream >> value;
  return text.find_first_not_of("+-.0123456789eE") == std::string::npos && !stream.fail() && stream.eof() &&
         std::isfinite(value);
}

bool parse(const std::string& text, int& value) {
  const char* end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, value);
  return result.ec == std::errc() && result.ptr == end;
}

}  // namespace

void fail(const std::string& file, int line, const std::string& message) {
  throw InputError(file + ":" + std::to_string(line) + ": " + message);
}

Record::Record(const std::string& file, int line, const std::string& text)
    : file_(file), line_(line), fields_(split(text.substr(0, text.find('#')))) {}

void Record::expect_layout(const std::string& layout) {
  names_ = split(layout);
  const std::size_t found = fields_.size() - 1;
  if (found != names_.size()) {
    fail("expected \"" + type() + " " + layout + "\", " + std::to_string(names_.size()) + " fields after " + type() +
         ", found " + std::to_string(found));
  }
}

std::string Record::text() { return fields_[++next_]; }

double Record::number() {
  double value = 0;
  if (!parse(text(), value)) {
    fail_at_field("a number");
  }
  return value;
}

double Record::positive_number() {
  const double value = number();
  if (!(value > 0)) {
    fail_at_field("a positive number");
  }
  return value;
}

int Record::index() {
  int value = 0;
  if (!parse(text(), value) || value < 0) {
    fail_at_field("a whole number from 0");
  }
  return value;
}

void Record::fail(const std::string& expected) const { network::fail(file_, line_, expected); }

void Record::fail_at_field(const std::string& expected) const {
  fail("expected " + expected + " for " + names_[next_ - 1] + ", found \"" + fields_[next_] + "\"");
}

}  // namespace network
