// skip_value: every error word with its offset, the strict number grammar,
// and nesting below, at and far beyond the 64 inline bracket levels.
#include "json/skip_value.hpp"

#include <gtest/gtest.h>

#include <string>

#include "json/json.hpp"
#include "json_test_support.hpp"

namespace orvanta::json {
namespace {

using testing::DecodeFailure;

DecodeFailure skip_failure(std::string_view text) {
  return testing::raw_failure(text, [](DecodeContext& c) { skip_value(c); });
}

// How many bytes one skip consumes.
std::ptrdiff_t skipped(std::string_view text) {
  DecodeContext context(text);
  skip_value(context);
  return context.position - context.begin;
}

TEST(SkipValue, ConsumesExactlyOneValue) {
  EXPECT_EQ(skipped("true,"), 4);
  EXPECT_EQ(skipped("false]"), 5);
  EXPECT_EQ(skipped("null "), 4);
  EXPECT_EQ(skipped(R"("a\"b" x)"), 6);
  EXPECT_EQ(skipped("-12.5e+3,"), 8);
  EXPECT_EQ(skipped("01"), 1);  // a leading zero ends the number
  EXPECT_EQ(skipped(R"({ "a" : [ 1 , { } , [ ] ] } x)"), 27);
  EXPECT_EQ(skipped("[] ]"), 2);
  EXPECT_EQ(skipped("{}}"), 2);
  EXPECT_EQ(skipped("[\"\\u00e9\\ud83d\"]"), 16);  // surrogates aren't looked at
}

TEST(SkipValue, StructureErrors) {
  EXPECT_EQ(skip_failure(""), (DecodeFailure{"Unexpected EOF", 0}));
  EXPECT_EQ(skip_failure("[1,]"), (DecodeFailure{"Encountered token ']'", 3}));
  EXPECT_EQ(skip_failure(R"({"a":1,})"), (DecodeFailure{"Expected '\"'", 7}));
  EXPECT_EQ(skip_failure("{1}"), (DecodeFailure{"Expected '\"'", 1}));
  EXPECT_EQ(skip_failure(R"({"a":1 "b":2})"), (DecodeFailure{"Expected ',' or '}'", 7}));
  EXPECT_EQ(skip_failure("[1 2]"), (DecodeFailure{"Expected ',' or ']", 3}));
  EXPECT_EQ(skip_failure("[1}"), (DecodeFailure{"Expected ',' or ']", 2}));
  EXPECT_EQ(skip_failure(R"({"a":1])"), (DecodeFailure{"Expected ',' or '}'", 6}));
  EXPECT_EQ(skip_failure("[,1]"), (DecodeFailure{"Encountered token ','", 1}));
  EXPECT_EQ(skip_failure(R"({"a":})"), (DecodeFailure{"Encountered token '}'", 5}));
  EXPECT_EQ(skip_failure(R"({"a")"), (DecodeFailure{"Unexpected end of input", 4}));
  EXPECT_EQ(skip_failure(R"({"a" 1})"), (DecodeFailure{"Unexpected input", 5}));
  EXPECT_EQ(skip_failure(R"({"a":1)"), (DecodeFailure{"Expected '}'", 6}));
  EXPECT_EQ(skip_failure("{"), (DecodeFailure{"Expected '}'", 1}));
  EXPECT_EQ(skip_failure("[1"), (DecodeFailure{"Expected ']'", 2}));
  EXPECT_EQ(skip_failure(R"([{"a":[)"), (DecodeFailure{"Expected ']'", 7}));
  EXPECT_EQ(skip_failure("x"), (DecodeFailure{"Encountered token 'x'", 0}));
  EXPECT_EQ(skip_failure(" 1"), (DecodeFailure{"Encountered token ' '", 0}));
  EXPECT_EQ(skip_failure("[+1]"), (DecodeFailure{"Encountered token '+'", 1}));
  EXPECT_EQ(skip_failure("[\x01]"), (DecodeFailure{"Encountered token '\x01'", 1}));
}

TEST(SkipValue, LiteralErrors) {
  EXPECT_EQ(skip_failure("tru"), (DecodeFailure{"Unexpected end of input", 0}));
  EXPECT_EQ(skip_failure("trux"), (DecodeFailure{"Unexpected input", 0}));
  EXPECT_EQ(skip_failure("tnul"), (DecodeFailure{"Unexpected input", 0}));
  EXPECT_EQ(skip_failure("fals"), (DecodeFailure{"Unexpected end of input", 1}));
  EXPECT_EQ(skip_failure("falsy"), (DecodeFailure{"Unexpected input", 1}));
  EXPECT_EQ(skip_failure("[nul"), (DecodeFailure{"Unexpected end of input", 1}));
}

TEST(SkipValue, NumberErrors) {
  EXPECT_EQ(skip_failure("-"), (DecodeFailure{"Expected digit", 1}));
  EXPECT_EQ(skip_failure("-a"), (DecodeFailure{"Expected digit", 1}));
  EXPECT_EQ(skip_failure("[-]"), (DecodeFailure{"Expected digit", 2}));
  EXPECT_EQ(skip_failure("1."), (DecodeFailure{"Expected digit after decimal point", 2}));
  EXPECT_EQ(skip_failure("1.e1"), (DecodeFailure{"Expected digit after decimal point", 2}));
  EXPECT_EQ(skip_failure("1e"), (DecodeFailure{"Expected digit after exponent sign", 2}));
  EXPECT_EQ(skip_failure("1E+"), (DecodeFailure{"Expected digit after exponent sign", 3}));
  EXPECT_EQ(skip_failure("1e-x"), (DecodeFailure{"Expected digit after exponent sign", 3}));
  EXPECT_EQ(skip_failure("[01]"), (DecodeFailure{"Expected ',' or ']", 2}));
}

TEST(SkipValue, StringErrors) {
  EXPECT_EQ(skip_failure(R"("abc)"), (DecodeFailure{"Unterminated string", 4}));
  EXPECT_EQ(skip_failure(R"("abc\)"), (DecodeFailure{"Unterminated string", 5}));
  EXPECT_EQ(skip_failure(R"("a\x")"), (DecodeFailure{"Invalid escape character", 3}));
  EXPECT_EQ(skip_failure(R"("\u12")"), (DecodeFailure{"\\u must be followed by 4 hex digits", 3}));
  EXPECT_EQ(skip_failure(R"("\uZZZZ")"), (DecodeFailure{"\\u must be followed by 4 hex digits", 3}));
  EXPECT_EQ(skip_failure(R"({"a\q":1})"), (DecodeFailure{"Invalid escape character", 4}));
}

std::string nested(std::size_t depth, char open, char close) {
  return std::string(depth, open) + std::string(depth, close);
}

TEST(SkipValue, NestingAroundTheInlineStack) {
  for (const std::size_t depth : {1u, 63u, 64u, 65u, 66u, 100u, 128u, 129u, 1000u}) {
    const std::string arrays = nested(depth, '[', ']');
    EXPECT_EQ(skipped(arrays), static_cast<std::ptrdiff_t>(arrays.size())) << depth;
    std::string mixed;
    for (std::size_t i = 0; i < depth; ++i) mixed += (i % 2 == 0) ? R"([{"k":)" : "[";
    mixed += "1";
    for (std::size_t i = depth; i-- > 0;) mixed += (i % 2 == 0) ? "}]" : "]";
    EXPECT_EQ(skipped(mixed), static_cast<std::ptrdiff_t>(mixed.size())) << depth;
  }
}

TEST(SkipValue, NestingFarBeyondAndItsErrors) {
  const std::size_t depth = 1'000'000;
  const std::string deep = nested(depth, '[', ']');
  EXPECT_EQ(skipped(deep), static_cast<std::ptrdiff_t>(deep.size()));
  const std::string unclosed(depth, '[');
  EXPECT_EQ(skip_failure(unclosed), (DecodeFailure{"Expected ']'", depth}));
  const std::string wrong = std::string(200, '[') + "}";
  EXPECT_EQ(skip_failure(wrong), (DecodeFailure{"Encountered token '}'", 200}));
  // The stack pops in order past the spill: the inner '{' closes first.
  const std::string closing = std::string(100, '[') + R"({"a":1])";
  EXPECT_EQ(skip_failure(closing), (DecodeFailure{"Expected ',' or '}'", 106}));
}

}  // namespace
}  // namespace orvanta::json
