#ifndef ALIDADE_TOOLS_GOLDEN_FUNCTIONS_H
#define ALIDADE_TOOLS_GOLDEN_FUNCTIONS_H

// The functions that golden cases name. cases/ describes each of them once, in the words of a host of the library. The
// description is compiled twice: for alidade-verify with the library's headers, and for the generator with literal
// types of the same names in front of the reference (tests/golden/literal/).

#include <array>
#include <functional>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

#include "golden/case.h"

namespace golden {

// An integer argument with its limits: a size in a damaged line must not decide how much memory is taken, or for how
// long a case runs.
template <int lowest, int highest>
class Within {
public:
  explicit Within(Arguments& in) : value_(in.integer(lowest, highest)) {}
  operator int() const { return value_; }  // NOLINT(google-explicit-constructor)

private:
  int value_;
};
using Size = Within<0, 2048>;

template <class T, std::size_t count>
std::array<T*, count> fields(std::array<T, count>& list) {
  std::array<T*, count> pointers{};
  for (std::size_t i = 0; i < count; ++i) {
    pointers[i] = &list[i];
  }
  return pointers;
}

// One argument of a case. Records of numbers name them by a function `fields` beside their type.
template <class T>
T read(Arguments& in) {
  if constexpr (std::is_constructible_v<T, Arguments&>) {
    return T(in);
  } else if constexpr (std::is_same_v<T, char>) {
    return in.code();
  } else if constexpr (std::is_integral_v<T>) {
    return in.integer();
  } else if constexpr (std::is_floating_point_v<T>) {
    return static_cast<T>(in.number());
  } else {
    T record;
    for (auto* field : fields(record)) {
      *field = read<std::decay_t<decltype(*field)>>(in);
    }
    return record;
  }
}

// The results of a case; of a vector, as the buffers of matrices are, the hash.
template <class T>
void write(Tokens& out, const T& result) {
  if constexpr (std::is_integral_v<T>) {
    out.integer(result);
  } else if constexpr (std::is_floating_point_v<T>) {
    out.number(result);
  } else if constexpr (std::is_same_v<T, std::vector<double>>) {
    out.hash(result);
  } else {
    T record = result;
    for (auto* field : fields(record)) {
      write(out, *field);
    }
  }
}

template <class... T>
void write(Tokens& out, const std::tuple<T...>& results) {
  std::apply([&](const auto&... result) { (write(out, result), ...); }, results);
}

struct Function {
  // Arguments are read in the order of the parameters of f; what it returns is written.
  template <class F>
  Function(std::string function_name, F f) : name(std::move(function_name)), run(bound(+f)) {}

  std::string name;
  std::function<void(Arguments& in, Tokens& out)> run;

private:
  template <class Result, class... Argument>
  static std::function<void(Arguments&, Tokens&)> bound(Result (*f)(Argument...)) {
    return [f]([[maybe_unused]] Arguments& in, Tokens& out) {
      std::tuple<std::decay_t<Argument>...> arguments{read<std::decay_t<Argument>>(in)...};  // in this order
      write(out, std::apply(f, arguments));
    };
  }
};

// One file of cases.
struct Group {
  std::string name;   // of the file, without .txt
  std::string about;  // one line for its head
  std::vector<Function> functions;
};

const Function* find_function(const Group& group, const std::string& name);

// All groups, in the order of the report.
std::vector<Group> all_groups();

Group coordinates();
Group conversions();
Group local_frames();
Group angles();
Group points();
Group rectangles();
Group lines();
Group arcs();
Group triads();
Group covariances();
Group matrices3();
Group eigen();
Group storage();
Group products();
Group operators();
Group inversion();
Group scalars();
Group chi_square();
Group tau();

}  // namespace golden

#endif
