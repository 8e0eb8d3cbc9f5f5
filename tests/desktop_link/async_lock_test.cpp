#include "desktop_link/async_lock.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <asio/co_spawn.hpp>
#include <asio/error.hpp>

#include "desktop_link/deadline.hpp"

namespace {

using orvanta::link::AsyncLock;
using orvanta::link::AsyncLockGuard;
using orvanta::link::endless_timeout;
using namespace std::chrono_literals;

// Takes the lock, records `name` in `order`, and holds the lock until
// `release` is set by the test.
asio::awaitable<void> holder(AsyncLock* lock, std::string name, std::vector<std::string>* order,
                             std::shared_ptr<std::optional<std::error_code>> result) {
  auto ec = co_await lock->lock(endless_timeout);
  *result = ec;
  if (!ec) order->push_back(std::move(name));
}

// Runs every handler that is ready. The context stops when it runs out of
// work, so it is restarted first.
void settle(asio::io_context& context) {
  context.restart();
  context.poll();
}

TEST(AsyncLock, UnlockWhenUnlockedIsRefused) {
  asio::io_context context;
  AsyncLock lock(context);
  EXPECT_EQ(lock.unlock(), asio::error::operation_not_supported);
  EXPECT_FALSE(lock.is_locked());
}

TEST(AsyncLock, WaitersAreWokenOneAtATimeInArrivalOrder) {
  asio::io_context context;
  AsyncLock lock(context);
  std::vector<std::string> order;
  std::vector<std::shared_ptr<std::optional<std::error_code>>> results;
  for (const char* name : {"a", "b", "c"}) {
    results.push_back(std::make_shared<std::optional<std::error_code>>());
    asio::co_spawn(context, holder(&lock, name, &order, results.back()), [](std::exception_ptr) {});
  }
  settle(context);
  EXPECT_EQ(order, (std::vector<std::string>{"a"}));

  EXPECT_EQ(lock.unlock().value(), 0);
  settle(context);
  EXPECT_EQ(order, (std::vector<std::string>{"a", "b"}));
  EXPECT_FALSE(results[2]->has_value());

  EXPECT_EQ(lock.unlock().value(), 0);
  settle(context);
  EXPECT_EQ(order, (std::vector<std::string>{"a", "b", "c"}));
  EXPECT_EQ(lock.unlock().value(), 0);
}

TEST(AsyncLock, ExpiredWaitersAreSkipped) {
  asio::io_context context;
  AsyncLock lock(context);
  std::vector<std::string> order;
  auto first = std::make_shared<std::optional<std::error_code>>();
  auto doomed = std::make_shared<std::optional<std::error_code>>();
  auto live = std::make_shared<std::optional<std::error_code>>();
  asio::co_spawn(context, holder(&lock, "first", &order, first), [](std::exception_ptr) {});
  settle(context);
  // A waiter that gives up (zero timeout) leaves an expired entry behind.
  asio::co_spawn(context, [](AsyncLock* l, std::shared_ptr<std::optional<std::error_code>> r) -> asio::awaitable<void> {
    auto ec = co_await l->lock(0ns);
    *r = ec;
  }(&lock, doomed), [](std::exception_ptr) {});
  asio::co_spawn(context, holder(&lock, "live", &order, live), [](std::exception_ptr) {});
  settle(context);
  // The zero-timeout waiter expired while the lock was held.
  while (!doomed->has_value()) settle(context);
  EXPECT_EQ(doomed->value(), asio::error::timed_out);

  EXPECT_EQ(lock.unlock().value(), 0);
  settle(context);
  EXPECT_EQ(order, (std::vector<std::string>{"first", "live"}));
  EXPECT_EQ(lock.unlock().value(), 0);
}

TEST(AsyncLock, GuardUnlocksOnlyWhatItLocked) {
  asio::io_context context;
  AsyncLock lock(context);
  {
    AsyncLockGuard never_locked(lock);
  }
  EXPECT_FALSE(lock.is_locked());
  EXPECT_EQ(lock.unlock(), asio::error::operation_not_supported);

  std::optional<bool> held_inside;
  asio::co_spawn(context, [](AsyncLock* l, std::optional<bool>* held) -> asio::awaitable<void> {
    AsyncLockGuard guard(*l);
    auto ec = co_await guard.lock(endless_timeout);
    *held = !ec && l->is_locked();
  }(&lock, &held_inside), [](std::exception_ptr) {});
  context.run();
  EXPECT_EQ(held_inside, true);
  EXPECT_FALSE(lock.is_locked());
}

// A waiter still parked when the lock is destroyed gets operation_aborted,
// and does not touch the lock afterwards.
TEST(AsyncLock, DestructionWakesWaitersWithAbort) {
  asio::io_context context;
  auto lock = std::make_unique<AsyncLock>(context);
  std::vector<std::string> order;
  auto first = std::make_shared<std::optional<std::error_code>>();
  auto second = std::make_shared<std::optional<std::error_code>>();
  asio::co_spawn(context, holder(lock.get(), "a", &order, first), [](std::exception_ptr) {});
  asio::co_spawn(context, holder(lock.get(), "b", &order, second), [](std::exception_ptr) {});
  settle(context);
  lock.reset();
  context.restart();
  context.run();
  ASSERT_TRUE(second->has_value());
  EXPECT_EQ(second->value(), asio::error::operation_aborted);
  EXPECT_EQ(order, (std::vector<std::string>{"a"}));
}

}  // namespace
