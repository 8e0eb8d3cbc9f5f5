#pragma once

#include "cli/command_line.hpp"
#include "commands/context.hpp"

namespace orvanta::commands {

// The handlers of `library list|contains|add|remove`. `list` and `contains`
// print JSON under `--format json`; `add` and `remove` print their count in
// either mode. Each returns the exit status: 0, or 1 after its own line on
// stderr.

int library_list(const cli::CommandLine& line, Context& context);
int library_contains(const cli::CommandLine& line, Context& context);
int library_add(const cli::CommandLine& line, Context& context);
int library_remove(const cli::CommandLine& line, Context& context);

}  // namespace orvanta::commands
