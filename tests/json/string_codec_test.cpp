// Strings: escapes, surrogates, raw control bytes, the 1024-byte chunks of
// the encoder and the alignment paths of the word-at-a-time scans.
#include "json/string_codec.hpp"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "json/json.hpp"
#include "json_test_support.hpp"

namespace orvanta::json {
namespace {

using namespace std::string_literals;

std::string decoded(std::string_view text) { return decode(string_codec(), text); }
std::string encoded(const std::string& value) { return encode(string_codec(), value).str(); }

// The escape table, one byte at a time, as the reference for the fast
// encoder.
std::string reference_encode(std::string_view value) {
  std::string out = "\"";
  for (const char c : value) {
    const auto byte = static_cast<unsigned char>(c);
    const char* named = byte == '"' ? "\\\"" : byte == '\\' ? "\\\\" : byte == 0x08 ? "\\b" : byte == 0x09 ? "\\t"
                      : byte == 0x0A ? "\\n" : byte == 0x0C ? "\\f" : byte == 0x0D ? "\\r" : nullptr;
    char buffer[8];
    if (!named && byte < 0x20) {
      std::snprintf(buffer, sizeof buffer, "\\u00%02X", byte);
      named = buffer;
    }
    named ? out.append(named) : out.append(1, c);
  }
  return out + "\"";
}

TEST(DecodeString, EveryEscape) {
  EXPECT_EQ(decoded(R"("\"\/\\\b\f\n\r\t")"), "\"/\\\b\f\n\r\t");
  EXPECT_EQ(decoded(R"("\u0041\u00e9\u00E9\u20AC")"), "A\xC3\xA9\xC3\xA9\xE2\x82\xAC");
  EXPECT_EQ(decoded(R"("\u007F\u0080\u07FF\u0800\uFFFF")"), "\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF");
  EXPECT_EQ(decoded(R"("a\u0000b")"), "a\0b"s);
}

TEST(DecodeString, Surrogates) {
  EXPECT_EQ(decoded(R"("\uD83D\uDE00")"), "\xF0\x9F\x98\x80");
  EXPECT_EQ(decoded(R"("\ud83d\ude00")"), "\xF0\x9F\x98\x80");
  EXPECT_EQ(decoded(R"("\uDBFF\uDFFF")"), "\xF4\x8F\xBF\xBF");
  // Incomplete pairs are not errors; each half is written as its (invalid)
  // three-byte form, as the peer's library does.
  EXPECT_EQ(decoded(R"("\uD83D")"), "\xED\xA0\xBD");
  EXPECT_EQ(decoded(R"("\uD83Dx")"), "\xED\xA0\xBDx");
  EXPECT_EQ(decoded(R"("\uD83D\u0041")"), "\xED\xA0\xBD" "A");
  EXPECT_EQ(decoded(R"("\uD83D\uD83D\uDE00")"), "\xED\xA0\xBD\xF0\x9F\x98\x80");
  EXPECT_EQ(decoded(R"("\uDE00")"), "\xED\xB8\x80");
  EXPECT_EQ(decoded(R"("\uD83D\n")"), "\xED\xA0\xBD\n");
}

TEST(DecodeString, RawControlAndHighBytesPassThrough) {
  EXPECT_EQ(decoded("\"a\nb\"\n"), "a\nb");
  EXPECT_EQ(decoded("\"\x01\x1F\x7F\xFF\""), "\x01\x1F\x7F\xFF");
}

TEST(DecodeString, Failures) {
  using testing::DecodeFailure;
  const auto failure = [](std::string_view text) {
    return testing::raw_failure(text, [](DecodeContext& c) { decode_string(c); });
  };
  EXPECT_EQ(failure(""), (DecodeFailure{"Unexpected end of input", 0}));
  EXPECT_EQ(failure("abc"), (DecodeFailure{"Unexpected input", 0}));
  EXPECT_EQ(failure(R"("abc)"), (DecodeFailure{"Unterminated string", 4}));
  EXPECT_EQ(failure(R"("abc\)"), (DecodeFailure{"Unterminated string", 5}));
  EXPECT_EQ(failure(R"("a\nbc)"), (DecodeFailure{"Unterminated string", 6}));
  EXPECT_EQ(failure(R"("a\x")"), (DecodeFailure{"Invalid escape character", 3}));
  EXPECT_EQ(failure(R"("a\n\')"), (DecodeFailure{"Invalid escape character", 5}));
  EXPECT_EQ(failure(R"("\u12")"), (DecodeFailure{"\\u must be followed by 4 hex digits", 3}));
  EXPECT_EQ(failure(R"("\u12G4")"), (DecodeFailure{"\\u must be followed by 4 hex digits", 3}));
  EXPECT_EQ(failure(R"("\uD83D\u12")"), (DecodeFailure{"\\u must be followed by 4 hex digits", 9}));
}

TEST(DecodeString, EveryAlignmentAndStopPosition) {
  // The scan aligns and steps by words; put the stop byte at every position
  // for every start offset.
  for (std::size_t lead = 0; lead < 17; ++lead) {
    for (std::size_t length = 0; length < 70; ++length) {
      std::string content;
      for (std::size_t i = 0; i < length; ++i) content.push_back(static_cast<char>('a' + i % 26));
      const std::string text = std::string(lead, ' ') + '"' + content + '"';
      EXPECT_EQ(decoded(text), content) << lead << ' ' << length;
      const std::string escaped = std::string(lead, ' ') + '"' + content + "\\\\" + content + '"';
      EXPECT_EQ(decoded(escaped), content + "\\" + content) << lead << ' ' << length;
      const std::string unterminated = std::string(lead, ' ') + '"' + content;
      EXPECT_DECODE_ERROR(string_codec(), unterminated, "Unterminated string", unterminated.size());
    }
  }
}

TEST(EncodeString, TheEscapeTable) {
  EXPECT_EQ(encoded("\x0B\x1F"), R"("\u000B\u001F")");
  EXPECT_EQ(encoded("a/b"), R"("a/b")");
  EXPECT_EQ(encoded("\"\\\b\f\n\r\t"), R"("\"\\\b\f\n\r\t")");
  EXPECT_EQ(encoded("\x7F\x80\xFF"), "\"\x7F\x80\xFF\"");
  EXPECT_EQ(encoded(""s), R"("")");
  EXPECT_EQ(encoded("\0"s), R"("\u0000")");
  for (int byte = 0; byte < 256; ++byte) {
    const std::string one(1, static_cast<char>(byte));
    EXPECT_EQ(encoded(one), reference_encode(one)) << byte;
  }
}

TEST(EncodeString, ChunkBoundaries) {
  // 1024-byte chunks with a six-fold reservation each: escapes on both
  // sides of every boundary, and worst-case strings.
  for (const std::size_t length : {1023u, 1024u, 1025u, 2047u, 2048u, 2049u, 5000u}) {
    std::string plain(length, 'x');
    EXPECT_EQ(encoded(plain), reference_encode(plain)) << length;
    for (const std::size_t at : {std::size_t{0}, std::size_t{1023}, std::size_t{1024}, length - 1}) {
      if (at >= length) continue;
      std::string value = plain;
      value[at] = '\x01';
      EXPECT_EQ(encoded(value), reference_encode(value)) << length << ' ' << at;
      value[at] = '"';
      EXPECT_EQ(encoded(value), reference_encode(value)) << length << ' ' << at;
    }
    const std::string worst(length, '\x01');
    EXPECT_EQ(encoded(worst), reference_encode(worst)) << length;
  }
}

TEST(EncodeString, EveryAlignmentAndEscapePosition) {
  for (std::size_t lead = 0; lead < 17; ++lead) {
    for (std::size_t length = 1; length < 50; ++length) {
      for (std::size_t at = 0; at < length; at += 3) {
        std::string value(length, 'q');
        value[at] = '\\';
        // A prefix in the same buffer moves the source's alignment.
        const std::string buffer = std::string(lead, 'p') + value;
        const std::string_view view(buffer.data() + lead, length);
        EncodeContext context(4096);
        encode_string(context, view);
        EXPECT_EQ(context.view(), reference_encode(value)) << lead << ' ' << length << ' ' << at;
      }
    }
  }
}

}  // namespace
}  // namespace orvanta::json
