// Lists, string maps, optionals, or_null, enumerations and raw values.
#include "json/combinators.hpp"

#include <gtest/gtest.h>

#include "json/json.hpp"
#include "json_test_support.hpp"

namespace orvanta::json {
namespace {


const auto kInts = list_codec(integer_codec<std::int32_t>());
const auto kStrings = list_codec(string_codec());

TEST(ListCodec, DecodeAndEncode) {
  EXPECT_EQ(decode(kInts, "[]"), std::vector<std::int32_t>{});
  EXPECT_EQ(decode(kInts, "[ ]"), std::vector<std::int32_t>{});
  EXPECT_EQ(decode(kInts, "[ 1 , 2,3 ]"), (std::vector<std::int32_t>{1, 2, 3}));
  EXPECT_EQ(encode(kInts, {}), "[]");
  EXPECT_EQ(encode(kInts, {1, -2, 3}), "[1,-2,3]");
  EXPECT_EQ(encode(kStrings, {"a", ""}), R"(["a",""])");
  EXPECT_EQ(encode(list_codec(kStrings), {{}, {"x"}}), R"([[],["x"]])");
}

TEST(ListCodec, Failures) {
  EXPECT_DECODE_ERROR(kInts, "[1,]", "Invalid integer", 4u);  // in the element decoder
  EXPECT_DECODE_ERROR(kInts, "[1 2]", "Unexpected input", 3u);
  EXPECT_DECODE_ERROR(kInts, "[1", "Unexpected end of input", 2u);
  EXPECT_DECODE_ERROR(kInts, "[", "Unexpected end of input", 1u);
  EXPECT_DECODE_ERROR(kInts, "", "Unexpected end of input", 0u);
  EXPECT_DECODE_ERROR(kInts, "{}", "Unexpected input", 0u);
  EXPECT_DECODE_ERROR(kStrings, "[1]", "Unexpected input", 1u);
  EXPECT_DECODE_ERROR(kStrings, "[null]", "Unexpected input", 1u);
}

TEST(StringMapCodec, FirstValueOfARepeatedKeyStaysAndEncodingIsSorted) {
  const auto codec = string_map_codec(boolean_codec());
  const auto map = decode(codec, R"({ "b" : true, "a":false, "b":false, "\u0063":true })");
  EXPECT_EQ(map, (std::map<std::string, bool>{{"a", false}, {"b", true}, {"c", true}}));
  EXPECT_EQ(encode(codec, map), R"({"a":false,"b":true,"c":true})");
  EXPECT_EQ(encode(codec, {}), "{}");
  EXPECT_EQ(encode(codec, {{"\xC3\xA9", true}, {"z", false}, {"\n", true}}),
            "{\"\\n\":true,\"z\":false,\"\xC3\xA9\":true}");
  EXPECT_EQ(decode(codec, "{}"), (std::map<std::string, bool>{}));
}

TEST(StringMapCodec, Failures) {
  const auto codec = string_map_codec(boolean_codec());
  EXPECT_DECODE_ERROR(codec, R"({"a":true,})", "Unexpected input", 10u);
  EXPECT_DECODE_ERROR(codec, R"({"a" true})", "Unexpected input", 5u);
  EXPECT_DECODE_ERROR(codec, R"({"a":true "b":false})", "Unexpected input", 10u);
  EXPECT_DECODE_ERROR(codec, R"({"a":1})", "Unexpected input, expected boolean", 5u);
  EXPECT_DECODE_ERROR(codec, R"({"a":true,"a":1})", "Unexpected input, expected boolean", 14u);
  EXPECT_DECODE_ERROR(codec, "[]", "Unexpected input", 0u);
}

TEST(OptionalCodec, NeverTakesNullAndRefusesToEncodeAnAbsentValue) {
  const auto codec = optional_codec(string_codec());
  EXPECT_EQ(decode(codec, R"("x")"), std::optional<std::string>("x"));
  EXPECT_DECODE_ERROR(codec, "null", "Unexpected input", 0u);
  EXPECT_EQ(encode(codec, std::string("x")), R"("x")");
  try {
    (void)encode(list_codec(codec), {std::string("a"), std::nullopt});
    ADD_FAILURE();
  } catch (const encode_exception& e) {
    EXPECT_STREQ(e.what(), "Cannot encode null optional");
  }
}

TEST(OrNull, TakesNullAndKeepsTheFirstFailure) {
  const auto codec = or_null(string_codec());
  EXPECT_EQ(decode(codec, R"("a")"), std::optional<std::string>("a"));
  EXPECT_EQ(decode(codec, "null"), std::nullopt);
  EXPECT_EQ(decode(codec, " null "), std::nullopt);
  EXPECT_DECODE_ERROR(codec, "5", "Unexpected input", 0u);
  EXPECT_DECODE_ERROR(codec, "nulL", "Unexpected input", 0u);
  EXPECT_DECODE_ERROR(codec, R"("abc)", "Unterminated string", 4u);
  EXPECT_EQ(encode(codec, std::nullopt), "null");
  EXPECT_EQ(encode(codec, std::string("a")), R"("a")");
  const auto ints = or_null(integer_codec<std::int32_t>());
  EXPECT_EQ(decode(ints, "null"), std::nullopt);
  EXPECT_DECODE_ERROR(ints, "nan", "Invalid integer", 1u);
}

TEST(OrNull, OtherExceptionsPassThrough) {
  const auto codec = or_null(testing::ThrowingCodec{});
  DecodeContext context("null");
  EXPECT_THROW(codec.decode(context), std::logic_error);
}

enum class Color : std::int32_t { red = 0, green = 1, blue = 7 };

EnumerationCodec<Color> color_codec() {
  return enumeration_codec<Color>({{Color::red, "red"}, {Color::green, "green"}, {Color::blue, "blue"}});
}

TEST(EnumerationCodec, StrictBothWays) {
  EXPECT_EQ(decode(color_codec(), R"("green")"), Color::green);
  EXPECT_EQ(decode(color_codec(), R"("\u0062lue")"), Color::blue);
  EXPECT_EQ(encode(color_codec(), Color::blue), R"("blue")");
  EXPECT_DECODE_ERROR(color_codec(), R"("Green")", "Encountered unknown enumeration value", 7u);
  EXPECT_DECODE_ERROR(color_codec(), R"("gree")", "Encountered unknown enumeration value", 6u);
  EXPECT_DECODE_ERROR(color_codec(), R"("greenish")", "Encountered unknown enumeration value", 10u);
  EXPECT_DECODE_ERROR(color_codec(), "1", "Unexpected input", 0u);
  try {
    (void)encode(color_codec(), static_cast<Color>(3));
    ADD_FAILURE();
  } catch (const encode_exception& e) {
    EXPECT_STREQ(e.what(), "Encoding unknown enumeration value");
  }
}

TEST(RawValue, DefaultIsNull) {
  const RawJsonValue value;
  EXPECT_EQ(value, "null");
  EXPECT_EQ(encode(raw_value_codec(), value), "null");
}

TEST(RawValue, KeepsTheSkippedBytesAsTheyStand) {
  const std::string text = R"([ 1 , {"a" : "\u00e9"} ]  ,)";
  DecodeContext context(text);
  const RawJsonValue value = raw_value_codec().decode(context);
  EXPECT_EQ(value, R"([ 1 , {"a" : "\u00e9"} ])");
  EXPECT_EQ(*context.position, ' ');
  EXPECT_EQ(encode(raw_value_codec(), value), R"([ 1 , {"a" : "\u00e9"} ])");
  EXPECT_DECODE_ERROR(raw_value_codec(), "[1,]", "Encountered token ']'", 3u);
}

}  // namespace
}  // namespace orvanta::json
