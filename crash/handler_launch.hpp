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

struct SpawnedHandler {
  pid_t pid = -1;
  int connection = -1;  // our end of the socket pair, close-on-exec
};

// Starts the handler with posix_spawn: its stdin, stdout and stderr on
// /dev/null, its end of a new socket pair as kHandlerClientFd, no other
// descriptor of ours, default signal dispositions, and this process named
// as the one allowed to read our memory. Returns nullopt when the socket
// pair or the process cannot be made.
std::optional<SpawnedHandler> spawn_handler(const HandlerLaunch& launch);

// Waits at most `timeout_ms` for the handler's ready byte. Returns false
// when the handler ends, says something else, or stays silent.
bool wait_until_ready(int connection, int timeout_ms);

}  // namespace orvanta::crash
