// The object codec: field table, presence kinds, duplicates, the closing
// brace, required bits beyond 64, and the sketch of object_codec.hpp.
#include "json/object_codec.hpp"

#include <gtest/gtest.h>

#include "json_test_support.hpp"
#include "sketch_records.hpp"

namespace orvanta::json {
namespace {

using testing::encode_text;
using namespace presence;

struct Empty {
  bool operator==(const Empty&) const = default;
};
ObjectCodec<Empty> empty_codec() { return ObjectCodec<Empty>(); }

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
  EXPECT_EQ(encode_text(empty_codec(), Empty{}), "{}");
  EXPECT_EQ(decode(empty_codec(), "{}"), Empty{});
  EXPECT_EQ(decode(empty_codec(), R"({"anything":[1,{"x":2}]})"), Empty{});
  EXPECT_EQ(decode(empty_codec(), " { } "), Empty{});
}

TEST(ObjectCodec, KeysInDeclarationOrderAndPresenceKinds) {
  Play r;
  r.context = "orvanta:track:1";
  EXPECT_EQ(encode_text(play_codec(), r), R"({"context":"orvanta:track:1","referrer":""})");
  r.attribution = "cli";
  EXPECT_EQ(encode_text(play_codec(), r), R"({"context":"orvanta:track:1","referrer":"","attribution":"cli"})");
  EXPECT_EQ(decode(play_codec(), R"({"attribution":"cli","context":"orvanta:track:1"})"), r);
}

TEST(ObjectCodec, AllOptionalAbsentEncodesAsBraces) {
  EXPECT_EQ(encode_text(only_optional_codec(), OnlyOptional{}), "{}");
  EXPECT_EQ(encode_text(only_optional_codec(), OnlyOptional{5}), R"({"x":5})");
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

TEST(ObjectCodec, NullIsNotAnAbsentOptional) {
  EXPECT_DECODE_ERROR(play_codec(), R"({"context":"c","attribution":null})", "Unexpected input", 29u);
}

TEST(ObjectCodec, UnknownKeyWithMalformedValueFails) {
  EXPECT_DECODE_ERROR(pair_codec(), R"({"zz":"abc)", "Unterminated string", 10u);
  EXPECT_DECODE_ERROR(pair_codec(), R"({"zz":[1,],"a":"x","b":"y"})", "Encountered token ']'", 9u);
}

TEST(ObjectCodec, FirstDeclarationOfAKeyStays) {
  ObjectCodec<Pair> codec;
  codec.add_field("a", required, &Pair::a);
  codec.add_field("a", required, &Pair::b);
  EXPECT_EQ(codec.field_count(), 1u);
  EXPECT_EQ(codec.required_count(), 1u);
  EXPECT_EQ(decode(codec, R"({"a":"x"})"), (Pair{"x", ""}));
}

TEST(Sketch, FullItemRoundTripsWithExactText) {
  using namespace sketch;
  Item item;
  item.uri = "orvanta:track:1";
  item.duration_ms = 1234;
  item.tags = {"a", "b"};
  item.artists = {{"orvanta:artist:1", "One"}, {"orvanta:artist:2", "Two"}};
  item.album = Artist{"orvanta:album:1", "Album"};
  item.added_at = -5;
  item.contains = {{"z", true}, {"a", false}};
  item.extra = RawJsonValue(R"({"k":[1,2]})");
  item.id = "abc";
  item.source = LoginSource::pull_notification;
  const std::string text =
      R"({"uri":"orvanta:track:1","duration_ms":1234,"tags":["a","b"],)"
      R"("artists":[{"uri":"orvanta:artist:1","name":"One"},{"uri":"orvanta:artist:2","name":"Two"}],)"
      R"("album":{"uri":"orvanta:album:1","name":"Album"},"added_at":-5,"contains":{"a":false,"z":true},)"
      R"("extra":{"k":[1,2]},"id":"abc","source":"pull_notification"})";
  EXPECT_EQ(encode_text(item_codec(), item), text);
  EXPECT_EQ(decode(item_codec(), text), item);
}

TEST(Sketch, MinimalItemAndOrNull) {
  using namespace sketch;
  const Item item =
      decode(item_codec(), R"({"uri":"u","tags":[],"artists":[],"contains":{},"id":null,"source":"zeroconf"})");
  EXPECT_FALSE(item.id.has_value());
  EXPECT_FALSE(item.album.has_value());
  EXPECT_EQ(item.extra, "null");
  EXPECT_EQ(encode_text(item_codec(), item),
            R"({"uri":"u","duration_ms":0,"tags":[],"artists":[],"contains":{},"extra":null,"source":"zeroconf"})");
  EXPECT_DECODE_ERROR(item_codec(), R"({"uri":"u","tags":[],"artists":[],"contains":{},"source":"other"})",
                      "Encountered unknown enumeration value", 64u);
}

}  // namespace
}  // namespace orvanta::json
