#pragma once

#include "cli/command_line.hpp"
#include "commands/context.hpp"

namespace orvanta::commands {

// The handlers of the read-only content queries. Each makes one request and
// prints the response as one JSON line under `--format json`, else as text.
// Each returns the exit status: 0, or 1 after its own line on stderr.

int search(const cli::CommandLine& line, Context& context);
// Also 1 when every entity it got back is unresolved.
int lookup(const cli::CommandLine& line, Context& context);
int taste(const cli::CommandLine& line, Context& context);
int history_top(const cli::CommandLine& line, Context& context);
int history_recent(const cli::CommandLine& line, Context& context);
int now_playing(const cli::CommandLine& line, Context& context);

}  // namespace orvanta::commands
