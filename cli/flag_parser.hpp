#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "cli/command_line.hpp"

namespace orvanta::cli {

// Walks argv[start..argc) and writes every recognised flag into `line`.
// Words that are not flags are ignored positionals, unless
// `positional_message` is given. With `allowed_count` above 0 only the flags
// in `allowed` are taken; any other word beginning with '-' fails with
// `unknown_flag_message`, or with the unknown-option text when that is empty.
// Returns nothing: a failure leaves its text in error_text() and command()
// at CommandId::None. Does nothing when `line` already holds an error.
void parse_flags(CommandLine& line, int argc, const char* const* argv, int start,
                 const std::string_view* allowed = nullptr, std::size_t allowed_count = 0,
                 std::string_view unknown_flag_message = {},
                 std::string_view positional_message = {});

// Byte comparison of the first prefix.size() bytes; false when `text` is
// shorter.
bool starts_with(std::string_view text, std::string_view prefix);

// True when strtoll in base 10 reads all of `text`, at least one character,
// and the value is above 0. Leading blanks and a sign are accepted, and an
// overflowing value saturates, so it passes.
bool is_positive_integer(const char* text);

// As is_positive_integer(), for a value of 0 or above.
bool is_non_negative_integer(const char* text);

namespace detail {

// strtoll, strtol and strtof in base 10 and the C locale, whatever locale
// the process runs in. `end` is left behind the last character read, or on
// `text` when nothing was read.
long long c_strtoll(const char* text, const char*& end);
long c_strtol(const char* text, const char*& end);
float c_strtof(const char* text, const char*& end);

// The stored form of a validated number: strtol's value narrowed to 32 bits
// without a range check, so "4294967297" gives 1.
std::int32_t to_int32(const char* text);

}  // namespace detail

}  // namespace orvanta::cli
