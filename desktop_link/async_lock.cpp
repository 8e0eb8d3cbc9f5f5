#include "desktop_link/async_lock.hpp"

#include <asio/error.hpp>
#include <asio/experimental/as_tuple.hpp>
#include <asio/use_awaitable.hpp>

#include "desktop_link/deadline.hpp"

namespace orvanta::link {

AsyncLock::~AsyncLock() {
  closing_.store(true);
  for (const auto& entry : waiters_) {
    if (auto waiter = entry.lock()) {
      waiter->lock_gone = true;
      waiter->timer.cancel();
    }
  }
}

bool AsyncLock::try_take() noexcept {
  bool expected = false;
  return locked_.compare_exchange_strong(expected, true);
}

asio::awaitable<std::error_code> AsyncLock::lock(std::chrono::nanoseconds timeout) {
  for (;;) {
    auto ec = co_await attempt(timeout);
    if (ec != asio::error::would_block) co_return ec;
  }
}

asio::awaitable<std::error_code> AsyncLock::attempt(std::chrono::nanoseconds timeout) {
  if (try_take()) co_return std::error_code{};

  auto waiter = std::make_shared<LockWaiter>(*executor_);
  waiters_.push_back(waiter);
  waiter->timer.expires_at(saturating_deadline(timeout));
  waiter->waiting = true;
  auto [ec] = co_await waiter->timer.async_wait(asio::experimental::as_tuple(asio::use_awaitable));
  waiter->waiting = false;

  // unlock() cancels one wait; operation_aborted here means the lock was
  // released, not a failure. The waiter still has to win the lock.
  if (waiter->lock_gone) co_return asio::error::make_error_code(asio::error::operation_aborted);
  if (!ec) {
    if (try_take()) co_return std::error_code{};
    co_return asio::error::make_error_code(asio::error::timed_out);
  }
  if (ec == asio::error::operation_aborted) {
    if (closing_.load()) co_return ec;
    if (try_take()) co_return std::error_code{};
    co_return asio::error::make_error_code(asio::error::would_block);
  }
  co_return ec;
}

std::error_code AsyncLock::unlock() {
  bool expected = true;
  if (!locked_.compare_exchange_strong(expected, false)) {
    return asio::error::make_error_code(asio::error::operation_not_supported);
  }
  while (!waiters_.empty()) {
    auto waiter = waiters_.front().lock();
    waiters_.pop_front();
    if (waiter && waiter->waiting) {
      waiter->timer.cancel();
      break;
    }
  }
  return {};
}

AsyncLockGuard::AsyncLockGuard(AsyncLock& lock) noexcept
    : lock_(&lock), ec_(asio::error::make_error_code(asio::error::operation_not_supported)) {}

AsyncLockGuard::~AsyncLockGuard() {
  if (ec_.value() == 0) static_cast<void>(lock_->unlock());
}

asio::awaitable<std::error_code> AsyncLockGuard::lock(std::chrono::nanoseconds timeout) {
  auto ec = co_await lock_->lock(timeout);
  ec_ = ec;
  co_return ec;
}

}  // namespace orvanta::link
