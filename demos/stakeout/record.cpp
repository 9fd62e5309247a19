#include "record.h"

#include <cmath>
#include <locale>
#include <sstream>

namespace stakeout {

void fail(const Place& place, const std::string& message) {
  throw InputError(place.file + ":" + std::to_string(place.line) + ": " + message);
}

Record::Record(Place place, const std::string& text) : place_(std::move(place)) {
  std::istringstream words(text.substr(0, text.find('#')));
  for (std::string word; words >> word;) {
    words_.push_back(word);
  }
}

void Record::expect(const std::vector<std::string>& names) {
  names_ = names;
  if (words_.size() == names.size() + 1) {
    return;
  }
  std::string layout = keyword();
  for (const std::string& name : names) {
    layout += " <" + name + ">";
  }
  fail(place_, "expected " + layout + ", found " + std::to_string(words_.size() - 1) + " fields after " + keyword());
}

std::string Record::word() { return words_[next_++]; }

// A decimal number, whatever the locale. Infinities and NaN are no coordinates. (std::from_chars would do, but older
// standard libraries lack it for doubles.)
double Record::number() {
  const std::string text = word();
  std::istringstream stream(text);
  stream.imbue(std::locale::classic());
  double value = 0.0;
  stream >> value;
  if (text.find_first_not_of("+-.0123456789eE") != std::string::npos || stream.fail() || !stream.eof() ||
      !std::isfinite(value)) {
    fail_at_last_field("a number");
  }
  return value;
}

double Record::number_not_negative() {
  const double value = number();
  if (value < 0.0) {
    fail_at_last_field("a number that is not negative");
  }
  return value;
}

std::string Record::rest() const {
  std::string text;
  for (std::size_t i = 1; i < words_.size(); ++i) {
    text += (i == 1 ? "" : " ") + words_[i];
  }
  return text;
}

void Record::fail_at_last_field(const std::string& expected) const {
  fail(place_, "expected " + expected + " for <" + names_[next_ - 2] + ">, found \"" + words_[next_ - 1] + "\"");
}

}  // namespace stakeout
