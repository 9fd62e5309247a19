#ifndef STAKEOUT_RECORD_H
#define STAKEOUT_RECORD_H

#include <stdexcept>
#include <string>
#include <vector>

namespace stakeout {

// The input is at fault. what() is the whole message, "file:line: expected ..., found ...".
class InputError : public std::runtime_error {
public:
  using std::runtime_error::runtime_error;
};

// Where something stands in the input, for messages.
struct Place {
  std::string file;
  int line = 0;
};

[[noreturn]] void fail(const Place& place, const std::string& message);

// One line of the input: a keyword and fields, separated by blanks. A '#' and all after it is a comment.
class Record {
public:
  Record(Place place, const std::string& text);

  bool empty() const { return words_.empty(); }
  const Place& place() const { return place_; }
  const std::string& keyword() const { return words_.front(); }

  // The names of the fields that must follow the keyword, neither more nor fewer.
  void expect(const std::vector<std::string>& names);

  // The next field, under the name it was expected by.
  std::string word();
  double number();
  double number_not_negative();

  // All that follows the keyword.
  std::string rest() const;

private:
  [[noreturn]] void fail_at_last_field(const std::string& expected) const;

  Place place_;
  std::vector<std::string> words_;
  std::vector<std::string> names_;
  std::size_t next_ = 1;
};

}  // namespace stakeout

#endif
