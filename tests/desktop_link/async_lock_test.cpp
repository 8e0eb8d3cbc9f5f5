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
using Outcome = std::shared_ptr<std::optional<std::error_code>>;

// Takes the lock, records `name` in `order` once it holds it, and keeps it
// until the test unlocks.
asio::awaitable<void> holder(AsyncLock* lock, std::string name, std::vector<std::string>* order, Outcome result,
                             std::chrono::nanoseconds timeout) {
  auto ec = co_await lock->lock(timeout);
  *result = ec;
  if (!ec) order->push_back(std::move(name));
}

class Lock : public ::testing::Test {
 protected:
  Outcome take(std::string name, std::chrono::nanoseconds timeout = endless_timeout) {
    auto result = std::make_shared<std::optional<std::error_code>>();
    asio::co_spawn(context, holder(lock.get(), std::move(name), &order, result, timeout), [](std::exception_ptr) {});
    return result;
  }

  // Runs every handler that is ready. The context stops when it runs out of
  // work, so it is restarted first.
  void settle() {
    context.restart();
    context.poll();
  }

  asio::io_context context;
  std::unique_ptr<AsyncLock> lock = std::make_unique<AsyncLock>(context);
  std::vector<std::string> order;
};

TEST_F(Lock, WaitersAreWokenOneAtATimeInArrivalOrder) {
  take("a");
  take("b");
  auto c = take("c");
  settle();
  EXPECT_EQ(order, (std::vector<std::string>{"a"}));
  EXPECT_EQ(lock->unlock().value(), 0);
  settle();
  EXPECT_EQ(order, (std::vector<std::string>{"a", "b"}));
  EXPECT_FALSE(c->has_value());
  EXPECT_EQ(lock->unlock().value(), 0);
  settle();
  EXPECT_EQ(order, (std::vector<std::string>{"a", "b", "c"}));
  EXPECT_EQ(lock->unlock().value(), 0);
}

// A waiter that gives up (zero timeout) leaves an expired entry behind,
// which the unlock passes over.
TEST_F(Lock, ExpiredWaitersAreSkipped) {
  take("first");
  settle();
  auto doomed = take("doomed", 0ns);
  take("live");
  while (!doomed->has_value()) settle();
  EXPECT_EQ(doomed->value(), asio::error::timed_out);
  EXPECT_EQ(lock->unlock().value(), 0);
  settle();
  EXPECT_EQ(order, (std::vector<std::string>{"first", "live"}));
  EXPECT_EQ(lock->unlock().value(), 0);
}

TEST_F(Lock, GuardUnlocksOnlyWhatItLocked) {
  { AsyncLockGuard never_locked(*lock); }
  EXPECT_FALSE(lock->is_locked());
  EXPECT_EQ(lock->unlock(), asio::error::operation_not_supported);

  std::optional<bool> held_inside;
  asio::co_spawn(context, [](AsyncLock* l, std::optional<bool>* held) -> asio::awaitable<void> {
    AsyncLockGuard guard(*l);
    auto ec = co_await guard.lock(endless_timeout);
    *held = !ec && l->is_locked();
  }(lock.get(), &held_inside), [](std::exception_ptr) {});
  context.run();
  EXPECT_EQ(held_inside, true);
  EXPECT_FALSE(lock->is_locked());
}

// A waiter still parked when the lock is destroyed gets operation_aborted,
// and does not touch the lock afterwards.
TEST_F(Lock, DestructionWakesWaitersWithAbort) {
  take("a");
  auto second = take("b");
  settle();
  lock.reset();
  context.restart();
  context.run();
  ASSERT_TRUE(second->has_value());
  EXPECT_EQ(second->value(), asio::error::operation_aborted);
  EXPECT_EQ(order, (std::vector<std::string>{"a"}));
}

}  // namespace
