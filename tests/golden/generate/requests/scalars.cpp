#include "golden/generate/requests.h"
#include "golden/generate/requests/awkward.h"

namespace generate {
namespace {

using golden::Tokens;

constexpr int kListed = 20;

// 0, 1, 2, ...
Tokens integers_of(int n) {
  Tokens tokens;
  for (int k = 0; k < n; ++k) {
    tokens.integer(k);
  }
  return tokens;
}

}  // namespace

Requests scalars_requests(std::uint64_t round) {
  Requests r(505, round);
  for (int i = 0; i < 120; ++i) {
    const int count = i < 60 ? i % 21 : r.between(2, kListed);
    Tokens integers;
    integers.integer(count);
    for (int k = 0; k < kListed; ++k) {
      integers.integer(r.between(-50, 50));
    }
    r.add('A', i % 2 == 0 ? "min1" : "max1", integers);
    r.add('A', i % 2 == 0 ? "amin1" : "amax1",
          Tokens().integer(count).append(r.numbers(i % 4 < 2   ? "whole"
                                                   : i % 8 < 4 ? "short"
                                                               : "nasty",
                                                   kListed)));
  }
  for (int i = 0; i < 40; ++i) {  // zeros of both signs: the first of equals is kept
    Tokens zeros;
    zeros.integer(r.between(2, kListed));
    for (int k = 0; k < kListed; ++k) {
      zeros.number(r.below(2) == 0 ? 0.0 : -0.0);
    }
    r.add('A', i % 2 == 0 ? "amin1" : "amax1", zeros);
  }
  for (int n = -34; n <= 34; ++n) {
    for (const double x : {2.0, -1.5, 0.0, -0.0, 1.0000001, 10.0}) {
      r.add('B', "power(double)", Tokens().number(x).integer(n));
    }
    for (const int a : {0, 1, -1, 2, -2, 3, 10, -2147483647 - 1}) {
      r.add('A', "power(int)", Tokens().integer(a).integer(n));
    }
  }
  for (int i = 0; i < 150; ++i) {
    r.add('B', "power(double)", r.numbers(r.kind(), 1).integer(r.between(-60, 60)));
    r.add('A', "power(int)", Tokens().integer(r.between(-100, 100)).integer(r.between(0, 31)));
  }
  for (const int a : {0, 3, -3, 2147483647, -2147483647 - 1}) {
    for (const int b : {0, 1, -1, 2147483647, -2147483647 - 1}) {
      r.add('A', "sign(int)", Tokens().integer(a).integer(b));
    }
  }
  r.add_numbers('A', "sign(double)", 2, 120);
  for (int shift = -40; shift <= 40; ++shift) {
    r.add('A', "ishc(long)", Tokens().integer(r.any_integer()).integer(shift));
    r.add('A', "ishc(short)", Tokens().integer(r.between(-32768, 32767)).integer(shift));
    r.add('A', "ishc(char)", Tokens().integer(r.between(0, 127)).integer(shift));
  }
  for (const int shift : {2147483647, -2147483647 - 1}) {
    r.add('A', "ishc(long)", Tokens().integer(1).integer(shift));
    r.add('A', "ishc(short)", Tokens().integer(1).integer(shift));
    r.add('A', "ishc(char)", Tokens().integer(1).integer(shift));
  }
  for (const double s2 : {1.0, -1.0, 0.0, -0.0}) {
    for (const double x :
         {1.0, -1.0, 0.0, 0x0.0000000000001p-1022, 0x1p-1022, 0x1p-967, 0x1.fffffffffffffp+1023, 0x1p+52}) {
      r.add('A', "nearest(double)", Tokens().number(x).number(s2));
    }
    for (const double x : {1.0, -1.0, 0.0, 0x1p-149, 0x1p-126, 0x1p-104, 0x1.fffffep+127, 0x1p+24}) {
      r.add('A', "nearest(float)", Tokens().number(x).number(s2));
    }
  }
  r.add_numbers('A', "nearest(double)", 2, 120);
  for (int i = 0; i < 120; ++i) {
    r.add('A', "nearest(float)", r.numbers(i % 3 == 0 ? "whole" : "short", 2));
  }
  // Counts below two are two; the others follow the count, not the list.
  for (const int count : {-2147483647 - 1, -2147483647, -2, -1, 0, 1, 2, 19, 20}) {
    Tokens integers;
    for (int k = 0; k < kListed; ++k) {
      integers.integer(r.below(3) == 0 ? r.any_integer() : r.between(-2, 2));
    }
    for (const char* function : {"min1", "max1"}) {
      r.add('A', function, Tokens().integer(count).append(integers));
    }
    // The third value would decide if it were looked at.
    r.add('A', "min1", Tokens().integer(count).integer(3).integer(4).integer(-9).append(integers_of(17)));
    r.add('A', "max1", Tokens().integer(count).integer(3).integer(4).integer(9).append(integers_of(17)));
    for (const char* function : {"amin1", "amax1"}) {
      r.add('A', function, Tokens().integer(count).append(r.numbers("short", kListed)));
    }
  }
  add_awkward_scalars(r, round);
  return r;
}

}  // namespace generate
