// The text of golden cases: hex floats, cases, hashes, inputs from a seed. alidade-verify stands and falls with them.

#include <cfloat>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>

#include "golden/case.h"
#include "golden/hash.h"
#include "golden/hex_float.h"
#include "golden/inputs.h"
#include "support/bits.h"

namespace {

double read_back(const std::string& text) {
  double v = -12345;
  EXPECT_TRUE(golden::from_text(text, v)) << text;
  return v;
}

TEST(HexFloat, WritesTheCanonicalForm) {
  EXPECT_EQ(golden::to_text(0.0), "0x0p+0");
  EXPECT_EQ(golden::to_text(-0.0), "-0x0p+0");
  EXPECT_EQ(golden::to_text(3.0), "0x1.8p+1");
  EXPECT_EQ(golden::to_text(-1.0), "-0x1p+0");
  EXPECT_EQ(golden::to_text(0.1), "0x1.999999999999ap-4");
  EXPECT_EQ(golden::to_text(DBL_MAX), "0x1.fffffffffffffp+1023");
  EXPECT_EQ(golden::to_text(DBL_MIN), "0x1p-1022");
  EXPECT_EQ(golden::to_text(0x0.8p-1022), "0x0.8p-1022");
  EXPECT_EQ(golden::to_text(0x0.0000000000001p-1022), "0x0.0000000000001p-1022");
  EXPECT_EQ(golden::to_text(HUGE_VAL), "inf");
  EXPECT_EQ(golden::to_text(-HUGE_VAL), "-inf");
}

TEST(HexFloat, EveryNanIsTheSame) {
  EXPECT_EQ(golden::to_text(bits::from(0x7ff8000000000000ULL)), "nan");
  EXPECT_EQ(golden::to_text(bits::from(0xfff8000000000000ULL)), "nan");
  EXPECT_EQ(golden::to_text(bits::from(0x7ff0000000000001ULL)), "nan");
  EXPECT_EQ(golden::canonical_bits(bits::from(0xfff8000000000123ULL)), 0x7ff8000000000000ULL);
}

TEST(HexFloat, EveryBitPatternComesBack) {
  std::mt19937_64 random(20240607);
  for (int i = 0; i < 20000; ++i) {
    std::uint64_t pattern = random();
    if (i % 4 == 0) {
      pattern &= 0x800fffffffffffffULL;  // zero and the subnormals
    } else if (i % 4 == 1) {
      pattern &= 0xffff000000000000ULL;  // short fractions
    }
    const double v = bits::from(pattern);
    const std::string text = golden::to_text(v);
    ASSERT_TRUE(bits::same(read_back(text), v)) << text;
    if (v == v) {
      // An independent reader, where the C library has one.
      ASSERT_TRUE(bits::same(std::strtod(text.c_str(), nullptr), v)) << text;
    }
  }
}

TEST(HexFloat, RefusesAnythingElse) {
  for (const char* text :
       {"", "1.5", "0x", "0x1", "0x1.p+0", "0x2p+0", "0x1p+1024", "0x1p-1023", "0x0.8p-1021", "0x0p+1",
        "0x1.00000000000001p+0", "0x1p+0x", "nan ", "-nan", "infinity", "0X1p+0", "0x1.Ap+0", "+0x1p+0"}) {
    double v = 0;
    EXPECT_FALSE(golden::from_text(text, v)) << text;
  }
}

TEST(GoldenCase, IsReadAndWrittenBack) {
  const std::string line =
      "0x0p+0 '=' 12 -> 0x1p+0 nan ; atan2 0x0p+0 0x1.9p+6 0x0p+0 ; cos 0x0p+0 0x1p+0 ; sin = 0x0p+0";
  const golden::Case c = golden::parse_case(golden::parse_heading("[B neu_to_polar]"), line);
  EXPECT_EQ(c.bit_class, 'B');
  EXPECT_EQ(c.function, "neu_to_polar");
  ASSERT_EQ(c.arguments.size(), 3U);
  EXPECT_EQ(c.results, (std::vector<std::string>{"0x1p+0", "nan"}));
  ASSERT_EQ(c.math_calls.size(), 3U);
  EXPECT_EQ(c.math_calls[0].arguments, (std::vector<double>{0.0, 100.0}));
  EXPECT_EQ(c.math_calls[1].result, 1.0);
  EXPECT_EQ(c.math_calls[2].arguments, (std::vector<double>{0.0}));
  EXPECT_EQ(golden::format_case(c), line);
  EXPECT_EQ(golden::format_heading(c), "[B neu_to_polar]");
  golden::Arguments in(c.arguments);
  CHECK_BITS(in.number(), 0.0);
  EXPECT_EQ(in.code(), '=');
  EXPECT_FALSE(in.done());
  EXPECT_EQ(in.integer(), 12);
  EXPECT_TRUE(in.done());
  EXPECT_ANY_THROW(in.number());
}

TEST(GoldenCase, DamagedLinesAreRefused) {
  for (const char* line :
       {"0x0p+0", "0x0p+0 ->", "-> 0x0p+0 ; sin 0x0p+0", "-> 0x0p+0 ;", "-> 0x0p+0 ; sin = 0x0p+0"}) {
    EXPECT_ANY_THROW(golden::parse_case({}, line)) << line;
  }
  for (const char* heading : {"[A]", "[A ]", "[AB f]", "[A f", "A f"}) {
    EXPECT_ANY_THROW(golden::parse_heading(heading)) << heading;
  }
}

TEST(GoldenCase, DrawnNumbersAreThoseOfTheSeed) {
  golden::RandomBits bits(77);
  bits.next();
  const golden::Tokens drawn = golden::Tokens().drawn(3, "plain", bits.state()).integer(5);
  golden::Arguments in(drawn.list());
  for (int i = 0; i < 3; ++i) {
    CHECK_BITS(in.number(), golden::random_double(bits, "plain"));
  }
  EXPECT_EQ(in.integer(), 5);
  EXPECT_TRUE(in.done());
}

TEST(GoldenCase, IntegersHaveLimits) {
  const std::vector<std::string> tokens = {"5", "6", "-1", "2147483648", "99999999999999999999", "5x", ""};
  golden::Arguments in(tokens);
  EXPECT_EQ(in.integer(0, 5), 5);
  EXPECT_ANY_THROW(in.integer(0, 5));
  EXPECT_ANY_THROW(in.integer(0, 5));
  for (int i = 0; i < 4; ++i) {
    EXPECT_ANY_THROW(in.integer());
  }
}

TEST(GoldenCase, ResultsAreKeptInWordsOrAsTheirHash) {
  golden::Case c;
  c.results = {"0x1p+0", "3"};
  const golden::Tokens same = golden::Tokens().number(1.0).integer(3);
  const golden::Tokens other = golden::Tokens().number(1.0).integer(4);
  EXPECT_TRUE(golden::are_results_of(c, same));
  EXPECT_FALSE(golden::are_results_of(c, other));
  c.results = {golden::hash_of_words(c.results)};
  EXPECT_TRUE(golden::are_results_of(c, same));
  EXPECT_FALSE(golden::are_results_of(c, other));
}

TEST(GoldenCase, OperationCodesComeBack) {
  for (const char code : {'=', '+', '\0', static_cast<char>(255), '|'}) {
    golden::Tokens tokens;
    tokens.code(code);
    EXPECT_EQ(golden::Arguments(tokens.list()).code(), code);
  }
}

// Published test vector: FNV-1a of eight zero bytes, and of the bytes of 1.0 by an independent computation.
TEST(GoldenHash, IsFnv1a) {
  const double zero = 0.0;
  std::uint64_t expected = 0xcbf29ce484222325ULL;
  for (int i = 0; i < 8; ++i) {
    expected *= 0x100000001b3ULL;
  }
  EXPECT_EQ(golden::hash_of(&zero, 1), expected);
  EXPECT_EQ(golden::hash_of(&zero, 0), 0xcbf29ce484222325ULL);
  const double other = -0.0;
  EXPECT_NE(golden::hash_of(&other, 1), expected);
  EXPECT_EQ(golden::Tokens().hash({}).list()[0], "#cbf29ce484222325");
  EXPECT_EQ(golden::hash_of("foobar"), 0x85944171f73967e8ULL);  // published with the algorithm
}

// First outputs of splitmix64 for seed 1234567, as published with the generator.
TEST(GoldenInputs, BitsAreThoseOfSplitmix64) {
  golden::RandomBits bits(1234567);
  EXPECT_EQ(bits.next(), 6457827717110365317ULL);
  EXPECT_EQ(bits.next(), 3203168211198807973ULL);
  EXPECT_EQ(bits.next(), 9817491932198370423ULL);
}

TEST(GoldenInputs, KindsAreWhatTheySay) {
  golden::RandomBits bits(7);
  for (int i = 0; i < 5000; ++i) {
    const double plain = golden::random_double(bits, "plain");
    ASSERT_TRUE(std::fabs(plain) >= 0x1p-8 && std::fabs(plain) < 0x1p+8);
    const double whole = golden::random_double(bits, "whole");
    ASSERT_TRUE(whole == std::floor(whole) && std::fabs(whole) <= 8);
    const double wide = golden::random_double(bits, "wide");
    ASSERT_TRUE(std::fabs(wide) >= 0x1p-400 && std::fabs(wide) < 0x1p+400);
    const double tiny = golden::random_double(bits, "tiny");
    ASSERT_TRUE(std::fabs(tiny) >= 0x1p-560 && std::fabs(tiny) < 0x1p-479);
    const double brief = golden::random_double(bits, "short");
    ASSERT_EQ(bits::of(brief) & 0xffffffffffULL, 0U);
  }
  EXPECT_ANY_THROW(golden::random_double(bits, "unheard-of"));
}

}  // namespace
