// One call per record: the record as a test builds it, the JSON text written
// by hand from its wire table, and the keys of each presence word.
//
//   check_record(queue_move_request_codec, {.from_position = 3, .to_position = 0},
//                R"({"from_position":3,"to_position":0})",
//                {.required = "from_position to_position"});
//
// The built record must encode to exactly `text`, which catches a key bound
// to the wrong member (a round trip alone would swap it back). `text` must
// then pass the wire table checks of wire_table.hpp once for every key named
// in the probes, so each row states the whole presence column of its table.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "json/json.hpp"
#include "wire_table.hpp"

namespace orvanta::test {

// Space-separated key lists.
struct Probes {
  std::string_view required = {};
  std::string_view defaulted = {};
  std::string_view optional = {};
};

template <class R>
void check_record(json::ObjectCodec<R> (*factory)(), const R& value, std::string_view text, Probes probes = {}) {
  SCOPED_TRACE(std::string(text));
  EXPECT_EQ(json::encode(factory(), value).view(), text);
  check_wire_case({"", runner(factory), text, probes.required, probes.defaulted, probes.optional});
}

// The decode-only outcome through a record's factory: "ok", or "error: " and
// the decode_exception's message.
template <class R>
std::string outcome(json::ObjectCodec<R> (*factory)(), std::string_view text) {
  return decode_outcome(factory(), text);
}

}  // namespace orvanta::test
