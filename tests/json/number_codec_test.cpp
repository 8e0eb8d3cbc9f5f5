// Booleans, the four integer widths (fast path, slow path, overflow at every
// boundary) and doubles.
#include "json/number_codec.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "json/json.hpp"
#include "json_test_support.hpp"

namespace orvanta::json {
namespace {

using testing::DecodeFailure;

template <class T>
T int_of(std::string_view text) {
  return decode(integer_codec<T>(), text);
}

template <class T>
DecodeFailure int_failure(std::string_view text) {
  return testing::decode_failure(integer_codec<T>(), text);
}

const char* const kExponent =
    "Exponent symbols should be followed by an optional '+' or '-' and then by at least one number";

TEST(Boolean, WordsAndOffsets) {
  EXPECT_TRUE(decode(boolean_codec(), "true"));
  EXPECT_FALSE(decode(boolean_codec(), "false"));
  EXPECT_DECODE_ERROR(boolean_codec(), "tru", "Unexpected end of input", 0u);
  EXPECT_DECODE_ERROR(boolean_codec(), "trux", "Unexpected input", 0u);
  EXPECT_DECODE_ERROR(boolean_codec(), "fals", "Unexpected end of input", 1u);
  EXPECT_DECODE_ERROR(boolean_codec(), "falsy", "Unexpected input", 1u);
  EXPECT_DECODE_ERROR(boolean_codec(), "", "Unexpected input, expected boolean", 0u);
  EXPECT_DECODE_ERROR(boolean_codec(), "null", "Unexpected input, expected boolean", 0u);
}

// Both ways, against the standard library's decimal form.
template <class T>
void expect_both_ways(T value) {
  const std::string text = std::to_string(value);
  EXPECT_EQ(encode(integer_codec<T>(), value), text);
  EXPECT_EQ(int_of<T>(text), value);
}

// Every length of the decimal form, and the ends of every width.
TEST(Integer, EveryLengthAndTheEndsOfEveryWidth) {
  std::uint64_t power = 1;
  for (int digits = 1; digits < 20; ++digits, power *= 10) {
    expect_both_ways<std::uint64_t>(power);
    expect_both_ways<std::uint64_t>(power * 10 - 1);
    if (digits < 19) expect_both_ways<std::int64_t>(-static_cast<std::int64_t>(power * 10 - 1));
    if (digits < 10) expect_both_ways<std::int32_t>(-static_cast<std::int32_t>(power * 10 - 1));
    if (digits < 10) expect_both_ways<std::uint32_t>(static_cast<std::uint32_t>(power));
  }
  expect_both_ways(std::numeric_limits<std::int32_t>::min());
  expect_both_ways(std::numeric_limits<std::int32_t>::max());
  expect_both_ways(std::numeric_limits<std::uint32_t>::max());
  expect_both_ways(std::numeric_limits<std::int64_t>::min());
  expect_both_ways(std::numeric_limits<std::int64_t>::max());
  expect_both_ways(std::numeric_limits<std::uint64_t>::max());
}

// One past each end of every width.
TEST(Integer, OverflowOnePastEveryBoundary) {
  EXPECT_EQ(int_failure<std::int32_t>("2147483648"), (DecodeFailure{"Integer overflow", 10}));
  EXPECT_EQ(int_failure<std::int32_t>("-2147483649"), (DecodeFailure{"Integer overflow", 11}));
  EXPECT_EQ(int_failure<std::int32_t>("99999999999999999999"), (DecodeFailure{"Integer overflow", 20}));
  EXPECT_EQ(int_failure<std::uint32_t>("4294967296"), (DecodeFailure{"Integer overflow", 10}));
  EXPECT_EQ(int_failure<std::uint32_t>("-5"), (DecodeFailure{"Invalid integer", 1}));
  EXPECT_EQ(int_failure<std::uint32_t>("-0"), (DecodeFailure{"Invalid integer", 1}));
  EXPECT_EQ(int_failure<std::int64_t>("9223372036854775808"), (DecodeFailure{"Integer overflow", 19}));
  EXPECT_EQ(int_failure<std::int64_t>("-9223372036854775809"), (DecodeFailure{"Integer overflow", 20}));
  EXPECT_EQ(int_failure<std::uint64_t>("18446744073709551616"), (DecodeFailure{"Integer overflow", 20}));
  EXPECT_EQ(int_failure<std::uint64_t>("99999999999999999999"), (DecodeFailure{"Integer overflow", 20}));
}

TEST(Integer, FastPathForms) {
  EXPECT_EQ(int_of<std::int32_t>("007"), 7);
  EXPECT_EQ(int_of<std::int32_t>("-0"), 0);
  EXPECT_EQ(int_of<std::int32_t>("0"), 0);
  EXPECT_EQ(int_failure<std::int32_t>("+1"), (DecodeFailure{"Invalid integer", 1}));
  EXPECT_EQ(int_failure<std::int32_t>("-"), (DecodeFailure{"Unexpected end of input", 1}));
  EXPECT_EQ(int_failure<std::int32_t>("-x"), (DecodeFailure{"Invalid integer", 2}));
  EXPECT_EQ(int_failure<std::int32_t>(""), (DecodeFailure{"Unexpected end of input", 0}));
  EXPECT_EQ(int_failure<std::int32_t>("null"), (DecodeFailure{"Invalid integer", 1}));
  EXPECT_EQ(int_failure<std::int32_t>("\"1\""), (DecodeFailure{"Invalid integer", 1}));
}

TEST(Integer, SlowPathTruncatesTowardsZero) {
  EXPECT_EQ(int_of<std::int32_t>("1.5e1"), 15);
  EXPECT_EQ(int_of<std::int32_t>("150e-1"), 15);
  EXPECT_EQ(int_of<std::int32_t>("1.9"), 1);
  EXPECT_EQ(int_of<std::int32_t>("-1.9"), -1);
  EXPECT_EQ(int_of<std::int32_t>("1.25e1"), 12);
  EXPECT_EQ(int_of<std::int32_t>("1.25e5"), 125000);
  EXPECT_EQ(int_of<std::int32_t>("1E+2"), 100);
  EXPECT_EQ(int_of<std::int32_t>("0.0e5"), 0);
  EXPECT_EQ(int_of<std::int32_t>("1e9"), 1000000000);
  EXPECT_EQ(int_of<std::int32_t>("0e400"), 0);
  EXPECT_EQ(int_of<std::int32_t>("1e-400"), 0);
  EXPECT_EQ(int_of<std::int32_t>("99e-2"), 0);
  EXPECT_EQ(int_of<std::int32_t>("4294967296e-1"), 429496729);
  EXPECT_EQ(int_of<std::int32_t>("-214748364.8e1"), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(int_of<std::uint64_t>("1.8446744073709551615e19"), std::numeric_limits<std::uint64_t>::max());
}

TEST(Integer, SlowPathFailures) {
  EXPECT_EQ(int_failure<std::int32_t>("1."), (DecodeFailure{"Invalid digits after decimal point", 2}));
  EXPECT_EQ(int_failure<std::int32_t>("1.e5"), (DecodeFailure{"Invalid digits after decimal point", 2}));
  EXPECT_EQ(int_failure<std::int32_t>("1e"), (DecodeFailure{kExponent, 2}));
  EXPECT_EQ(int_failure<std::int32_t>("1e+"), (DecodeFailure{kExponent, 3}));
  EXPECT_EQ(int_failure<std::int32_t>("1E-x"), (DecodeFailure{kExponent, 3}));
  EXPECT_EQ(int_failure<std::int32_t>("1e400"), (DecodeFailure{"Integer overflow", 5}));
  EXPECT_EQ(int_failure<std::int32_t>("1e10"), (DecodeFailure{"Integer overflow", 4}));
  EXPECT_EQ(int_failure<std::int32_t>("-1e10"), (DecodeFailure{"Integer overflow", 5}));
  EXPECT_EQ(int_failure<std::int32_t>("214748364.8e1"), (DecodeFailure{"Integer overflow", 13}));
  EXPECT_EQ(int_failure<std::int64_t>("1e19"), (DecodeFailure{"Integer overflow", 4}));
  EXPECT_EQ(int_of<std::uint64_t>("1e19"), 10000000000000000000u);
}

TEST(Integer, ExponentBeyond32Bits) {
  // An exponent that overflows its 32-bit accumulator: 0 for a negative
  // exponent or a zero mantissa, else an overflow.
  EXPECT_EQ(int_of<std::int32_t>("1e-99999999999"), 0);
  EXPECT_EQ(int_of<std::int32_t>("0e99999999999"), 0);
  EXPECT_EQ(int_failure<std::int32_t>("1e99999999999"), (DecodeFailure{"Integer overflow", 13}));
  // The mantissa test reads the digits as a 32-bit accumulation, so one
  // that wraps to zero counts as zero.
  EXPECT_EQ(int_of<std::int64_t>("4294967296e99999999999"), 0);
}

TEST(Double, ShortestForms) {
  const auto text = [](double value) { return encode(double_codec(), value).str(); };
  EXPECT_EQ(text(1e21), "1e+21");
  EXPECT_EQ(text(1e20), "100000000000000000000");
  EXPECT_EQ(text(0.000001), "0.000001");
  EXPECT_EQ(text(0.0000001), "1e-7");
  EXPECT_EQ(text(-0.0), "0");
  EXPECT_EQ(text(0.0), "0");
  EXPECT_EQ(text(0.1), "0.1");
  EXPECT_EQ(text(-1.5), "-1.5");
  EXPECT_EQ(text(123456789.0), "123456789");
  EXPECT_EQ(text(5e-324), "5e-324");
  EXPECT_EQ(text(std::numeric_limits<double>::max()), "1.7976931348623157e+308");
}

TEST(Double, NonFiniteValuesAreRefused) {
  for (const double value : {std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity(),
                             std::numeric_limits<double>::quiet_NaN()}) {
    try {
      (void)encode(double_codec(), value);
      ADD_FAILURE() << value;
    } catch (const encode_exception& e) {
      EXPECT_STREQ(e.what(), "Special values like 'Infinity' or 'NaN' are supported in JSON.");
    }
  }
}

TEST(Double, Decoding) {
  EXPECT_EQ(decode(double_codec(), "1.5"), 1.5);
  EXPECT_EQ(decode(double_codec(), "-2.5e-3"), -2.5e-3);
  EXPECT_EQ(decode(double_codec(), "1E2"), 100.0);
  EXPECT_EQ(decode(double_codec(), "7"), 7.0);
  EXPECT_TRUE(std::signbit(decode(double_codec(), "-0")));
  EXPECT_DECODE_ERROR(double_codec(), "NaN", "Invalid floating point number", 0u);
  EXPECT_DECODE_ERROR(double_codec(), "-", "Invalid floating point number", 0u);
  EXPECT_DECODE_ERROR(double_codec(), "", "Invalid floating point number", 0u);
}

}  // namespace
}  // namespace orvanta::json
