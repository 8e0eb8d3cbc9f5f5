#pragma once

#include "cli/command_line.hpp"
#include "commands/context.hpp"

namespace orvanta::commands {

// The handlers of `pod timeline get|set|delete`. The timeline file of `set`
// is read by the desktop client, never here. Under `--format json` a success
// prints the whole response on one line. Each returns the exit status: 0, or
// 1 after its own line on stderr.

int pod_timeline_get(const cli::CommandLine& line, Context& context);
int pod_timeline_set(const cli::CommandLine& line, Context& context);
int pod_timeline_delete(const cli::CommandLine& line, Context& context);

}  // namespace orvanta::commands
