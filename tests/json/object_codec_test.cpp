// The object codec: field table, presence kinds, duplicates, the closing
// brace.
#include "json/object_codec.hpp"

#include <gtest/gtest.h>

#include <string>

#include "json_test_support.hpp"

namespace orvanta::json {
namespace {

using namespace presence;

struct Pair {
  std::string a;
  std::string b;
  bool operator==(const Pair&) const = default;
};
ObjectCodec<Pair> pair_codec() {
  ObjectCodec<Pair> codec;
  codec.add_field("a", required, &Pair::a);
  codec.add_field("b", required, &Pair::b);
  return codec;
}

struct Play {
  std::string context;
  std::string referrer;
  std::optional<std::string> attribution;
  std::optional<std::string> agentic_product_type;
  bool operator==(const Play&) const = default;
};
ObjectCodec<Play> play_codec() {
  using R = Play;
  ObjectCodec<R> codec;
  codec.add_field("context",              required,  &R::context);
  codec.add_field("referrer",             defaulted, &R::referrer);
  codec.add_field("attribution",          optional,  &R::attribution);
  codec.add_field("agentic_product_type", optional,  &R::agentic_product_type);
  return codec;
}

struct OnlyOptional {
  std::optional<std::int32_t> x;
  bool operator==(const OnlyOptional&) const = default;
};
ObjectCodec<OnlyOptional> only_optional_codec() {
  ObjectCodec<OnlyOptional> codec;
  codec.add_field("x", optional, &OnlyOptional::x);
  return codec;
}

TEST(ObjectCodec, EmptyRecordEncodesAsBracesAndSkipsUnknownKeys) {
  const ObjectCodec<Pair> no_fields;
  EXPECT_EQ(encode(no_fields, Pair{"a", "b"}), "{}");
  EXPECT_EQ(decode(no_fields, R"({"anything":[1,{"x":2}]})"), Pair{});
  EXPECT_EQ(decode(no_fields, " { } "), Pair{});
  EXPECT_EQ(encode(only_optional_codec(), OnlyOptional{}), "{}");
  EXPECT_EQ(encode(only_optional_codec(), OnlyOptional{5}), R"({"x":5})");
}

TEST(ObjectCodec, KeysInDeclarationOrderAndPresenceKinds) {
  Play r;
  r.context = "orvanta:track:1";
  EXPECT_EQ(encode(play_codec(), r), R"({"context":"orvanta:track:1","referrer":""})");
  r.attribution = "cli";
  EXPECT_EQ(encode(play_codec(), r), R"({"context":"orvanta:track:1","referrer":"","attribution":"cli"})");
  EXPECT_EQ(decode(play_codec(), R"({"attribution":"cli","context":"orvanta:track:1"})"), r);
}

// The key table hashes the length and three bytes only: keys that agree in
// those must still be told apart by the comparison.
TEST(ObjectCodec, KeysThatAgreeInTheHashedBytesStayApart) {
  EXPECT_DECODE_ERROR(play_codec(), R"({"cXntext":"c"})", "Missing required field(s)", 15u);
  EXPECT_EQ(decode(play_codec(), R"({"context":"c","rXferrer":"r","aXtribution":"a","aXentic_product_type":"t"})"),
            (Play{"c", "", std::nullopt, std::nullopt}));
  EXPECT_EQ(decode(pair_codec(), R"({"\u0061":"x","\u0062":"y"})"), (Pair{"x", "y"}));
}

TEST(ObjectCodec, MissingRequiredFieldNamesTheByteAfterTheBrace) {
  EXPECT_DECODE_ERROR(play_codec(), R"({"referrer":"x"})", "Missing required field(s)", 16u);
  EXPECT_DECODE_ERROR(pair_codec(), R"({"a":"x","a":"y"})", "Missing required field(s)", 17u);
  EXPECT_EQ(decode(pair_codec(), R"({"a":"x","b":"y","a":"z"})"), (Pair{"z", "y"}));
}

TEST(ObjectCodec, SeparatorFailures) {
  EXPECT_DECODE_ERROR(pair_codec(), R"({"a":"x",})", "Unexpected input", 9u);
  EXPECT_DECODE_ERROR(pair_codec(), R"({"a" "x"})", "Unexpected input", 5u);
  EXPECT_DECODE_ERROR(pair_codec(), R"({"a":"x" "b":"y"})", "Unexpected input", 9u);
  EXPECT_DECODE_ERROR(pair_codec(), R"({"a":"x")", "Unexpected end of input", 8u);
  EXPECT_DECODE_ERROR(pair_codec(), R"([])", "Unexpected input", 0u);
  EXPECT_DECODE_ERROR(pair_codec(), "", "Unexpected end of input", 0u);
}

TEST(ObjectCodec, UnknownKeyWithMalformedValueFails) {
  EXPECT_DECODE_ERROR(pair_codec(), R"({"zz":"abc)", "Unterminated string", 10u);
  EXPECT_DECODE_ERROR(pair_codec(), R"({"zz":[1,],"a":"x","b":"y"})", "Encountered token ']'", 9u);
}

TEST(ObjectCodec, FirstDeclarationOfAKeyStays) {
  ObjectCodec<Pair> codec;
  codec.add_field("a", required, &Pair::a);
  codec.add_field("a", required, &Pair::b);
  EXPECT_EQ(decode(codec, R"({"a":"x"})"), (Pair{"x", ""}));
}

struct Lists {
  std::vector<std::string> tags;
  std::optional<std::vector<std::int32_t>> numbers;
  bool operator==(const Lists&) const = default;
};
ObjectCodec<Lists> lists_codec() {
  ObjectCodec<Lists> codec;
  codec.add_field("tags", defaulted, &Lists::tags);
  codec.add_field("numbers", optional, &Lists::numbers);
  return codec;
}

TEST(ObjectCodec, ARepeatedListKeyReplacesTheFirstList) {
  EXPECT_EQ(decode(lists_codec(), R"({"tags":["a"],"tags":["b","c"],"numbers":[1],"numbers":[]})"),
            (Lists{{"b", "c"}, std::vector<std::int32_t>{}}));
  EXPECT_EQ(encode(lists_codec(), Lists{{"x"}, std::vector<std::int32_t>{1, 2}}), R"({"tags":["x"],"numbers":[1,2]})");
}

TEST(ObjectCodec, AWrongTypeFailsInTheValueDecoder) {
  EXPECT_DECODE_ERROR(pair_codec(), R"({"a":1,"b":"y"})", "Unexpected input", 5u);
  EXPECT_DECODE_ERROR(lists_codec(), R"({"numbers":[true]})", "Invalid integer", 13u);
  EXPECT_DECODE_ERROR(only_optional_codec(), R"({"x":null})", "Invalid integer", 6u);
  // null is not an absent optional
  EXPECT_DECODE_ERROR(play_codec(), R"({"context":"c","attribution":null})", "Unexpected input", 29u);
}

TEST(ObjectCodec, CopiesShareTheFieldTable) {
  const ObjectCodec<Pair> first = pair_codec();
  ObjectCodec<Pair> copy = first;
  copy.add_field("c", required, &Pair::b);  // the copy grows, the original doesn't
  EXPECT_EQ(encode(copy, Pair{"1", "2"}), R"({"a":"1","b":"2","c":"2"})");
  EXPECT_EQ(encode(first, Pair{"1", "2"}), R"({"a":"1","b":"2"})");
}

struct Nest {
  std::vector<Pair> pairs;
  std::optional<Pair> one;
  bool operator==(const Nest&) const = default;
};

TEST(ObjectCodec, NestedFailuresPropagateUnchanged) {
  ObjectCodec<Nest> codec;
  codec.add_field("pairs", required, &Nest::pairs, list_codec(pair_codec()));
  codec.add_field("one", optional, &Nest::one, pair_codec());
  EXPECT_DECODE_ERROR(codec, R"({"pairs":[{"a":"x"}]})", "Missing required field(s)", 19u);
  EXPECT_DECODE_ERROR(codec, R"({"one":{"a":"x","b":5}})", "Unexpected input", 20u);
}

}  // namespace
}  // namespace orvanta::json
