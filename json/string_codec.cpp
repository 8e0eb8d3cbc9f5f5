#include "json/string_codec.hpp"

#include <bit>
#include <cstdint>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace orvanta::json {

namespace {

constexpr const char* kHexDigitsMessage = "\\u must be followed by 4 hex digits";
constexpr std::uint64_t kOnes = 0x0101010101010101ULL;
constexpr std::uint64_t kHighs = 0x8080808080808080ULL;

inline std::uint64_t load64(const char* p) noexcept {
  std::uint64_t word;
  std::memcpy(&word, p, sizeof word);
  return word;
}

// High bit set in each byte of `word` that equals `byte` (exact for the
// lowest such byte, which is all a scan needs).
inline std::uint64_t bytes_equal(std::uint64_t word, unsigned char byte) noexcept {
  const std::uint64_t x = word ^ (kOnes * byte);
  return (x - kOnes) & ~x & kHighs;
}

// High bit set in each byte of `word` below 0x20 (exact for the lowest).
[[maybe_unused]] inline std::uint64_t bytes_below_space(std::uint64_t word) noexcept {
  return (word - kOnes * 0x20) & ~word & kHighs;
}

inline int hex_value(char c) noexcept {
  const auto b = static_cast<unsigned char>(c);
  if (b >= '0' && b <= '9') return b - '0';
  const unsigned lower = b | 0x20U;
  if (lower >= 'a' && lower <= 'f') return static_cast<int>(lower - 'a' + 10);
  return -1;
}

// Reads exactly four hexadecimal digits at the cursor.
std::uint32_t read_hex4(DecodeContext& context) {
  const char* p = context.position;
  if (context.end - p < 4) fail(context, kHexDigitsMessage, 0);
  std::uint32_t value = 0;
  for (int i = 0; i < 4; ++i) {
    const int digit = hex_value(p[i]);
    if (digit < 0) fail(context, kHexDigitsMessage, 0);
    value = (value << 4) | static_cast<std::uint32_t>(digit);
  }
  context.position = p + 4;
  return value;
}

void append_utf8(std::string& out, std::uint32_t v) {
  char bytes[4];
  if (v < 0x80) {
    out.push_back(static_cast<char>(v));
    return;
  }
  if (v < 0x800) {
    bytes[0] = static_cast<char>(0xC0 | (v >> 6));
    bytes[1] = static_cast<char>(0x80 | (v & 0x3F));
    out.append(bytes, 2);
    return;
  }
  if (v < 0x10000) {
    bytes[0] = static_cast<char>(0xE0 | (v >> 12));
    bytes[1] = static_cast<char>(0x80 | ((v >> 6) & 0x3F));
    bytes[2] = static_cast<char>(0x80 | (v & 0x3F));
    out.append(bytes, 3);
    return;
  }
  bytes[0] = static_cast<char>(0xF0 | (v >> 18));
  bytes[1] = static_cast<char>(0x80 | ((v >> 12) & 0x3F));
  bytes[2] = static_cast<char>(0x80 | ((v >> 6) & 0x3F));
  bytes[3] = static_cast<char>(0x80 | (v & 0x3F));
  out.append(bytes, 4);
}

// The cursor stands just behind "\u".
void decode_unicode_escape(DecodeContext& context, std::string& out) {
  const std::uint32_t v = read_hex4(context);
  if ((v & 0xFC00) == 0xD800 && context.end - context.position >= 2 && context.position[0] == '\\' &&
      context.position[1] == 'u') {
    context.position += 2;
    const std::uint32_t w = read_hex4(context);
    if ((w & 0xFC00) == 0xDC00) {
      append_utf8(out, 0x10000 + (((v & 0x3FF) << 10) | (w & 0x3FF)));
      return;
    }
    // Not a pair: the second escape is decoded again on the next pass, and
    // the lone high surrogate is written as its three-byte form.
    context.position -= 6;
  }
  append_utf8(out, v);
}

// The cursor stands just behind a backslash.
void decode_escape(DecodeContext& context, std::string& out) {
  if (context.position == context.end) fail(context, "Unterminated string");
  switch (*context.position++) {
    case '"': out.push_back('"'); break;
    case '/': out.push_back('/'); break;
    case '\\': out.push_back('\\'); break;
    case 'b': out.push_back('\b'); break;
    case 'f': out.push_back('\f'); break;
    case 'n': out.push_back('\n'); break;
    case 'r': out.push_back('\r'); break;
    case 't': out.push_back('\t'); break;
    case 'u': decode_unicode_escape(context, out); break;
    default: fail(context, "Invalid escape character", -1);
  }
}

// The slow path: `out` holds the run before the first backslash and the
// cursor stands just behind that backslash.
void decode_escaped_rest(DecodeContext& context, std::string& out) {
  decode_escape(context, out);
  for (;;) {
    const char* run = context.position;
    const char* stop = detail::find_quote_or_backslash(run, context.end);
    out.append(run, static_cast<std::size_t>(stop - run));
    context.position = stop;
    if (stop == context.end) fail(context, "Unterminated string");
    context.position = stop + 1;
    if (*stop == '"') return;
    decode_escape(context, out);
  }
}

// Opening quote; returns the start of the content.
inline const char* open_string(DecodeContext& context) {
  if (context.position == context.end) [[unlikely]] fail(context, "Unexpected end of input");
  if (*context.position++ != '"') [[unlikely]] fail(context, "Unexpected input", -1);
  return context.position;
}

inline char* write_escape(char* out, unsigned char byte) noexcept {
  static constexpr char kLetters[] = "uuuuuuuubtnufruuuuuuuuuuuuuuuuuu";
  static constexpr char kDigits[] = "0123456789ABCDEF";
  constexpr std::uint32_t kUnicodeForm = 0xFFFFC8FF;
  out[0] = '\\';
  if (byte == '"' || byte == '\\') {
    out[1] = static_cast<char>(byte);
    return out + 2;
  }
  if (((kUnicodeForm >> byte) & 1) == 0) {
    out[1] = kLetters[byte];
    return out + 2;
  }
  out[1] = 'u';
  out[2] = '0';
  out[3] = '0';
  out[4] = kDigits[byte >> 4];
  out[5] = kDigits[byte & 0xF];
  return out + 6;
}

inline bool needs_escape(unsigned char byte) noexcept { return byte < 0x20 || byte == '"' || byte == '\\'; }

// Writes the escaped form of [p, end) at `out`, which has room for six
// times the input; returns the new write pointer.
char* encode_chunk(const char* p, const char* end, char* out) noexcept {
  for (;;) {
#if defined(__SSE2__)
    const __m128i quote = _mm_set1_epi8('"');
    const __m128i backslash = _mm_set1_epi8('\\');
    const __m128i control_max = _mm_set1_epi8(0x1F);
    while (end - p >= 16) {
      const __m128i chunk = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
      // Stored before the test: the room of six times the input allows it.
      _mm_storeu_si128(reinterpret_cast<__m128i*>(out), chunk);
      const __m128i control = _mm_cmpeq_epi8(_mm_max_epu8(chunk, control_max), control_max);
      const __m128i hits =
          _mm_or_si128(_mm_or_si128(_mm_cmpeq_epi8(chunk, quote), _mm_cmpeq_epi8(chunk, backslash)), control);
      const auto mask = static_cast<unsigned>(_mm_movemask_epi8(hits));
      if (mask != 0) {
        const int skip = std::countr_zero(mask);
        p += skip;
        out += skip;
        break;
      }
      p += 16;
      out += 16;
    }
#else
    while (end - p >= 8) {
      const std::uint64_t word = load64(p);
      std::memcpy(out, &word, 8);
      const std::uint64_t hits = bytes_equal(word, '"') | bytes_equal(word, '\\') | bytes_below_space(word);
      if (hits != 0) {
        const int skip = std::countr_zero(hits) >> 3;
        p += skip;
        out += skip;
        break;
      }
      p += 8;
      out += 8;
    }
#endif
    while (p != end && !needs_escape(static_cast<unsigned char>(*p))) *out++ = *p++;
    if (p == end) return out;
    out = write_escape(out, static_cast<unsigned char>(*p));
    ++p;
  }
}

constexpr std::size_t kChunk = 1024;

}  // namespace

namespace detail {

const char* find_quote_or_backslash(const char* p, const char* end) noexcept {
#if defined(__SSE2__)
  const __m128i quote = _mm_set1_epi8('"');
  const __m128i backslash = _mm_set1_epi8('\\');
  while (end - p >= 16) {
    const __m128i chunk = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
    const auto mask = static_cast<unsigned>(
        _mm_movemask_epi8(_mm_or_si128(_mm_cmpeq_epi8(chunk, quote), _mm_cmpeq_epi8(chunk, backslash))));
    if (mask != 0) return p + std::countr_zero(mask);
    p += 16;
  }
#endif
  if constexpr (std::endian::native == std::endian::little) {
    while (end - p >= 8) {
      const std::uint64_t word = load64(p);
      const std::uint64_t hits = bytes_equal(word, '"') | bytes_equal(word, '\\');
      if (hits != 0) return p + (std::countr_zero(hits) >> 3);
      p += 8;
    }
  }
  while (p != end && *p != '"' && *p != '\\') ++p;
  return p;
}

std::string_view decode_string_view(DecodeContext& context, std::string& scratch) {
  const char* run = open_string(context);
  const char* stop = find_quote_or_backslash(run, context.end);
  if (stop == context.end) [[unlikely]] {
    context.position = stop;
    fail(context, "Unterminated string");
  }
  context.position = stop + 1;
  if (*stop == '"') [[likely]] {
    return {run, static_cast<std::size_t>(stop - run)};
  }
  scratch.assign(run, static_cast<std::size_t>(stop - run));
  decode_escaped_rest(context, scratch);
  return scratch;
}

void skip_string(DecodeContext& context) {
  open_string(context);
  for (;;) {
    const char* stop = find_quote_or_backslash(context.position, context.end);
    context.position = stop;
    if (stop == context.end) fail(context, "Unterminated string");
    context.position = stop + 1;
    if (*stop == '"') return;
    if (context.position == context.end) fail(context, "Unterminated string");
    switch (*context.position++) {
      case '"':
      case '/':
      case '\\':
      case 'b':
      case 'f':
      case 'n':
      case 'r':
      case 't':
        break;
      case 'u':
        read_hex4(context);
        break;
      default:
        fail(context, "Invalid escape character", -1);
    }
  }
}

}  // namespace detail

std::string decode_string(DecodeContext& context) {
  const char* run = open_string(context);
  const char* stop = detail::find_quote_or_backslash(run, context.end);
  if (stop == context.end) [[unlikely]] {
    context.position = stop;
    fail(context, "Unterminated string");
  }
  context.position = stop + 1;
  std::string out(run, static_cast<std::size_t>(stop - run));
  if (*stop == '\\') decode_escaped_rest(context, out);
  return out;
}

void encode_string(EncodeContext& context, std::string_view value) {
  const char* p = value.data();
  const char* const end = p + value.size();
  if (value.size() <= kChunk) {
    // One chunk: one reservation covers the quotes as well.
    char* out = context.reserve(6 * value.size() + 2);
    *out++ = '"';
    out = encode_chunk(p, end, out);
    *out++ = '"';
    context.position = out;
    return;
  }
  context.append('"');
  while (p != end) {
    const std::size_t n = static_cast<std::size_t>(end - p) < kChunk ? static_cast<std::size_t>(end - p) : kChunk;
    char* out = context.reserve(6 * n);
    context.position = encode_chunk(p, p + n, out);
    p += n;
  }
  context.append('"');
}

}  // namespace orvanta::json
