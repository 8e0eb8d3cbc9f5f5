// Table-driven wire checks for message records.
//
// One row per record: its name, its codec factory, and a JSON text written
// by hand from the record's wire table, with every key in table order and
// representative values. The text must decode and re-encode to the very same
// bytes, so a wrong key, a wrong order or a wrong presence shows up as a
// byte difference. A row may also name keys to probe, each a space-separated
// list:
//   required  - without the key decoding fails with "Missing required field(s)";
//   defaulted - the text holds the key at its default; without it the record
//               still decodes and is written back with the key;
//   optional  - without the key the record decodes and is written back
//               without it; a `null` in its place is refused (so not for
//               raw values or string-or-null members, which take `null`).
//
//   const WireCase cases[] = {
//       {"ConnectSetVolumeRequest", runner(connect_set_volume_request_codec),
//        R"({"device_id":"d1","volume":40})", "device_id volume"},   // required, defaulted, optional
//   };
//   check_wire_table(cases);
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "json/json.hpp"

namespace orvanta::test {

// Decodes a text and encodes the record again; a decode failure comes back
// as "error: " and the exception's message, so that expectations can name
// the exact text.
using WireRunner = std::function<std::string(std::string_view)>;

template <class R>
WireRunner runner(json::ObjectCodec<R> (*factory)()) {
  return [factory](std::string_view text) -> std::string {
    const json::ObjectCodec<R> codec = factory();
    try {
      return json::encode(codec, json::decode(codec, text)).str();
    } catch (const json::decode_exception& e) {
      return std::string("error: ") + e.what();
    }
  };
}

// The decode-only outcome of one text: "ok" or "error: " and the message.
template <class C>
std::string decode_outcome(const C& codec, std::string_view text) {
  try {
    (void)json::decode(codec, text);
    return "ok";
  } catch (const json::decode_exception& e) {
    return std::string("error: ") + e.what();
  }
}

struct WireCase {
  std::string_view name;
  WireRunner run;
  std::string_view text;
  std::string_view required = {};
  std::string_view defaulted = {};
  std::string_view optional = {};
};

namespace detail {

// Where the member `key` of the top-level object in `text` begins and ends,
// its value included; npos when the key isn't there.
struct MemberSpan {
  std::size_t begin = std::string_view::npos;
  std::size_t end = std::string_view::npos;
  std::size_t value_begin = std::string_view::npos;
};

inline MemberSpan find_member(std::string_view text, std::string_view key) {
  json::DecodeContext context(text.data(), text.data() + text.size());
  ++context.position;  // '{'
  while (context.position != context.end && *context.position == '"') {
    const auto begin = static_cast<std::size_t>(context.position - text.data());
    const std::string name = json::decode_string(context);
    ++context.position;  // ':'
    const auto value_begin = static_cast<std::size_t>(context.position - text.data());
    json::skip_value(context);
    const auto end = static_cast<std::size_t>(context.position - text.data());
    if (name == key) return {begin, end, value_begin};
    ++context.position;  // ',' or '}'
  }
  return {};
}

// `text` without the member `key` and the comma that joined it.
inline std::string without_member(std::string_view text, std::string_view key) {
  const MemberSpan span = find_member(text, key);
  if (span.begin == std::string_view::npos) return "key not in text: " + std::string(key);
  std::string out(text);
  if (out[span.end] == ',') return out.erase(span.begin, span.end + 1 - span.begin);
  if (out[span.begin - 1] == ',') return out.erase(span.begin - 1, span.end + 1 - span.begin);
  return out.erase(span.begin, span.end - span.begin);
}

// `text` with the value of `key` replaced by `null`.
inline std::string with_null(std::string_view text, std::string_view key) {
  const MemberSpan span = find_member(text, key);
  if (span.begin == std::string_view::npos) return "key not in text: " + std::string(key);
  return std::string(text).replace(span.value_begin, span.end - span.value_begin, "null");
}

template <class Each>
void for_each_word(std::string_view words, Each each) {
  while (!words.empty()) {
    const std::size_t space = words.find(' ');
    if (space != 0) each(words.substr(0, space));
    if (space == std::string_view::npos) break;
    words.remove_prefix(space + 1);
  }
}

}  // namespace detail

inline void check_wire_case(const WireCase& c) {
  SCOPED_TRACE(std::string(c.name));
  EXPECT_EQ(c.run(c.text), c.text);
  detail::for_each_word(c.required, [&](std::string_view key) {
    EXPECT_EQ(c.run(detail::without_member(c.text, key)), "error: Missing required field(s)") << "required " << key;
  });
  detail::for_each_word(c.defaulted, [&](std::string_view key) {
    EXPECT_EQ(c.run(detail::without_member(c.text, key)), c.text) << "defaulted " << key;
  });
  detail::for_each_word(c.optional, [&](std::string_view key) {
    const std::string absent = detail::without_member(c.text, key);
    EXPECT_EQ(c.run(absent), absent) << "optional " << key;
    EXPECT_EQ(c.run(detail::with_null(c.text, key)).rfind("error: ", 0), 0U) << "null for optional " << key;
  });
}

inline void check_wire_table(std::span<const WireCase> cases) {
  for (const WireCase& c : cases) check_wire_case(c);
}

}  // namespace orvanta::test
