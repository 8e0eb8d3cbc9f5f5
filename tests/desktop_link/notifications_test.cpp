// Notifications after the connection stands: decoding, storing and fanning
// out over the client's signals.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/desktop_link/link_fixture.hpp"

namespace {

using orvanta::testing::LinkTest;
using orvanta::testing::notification;

// Each test sends its notifications followed by an active-device one with
// the id "sentinel"; once the sentinel is seen, everything before it has
// been handled.
class Notifications : public LinkTest {
 public:
  Notifications() {
    connect_client();
    devices_connection = client->on_active_device([this](std::string id) { devices.push_back(std::move(id)); });
    logins_connection = client->on_login_state([this](bool v) { logins.push_back(v); });
    ble_connection = client->on_ble_state([this](bool v) { ble.push_back(v); });
  }

  void deliver(std::vector<std::string> texts) {
    texts.push_back(notification("connect_active_device_subscription",
                                 R"({"active_device_id":"sentinel","is_local":false})"));
    push(std::move(texts));
    drive([this] { return !devices.empty() && devices.back() == "sentinel"; });
  }

  std::vector<std::string> devices;
  std::vector<bool> logins;
  std::vector<bool> ble;
  orvanta::link::ScopedConnection devices_connection;
  orvanta::link::ScopedConnection logins_connection;
  orvanta::link::ScopedConnection ble_connection;
};

// The login row stores and emits every value, also a repeated one; only the
// BLE row filters unchanged values.
TEST_F(Notifications, LoginStateIsEmittedEachTimeBleStateOnChange) {
  deliver({notification("login_state_subscription", R"({"logged_in":true})"),
           notification("login_state_subscription", R"({"logged_in":true})"),
           notification("ble_state_subscription", R"({"broadcasting":false})"),
           notification("ble_state_subscription", R"({"broadcasting":true})"),
           notification("ble_state_subscription", R"({"broadcasting":true})")});
  EXPECT_EQ(logins, (std::vector<bool>{true, true}));
  EXPECT_TRUE(client->logged_in());
  EXPECT_EQ(ble, (std::vector<bool>{true}));
  EXPECT_TRUE(client->broadcasting());
  EXPECT_EQ(log_lines, (std::vector<std::string>{"PartnerApiClient - Login state changed: true",
                                                 "PartnerApiClient - Login state changed: true",
                                                 "PartnerApiClient - BLE broadcasting state changed: true"}));
}

TEST_F(Notifications, UndecodableStateIsLoggedAndPublished) {
  const std::string bad = std::make_error_code(std::errc::bad_message).message();
  deliver({notification("login_state_subscription", ""), notification("ble_state_subscription", R"({"x":1})"),
           notification("connect_active_device_subscription", "[]")});
  EXPECT_TRUE(logins.empty());
  EXPECT_TRUE(ble.empty());
  EXPECT_EQ(log_lines, (std::vector<std::string>{"Partner API - Failed to decode login state notification: " + bad,
                                                 "Partner API - Failed to decode BLE state notification: " + bad}));
  ASSERT_EQ(errors.size(), 3u);
  for (const auto& [ec, operation] : errors) {
    EXPECT_EQ(ec, std::errc::bad_message);
    EXPECT_EQ(operation, "notification");
  }
}

TEST_F(Notifications, UnknownMethodsAreDroppedSilently) {
  deliver({notification("LOGIN_STATE_SUBSCRIPTION", R"({"logged_in":true})"), notification("nobody_knows", "{}")});
  EXPECT_TRUE(logins.empty());
  EXPECT_TRUE(log_lines.empty());
  EXPECT_TRUE(errors.empty());
}

// The streams that operations start: without params nothing happens, with
// params that don't decode the error signal hears of it.
TEST_F(Notifications, StreamsEmitDecodedRecords) {
  std::vector<std::string> folders;
  orvanta::link::ScopedConnection logs = client->on_collect_logs(
      [&](orvanta::messages::CollectLogsNotification n) { folders.push_back(n.logs_directory); });
  orvanta::link::ScopedConnection logs_again = client->on_collect_logs(
      [&](orvanta::messages::CollectLogsNotification n) { folders.push_back(n.logs_directory + "!"); });
  deliver({notification("collect_logs_subscription", R"({"logs_directory":"/tmp/logs"})"),
           notification("collect_logs_subscription", ""), notification("chat_subscribe", ""),
           notification("permissions_subscribe", "7")});
  EXPECT_EQ(folders, (std::vector<std::string>{"/tmp/logs", "/tmp/logs!"}));
  ASSERT_EQ(errors.size(), 1u);
  EXPECT_EQ(errors[0].second, "notification");
  EXPECT_TRUE(log_lines.empty());
}

// A well-formed notification of each family that an operation subscribes to
// reaches its own signal, decoded key by key; keys left out take their
// defaults.
TEST_F(Notifications, EachFamilyReachesItsSignalDecoded) {
  using namespace orvanta::messages;
  std::vector<ChatNotification> chats;
  std::vector<PermissionRequest> permissions;
  std::vector<AiCompletionsStreamChunk> completions;
  std::vector<AiMessagesStreamChunk> answers;
  orvanta::link::ScopedConnection c1 = client->on_chat([&](ChatNotification n) { chats.push_back(std::move(n)); });
  orvanta::link::ScopedConnection c2 =
      client->on_permission_request([&](PermissionRequest n) { permissions.push_back(std::move(n)); });
  orvanta::link::ScopedConnection c3 =
      client->on_ai_completions_stream([&](AiCompletionsStreamChunk n) { completions.push_back(std::move(n)); });
  orvanta::link::ScopedConnection c4 =
      client->on_ai_messages_stream([&](AiMessagesStreamChunk n) { answers.push_back(std::move(n)); });
  deliver({
      notification("chat_subscribe",
                   R"({"conversation_id":"c1","message_id":"m9","sender":"u2","text":"hej",)"
                   R"("timestamp":"2026-11-24T10:00:00Z","agent_context":{"agent_id":"a7","role":"assistant"},)"
                   R"("envelope_header":"h1"})"),
      notification("chat_subscribe", R"({"conversation_id":"c2","message_id":"m1","sender":"u3","text":"",)"
                                     R"("timestamp":"t"})"),
      notification("permissions_subscribe",
                   R"({"type":"request","request_id":"r1","command":"play","permission_type":"playback",)"
                   R"("origin":"agent","source_id":"s3","granted":true,"message":"May I?"})"),
      notification("permissions_subscribe", R"({"type":"t","request_id":"r2","command":"c","permission_type":"p",)"
                                            R"("origin":"o","source_id":"s","message":"m"})"),
      notification("ai_completions_stream", R"({"data":"Hel","done":false,"error":false,"error_msg":"",)"
                                            R"("status_code":200,"content_type":"text/plain"})"),
      notification("ai_completions_stream", R"({"data":"lo","done":true,"error":false})"),
      notification("ai_messages_stream", R"({"data":"","done":true,"error":true,"error_msg":"quota",)"
                                         R"("status_code":429,"content_type":"application/json"})"),
  });
  EXPECT_EQ(chats, (std::vector<ChatNotification>{
                       {"c1", "m9", "u2", "hej", "2026-11-24T10:00:00Z", ChatAgentContext{"a7", "assistant"}, "h1"},
                       {"c2", "m1", "u3", "", "t", std::nullopt, std::nullopt},
                   }));
  EXPECT_EQ(permissions, (std::vector<PermissionRequest>{
                             {"request", "r1", "play", "playback", "agent", "s3", true, "May I?"},
                             {"t", "r2", "c", "p", "o", "s", std::nullopt, "m"},
                         }));
  EXPECT_EQ(completions, (std::vector<AiCompletionsStreamChunk>{
                             {"Hel", false, false, "", 200, "text/plain"},
                             {"lo", true, false, "", 0, ""},
                         }));
  EXPECT_EQ(answers, (std::vector<AiMessagesStreamChunk>{{"", true, true, "quota", 429, "application/json"}}));
  EXPECT_TRUE(errors.empty());
  EXPECT_TRUE(log_lines.empty());
}

// Frames that can't be read as messages cost a log line and an error each,
// and the connection stays.
TEST_F(Notifications, StrayBytesAndBadTextsDoNotEndTheConnection) {
  serve(peer.write_raw("x"));
  drive([this] { return peer_done; });
  deliver({"{not json", R"({"jsonrpc":"2.0","result":{}})",
           notification("login_state_subscription", R"({"logged_in":false})")});
  EXPECT_EQ(client->connection_state(), orvanta::link::state_connected);
  const std::string bad = std::make_error_code(std::errc::bad_message).message();
  EXPECT_EQ(log_lines, (std::vector<std::string>{
                           "Partner API - Failed to deserialize message: " + bad,
                           "Partner API - Failed to deserialize message: " + bad,
                           "Partner API - Failed to deserialize message: " + bad,
                           "PartnerApiClient - Login state changed: false",
                       }));
  ASSERT_EQ(errors.size(), 3u);
  EXPECT_EQ(errors[0].second, "connection");
}

}  // namespace
