#pragma once

#include "cli/command_line.hpp"
#include "commands/context.hpp"

namespace orvanta::commands {

// The handlers of `folder list|create|rename|move|remove`. Only `list`
// prints JSON under `--format json`. Each returns the exit status: 0, or 1
// after its own line on stderr.

// Gives up after 8 seconds without an answer: reading a large folder
// hierarchy is the one request whose wait is bounded.
int folder_list(const cli::CommandLine& line, Context& context);
int folder_create(const cli::CommandLine& line, Context& context);
// The recogniser has checked that the new name follows the folder.
int folder_rename(const cli::CommandLine& line, Context& context);
// Checks the destination against the hierarchy, then moves one URI per
// request; stops at the first failure, leaving moved what has moved.
int folder_move(const cli::CommandLine& line, Context& context);
int folder_remove(const cli::CommandLine& line, Context& context);

}  // namespace orvanta::commands
