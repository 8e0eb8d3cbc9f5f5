#include "crash/handler_client.hpp"

#include "crash/crash_signals.hpp"

#include <cerrno>
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

namespace orvanta::crash {
namespace {

using Clock = std::chrono::steady_clock;

constexpr auto kRestartInterval = std::chrono::seconds(1);

// Sleeps until `deadline` or until the stop pipe is written. Returns true
// when asked to stop.
bool stop_requested_before(int stop_fd, Clock::time_point deadline) {
  for (;;) {
    auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
    pollfd watch{stop_fd, POLLIN, 0};
    int ready = poll(&watch, 1, left.count() > 0 ? static_cast<int>(left.count()) : 0);
    if (ready > 0) return true;
    if (ready == 0) return false;
    if (errno != EINTR) return false;
  }
}

// POLLHUP on the connection: the handler has closed its end, which it only
// does by ending. A 'W' after a crash report is not waited for here.
bool handler_gone(int connection, int stop_fd, bool& stop) {
  pollfd watch[2] = {{connection, 0, 0}, {stop_fd, POLLIN, 0}};
  if (poll(watch, 2, -1) < 0) return false;
  stop = watch[1].revents != 0;
  return !stop && (watch[0].revents & (POLLHUP | POLLERR)) != 0;
}

void reap(pid_t pid) {
  int status = 0;
  while (waitpid(pid, &status, 0) < 0 && errno == EINTR) {
  }
}

}  // namespace

HandlerClient::~HandlerClient() {
  if (watcher_.joinable()) {
    char stop = 's';
    (void)write(stop_pipe_[1], &stop, 1);
    watcher_.join();
  }
  for (int fd : stop_pipe_) {
    if (fd >= 0) close(fd);
  }
  end_handler();
}

bool HandlerClient::start_handler(const std::string& handler, const std::string& database,
                                  const std::string& metrics_dir, const std::string& url,
                                  const std::map<std::string, std::string>& annotations,
                                  const std::vector<std::string>& arguments, bool restartable,
                                  bool asynchronous_start) {
  if (pid_.load() > 0 || watcher_.joinable()) return false;
  launch_ = HandlerLaunch{handler, database, metrics_dir, url, annotations, arguments};
  if (!launch(!asynchronous_start)) return false;
  if (!install_crash_signal_handlers()) {
    end_handler();
    return false;
  }
  if (restartable && pipe2(stop_pipe_, O_CLOEXEC) == 0) watcher_ = std::thread([this] { watch(); });
  return true;
}

bool HandlerClient::launch(bool synchronous) {
  auto spawned = spawn_handler(launch_);
  if (!spawned) return false;
  if (synchronous && !wait_until_ready(spawned->connection, kReadyTimeoutMs)) {
    kill(spawned->pid, SIGKILL);  // silent or gone: either way of no use
    close(spawned->connection);
    reap(spawned->pid);
    return false;
  }
  // The connection is in place before the pid is published, so whoever
  // sees the new pid also has its crashes reported to it.
  connection_ = spawned->connection;
  set_handler_connection(connection_);
  pid_.store(spawned->pid);
  return true;
}

void HandlerClient::end_handler() {
  if (connection_ >= 0) {
    clear_handler_connection(connection_);
    close(connection_);
    connection_ = -1;
  }
  // The handler reads end-of-file on its connection and ends at once.
  pid_t pid = pid_.exchange(-1);
  if (pid > 0) reap(pid);
}

void HandlerClient::watch() {
  auto last_start = Clock::now();
  for (;;) {
    bool stop = false;
    while (!handler_gone(connection_, stop_pipe_[0], stop)) {
      if (stop) return;
    }
    end_handler();
    if (stop_requested_before(stop_pipe_[0], last_start + kRestartInterval)) return;
    last_start = Clock::now();
    // A failed start is tried again after the interval, so the watcher only
    // idles when the handler cannot be started at all.
    while (!launch(true)) {
      if (stop_requested_before(stop_pipe_[0], Clock::now() + kRestartInterval)) return;
    }
  }
}

}  // namespace orvanta::crash
