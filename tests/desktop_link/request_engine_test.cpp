// One request at a time through the client: the id check, error replies,
// undecodable results, and a connection lost on the way. The bytes of a
// request are pinned by the handshake's in connection_test.cpp and by
// operations_test.cpp.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/desktop_link/link_fixture.hpp"

namespace {

using orvanta::link::DesktopApiError;
using orvanta::testing::error_reply;
using orvanta::testing::LinkTest;
using orvanta::testing::notification;
using orvanta::testing::result_reply;

using Requests = LinkTest;

std::string upper(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) { return std::toupper(c); });
  return text;
}

// A reply that arrives with nobody waiting stays queued and fails the
// request that comes next. The id must match byte for byte. Either way the
// stray reply is consumed, and the request after it is not disturbed.
TEST_F(Requests, WrongIdsFailOneRequestEach) {
  connect_client();
  push({result_reply("early", "{}")});
  serve([](LinkTest* t) -> asio::awaitable<void> {
    auto unanswered = co_await t->next_request();
    t->seen.push_back(unanswered);
  }(this));
  EXPECT_EQ(std::error_code(await(client->playback_pause())), DesktopApiError::client_unknown_error);
  respond([](const std::string& id) { return result_reply(upper(id), "{}"); });
  const std::error_code second = await(client->playback_pause());
  EXPECT_EQ(second, DesktopApiError::client_unknown_error);
  EXPECT_EQ(second.message(), "client unknown error");
  respond_result("{}");
  EXPECT_EQ(std::error_code(await(client->playback_pause())).value(), 0);
  ASSERT_EQ(seen.size(), 3u);
  EXPECT_EQ(log_lines, (std::vector<std::string>{
                           "Partner API - Wrong ID, Response ID: early, Expected ID: " + seen[0].id,
                           "Partner API - Wrong ID, Response ID: " + upper(seen[1].id) + ", Expected ID: " + seen[1].id,
                       }));
}

// Any error reply ends the waiting request, whatever its id. The category
// word must match byte for byte, and the code is kept as it stands, in or
// out of range. A failure source keeps its own category on the wire and is
// folded only at the edge of the operation; `cancelled` of desktop_api is no
// news.
TEST_F(Requests, ErrorReplies) {
  connect_client();
  const std::error_code restricted = DesktopApiError::playback_restricted;
  const std::error_code source_7 = orvanta::link::FailureSource::remote_playback_not_allowed;
  const std::error_code source_9 = orvanta::link::FailureSource::cancelled;
  const std::error_code connection_failed = DesktopApiError::client_connection_failed;
  const struct {
    const char* id;  // the request's own when null
    int code;
    const char* category;
    DesktopApiError result;
    std::optional<std::error_code> published;
  } rows[] = {
      {nullptr, 8, "desktop_api", DesktopApiError::playback_restricted, restricted},
      {"unrelated", 10, "desktop_api", DesktopApiError::remote_playback_not_allowed, std::nullopt},
      {nullptr, 7, "desktop_api_failure_source", DesktopApiError::client_unknown_error, source_7},
      {nullptr, 9, "desktop_api_failure_source", DesktopApiError::cancelled, source_9},
      {nullptr, 7, "desktop_api", DesktopApiError::cancelled, std::nullopt},
      {nullptr, 7, "DESKTOP_API", DesktopApiError::client_connection_failed, connection_failed},
      {nullptr, -32600, "desktop_api", DesktopApiError::invalid_request, std::nullopt},
      {nullptr, 16, "desktop_api ", DesktopApiError::client_connection_failed, connection_failed},
      {nullptr, 16, "desktop", DesktopApiError::client_connection_failed, connection_failed},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(std::string(row.category) + " " + std::to_string(row.code));
    errors.clear();
    log_lines.clear();
    respond([&row](const std::string& id) { return error_reply(row.id ? row.id : id, row.code, row.category); });
    EXPECT_EQ(std::error_code(await(client->playback_pause())), row.result);
    EXPECT_EQ(log_lines, (std::vector<std::string>{"Partner API - Error in response: peer says no"}));
    if (row.published) {
      ASSERT_EQ(errors.size(), 1u);
      EXPECT_EQ(errors[0].first, *row.published);
      EXPECT_EQ(errors[0].second, "playback_pause");
    }
  }
}

// An error without an id can't be claimed by a request: it goes to the
// error signal, and the request keeps waiting for its own reply.
TEST_F(Requests, ErrorWithoutIdNeverReachesTheWaitingRequest) {
  connect_client();
  serve([](LinkTest* t) -> asio::awaitable<void> {
    auto request = co_await t->next_request();
    co_await t->peer.write_frame(R"({"jsonrpc":"2.0","error":{"code":4,"category":"desktop_api","message":"bare"}})");
    co_await t->peer.write_frame(result_reply(request.id, "{}"));
  }(this));
  EXPECT_EQ(await(client->playback_pause()).error().value(), 0);
  EXPECT_EQ(log_lines, (std::vector<std::string>{"Partner API - Error without ID received: bare"}));
  ASSERT_EQ(errors.size(), 1u);
  EXPECT_EQ(errors[0].first, DesktopApiError::internal_server_error);
  EXPECT_EQ(errors[0].second, "connection");
}

// An empty result takes any object but not null; a record's required field
// missing is the same failure.
TEST_F(Requests, UndecodableResultIsBadMessage) {
  connect_client();
  const auto bad = std::make_error_code(std::errc::bad_message);
  for (const char* result : {"[]", "null"}) {
    log_lines.clear();
    errors.clear();
    respond_result(result);
    EXPECT_EQ(await(client->playback_pause()).error(), DesktopApiError::client_unknown_error) << result;
    EXPECT_EQ(log_lines, (std::vector<std::string>{"Partner API - Failed to decode response: " + bad.message()}));
    ASSERT_EQ(errors.size(), 1u);
    EXPECT_EQ(errors[0].first, bad);
    EXPECT_EQ(errors[0].second, "playback_pause");
  }
  respond_result(R"({"hash":"h"})");
  EXPECT_EQ(await(client->get_username_hash()).error(), DesktopApiError::client_unknown_error);
}

TEST_F(Requests, ConnectionLostDuringTheWait) {
  connect_client();
  serve([](LinkTest* t) -> asio::awaitable<void> {
    auto request = co_await t->next_request();
    static_cast<void>(request);
    t->peer.close();
  }(this));
  std::error_code paused = await(client->playback_pause());
  EXPECT_EQ(paused, DesktopApiError::client_connection_failed);
  EXPECT_EQ(paused.message(), "client connection failed");
  EXPECT_EQ(client->connection_state(), orvanta::link::state_disconnected);
  ASSERT_FALSE(errors.empty());
  EXPECT_EQ(errors.back().first, asio::error::operation_aborted);
  EXPECT_EQ(errors.back().second, "playback_pause");
  // Afterwards the link is down and says so.
  EXPECT_EQ(await(client->playback_pause()).error(), DesktopApiError::client_not_connected);
}

}  // namespace
