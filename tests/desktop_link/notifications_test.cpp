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
