#pragma once

#include "cli/command_line.hpp"
#include "commands/context.hpp"

namespace orvanta::commands {

// `library batch`: reads the manifest from `--from-file` or else from stdin
// and runs it (see run_batch). Returns 1 after its own line on stderr when
// the file can't be opened or stdin is empty, else the batch's status.
int library_batch(const cli::CommandLine& line, Context& context);

}  // namespace orvanta::commands
