#pragma once

#include "cli/command_line.hpp"
#include "commands/context.hpp"

namespace orvanta::commands {

// The handlers of `playlist get|create|update|add|remove`. Only `get` prints
// JSON under `--format json`. Each returns the exit status: 0, or 1 after its
// own line on stderr.

int playlist_get(const cli::CommandLine& line, Context& context);
// Both check a given `--image-file` before anything is sent; an error of the
// file system other than "not found" leaves as std::filesystem_error.
int playlist_create(const cli::CommandLine& line, Context& context);
int playlist_update(const cli::CommandLine& line, Context& context);
int playlist_add(const cli::CommandLine& line, Context& context);
int playlist_remove(const cli::CommandLine& line, Context& context);

}  // namespace orvanta::commands
