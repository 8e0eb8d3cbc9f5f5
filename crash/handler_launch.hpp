#pragma once

#include <map>
#include <optional>
#include <string>
#include <sys/types.h>
#include <vector>

namespace orvanta::crash {

// Everything needed to start a handler process, kept so that it can be
// started again.
struct HandlerLaunch {
  std::string handler;  // path of the executable
  std::string database;
  std::string metrics_dir;
  std::string url;
  std::map<std::string, std::string> annotations;
  std::vector<std::string> arguments;
};

// The descriptor under which the handler finds its end of the socket pair.
inline constexpr int kHandlerClientFd = 3;

// The handler's argv: the executable, --database=, --metrics-dir=, --url=,
// one --annotation=KEY=VALUE per pair, the extra arguments, and last
// --client-fd= and --client-pid=.
std::vector<std::string> handler_command_line(const HandlerLaunch& launch, pid_t client_pid);

// The two ends of a new connection between a client and its handler, both
// close-on-exec; the client keeps `client`, the handler gets `handler`.
struct HandlerConnection {
  int client = -1;
  int handler = -1;
};

// Returns nullopt when no socket pair can be made.
std::optional<HandlerConnection> make_handler_connection();

// Starts the handler with posix_spawn, which runs nothing of ours in the
// child before the exec: its stdin, stdout and stderr on /dev/null,
// `handler_end` as kHandlerClientFd, no other descriptor of ours, default
// signal dispositions, and this process named as the one allowed to trace
// us. The caller still owns `handler_end` and closes it afterwards. Returns
// the process id, or -1 when the process cannot be made, a missing or
// unrunnable executable included.
pid_t spawn_handler(const HandlerLaunch& launch, int handler_end);

}  // namespace orvanta::crash
