#pragma once

#include <map>
#include <optional>
#include <string>
#include <sys/types.h>

namespace orvanta::crash {

// The command line of the handler process, as a client builds it.
struct HandlerOptions {
  std::string database;     // --database=PATH, required
  std::string metrics_dir;  // --metrics-dir=PATH; accepted, nothing is recorded there
  std::string url;          // --url=URL, where uploads go; empty: nowhere
  std::map<std::string, std::string> annotations;  // --annotation=KEY=VALUE, repeatable
  bool rate_limit = true;   // --no-rate-limit turns it off
  int client_fd = -1;       // --client-fd=N, required: our end of the client's socket pair
  pid_t client_pid = 0;     // --client-pid=N, required: the process we serve
};

// Reads argv[1] onwards. Returns nullopt for an unknown or malformed
// argument or a missing required one, so that a client passing options this
// handler does not know gets a handler that refuses to start rather than one
// that silently ignores them.
std::optional<HandlerOptions> parse_handler_options(int argc, const char* const* argv);

}  // namespace orvanta::crash
