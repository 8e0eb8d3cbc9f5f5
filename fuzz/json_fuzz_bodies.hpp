// The bodies of the json fuzz targets, shared by the libFuzzer entry points
// (fuzz/*.cpp) and by the GoogleTest that replays the checked-in corpus and
// the regressions (tests/json/fuzz_regression_test.cpp). A body returns
// normally for any input; a broken property calls std::abort(), which both
// libFuzzer and GoogleTest report.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "json/json.hpp"

namespace orvanta::json::fuzz {

inline void check(bool condition, const char* what) {
  if (!condition) {
    std::fprintf(stderr, "fuzz property broken: %s\n", what);
    std::abort();
  }
}

inline std::string_view as_text(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

inline std::string_view trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(" \t\r\n");
  if (first == std::string_view::npos) return {};
  const auto last = text.find_last_not_of(" \t\r\n");
  return text.substr(first, last - first + 1);
}

// skip_value on arbitrary bytes, with the top-level rules: an accepted text
// is kept whole, and the kept text is accepted again.
inline void skip_value_body(const std::uint8_t* data, std::size_t size) {
  const std::string_view text = as_text(data, size);
  RawJsonValue value;
  if (!try_decode(raw_value_codec(), text, value)) return;
  check(value.view() == trimmed(text), "skip_value keeps the value without the whitespace around it");
  RawJsonValue again;
  check(try_decode(raw_value_codec(), value.view(), again) && again == value, "a kept value is accepted again");
}

// A nested record with every combinator.
enum class Mode : std::int32_t { off = 0, on = 1, auto_ = 2 };

struct Leaf {
  std::string name;
  std::int32_t small = 0;
  std::uint32_t usmall = 0;
  std::int64_t big = 0;
  std::uint64_t ubig = 0;
  double ratio = 0;
  bool flag = false;
  bool operator==(const Leaf&) const = default;
};

struct Tree {
  std::string id;
  std::vector<Leaf> leaves;
  std::optional<Leaf> first;
  std::optional<std::vector<std::string>> tags;
  std::map<std::string, bool> seen;
  std::map<std::string, Leaf> by_name;
  std::optional<std::string> parent;
  RawJsonValue extra;
  std::optional<RawJsonValue> more;
  Mode mode = Mode::off;
  std::vector<std::vector<std::int32_t>> grid;
  std::optional<std::int64_t> when;
  bool operator==(const Tree&) const = default;
};

inline ObjectCodec<Leaf> leaf_codec() {
  using namespace presence;
  using R = Leaf;
  ObjectCodec<R> codec;
  codec.add_field("name", required, &R::name);
  codec.add_field("small", defaulted, &R::small);
  codec.add_field("usmall", defaulted, &R::usmall);
  codec.add_field("big", defaulted, &R::big);
  codec.add_field("ubig", defaulted, &R::ubig);
  codec.add_field("ratio", defaulted, &R::ratio);
  codec.add_field("flag", defaulted, &R::flag);
  return codec;
}

inline ObjectCodec<Tree> tree_codec() {
  using namespace presence;
  using R = Tree;
  ObjectCodec<R> codec;
  codec.add_field("id", required, &R::id);
  codec.add_field("leaves", required, &R::leaves, list_codec(leaf_codec()));
  codec.add_field("first", optional, &R::first, leaf_codec());
  codec.add_field("tags", optional, &R::tags);
  codec.add_field("seen", defaulted, &R::seen);
  codec.add_field("by_name", defaulted, &R::by_name, string_map_codec(leaf_codec()));
  codec.add_field("parent", optional, &R::parent, or_null(string_codec()));
  codec.add_field("extra", defaulted, &R::extra);
  codec.add_field("more", optional, &R::more);
  codec.add_field("mode", defaulted, &R::mode,
                  enumeration_codec<Mode>({{Mode::off, "off"}, {Mode::on, "on"}, {Mode::auto_, "auto"}}));
  codec.add_field("grid", defaulted, &R::grid);
  codec.add_field("when", optional, &R::when);
  return codec;
}

// The record codec on arbitrary bytes: what decodes encodes (unless it holds
// a non-finite double), and the encoding decodes to an equal record and
// encodes to the same bytes.
inline void record_codec_body(const std::uint8_t* data, std::size_t size) {
  static const ObjectCodec<Tree> codec = tree_codec();  // built once: fuzzing the input, not the build
  Tree tree;
  if (!try_decode(codec, data == nullptr ? "" : reinterpret_cast<const char*>(data), size, tree)) return;
  std::string first_text;
  try {
    first_text = encode(codec, tree).str();
  } catch (const encode_exception&) {
    return;  // a number beyond the double range decodes as an infinity
  }
  Tree again;
  check(try_decode(codec, first_text, again), "an encoded record decodes");
  check(again == tree, "decode(encode(record)) == record");
  check(encode(codec, again).view() == first_text, "encoding is stable");
}

// Any byte string survives encode then decode; and a decodable string
// survives decode, encode, decode.
inline void string_round_trip_body(const std::uint8_t* data, std::size_t size) {
  const std::string value(as_text(data, size));
  const EncodedText text = encode(string_codec(), value);
  check(decode(string_codec(), text.view()) == value, "decode(encode(s)) == s");
  RawJsonValue raw;
  check(try_decode(raw_value_codec(), text.view(), raw), "an encoded string passes skip_value");
  std::string decoded;
  if (!try_decode(string_codec(), as_text(data, size), decoded)) return;
  check(decode(string_codec(), encode(string_codec(), decoded).view()) == decoded, "decoded strings round-trip");
}

}  // namespace orvanta::json::fuzz
