#include "golden/functions.h"
#include "subject.h"

namespace golden {
namespace {

// A counted list is always passed with this many values; the count says how many of them are looked at.
using Count = Within<-2147483647 - 1, 20>;
using Integers = std::array<int, 20>;
using Numbers = std::array<double, 20>;
using Exponent = Within<-1000, 1000>;  // the time grows with it

// Neither argument is changed.
template <class Integer>
std::tuple<int, bool> rotated(int value, int shift) {
  auto v = static_cast<Integer>(value);
  const auto before = v;
  int s = shift;
  const int result = ishc(v, s);
  return {result, v == before && s == shift};
}

}  // namespace

Group scalars() {
  return {
      "scalars",
      "counted extremes, powers, signs, rotations, neighbouring numbers",
      {
          {"min1", [](Count n, Integers list) { return std::apply([n](auto... v) { return min1(n, v...); }, list); }},
          {"max1", [](Count n, Integers list) { return std::apply([n](auto... v) { return max1(n, v...); }, list); }},
          {"amin1", [](Count n, Numbers list) { return std::apply([n](auto... v) { return amin1(n, v...); }, list); }},
          {"amax1", [](Count n, Numbers list) { return std::apply([n](auto... v) { return amax1(n, v...); }, list); }},
          {"power(double)", [](double x, Exponent n) { return power(x, static_cast<int>(n)); }},
          {"power(int)", [](int a, Exponent n) { return power(a, static_cast<int>(n)); }},
          {"sign(int)", [](int a, int b) { return sign(a, b); }},
          {"sign(double)", [](double a, double b) { return sign(a, b); }},
          {"ishc(long)", rotated<long>},
          {"ishc(short)", rotated<short>},
          {"ishc(char)", rotated<char>},
          {"nearest(double)", [](double x, double s) { return nearest(x, s); }},
          {"nearest(float)", [](float x, float s) { return nearest(x, s); }},
      }};
}

}  // namespace golden
