#pragma once

// PartnerApi: the operation interface that command handlers hold. One
// operation per wire method of the Partner API, in the order of the method
// catalogue, plus the connection's own operations and one listener
// registration per stream of notifications.
//
// An awaitable operation makes a coroutine and runs nothing until it is
// awaited; run_and_wait (io_thread.hpp) runs it on the IO thread. It yields
// the result record, or a desktop_api code: `client_not_connected` when the
// link is down (nothing is sent), else the folded failure of the exchange.
// A third outcome is an exception (a record that can't be encoded, memory),
// which reaches the caller through run_and_wait. Arguments are taken by
// value and moved into the coroutine, so nothing of the caller's is touched
// on the IO thread.
//
// Listeners run on the IO thread, in the order of registration; the
// returned Connection cuts the link.

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

#include <asio/awaitable.hpp>

#include "desktop_link/result.hpp"
#include "desktop_link/signal.hpp"
#include "messages/operations.hpp"

namespace orvanta::link {

template <class T>
using Await = asio::awaitable<Result<T>>;

using ErrorListener = std::function<void(std::error_code, std::string)>;  // (code, operation text)
using ConnectionStateListener = std::function<void(std::uint8_t)>;
using BoolListener = std::function<void(bool)>;
using ActiveDeviceListener = std::function<void(std::string)>;  // the active device id
template <class Record>
using RecordListener = std::function<void(Record)>;

// Values of connection_state().
inline constexpr std::uint8_t state_disconnected = 0;
inline constexpr std::uint8_t state_connecting = 1;
inline constexpr std::uint8_t state_connected = 2;

class PartnerApi {
 public:
  virtual ~PartnerApi() = default;

  // Connection.
  virtual Connection on_error(ErrorListener listener) = 0;
  virtual std::uint8_t connection_state() const = 0;
  // Finds, authorizes and subscribes to the login state; returns a
  // desktop_api code.
  virtual asio::awaitable<std::error_code> connect() = 0;
  virtual void disconnect() = 0;
  virtual Connection on_connection_state(ConnectionStateListener listener) = 0;

  // Account.
  virtual Await<messages::EmptyResponse> connect_login(messages::LoginSource source) = 0;
  virtual Await<messages::GetUsernameHashResponse> get_username_hash() = 0;
  virtual Await<messages::TkMessageAuthPolicyResponse> tk_message_auth_policy() = 0;

  // Playback.
  virtual Await<messages::EmptyResponse> playback_pause() = 0;
  virtual Await<messages::EmptyResponse> playback_resume() = 0;
  virtual Await<messages::EmptyResponse> playback_play(std::string context, std::string referrer,
                                                       std::optional<std::string> attribution,
                                                       std::optional<std::string> agentic_product_type) = 0;
  virtual Await<messages::EmptyResponse> playback_next() = 0;
  virtual Await<messages::EmptyResponse> playback_previous() = 0;
  virtual Await<messages::EmptyResponse> playback_seek(messages::PlaybackSeekRequest request) = 0;
  virtual Await<messages::EmptyResponse> playback_shuffle(bool shuffle) = 0;
  virtual Await<messages::EmptyResponse> playback_repeat(std::string repeat) = 0;
  virtual Await<messages::EmptyResponse> playback_speed(std::int32_t playback_speed) = 0;
  virtual Await<messages::EmptyResponse> playback_volume(double volume_percentage) = 0;

  // Login and BLE state, active device.
  virtual bool logged_in() const = 0;
  virtual Connection on_login_state(BoolListener listener) = 0;
  virtual bool broadcasting() const = 0;
  virtual Await<messages::EmptyResponse> ble_state_subscription() = 0;
  virtual Connection on_ble_state(BoolListener listener) = 0;
  virtual Await<messages::EmptyResponse> connect_active_device_subscription() = 0;
  virtual Connection on_active_device(ActiveDeviceListener listener) = 0;

  // Content.
  virtual Await<messages::SearchResponse> search(messages::SearchRequest request) = 0;
  virtual Await<messages::LookupResponse> lookup(messages::LookupRequest request) = 0;
  virtual Await<messages::MeResponse> me() = 0;
  virtual Await<messages::TasteProfileResponse> taste_profile() = 0;
  virtual Await<messages::HistoryTopResponse> history_top(messages::HistoryTopRequest request) = 0;
  virtual Await<messages::HistoryRecentResponse> history_recent(messages::HistoryRecentRequest request) = 0;
  virtual Await<messages::NowPlayingResponse> now_playing() = 0;

  // Agent, web search, model calls, speech, telemetry.
  virtual Await<messages::AgentBootstrapResponse> agent_bootstrap() = 0;
  virtual Await<messages::AgentOnlineStateResponse> agent_online_state(messages::AgentOnlineStateRequest request) = 0;
  virtual Await<messages::AskResponse> ask(std::string question) = 0;
  virtual Await<messages::WebSearchResponse> web_search(messages::WebSearchRequest request) = 0;
  virtual Await<messages::AiCompletionsResponse> ai_completions(std::string body) = 0;
  virtual Await<messages::EmptyResponse> ai_completions_stream(std::string body) = 0;
  virtual Await<messages::AiImagesResponse> ai_images(std::string body) = 0;
  virtual Await<messages::TtsSynthesizeResponse> tts_synthesize(messages::TtsSynthesizeRequest request) = 0;
  virtual Await<messages::TtsVoicesResponse> tts_voices() = 0;
  virtual Connection on_ai_completions_stream(RecordListener<messages::AiCompletionsStreamChunk> listener) = 0;
  virtual Await<messages::AiMessagesResponse> ai_messages(std::string body) = 0;
  virtual Await<messages::EmptyResponse> ai_messages_stream(std::string body) = 0;
  virtual Connection on_ai_messages_stream(RecordListener<messages::AiMessagesStreamChunk> listener) = 0;
  virtual Await<messages::TelemetrySandboxResponse> telemetry_sandbox(std::string body) = 0;

  // Podroom: upload, shows, episodes, episode timeline.
  virtual Await<messages::PodUploadResponse> pod_upload(messages::PodUploadRequest request) = 0;
  virtual Await<messages::PodShowsListResponse> pod_shows_list() = 0;
  virtual Await<messages::PodShowsCreateResponse> pod_shows_create(messages::PodShowsCreateRequest request) = 0;
  virtual Await<messages::PodShowsDeleteResponse> pod_shows_delete(std::string id) = 0;
  virtual Await<messages::PodEpisodesListResponse> pod_episodes_list(std::optional<std::string> show_id) = 0;
  virtual Await<messages::PodEpisodesCreateResponse> pod_episodes_create(
      messages::PodEpisodesCreateRequest request) = 0;
  virtual Await<messages::PodEpisodesStatusResponse> pod_episodes_status(std::string id) = 0;
  virtual Await<messages::PodEpisodesDeleteResponse> pod_episodes_delete(std::string id) = 0;
  virtual Await<messages::PodTimelineGetResponse> pod_timeline_get(messages::PodTimelineGetRequest request) = 0;
  virtual Await<messages::PodTimelineSetResponse> pod_timeline_set(messages::PodTimelineSetRequest request) = 0;
  virtual Await<messages::PodTimelineDeleteResponse> pod_timeline_delete(
      messages::PodTimelineDeleteRequest request) = 0;

  // Devices.
  virtual Await<messages::ConnectClusterResponse> connect_cluster() = 0;
  virtual Await<messages::EmptyResponse> connect_transfer(std::string device_id) = 0;
  virtual Await<messages::EmptyResponse> connect_set_volume(std::string device_id, std::int32_t volume) = 0;
  virtual Await<messages::ConnectDeviceInfoResponse> connect_device_info(std::string device_id) = 0;

  // Chat.
  virtual Await<messages::ChatListResponse> chat_list() = 0;
  virtual Await<messages::ChatReadResponse> chat_read(messages::ChatReadRequest request) = 0;
  virtual Await<messages::ChatSendResponse> chat_send(messages::ChatSendRequest request) = 0;
  virtual Await<messages::EmptyResponse> chat_subscribe() = 0;
  virtual Connection on_chat(RecordListener<messages::ChatNotification> listener) = 0;

  // Library and playlists.
  virtual Await<messages::LibraryListResponse> library_list(messages::LibraryListRequest request) = 0;
  virtual Await<messages::LibraryContainsResponse> library_contains(std::vector<std::string> uris) = 0;
  virtual Await<messages::LibraryAddResponse> library_add(std::vector<std::string> uris) = 0;
  virtual Await<messages::LibraryRemoveResponse> library_remove(std::vector<std::string> uris) = 0;
  virtual Await<messages::PlaylistGetResponse> playlist_get(messages::PlaylistGetRequest request) = 0;
  virtual Await<messages::PlaylistCreateResponse> playlist_create(messages::PlaylistCreateRequest request) = 0;
  virtual Await<messages::PlaylistUpdateResponse> playlist_update(messages::PlaylistUpdateRequest request) = 0;
  virtual Await<messages::PlaylistAddTracksResponse> playlist_add_tracks(
      messages::PlaylistAddTracksRequest request) = 0;
  virtual Await<messages::PlaylistRemoveTracksResponse> playlist_remove_tracks(
      messages::PlaylistRemoveTracksRequest request) = 0;

  // Folders.
  virtual Await<messages::FolderListResponse> folder_list(messages::FolderListRequest request) = 0;
  virtual Await<messages::FolderCreateResponse> folder_create(messages::FolderCreateRequest request) = 0;
  virtual Await<messages::FolderRenameResponse> folder_rename(messages::FolderRenameRequest request) = 0;
  virtual Await<messages::FolderMoveResponse> folder_move(messages::FolderMoveRequest request) = 0;
  virtual Await<messages::FolderRemoveResponse> folder_remove(messages::FolderRemoveRequest request) = 0;

  // Queue.
  virtual Await<messages::QueueListResponse> queue_list() = 0;
  virtual Await<messages::EmptyResponse> queue_add(std::string uri) = 0;
  virtual Await<messages::QueueRemoveResponse> queue_remove(std::int32_t position) = 0;
  virtual Await<messages::EmptyResponse> queue_move(messages::QueueMoveRequest request) = 0;

  // Rondo.
  virtual Await<messages::RondoStatusResponse> rondo_status() = 0;
  virtual Await<messages::RondoStatusResponse> rondo_create(messages::RondoCreateRequest request) = 0;
  virtual Await<messages::EmptyResponse> rondo_leave() = 0;
  virtual Await<messages::EmptyResponse> rondo_end() = 0;
  virtual Await<messages::RondoStatusResponse> rondo_kick(std::string member_id) = 0;
  virtual Await<messages::RondoPermissionsResponse> rondo_permissions(messages::RondoPermissionsRequest request) = 0;

  // Browser.
  virtual Await<messages::BrowserNewResponse> browser_new(messages::BrowserNewRequest request) = 0;
  virtual Await<messages::BrowserListResponse> browser_list() = 0;
  virtual Await<messages::BrowserCloseResponse> browser_close(messages::BrowserCloseRequest request) = 0;
  virtual Await<messages::BrowserSnapshotResponse> browser_snapshot(messages::BrowserSnapshotRequest request) = 0;
  virtual Await<messages::BrowserNavigateResponse> browser_navigate(messages::BrowserNavigateRequest request) = 0;
  virtual Await<messages::BrowserClickResponse> browser_click(messages::BrowserClickRequest request) = 0;
  virtual Await<messages::BrowserTypeResponse> browser_type(messages::BrowserTypeRequest request) = 0;
  virtual Await<messages::BrowserScrollResponse> browser_scroll(messages::BrowserScrollRequest request) = 0;
  virtual Await<messages::BrowserEvaluateResponse> browser_evaluate(messages::BrowserEvaluateRequest request) = 0;

  // Permissions, toast, log collection.
  virtual Await<messages::PermissionsGrantResponse> permissions_grant(messages::PermissionsGrantRequest request) = 0;
  virtual Await<messages::PermissionsCurrentResponse> permissions_current() = 0;
  virtual Await<messages::EmptyResponse> permissions_subscribe() = 0;
  virtual Connection on_permission_request(RecordListener<messages::PermissionRequest> listener) = 0;
  virtual Await<messages::PermissionsResolveResponse> permissions_resolve(
      messages::PermissionsResolveRequest request) = 0;
  virtual Await<messages::EmptyResponse> show_toast(messages::ShowToastRequest request) = 0;
  virtual Await<messages::EmptyResponse> collect_logs_subscription() = 0;
  virtual Connection on_collect_logs(RecordListener<messages::CollectLogsNotification> listener) = 0;
};

}  // namespace orvanta::link
