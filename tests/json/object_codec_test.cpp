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

// 66 required fields: the bit set lives on the heap beyond 64.
struct Wide {
  std::int32_t f0 = 0;
  std::int32_t f1 = 0;
  std::int32_t f2 = 0;
  std::int32_t f3 = 0;
  std::int32_t f4 = 0;
  std::int32_t f5 = 0;
  std::int32_t f6 = 0;
  std::int32_t f7 = 0;
  std::int32_t f8 = 0;
  std::int32_t f9 = 0;
  std::int32_t f10 = 0;
  std::int32_t f11 = 0;
  std::int32_t f12 = 0;
  std::int32_t f13 = 0;
  std::int32_t f14 = 0;
  std::int32_t f15 = 0;
  std::int32_t f16 = 0;
  std::int32_t f17 = 0;
  std::int32_t f18 = 0;
  std::int32_t f19 = 0;
  std::int32_t f20 = 0;
  std::int32_t f21 = 0;
  std::int32_t f22 = 0;
  std::int32_t f23 = 0;
  std::int32_t f24 = 0;
  std::int32_t f25 = 0;
  std::int32_t f26 = 0;
  std::int32_t f27 = 0;
  std::int32_t f28 = 0;
  std::int32_t f29 = 0;
  std::int32_t f30 = 0;
  std::int32_t f31 = 0;
  std::int32_t f32 = 0;
  std::int32_t f33 = 0;
  std::int32_t f34 = 0;
  std::int32_t f35 = 0;
  std::int32_t f36 = 0;
  std::int32_t f37 = 0;
  std::int32_t f38 = 0;
  std::int32_t f39 = 0;
  std::int32_t f40 = 0;
  std::int32_t f41 = 0;
  std::int32_t f42 = 0;
  std::int32_t f43 = 0;
  std::int32_t f44 = 0;
  std::int32_t f45 = 0;
  std::int32_t f46 = 0;
  std::int32_t f47 = 0;
  std::int32_t f48 = 0;
  std::int32_t f49 = 0;
  std::int32_t f50 = 0;
  std::int32_t f51 = 0;
  std::int32_t f52 = 0;
  std::int32_t f53 = 0;
  std::int32_t f54 = 0;
  std::int32_t f55 = 0;
  std::int32_t f56 = 0;
  std::int32_t f57 = 0;
  std::int32_t f58 = 0;
  std::int32_t f59 = 0;
  std::int32_t f60 = 0;
  std::int32_t f61 = 0;
  std::int32_t f62 = 0;
  std::int32_t f63 = 0;
  std::int32_t f64 = 0;
  std::int32_t f65 = 0;
  std::int32_t f66 = 0;
  std::int32_t f67 = 0;
  std::int32_t f68 = 0;
  std::int32_t f69 = 0;
  bool operator==(const Wide&) const = default;
};
ObjectCodec<Wide> wide_codec() {
  ObjectCodec<Wide> codec;
  codec.add_field("f0", required, &Wide::f0);
  codec.add_field("f1", required, &Wide::f1);
  codec.add_field("f2", required, &Wide::f2);
  codec.add_field("f3", required, &Wide::f3);
  codec.add_field("f4", required, &Wide::f4);
  codec.add_field("f5", required, &Wide::f5);
  codec.add_field("f6", required, &Wide::f6);
  codec.add_field("f7", required, &Wide::f7);
  codec.add_field("f8", required, &Wide::f8);
  codec.add_field("f9", required, &Wide::f9);
  codec.add_field("f10", required, &Wide::f10);
  codec.add_field("f11", required, &Wide::f11);
  codec.add_field("f12", required, &Wide::f12);
  codec.add_field("f13", required, &Wide::f13);
  codec.add_field("f14", required, &Wide::f14);
  codec.add_field("f15", required, &Wide::f15);
  codec.add_field("f16", required, &Wide::f16);
  codec.add_field("f17", required, &Wide::f17);
  codec.add_field("f18", required, &Wide::f18);
  codec.add_field("f19", required, &Wide::f19);
  codec.add_field("f20", required, &Wide::f20);
  codec.add_field("f21", required, &Wide::f21);
  codec.add_field("f22", required, &Wide::f22);
  codec.add_field("f23", required, &Wide::f23);
  codec.add_field("f24", required, &Wide::f24);
  codec.add_field("f25", required, &Wide::f25);
  codec.add_field("f26", required, &Wide::f26);
  codec.add_field("f27", required, &Wide::f27);
  codec.add_field("f28", required, &Wide::f28);
  codec.add_field("f29", required, &Wide::f29);
  codec.add_field("f30", required, &Wide::f30);
  codec.add_field("f31", required, &Wide::f31);
  codec.add_field("f32", required, &Wide::f32);
  codec.add_field("f33", required, &Wide::f33);
  codec.add_field("f34", required, &Wide::f34);
  codec.add_field("f35", required, &Wide::f35);
  codec.add_field("f36", required, &Wide::f36);
  codec.add_field("f37", required, &Wide::f37);
  codec.add_field("f38", required, &Wide::f38);
  codec.add_field("f39", required, &Wide::f39);
  codec.add_field("f40", required, &Wide::f40);
  codec.add_field("f41", required, &Wide::f41);
  codec.add_field("f42", required, &Wide::f42);
  codec.add_field("f43", required, &Wide::f43);
  codec.add_field("f44", required, &Wide::f44);
  codec.add_field("f45", required, &Wide::f45);
  codec.add_field("f46", required, &Wide::f46);
  codec.add_field("f47", required, &Wide::f47);
  codec.add_field("f48", required, &Wide::f48);
  codec.add_field("f49", required, &Wide::f49);
  codec.add_field("f50", required, &Wide::f50);
  codec.add_field("f51", required, &Wide::f51);
  codec.add_field("f52", required, &Wide::f52);
  codec.add_field("f53", required, &Wide::f53);
  codec.add_field("f54", required, &Wide::f54);
  codec.add_field("f55", required, &Wide::f55);
  codec.add_field("f56", required, &Wide::f56);
  codec.add_field("f57", required, &Wide::f57);
  codec.add_field("f58", required, &Wide::f58);
  codec.add_field("f59", required, &Wide::f59);
  codec.add_field("f60", required, &Wide::f60);
  codec.add_field("f61", required, &Wide::f61);
  codec.add_field("f62", required, &Wide::f62);
  codec.add_field("f63", required, &Wide::f63);
  codec.add_field("f64", required, &Wide::f64);
  codec.add_field("f65", required, &Wide::f65);
  codec.add_field("f66", defaulted, &Wide::f66);
  codec.add_field("f67", defaulted, &Wide::f67);
  codec.add_field("f68", defaulted, &Wide::f68);
  codec.add_field("f69", defaulted, &Wide::f69);
  return codec;
}

std::string wide_text(int skip, int repeat) {
  std::string text = "{";
  for (int i = 0; i < 70; ++i) {
    if (i == skip) continue;
    text += "\"f" + std::to_string(i) + "\":" + std::to_string(i) + ",";
    if (i == repeat) text += "\"f" + std::to_string(i) + "\":" + std::to_string(i + 100) + ",";
  }
  text.back() = '}';
  return text;
}

TEST(ObjectCodec, RequiredBitsBeyond64) {
  EXPECT_EQ(wide_codec().required_count(), 66u);
  const Wide all = decode(wide_codec(), wide_text(-1, -1));
  EXPECT_EQ(all.f0, 0);
  EXPECT_EQ(all.f65, 65);
  EXPECT_EQ(all.f69, 69);
  for (const int missing : {0, 63, 64, 65}) {
    const std::string text = wide_text(missing, -1);
    EXPECT_DECODE_ERROR(wide_codec(), text, "Missing required field(s)", text.size()) << missing;
  }
  EXPECT_NO_THROW(decode(wide_codec(), wide_text(69, -1)));  // defaulted
  // A repeated key counts once; the last value wins.
  EXPECT_EQ(decode(wide_codec(), wide_text(-1, 65)).f65, 165);
  const std::string repeated_but_missing = wide_text(64, 65);
  EXPECT_DECODE_ERROR(wide_codec(), repeated_but_missing, "Missing required field(s)", repeated_but_missing.size());
  EXPECT_EQ(encode(wide_codec(), all), wide_text(-1, -1));
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
}

TEST(ObjectCodec, EscapedKeysAreHonoured) {
  EXPECT_EQ(decode(pair_codec(), R"({"\u0061":"x","\u0062":"y"})"), (Pair{"x", "y"}));
}

TEST(ObjectCodec, KeysAreWrittenAsFinishedJsonStrings) {
  struct Odd {
    std::string v;
    bool operator==(const Odd&) const = default;
  };
  ObjectCodec<Odd> codec;
  codec.add_field("a\"b\n", required, &Odd::v);
  EXPECT_EQ(encode(codec, Odd{"1"}), R"({"a\"b\n":"1"})");
  EXPECT_EQ(decode(codec, R"({"a\"b\n":"2"})"), Odd{"2"});
}

TEST(ObjectCodec, FactoryMakesNewRecords) {
  ObjectCodec<Pair> codec = pair_codec();
  ObjectCodec<Pair> defaults;
  defaults.add_field("a", defaulted, &Pair::a);
  defaults.set_factory([] { return Pair{"default-a", "default-b"}; });
  EXPECT_EQ(decode(defaults, "{}"), (Pair{"default-a", "default-b"}));
  EXPECT_EQ(decode(defaults, R"({"a":"x"})"), (Pair{"x", "default-b"}));
}

TEST(ObjectCodec, CopiesShareTheFieldTable) {
  const ObjectCodec<Pair> first = pair_codec();
  ObjectCodec<Pair> copy = first;
  copy.add_field("c", required, &Pair::b);  // the copy grows, the original doesn't
  EXPECT_EQ(first.field_count(), 2u);
  EXPECT_EQ(copy.field_count(), 3u);
  EXPECT_EQ(encode(first, Pair{"1", "2"}), R"({"a":"1","b":"2"})");
}

TEST(ObjectCodec, NestedFailuresPropagateUnchanged) {
  using namespace sketch;
  EXPECT_DECODE_ERROR(item_codec(),
                      R"({"uri":"u","tags":[],"artists":[{"uri":"a"}],"contains":{},"source":"zeroconf"})",
                      "Missing required field(s)", 43u);
  EXPECT_DECODE_ERROR(item_codec(), R"({"uri":"u","album":{"uri":"a","name":5}})", "Unexpected input", 37u);
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
