#pragma once

// An unbounded queue with one waiting consumer, on a timer used as a wake-up
// signal rather than for time: pop() parks on the timer, push() and clear()
// cancel the wait. The wake-up carries no data; the consumer looks at the
// items again when it resumes.
//
// A single consumer is assumed: two coroutines waiting on one queue would
// fight over one timer.

#include <chrono>
#include <deque>
#include <system_error>
#include <utility>

#include <asio/awaitable.hpp>
#include <asio/error.hpp>
#include <asio/experimental/as_tuple.hpp>
#include <asio/io_context.hpp>
#include <asio/steady_timer.hpp>
#include <asio/use_awaitable.hpp>

#include "desktop_link/deadline.hpp"
#include "desktop_link/result.hpp"

namespace orvanta::link {

template <class T>
class MessageQueue {
 public:
  explicit MessageQueue(asio::io_context& context) : timer_(context) {}
  MessageQueue(const MessageQueue&) = delete;
  MessageQueue& operator=(const MessageQueue&) = delete;

  // Appends and wakes the consumer if it waits. Returns the failure of the
  // wake-up, if any.
  [[nodiscard]] std::error_code push(T item) {
    items_.push_back(std::move(item));
    try {
      timer_.cancel_one();
    } catch (const std::system_error& e) {
      return e.code();
    }
    return {};
  }

  // Takes the first item, waiting up to `timeout` for one. Returns
  // `timed_out` when the wait expired empty-handed, or `operation_aborted`
  // when clear() ended the wait.
  asio::awaitable<Result<T>> pop(std::chrono::nanoseconds timeout) {
    if (items_.empty()) {
      timer_.expires_at(saturating_deadline(timeout));
      auto [ec] = co_await timer_.async_wait(asio::experimental::as_tuple(asio::use_awaitable));
      // push() cancels the wait; operation_aborted with an item present means
      // an item arrived, not a failure. Without one it is clear().
      if (items_.empty()) {
        if (!ec) co_return asio::error::make_error_code(asio::error::timed_out);
        co_return ec;
      }
    }
    T item = std::move(items_.front());
    items_.pop_front();
    co_return item;
  }

  // Drops every item and wakes the consumer, whose pop() then fails with
  // `operation_aborted`. Returns the failure of the wake-up, if any.
  [[nodiscard]] std::error_code clear() {
    std::deque<T> dropped;
    dropped.swap(items_);
    try {
      timer_.cancel();
    } catch (const std::system_error& e) {
      return e.code();
    }
    return {};
  }

  std::size_t size() const noexcept { return items_.size(); }
  bool empty() const noexcept { return items_.empty(); }

 private:
  asio::steady_timer timer_;
  std::deque<T> items_;
};

}  // namespace orvanta::link
