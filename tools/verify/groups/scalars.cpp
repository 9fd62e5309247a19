#include <alidade/matrix.h>

#include "verify/groups/groups.h"

namespace verify {
namespace {

using golden::Arguments;
using golden::Tokens;

// A counted list is always passed with this many values; the count says how many of them are looked at.
constexpr int kListed = 20;

struct Integers {
  int count;
  int v[kListed];
  explicit Integers(Arguments& in) : count(in.integer()) {
    for (int& value : v) {
      value = in.integer();
    }
  }
};

struct Numbers {
  int count;
  double v[kListed];
  explicit Numbers(Arguments& in) : count(in.integer()) { in.numbers(v, kListed); }
};

template <class Function, class List>
auto call(Function function, const List& l) {
  return function(l.count, l.v[0], l.v[1], l.v[2], l.v[3], l.v[4], l.v[5], l.v[6], l.v[7], l.v[8], l.v[9], l.v[10],
                  l.v[11], l.v[12], l.v[13], l.v[14], l.v[15], l.v[16], l.v[17], l.v[18], l.v[19]);
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
              {"min1", [](Arguments& in, Tokens& out) { out.integer(call(min1, Integers(in))); }},
              {"max1", [](Arguments& in, Tokens& out) { out.integer(call(max1, Integers(in))); }},
              {"amin1", [](Arguments& in, Tokens& out) { out.number(call(amin1, Numbers(in))); }},
              {"amax1", [](Arguments& in, Tokens& out) { out.number(call(amax1, Numbers(in))); }},
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
