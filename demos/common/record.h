#ifndef ALIDADE_DEMOS_RECORD_H
#define ALIDADE_DEMOS_RECORD_H

// Text files of records, one a line: a type and fields, separated by blanks; a '#' and everything after it is a
// comment. Errors tell the reader of a file what he needs: where, what was expected there, what was found.

#include <cstddef>
#include <fstream>
#include <functional>
#include <istream>
#include <stdexcept>
#include <string>
#include <vector>

namespace demo {

// The input is at fault. what() is the whole message, "file:line: expected ..., found ...".
class InputError : public std::runtime_error {
public:
  using std::runtime_error::runtime_error;
};

struct Place {
  std::string file;
  int line = 1;
};

[[noreturn]] void fail(const Place& place, const std::string& message);

class Record {
public:
  Record(const Place& place, const std::string& text);

  bool empty() const { return fields_.empty(); }
  const Place& place() const { return place_; }
  const std::string& type() const { return fields_.front(); }

  // Names the fields that follow the type, separated by blanks. There must be exactly so many.
  void expect_layout(const std::string& layout);

  // The fields in order. Each call moves on to the next field; errors name the field as the layout does. Numbers are
  // decimal, with a point, whatever the locale; an exponent may be Fortran's, 5.8D-05.
  std::string text();
  double number();
  double number_between(double least, double most);
  double positive_number();
  int index();  // a whole number, not negative

  // All that follows the type.
  std::string rest() const;

  [[noreturn]] void fail(const std::string& expected) const;
  // The same with the last field taken as what was found.
  [[noreturn]] void fail_at_field(const std::string& expected) const;

private:
  const Place& place_;
  std::vector<std::string> fields_;
  std::vector<std::string> names_;
  std::size_t next_ = 0;
};

struct RecordType {
  const char* type;
  const char* layout;  // as expect_layout takes it; null: free text
  std::function<void(Record&)> read;
};

// Calls read for each record of the input. A byte-order mark and the line ends of other systems are skipped. name is
// how messages call the input. Returns the last line's place, for what is missing in the whole.
Place read_records(std::istream& input, const std::string& name, const std::vector<RecordType>& types);

// Opened, or an InputError.
std::ifstream open_input(const std::string& path);

}  // namespace demo

#endif
