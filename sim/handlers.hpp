#pragma once

// One handler per wire method, in the order of the operation catalogue. The
// dispatcher calls `handle(Op{}, request, context)` for each operation, so an
// operation without a handler here fails to compile. Each family lives in
// its own handlers_<family>.cpp.
//
// A handler checks what the desktop client would check, changes the state
// and returns the result record, or a Failure whose message says what was
// wrong in words a person understands. Whether the user must be logged in
// is decided before the handler runs (dispatcher.cpp).

#include "messages/operations.hpp"
#include "sim/answer.hpp"
#include "sim/context.hpp"

namespace orvanta::sim {

namespace m = messages;

// clang-format off
// Account and playback (handlers_playback.cpp).
Answer<m::EmptyResponse> handle(m::ConnectLogin, const m::ConnectLoginRequest&, Context&);
Answer<m::GetUsernameHashResponse> handle(m::GetUsernameHash, const m::EmptyRequest&, Context&);
Answer<m::TkMessageAuthPolicyResponse> handle(m::TkMessageAuthPolicy, const m::EmptyRequest&, Context&);
Answer<m::EmptyResponse> handle(m::PlaybackPause, const m::EmptyRequest&, Context&);
Answer<m::EmptyResponse> handle(m::PlaybackResume, const m::EmptyRequest&, Context&);
Answer<m::EmptyResponse> handle(m::PlaybackPlay, const m::PlaybackPlayRequest&, Context&);
Answer<m::EmptyResponse> handle(m::PlaybackNext, const m::PlaybackNextRequest&, Context&);
Answer<m::EmptyResponse> handle(m::PlaybackPrevious, const m::PlaybackPreviousRequest&, Context&);
Answer<m::EmptyResponse> handle(m::PlaybackSeek, const m::PlaybackSeekRequest&, Context&);
Answer<m::EmptyResponse> handle(m::PlaybackShuffle, const m::PlaybackShuffleRequest&, Context&);
Answer<m::EmptyResponse> handle(m::PlaybackRepeat, const m::PlaybackRepeatRequest&, Context&);
Answer<m::EmptyResponse> handle(m::PlaybackSpeed, const m::PlaybackSpeedRequest&, Context&);
Answer<m::EmptyResponse> handle(m::PlaybackVolume, const m::PlaybackVolumeRequest&, Context&);
Answer<m::EmptyResponse> handle(m::BleStateSubscription, const m::EmptyRequest&, Context&);
Answer<m::EmptyResponse> handle(m::ConnectActiveDeviceSubscription, const m::EmptyRequest&, Context&);

// Content (handlers_content.cpp, handlers_lookup.cpp).
Answer<m::SearchResponse> handle(m::Search, const m::SearchRequest&, Context&);
Answer<m::LookupResponse> handle(m::Lookup, const m::LookupRequest&, Context&);
Answer<m::MeResponse> handle(m::Me, const m::EmptyRequest&, Context&);
Answer<m::TasteProfileResponse> handle(m::TasteProfile, const m::EmptyRequest&, Context&);
Answer<m::HistoryTopResponse> handle(m::HistoryTop, const m::HistoryTopRequest&, Context&);
Answer<m::HistoryRecentResponse> handle(m::HistoryRecent, const m::HistoryRecentRequest&, Context&);
Answer<m::NowPlayingResponse> handle(m::NowPlaying, const m::EmptyRequest&, Context&);

// Agent, model calls and speech (handlers_agent.cpp).
Answer<m::AgentBootstrapResponse> handle(m::AgentBootstrap, const m::EmptyRequest&, Context&);
Answer<m::AgentOnlineStateResponse> handle(m::AgentOnlineState, const m::AgentOnlineStateRequest&, Context&);
Answer<m::AskResponse> handle(m::Ask, const m::AskRequest&, Context&);
Answer<m::WebSearchResponse> handle(m::WebSearch, const m::WebSearchRequest&, Context&);
Answer<m::AiCompletionsResponse> handle(m::AiCompletions, const m::AiCompletionsRequest&, Context&);
Answer<m::EmptyResponse> handle(m::AiCompletionsStream, const m::AiCompletionsStreamRequest&, Context&);
Answer<m::AiImagesResponse> handle(m::AiImages, const m::AiImagesRequest&, Context&);
Answer<m::TtsSynthesizeResponse> handle(m::TtsSynthesize, const m::TtsSynthesizeRequest&, Context&);
Answer<m::TtsVoicesResponse> handle(m::TtsVoices, const m::EmptyRequest&, Context&);
Answer<m::AiMessagesResponse> handle(m::AiMessages, const m::AiMessagesRequest&, Context&);
Answer<m::EmptyResponse> handle(m::AiMessagesStream, const m::AiMessagesStreamRequest&, Context&);
Answer<m::TelemetrySandboxResponse> handle(m::TelemetrySandbox, const m::TelemetrySandboxRequest&, Context&);

// Podroom (handlers_podroom.cpp) and the episode timeline (handlers_timeline.cpp).
Answer<m::PodUploadResponse> handle(m::PodUpload, const m::PodUploadRequest&, Context&);
Answer<m::PodShowsListResponse> handle(m::PodShowsList, const m::EmptyRequest&, Context&);
Answer<m::PodShowsCreateResponse> handle(m::PodShowsCreate, const m::PodShowsCreateRequest&, Context&);
Answer<m::PodShowsDeleteResponse> handle(m::PodShowsDelete, const m::PodShowsDeleteRequest&, Context&);
Answer<m::PodEpisodesListResponse> handle(m::PodEpisodesList, const m::PodEpisodesListRequest&, Context&);
Answer<m::PodEpisodesCreateResponse> handle(m::PodEpisodesCreate, const m::PodEpisodesCreateRequest&, Context&);
Answer<m::PodEpisodesStatusResponse> handle(m::PodEpisodesStatus, const m::PodEpisodesStatusRequest&, Context&);
Answer<m::PodEpisodesDeleteResponse> handle(m::PodEpisodesDelete, const m::PodEpisodesDeleteRequest&, Context&);
Answer<m::PodTimelineGetResponse> handle(m::PodTimelineGet, const m::PodTimelineGetRequest&, Context&);
Answer<m::PodTimelineSetResponse> handle(m::PodTimelineSet, const m::PodTimelineSetRequest&, Context&);
Answer<m::PodTimelineDeleteResponse> handle(m::PodTimelineDelete, const m::PodTimelineDeleteRequest&, Context&);

// Devices (handlers_devices.cpp).
Answer<m::ConnectClusterResponse> handle(m::ConnectCluster, const m::EmptyRequest&, Context&);
Answer<m::EmptyResponse> handle(m::ConnectTransfer, const m::ConnectTransferRequest&, Context&);
Answer<m::EmptyResponse> handle(m::ConnectSetVolume, const m::ConnectSetVolumeRequest&, Context&);
Answer<m::ConnectDeviceInfoResponse> handle(m::ConnectDeviceInfo, const m::ConnectDeviceInfoRequest&, Context&);

// Chat (handlers_chat.cpp).
Answer<m::ChatListResponse> handle(m::ChatList, const m::EmptyRequest&, Context&);
Answer<m::ChatReadResponse> handle(m::ChatRead, const m::ChatReadRequest&, Context&);
Answer<m::ChatSendResponse> handle(m::ChatSend, const m::ChatSendRequest&, Context&);
Answer<m::EmptyResponse> handle(m::ChatSubscribe, const m::EmptyRequest&, Context&);

// Library and playlists (handlers_library.cpp, handlers_playlist.cpp).
Answer<m::LibraryListResponse> handle(m::LibraryList, const m::LibraryListRequest&, Context&);
Answer<m::LibraryContainsResponse> handle(m::LibraryContains, const m::LibraryContainsRequest&, Context&);
Answer<m::LibraryAddResponse> handle(m::LibraryAdd, const m::LibraryAddRequest&, Context&);
Answer<m::LibraryRemoveResponse> handle(m::LibraryRemove, const m::LibraryRemoveRequest&, Context&);
Answer<m::PlaylistGetResponse> handle(m::PlaylistGet, const m::PlaylistGetRequest&, Context&);
Answer<m::PlaylistCreateResponse> handle(m::PlaylistCreate, const m::PlaylistCreateRequest&, Context&);
Answer<m::PlaylistUpdateResponse> handle(m::PlaylistUpdate, const m::PlaylistUpdateRequest&, Context&);
Answer<m::PlaylistAddTracksResponse> handle(m::PlaylistAddTracks, const m::PlaylistAddTracksRequest&, Context&);
Answer<m::PlaylistRemoveTracksResponse> handle(m::PlaylistRemoveTracks, const m::PlaylistRemoveTracksRequest&, Context&);

// Folders (handlers_folder.cpp).
Answer<m::FolderListResponse> handle(m::FolderList, const m::FolderListRequest&, Context&);
Answer<m::FolderCreateResponse> handle(m::FolderCreate, const m::FolderCreateRequest&, Context&);
Answer<m::FolderRenameResponse> handle(m::FolderRename, const m::FolderRenameRequest&, Context&);
Answer<m::FolderMoveResponse> handle(m::FolderMove, const m::FolderMoveRequest&, Context&);
Answer<m::FolderRemoveResponse> handle(m::FolderRemove, const m::FolderRemoveRequest&, Context&);

// Queue (handlers_queue.cpp).
Answer<m::QueueListResponse> handle(m::QueueList, const m::EmptyRequest&, Context&);
Answer<m::EmptyResponse> handle(m::QueueAdd, const m::QueueAddRequest&, Context&);
Answer<m::QueueRemoveResponse> handle(m::QueueRemove, const m::QueueRemoveRequest&, Context&);
Answer<m::EmptyResponse> handle(m::QueueMove, const m::QueueMoveRequest&, Context&);

// Rondo (handlers_rondo.cpp).
Answer<m::RondoStatusResponse> handle(m::RondoStatus, const m::EmptyRequest&, Context&);
Answer<m::RondoStatusResponse> handle(m::RondoCreate, const m::RondoCreateRequest&, Context&);
Answer<m::EmptyResponse> handle(m::RondoLeave, const m::EmptyRequest&, Context&);
Answer<m::EmptyResponse> handle(m::RondoEnd, const m::EmptyRequest&, Context&);
Answer<m::RondoStatusResponse> handle(m::RondoKick, const m::RondoKickRequest&, Context&);
Answer<m::RondoPermissionsResponse> handle(m::RondoPermissions, const m::RondoPermissionsRequest&, Context&);

// Browser (handlers_browser.cpp).
Answer<m::BrowserNewResponse> handle(m::BrowserNew, const m::BrowserNewRequest&, Context&);
Answer<m::BrowserListResponse> handle(m::BrowserList, const m::EmptyRequest&, Context&);
Answer<m::BrowserCloseResponse> handle(m::BrowserClose, const m::BrowserCloseRequest&, Context&);
Answer<m::BrowserSnapshotResponse> handle(m::BrowserSnapshot, const m::BrowserSnapshotRequest&, Context&);
Answer<m::BrowserNavigateResponse> handle(m::BrowserNavigate, const m::BrowserNavigateRequest&, Context&);
Answer<m::BrowserClickResponse> handle(m::BrowserClick, const m::BrowserClickRequest&, Context&);
Answer<m::BrowserTypeResponse> handle(m::BrowserType, const m::BrowserTypeRequest&, Context&);
Answer<m::BrowserScrollResponse> handle(m::BrowserScroll, const m::BrowserScrollRequest&, Context&);
Answer<m::BrowserEvaluateResponse> handle(m::BrowserEvaluate, const m::BrowserEvaluateRequest&, Context&);

// Permissions, toast and logs (handlers_permissions.cpp).
Answer<m::PermissionsGrantResponse> handle(m::PermissionsGrant, const m::PermissionsGrantRequest&, Context&);
Answer<m::PermissionsCurrentResponse> handle(m::PermissionsCurrent, const m::EmptyRequest&, Context&);
Answer<m::EmptyResponse> handle(m::PermissionsSubscribe, const m::EmptyRequest&, Context&);
Answer<m::PermissionsResolveResponse> handle(m::PermissionsResolve, const m::PermissionsResolveRequest&, Context&);
Answer<m::EmptyResponse> handle(m::ShowToast, const m::ShowToastRequest&, Context&);
Answer<m::EmptyResponse> handle(m::CollectLogsSubscription, const m::EmptyRequest&, Context&);

// The connection's own requests (handlers_playback.cpp).
Answer<m::EmptyResponse> handle(m::LoginStateSubscription, const m::EmptyRequest&, Context&);
Answer<m::HelloResponse> handle(m::AuthorizeConnection, const m::HelloRequest&, Context&);
// clang-format on

}  // namespace orvanta::sim
