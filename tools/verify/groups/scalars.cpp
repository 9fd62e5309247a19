#include <alidade/matrix.h>

#include <tuple>

#include "verify/groups/groups.h"

namespace verify {
namespace {

using golden::Arguments;
using golden::Tokens;

// A counted list is always passed with this many values; the count says how many of them are looked at.
constexpr int kListed = 20;

template <class Function, class List>
auto call(Function function, int count, const List& list) {
  return std::apply([&](auto... values) { return function(count, values...); }, list);
}

template <class Integer>
void rotate(Arguments& in, Tokens& out) {
  Integer v = static_cast<Integer>(in.integer());
  int s = in.integer();
  const Integer v_before = v;
  const int s_before = s;
  out.integer(ishc(v, s)).integer(v == v_before && s == s_before);
}

}  // namespace

golden::Group scalars() {
  return {"scalars",
          "counted extremes, powers, signs, rotations, neighbouring numbers",
          {
              {"min1",
               [](Arguments& in, Tokens& out) {
                 const int count = in.integer();
                 out.integer(call(min1, count, in.integers<kListed>()));
               }},
              {"max1",
               [](Arguments& in, Tokens& out) {
                 const int count = in.integer();
                 out.integer(call(max1, count, in.integers<kListed>()));
               }},
              {"amin1",
               [](Arguments& in, Tokens& out) {
                 const int count = in.integer();
                 out.number(call(amin1, count, in.numbers<kListed>()));
               }},
              {"amax1",
               [](Arguments& in, Tokens& out) {
                 const int count = in.integer();
                 out.number(call(amax1, count, in.numbers<kListed>()));
               }},
              {"power(double)",
               [](Arguments& in, Tokens& out) {
                 const double x = in.number();
                 out.number(power(x, in.integer()));
               }},
              {"power(int)",
               [](Arguments& in, Tokens& out) {
                 const int a = in.integer();
                 out.integer(power(a, in.integer()));
               }},
              {"sign(int)",
               [](Arguments& in, Tokens& out) {
                 const int a = in.integer();
                 out.integer(sign(a, in.integer()));
               }},
              {"sign(double)",
               [](Arguments& in, Tokens& out) {
                 const double a = in.number();
                 out.number(sign(a, in.number()));
               }},
              {"ishc(long)", rotate<long>},
              {"ishc(short)", rotate<short>},
              {"ishc(char)", rotate<char>},
              {"nearest(double)",
               [](Arguments& in, Tokens& out) {
                 const double x = in.number();
                 out.number(nearest(x, in.number()));
               }},
              {"nearest(float)",
               [](Arguments& in, Tokens& out) {
                 const float x = static_cast<float>(in.number());
                 out.number(nearest(x, static_cast<float>(in.number())));
               }},
          }};
}

}  // namespace verify
