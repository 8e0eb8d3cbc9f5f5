#pragma once

#include <string_view>

#include "cli/command_line.hpp"
#include "commands/context.hpp"

namespace orvanta::commands {

// The handlers of `queue [list]|add|remove|move`. Positions are 0-based over
// the upcoming tracks, and the list shows the same numbers. Each returns the
// exit status: 0, or 1 after its own line on stderr.

int queue_list(const cli::CommandLine& line, Context& context);
int queue_add(std::string_view uri, Context& context);
// The recogniser has checked that `position` holds a value.
int queue_remove(const cli::CommandLine& line, Context& context);
// The recogniser has checked that `positions` holds two values.
int queue_move(const cli::CommandLine& line, Context& context);

}  // namespace orvanta::commands
