#pragma once

#include "crash/handler_launch.hpp"

#include <atomic>
#include <map>
#include <string>
#include <sys/types.h>
#include <thread>
#include <vector>

namespace orvanta::crash {

// Starts and keeps the handler process of this program, and points the
// fatal-signal handler at it.
class HandlerClient {
 public:
  // How long a synchronous start waits for the handler to say it is ready.
  static constexpr int kReadyTimeoutMs = 5000;

  HandlerClient() = default;
  // Stops the watcher and closes the connection, upon which the handler
  // ends by itself; then reaps it.
  ~HandlerClient();
  HandlerClient(const HandlerClient&) = delete;
  HandlerClient& operator=(const HandlerClient&) = delete;

  // Starts `handler` with the database, metrics directory, upload URL,
  // annotations and extra arguments, and unless `asynchronous_start` waits
  // until it is ready (an asynchronous start is safe too: a crash before the
  // handler is ready waits in the socket until it reads it). On success the
  // fatal-signal handlers are installed and report to this handler. With
  // `restartable`, a watcher thread starts a new handler whenever the
  // running one dies, at most once a second. Returns false when the handler
  // cannot be started or, for a synchronous start, is not ready within
  // kReadyTimeoutMs; may be called once per client.
  bool start_handler(const std::string& handler, const std::string& database,
                     const std::string& metrics_dir, const std::string& url,
                     const std::map<std::string, std::string>& annotations,
                     const std::vector<std::string>& arguments, bool restartable,
                     bool asynchronous_start);

  // The running handler's process id; -1 when there is none.
  pid_t handler_pid() const { return pid_.load(); }

 private:
  bool launch(bool synchronous);
  void watch();
  void end_handler();

  HandlerLaunch launch_;
  std::atomic<pid_t> pid_{-1};
  int connection_ = -1;  // owned by the watcher thread while it runs
  int stop_pipe_[2] = {-1, -1};
  std::thread watcher_;
};

}  // namespace orvanta::crash
