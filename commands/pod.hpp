#pragma once

#include "cli/command_line.hpp"
#include "commands/context.hpp"

namespace orvanta::commands {

// The handlers of `pod upload`, `pod shows [create|delete]` and
// `pod episodes [create|status|delete]`. Under `--format json` a success
// prints the whole response on one line. Each returns the exit status: 0, or
// 1 after its own line on stderr.

int pod_upload(const cli::CommandLine& line, Context& context);
int pod_shows(const cli::CommandLine& line, Context& context);
int pod_shows_create(const cli::CommandLine& line, Context& context);
int pod_shows_delete(const cli::CommandLine& line, Context& context);
int pod_episodes(const cli::CommandLine& line, Context& context);
int pod_episodes_create(const cli::CommandLine& line, Context& context);
int pod_episodes_status(const cli::CommandLine& line, Context& context);
int pod_episodes_delete(const cli::CommandLine& line, Context& context);

}  // namespace orvanta::commands
