#pragma once

#include "cli/command_line.hpp"
#include "commands/context.hpp"

namespace orvanta::commands {

// The one table from a command to its handler: runs the handler of a
// connected command. Ids without a handler (the holes
// of the numbering, and commands still to come) return 1 without a word.
int dispatch_command(const cli::CommandLine& line, Context& context);

}  // namespace orvanta::commands
