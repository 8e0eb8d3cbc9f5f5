// The operations of PartnerApiClient: one generic exchange, and one line per
// wire method that builds the method's request record and hands it over.

#include "desktop_link/partner_api_client.hpp"

#include <utility>

#include "desktop_link/error_category.hpp"
#include "desktop_link/request_id.hpp"
#include "desktop_link/typed_call.hpp"

namespace orvanta::link {

// Every operation: the state check and the id (nothing is sent while the
// link is down), the request encoded with the method's codec, the exchange,
// and the result decoded with the method's codec. Only the two codec steps
// depend on the method; the wait for the answer is one coroutine for all.
template <class Op>
Await<typename Op::Response> PartnerApiClient::call(typename Op::Request request) {
  if (connection_state_.load() != state_connected) co_return make_error_code(DesktopApiError::client_not_connected);
  std::string id = new_request_id();
  std::string payload = messages::encode_operation_request<Op>(request, id);
  Result<ResponseMessage> answer = co_await exchange(std::move(payload), std::move(id), Op::name);
  if (!answer) co_return answer.error();
  Result<typename Op::Response> result = decode_result<Op>(answer.value());
  if (!result) co_return normalize_error(result.error(), Op::name);
  co_return result;
}

// Sends one encoded request and waits for its answer; a failure comes back
// folded for the handler.
Await<ResponseMessage> PartnerApiClient::exchange(std::string payload, std::string id, std::string_view operation) {
  auto transport = transport_;
  auto sent = co_await transport->send_request(std::move(payload), std::move(id));
  if (!sent) co_return normalize_error(sent.error(), operation);
  co_return sent;
}

// Account.
Await<messages::EmptyResponse> PartnerApiClient::connect_login(messages::LoginSource source) {
  return call<messages::ConnectLogin>({source});
}
Await<messages::GetUsernameHashResponse> PartnerApiClient::get_username_hash() {
  return call<messages::GetUsernameHash>({});
}
Await<messages::TkMessageAuthPolicyResponse> PartnerApiClient::tk_message_auth_policy() {
  return call<messages::TkMessageAuthPolicy>({});
}

// Playback.
Await<messages::EmptyResponse> PartnerApiClient::playback_pause() { return call<messages::PlaybackPause>({}); }
Await<messages::EmptyResponse> PartnerApiClient::playback_resume() { return call<messages::PlaybackResume>({}); }
Await<messages::EmptyResponse> PartnerApiClient::playback_play(std::string context, std::string referrer,
                                                               std::optional<std::string> attribution,
                                                               std::optional<std::string> agentic_product_type) {
  return call<messages::PlaybackPlay>(
      {std::move(context), std::move(referrer), std::move(attribution), std::move(agentic_product_type)});
}
Await<messages::EmptyResponse> PartnerApiClient::playback_next() { return call<messages::PlaybackNext>({}); }
Await<messages::EmptyResponse> PartnerApiClient::playback_previous() { return call<messages::PlaybackPrevious>({}); }
Await<messages::EmptyResponse> PartnerApiClient::playback_seek(messages::PlaybackSeekRequest request) {
  return call<messages::PlaybackSeek>(std::move(request));
}
Await<messages::EmptyResponse> PartnerApiClient::playback_shuffle(bool shuffle) {
  return call<messages::PlaybackShuffle>({shuffle});
}
Await<messages::EmptyResponse> PartnerApiClient::playback_repeat(std::string repeat) {
  return call<messages::PlaybackRepeat>({std::move(repeat)});
}
Await<messages::EmptyResponse> PartnerApiClient::playback_speed(std::int32_t playback_speed) {
  return call<messages::PlaybackSpeed>({playback_speed});
}
Await<messages::EmptyResponse> PartnerApiClient::playback_volume(double volume_percentage) {
  return call<messages::PlaybackVolume>({volume_percentage});
}

// Login and BLE state, active device.
Await<messages::EmptyResponse> PartnerApiClient::ble_state_subscription() {
  return call<messages::BleStateSubscription>({});
}
Await<messages::EmptyResponse> PartnerApiClient::connect_active_device_subscription() {
  return call<messages::ConnectActiveDeviceSubscription>({});
}

// Content.
Await<messages::SearchResponse> PartnerApiClient::search(messages::SearchRequest request) {
  return call<messages::Search>(std::move(request));
}
Await<messages::LookupResponse> PartnerApiClient::lookup(messages::LookupRequest request) {
  return call<messages::Lookup>(std::move(request));
}
Await<messages::MeResponse> PartnerApiClient::me() { return call<messages::Me>({}); }
Await<messages::TasteProfileResponse> PartnerApiClient::taste_profile() { return call<messages::TasteProfile>({}); }
Await<messages::HistoryTopResponse> PartnerApiClient::history_top(messages::HistoryTopRequest request) {
  return call<messages::HistoryTop>(std::move(request));
}
Await<messages::HistoryRecentResponse> PartnerApiClient::history_recent(messages::HistoryRecentRequest request) {
  return call<messages::HistoryRecent>(std::move(request));
}
Await<messages::NowPlayingResponse> PartnerApiClient::now_playing() { return call<messages::NowPlaying>({}); }

// Agent, web search, model calls, speech, telemetry.
Await<messages::AgentBootstrapResponse> PartnerApiClient::agent_bootstrap() {
  return call<messages::AgentBootstrap>({});
}
Await<messages::AgentOnlineStateResponse> PartnerApiClient::agent_online_state(
    messages::AgentOnlineStateRequest request) {
  return call<messages::AgentOnlineState>(std::move(request));
}
Await<messages::AskResponse> PartnerApiClient::ask(std::string question) {
  return call<messages::Ask>({std::move(question)});
}
Await<messages::WebSearchResponse> PartnerApiClient::web_search(messages::WebSearchRequest request) {
  return call<messages::WebSearch>(std::move(request));
}
Await<messages::AiCompletionsResponse> PartnerApiClient::ai_completions(std::string body) {
  return call<messages::AiCompletions>({std::move(body)});
}
Await<messages::EmptyResponse> PartnerApiClient::ai_completions_stream(std::string body) {
  return call<messages::AiCompletionsStream>({std::move(body)});
}
Await<messages::AiImagesResponse> PartnerApiClient::ai_images(std::string body) {
  return call<messages::AiImages>({std::move(body)});
}
Await<messages::TtsSynthesizeResponse> PartnerApiClient::tts_synthesize(messages::TtsSynthesizeRequest request) {
  return call<messages::TtsSynthesize>(std::move(request));
}
Await<messages::TtsVoicesResponse> PartnerApiClient::tts_voices() { return call<messages::TtsVoices>({}); }
Await<messages::AiMessagesResponse> PartnerApiClient::ai_messages(std::string body) {
  return call<messages::AiMessages>({std::move(body)});
}
Await<messages::EmptyResponse> PartnerApiClient::ai_messages_stream(std::string body) {
  return call<messages::AiMessagesStream>({std::move(body)});
}
Await<messages::TelemetrySandboxResponse> PartnerApiClient::telemetry_sandbox(std::string body) {
  return call<messages::TelemetrySandbox>({std::move(body)});
}

// Podroom: upload, shows, episodes, episode timeline.
Await<messages::PodUploadResponse> PartnerApiClient::pod_upload(messages::PodUploadRequest request) {
  return call<messages::PodUpload>(std::move(request));
}
Await<messages::PodShowsListResponse> PartnerApiClient::pod_shows_list() { return call<messages::PodShowsList>({}); }
Await<messages::PodShowsCreateResponse> PartnerApiClient::pod_shows_create(messages::PodShowsCreateRequest request) {
  return call<messages::PodShowsCreate>(std::move(request));
}
Await<messages::PodShowsDeleteResponse> PartnerApiClient::pod_shows_delete(std::string id) {
  return call<messages::PodShowsDelete>({std::move(id)});
}
Await<messages::PodEpisodesListResponse> PartnerApiClient::pod_episodes_list(std::optional<std::string> show_id) {
  return call<messages::PodEpisodesList>({std::move(show_id)});
}
Await<messages::PodEpisodesCreateResponse> PartnerApiClient::pod_episodes_create(
    messages::PodEpisodesCreateRequest request) {
  return call<messages::PodEpisodesCreate>({request});
}
Await<messages::PodEpisodesStatusResponse> PartnerApiClient::pod_episodes_status(std::string id) {
  return call<messages::PodEpisodesStatus>({std::move(id)});
}
Await<messages::PodEpisodesDeleteResponse> PartnerApiClient::pod_episodes_delete(std::string id) {
  return call<messages::PodEpisodesDelete>({std::move(id)});
}
Await<messages::PodTimelineGetResponse> PartnerApiClient::pod_timeline_get(messages::PodTimelineGetRequest request) {
  return call<messages::PodTimelineGet>(std::move(request));
}
Await<messages::PodTimelineSetResponse> PartnerApiClient::pod_timeline_set(messages::PodTimelineSetRequest request) {
  return call<messages::PodTimelineSet>(std::move(request));
}
Await<messages::PodTimelineDeleteResponse> PartnerApiClient::pod_timeline_delete(
    messages::PodTimelineDeleteRequest request) {
  return call<messages::PodTimelineDelete>({request});
}

// Devices.
Await<messages::ConnectClusterResponse> PartnerApiClient::connect_cluster() {
  return call<messages::ConnectCluster>({});
}
Await<messages::EmptyResponse> PartnerApiClient::connect_transfer(std::string device_id) {
  return call<messages::ConnectTransfer>({std::move(device_id)});
}
Await<messages::EmptyResponse> PartnerApiClient::connect_set_volume(std::string device_id, std::int32_t volume) {
  return call<messages::ConnectSetVolume>({std::move(device_id), volume});
}
Await<messages::ConnectDeviceInfoResponse> PartnerApiClient::connect_device_info(std::string device_id) {
  return call<messages::ConnectDeviceInfo>({std::move(device_id)});
}

// Chat.
Await<messages::ChatListResponse> PartnerApiClient::chat_list() { return call<messages::ChatList>({}); }
Await<messages::ChatReadResponse> PartnerApiClient::chat_read(messages::ChatReadRequest request) {
  return call<messages::ChatRead>(std::move(request));
}
Await<messages::ChatSendResponse> PartnerApiClient::chat_send(messages::ChatSendRequest request) {
  return call<messages::ChatSend>(std::move(request));
}
Await<messages::EmptyResponse> PartnerApiClient::chat_subscribe() { return call<messages::ChatSubscribe>({}); }

// Library and playlists.
Await<messages::LibraryListResponse> PartnerApiClient::library_list(messages::LibraryListRequest request) {
  return call<messages::LibraryList>(std::move(request));
}
Await<messages::LibraryContainsResponse> PartnerApiClient::library_contains(std::vector<std::string> uris) {
  return call<messages::LibraryContains>({std::move(uris)});
}
Await<messages::LibraryAddResponse> PartnerApiClient::library_add(std::vector<std::string> uris) {
  return call<messages::LibraryAdd>({std::move(uris)});
}
Await<messages::LibraryRemoveResponse> PartnerApiClient::library_remove(std::vector<std::string> uris) {
  return call<messages::LibraryRemove>({std::move(uris)});
}
Await<messages::PlaylistGetResponse> PartnerApiClient::playlist_get(messages::PlaylistGetRequest request) {
  return call<messages::PlaylistGet>(std::move(request));
}
Await<messages::PlaylistCreateResponse> PartnerApiClient::playlist_create(messages::PlaylistCreateRequest request) {
  return call<messages::PlaylistCreate>(std::move(request));
}
Await<messages::PlaylistUpdateResponse> PartnerApiClient::playlist_update(messages::PlaylistUpdateRequest request) {
  return call<messages::PlaylistUpdate>(std::move(request));
}
Await<messages::PlaylistAddTracksResponse> PartnerApiClient::playlist_add_tracks(
    messages::PlaylistAddTracksRequest request) {
  return call<messages::PlaylistAddTracks>({request});
}
Await<messages::PlaylistRemoveTracksResponse> PartnerApiClient::playlist_remove_tracks(
    messages::PlaylistRemoveTracksRequest request) {
  return call<messages::PlaylistRemoveTracks>({request});
}

// Folders.
Await<messages::FolderListResponse> PartnerApiClient::folder_list(messages::FolderListRequest request) {
  return call<messages::FolderList>(std::move(request));
}
Await<messages::FolderCreateResponse> PartnerApiClient::folder_create(messages::FolderCreateRequest request) {
  return call<messages::FolderCreate>(std::move(request));
}
Await<messages::FolderRenameResponse> PartnerApiClient::folder_rename(messages::FolderRenameRequest request) {
  return call<messages::FolderRename>(std::move(request));
}
Await<messages::FolderMoveResponse> PartnerApiClient::folder_move(messages::FolderMoveRequest request) {
  return call<messages::FolderMove>(std::move(request));
}
Await<messages::FolderRemoveResponse> PartnerApiClient::folder_remove(messages::FolderRemoveRequest request) {
  return call<messages::FolderRemove>(std::move(request));
}

// Queue.
Await<messages::QueueListResponse> PartnerApiClient::queue_list() { return call<messages::QueueList>({}); }
Await<messages::EmptyResponse> PartnerApiClient::queue_add(std::string uri) {
  return call<messages::QueueAdd>({std::move(uri)});
}
Await<messages::QueueRemoveResponse> PartnerApiClient::queue_remove(std::int32_t position) {
  return call<messages::QueueRemove>({position});
}
Await<messages::EmptyResponse> PartnerApiClient::queue_move(messages::QueueMoveRequest request) {
  return call<messages::QueueMove>(std::move(request));
}

// Rondo.
Await<messages::RondoStatusResponse> PartnerApiClient::rondo_status() { return call<messages::RondoStatus>({}); }
Await<messages::RondoStatusResponse> PartnerApiClient::rondo_create(messages::RondoCreateRequest request) {
  return call<messages::RondoCreate>(std::move(request));
}
Await<messages::EmptyResponse> PartnerApiClient::rondo_leave() { return call<messages::RondoLeave>({}); }
Await<messages::EmptyResponse> PartnerApiClient::rondo_end() { return call<messages::RondoEnd>({}); }
Await<messages::RondoStatusResponse> PartnerApiClient::rondo_kick(std::string member_id) {
  return call<messages::RondoKick>({std::move(member_id)});
}
Await<messages::RondoPermissionsResponse> PartnerApiClient::rondo_permissions(
    messages::RondoPermissionsRequest request) {
  return call<messages::RondoPermissions>(std::move(request));
}

// Browser.
Await<messages::BrowserNewResponse> PartnerApiClient::browser_new(messages::BrowserNewRequest request) {
  return call<messages::BrowserNew>(std::move(request));
}
Await<messages::BrowserListResponse> PartnerApiClient::browser_list() { return call<messages::BrowserList>({}); }
Await<messages::BrowserCloseResponse> PartnerApiClient::browser_close(messages::BrowserCloseRequest request) {
  return call<messages::BrowserClose>(std::move(request));
}
Await<messages::BrowserSnapshotResponse> PartnerApiClient::browser_snapshot(
    messages::BrowserSnapshotRequest request) {
  return call<messages::BrowserSnapshot>(std::move(request));
}
Await<messages::BrowserNavigateResponse> PartnerApiClient::browser_navigate(
    messages::BrowserNavigateRequest request) {
  return call<messages::BrowserNavigate>(std::move(request));
}
Await<messages::BrowserClickResponse> PartnerApiClient::browser_click(messages::BrowserClickRequest request) {
  return call<messages::BrowserClick>(std::move(request));
}
Await<messages::BrowserTypeResponse> PartnerApiClient::browser_type(messages::BrowserTypeRequest request) {
  return call<messages::BrowserType>(std::move(request));
}
Await<messages::BrowserScrollResponse> PartnerApiClient::browser_scroll(messages::BrowserScrollRequest request) {
  return call<messages::BrowserScroll>(std::move(request));
}
Await<messages::BrowserEvaluateResponse> PartnerApiClient::browser_evaluate(
    messages::BrowserEvaluateRequest request) {
  return call<messages::BrowserEvaluate>(std::move(request));
}

// Permissions, toast, log collection.
Await<messages::PermissionsGrantResponse> PartnerApiClient::permissions_grant(
    messages::PermissionsGrantRequest request) {
  return call<messages::PermissionsGrant>(std::move(request));
}
Await<messages::PermissionsCurrentResponse> PartnerApiClient::permissions_current() {
  return call<messages::PermissionsCurrent>({});
}
Await<messages::EmptyResponse> PartnerApiClient::permissions_subscribe() {
  return call<messages::PermissionsSubscribe>({});
}
Await<messages::PermissionsResolveResponse> PartnerApiClient::permissions_resolve(
    messages::PermissionsResolveRequest request) {
  return call<messages::PermissionsResolve>({request});
}
Await<messages::EmptyResponse> PartnerApiClient::show_toast(messages::ShowToastRequest request) {
  return call<messages::ShowToast>(std::move(request));
}
Await<messages::EmptyResponse> PartnerApiClient::collect_logs_subscription() {
  return call<messages::CollectLogsSubscription>({});
}

}  // namespace orvanta::link
