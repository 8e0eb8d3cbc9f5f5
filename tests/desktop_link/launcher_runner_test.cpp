#include "desktop_link/launcher_runner.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <asio/co_spawn.hpp>
#include <asio/error.hpp>
#include <asio/io_context.hpp>

#include "desktop_link/error_category.hpp"
#include "desktop_link/log.hpp"

namespace {

using orvanta::link::ConnectCanceller;
using orvanta::link::DesktopApiError;
using orvanta::link::DesktopLauncherRunner;
using orvanta::link::LogRecord;
using orvanta::link::ScopedLogSink;

// The schedule's bookkeeping: which ports were tried, and the answer each try
// gets. Tries past the script fail with connection_refused.
struct Script {
  std::vector<std::uint16_t> tried;
  std::vector<std::error_code> answers;
  std::shared_ptr<ConnectCanceller> cancel_during_try;  // cancelled inside try n
  std::size_t cancel_at = 0;
};

asio::awaitable<std::error_code> scripted_attempt(Script* script, asio::ip::tcp::endpoint endpoint) {
  const std::size_t n = script->tried.size();
  script->tried.push_back(endpoint.port());
  if (script->cancel_during_try && n == script->cancel_at) script->cancel_during_try->cancel();
  if (n < script->answers.size()) co_return script->answers[n];
  co_return asio::error::make_error_code(asio::error::connection_refused);
}

class LauncherRunner : public ::testing::Test {
 protected:
  LauncherRunner() : sink([this](const LogRecord& r) { lines.emplace_back(r.text); }) {}

  std::shared_ptr<DesktopLauncherRunner> make(std::vector<std::uint16_t> ports, std::uint64_t window_ms,
                                              std::uint64_t pause_ms) {
    return DesktopLauncherRunner::create(asio::ip::make_address_v4("127.0.0.1"), std::move(ports), window_ms,
                                         pause_ms, context, canceller,
                                         [this](asio::ip::tcp::endpoint e) { return scripted_attempt(&script, e); });
  }

  // Runs to the end; an exception is kept in `thrown`.
  std::error_code run(std::shared_ptr<DesktopLauncherRunner> runner) {
    std::optional<std::error_code> result;
    asio::co_spawn(context, runner->run(), [&](std::exception_ptr e, std::error_code ec) {
      thrown = e;
      result = ec;
    });
    context.run();
    return result.value_or(std::error_code{});
  }

  asio::io_context context;
  std::shared_ptr<ConnectCanceller> canceller = std::make_shared<ConnectCanceller>();
  Script script;
  std::exception_ptr thrown;
  std::vector<std::string> lines;
  ScopedLogSink sink;
};

const std::error_code ok = orvanta::link::make_error_code(DesktopApiError::success);
const std::error_code refused = asio::error::make_error_code(asio::error::connection_refused);

// The first port is retried for the window; after it each other port gets
// one try, and the line before each try names the port about to be tried.
// The attempts' own codes reach only the last log line: the caller sees
// client_connection_failed.
TEST_F(LauncherRunner, Schedule) {
  const std::string retrying = "DesktopLauncherRunner - Partner API Connection Failed, retrying at port ";
  const struct {
    std::vector<std::uint16_t> ports;
    std::uint64_t window_ms;
    std::vector<std::error_code> answers;
    DesktopApiError result;
    std::vector<std::uint16_t> tried;
    std::vector<std::string> lines;
  } rows[] = {
      {{7001, 7002}, 60'000, {refused, refused, refused, ok}, DesktopApiError::success, {7001, 7001, 7001, 7001}, {}},
      {{7001, 7002, 7003, 7004}, 0, {refused, refused, ok}, DesktopApiError::success, {7001, 7002, 7003},
       {retrying + "7002", retrying + "7003"}},
      {{7001, 7002, 7003},
       0,
       {refused, refused, orvanta::link::make_error_code(DesktopApiError::unauthorized_request)},
       DesktopApiError::client_connection_failed,
       {7001, 7002, 7003},
       {retrying + "7002", retrying + "7003",
        "DesktopLauncherRunner - Partner API Connection Failed: unauthorized request"}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.ports.size());
    script = Script{};
    script.answers = row.answers;
    lines.clear();
    context.restart();
    EXPECT_EQ(run(make(row.ports, row.window_ms, 0)), row.result);
    EXPECT_EQ(script.tried, row.tried);
    EXPECT_EQ(lines, row.lines);
  }
}

TEST_F(LauncherRunner, CancelDuringAnAttemptEndsTheRunCancelled) {
  script.cancel_during_try = canceller;
  script.cancel_at = 1;
  EXPECT_EQ(run(make({7001, 7002, 7003}, 0, 0)), DesktopApiError::cancelled);
  EXPECT_EQ(script.tried, (std::vector<std::uint16_t>{7001, 7002}));
  EXPECT_EQ(thrown, nullptr);
}

// A cancel that cuts a pause short is not seen between steps: the timer's
// abort ends the run as an exception.
TEST_F(LauncherRunner, CancelDuringAPauseThrowsTheTimersAbort) {
  auto runner = make({7001, 7002}, 60'000, 3'600'000);
  asio::co_spawn(context, runner->run(), [&](std::exception_ptr e, std::error_code) { thrown = e; });
  // Run the first attempt; the runner is then parked in its hour-long pause.
  context.poll();
  ASSERT_EQ(script.tried.size(), 1u);
  canceller->cancel();
  context.run();
  ASSERT_NE(thrown, nullptr);
  try {
    std::rethrow_exception(thrown);
  } catch (const std::system_error& e) {
    EXPECT_EQ(e.code(), asio::error::operation_aborted);
  }
  EXPECT_EQ(script.tried.size(), 1u);
}

TEST(PortRange, EndIsNotIncluded) {
  EXPECT_EQ(orvanta::link::port_range(7768, 7777),
            (std::vector<std::uint16_t>{7768, 7769, 7770, 7771, 7772, 7773, 7774, 7775, 7776}));
}

}  // namespace
