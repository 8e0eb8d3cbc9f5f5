#include "desktop_link/io_thread.hpp"

#include <gtest/gtest.h>

#include <pthread.h>

#include <stdexcept>
#include <string>
#include <thread>

namespace {

using orvanta::link::IoThread;
using orvanta::link::run_and_wait;

struct ThreadFacts {
  std::string kernel_name;
  std::string kept_name;
  std::thread::id id;
};

asio::awaitable<ThreadFacts> where_am_i() {
  char name[16] = {};
  pthread_getname_np(pthread_self(), name, sizeof name);
  co_return ThreadFacts{name, orvanta::link::current_thread_name(), std::this_thread::get_id()};
}

asio::awaitable<int> fails() {
  throw std::runtime_error("the text of the failure");
  co_return 0;
}

asio::awaitable<std::string> echo(std::string text) { co_return text + "!"; }

// The runner's shape: the context, then the thread; stop before the members go.
struct Runtime {
  Runtime() { orvanta::link::wait_until_running(context); }
  ~Runtime() { context.stop(); }
  asio::io_context context;
  IoThread io_thread{context};
};

TEST(IoThread, OperationsRunOnTheNamedIoThread) {
  Runtime runtime;
  ThreadFacts facts = run_and_wait(runtime.context, where_am_i());
  EXPECT_EQ(facts.kernel_name, "Orvanta CLI IO");
  EXPECT_EQ(facts.kept_name, "Orvanta CLI IO");
  EXPECT_NE(facts.id, std::this_thread::get_id());
  EXPECT_EQ(orvanta::link::current_thread_name(), "");
}

TEST(IoThread, AnExceptionReachesTheCallerWithItsText) {
  Runtime runtime;
  try {
    static_cast<void>(run_and_wait(runtime.context, fails()));
    ADD_FAILURE() << "no exception";
  } catch (const std::runtime_error& e) {
    EXPECT_STREQ(e.what(), "the text of the failure");
  }
  // The thread goes on serving.
  EXPECT_EQ(run_and_wait(runtime.context, echo("after")), "after!");
}

}  // namespace
