// Helpers of the json tests: decode a text with a codec and compare the
// exact failure text and offset.
#pragma once

#include <gtest/gtest.h>

#include <stdexcept>

#include <string>
#include <string_view>

#include "json/json.hpp"

namespace orvanta::json::testing {

struct DecodeFailure {
  std::string message;
  std::size_t offset = 0;
  bool operator==(const DecodeFailure&) const = default;
};

inline void PrintTo(const DecodeFailure& failure, std::ostream* out) {
  *out << '"' << failure.message << "\" at " << failure.offset;
}

// Runs one codec's decode on a context over `text` without the top-level
// rules and returns the failure, or a failure with the message "no failure"
// when the text decoded.
template <class Function>
DecodeFailure raw_failure(std::string_view text, Function&& function) {
  DecodeContext context(text);
  try {
    function(context);
  } catch (const decode_exception& e) {
    return {e.what(), e.offset()};
  }
  return {"no failure", 0};
}

// As above through `decode`, with the trailing-input rule.
template <Codec C>
DecodeFailure decode_failure(const C& codec, std::string_view text) {
  return raw_failure(text, [&](DecodeContext&) { (void)decode(codec, text); });
}

// A codec whose decode throws something other than decode_exception.
struct ThrowingCodec {
  using value_type = int;
  int decode(DecodeContext&) const { throw std::logic_error("other"); }
  void encode(EncodeContext&, int) const {}
};

}  // namespace orvanta::json::testing

#define EXPECT_DECODE_ERROR(codec, text, message, offset) \
  EXPECT_EQ(::orvanta::json::testing::decode_failure((codec), (text)), \
            (::orvanta::json::testing::DecodeFailure{(message), (offset)})) << "input: " << (text)
