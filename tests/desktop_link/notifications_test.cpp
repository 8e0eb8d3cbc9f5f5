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

// Unknown methods, case included, are dropped without a word.
TEST_F(Notifications, UndecodableStateIsLoggedAndPublished) {
  const std::string bad = std::make_error_code(std::errc::bad_message).message();
  deliver({notification("login_state_subscription", ""), notification("ble_state_subscription", R"({"x":1})"),
           notification("connect_active_device_subscription", "[]"),
           notification("LOGIN_STATE_SUBSCRIPTION", R"({"logged_in":true})"), notification("nobody_knows", "{}")});
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

// A notification of each family that an operation subscribes to reaches
// its own signal, each slot of it, decoded with its record (whose keys
// tests/messages pins). Without params nothing happens; params that don't
// decode reach the error signal.
TEST_F(Notifications, EachFamilyReachesItsSignalDecoded) {
  using namespace orvanta::messages;
  std::vector<std::string> got;
  orvanta::link::ScopedConnection c1 = client->on_chat([&](ChatNotification n) { got.push_back("chat " + n.text); });
  orvanta::link::ScopedConnection c2 =
      client->on_permission_request([&](PermissionRequest n) { got.push_back("permission " + n.request_id); });
  orvanta::link::ScopedConnection c3 =
      client->on_ai_completions_stream([&](AiCompletionsStreamChunk n) { got.push_back("completion " + n.data); });
  orvanta::link::ScopedConnection c4 =
      client->on_ai_messages_stream([&](AiMessagesStreamChunk n) { got.push_back("message " + n.data); });
  orvanta::link::ScopedConnection c5 =
      client->on_collect_logs([&](CollectLogsNotification n) { got.push_back("logs " + n.logs_directory); });
  orvanta::link::ScopedConnection c6 =
      client->on_collect_logs([&](CollectLogsNotification n) { got.push_back("logs again " + n.logs_directory); });
  deliver({
      notification("chat_subscribe", R"({"conversation_id":"c2","message_id":"m1","sender":"u3","text":"hej",)"
                                     R"("timestamp":"t"})"),
      notification("permissions_subscribe", R"({"type":"t","request_id":"r2","command":"c","permission_type":"p",)"
                                            R"("origin":"o","source_id":"s","message":"m"})"),
      notification("ai_completions_stream", R"({"data":"Hel","done":false,"error":false})"),
      notification("ai_messages_stream", R"({"data":"lo","done":true,"error":false})"),
      notification("collect_logs_subscription", R"({"logs_directory":"/tmp/logs"})"),
      notification("collect_logs_subscription", ""),
      notification("chat_subscribe", ""),
      notification("permissions_subscribe", "7"),
  });
  EXPECT_EQ(got, (std::vector<std::string>{"chat hej", "permission r2", "completion Hel", "message lo", "logs /tmp/logs",
                                           "logs again /tmp/logs"}));
  ASSERT_EQ(errors.size(), 1u);
  EXPECT_EQ(errors[0].second, "notification");
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
