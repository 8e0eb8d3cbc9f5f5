#pragma once

#include "cli/command_line.hpp"

namespace orvanta::cli {

// Turns the argument vector given to main into one CommandLine: notes
// --format, --version and help requests wherever they stand, finds the
// command from the first words, checks its positionals and hands the rest
// to parse_flags(). Never prints and never throws. A usage failure comes
// back as command() == CommandId::None, with error_text() set for a
// rejected word, unknown_word() set for an unknown command, or neither when
// the usage page alone is the answer. `argv` must outlive the result.
CommandLine parse_command_line(int argc, const char* const* argv);

// True when strtof, in the C locale, reads all of `text` and at least one
// character, and 0.0 <= value <= max as 32-bit floats. "nan" fails.
bool is_float_in_range(const char* text, float max);

}  // namespace orvanta::cli
