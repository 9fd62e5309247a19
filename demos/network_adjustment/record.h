#ifndef NETWORK_ADJUSTMENT_RECORD_H
#define NETWORK_ADJUSTMENT_RECORD_H

// One line of a network file, split into fields, with the errors a reader of the file needs: where, and what was
// expected there.

#include <cstddef>
#include <stdexcept>
#include <string>
#include <vector>

namespace network {

// The input is at fault. what() is the whole message, "file:line: expected ..., found ...".
class InputError : public std::runtime_error {
public:
  using std::runtime_error::runtime_error;
};

[[noreturn]] void fail(const std::string& file, int line, const std::string& message);

class Record {
public:
  // A '#' and everything after it is a comment.
  Record(const std::string& file, int line, const std::string& text);

  bool empty() const { return fields_.empty(); }
  int line() const { return line_; }
  const std::string& type() const { return fields_.front(); }

  // Names the fields that follow the type, separated by blanks. There must be exactly so many.
  void expect_layout(const std::string& layout);

  // The fields in order. Each call moves on to the next field; errors name the field as the layout does.
  std::string text();
  double number();
  double positive_number();
  int index();  // a whole number, not negative

  [[noreturn]] void fail(const std::string& expected) const;
  // The same with the last field taken as what was found.
  [[noreturn]] void fail_at_field(const std::string& expected) const;

private:
  const std::string& file_;
  int line_;
  std::vector<std::string> fields_;
  std::vector<std::string> names_;
  std::size_t next_ = 0;
};

}  // namespace network

#endif
