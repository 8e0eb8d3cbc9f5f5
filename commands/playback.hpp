#pragma once

#include <string_view>

#include "cli/command_line.hpp"
#include "commands/context.hpp"

namespace orvanta::commands {

// The handlers of the commands that drive the player and report its state.
// Each returns the exit status: 0, or 1 after its own line on stderr.

int status(const cli::CommandLine& line, Context& context);
int me(Context& context);
int play(const cli::CommandLine& line, Context& context);
int pause(Context& context);
int resume(Context& context);
int next(Context& context);
int previous(Context& context);
int seek(const cli::CommandLine& line, Context& context);
int shuffle(std::string_view argument, Context& context);
int repeat(std::string_view argument, Context& context);
int speed(std::string_view argument, Context& context);
int volume(std::string_view argument, Context& context);

}  // namespace orvanta::commands
