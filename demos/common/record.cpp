#include "common/record.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstring>
#include <locale>
#include <sstream>

#include "common/text.h"

namespace demo {
namespace {

std::vector<std::string> split(const std::string& text) {
  std::istringstream stream(text);
  std::vector<std::string> words;
  for (std::string word; stream >> word;) {
    words.push_back(word);
  }
  return words;
}

// The whole text as a decimal number. Infinities and NaN are no measurements. (std::from_chars would do, but older
// standard libraries lack it for doubles.)
bool parse(std::string text, double& value) {
  for (char& c : text) {
    c = c == 'd' || c == 'D' ? 'e' : c;
  }
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

void read_record(Record& record, const std::vector<RecordType>& types) {
  std::string known;
  for (const RecordType& type : types) {
    if (record.type() == type.type) {
      if (type.layout != nullptr) {
        record.expect_layout(type.layout);
      }
      type.read(record);
      return;
    }
    known += (known.empty() ? "" : ", ") + std::string(type.type);
  }
  record.fail("expected one of the record types " + known + ", found \"" + record.type() + "\"");
}

}  // namespace

void fail(const Place& place, const std::string& message) {
  throw InputError(place.file + ":" + std::to_string(place.line) + ": " + message);
}

Record::Record(const Place& place, const std::string& text)
    : place_(place), fields_(split(text.substr(0, text.find('#')))) {}

void Record::expect_layout(const std::string& layout) {
  names_ = split(layout);
  const std::size_t found = fields_.size() - 1;
  if (found != names_.size()) {
    fail("expected \"" + type() + " " + layout + "\", found " + std::to_string(found) +
         (found == 1 ? " field after " : " fields after ") + type());
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

double Record::number_between(double least, double most) {
  const double value = number();
  if (value < least || value > most) {
    fail_at_field(format("a number from %.10g to %.10g", least, most));
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

std::string Record::rest() const {
  std::string text;
  for (std::size_t k = 1; k < fields_.size(); ++k) {
    text += (k == 1 ? "" : " ") + fields_[k];
  }
  return text;
}

void Record::fail(const std::string& expected) const { demo::fail(place_, expected); }

void Record::fail_at_field(const std::string& expected) const {
  fail("expected " + expected + " for " + names_[next_ - 1] + ", found \"" + fields_[next_] + "\"");
}

Place read_records(std::istream& input, const std::string& name, const std::vector<RecordType>& types) {
  Place place{name, 0};
  for (std::string text; std::getline(input, text);) {
    if (++place.line == 1 && text.rfind("\xEF\xBB\xBF", 0) == 0) {
      text.erase(0, 3);
    }
    Record record(place, text);
    if (!record.empty()) {
      read_record(record, types);
    }
  }
  if (input.bad()) {
    fail({name, place.line + 1}, "expected a readable file");
  }
  place.line = std::max(place.line, 1);
  return place;
}

std::ifstream open_input(const std::string& path) {
  std::ifstream input(path);
  if (!input) {
    throw InputError(path + ": expected a readable file: " + std::strerror(errno));
  }
  return input;
}

}  // namespace demo
