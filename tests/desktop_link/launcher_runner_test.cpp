#include "desktop_link/launcher_runner.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <asio/co_spawn.hpp>
#include <asio/detached.hpp>
#include <asio/post.hpp>
#include <asio/redirect_error.hpp>
#include <asio/use_awaitable.hpp>

#include "desktop_link/error_category.hpp"
#include "desktop_link/log.hpp"
#include "tests/support/loopback_peer.hpp"

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

TEST_F(LauncherRunner, FirstPortIsRetriedUntilItAnswers) {
  script.answers = {asio::error::connection_refused, asio::error::connection_refused,
                    asio::error::connection_refused, ok};
  EXPECT_EQ(run(make({7001, 7002}, 60'000, 0)), DesktopApiError::success);
  EXPECT_EQ(script.tried, (std::vector<std::uint16_t>{7001, 7001, 7001, 7001}));
  EXPECT_TRUE(lines.empty());
}

// After the window each other port gets one try; the line before each try
// names the port about to be tried.
TEST_F(LauncherRunner, SweepReachesTheThirdPort) {
  script.answers = {asio::error::connection_refused, asio::error::connection_refused, ok};
  EXPECT_EQ(run(make({7001, 7002, 7003, 7004}, 0, 0)), DesktopApiError::success);
  EXPECT_EQ(script.tried, (std::vector<std::uint16_t>{7001, 7002, 7003}));
  EXPECT_EQ(lines, (std::vector<std::string>{
                       "DesktopLauncherRunner - Partner API Connection Failed, retrying at port 7002",
                       "DesktopLauncherRunner - Partner API Connection Failed, retrying at port 7003",
                   }));
}

// The attempts' own codes reach only the log line; the caller always sees
// client_connection_failed.
TEST_F(LauncherRunner, NoPortAnswering) {
  script.answers = {asio::error::connection_refused, asio::error::connection_refused,
                    orvanta::link::make_error_code(DesktopApiError::unauthorized_request)};
  auto ec = run(make({7001, 7002, 7003}, 0, 0));
  EXPECT_EQ(ec, DesktopApiError::client_connection_failed);
  EXPECT_EQ(script.tried, (std::vector<std::uint16_t>{7001, 7002, 7003}));
  EXPECT_EQ(lines, (std::vector<std::string>{
                       "DesktopLauncherRunner - Partner API Connection Failed, retrying at port 7002",
                       "DesktopLauncherRunner - Partner API Connection Failed, retrying at port 7003",
                       "DesktopLauncherRunner - Partner API Connection Failed: unauthorized request",
                   }));
}

// With one port there is no sweep, and the last error is the window's.
TEST_F(LauncherRunner, OnePortListEndsAfterTheWindow) {
  auto ec = run(make({7001}, 5, 1));
  EXPECT_EQ(ec, DesktopApiError::client_connection_failed);
  EXPECT_GE(script.tried.size(), 1u);
  for (auto port : script.tried) EXPECT_EQ(port, 7001);
  EXPECT_EQ(lines,
            (std::vector<std::string>{"DesktopLauncherRunner - Partner API Connection Failed: request timed out"}));
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

// The real thing on loopback: two ports that refuse, then a listener.
TEST(LauncherRunnerSockets, ConnectsToTheFirstListeningPortOfTheSweep) {
  asio::io_context context;
  orvanta::testing::LoopbackPeer peer(context);
  std::vector<std::uint16_t> ports;
  for (int i = 0; i < 2; ++i) {
    asio::ip::tcp::acceptor closed(context, {asio::ip::make_address_v4("127.0.0.1"), 0});
    ports.push_back(closed.local_endpoint().port());
  }
  ports.push_back(peer.port());
  asio::co_spawn(context, peer.accept(), asio::detached);

  auto socket = std::make_shared<asio::ip::tcp::socket>(context);
  auto attempt = [socket](asio::ip::tcp::endpoint endpoint) -> asio::awaitable<std::error_code> {
    return [](std::shared_ptr<asio::ip::tcp::socket> s,
              asio::ip::tcp::endpoint e) -> asio::awaitable<std::error_code> {
      std::error_code ec;
      if (s->is_open()) s->close();
      co_await s->async_connect(e, asio::redirect_error(asio::use_awaitable, ec));
      co_return ec;
    }(socket, endpoint);
  };
  auto runner = DesktopLauncherRunner::create(asio::ip::make_address_v4("127.0.0.1"), ports, 0, 0, context,
                                              std::make_shared<ConnectCanceller>(), attempt);
  std::optional<std::error_code> result;
  asio::co_spawn(context, runner->run(), [&](std::exception_ptr, std::error_code ec) { result = ec; });
  EXPECT_TRUE(orvanta::testing::drive_until(context, [&] { return result.has_value() && peer.socket().is_open(); }));
  EXPECT_EQ(*result, DesktopApiError::success);
  EXPECT_EQ(socket->remote_endpoint().port(), peer.port());
}

TEST(PortRange, EndIsNotIncluded) {
  EXPECT_EQ(orvanta::link::port_range(7768, 7777),
            (std::vector<std::uint16_t>{7768, 7769, 7770, 7771, 7772, 7773, 7774, 7775, 7776}));
  EXPECT_EQ(orvanta::link::desktop_ip_address().to_string(), "127.0.0.1");
}

}  // namespace
