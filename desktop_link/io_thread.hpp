#pragma once

// The seam between the blocking main thread and the link's coroutines: one
// io_context, one thread that runs it, and run_and_wait, the only place where
// the main thread waits for a coroutine.
//
// The owner (the command runner) keeps, in this order:
//   asio::io_context context;
//   IoThread io_thread{context};
//   ... the launcher, and the client built on `context` ...
// and its destructor disconnects the client if it is connected, then calls
// context.stop(); the members then go in reverse order: the client, the
// launcher, the thread (stopped and joined), the context.

#include <chrono>
#include <exception>
#include <functional>
#include <future>
#include <optional>
#include <string>
#include <thread>
#include <type_traits>
#include <utility>

#include <asio/awaitable.hpp>
#include <asio/bind_executor.hpp>
#include <asio/co_spawn.hpp>
#include <asio/io_context.hpp>
#include <asio/use_future.hpp>

namespace orvanta::link {

inline constexpr const char* io_thread_name = "Orvanta CLI IO";

// The name this thread was given by IoThread, or an empty string.
const std::string& current_thread_name();

// Runs `context` on a thread named "Orvanta CLI IO" under a work guard, so
// that run() does not return between operations; it returns once the
// context is stopped. The destructor asks the thread to stop and joins it.
// Throws std::system_error when the thread can't be started. A failure of
// run() itself ends the process.
class IoThread {
 public:
  explicit IoThread(asio::io_context& context);
  ~IoThread();
  IoThread(const IoThread&) = delete;
  IoThread& operator=(const IoThread&) = delete;

 private:
  std::jthread thread_;
};

namespace detail {

// What an operation ended with: its value, or the exception it let out.
template <class T>
struct Outcome {
  std::optional<T> value;
  std::exception_ptr failure;
};
template <>
struct Outcome<void> {
  std::exception_ptr failure;
};

// Runs `operation` and hands its exception over as a value, so that it
// leaves the IO thread inside the future's value rather than as the
// future's exception.
template <class T>
asio::awaitable<Outcome<T>> settle(asio::awaitable<T> operation) {
  Outcome<T> outcome;
  try {
    if constexpr (std::is_void_v<T>) {
      co_await std::move(operation);
    } else {
      auto value = co_await std::move(operation);
      outcome.value.emplace(std::move(value));
    }
  } catch (...) {
    outcome.failure = std::current_exception();
  }
  co_return outcome;
}

// Spawns `operation` on `context`; its future holds the outcome. The
// completion is bound to our own context: a bare use_future would deliver it
// through asio's system executor, which starts a thread pool of its own for
// that.
template <class T>
std::future<Outcome<T>> spawn_settled(asio::io_context& context, asio::awaitable<T> operation) {
  return asio::co_spawn(context, settle(std::move(operation)), asio::bind_executor(context, asio::use_future));
}

// The value of a finished operation, or its exception rethrown here. The
// exception is moved out of the future, so the calling thread holds the
// last reference to it: the future's shared state, which asio may release
// on another thread, keeps none.
template <class T>
T take(std::future<Outcome<T>>& done) {
  Outcome<T> outcome = done.get();
  if (outcome.failure) std::rethrow_exception(std::move(outcome.failure));
  if constexpr (!std::is_void_v<T>) return std::move(*outcome.value);
}

}  // namespace detail

// Spawns `operation` on `context` and waits until it has finished; returns
// its value or rethrows its exception on the calling thread. Must not be
// called on the thread that runs `context`.
template <class T>
T run_and_wait(asio::io_context& context, asio::awaitable<T> operation) {
  // The caller sleeps on the future: watching it instead would save the
  // wake-up but burn a core for every slow answer.
  std::future<detail::Outcome<T>> done = detail::spawn_settled(context, std::move(operation));
  return detail::take(done);
}

// As run_and_wait, but waits no later than `deadline`, and returns nothing
// when the operation has not finished by then. The operation is abandoned,
// still running on the IO thread; the connection's shutdown ends it.
template <class T>
std::optional<T> run_and_wait_until(asio::io_context& context, asio::awaitable<T> operation,
                                    std::chrono::steady_clock::time_point deadline) {
  std::future<detail::Outcome<T>> done = detail::spawn_settled(context, std::move(operation));
  if (done.wait_until(deadline) == std::future_status::timeout) return std::nullopt;
  return detail::take(done);
}

// Returns once the thread that runs `context` has run one job.
void wait_until_running(asio::io_context& context);

// Runs `job` on the thread that runs `context` and blocks until it is done.
// The socket and the timers belong to that thread: the shutdown's disconnect
// goes through here, so that no other thread touches them while the reader
// may be waiting on the socket.
void run_job_and_wait(asio::io_context& context, std::function<void()> job);

}  // namespace orvanta::link
