#include "crash/handler_client.hpp"

#include "crash/crash_signals.hpp"

#include <atomic>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <optional>
#include <poll.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <system_error>
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

// How long the end of a client waits for its handler to follow before
// killing it; the handler needs well under a millisecond to see the end of
// its connection and exit.
constexpr int kExitWaitMs = 200;

// The exit status of a handler that refused its command line; starting it
// again would only be refused again.
constexpr int kRefusedStatus = 2;

int open_pidfd(pid_t pid) { return static_cast<int>(syscall(SYS_pidfd_open, pid, 0)); }

// Reaps `pid` and returns its wait status; -1 when it is not ours to reap.
int reap(pid_t pid) {
  int status = 0;
  for (;;) {
    if (waitpid(pid, &status, 0) == pid) return status;
    if (errno != EINTR) return -1;
  }
}

// Waits at most `timeout_ms` for process `pid` to end; true once it has.
bool wait_for_exit(pid_t pid, int timeout_ms) {
  int fd = open_pidfd(pid);
  if (fd < 0) return true;  // gone already
  pollfd exited{fd, POLLIN, 0};
  int ready = 0;
  do {
    ready = poll(&exited, 1, timeout_ms);
  } while (ready < 0 && errno == EINTR);
  close(fd);
  return ready == 1;
}

// Starts the handler on the handler's end of the connection, which is
// closed here either way; a crash that came before has been waiting in the
// connection and is read once the handler runs. Returns false when the
// process cannot be made.
bool spawn_on(Watch& watch, int handler_end) {
  pid_t pid = spawn_handler(watch.launch, handler_end);
  close(handler_end);
  if (pid < 0) return false;
  watch.pid.store(pid);
  return true;
}

// The connection is in place before the handler starts, so a crash at any
// moment after this has somewhere to go.
std::optional<int> connect(Watch& watch) {
  auto connection = make_handler_connection();
  if (!connection) return std::nullopt;
  watch.connection.store(connection->client);
  set_handler_connection(connection->client);
  return connection->handler;
}

void close_connection(Watch& watch) {
  int connection = watch.connection.exchange(-1);
  if (connection >= 0) {
    clear_handler_connection(connection);
    close(connection);
  }
}

// Closing our end is what ends the handler: it reads end of file and exits.
// One that does not follow in time is killed, so none is left behind.
void end_handler(Watch& watch) {
  close_connection(watch);
  pid_t pid = watch.pid.exchange(-1);
  if (pid <= 0) return;
  if (!wait_for_exit(pid, kExitWaitMs)) kill(pid, SIGKILL);
  reap(pid);
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

// Waits until the handler ends or a stop is asked for. Returns true on
// stop; otherwise the handler has been reaped and `status` holds its wait
// status.
bool stop_requested_before_handler_ends(Watch& watch, int& status) {
  pid_t pid = watch.pid.load();
  int pidfd = open_pidfd(pid);
  for (;;) {
    pollfd fds[2] = {{pidfd, POLLIN, 0}, {watch.stop_pipe[0], POLLIN, 0}};
    if (poll(fds, 2, -1) < 0) continue;
    if (fds[1].revents != 0) {
      if (pidfd >= 0) close(pidfd);
      return true;
    }
    if (fds[0].revents != 0 || pidfd < 0) break;
  }
  if (pidfd >= 0) close(pidfd);
  close_connection(watch);
  watch.pid.store(-1);
  status = reap(pid);
  return false;
}

bool relaunch(Watch& watch) {
  auto handler_end = connect(watch);
  return handler_end && spawn_on(watch, *handler_end);
}

bool refused(int status) { return WIFEXITED(status) && WEXITSTATUS(status) == kRefusedStatus; }

// The first start happens here, off the program's thread: the program only
// pays for the connection and this thread, not for the process.
void watch_handler(std::shared_ptr<Watch> watch, int handler_end) {
  if (!spawn_on(*watch, handler_end)) {
    close_connection(*watch);  // a crash now finds its connection closed
    return;
  }
  auto last_start = Clock::now();
  for (;;) {
    int status = 0;
    if (stop_requested_before_handler_ends(*watch, status)) break;
    if (!watch->restartable || refused(status) ||
        stop_requested_before(*watch, last_start + kRestartInterval)) {
      break;
    }
    last_start = Clock::now();
    // A failed start is tried again after the interval.
    bool stopped = false;
    while (!stopped && !relaunch(*watch)) {
      stopped = stop_requested_before(*watch, Clock::now() + kRestartInterval);
    }
    if (stopped) break;
  }
  end_handler(*watch);
}

}  // namespace

HandlerClient::HandlerClient() = default;

// The program's exit must not wait for another process, so the watcher is
// only told to end the handler, which it does while the program goes on; at
// the program's exit the kernel closes the connection, the handler ends on
// its own, and whoever inherits it reaps it.
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
                                  bool /*asynchronous_start*/) {
  if (watch_ != nullptr) return false;
  auto watch = std::make_shared<detail::HandlerWatch>();
  watch->launch = HandlerLaunch{handler, database, metrics_dir, url, annotations, arguments};
  watch->restartable = restartable;
  // The spawn itself happens later, on the watcher; a handler that is not
  // there at all is known now.
  if (access(handler.c_str(), X_OK) != 0) return false;
  if (pipe2(watch->stop_pipe, O_CLOEXEC) != 0) return false;
  auto handler_end = connect(*watch);
  if (!handler_end) return false;
  if (!install_crash_signal_handlers()) {
    close(*handler_end);
    close_connection(*watch);
    return false;
  }
  try {
    std::thread(watch_handler, watch, *handler_end).detach();
    watched_ = true;
  } catch (const std::system_error&) {
    // No thread to spare: the handler starts here and runs unwatched,
    // without restarts, and this client ends it.
    if (!spawn_on(*watch, *handler_end)) {
      close_connection(*watch);
      return false;
    }
  }
  watch_ = std::move(watch);
  return true;
}

pid_t HandlerClient::handler_pid() const {
  return watch_ == nullptr ? -1 : watch_->pid.load();
}

}  // namespace orvanta::crash
