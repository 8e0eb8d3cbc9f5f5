#pragma once

#include "cli/command_line.hpp"
#include "commands/context.hpp"

namespace orvanta::cli {

// Runs the handler of a connected command. Ids without a handler (the holes
// of the numbering, and commands still to come) return 1 without a word.
int dispatch_command(const CommandLine& line, commands::Context& context);

}  // namespace orvanta::cli
