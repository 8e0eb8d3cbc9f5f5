#pragma once

#include <string_view>

#include "commands/context.hpp"

namespace orvanta::commands {

// Decodes `manifest` and runs its ops in order on the client of `context`,
// one JSON line per op on its `out`, then the summary: a text line, or a
// JSON one with `json_output`. Stop mode is on when `stop_on_error` or the
// manifest's own `stop_on_error` says so; then every op after the first
// failure is skipped.
// Returns 0 when no op failed, else 1; also 1 after "library batch: invalid
// manifest JSON: ..." on `err` when the manifest does not decode, in which
// case nothing has run and nothing is printed on `out`.
int run_batch(std::string_view manifest, bool stop_on_error, bool json_output, Context& context);

}  // namespace orvanta::commands
