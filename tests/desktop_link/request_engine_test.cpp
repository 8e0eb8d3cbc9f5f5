// One request at a time through the client: the bytes on the wire, the id
// check, error replies, undecodable results, and a connection lost on the
// way.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include <asio/experimental/as_tuple.hpp>

#include "tests/desktop_link/link_fixture.hpp"

namespace {

using orvanta::link::DesktopApiError;
using orvanta::testing::error_reply;
using orvanta::testing::LinkTest;
using orvanta::testing::notification;
using orvanta::testing::PeerRequest;
using orvanta::testing::result_reply;

using Requests = LinkTest;

// Reads one request into `seen` and answers it with `reply(id)`.
asio::awaitable<void> answer(LinkTest* t, std::vector<PeerRequest>* seen, std::string (*reply)(const std::string&)) {
  auto request = co_await t->next_request();
  seen->push_back(request);
  co_await t->peer.write_frame(reply(request.id));
}

TEST_F(Requests, BytesOfARequest) {
  connect_client();
  std::vector<PeerRequest> seen;
  serve(answer(this, &seen, [](const std::string& id) { return result_reply(id, "{}"); }));
  std::error_code paused = await(client->playback_pause());
  EXPECT_EQ(paused.value(), 0);
  serve(answer(this, &seen, [](const std::string& id) { return result_reply(id, "{}"); }));
  std::error_code sought = await(client->playback_seek({-10000, true}));
  EXPECT_EQ(sought.value(), 0);

  ASSERT_EQ(seen.size(), 2u);
  EXPECT_EQ(seen[0].text, R"({"jsonrpc":"2.0","method":"playback_pause","params":{},"id":")" + seen[0].id + R"("})");
  EXPECT_EQ(seen[1].text, R"({"jsonrpc":"2.0","method":"playback_seek","params":{"position_ms":-10000,)"
                          R"("is_relative":true},"id":")" +
                              seen[1].id + R"("})");
  EXPECT_NE(seen[0].id, seen[1].id);
}

TEST_F(Requests, ResultIsDecodedWithTheMethodsRecord) {
  connect_client();
  std::vector<PeerRequest> seen;
  serve(answer(this, &seen, [](const std::string& id) {
    return result_reply(id, R"({"hash":"h","salt":"s","unknown":[1,{"x":2}]})");
  }));
  auto hash = await(client->get_username_hash());
  ASSERT_TRUE(hash.has_value()) << hash.error().message();
  EXPECT_EQ(hash->hash, "h");
  EXPECT_EQ(hash->salt, "s");
}

// The reply must carry our id byte for byte; a stray reply is consumed and
// fails the request, and the next request is not disturbed by it.
TEST_F(Requests, WrongIdFailsAndIsConsumed) {
  connect_client();
  std::vector<PeerRequest> seen;
  std::string upper_id;
  serve([](LinkTest* t, std::string* upper) -> asio::awaitable<void> {
    auto request = co_await t->next_request();
    *upper = request.id;
    std::transform(upper->begin(), upper->end(), upper->begin(), [](unsigned char c) { return std::toupper(c); });
    co_await t->peer.write_frame(result_reply(*upper, "{}"));
  }(this, &upper_id));
  std::error_code first = await(client->playback_pause());
  EXPECT_EQ(first, DesktopApiError::client_unknown_error);
  EXPECT_EQ(first.message(), "client unknown error");
  ASSERT_EQ(log_lines.size(), 1u);
  EXPECT_EQ(log_lines[0].rfind("Partner API - Wrong ID, Response ID: " + upper_id + ", Expected ID: ", 0), 0u);

  serve(answer(this, &seen, [](const std::string& id) { return result_reply(id, "{}"); }));
  std::error_code second = await(client->playback_resume());
  EXPECT_EQ(second.value(), 0);
}

TEST_F(Requests, ErrorReplyWithAnyIdEndsTheRequest) {
  connect_client();
  std::vector<PeerRequest> seen;
  serve(answer(this, &seen, [](const std::string& id) { return error_reply(id, 8, "desktop_api"); }));
  std::error_code own = await(client->playback_pause());
  EXPECT_EQ(own.message(), "playback restricted");

  serve(answer(this, &seen, [](const std::string&) { return error_reply("unrelated", 10, "desktop_api"); }));
  std::error_code unrelated = await(client->playback_pause());
  EXPECT_EQ(unrelated.message(), "remote playback not allowed");
  EXPECT_EQ(log_lines, (std::vector<std::string>{"Partner API - Error in response: peer says no",
                                                 "Partner API - Error in response: peer says no"}));
  ASSERT_EQ(errors.size(), 2u);
  EXPECT_EQ(errors[1].second, "playback_pause");
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
  std::error_code paused = await(client->playback_pause());
  EXPECT_EQ(paused.value(), 0);
  EXPECT_EQ(log_lines, (std::vector<std::string>{"Partner API - Error without ID received: bare"}));
  ASSERT_EQ(errors.size(), 1u);
  EXPECT_EQ(errors[0].first, DesktopApiError::internal_server_error);
  EXPECT_EQ(errors[0].second, "connection");
}

// A failure source keeps its own category on the wire and is folded only at
// the edge of the operation; `cancelled` of desktop_api is no news.
TEST_F(Requests, FailureSourcesAreFoldedAndCancelledIsNotPublished) {
  connect_client();
  std::vector<PeerRequest> seen;
  serve(answer(this, &seen, [](const std::string& id) { return error_reply(id, 7, "desktop_api_failure_source"); }));
  EXPECT_EQ(std::error_code(await(client->playback_pause())), DesktopApiError::client_unknown_error);
  serve(answer(this, &seen, [](const std::string& id) { return error_reply(id, 9, "desktop_api_failure_source"); }));
  EXPECT_EQ(std::error_code(await(client->playback_pause())), DesktopApiError::cancelled);
  serve(answer(this, &seen, [](const std::string& id) { return error_reply(id, 7, "desktop_api"); }));
  EXPECT_EQ(std::error_code(await(client->playback_pause())), DesktopApiError::cancelled);
  serve(answer(this, &seen, [](const std::string& id) { return error_reply(id, 7, "DESKTOP_API"); }));
  EXPECT_EQ(std::error_code(await(client->playback_pause())), DesktopApiError::client_connection_failed);

  ASSERT_EQ(errors.size(), 3u);
  EXPECT_EQ(errors[0].first.category().name(), std::string("desktop_api_failure_source"));
  EXPECT_EQ(errors[1].first.category().name(), std::string("desktop_api_failure_source"));
  EXPECT_EQ(errors[2].first, DesktopApiError::client_connection_failed);
}

TEST_F(Requests, UndecodableResultIsBadMessage) {
  connect_client();
  std::vector<PeerRequest> seen;
  for (const char* result : {"[]", "null"}) {
    log_lines.clear();
    errors.clear();
    serve([](LinkTest* t, std::string body) -> asio::awaitable<void> {
      auto request = co_await t->next_request();
      co_await t->peer.write_frame(result_reply(request.id, body));
    }(this, result));
    std::error_code paused = await(client->playback_pause());
    EXPECT_EQ(paused.message(), "client unknown error") << result;
    const auto bad = std::make_error_code(std::errc::bad_message);
    EXPECT_EQ(log_lines, (std::vector<std::string>{"Partner API - Failed to decode response: " + bad.message()}));
    ASSERT_EQ(errors.size(), 1u);
    EXPECT_EQ(errors[0].first, bad);
    EXPECT_EQ(errors[0].second, "playback_pause");
  }
  // A required field missing from a record is the same failure.
  serve(answer(this, &seen, [](const std::string& id) { return result_reply(id, R"({"hash":"h"})"); }));
  auto hash = await(client->get_username_hash());
  EXPECT_FALSE(hash.has_value());
  EXPECT_EQ(hash.error(), DesktopApiError::client_unknown_error);
}

TEST_F(Requests, EmptyResponseTakesAnyObject) {
  connect_client();
  std::vector<PeerRequest> seen;
  serve(answer(this, &seen, [](const std::string& id) { return result_reply(id, R"({"extra":{"deep":[true]}})"); }));
  EXPECT_EQ(std::error_code(await(client->show_toast({}))).value(), 0);
}

// Replies that arrive with nobody waiting stay queued; each then fails the
// request that comes next.
TEST_F(Requests, RepliesWithNobodyWaitingFailTheNextRequests) {
  connect_client();
  serve([](LinkTest* t) -> asio::awaitable<void> {
    co_await t->peer.write_frame(result_reply("early-1", "{}"));
    co_await t->peer.write_frame(result_reply("early-2", "{}"));
    co_await t->peer.write_frame(notification("sentinel", "{}"));
  }(this));
  drive([this] { return peer_done; });
  std::vector<PeerRequest> seen;
  serve([](LinkTest* t, std::vector<PeerRequest>* s) -> asio::awaitable<void> {
    for (int i = 0; i < 3; ++i) {
      auto request = co_await t->next_request();
      s->push_back(request);
      if (i == 2) co_await t->peer.write_frame(result_reply(request.id, "{}"));
    }
  }(this, &seen));
  EXPECT_EQ(std::error_code(await(client->playback_pause())), DesktopApiError::client_unknown_error);
  EXPECT_EQ(std::error_code(await(client->playback_pause())), DesktopApiError::client_unknown_error);
  EXPECT_EQ(std::error_code(await(client->playback_pause())).value(), 0);
  ASSERT_EQ(log_lines.size(), 2u);
  EXPECT_EQ(log_lines[0].rfind("Partner API - Wrong ID, Response ID: early-1, Expected ID: ", 0), 0u);
  EXPECT_EQ(log_lines[1].rfind("Partner API - Wrong ID, Response ID: early-2, Expected ID: ", 0), 0u);
}

// A notification that also carries an id is a notification.
TEST_F(Requests, NotificationWithAnIdNeverCompletesARequest) {
  connect_client();
  serve([](LinkTest* t) -> asio::awaitable<void> {
    auto request = co_await t->next_request();
    co_await t->peer.write_frame(R"({"jsonrpc":"2.0","method":"other","id":")" + request.id + R"(","result":{}})");
    co_await t->peer.write_frame(result_reply(request.id, R"({"enabled":true})"));
  }(this));
  auto policy = await(client->tk_message_auth_policy());
  ASSERT_TRUE(policy.has_value());
  EXPECT_TRUE(policy->enabled);
}

TEST_F(Requests, NotConnectedSendsNothing) {
  std::error_code paused = await(client->playback_pause());
  EXPECT_EQ(paused, DesktopApiError::client_not_connected);
  EXPECT_EQ(paused.message(), "client not connected");
  auto me = await(client->me());
  EXPECT_EQ(me.error(), DesktopApiError::client_not_connected);
  EXPECT_TRUE(errors.empty());
  EXPECT_TRUE(log_lines.empty());
}

// Connected once, then down again: the peer reads the end of the stream and
// not one byte of the request.
TEST_F(Requests, DisconnectedClientSendsNothing) {
  connect_client();
  std::optional<std::error_code> peer_read;
  serve([](LinkTest* t, std::optional<std::error_code>* read) -> asio::awaitable<void> {
    char byte = 0;
    auto [ec, n] = co_await asio::async_read(t->peer.socket(), asio::buffer(&byte, 1),
                                             asio::experimental::as_tuple(asio::use_awaitable));
    static_cast<void>(n);
    *read = ec;
  }(this, &peer_read));
  client->disconnect();
  std::error_code paused = await(client->playback_pause());
  EXPECT_EQ(paused, DesktopApiError::client_not_connected);
  drive([&] { return peer_read.has_value(); });
  EXPECT_EQ(*peer_read, asio::error::eof);
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
  std::error_code again = await(client->playback_pause());
  EXPECT_EQ(again, DesktopApiError::client_not_connected);
}

}  // namespace
