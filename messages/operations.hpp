#pragma once

// The operation catalogue: the one place that pairs each wire method of the
// Partner API with the record it sends as `params` and the record it expects
// as `result`, and each notification method with the record of its `params`.
// The link, the simulator and the tests walk these lists instead of naming
// methods again:
//
//   messages::for_each_operation([]<class Op>(std::type_identity<Op>) {
//     std::puts(Op::name.data());            // typename Op::Request, typename Op::Response
//   });
//   auto codec = messages::record_codec<PlaybackSeekRequest>();
//
// Every record's codec is reached from its type by `record_codec<R>()`
// (record_codecs.hpp).

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "json/json.hpp"
#include "messages/record_codecs.hpp"

namespace orvanta::messages {

// A wire method name as a template argument.
template <std::size_t N>
struct WireName {
  char text[N];
  consteval WireName(const char (&s)[N]) {  // NOLINT: implicit on purpose
    for (std::size_t i = 0; i < N; ++i) text[i] = s[i];
  }
  constexpr std::string_view view() const { return {text, N - 1}; }
};

// One wire method: its name, the record sent as `params` and the record
// expected as `result`.
template <WireName Name, class RequestRecord, class ResponseRecord>
struct Method {
  static constexpr std::string_view name = Name.view();
  using Request = RequestRecord;
  using Response = ResponseRecord;
};

// One notification method: the `method` word it arrives with and the record
// of its `params`.
template <WireName Name, class ParamsRecord>
struct Notice {
  static constexpr std::string_view name = Name.view();
  using Params = ParamsRecord;
};

template <class... Ts>
struct TypeList {
  static constexpr std::size_t size = sizeof...(Ts);
};

// clang-format off
// Account and playback.
struct ConnectLogin : Method<"connect_login", ConnectLoginRequest, EmptyResponse> {};
struct GetUsernameHash : Method<"get_username_hash", EmptyRequest, GetUsernameHashResponse> {};
struct TkMessageAuthPolicy : Method<"tk_message_auth_policy", EmptyRequest, TkMessageAuthPolicyResponse> {};
struct PlaybackPause : Method<"playback_pause", EmptyRequest, EmptyResponse> {};
struct PlaybackResume : Method<"playback_resume", EmptyRequest, EmptyResponse> {};
struct PlaybackPlay : Method<"playback_play", PlaybackPlayRequest, EmptyResponse> {};
struct PlaybackNext : Method<"playback_next", PlaybackNextRequest, EmptyResponse> {};
struct PlaybackPrevious : Method<"playback_previous", PlaybackPreviousRequest, EmptyResponse> {};
struct PlaybackSeek : Method<"playback_seek", PlaybackSeekRequest, EmptyResponse> {};
struct PlaybackShuffle : Method<"playback_shuffle", PlaybackShuffleRequest, EmptyResponse> {};
struct PlaybackRepeat : Method<"playback_repeat", PlaybackRepeatRequest, EmptyResponse> {};
struct PlaybackSpeed : Method<"playback_speed", PlaybackSpeedRequest, EmptyResponse> {};
struct PlaybackVolume : Method<"playback_volume", PlaybackVolumeRequest, EmptyResponse> {};
struct BleStateSubscription : Method<"ble_state_subscription", EmptyRequest, EmptyResponse> {};
struct ConnectActiveDeviceSubscription : Method<"connect_active_device_subscription", EmptyRequest, EmptyResponse> {};

// Content.
struct Search : Method<"search", SearchRequest, SearchResponse> {};
struct Lookup : Method<"lookup", LookupRequest, LookupResponse> {};
struct Me : Method<"me", EmptyRequest, MeResponse> {};
struct TasteProfile : Method<"taste_profile", EmptyRequest, TasteProfileResponse> {};
struct HistoryTop : Method<"history_top", HistoryTopRequest, HistoryTopResponse> {};
struct HistoryRecent : Method<"history_recent", HistoryRecentRequest, HistoryRecentResponse> {};
struct NowPlaying : Method<"now_playing", EmptyRequest, NowPlayingResponse> {};

// Agent and model calls.
struct AgentBootstrap : Method<"agent_bootstrap", EmptyRequest, AgentBootstrapResponse> {};
struct AgentOnlineState : Method<"agent_online_state", AgentOnlineStateRequest, AgentOnlineStateResponse> {};
struct Ask : Method<"ask", AskRequest, AskResponse> {};
struct WebSearch : Method<"web_search", WebSearchRequest, WebSearchResponse> {};
struct AiCompletions : Method<"ai_completions", AiCompletionsRequest, AiCompletionsResponse> {};
struct AiCompletionsStream : Method<"ai_completions_stream", AiCompletionsStreamRequest, EmptyResponse> {};
struct AiImages : Method<"ai_images", AiImagesRequest, AiImagesResponse> {};

// Speech.
struct TtsSynthesize : Method<"tts_synthesize", TtsSynthesizeRequest, TtsSynthesizeResponse> {};
struct TtsVoices : Method<"tts_voices", EmptyRequest, TtsVoicesResponse> {};

// Model calls.
struct AiMessages : Method<"ai_messages", AiMessagesRequest, AiMessagesResponse> {};
struct AiMessagesStream : Method<"ai_messages_stream", AiMessagesStreamRequest, EmptyResponse> {};
struct TelemetrySandbox : Method<"telemetry_sandbox", TelemetrySandboxRequest, TelemetrySandboxResponse> {};

// Podroom.
struct PodUpload : Method<"pod_upload", PodUploadRequest, PodUploadResponse> {};
struct PodShowsList : Method<"pod_shows_list", EmptyRequest, PodShowsListResponse> {};
struct PodShowsCreate : Method<"pod_shows_create", PodShowsCreateRequest, PodShowsCreateResponse> {};
struct PodShowsDelete : Method<"pod_shows_delete", PodShowsDeleteRequest, PodShowsDeleteResponse> {};
struct PodEpisodesList : Method<"pod_episodes_list", PodEpisodesListRequest, PodEpisodesListResponse> {};
struct PodEpisodesCreate : Method<"pod_episodes_create", PodEpisodesCreateRequest, PodEpisodesCreateResponse> {};
struct PodEpisodesStatus : Method<"pod_episodes_status", PodEpisodesStatusRequest, PodEpisodesStatusResponse> {};
struct PodEpisodesDelete : Method<"pod_episodes_delete", PodEpisodesDeleteRequest, PodEpisodesDeleteResponse> {};

// Episode timeline.
struct PodTimelineGet : Method<"pod_timeline_get", PodTimelineGetRequest, PodTimelineGetResponse> {};
struct PodTimelineSet : Method<"pod_timeline_set", PodTimelineSetRequest, PodTimelineSetResponse> {};
struct PodTimelineDelete : Method<"pod_timeline_delete", PodTimelineDeleteRequest, PodTimelineDeleteResponse> {};

// Devices.
struct ConnectCluster : Method<"connect_cluster", EmptyRequest, ConnectClusterResponse> {};
struct ConnectTransfer : Method<"connect_transfer", ConnectTransferRequest, EmptyResponse> {};
struct ConnectSetVolume : Method<"connect_set_volume", ConnectSetVolumeRequest, EmptyResponse> {};
struct ConnectDeviceInfo : Method<"connect_device_info", ConnectDeviceInfoRequest, ConnectDeviceInfoResponse> {};

// Chat.
struct ChatList : Method<"chat_list", EmptyRequest, ChatListResponse> {};
struct ChatRead : Method<"chat_read", ChatReadRequest, ChatReadResponse> {};
struct ChatSend : Method<"chat_send", ChatSendRequest, ChatSendResponse> {};
struct ChatSubscribe : Method<"chat_subscribe", EmptyRequest, EmptyResponse> {};

// Library and playlists.
struct LibraryList : Method<"library_list", LibraryListRequest, LibraryListResponse> {};
struct LibraryContains : Method<"library_contains", LibraryContainsRequest, LibraryContainsResponse> {};
struct LibraryAdd : Method<"library_add", LibraryAddRequest, LibraryAddResponse> {};
struct LibraryRemove : Method<"library_remove", LibraryRemoveRequest, LibraryRemoveResponse> {};
struct PlaylistGet : Method<"playlist_get", PlaylistGetRequest, PlaylistGetResponse> {};
struct PlaylistCreate : Method<"playlist_create", PlaylistCreateRequest, PlaylistCreateResponse> {};
struct PlaylistUpdate : Method<"playlist_update", PlaylistUpdateRequest, PlaylistUpdateResponse> {};
struct PlaylistAddTracks : Method<"playlist_add_tracks", PlaylistAddTracksRequest, PlaylistAddTracksResponse> {};
struct PlaylistRemoveTracks : Method<"playlist_remove_tracks", PlaylistRemoveTracksRequest, PlaylistRemoveTracksResponse> {};

// Folders.
struct FolderList : Method<"folder_list", FolderListRequest, FolderListResponse> {};
struct FolderCreate : Method<"folder_create", FolderCreateRequest, FolderCreateResponse> {};
struct FolderRename : Method<"folder_rename", FolderRenameRequest, FolderRenameResponse> {};
struct FolderMove : Method<"folder_move", FolderMoveRequest, FolderMoveResponse> {};
struct FolderRemove : Method<"folder_remove", FolderRemoveRequest, FolderRemoveResponse> {};

// Queue.
struct QueueList : Method<"queue_list", EmptyRequest, QueueListResponse> {};
struct QueueAdd : Method<"queue_add", QueueAddRequest, EmptyResponse> {};
struct QueueRemove : Method<"queue_remove", QueueRemoveRequest, QueueRemoveResponse> {};
struct QueueMove : Method<"queue_move", QueueMoveRequest, EmptyResponse> {};

// Rondo.
struct RondoStatus : Method<"rondo_status", EmptyRequest, RondoStatusResponse> {};
struct RondoCreate : Method<"rondo_create", RondoCreateRequest, RondoStatusResponse> {};
struct RondoLeave : Method<"rondo_leave", EmptyRequest, EmptyResponse> {};
struct RondoEnd : Method<"rondo_end", EmptyRequest, EmptyResponse> {};
struct RondoKick : Method<"rondo_kick", RondoKickRequest, RondoStatusResponse> {};
struct RondoPermissions : Method<"rondo_permissions", RondoPermissionsRequest, RondoPermissionsResponse> {};

// Browser.
struct BrowserNew : Method<"browser_new", BrowserNewRequest, BrowserNewResponse> {};
struct BrowserList : Method<"browser_list", EmptyRequest, BrowserListResponse> {};
struct BrowserClose : Method<"browser_close", BrowserCloseRequest, BrowserCloseResponse> {};
struct BrowserSnapshot : Method<"browser_snapshot", BrowserSnapshotRequest, BrowserSnapshotResponse> {};
struct BrowserNavigate : Method<"browser_navigate", BrowserNavigateRequest, BrowserNavigateResponse> {};
struct BrowserClick : Method<"browser_click", BrowserClickRequest, BrowserClickResponse> {};
struct BrowserType : Method<"browser_type", BrowserTypeRequest, BrowserTypeResponse> {};
struct BrowserScroll : Method<"browser_scroll", BrowserScrollRequest, BrowserScrollResponse> {};
struct BrowserEvaluate : Method<"browser_evaluate", BrowserEvaluateRequest, BrowserEvaluateResponse> {};

// Permissions, toast and logs.
struct PermissionsGrant : Method<"permissions_grant", PermissionsGrantRequest, PermissionsGrantResponse> {};
struct PermissionsCurrent : Method<"permissions_current", EmptyRequest, PermissionsCurrentResponse> {};
struct PermissionsSubscribe : Method<"permissions_subscribe", EmptyRequest, EmptyResponse> {};
struct PermissionsResolve : Method<"permissions_resolve", PermissionsResolveRequest, PermissionsResolveResponse> {};
struct ShowToast : Method<"show_toast", ShowToastRequest, EmptyResponse> {};
struct CollectLogsSubscription : Method<"collect_logs_subscription", EmptyRequest, EmptyResponse> {};

// Requests that only the connection itself makes.
struct LoginStateSubscription : Method<"login_state_subscription", EmptyRequest, EmptyResponse> {};
struct AuthorizeConnection : Method<"authorize_connection", HelloRequest, HelloResponse> {};

namespace notification {
struct LoginStateSubscription : Notice<"login_state_subscription", LoginStateNotification> {};
struct BleStateSubscription : Notice<"ble_state_subscription", BleStateNotification> {};
struct ConnectActiveDeviceSubscription : Notice<"connect_active_device_subscription", ActiveDeviceNotification> {};
struct ChatSubscribe : Notice<"chat_subscribe", ChatNotification> {};
struct PermissionsSubscribe : Notice<"permissions_subscribe", PermissionRequest> {};
struct CollectLogsSubscription : Notice<"collect_logs_subscription", CollectLogsNotification> {};
struct AiCompletionsStream : Notice<"ai_completions_stream", AiCompletionsStreamChunk> {};
struct AiMessagesStream : Notice<"ai_messages_stream", AiMessagesStreamChunk> {};
}  // namespace notification
// clang-format on

// The wire methods in their declared order.
using Operations = TypeList<
    ConnectLogin, GetUsernameHash, TkMessageAuthPolicy, PlaybackPause, PlaybackResume, PlaybackPlay,
    PlaybackNext, PlaybackPrevious, PlaybackSeek, PlaybackShuffle, PlaybackRepeat, PlaybackSpeed,
    PlaybackVolume, BleStateSubscription, ConnectActiveDeviceSubscription, Search, Lookup, Me,
    TasteProfile, HistoryTop, HistoryRecent, NowPlaying, AgentBootstrap, AgentOnlineState, Ask,
    WebSearch, AiCompletions, AiCompletionsStream, AiImages, TtsSynthesize, TtsVoices, AiMessages,
    AiMessagesStream, TelemetrySandbox, PodUpload, PodShowsList, PodShowsCreate, PodShowsDelete,
    PodEpisodesList, PodEpisodesCreate, PodEpisodesStatus, PodEpisodesDelete, PodTimelineGet,
    PodTimelineSet, PodTimelineDelete, ConnectCluster, ConnectTransfer, ConnectSetVolume,
    ConnectDeviceInfo, ChatList, ChatRead, ChatSend, ChatSubscribe, LibraryList, LibraryContains,
    LibraryAdd, LibraryRemove, PlaylistGet, PlaylistCreate, PlaylistUpdate, PlaylistAddTracks,
    PlaylistRemoveTracks, FolderList, FolderCreate, FolderRename, FolderMove, FolderRemove,
    QueueList, QueueAdd, QueueRemove, QueueMove, RondoStatus, RondoCreate, RondoLeave, RondoEnd,
    RondoKick, RondoPermissions, BrowserNew, BrowserList, BrowserClose, BrowserSnapshot,
    BrowserNavigate, BrowserClick, BrowserType, BrowserScroll, BrowserEvaluate, PermissionsGrant,
    PermissionsCurrent, PermissionsSubscribe, PermissionsResolve, ShowToast, CollectLogsSubscription>;

// The two requests of the connection itself: the login-state subscription
// after the handshake, and the handshake.
using ConnectionOperations = TypeList<LoginStateSubscription, AuthorizeConnection>;

using Notifications = TypeList<
    notification::LoginStateSubscription, notification::BleStateSubscription,
    notification::ConnectActiveDeviceSubscription, notification::ChatSubscribe,
    notification::PermissionsSubscribe, notification::CollectLogsSubscription,
    notification::AiCompletionsStream, notification::AiMessagesStream>;

static_assert(Operations::size == 92);
static_assert(ConnectionOperations::size == 2);
static_assert(Notifications::size == 8);

// Calls `f(std::type_identity<T>{})` for each type of the list, in order.
template <class... Ts, class F>
constexpr void for_each_type(TypeList<Ts...>, F&& f) {
  (f(std::type_identity<Ts>{}), ...);
}

// Walks the 92 wire methods and then the two connection requests.
template <class F>
constexpr void for_each_operation(F&& f) {
  for_each_type(Operations{}, f);
  for_each_type(ConnectionOperations{}, f);
}

template <class F>
constexpr void for_each_notification(F&& f) {
  for_each_type(Notifications{}, f);
}

// Calls `f(std::type_identity<Op>{})` for the operation named `name`, an
// exact and case-sensitive match. Returns false, without calling `f`, when
// no operation has that name.
template <class F>
bool visit_operation(std::string_view name, F&& f) {
  bool found = false;
  for_each_operation([&]<class Op>(std::type_identity<Op> tag) {
    if (!found && Op::name == name) {
      found = true;
      f(tag);
    }
  });
  return found;
}

// As visit_operation, for the notification methods.
template <class F>
bool visit_notification(std::string_view name, F&& f) {
  bool found = false;
  for_each_notification([&]<class N>(std::type_identity<N> tag) {
    if (!found && N::name == name) {
      found = true;
      f(tag);
    }
  });
  return found;
}

namespace detail {

template <class... Ts>
constexpr auto names_of(TypeList<Ts...>) {
  return std::array<std::string_view, sizeof...(Ts)>{Ts::name...};
}

template <std::size_t N>
constexpr bool all_distinct(const std::array<std::string_view, N>& names) {
  for (std::size_t i = 0; i < N; ++i) {
    for (std::size_t j = i + 1; j < N; ++j) {
      if (names[i] == names[j]) return false;
    }
  }
  return true;
}

}  // namespace detail

inline constexpr auto operation_names = detail::names_of(Operations{});
inline constexpr auto connection_operation_names = detail::names_of(ConnectionOperations{});
inline constexpr auto notification_names = detail::names_of(Notifications{});

static_assert(detail::all_distinct(operation_names), "two operations share a wire name");
static_assert(detail::all_distinct(notification_names), "two notifications share a method word");


// Both encoding stages of a request of `Op`. Throws json::encode_exception
// (a double that isn't finite) or std::bad_alloc.
template <class Op>
std::string encode_operation_request(const typename Op::Request& params, std::optional<std::string> id) {
  return encode_request(Op::name, record_codec<typename Op::Request>(), params, std::move(id));
}

// The second decoding stage of a response to `Op`. Returns false when the
// result doesn't decode; `out` is then left as it was.
template <class Op>
bool decode_operation_result(const json::RawJsonValue& result, typename Op::Response& out) {
  return decode_raw(record_codec<typename Op::Response>(), result, out);
}

// The second decoding stage of a notification's `params`; an absent
// `params` reads as `null` and fails. Returns false when it doesn't decode.
template <class N>
bool decode_notification_params(const std::optional<json::RawJsonValue>& params, typename N::Params& out) {
  return decode_raw(record_codec<typename N::Params>(), params, out);
}

}  // namespace orvanta::messages
