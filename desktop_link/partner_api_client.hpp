#pragma once

// PartnerApiClient: the one implementation of PartnerApi. It keeps the
// connection state and, while a connection stands, the transport of that
// connection; it decodes notifications and fans them out over its signals.
//
// Threads: everything runs on the IO thread except the reads of the three
// atomics and the disconnect() of shutdown, which the owner calls on the
// main thread once no operation is in flight.

#include <atomic>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include <asio/io_context.hpp>

#include "desktop_link/connect_settings.hpp"
#include "desktop_link/incoming_message.hpp"
#include "desktop_link/launcher_runner.hpp"
#include "desktop_link/partner_api.hpp"
#include "desktop_link/signal.hpp"
#include "desktop_link/transport.hpp"

namespace orvanta::link {

// Not final: a test double may stand in for one or two operations.
class PartnerApiClient : public PartnerApi {
 public:
  // Without a transport the client starts disconnected, which is how the
  // program builds it; with one it starts connected on it. `settings` says
  // where connect() looks for the desktop client.
  PartnerApiClient(std::string client_id, std::string name, std::string version, asio::io_context& context,
                   std::shared_ptr<PartnerApiTransport> transport = nullptr, ConnectSettings settings = {});
  // Disconnects; never throws.
  ~PartnerApiClient() override;
  PartnerApiClient(const PartnerApiClient&) = delete;
  PartnerApiClient& operator=(const PartnerApiClient&) = delete;

  // The fold that every operation applies to a failure before returning it:
  // desktop_api codes stay, failure sources fold to their desktop_api word,
  // asio's system codes become `client_connection_failed`, and anything else
  // `client_unknown_error`. Every failure but `cancelled` of desktop_api is
  // also published on the error signal with `operation`.
  [[nodiscard]] std::error_code normalize_error(std::error_code ec, std::string_view operation);

  // Decodes one notification and emits it on its signal. Methods we don't
  // know are dropped without a word.
  void on_notification(NotificationMessage message);

  // Connection.
  Connection on_error(ErrorListener listener) override;
  std::uint8_t connection_state() const override;
  asio::awaitable<std::error_code> connect() override;
  void disconnect() override;
  Connection on_connection_state(ConnectionStateListener listener) override;
  // Account.
  Await<messages::EmptyResponse> connect_login(messages::LoginSource source) override;
  Await<messages::GetUsernameHashResponse> get_username_hash() override;
  Await<messages::TkMessageAuthPolicyResponse> tk_message_auth_policy() override;
  // Playback.
  Await<messages::EmptyResponse> playback_pause() override;
  Await<messages::EmptyResponse> playback_resume() override;
  Await<messages::EmptyResponse> playback_play(std::string context, std::string referrer,
                                               std::optional<std::string> attribution,
                                               std::optional<std::string> agentic_product_type) override;
  Await<messages::EmptyResponse> playback_next() override;
  Await<messages::EmptyResponse> playback_previous() override;
  Await<messages::EmptyResponse> playback_seek(messages::PlaybackSeekRequest request) override;
  Await<messages::EmptyResponse> playback_shuffle(bool shuffle) override;
  Await<messages::EmptyResponse> playback_repeat(std::string repeat) override;
  Await<messages::EmptyResponse> playback_speed(std::int32_t playback_speed) override;
  Await<messages::EmptyResponse> playback_volume(double volume_percentage) override;
  // Login and BLE state, active device.
  bool logged_in() const override;
  Connection on_login_state(BoolListener listener) override;
  bool broadcasting() const override;
  Await<messages::EmptyResponse> ble_state_subscription() override;
  Connection on_ble_state(BoolListener listener) override;
  Await<messages::EmptyResponse> connect_active_device_subscription() override;
  Connection on_active_device(ActiveDeviceListener listener) override;
  // Content.
  Await<messages::SearchResponse> search(messages::SearchRequest request) override;
  Await<messages::LookupResponse> lookup(messages::LookupRequest request) override;
  Await<messages::MeResponse> me() override;
  Await<messages::TasteProfileResponse> taste_profile() override;
  Await<messages::HistoryTopResponse> history_top(messages::HistoryTopRequest request) override;
  Await<messages::HistoryRecentResponse> history_recent(messages::HistoryRecentRequest request) override;
  Await<messages::NowPlayingResponse> now_playing() override;
  // Agent, web search, model calls, speech, telemetry.
  Await<messages::AgentBootstrapResponse> agent_bootstrap() override;
  Await<messages::AgentOnlineStateResponse> agent_online_state(messages::AgentOnlineStateRequest request) override;
  Await<messages::AskResponse> ask(std::string question) override;
  Await<messages::WebSearchResponse> web_search(messages::WebSearchRequest request) override;
  Await<messages::AiCompletionsResponse> ai_completions(std::string body) override;
  Await<messages::EmptyResponse> ai_completions_stream(std::string body) override;
  Await<messages::AiImagesResponse> ai_images(std::string body) override;
  Await<messages::TtsSynthesizeResponse> tts_synthesize(messages::TtsSynthesizeRequest request) override;
  Await<messages::TtsVoicesResponse> tts_voices() override;
  Connection on_ai_completions_stream(RecordListener<messages::AiCompletionsStreamChunk> listener) override;
  Await<messages::AiMessagesResponse> ai_messages(std::string body) override;
  Await<messages::EmptyResponse> ai_messages_stream(std::string body) override;
  Connection on_ai_messages_stream(RecordListener<messages::AiMessagesStreamChunk> listener) override;
  Await<messages::TelemetrySandboxResponse> telemetry_sandbox(std::string body) override;
  // Podroom: upload, shows, episodes, episode timeline.
  Await<messages::PodUploadResponse> pod_upload(messages::PodUploadRequest request) override;
  Await<messages::PodShowsListResponse> pod_shows_list() override;
  Await<messages::PodShowsCreateResponse> pod_shows_create(messages::PodShowsCreateRequest request) override;
  Await<messages::PodShowsDeleteResponse> pod_shows_delete(std::string id) override;
  Await<messages::PodEpisodesListResponse> pod_episodes_list(std::optional<std::string> show_id) override;
  Await<messages::PodEpisodesCreateResponse> pod_episodes_create(
      messages::PodEpisodesCreateRequest request) override;
  Await<messages::PodEpisodesStatusResponse> pod_episodes_status(std::string id) override;
  Await<messages::PodEpisodesDeleteResponse> pod_episodes_delete(std::string id) override;
  Await<messages::PodTimelineGetResponse> pod_timeline_get(messages::PodTimelineGetRequest request) override;
  Await<messages::PodTimelineSetResponse> pod_timeline_set(messages::PodTimelineSetRequest request) override;
  Await<messages::PodTimelineDeleteResponse> pod_timeline_delete(
      messages::PodTimelineDeleteRequest request) override;
  // Devices.
  Await<messages::ConnectClusterResponse> connect_cluster() override;
  Await<messages::EmptyResponse> connect_transfer(std::string device_id) override;
  Await<messages::EmptyResponse> connect_set_volume(std::string device_id, std::int32_t volume) override;
  Await<messages::ConnectDeviceInfoResponse> connect_device_info(std::string device_id) override;
  // Chat.
  Await<messages::ChatListResponse> chat_list() override;
  Await<messages::ChatReadResponse> chat_read(messages::ChatReadRequest request) override;
  Await<messages::ChatSendResponse> chat_send(messages::ChatSendRequest request) override;
  Await<messages::EmptyResponse> chat_subscribe() override;
  Connection on_chat(RecordListener<messages::ChatNotification> listener) override;
  // Library and playlists.
  Await<messages::LibraryListResponse> library_list(messages::LibraryListRequest request) override;
  Await<messages::LibraryContainsResponse> library_contains(std::vector<std::string> uris) override;
  Await<messages::LibraryAddResponse> library_add(std::vector<std::string> uris) override;
  Await<messages::LibraryRemoveResponse> library_remove(std::vector<std::string> uris) override;
  Await<messages::PlaylistGetResponse> playlist_get(messages::PlaylistGetRequest request) override;
  Await<messages::PlaylistCreateResponse> playlist_create(messages::PlaylistCreateRequest request) override;
  Await<messages::PlaylistUpdateResponse> playlist_update(messages::PlaylistUpdateRequest request) override;
  Await<messages::PlaylistAddTracksResponse> playlist_add_tracks(
      messages::PlaylistAddTracksRequest request) override;
  Await<messages::PlaylistRemoveTracksResponse> playlist_remove_tracks(
      messages::PlaylistRemoveTracksRequest request) override;
  // Folders.
  Await<messages::FolderListResponse> folder_list(messages::FolderListRequest request) override;
  Await<messages::FolderCreateResponse> folder_create(messages::FolderCreateRequest request) override;
  Await<messages::FolderRenameResponse> folder_rename(messages::FolderRenameRequest request) override;
  Await<messages::FolderMoveResponse> folder_move(messages::FolderMoveRequest request) override;
  Await<messages::FolderRemoveResponse> folder_remove(messages::FolderRemoveRequest request) override;
  // Queue.
  Await<messages::QueueListResponse> queue_list() override;
  Await<messages::EmptyResponse> queue_add(std::string uri) override;
  Await<messages::QueueRemoveResponse> queue_remove(std::int32_t position) override;
  Await<messages::EmptyResponse> queue_move(messages::QueueMoveRequest request) override;
  // Rondo.
  Await<messages::RondoStatusResponse> rondo_status() override;
  Await<messages::RondoStatusResponse> rondo_create(messages::RondoCreateRequest request) override;
  Await<messages::EmptyResponse> rondo_leave() override;
  Await<messages::EmptyResponse> rondo_end() override;
  Await<messages::RondoStatusResponse> rondo_kick(std::string member_id) override;
  Await<messages::RondoPermissionsResponse> rondo_permissions(messages::RondoPermissionsRequest request) override;
  // Browser.
  Await<messages::BrowserNewResponse> browser_new(messages::BrowserNewRequest request) override;
  Await<messages::BrowserListResponse> browser_list() override;
  Await<messages::BrowserCloseResponse> browser_close(messages::BrowserCloseRequest request) override;
  Await<messages::BrowserSnapshotResponse> browser_snapshot(messages::BrowserSnapshotRequest request) override;
  Await<messages::BrowserNavigateResponse> browser_navigate(messages::BrowserNavigateRequest request) override;
  Await<messages::BrowserClickResponse> browser_click(messages::BrowserClickRequest request) override;
  Await<messages::BrowserTypeResponse> browser_type(messages::BrowserTypeRequest request) override;
  Await<messages::BrowserScrollResponse> browser_scroll(messages::BrowserScrollRequest request) override;
  Await<messages::BrowserEvaluateResponse> browser_evaluate(messages::BrowserEvaluateRequest request) override;
  // Permissions, toast, log collection.
  Await<messages::PermissionsGrantResponse> permissions_grant(messages::PermissionsGrantRequest request) override;
  Await<messages::PermissionsCurrentResponse> permissions_current() override;
  Await<messages::EmptyResponse> permissions_subscribe() override;
  Connection on_permission_request(RecordListener<messages::PermissionRequest> listener) override;
  Await<messages::PermissionsResolveResponse> permissions_resolve(
      messages::PermissionsResolveRequest request) override;
  Await<messages::EmptyResponse> show_toast(messages::ShowToastRequest request) override;
  Await<messages::EmptyResponse> collect_logs_subscription() override;
  Connection on_collect_logs(RecordListener<messages::CollectLogsNotification> listener) override;

 private:
  template <class Op>
  Await<typename Op::Response> call(typename Op::Request request);
  Await<ResponseMessage> exchange(std::string payload, std::string id, std::string_view operation);

  void set_state(std::uint8_t state);
  void fall_to_disconnected();
  PartnerApiTransport::NotificationHandler notification_dispatcher();
  void on_login_notification(const NotificationMessage& message);
  void on_ble_notification(const NotificationMessage& message);
  void on_active_device_notification(const NotificationMessage& message);
  template <class N, class Record>
  void emit_stream_notification(const NotificationMessage& message, const Signal<Record>& signal);

  std::string client_id_;
  std::string name_;
  std::string version_;
  asio::io_context* io_context_;
  ConnectSettings settings_;
  std::shared_ptr<PartnerApiTransport> transport_;
  ScopedConnection transport_state_connection_;
  ScopedConnection transport_error_connection_;
  std::atomic<std::uint8_t> connection_state_{state_disconnected};
  std::atomic<bool> logged_in_{false};
  std::atomic<bool> broadcasting_{false};

  Signal<std::error_code, std::string> error_signal_;
  Signal<std::uint8_t> connection_state_signal_;
  Signal<bool> login_state_signal_;
  Signal<bool> ble_state_signal_;
  Signal<std::string> active_device_signal_;
  Signal<messages::ChatNotification> chat_signal_;
  Signal<messages::PermissionRequest> permission_signal_;
  Signal<messages::AiCompletionsStreamChunk> ai_completions_signal_;
  Signal<messages::AiMessagesStreamChunk> ai_messages_signal_;
  Signal<messages::CollectLogsNotification> collect_logs_signal_;

  std::weak_ptr<ConnectCanceller> connect_canceller_;
  // Lets a notification handler that outlives us see that we are gone.
  std::shared_ptr<PartnerApiClient*> lifetime_ = std::make_shared<PartnerApiClient*>(this);
};

}  // namespace orvanta::link
