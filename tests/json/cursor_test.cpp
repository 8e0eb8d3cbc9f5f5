// The cursors: a size that wraps around, the whitespace skipper and the
// top-level rules.
#include "json/context.hpp"

#include <gtest/gtest.h>

#include <limits>
#include <new>

#include "json/json.hpp"
#include "json_test_support.hpp"

namespace orvanta::json {
namespace {

TEST(EncodeContext, ASizeThatWrapsAroundThrowsBadAlloc) {
  EncodeContext context(16);
  context.append('x');
  EXPECT_THROW(context.reserve(std::numeric_limits<std::size_t>::max()), std::bad_alloc);
  EXPECT_EQ(context.view(), "x");  // unchanged
}

TEST(SkipWhitespace, SkipsExactlyTheFourBytes) {
  for (int byte = 0; byte < 256; ++byte) {
    const char c = static_cast<char>(byte);
    DecodeContext one(&c, &c + 1);
    skip_whitespace(one);
    const bool skipped = one.position == one.end;
    EXPECT_EQ(skipped, byte == 9 || byte == 10 || byte == 13 || byte == 32) << byte;
  }
  DecodeContext empty("", static_cast<const char*>("") + 0);
  skip_whitespace(empty);
  EXPECT_EQ(empty.position, empty.end);
}

TEST(TopLevel, TryDecodeRefusesEmptyWhitespaceAndTrailingText) {
  bool value = true;
  EXPECT_FALSE(try_decode(boolean_codec(), "", 0, value));
  EXPECT_FALSE(try_decode(boolean_codec(), " \n\t", value));
  EXPECT_FALSE(try_decode(boolean_codec(), "false x", value));
  EXPECT_TRUE(value);  // untouched on failure
  EXPECT_TRUE(try_decode(boolean_codec(), " \r\nfalse\t ", value));
  EXPECT_FALSE(value);
}

TEST(TopLevel, DecodeNamesTheTrailingText) {
  EXPECT_DECODE_ERROR(boolean_codec(), "true  x", "Unexpected trailing input", 6u);
  EXPECT_DECODE_ERROR(boolean_codec(), "   ", "Unexpected input, expected boolean", 3u);
  EXPECT_DECODE_ERROR(integer_codec<std::int32_t>(), "1 2", "Unexpected trailing input", 2u);
}

// Only the codec's own failure becomes false; anything else is not a
// verdict on the text and passes through.
TEST(TopLevel, TryDecodeLetsOtherExceptionsThrough) {
  int value = 0;
  EXPECT_THROW(try_decode(testing::ThrowingCodec{}, "1", value), std::logic_error);
}

}  // namespace
}  // namespace orvanta::json
