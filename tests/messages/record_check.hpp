// Wire checks of message records against JSON texts written by hand from
// each record's wire table.
//
//   check_record(queue_move_request_codec, {.from_position = 3, .to_position = 0},
//                R"({"from_position":3,"to_position":0})");
//
// The built record must encode to exactly `text`, which catches a wrong key,
// a wrong order and a key bound to the wrong member. A table of WireCase rows
// does without the built record: each text must decode and encode again to
// the same bytes, which catches a wrong key or order but not two keys of one
// type swapped. Either way, each key named in `required` (space-separated)
// must make decoding fail when it is left out; a row's `defaulted` keys may
// be left out and are written back. Only records the client decodes name
// their required keys: for a request, required and defaulted keys are both
// always written, and only the simulator reads them.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <span>
#include <utility>
#include <string>
#include <string_view>

#include "json/json.hpp"

namespace orvanta::test {

// The decode-only outcome of one text: "ok", or "error: " and the message.
template <class C>
std::string decode_outcome(const C& codec, std::string_view text) {
  try {
    (void)json::decode(codec, text);
    return "ok";
  } catch (const json::decode_exception& e) {
    return std::string("error: ") + e.what();
  }
}

// Decodes a text and encodes the record again, or gives "error: " and the
// message.
using WireRunner = std::function<std::string(std::string_view)>;

template <class R>
WireRunner runner(json::ObjectCodec<R> (*factory)()) {
  return [factory](std::string_view text) {
    const std::string outcome = decode_outcome(factory(), text);
    return outcome == "ok" ? json::encode(factory(), json::decode(factory(), text)).str() : outcome;
  };
}

struct WireCase {
  std::string_view name;
  WireRunner run;
  std::string_view text;
  std::string_view required = {};
  std::string_view defaulted = {};
  std::string_view optional = {};
};

// Where the member `key` of the top-level object stands in `text`, and its
// value's text; npos when it isn't there.
inline std::pair<std::size_t, std::string> find_member(std::string_view text, std::string_view key) {
  const auto members = json::decode(json::string_map_codec(json::raw_value_codec()), text);
  const auto found = members.find(std::string(key));
  if (found == members.end()) return {std::string_view::npos, ""};
  const std::string member = "\"" + std::string(key) + "\":" + std::string(found->second.view());
  return {text.find(member), member};
}

// `text` without its top-level member `key` and the comma that joined it.
inline std::string without_member(std::string_view text, std::string_view key) {
  const auto [at, member] = find_member(text, key);
  if (at == std::string_view::npos) return "no key " + std::string(key);
  std::string out(text);
  if (out[at + member.size()] == ',') return out.erase(at, member.size() + 1);
  if (out[at - 1] == ',') return out.erase(at - 1, member.size() + 1);
  return out.erase(at, member.size());
}

// `text` with the value of `key` replaced by `null`.
inline std::string with_null(std::string_view text, std::string_view key) {
  const auto [at, member] = find_member(text, key);
  if (at == std::string_view::npos) return "no key " + std::string(key);
  const std::size_t value = at + key.size() + 3;
  return std::string(text).replace(value, member.size() - (value - at), "null");
}

inline void check_wire_case(const WireCase& c) {
  SCOPED_TRACE(std::string(c.name) + " " + std::string(c.text));
  EXPECT_EQ(c.run(c.text), c.text);
  const auto probe = [&](std::string_view words, const std::string& expected) {
    for (std::size_t at = 0; at < words.size();) {
      const std::size_t space = std::min(words.find(' ', at), words.size());
      const std::string_view key = words.substr(at, space - at);
      EXPECT_EQ(c.run(without_member(c.text, key)), expected) << "without " << key;
      at = space + 1;
    }
  };
  probe(c.required, "error: Missing required field(s)");
  probe(c.defaulted, std::string(c.text));
  // Without an optional key the record is written back without it; a
  // `null` in its place is refused.
  for (std::size_t at = 0; at < c.optional.size();) {
    const std::size_t space = std::min(c.optional.find(' ', at), c.optional.size());
    const std::string_view key = c.optional.substr(at, space - at);
    const std::string absent = without_member(c.text, key);
    EXPECT_EQ(c.run(absent), absent) << "without " << key;
    EXPECT_EQ(c.run(with_null(c.text, key)).rfind("error: ", 0), 0U) << "null for " << key;
    at = space + 1;
  }
}

inline void check_wire_table(std::span<const WireCase> cases) {
  for (const WireCase& c : cases) check_wire_case(c);
}

// The keys of each presence word, for a record whose defaulted keys are
// probed too.
struct Probes {
  std::string_view required = {};
  std::string_view defaulted = {};
  std::string_view optional = {};
};

template <class R>
void check_record(json::ObjectCodec<R> (*factory)(), const R& value, std::string_view text, Probes probes) {
  EXPECT_EQ(json::encode(factory(), value).view(), text);
  check_wire_case({"", runner(factory), text, probes.required, probes.defaulted, probes.optional});
}

template <class R>
void check_record(json::ObjectCodec<R> (*factory)(), const R& value, std::string_view text,
                  std::string_view required = {}) {
  check_record(factory, value, text, Probes{required});
}

}  // namespace orvanta::test
