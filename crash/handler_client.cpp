#include "crash/handler_client.hpp"

#include "crash/crash_signals.hpp"

#include <atomic>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <system_error>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace orvanta::crash {

namespace detail {

// What the client and its watcher thread share. After the start only the
// watcher changes it; the client reads the two atomics and writes the stop
// pipe.
struct HandlerWatch {
  HandlerLaunch launch;
  bool restartable = false;
  std::atomic<pid_t> pid{-1};
  std::atomic<int> connection{-1};
  int stop_pipe[2] = {-1, -1};

  ~HandlerWatch() {
    for (int fd : stop_pipe) {
      if (fd >= 0) close(fd);
    }
  }
};

}  // namespace detail

namespace {

using Clock = std::chrono::steady_clock;
using Watch = detail::HandlerWatch;

constexpr auto kRestartInterval = std::chrono::seconds(1);

void reap(pid_t pid) {
  int status = 0;
  while (waitpid(pid, &status, 0) < 0 && errno == EINTR) {
  }
}

bool launch(Watch& watch, bool synchronous) {
  auto spawned = spawn_handler(watch.launch);
  if (!spawned) return false;
  if (synchronous && !wait_until_ready(spawned->connection, HandlerClient::kReadyTimeoutMs)) {
    kill(spawned->pid, SIGKILL);  // silent or gone: either way of no use
    close(spawned->connection);
    reap(spawned->pid);
    return false;
  }
  // The connection is in place before the pid is published, so whoever
  // sees the new pid also has its crashes reported to it.
  watch.connection.store(spawned->connection);
  set_handler_connection(spawned->connection);
  watch.pid.store(spawned->pid);
  return true;
}

// Closing our end is what ends the handler: it reads end of file and exits.
void end_handler(Watch& watch) {
  int connection = watch.connection.exchange(-1);
  if (connection >= 0) {
    clear_handler_connection(connection);
    close(connection);
  }
  pid_t pid = watch.pid.exchange(-1);
  if (pid > 0) reap(pid);
}

// Sleeps until `deadline` or until the stop pipe is written. Returns true
// when asked to stop.
bool stop_requested_before(const Watch& watch, Clock::time_point deadline) {
  for (;;) {
    auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
    pollfd stop{watch.stop_pipe[0], POLLIN, 0};
    int ready = poll(&stop, 1, left.count() > 0 ? static_cast<int>(left.count()) : 0);
    if (ready > 0) return true;
    if (ready == 0 || errno != EINTR) return false;
  }
}

// Waits until the handler is gone (POLLHUP: it has closed its end, which it
// only does by ending) or a stop is asked for. A 'W' byte after a crash is
// for the signal handler and does not wake this wait. Returns true on stop.
bool stop_requested_before_handler_ends(const Watch& watch) {
  for (;;) {
    pollfd fds[2] = {{watch.connection.load(), 0, 0}, {watch.stop_pipe[0], POLLIN, 0}};
    if (poll(fds, 2, -1) < 0) continue;
    if (fds[1].revents != 0) return true;
    if ((fds[0].revents & (POLLHUP | POLLERR)) != 0) return false;
  }
}

void watch_handler(std::shared_ptr<Watch> watch) {
  auto last_start = Clock::now();
  for (;;) {
    if (stop_requested_before_handler_ends(*watch)) break;
    end_handler(*watch);
    if (!watch->restartable || stop_requested_before(*watch, last_start + kRestartInterval)) break;
    last_start = Clock::now();
    // A failed start is tried again after the interval.
    bool stopped = false;
    while (!stopped && !launch(*watch, true)) {
      stopped = stop_requested_before(*watch, Clock::now() + kRestartInterval);
    }
    if (stopped) break;
  }
  end_handler(*watch);
}

}  // namespace

HandlerClient::~HandlerClient() {
  if (watch_ == nullptr) return;
  if (!watched_) {
    end_handler(*watch_);
    return;
  }
  clear_handler_connection(watch_->connection.load());
  char stop = 's';
  (void)write(watch_->stop_pipe[1], &stop, 1);
}

bool HandlerClient::start_handler(const std::string& handler, const std::string& database,
                                  const std::string& metrics_dir, const std::string& url,
                                  const std::map<std::string, std::string>& annotations,
                                  const std::vector<std::string>& arguments, bool restartable,
                                  bool asynchronous_start) {
  if (watch_ != nullptr) return false;
  auto watch = std::make_shared<detail::HandlerWatch>();
  watch->launch = HandlerLaunch{handler, database, metrics_dir, url, annotations, arguments};
  watch->restartable = restartable;
  if (pipe2(watch->stop_pipe, O_CLOEXEC) != 0) return false;
  if (!launch(*watch, !asynchronous_start)) return false;
  if (!install_crash_signal_handlers()) {
    end_handler(*watch);
    return false;
  }
  try {
    std::thread(watch_handler, watch).detach();
    watched_ = true;
  } catch (const std::system_error&) {
    // No thread to spare: the handler runs unwatched, without restarts,
    // and this client ends it.
  }
  watch_ = std::move(watch);
  return true;
}

pid_t HandlerClient::handler_pid() const {
  return watch_ == nullptr ? -1 : watch_->pid.load();
}

}  // namespace orvanta::crash
