#include "desktop_link/message_queue.hpp"

#include <gtest/gtest.h>

#include <optional>
#include <string>

#include <asio/co_spawn.hpp>

namespace {

using orvanta::link::endless_timeout;
using orvanta::link::Result;
using namespace std::chrono_literals;

class Queue : public ::testing::Test {
 protected:
  using Popped = std::optional<Result<std::string>>;

  void start_pop(Popped& out, std::chrono::nanoseconds timeout = endless_timeout) {
    context.restart();
    asio::co_spawn(context, queue.pop(timeout), [&out](std::exception_ptr, Result<std::string> r) { out = r; });
  }

  asio::io_context context;
  orvanta::link::MessageQueue<std::string> queue{context};
};

// One push wakes the waiting pop; a second one before it resumes is kept, in
// order, for the next pop.
TEST_F(Queue, PushWakesAWaitingPopAndLaterItemsStayInOrder) {
  Popped first;
  start_pop(first);
  context.poll();
  EXPECT_FALSE(first.has_value());
  EXPECT_EQ(queue.push("1").value(), 0);
  EXPECT_EQ(queue.push("2").value(), 0);
  context.run();
  ASSERT_TRUE(first && first->has_value());
  EXPECT_EQ(first->value(), "1");
  EXPECT_EQ(queue.size(), 1u);
  Popped second;
  start_pop(second);
  context.run();
  EXPECT_EQ(second->value(), "2");
  EXPECT_TRUE(queue.empty());
}

TEST_F(Queue, ClearDropsItemsAndAbortsTheWait) {
  Popped popped;
  start_pop(popped);
  context.poll();
  EXPECT_EQ(queue.clear().value(), 0);
  context.run();
  ASSERT_TRUE(popped.has_value());
  EXPECT_EQ(popped->error(), asio::error::operation_aborted);

  EXPECT_EQ(queue.push("left").value(), 0);
  EXPECT_EQ(queue.clear().value(), 0);
  EXPECT_TRUE(queue.empty());
}

TEST_F(Queue, ExpiredWaitIsTimedOut) {
  Popped popped;
  start_pop(popped, 0ns);
  context.run();
  ASSERT_TRUE(popped.has_value());
  EXPECT_EQ(popped->error(), asio::error::timed_out);
}

}  // namespace
