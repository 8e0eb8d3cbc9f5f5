// The runner around a double of the desktop client: what a real peer cannot
// provoke (an operation that throws), the paths that end before a handler
// runs, and the order of shutdown.
#include "cli/runner.hpp"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <ios>
#include <mutex>
#include <stdexcept>
#include <string>
#include <system_error>
#include <thread>
#include <vector>

#include "cli/recognizer.hpp"
#include "desktop_link/error_category.hpp"
#include "desktop_link/partner_api_client.hpp"
#include "tests/support/process.hpp"

namespace orvanta::cli {
namespace {

// What the doubles saw, in order; written from both threads.
class Events {
 public:
  void add(std::string event) {
    std::lock_guard lock(mutex_);
    events_.push_back(std::move(event));
  }
  std::vector<std::string> all() {
    std::lock_guard lock(mutex_);
    return events_;
  }

 private:
  std::mutex mutex_;
  std::vector<std::string> events_;
};

struct Script {
  bool running = true;
  std::error_code connect_error;
  std::function<void()> pause = [] {};
};

class DoubleLauncher : public link::DesktopAppLauncher {
 public:
  DoubleLauncher(const Script& script, Events& events) : script_(script), events_(events) {}
  ~DoubleLauncher() override { events_.add("launcher destroyed"); }
  void launch(std::vector<std::string>) override { events_.add("launch"); }
  bool is_running() override { return script_.running; }
  bool is_installed() override { return true; }

 private:
  const Script& script_;
  Events& events_;
};

// The real client with its connection and one operation replaced.
class DoubleClient : public link::PartnerApiClient {
 public:
  DoubleClient(asio::io_context& context, const Script& script, Events& events, std::thread::id main_thread)
      : PartnerApiClient("client", "Orvanta CLI", "1", context),
        context_(context), script_(script), events_(events), main_thread_(main_thread) {}
  ~DoubleClient() override { events_.add(context_.stopped() ? "client destroyed, IO stopped" : "client destroyed"); }

  asio::awaitable<std::error_code> connect() override {
    events_.add("connect");
    connected_ = !script_.connect_error;
    co_return script_.connect_error;
  }
  std::uint8_t connection_state() const override {
    return connected_ ? link::state_connected : link::state_disconnected;
  }
  void disconnect() override {
    events_.add(std::this_thread::get_id() == main_thread_ ? "disconnect on main" : "disconnect on IO");
    connected_ = false;
  }
  link::Await<messages::EmptyResponse> playback_pause() override {
    events_.add("playback_pause");
    script_.pause();
    co_return link::Result<messages::EmptyResponse>{};
  }

 private:
  asio::io_context& context_;
  const Script& script_;
  Events& events_;
  std::thread::id main_thread_;
  bool connected_ = false;
};

struct Outcome {
  int status;
  std::string out;
  std::string err;
  std::vector<std::string> events;
};

Outcome run(const Script& script, std::vector<const char*> words) {
  words.insert(words.begin(), "orvanta_cli");
  CommandLine line = parse_command_line(static_cast<int>(words.size()), words.data());
  Events events;
  std::FILE* out = std::tmpfile();
  std::FILE* err = std::tmpfile();
  int status = 0;
  {
    CommandRunner runner([&] { return std::make_unique<DoubleLauncher>(script, events); },
                         [&, main = std::this_thread::get_id()](asio::io_context& context) {
                           return std::make_unique<DoubleClient>(context, script, events, main);
                         },
                         out, err);
    status = runner.run(line);
  }
  Outcome outcome{status, testing::contents_of(out), testing::contents_of(err), events.all()};
  std::fclose(out);
  std::fclose(err);
  return outcome;
}

TEST(CommandRunner, WhatAnOperationThrowsBecomesOneLineAndTheStatus) {
  const std::system_error refused(7, std::generic_category(), "pause refused");
  struct Row {
    std::function<void()> pause;
    std::string err;
    int status;
  } rows[] = {
      {[&] { throw refused; }, "Error: " + std::string(refused.what()) + "\n", 7},
      // A subclass is caught at the same level.
      {[&] { throw std::ios_base::failure("stream", std::error_code(5, std::generic_category())); },
       "Error: " + std::string(std::ios_base::failure("stream", std::error_code(5, std::generic_category())).what()) +
           "\n",
       5},
      {[] { throw std::runtime_error("out of luck"); }, "Error: out of luck\n", 1},
      {[] { throw 42; }, "Error: unknown exception\n", 1},
  };
  for (const Row& row : rows) {
    Script script;
    script.pause = row.pause;
    Outcome outcome = run(script, {"pause"});
    EXPECT_EQ(outcome.status, row.status) << row.err;
    EXPECT_EQ(outcome.err, row.err);
    EXPECT_EQ(outcome.out, "");
  }
}

TEST(CommandRunner, NoHandlerRunsWithoutARunningConnectedClient) {
  Script absent;
  absent.running = false;
  Outcome outcome = run(absent, {"pause"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err, "Orvanta desktop client is not running\n");
  EXPECT_EQ(outcome.events, (std::vector<std::string>{"client destroyed, IO stopped", "launcher destroyed"}));

  Script refusing;
  refusing.connect_error = link::make_error_code(link::DesktopApiError::client_connection_failed);
  outcome = run(refusing, {"pause"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err, "Failed to connect to Orvanta desktop client: client connection failed\n");
  EXPECT_EQ(outcome.events,
            (std::vector<std::string>{"connect", "client destroyed, IO stopped", "launcher destroyed"}));
}

TEST(CommandRunner, ShutsDownInOrderAfterAHandler) {
  Outcome outcome = run(Script{}, {"pause"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.events, (std::vector<std::string>{"connect", "playback_pause", "disconnect on IO",
                                                      "client destroyed, IO stopped", "launcher destroyed"}));
}

}  // namespace
}  // namespace orvanta::cli
