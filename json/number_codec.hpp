// Booleans, the four integer widths and doubles.
#pragma once

#include <concepts>
#include <cstdint>

#include "json/context.hpp"

namespace orvanta::json {

// The integer types that have a codec: signed and unsigned, 32 and 64 bits.
template <class T>
concept JsonInteger = std::same_as<T, std::int32_t> || std::same_as<T, std::uint32_t> ||
                      std::same_as<T, std::int64_t> || std::same_as<T, std::uint64_t>;

// Reads `true` or `false`. Throws decode_exception ("Unexpected input,
// expected boolean", "Unexpected end of input", "Unexpected input").
bool decode_boolean(DecodeContext& context);
void encode_boolean(EncodeContext& context, bool value);

// Reads a decimal integer of T's width. A fraction and an exponent are
// accepted and the value truncated towards zero. Throws decode_exception
// ("Unexpected end of input", "Invalid integer", "Invalid digits after
// decimal point", the exponent message, "Integer overflow").
template <JsonInteger T>
T decode_integer(DecodeContext& context);

// Writes the plain decimal form.
template <JsonInteger T>
void encode_integer(EncodeContext& context, T value);

// Reads a number through double-conversion; whatever follows the number is
// left for the caller. Throws decode_exception ("Invalid floating point
// number").
double decode_double(DecodeContext& context);

// Writes the shortest form that reads back to the same bits. Throws
// encode_exception for an infinity or NaN.
void encode_double(EncodeContext& context, double value);

extern template std::int32_t decode_integer<std::int32_t>(DecodeContext&);
extern template std::uint32_t decode_integer<std::uint32_t>(DecodeContext&);
extern template std::int64_t decode_integer<std::int64_t>(DecodeContext&);
extern template std::uint64_t decode_integer<std::uint64_t>(DecodeContext&);
extern template void encode_integer<std::int32_t>(EncodeContext&, std::int32_t);
extern template void encode_integer<std::uint32_t>(EncodeContext&, std::uint32_t);
extern template void encode_integer<std::int64_t>(EncodeContext&, std::int64_t);
extern template void encode_integer<std::uint64_t>(EncodeContext&, std::uint64_t);

}  // namespace orvanta::json
