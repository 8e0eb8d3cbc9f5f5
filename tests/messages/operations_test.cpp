#include "messages/operations.hpp"

#include <gtest/gtest.h>

#include <set>
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

struct Row {
  std::string name;
  std::string params;
  std::string result;
  bool operator==(const Row&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Row& row) {
  return out << row.name << " " << row.params << " " << row.result;
}

template <class Op>
Row row_of() {
  return {std::string(Op::name), std::string(record_name<typename Op::Request>()),
          std::string(record_name<typename Op::Response>())};
}

TEST(OperationCatalogue, MethodsRecordsAndOrder) {
  const std::vector<Row> expected = {
      {"connect_login", "ConnectLoginRequest", "EmptyResponse"},
      {"get_username_hash", "EmptyRequest", "GetUsernameHashResponse"},
      {"tk_message_auth_policy", "EmptyRequest", "TkMessageAuthPolicyResponse"},
      {"playback_pause", "EmptyRequest", "EmptyResponse"},
      {"playback_resume", "EmptyRequest", "EmptyResponse"},
      {"playback_play", "PlaybackPlayRequest", "EmptyResponse"},
      {"playback_next", "PlaybackNextRequest", "EmptyResponse"},
      {"playback_previous", "PlaybackPreviousRequest", "EmptyResponse"},
      {"playback_seek", "PlaybackSeekRequest", "EmptyResponse"},
      {"playback_shuffle", "PlaybackShuffleRequest", "EmptyResponse"},
      {"playback_repeat", "PlaybackRepeatRequest", "EmptyResponse"},
      {"playback_speed", "PlaybackSpeedRequest", "EmptyResponse"},
      {"playback_volume", "PlaybackVolumeRequest", "EmptyResponse"},
      {"ble_state_subscription", "EmptyRequest", "EmptyResponse"},
      {"connect_active_device_subscription", "EmptyRequest", "EmptyResponse"},
      {"search", "SearchRequest", "SearchResponse"},
      {"lookup", "LookupRequest", "LookupResponse"},
      {"me", "EmptyRequest", "MeResponse"},
      {"taste_profile", "EmptyRequest", "TasteProfileResponse"},
      {"history_top", "HistoryTopRequest", "HistoryTopResponse"},
      {"history_recent", "HistoryRecentRequest", "HistoryRecentResponse"},
      {"now_playing", "EmptyRequest", "NowPlayingResponse"},
      {"agent_bootstrap", "EmptyRequest", "AgentBootstrapResponse"},
      {"agent_online_state", "AgentOnlineStateRequest", "AgentOnlineStateResponse"},
      {"ask", "AskRequest", "AskResponse"},
      {"web_search", "WebSearchRequest", "WebSearchResponse"},
      {"ai_completions", "AiCompletionsRequest", "AiCompletionsResponse"},
      {"ai_completions_stream", "AiCompletionsStreamRequest", "EmptyResponse"},
      {"ai_images", "AiImagesRequest", "AiImagesResponse"},
      {"tts_synthesize", "TtsSynthesizeRequest", "TtsSynthesizeResponse"},
      {"tts_voices", "EmptyRequest", "TtsVoicesResponse"},
      {"ai_messages", "AiMessagesRequest", "AiMessagesResponse"},
      {"ai_messages_stream", "AiMessagesStreamRequest", "EmptyResponse"},
      {"telemetry_sandbox", "TelemetrySandboxRequest", "TelemetrySandboxResponse"},
      {"pod_upload", "PodUploadRequest", "PodUploadResponse"},
      {"pod_shows_list", "EmptyRequest", "PodShowsListResponse"},
      {"pod_shows_create", "PodShowsCreateRequest", "PodShowsCreateResponse"},
      {"pod_shows_delete", "PodShowsDeleteRequest", "PodShowsDeleteResponse"},
      {"pod_episodes_list", "PodEpisodesListRequest", "PodEpisodesListResponse"},
      {"pod_episodes_create", "PodEpisodesCreateRequest", "PodEpisodesCreateResponse"},
      {"pod_episodes_status", "PodEpisodesStatusRequest", "PodEpisodesStatusResponse"},
      {"pod_episodes_delete", "PodEpisodesDeleteRequest", "PodEpisodesDeleteResponse"},
      {"pod_timeline_get", "PodTimelineGetRequest", "PodTimelineGetResponse"},
      {"pod_timeline_set", "PodTimelineSetRequest", "PodTimelineSetResponse"},
      {"pod_timeline_delete", "PodTimelineDeleteRequest", "PodTimelineDeleteResponse"},
      {"connect_cluster", "EmptyRequest", "ConnectClusterResponse"},
      {"connect_transfer", "ConnectTransferRequest", "EmptyResponse"},
      {"connect_set_volume", "ConnectSetVolumeRequest", "EmptyResponse"},
      {"connect_device_info", "ConnectDeviceInfoRequest", "ConnectDevice"},
      {"chat_list", "EmptyRequest", "ChatListResponse"},
      {"chat_read", "ChatReadRequest", "ChatReadResponse"},
      {"chat_send", "ChatSendRequest", "ChatSendResponse"},
      {"chat_subscribe", "EmptyRequest", "EmptyResponse"},
      {"library_list", "LibraryListRequest", "LibraryListResponse"},
      {"library_contains", "LibraryContainsRequest", "LibraryContainsResponse"},
      {"library_add", "LibraryAddRequest", "LibraryAddResponse"},
      {"library_remove", "LibraryRemoveRequest", "LibraryRemoveResponse"},
      {"playlist_get", "PlaylistGetRequest", "PlaylistGetResponse"},
      {"playlist_create", "PlaylistCreateRequest", "PlaylistCreateResponse"},
      {"playlist_update", "PlaylistUpdateRequest", "PlaylistUpdateResponse"},
      {"playlist_add_tracks", "PlaylistAddTracksRequest", "PlaylistAddTracksResponse"},
      {"playlist_remove_tracks", "PlaylistRemoveTracksRequest", "PlaylistRemoveTracksResponse"},
      {"folder_list", "FolderListRequest", "FolderListResponse"},
      {"folder_create", "FolderCreateRequest", "FolderCreateResponse"},
      {"folder_rename", "FolderRenameRequest", "FolderRenameResponse"},
      {"folder_move", "FolderMoveRequest", "FolderMoveResponse"},
      {"folder_remove", "FolderRemoveRequest", "FolderRemoveResponse"},
      {"queue_list", "EmptyRequest", "QueueListResponse"},
      {"queue_add", "QueueAddRequest", "EmptyResponse"},
      {"queue_remove", "QueueRemoveRequest", "QueueRemoveResponse"},
      {"queue_move", "QueueMoveRequest", "EmptyResponse"},
      {"rondo_status", "EmptyRequest", "RondoStatusResponse"},
      {"rondo_create", "RondoCreateRequest", "RondoStatusResponse"},
      {"rondo_leave", "EmptyRequest", "EmptyResponse"},
      {"rondo_end", "EmptyRequest", "EmptyResponse"},
      {"rondo_kick", "RondoKickRequest", "RondoStatusResponse"},
      {"rondo_permissions", "RondoPermissionsRequest", "RondoPermissionsResponse"},
      {"browser_new", "BrowserNewRequest", "BrowserNewResponse"},
      {"browser_list", "EmptyRequest", "BrowserListResponse"},
      {"browser_close", "BrowserCloseRequest", "BrowserCloseResponse"},
      {"browser_snapshot", "BrowserSnapshotRequest", "BrowserSnapshotResponse"},
      {"browser_navigate", "BrowserNavigateRequest", "BrowserNavigateResponse"},
      {"browser_click", "BrowserClickRequest", "BrowserClickResponse"},
      {"browser_type", "BrowserTypeRequest", "BrowserTypeResponse"},
      {"browser_scroll", "BrowserScrollRequest", "BrowserScrollResponse"},
      {"browser_evaluate", "BrowserEvaluateRequest", "BrowserEvaluateResponse"},
      {"permissions_grant", "PermissionsGrantRequest", "PermissionsGrantResponse"},
      {"permissions_current", "EmptyRequest", "PermissionsCurrentResponse"},
      {"permissions_subscribe", "EmptyRequest", "EmptyResponse"},
      {"permissions_resolve", "PermissionsResolveRequest", "PermissionsResolveResponse"},
      {"show_toast", "ShowToastRequest", "EmptyResponse"},
      {"collect_logs_subscription", "EmptyRequest", "EmptyResponse"},
      // Made only by the connection itself.
      {"login_state_subscription", "EmptyRequest", "EmptyResponse"},
      {"authorize_connection", "HelloRequest", "HelloResponse"},
  };
  std::vector<Row> actual;
  for_each_operation([&]<class Op>(std::type_identity<Op>) { actual.push_back(row_of<Op>()); });
  ASSERT_EQ(actual.size(), 94U);
  for (std::size_t i = 0; i < expected.size(); ++i) EXPECT_EQ(actual[i], expected[i]) << "row " << i;
  EXPECT_EQ(operation_names.size(), 92U);
  EXPECT_EQ(connection_operation_names.size(), 2U);
  EXPECT_EQ(std::set<std::string_view>(operation_names.begin(), operation_names.end()).size(), 92U);
}

TEST(OperationCatalogue, Notifications) {
  const std::vector<Row> expected = {
      {"login_state_subscription", "LoginStateNotification", ""},
      {"ble_state_subscription", "BleStateNotification", ""},
      {"connect_active_device_subscription", "ActiveDeviceNotification", ""},
      {"chat_subscribe", "ChatNotification", ""},
      {"permissions_subscribe", "PermissionRequest", ""},
      {"collect_logs_subscription", "CollectLogsNotification", ""},
      {"ai_completions_stream", "AiCompletionsStreamChunk", ""},
      {"ai_messages_stream", "AiMessagesStreamChunk", ""},
  };
  std::vector<Row> actual;
  for_each_notification([&]<class N>(std::type_identity<N>) {
    actual.push_back({std::string(N::name), std::string(record_name<typename N::Params>()), ""});
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
  EmptyResponse empty;
  EXPECT_TRUE(decode_operation_result<PlaybackPause>(RawJsonValue(R"({"extra":1})"), empty));
  EXPECT_FALSE(decode_operation_result<PlaybackPause>(RawJsonValue("null"), empty));
  EXPECT_FALSE(decode_operation_result<PlaybackPause>(RawJsonValue("[]"), empty));

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
