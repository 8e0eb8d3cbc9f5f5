#include "json/number_codec.hpp"

#include <double-conversion/double-to-string.h>
#include <double-conversion/string-to-double.h>

#include <climits>
#include <cmath>
#include <cstring>
#include <limits>
#include <type_traits>

namespace orvanta::json {

namespace {

constexpr const char* kExponentMessage =
    "Exponent symbols should be followed by an optional '+' or '-' and then by at least one number";

inline bool is_digit(char c) noexcept { return static_cast<unsigned char>(c - '0') <= 9; }
inline unsigned digit_of(char c) noexcept { return static_cast<unsigned char>(c - '0'); }

// One step of the accumulation in T's width, modulo 2^bits; `negative`
// accumulates the negative value directly. Returns false where the single
// comparison of the fast path sees an overflow.
template <class T>
inline bool accumulate(T& value, unsigned digit, bool negative) noexcept {
  using U = std::make_unsigned_t<T>;
  if (negative) {
    const T next = static_cast<T>(static_cast<U>(static_cast<U>(value) * 10U) - static_cast<U>(digit));
    if (next > value) return false;
    value = next;
  } else {
    const T next = static_cast<T>(static_cast<U>(static_cast<U>(value) * 10U) + static_cast<U>(digit));
    if (next < value) return false;
    value = next;
  }
  return true;
}

// The slow path: rescans from the first digit with a fraction and an
// exponent, truncating towards zero.
template <class T>
T decode_integer_slow(DecodeContext& context, const char* first, bool negative) {
  const char* p = first;
  const char* const end = context.end;
  while (p != end && is_digit(*p)) ++p;
  const auto int_length = static_cast<std::size_t>(p - first);

  const char* fraction = p;
  std::size_t fraction_length = 0;
  if (p != end && *p == '.') {
    ++p;
    fraction = p;
    while (p != end && is_digit(*p)) ++p;
    fraction_length = static_cast<std::size_t>(p - fraction);
    if (fraction_length == 0) {
      context.position = p;
      fail(context, "Invalid digits after decimal point");
    }
  }

  std::uint32_t exponent = 0;
  bool exponent_negative = false;
  bool exponent_overflow = false;
  if (p != end && (static_cast<unsigned char>(*p) & 0xDF) == 'E') {
    ++p;
    if (p != end && (*p == '+' || *p == '-')) {
      exponent_negative = *p == '-';
      ++p;
    }
    const char* exponent_digits = p;
    while (p != end && is_digit(*p)) {
      const std::uint32_t next = exponent * 10U + digit_of(*p);
      if (next < exponent) exponent_overflow = true;
      exponent = next;
      ++p;
    }
    if (p == exponent_digits) {
      context.position = p;
      fail(context, kExponentMessage);
    }
  }
  context.position = p;

  if (exponent_overflow) {
    if (exponent_negative) return 0;
    std::uint32_t mantissa = 0;
    for (std::size_t i = 0; i < int_length; ++i) mantissa = mantissa * 10U + digit_of(first[i]);
    for (std::size_t i = 0; i < fraction_length; ++i) mantissa = mantissa * 10U + digit_of(fraction[i]);
    if (mantissa == 0) return 0;
    fail(context, "Integer overflow");
  }

  T value = 0;
  auto add = [&](char c) {
    if (!accumulate(value, digit_of(c), negative)) fail(context, "Integer overflow");
  };
  if (exponent_negative) {
    if (int_length <= exponent) return 0;
    for (std::size_t i = 0; i < int_length - exponent; ++i) add(first[i]);
    return value;
  }
  for (std::size_t i = 0; i < int_length; ++i) add(first[i]);
  if (exponent <= fraction_length) {
    for (std::size_t i = 0; i < exponent; ++i) add(fraction[i]);
    return value;
  }
  for (std::size_t i = 0; i < fraction_length; ++i) add(fraction[i]);
  if (value != 0) {
    for (std::size_t k = exponent - fraction_length; k > 0; --k) {
      if (negative ? value < std::numeric_limits<T>::min() / 10 : value > std::numeric_limits<T>::max() / 10) {
        fail(context, "Integer overflow");
      }
      value = static_cast<T>(value * 10);
    }
  }
  return value;
}

// Two decimal digits per entry.
constexpr char kDigitPairs[] =
    "00010203040506070809101112131415161718192021222324252627282930313233343536373839"
    "40414243444546474849505152535455565758596061626364656667686970717273747576777879"
    "8081828384858687888990919293949596979899";

inline int decimal_length(std::uint64_t v) noexcept {
  int n = 1;
  for (;;) {
    if (v < 10) return n;
    if (v < 100) return n + 1;
    if (v < 1000) return n + 2;
    if (v < 10000) return n + 3;
    v /= 10000U;
    n += 4;
  }
}

inline char* write_unsigned(char* out, std::uint64_t v) noexcept {
  const int length = decimal_length(v);
  char* p = out + length;
  while (v >= 100) {
    const auto pair = static_cast<std::size_t>(v % 100) * 2;
    v /= 100;
    *--p = kDigitPairs[pair + 1];
    *--p = kDigitPairs[pair];
  }
  if (v >= 10) {
    const auto pair = static_cast<std::size_t>(v) * 2;
    *--p = kDigitPairs[pair + 1];
    *--p = kDigitPairs[pair];
  } else {
    *--p = static_cast<char>('0' + v);
  }
  return out + length;
}

}  // namespace

bool decode_boolean(DecodeContext& context) {
  const char* p = context.position;
  if (p == context.end || (*p != 't' && *p != 'f')) fail(context, "Unexpected input, expected boolean");
  if (*p == 't') {
    if (context.end - p < 4) fail(context, "Unexpected end of input");
    if (std::memcmp(p, "true", 4) != 0) fail(context, "Unexpected input");
    context.position = p + 4;
    return true;
  }
  context.position = ++p;
  if (context.end - p < 4) fail(context, "Unexpected end of input");
  if (std::memcmp(p, "alse", 4) != 0) fail(context, "Unexpected input");
  context.position = p + 4;
  return false;
}

void encode_boolean(EncodeContext& context, bool value) {
  if (value) {
    context.append("true", 4);
  } else {
    context.append("false", 5);
  }
}

template <JsonInteger T>
T decode_integer(DecodeContext& context) {
  const char* p = context.position;
  const char* const end = context.end;
  bool negative = false;
  if constexpr (std::is_signed_v<T>) {
    if (p != end && *p == '-') {
      negative = true;
      ++p;
    }
  }
  if (p == end) {
    context.position = p;
    fail(context, "Unexpected end of input");
  }
  if (!is_digit(*p)) {
    context.position = p + 1;
    fail(context, "Invalid integer");
  }
  const char* first = p;
  T value = 0;
  do {
    if (!accumulate(value, digit_of(*p), negative)) return decode_integer_slow<T>(context, first, negative);
    ++p;
  } while (p != end && is_digit(*p));
  if (p != end && (*p == '.' || *p == 'e' || *p == 'E')) return decode_integer_slow<T>(context, first, negative);
  context.position = p;
  return value;
}

template <JsonInteger T>
void encode_integer(EncodeContext& context, T value) {
  using U = std::make_unsigned_t<T>;
  char* out = context.reserve(21);
  U magnitude;
  if (value < 0) {
    *out++ = '-';
    magnitude = static_cast<U>(U{0} - static_cast<U>(value));
  } else {
    magnitude = static_cast<U>(value);
  }
  context.position = write_unsigned(out, magnitude);
}

template std::int32_t decode_integer<std::int32_t>(DecodeContext&);
template std::uint32_t decode_integer<std::uint32_t>(DecodeContext&);
template std::int64_t decode_integer<std::int64_t>(DecodeContext&);
template std::uint64_t decode_integer<std::uint64_t>(DecodeContext&);
template void encode_integer<std::int32_t>(EncodeContext&, std::int32_t);
template void encode_integer<std::uint32_t>(EncodeContext&, std::uint32_t);
template void encode_integer<std::int64_t>(EncodeContext&, std::int64_t);
template void encode_integer<std::uint64_t>(EncodeContext&, std::uint64_t);

double decode_double(DecodeContext& context) {
  using double_conversion::StringToDoubleConverter;
  // A function-local static: initialised once under the compiler's guard and
  // immutable afterwards. No symbols and no case insensitivity: the static
  // orvanta_cli links without the C++ locale that case-insensitive matching
  // needs (app/without_cxx_locale.cpp).
  static const StringToDoubleConverter converter(StringToDoubleConverter::ALLOW_TRAILING_JUNK,
                                                 std::numeric_limits<double>::quiet_NaN(),
                                                 std::numeric_limits<double>::quiet_NaN(), nullptr, nullptr);
  // The remaining bytes, their count cut to what an int holds (the library's
  // length type); a number is never that long.
  const auto remaining = static_cast<std::size_t>(context.end - context.position);
  const int length = remaining > static_cast<std::size_t>(INT_MAX) ? INT_MAX : static_cast<int>(remaining);
  int processed = 0;
  const double value = converter.StringToDouble(context.position, length, &processed);
  if (std::isnan(value)) fail(context, "Invalid floating point number");
  context.position += processed;
  return value;
}

void encode_double(EncodeContext& context, double value) {
  using double_conversion::DoubleToStringConverter;
  static const DoubleToStringConverter converter(
      DoubleToStringConverter::EMIT_POSITIVE_EXPONENT_SIGN | DoubleToStringConverter::UNIQUE_ZERO, nullptr, nullptr,
      'e', -6, 21, 6, 0);
  constexpr int kRoom = 26;
  char* out = context.reserve(kRoom);
  double_conversion::StringBuilder builder(out, kRoom);
  if (!converter.ToShortest(value, &builder)) {
    fail_encode("Special values like 'Infinity' or 'NaN' are supported in JSON.");
  }
  context.position = out + builder.position();
}

}  // namespace orvanta::json
