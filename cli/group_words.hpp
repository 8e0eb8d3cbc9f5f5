#pragma once

#include "cli/recognition.hpp"

// The rows of the command words that group subcommands. Each one reads the
// words behind its group word and leaves a command, an error or, when no
// row matches, the bare usage failure.
namespace orvanta::cli::detail {

void devices(Recognition& r);
void library(Recognition& r);
void playlist(Recognition& r);
void folder(Recognition& r);
void queue(Recognition& r);
void rondo(Recognition& r);
void pod(Recognition& r);

}  // namespace orvanta::cli::detail
