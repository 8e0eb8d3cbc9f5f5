#pragma once

#include <string_view>

#include "cli/command_line.hpp"
#include "commands/context.hpp"

namespace orvanta::commands {

// The handlers of the shared listening session commands. Each returns the
// exit status: 0, also for "No active Rondo session", or 1 after its own
// line on stderr.

int rondo_status(const cli::CommandLine& line, Context& context);
int rondo_create(Context& context);
int rondo_leave(Context& context);
int rondo_end(Context& context);
int rondo_members(const cli::CommandLine& line, Context& context);
int rondo_kick(std::string_view argument, Context& context);
int rondo_permissions(const cli::CommandLine& line, Context& context);

}  // namespace orvanta::commands
