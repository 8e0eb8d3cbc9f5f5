#pragma once

// Every record of the operation catalogue, and the way from a record's type
// to its codec: `record_codec<R>()` builds a fresh codec for `R`, as the
// factory of the record's own family would.

#include <type_traits>

#include "json/json.hpp"
#include "messages/account.hpp"
#include "messages/agent.hpp"
#include "messages/browser.hpp"
#include "messages/chat.hpp"
#include "messages/content.hpp"
#include "messages/devices.hpp"
#include "messages/envelope.hpp"
#include "messages/folder.hpp"
#include "messages/library.hpp"
#include "messages/model_calls.hpp"
#include "messages/permissions.hpp"
#include "messages/playback.hpp"
#include "messages/playlist.hpp"
#include "messages/podroom.hpp"
#include "messages/queue.hpp"
#include "messages/rondo.hpp"
#include "messages/speech.hpp"
#include "messages/timeline.hpp"
#include "messages/toast_logs.hpp"

namespace orvanta::messages {

// The codec of each request, result and notification record, found from its
// type, in the order of first use in the catalogue. The device-info result
// is a device record, so ConnectDevice serves both.
// clang-format off
inline auto codec_of(std::type_identity<ConnectLoginRequest>) { return connect_login_request_codec(); }
inline auto codec_of(std::type_identity<EmptyResponse>) { return empty_response_codec(); }
inline auto codec_of(std::type_identity<EmptyRequest>) { return empty_request_codec(); }
inline auto codec_of(std::type_identity<GetUsernameHashResponse>) { return get_username_hash_response_codec(); }
inline auto codec_of(std::type_identity<TkMessageAuthPolicyResponse>) { return tk_message_auth_policy_response_codec(); }
inline auto codec_of(std::type_identity<PlaybackPlayRequest>) { return playback_play_request_codec(); }
inline auto codec_of(std::type_identity<PlaybackNextRequest>) { return playback_next_request_codec(); }
inline auto codec_of(std::type_identity<PlaybackPreviousRequest>) { return playback_previous_request_codec(); }
inline auto codec_of(std::type_identity<PlaybackSeekRequest>) { return playback_seek_request_codec(); }
inline auto codec_of(std::type_identity<PlaybackShuffleRequest>) { return playback_shuffle_request_codec(); }
inline auto codec_of(std::type_identity<PlaybackRepeatRequest>) { return playback_repeat_request_codec(); }
inline auto codec_of(std::type_identity<PlaybackSpeedRequest>) { return playback_speed_request_codec(); }
inline auto codec_of(std::type_identity<PlaybackVolumeRequest>) { return playback_volume_request_codec(); }
inline auto codec_of(std::type_identity<SearchRequest>) { return search_request_codec(); }
inline auto codec_of(std::type_identity<SearchResponse>) { return search_response_codec(); }
inline auto codec_of(std::type_identity<LookupRequest>) { return lookup_request_codec(); }
inline auto codec_of(std::type_identity<LookupResponse>) { return lookup_response_codec(); }
inline auto codec_of(std::type_identity<MeResponse>) { return me_response_codec(); }
inline auto codec_of(std::type_identity<TasteProfileResponse>) { return taste_profile_response_codec(); }
inline auto codec_of(std::type_identity<HistoryTopRequest>) { return history_top_request_codec(); }
inline auto codec_of(std::type_identity<HistoryTopResponse>) { return history_top_response_codec(); }
inline auto codec_of(std::type_identity<HistoryRecentRequest>) { return history_recent_request_codec(); }
inline auto codec_of(std::type_identity<HistoryRecentResponse>) { return history_recent_response_codec(); }
inline auto codec_of(std::type_identity<NowPlayingResponse>) { return now_playing_response_codec(); }
inline auto codec_of(std::type_identity<AgentBootstrapResponse>) { return agent_bootstrap_response_codec(); }
inline auto codec_of(std::type_identity<AgentOnlineStateRequest>) { return agent_online_state_request_codec(); }
inline auto codec_of(std::type_identity<AgentOnlineStateResponse>) { return agent_online_state_response_codec(); }
inline auto codec_of(std::type_identity<AskRequest>) { return ask_request_codec(); }
inline auto codec_of(std::type_identity<AskResponse>) { return ask_response_codec(); }
inline auto codec_of(std::type_identity<WebSearchRequest>) { return web_search_request_codec(); }
inline auto codec_of(std::type_identity<WebSearchResponse>) { return web_search_response_codec(); }
inline auto codec_of(std::type_identity<AiCompletionsRequest>) { return ai_completions_request_codec(); }
inline auto codec_of(std::type_identity<AiCompletionsResponse>) { return ai_completions_response_codec(); }
inline auto codec_of(std::type_identity<AiCompletionsStreamRequest>) { return ai_completions_stream_request_codec(); }
inline auto codec_of(std::type_identity<AiImagesRequest>) { return ai_images_request_codec(); }
inline auto codec_of(std::type_identity<AiImagesResponse>) { return ai_images_response_codec(); }
inline auto codec_of(std::type_identity<TtsSynthesizeRequest>) { return tts_synthesize_request_codec(); }
inline auto codec_of(std::type_identity<TtsSynthesizeResponse>) { return tts_synthesize_response_codec(); }
inline auto codec_of(std::type_identity<TtsVoicesResponse>) { return tts_voices_response_codec(); }
inline auto codec_of(std::type_identity<AiMessagesRequest>) { return ai_messages_request_codec(); }
inline auto codec_of(std::type_identity<AiMessagesResponse>) { return ai_messages_response_codec(); }
inline auto codec_of(std::type_identity<AiMessagesStreamRequest>) { return ai_messages_stream_request_codec(); }
inline auto codec_of(std::type_identity<TelemetrySandboxRequest>) { return telemetry_sandbox_request_codec(); }
inline auto codec_of(std::type_identity<TelemetrySandboxResponse>) { return telemetry_sandbox_response_codec(); }
inline auto codec_of(std::type_identity<PodUploadRequest>) { return pod_upload_request_codec(); }
inline auto codec_of(std::type_identity<PodUploadResponse>) { return pod_upload_response_codec(); }
inline auto codec_of(std::type_identity<PodShowsListResponse>) { return pod_shows_list_response_codec(); }
inline auto codec_of(std::type_identity<PodShowsCreateRequest>) { return pod_shows_create_request_codec(); }
inline auto codec_of(std::type_identity<PodShowsCreateResponse>) { return pod_shows_create_response_codec(); }
inline auto codec_of(std::type_identity<PodShowsDeleteRequest>) { return pod_shows_delete_request_codec(); }
inline auto codec_of(std::type_identity<PodShowsDeleteResponse>) { return pod_shows_delete_response_codec(); }
inline auto codec_of(std::type_identity<PodEpisodesListRequest>) { return pod_episodes_list_request_codec(); }
inline auto codec_of(std::type_identity<PodEpisodesListResponse>) { return pod_episodes_list_response_codec(); }
inline auto codec_of(std::type_identity<PodEpisodesCreateRequest>) { return pod_episodes_create_request_codec(); }
inline auto codec_of(std::type_identity<PodEpisodesCreateResponse>) { return pod_episodes_create_response_codec(); }
inline auto codec_of(std::type_identity<PodEpisodesStatusRequest>) { return pod_episodes_status_request_codec(); }
inline auto codec_of(std::type_identity<PodEpisodesStatusResponse>) { return pod_episodes_status_response_codec(); }
inline auto codec_of(std::type_identity<PodEpisodesDeleteRequest>) { return pod_episodes_delete_request_codec(); }
inline auto codec_of(std::type_identity<PodEpisodesDeleteResponse>) { return pod_episodes_delete_response_codec(); }
inline auto codec_of(std::type_identity<PodTimelineGetRequest>) { return pod_timeline_get_request_codec(); }
inline auto codec_of(std::type_identity<PodTimelineGetResponse>) { return pod_timeline_get_response_codec(); }
inline auto codec_of(std::type_identity<PodTimelineSetRequest>) { return pod_timeline_set_request_codec(); }
inline auto codec_of(std::type_identity<PodTimelineSetResponse>) { return pod_timeline_set_response_codec(); }
inline auto codec_of(std::type_identity<PodTimelineDeleteRequest>) { return pod_timeline_delete_request_codec(); }
inline auto codec_of(std::type_identity<PodTimelineDeleteResponse>) { return pod_timeline_delete_response_codec(); }
inline auto codec_of(std::type_identity<ConnectClusterResponse>) { return connect_cluster_response_codec(); }
inline auto codec_of(std::type_identity<ConnectTransferRequest>) { return connect_transfer_request_codec(); }
inline auto codec_of(std::type_identity<ConnectSetVolumeRequest>) { return connect_set_volume_request_codec(); }
inline auto codec_of(std::type_identity<ConnectDeviceInfoRequest>) { return connect_device_info_request_codec(); }
inline auto codec_of(std::type_identity<ConnectDevice>) { return connect_device_codec(); }
inline auto codec_of(std::type_identity<ChatListResponse>) { return chat_list_response_codec(); }
inline auto codec_of(std::type_identity<ChatReadRequest>) { return chat_read_request_codec(); }
inline auto codec_of(std::type_identity<ChatReadResponse>) { return chat_read_response_codec(); }
inline auto codec_of(std::type_identity<ChatSendRequest>) { return chat_send_request_codec(); }
inline auto codec_of(std::type_identity<ChatSendResponse>) { return chat_send_response_codec(); }
inline auto codec_of(std::type_identity<LibraryListRequest>) { return library_list_request_codec(); }
inline auto codec_of(std::type_identity<LibraryListResponse>) { return library_list_response_codec(); }
inline auto codec_of(std::type_identity<LibraryContainsRequest>) { return library_contains_request_codec(); }
inline auto codec_of(std::type_identity<LibraryContainsResponse>) { return library_contains_response_codec(); }
inline auto codec_of(std::type_identity<LibraryAddRequest>) { return library_add_request_codec(); }
inline auto codec_of(std::type_identity<LibraryAddResponse>) { return library_add_response_codec(); }
inline auto codec_of(std::type_identity<LibraryRemoveRequest>) { return library_remove_request_codec(); }
inline auto codec_of(std::type_identity<LibraryRemoveResponse>) { return library_remove_response_codec(); }
inline auto codec_of(std::type_identity<PlaylistGetRequest>) { return playlist_get_request_codec(); }
inline auto codec_of(std::type_identity<PlaylistGetResponse>) { return playlist_get_response_codec(); }
inline auto codec_of(std::type_identity<PlaylistCreateRequest>) { return playlist_create_request_codec(); }
inline auto codec_of(std::type_identity<PlaylistCreateResponse>) { return playlist_create_response_codec(); }
inline auto codec_of(std::type_identity<PlaylistUpdateRequest>) { return playlist_update_request_codec(); }
inline auto codec_of(std::type_identity<PlaylistUpdateResponse>) { return playlist_update_response_codec(); }
inline auto codec_of(std::type_identity<PlaylistAddTracksRequest>) { return playlist_add_tracks_request_codec(); }
inline auto codec_of(std::type_identity<PlaylistAddTracksResponse>) { return playlist_add_tracks_response_codec(); }
inline auto codec_of(std::type_identity<PlaylistRemoveTracksRequest>) { return playlist_remove_tracks_request_codec(); }
inline auto codec_of(std::type_identity<PlaylistRemoveTracksResponse>) { return playlist_remove_tracks_response_codec(); }
inline auto codec_of(std::type_identity<FolderListRequest>) { return folder_list_request_codec(); }
inline auto codec_of(std::type_identity<FolderListResponse>) { return folder_list_response_codec(); }
inline auto codec_of(std::type_identity<FolderCreateRequest>) { return folder_create_request_codec(); }
inline auto codec_of(std::type_identity<FolderCreateResponse>) { return folder_create_response_codec(); }
inline auto codec_of(std::type_identity<FolderRenameRequest>) { return folder_rename_request_codec(); }
inline auto codec_of(std::type_identity<FolderRenameResponse>) { return folder_rename_response_codec(); }
inline auto codec_of(std::type_identity<FolderMoveRequest>) { return folder_move_request_codec(); }
inline auto codec_of(std::type_identity<FolderMoveResponse>) { return folder_move_response_codec(); }
inline auto codec_of(std::type_identity<FolderRemoveRequest>) { return folder_remove_request_codec(); }
inline auto codec_of(std::type_identity<FolderRemoveResponse>) { return folder_remove_response_codec(); }
inline auto codec_of(std::type_identity<QueueListResponse>) { return queue_list_response_codec(); }
inline auto codec_of(std::type_identity<QueueAddRequest>) { return queue_add_request_codec(); }
inline auto codec_of(std::type_identity<QueueRemoveRequest>) { return queue_remove_request_codec(); }
inline auto codec_of(std::type_identity<QueueRemoveResponse>) { return queue_remove_response_codec(); }
inline auto codec_of(std::type_identity<QueueMoveRequest>) { return queue_move_request_codec(); }
inline auto codec_of(std::type_identity<RondoStatusResponse>) { return rondo_status_response_codec(); }
inline auto codec_of(std::type_identity<RondoCreateRequest>) { return rondo_create_request_codec(); }
inline auto codec_of(std::type_identity<RondoKickRequest>) { return rondo_kick_request_codec(); }
inline auto codec_of(std::type_identity<RondoPermissionsRequest>) { return rondo_permissions_request_codec(); }
inline auto codec_of(std::type_identity<RondoPermissionsResponse>) { return rondo_permissions_response_codec(); }
inline auto codec_of(std::type_identity<BrowserNewRequest>) { return browser_new_request_codec(); }
inline auto codec_of(std::type_identity<BrowserNewResponse>) { return browser_new_response_codec(); }
inline auto codec_of(std::type_identity<BrowserListResponse>) { return browser_list_response_codec(); }
inline auto codec_of(std::type_identity<BrowserCloseRequest>) { return browser_close_request_codec(); }
inline auto codec_of(std::type_identity<BrowserCloseResponse>) { return browser_close_response_codec(); }
inline auto codec_of(std::type_identity<BrowserSnapshotRequest>) { return browser_snapshot_request_codec(); }
inline auto codec_of(std::type_identity<BrowserSnapshotResponse>) { return browser_snapshot_response_codec(); }
inline auto codec_of(std::type_identity<BrowserNavigateRequest>) { return browser_navigate_request_codec(); }
inline auto codec_of(std::type_identity<BrowserNavigateResponse>) { return browser_navigate_response_codec(); }
inline auto codec_of(std::type_identity<BrowserClickRequest>) { return browser_click_request_codec(); }
inline auto codec_of(std::type_identity<BrowserClickResponse>) { return browser_click_response_codec(); }
inline auto codec_of(std::type_identity<BrowserTypeRequest>) { return browser_type_request_codec(); }
inline auto codec_of(std::type_identity<BrowserTypeResponse>) { return browser_type_response_codec(); }
inline auto codec_of(std::type_identity<BrowserScrollRequest>) { return browser_scroll_request_codec(); }
inline auto codec_of(std::type_identity<BrowserScrollResponse>) { return browser_scroll_response_codec(); }
inline auto codec_of(std::type_identity<BrowserEvaluateRequest>) { return browser_evaluate_request_codec(); }
inline auto codec_of(std::type_identity<BrowserEvaluateResponse>) { return browser_evaluate_response_codec(); }
inline auto codec_of(std::type_identity<PermissionsGrantRequest>) { return permissions_grant_request_codec(); }
inline auto codec_of(std::type_identity<PermissionsGrantResponse>) { return permissions_grant_response_codec(); }
inline auto codec_of(std::type_identity<PermissionsCurrentResponse>) { return permissions_current_response_codec(); }
inline auto codec_of(std::type_identity<PermissionsResolveRequest>) { return permissions_resolve_request_codec(); }
inline auto codec_of(std::type_identity<PermissionsResolveResponse>) { return permissions_resolve_response_codec(); }
inline auto codec_of(std::type_identity<ShowToastRequest>) { return show_toast_request_codec(); }
inline auto codec_of(std::type_identity<HelloRequest>) { return hello_request_codec(); }
inline auto codec_of(std::type_identity<HelloResponse>) { return hello_response_codec(); }
inline auto codec_of(std::type_identity<LoginStateNotification>) { return login_state_notification_codec(); }
inline auto codec_of(std::type_identity<BleStateNotification>) { return ble_state_notification_codec(); }
inline auto codec_of(std::type_identity<ActiveDeviceNotification>) { return active_device_notification_codec(); }
inline auto codec_of(std::type_identity<ChatNotification>) { return chat_notification_codec(); }
inline auto codec_of(std::type_identity<PermissionRequest>) { return permission_request_codec(); }
inline auto codec_of(std::type_identity<CollectLogsNotification>) { return collect_logs_notification_codec(); }
inline auto codec_of(std::type_identity<AiCompletionsStreamChunk>) { return ai_completions_stream_chunk_codec(); }
inline auto codec_of(std::type_identity<AiMessagesStreamChunk>) { return ai_messages_stream_chunk_codec(); }
// clang-format on

template <class R>
auto record_codec() {
  return codec_of(std::type_identity<R>{});
}

}  // namespace orvanta::messages
