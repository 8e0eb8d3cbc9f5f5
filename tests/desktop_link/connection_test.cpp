// Connecting, authorizing and disconnecting, against a fake desktop client.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <asio/socket_base.hpp>

#include "tests/desktop_link/link_fixture.hpp"

namespace {

using namespace std::chrono_literals;
using orvanta::link::DesktopApiError;
using orvanta::testing::LinkTest;
using orvanta::testing::notification;
using orvanta::testing::result_reply;

using Connection = LinkTest;

TEST_F(Connection, HelloThenLoginSubscription) {
  std::vector<int> states;
  orvanta::link::ScopedConnection watch = client->on_connection_state([&](std::uint8_t s) { states.push_back(s); });
  serve(handshake(R"({"orvanta_app_version":"9.9.9","sends_complete_notification":false})"));
  EXPECT_EQ(await(client->connect()), DesktopApiError::success);
  drive([this] { return peer_done; });

  ASSERT_EQ(seen.size(), 2u);
  EXPECT_EQ(seen[0].text,
            R"({"jsonrpc":"2.0","method":"authorize_connection","params":{"client_id":"test-client",)"
            R"("name":"Orvanta CLI","version":"1.2.93.667","feature_identifier":"partner_api_client"},"id":")" +
                seen[0].id + R"("})");
  EXPECT_EQ(seen[1].text,
            R"({"jsonrpc":"2.0","method":"login_state_subscription","params":{},"id":")" + seen[1].id + R"("})");
  EXPECT_EQ(states, (std::vector<int>{1, 2}));
  EXPECT_EQ(log_lines, (std::vector<std::string>{"PartnerApiClient - Connection state changed: 1",
                                                 "PartnerApiClient - Connection state changed: 2"}));
  EXPECT_TRUE(errors.empty());
  // Connected already, connecting again sends nothing.
  EXPECT_EQ(await(client->connect()), DesktopApiError::success);
  EXPECT_EQ(seen.size(), 2u);
  EXPECT_EQ(log_lines.size(), 2u);
}

// A refused hello fails the attempt like a refused connection. The refused
// hello's socket is still open when the retry comes, with no
// pause between attempts here: that attempt closes it without a word on the
// wire and fails as already connected, and the next one connects afresh.
// The first connection's reader ends with its socket and disturbs nothing.
TEST_F(Connection, HelloRefusedThenRetriedOnAFreshSocket) {
  retry_window_ms = 60000;
  make_client();
  serve([](LinkTest* t) -> asio::awaitable<void> {
    co_await t->peer.accept();
    auto hello = co_await t->next_request();
    co_await t->peer.write_frame(orvanta::testing::error_reply(hello.id, 3, "desktop_api"));
    co_await t->await_close();
    co_await t->handshake(std::string(orvanta::testing::hello_result));
  }(this));
  EXPECT_EQ(await(client->connect()), DesktopApiError::success);
  drive([&] { return peer_done; });
  EXPECT_EQ(peer_closed_with, asio::error::eof);
  EXPECT_EQ(seen.size(), 2u);  // the second connection's hello and subscription
  EXPECT_EQ(client->connection_state(), orvanta::link::state_connected);
  EXPECT_EQ(log_lines, (std::vector<std::string>{
                           "PartnerApiClient - Connection state changed: 1",
                           "Partner API - Error in response: peer says no",
                           "Partner API - Connect exception (106): Transport endpoint is already connected",
                           "Partner API - Failed to read message tag: Operation aborted.",
                           "PartnerApiClient - Connection state changed: 2",
                       }));
}

// A desktop client that stops talking during the handshake, before its hello
// reply or before the completion notification it promised, is cut off when
// the handshake limit runs out.
TEST_F(Connection, SilentHandshakeIsCutOff) {
  hello_limit = 20ms;
  make_client();
  for (bool promise_completion : {false, true}) {
    SCOPED_TRACE(promise_completion);
    log_lines.clear();
    errors.clear();
    peer_closed_with.reset();
    serve([](LinkTest* t, bool completion) -> asio::awaitable<void> {
      if (completion) {
        co_await t->answer_hello(R"({"orvanta_app_version":"1","sends_complete_notification":true})");
      } else {
        co_await t->peer.accept();
        auto hello = co_await t->next_request();
        static_cast<void>(hello);
      }
      co_await t->await_close();
    }(this, promise_completion));
    EXPECT_EQ(await(client->connect()), DesktopApiError::client_connection_failed);
    drive([&] { return peer_done; });
    EXPECT_TRUE(peer_closed_with.has_value());
    EXPECT_EQ(client->connection_state(), orvanta::link::state_disconnected);
    EXPECT_TRUE(logged("Partner API - Auth handshake timed out, disconnecting"));
    EXPECT_TRUE(logged("DesktopLauncherRunner - Partner API Connection Failed: request timed out"));
    ASSERT_EQ(errors.size(), 1u);
    EXPECT_EQ(errors[0].first, DesktopApiError::client_connection_failed);
    EXPECT_EQ(errors[0].second, "connect");
  }
}

// With sends_complete_notification the connection stands only after one
// more notification, whatever its method. It is the handshake's: a login
// notification used this way does not reach the login state. Params that
// are not an object fail the handshake.
TEST_F(Connection, CompletionNotificationFinishesTheHandshake) {
  serve([](LinkTest* t) -> asio::awaitable<void> {
    co_await t->answer_hello(R"({"orvanta_app_version":"1","sends_complete_notification":true})");
    co_await t->peer.write_frame(notification("login_state_subscription", R"({"logged_in":true})"));
    auto subscription = co_await t->next_request();
    t->seen.push_back(subscription);
    co_await t->peer.write_frame(result_reply(subscription.id, "{}"));
  }(this));
  EXPECT_EQ(await(client->connect()), DesktopApiError::success);
  ASSERT_EQ(seen.size(), 2u);
  EXPECT_EQ(seen[1].method, "login_state_subscription");
  EXPECT_FALSE(client->logged_in());

  client->disconnect();
  serve([](LinkTest* t) -> asio::awaitable<void> {
    co_await t->answer_hello(R"({"orvanta_app_version":"1","sends_complete_notification":true})");
    co_await t->peer.write_frame(notification("done", "[1]"));
  }(this));
  EXPECT_EQ(await(client->connect()), DesktopApiError::client_connection_failed);
  EXPECT_TRUE(logged("Partner API - Failed to decode auth Authorization notification: " +
                     std::make_error_code(std::errc::bad_message).message()));
}

TEST_F(Connection, RefusedLoginSubscriptionDisconnects) {
  serve([](LinkTest* t) -> asio::awaitable<void> {
    co_await t->answer_hello(std::string(orvanta::testing::hello_result));
    auto subscription = co_await t->next_request();
    co_await t->peer.write_frame(orvanta::testing::error_reply(subscription.id, 16, "desktop_api"));
  }(this));
  EXPECT_EQ(await(client->connect()), DesktopApiError::not_logged_in);
  EXPECT_EQ(client->connection_state(), orvanta::link::state_disconnected);
  EXPECT_TRUE(logged("Partner API - Failed to subscribe to login state: not logged in"));
  ASSERT_EQ(errors.size(), 1u);
  EXPECT_EQ(errors[0].second, "subscribe_to_login_state");
}

// The desktop client going away drops the state to 0 and forgets the login.
TEST_F(Connection, EofDropsStateAndLogin) {
  connect_client();
  push({notification("login_state_subscription", R"({"logged_in":true})")});
  drive([this] { return client->logged_in(); });
  peer.close();
  drive([this] { return client->connection_state() == orvanta::link::state_disconnected; });
  EXPECT_FALSE(client->logged_in());
  const std::string eof = asio::error::make_error_code(asio::error::eof).message();
  EXPECT_EQ(log_lines, (std::vector<std::string>{
                           "PartnerApiClient - Login state changed: true",
                           "Partner API - Failed to read message tag: " + eof,
                           "Partner API - Connection error: " + eof,
                           "PartnerApiClient - Connection state changed: 0",
                       }));
}

TEST_F(Connection, DisconnectClosesTheSocketAndSendsNothingMore) {
  connect_client();
  serve(await_close());
  client->disconnect();
  // Down again: the peer reads the end of the stream and no request.
  EXPECT_EQ(await(client->me()).error(), DesktopApiError::client_not_connected);
  drive([this] { return peer_done; });
  EXPECT_EQ(peer_closed_with, asio::error::eof);
  // The reader and the pump each say once why they stopped.
  const std::string aborted = asio::error::make_error_code(asio::error::operation_aborted).message();
  EXPECT_EQ(log_lines, (std::vector<std::string>{
                           "PartnerApiClient - Connection state changed: 0",
                           "Partner API - Failed to read message tag: " + aborted,
                           "Partner API - Failed to pop notification: " + aborted,
                       }));
  EXPECT_TRUE(errors.empty());
}

// A peer that reset the connection leaves nothing to shut down: the reader
// reports the reset, and the disconnect that follows is quiet about the
// socket that is no longer connected.
TEST_F(Connection, ResetByPeerIsQuietAtShutdown) {
  connect_client();
  peer.socket().set_option(asio::socket_base::linger(true, 0));
  peer.close();
  drive([this] { return client->connection_state() == orvanta::link::state_disconnected; });
  for (const auto& line : log_lines) EXPECT_EQ(line.find("Disconnect exception"), std::string::npos) << line;
  ASSERT_FALSE(errors.empty());
  EXPECT_EQ(errors[0].first, asio::error::connection_reset);
  EXPECT_EQ(errors[0].second, "connection");
}

}  // namespace
