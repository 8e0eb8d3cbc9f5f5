#include "desktop_link/message_queue.hpp"

#include <gtest/gtest.h>

#include <optional>
#include <string>

#include <asio/co_spawn.hpp>

namespace {

using orvanta::link::endless_timeout;
using orvanta::link::MessageQueue;
using orvanta::link::Result;
using namespace std::chrono_literals;

using Queue = MessageQueue<std::string>;

void start_pop(asio::io_context& context, Queue& queue, std::optional<Result<std::string>>& out,
               std::chrono::nanoseconds timeout = endless_timeout) {
  asio::co_spawn(context, queue.pop(timeout), [&out](std::exception_ptr, Result<std::string> r) { out = r; });
}

TEST(MessageQueue, PopWithAnItemPresentReturnsItAtOnce) {
  asio::io_context context;
  Queue queue(context);
  EXPECT_EQ(queue.push("a").value(), 0);
  EXPECT_EQ(queue.push("b").value(), 0);
  std::optional<Result<std::string>> popped;
  start_pop(context, queue, popped);
  context.run();
  ASSERT_TRUE(popped && popped->has_value());
  EXPECT_EQ(popped->value(), "a");
  EXPECT_EQ(queue.size(), 1u);
}

TEST(MessageQueue, PushWakesAWaitingPop) {
  asio::io_context context;
  Queue queue(context);
  std::optional<Result<std::string>> popped;
  start_pop(context, queue, popped);
  context.poll();
  EXPECT_FALSE(popped.has_value());
  EXPECT_EQ(queue.push("x").value(), 0);
  context.run();
  ASSERT_TRUE(popped && popped->has_value());
  EXPECT_EQ(popped->value(), "x");
  EXPECT_TRUE(queue.empty());
}

TEST(MessageQueue, ClearDropsItemsAndAbortsTheWait) {
  asio::io_context context;
  Queue queue(context);
  std::optional<Result<std::string>> popped;
  start_pop(context, queue, popped);
  context.poll();
  EXPECT_EQ(queue.clear().value(), 0);
  context.run();
  ASSERT_TRUE(popped.has_value());
  EXPECT_FALSE(popped->has_value());
  EXPECT_EQ(popped->error(), asio::error::operation_aborted);

  EXPECT_EQ(queue.push("left").value(), 0);
  EXPECT_EQ(queue.clear().value(), 0);
  EXPECT_TRUE(queue.empty());
}

TEST(MessageQueue, ExpiredWaitIsTimedOut) {
  asio::io_context context;
  Queue queue(context);
  std::optional<Result<std::string>> popped;
  start_pop(context, queue, popped, 0ns);
  context.run();
  ASSERT_TRUE(popped.has_value());
  EXPECT_EQ(popped->error(), asio::error::timed_out);
}

// Several pushes before the consumer resumes are all kept, in order.
TEST(MessageQueue, ItemsPushedWhileWakingStayInOrder) {
  asio::io_context context;
  Queue queue(context);
  std::optional<Result<std::string>> first;
  start_pop(context, queue, first);
  context.poll();
  EXPECT_EQ(queue.push("1").value(), 0);
  EXPECT_EQ(queue.push("2").value(), 0);
  context.run();
  EXPECT_EQ(first->value(), "1");
  std::optional<Result<std::string>> second;
  context.restart();
  start_pop(context, queue, second);
  context.run();
  EXPECT_EQ(second->value(), "2");
}

}  // namespace
