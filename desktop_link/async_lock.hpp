#pragma once

// A mutex for coroutines. The request engine holds it from before a frame is
// written until its reply has been taken, so that exactly one exchange is in
// flight on a connection.
//
// Waiters park on a timer of their own; unlock() wakes the oldest live one by
// cancelling its wait. The woken waiter then competes for the lock again, so
// it may have to queue once more if another coroutine got there first.

#include <atomic>
#include <chrono>
#include <deque>
#include <memory>
#include <system_error>

#include <asio/awaitable.hpp>
#include <asio/io_context.hpp>
#include <asio/steady_timer.hpp>

namespace orvanta::link {

// One parked coroutine of an AsyncLock.
struct LockWaiter {
  explicit LockWaiter(asio::io_context& context) : timer(context) {}

  asio::steady_timer timer;
  bool waiting = false;
  // Set by the lock's destructor: the lock must not be touched any more.
  bool lock_gone = false;
};

class AsyncLock {
 public:
  explicit AsyncLock(asio::io_context& context) noexcept : executor_(&context) {}
  ~AsyncLock();
  AsyncLock(const AsyncLock&) = delete;
  AsyncLock& operator=(const AsyncLock&) = delete;

  // Takes the lock, waiting up to `timeout` (endless_timeout for no limit).
  // Returns a zero code when the lock is held, `timed_out` when the wait
  // expired, `operation_aborted` when the lock is being destroyed, or the
  // timer's failure.
  [[nodiscard]] asio::awaitable<std::error_code> lock(std::chrono::nanoseconds timeout);

  // Releases the lock and wakes one waiter. Returns `operation_not_supported`
  // when the lock was not held, and then wakes nobody.
  [[nodiscard]] std::error_code unlock();

  bool is_locked() const noexcept { return locked_.load(); }

 private:
  asio::awaitable<std::error_code> attempt(std::chrono::nanoseconds timeout);
  bool try_take() noexcept;

  asio::io_context* executor_;
  std::deque<std::weak_ptr<LockWaiter>> waiters_;
  std::atomic<bool> locked_{false};
  std::atomic<bool> closing_{false};
};

// Holds an AsyncLock for the length of a scope once lock() has succeeded.
class AsyncLockGuard {
 public:
  explicit AsyncLockGuard(AsyncLock& lock) noexcept;
  ~AsyncLockGuard();
  AsyncLockGuard(const AsyncLockGuard&) = delete;
  AsyncLockGuard& operator=(const AsyncLockGuard&) = delete;

  // As AsyncLock::lock; the guard unlocks at its end only if this succeeded.
  [[nodiscard]] asio::awaitable<std::error_code> lock(std::chrono::nanoseconds timeout);

 private:
  AsyncLock* lock_;
  // `operation_not_supported` until lock() says otherwise.
  std::error_code ec_;
};

}  // namespace orvanta::link
