#pragma once

#include "cli/command_line.hpp"
#include "commands/context.hpp"

namespace orvanta::commands {

// `version`: the four compile-time versions, as text lines or one JSON object.
int version(const cli::CommandLine& line, Context& context);

// `open`: hands every word behind `open` to the launcher. Prints nothing.
int open(const cli::CommandLine& line, Context& context);

// `navigate`: opens the URI in the application; with --play, connects and
// plays it.
int navigate(const cli::CommandLine& line, Context& context);

}  // namespace orvanta::commands
