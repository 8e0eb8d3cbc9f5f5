#pragma once

#include "crash/handler_launch.hpp"

#include <map>
#include <memory>
#include <string>
#include <sys/types.h>
#include <vector>

namespace orvanta::crash {

namespace detail {
struct HandlerWatch;
}  // namespace detail

// Starts and keeps the handler process of this program, and points the
// fatal-signal handler at it. A detached watcher thread owns the handler
// once it runs: it reaps it and starts a new one when it dies and, when the
// client goes, closes the connection and reaps it, so that neither the
// client's destruction nor the program's exit waits for another process.
class HandlerClient {
 public:
  HandlerClient();
  // Stops reporting to this handler and tells the watcher to end it: the
  // handler exits when it reads the end of its connection, at the latest
  // when the program ends.
  ~HandlerClient();
  HandlerClient(const HandlerClient&) = delete;
  HandlerClient& operator=(const HandlerClient&) = delete;

  // Starts `handler` with the database, metrics directory, upload URL,
  // annotations and extra arguments and returns as soon as the process
  // exists; the handler sets itself up while the caller goes on. That is
  // safe whatever `asynchronous_start` says (the start is always this
  // cheap one): a crash that comes first waits in the connection until the
  // handler reads it. On success the fatal-signal handlers are installed and
  // report to this handler. With `restartable`, a handler that dies is
  // replaced, at most once a second, unless it refused its command line.
  // Returns false when the handler cannot be spawned (a missing executable
  // among the causes) or when this client has been started before.
  bool start_handler(const std::string& handler, const std::string& database,
                     const std::string& metrics_dir, const std::string& url,
                     const std::map<std::string, std::string>& annotations,
                     const std::vector<std::string>& arguments, bool restartable,
                     bool asynchronous_start);

  // The running handler's process id; -1 when there is none, also for the
  // moment between start_handler and the spawn on the watcher thread.
  pid_t handler_pid() const;

 private:
  std::shared_ptr<detail::HandlerWatch> watch_;
  bool watched_ = false;  // a watcher thread runs and owns the handler
};

}  // namespace orvanta::crash
