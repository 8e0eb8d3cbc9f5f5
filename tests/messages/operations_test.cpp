#include "messages/operations.hpp"

#include <gtest/gtest.h>

#include <utility>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace orvanta::messages;
using orvanta::json::RawJsonValue;

// The record's name as the compiler spells the type, without the namespace.
// An alias shows as the type it names.
template <class T>
std::string_view record_name() {
  std::string_view pretty = __PRETTY_FUNCTION__;
  pretty.remove_prefix(pretty.find("T = ") + 4);
  pretty = pretty.substr(0, pretty.find_first_of(";]"));
  constexpr std::string_view prefix = "orvanta::messages::";
  if (pretty.substr(0, prefix.size()) == prefix) pretty.remove_prefix(prefix.size());
  return pretty;
}

// The wire names, in the catalogue's order, written from the method table.
TEST(OperationCatalogue, MethodNamesInOrder) {
  const std::vector<std::string_view> expected = {
      "connect_login", "get_username_hash", "tk_message_auth_policy", "playback_pause", "playback_resume",
      "playback_play", "playback_next", "playback_previous", "playback_seek", "playback_shuffle", "playback_repeat",
      "playback_speed", "playback_volume", "ble_state_subscription", "connect_active_device_subscription", "search",
      "lookup", "me", "taste_profile", "history_top", "history_recent", "now_playing", "agent_bootstrap",
      "agent_online_state", "ask", "web_search", "ai_completions", "ai_completions_stream", "ai_images",
      "tts_synthesize", "tts_voices", "ai_messages", "ai_messages_stream", "telemetry_sandbox", "pod_upload",
      "pod_shows_list", "pod_shows_create", "pod_shows_delete", "pod_episodes_list", "pod_episodes_create",
      "pod_episodes_status", "pod_episodes_delete", "pod_timeline_get", "pod_timeline_set", "pod_timeline_delete",
      "connect_cluster", "connect_transfer", "connect_set_volume", "connect_device_info", "chat_list", "chat_read",
      "chat_send", "chat_subscribe", "library_list", "library_contains", "library_add", "library_remove",
      "playlist_get", "playlist_create", "playlist_update", "playlist_add_tracks", "playlist_remove_tracks",
      "folder_list", "folder_create", "folder_rename", "folder_move", "folder_remove", "queue_list", "queue_add",
      "queue_remove", "queue_move", "rondo_status", "rondo_create", "rondo_leave", "rondo_end", "rondo_kick",
      "rondo_permissions", "browser_new", "browser_list", "browser_close", "browser_snapshot", "browser_navigate",
      "browser_click", "browser_type", "browser_scroll", "browser_evaluate", "permissions_grant",
      "permissions_current", "permissions_subscribe", "permissions_resolve", "show_toast",
      "collect_logs_subscription",
      // Made only by the connection itself.
      "login_state_subscription", "authorize_connection",
  };
  std::vector<std::string_view> actual;
  for_each_operation([&]<class Op>(std::type_identity<Op>) { actual.push_back(Op::name); });
  EXPECT_EQ(actual, expected);
  EXPECT_EQ(operation_names.size(), 92U);
  EXPECT_EQ(connection_operation_names.size(), 2U);
}

TEST(OperationCatalogue, Notifications) {
  using Row = std::pair<std::string_view, std::string_view>;
  const std::vector<Row> expected = {
      {"login_state_subscription", "LoginStateNotification"},
      {"ble_state_subscription", "BleStateNotification"},
      {"connect_active_device_subscription", "ActiveDeviceNotification"},
      {"chat_subscribe", "ChatNotification"},
      {"permissions_subscribe", "PermissionRequest"},
      {"collect_logs_subscription", "CollectLogsNotification"},
      {"ai_completions_stream", "AiCompletionsStreamChunk"},
      {"ai_messages_stream", "AiMessagesStreamChunk"},
  };
  std::vector<Row> actual;
  for_each_notification([&]<class N>(std::type_identity<N>) {
    actual.emplace_back(N::name, record_name<typename N::Params>());
  });
  EXPECT_EQ(actual, expected);
}

// Every notification arrives under the word of a request that started it,
// except the login state, which the connection's own subscription starts.
TEST(OperationCatalogue, EveryNotificationHasItsStartingRequest) {
  for (std::string_view name : notification_names) {
    EXPECT_TRUE(visit_operation(name, [](auto) {})) << name;
  }
}

TEST(OperationCatalogue, LookupByNameIsExact) {
  std::string found;
  EXPECT_TRUE(visit_operation("connect_device_info", [&]<class Op>(std::type_identity<Op>) {
    found = std::string(record_name<typename Op::Response>());
  }));
  EXPECT_EQ(found, "ConnectDevice");
  EXPECT_TRUE(visit_operation("authorize_connection", [&]<class Op>(std::type_identity<Op>) {
    found = std::string(record_name<typename Op::Request>());
  }));
  EXPECT_EQ(found, "HelloRequest");
  int calls = 0;
  for (std::string_view unknown : {"ME", "me ", "", "connect", "subscribe_to_login_state"}) {
    EXPECT_FALSE(visit_operation(unknown, [&](auto) { ++calls; })) << unknown;
    EXPECT_FALSE(visit_notification(unknown, [&](auto) { ++calls; })) << unknown;
  }
  EXPECT_EQ(calls, 0);
  EXPECT_TRUE(visit_notification("chat_subscribe", [&]<class N>(std::type_identity<N>) {
    found = std::string(record_name<typename N::Params>());
  }));
  EXPECT_EQ(found, "ChatNotification");
}

// Every record of the catalogue has a codec reachable from its type, and a
// default request encodes as an object.
TEST(OperationCatalogue, EveryRecordHasACodec) {
  for_each_operation([]<class Op>(std::type_identity<Op>) {
    const std::string text = encode_operation_request<Op>(typename Op::Request{}, "i");
    EXPECT_EQ(text.rfind(R"({"jsonrpc":"2.0","method":")" + std::string(Op::name) + R"(","params":{)", 0), 0U)
        << text;
    EXPECT_TRUE(text.ends_with(R"(},"id":"i"})")) << text;
    EXPECT_GT(orvanta::json::encode(record_codec<typename Op::Response>(), typename Op::Response{}).size(), 1U);
  });
  for_each_notification([]<class N>(std::type_identity<N>) {
    EXPECT_GT(orvanta::json::encode(record_codec<typename N::Params>(), typename N::Params{}).size(), 1U);
  });
}

TEST(OperationCatalogue, RequestBytes) {
  EXPECT_EQ(encode_operation_request<Me>(EmptyRequest{}, "0f6e"),
            R"({"jsonrpc":"2.0","method":"me","params":{},"id":"0f6e"})");
  EXPECT_EQ(encode_operation_request<ConnectSetVolume>(ConnectSetVolumeRequest{"d1", 30}, "x"),
            R"({"jsonrpc":"2.0","method":"connect_set_volume","params":{"device_id":"d1","volume":30},"id":"x"})");
  EXPECT_EQ(encode_operation_request<LoginStateSubscription>(EmptyRequest{}, std::nullopt),
            R"({"jsonrpc":"2.0","method":"login_state_subscription","params":{}})");
}

TEST(OperationCatalogue, ResultsAndNotificationParams) {
  ConnectDevice device;
  EXPECT_FALSE(decode_operation_result<ConnectDeviceInfo>(RawJsonValue(R"({"device_id":"d"})"), device));

  ActiveDeviceNotification active;
  EXPECT_TRUE(decode_notification_params<notification::ConnectActiveDeviceSubscription>(
      RawJsonValue(R"({"active_device_id":"d2","is_local":false,"new":[]})"), active));
  EXPECT_EQ(active, (ActiveDeviceNotification{"d2", false}));
  // A notification without params reads as null, which no record takes.
  EXPECT_FALSE(decode_notification_params<notification::ConnectActiveDeviceSubscription>(std::nullopt, active));
}

}  // namespace
