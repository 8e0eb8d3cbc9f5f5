// Strings: decoding with every escape and the surrogate rules, encoding with
// the escape table. All text is bytes; nothing here validates UTF-8.
#pragma once

#include <string>
#include <string_view>

#include "json/context.hpp"

namespace orvanta::json {

// Decodes the string at the cursor, which must stand on the opening quote.
// Throws decode_exception ("Unexpected end of input", "Unexpected input",
// "Unterminated string", "Invalid escape character", "\u must be followed by
// 4 hex digits").
std::string decode_string(DecodeContext& context);

// Appends `value` as a JSON string with its quotes.
void encode_string(EncodeContext& context, std::string_view value);

namespace detail {

// First byte in [p, end) that is '"' or '\\', or `end`.
const char* find_quote_or_backslash(const char* p, const char* end) noexcept;

// As decode_string, but returns a view: into the input when the string has
// no escape, else into `scratch`. The view lives as long as both do.
std::string_view decode_string_view(DecodeContext& context, std::string& scratch);

// Validates and passes over the string at the cursor without building it.
// Surrogates are not looked at. Same failures as decode_string.
void skip_string(DecodeContext& context);

}  // namespace detail

}  // namespace orvanta::json
