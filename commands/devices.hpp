#pragma once

#include <string_view>

#include "cli/command_line.hpp"
#include "commands/context.hpp"

namespace orvanta::commands {

// The handlers of `devices list|transfer|volume|info`. Each returns the exit
// status: 0, or 1 after its own line on stderr.

int devices_list(const cli::CommandLine& line, Context& context);
int devices_transfer(std::string_view device, Context& context);
int devices_volume(const cli::CommandLine& line, Context& context);
int devices_info(std::string_view device, Context& context);

// For `play --device`: finds `device` by name, else by id, in the cluster,
// then transfers playback to it as `devices transfer` does, with the text
// as typed. Prints its own lines and returns the status.
int transfer_to_named_device(std::string_view device, Context& context);

}  // namespace orvanta::commands
