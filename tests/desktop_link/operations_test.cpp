// Every wire method is reachable through PartnerApi, in the order of the
// method catalogue, each with the right method name and the parameters its
// argument form builds.

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "tests/desktop_link/link_fixture.hpp"

namespace {

using orvanta::link::DesktopApiError;
using orvanta::link::PartnerApi;
using orvanta::link::Result;
using orvanta::testing::LinkTest;
using orvanta::testing::PeerRequest;
namespace messages = orvanta::messages;
namespace json = orvanta::json;

template <class T>
asio::awaitable<std::error_code> code_of(asio::awaitable<Result<T>> operation) {
  auto result = co_await std::move(operation);
  co_return result.error();
}

struct Row {
  std::string_view method;
  std::function<asio::awaitable<std::error_code>(PartnerApi&)> call;
  std::string params;  // what the peer must receive
};

// Without an explicit text, the parameters are those of a default record.
template <class Op>
Row row(std::function<asio::awaitable<std::error_code>(PartnerApi&)> call, std::string params = {}) {
  if (params.empty()) params = json::encode(messages::record_codec<typename Op::Request>(), {}).str();
  return {Op::name, std::move(call), std::move(params)};
}

std::vector<Row> all_operations() {
  return {
      row<messages::ConnectLogin>(
          [](PartnerApi& a) { return code_of(a.connect_login(messages::LoginSource::pull_notification)); },
          R"({"source":"pull_notification"})"),
      row<messages::GetUsernameHash>([](PartnerApi& a) { return code_of(a.get_username_hash()); }),
      row<messages::TkMessageAuthPolicy>([](PartnerApi& a) { return code_of(a.tk_message_auth_policy()); }),
      row<messages::PlaybackPause>([](PartnerApi& a) { return code_of(a.playback_pause()); }),
      row<messages::PlaybackResume>([](PartnerApi& a) { return code_of(a.playback_resume()); }),
      row<messages::PlaybackPlay>(
          [](PartnerApi& a) { return code_of(a.playback_play("orvanta:album:1", "ref", std::nullopt, "agent")); },
          R"({"context":"orvanta:album:1","referrer":"ref","agentic_product_type":"agent"})"),
      row<messages::PlaybackNext>([](PartnerApi& a) { return code_of(a.playback_next()); }),
      row<messages::PlaybackPrevious>([](PartnerApi& a) { return code_of(a.playback_previous()); }),
      row<messages::PlaybackSeek>([](PartnerApi& a) { return code_of(a.playback_seek({})); }),
      row<messages::PlaybackShuffle>([](PartnerApi& a) { return code_of(a.playback_shuffle(true)); },
          R"({"shuffle":true})"),
      row<messages::PlaybackRepeat>([](PartnerApi& a) { return code_of(a.playback_repeat("track")); },
          R"({"repeat":"track"})"),
      row<messages::PlaybackSpeed>([](PartnerApi& a) { return code_of(a.playback_speed(150)); },
          R"({"playback_speed":150})"),
      row<messages::PlaybackVolume>([](PartnerApi& a) { return code_of(a.playback_volume(0.5)); },
          R"({"volume_percentage":0.5})"),
      row<messages::BleStateSubscription>([](PartnerApi& a) { return code_of(a.ble_state_subscription()); }),
      row<messages::ConnectActiveDeviceSubscription>(
          [](PartnerApi& a) { return code_of(a.connect_active_device_subscription()); }),
      row<messages::Search>([](PartnerApi& a) { return code_of(a.search({})); }),
      row<messages::Lookup>([](PartnerApi& a) { return code_of(a.lookup({})); }),
      row<messages::Me>([](PartnerApi& a) { return code_of(a.me()); }),
      row<messages::TasteProfile>([](PartnerApi& a) { return code_of(a.taste_profile()); }),
      row<messages::HistoryTop>([](PartnerApi& a) { return code_of(a.history_top({})); }),
      row<messages::HistoryRecent>([](PartnerApi& a) { return code_of(a.history_recent({})); }),
      row<messages::NowPlaying>([](PartnerApi& a) { return code_of(a.now_playing()); }),
      row<messages::AgentBootstrap>([](PartnerApi& a) { return code_of(a.agent_bootstrap()); }),
      row<messages::AgentOnlineState>([](PartnerApi& a) { return code_of(a.agent_online_state({})); }),
      row<messages::Ask>([](PartnerApi& a) { return code_of(a.ask("why?")); }, R"({"question":"why?"})"),
      row<messages::WebSearch>([](PartnerApi& a) { return code_of(a.web_search({})); }),
      row<messages::AiCompletions>([](PartnerApi& a) { return code_of(a.ai_completions("b1")); }, R"({"body":"b1"})"),
      row<messages::AiCompletionsStream>([](PartnerApi& a) { return code_of(a.ai_completions_stream("b2")); },
          R"({"body":"b2"})"),
      row<messages::AiImages>([](PartnerApi& a) { return code_of(a.ai_images("b3")); }, R"({"body":"b3"})"),
      row<messages::TtsSynthesize>([](PartnerApi& a) { return code_of(a.tts_synthesize({})); }),
      row<messages::TtsVoices>([](PartnerApi& a) { return code_of(a.tts_voices()); }),
      row<messages::AiMessages>([](PartnerApi& a) { return code_of(a.ai_messages("b4")); }, R"({"body":"b4"})"),
      row<messages::AiMessagesStream>([](PartnerApi& a) { return code_of(a.ai_messages_stream("b5")); },
          R"({"body":"b5"})"),
      row<messages::TelemetrySandbox>([](PartnerApi& a) { return code_of(a.telemetry_sandbox("b6")); },
          R"({"body":"b6"})"),
      row<messages::PodUpload>([](PartnerApi& a) { return code_of(a.pod_upload({})); }),
      row<messages::PodShowsList>([](PartnerApi& a) { return code_of(a.pod_shows_list()); }),
      row<messages::PodShowsCreate>([](PartnerApi& a) { return code_of(a.pod_shows_create({})); }),
      row<messages::PodShowsDelete>([](PartnerApi& a) { return code_of(a.pod_shows_delete("s1")); },
          R"({"id":"s1"})"),
      row<messages::PodEpisodesList>([](PartnerApi& a) { return code_of(a.pod_episodes_list("show")); },
          R"({"show_id":"show"})"),
      row<messages::PodEpisodesCreate>([](PartnerApi& a) { return code_of(a.pod_episodes_create({})); }),
      row<messages::PodEpisodesStatus>([](PartnerApi& a) { return code_of(a.pod_episodes_status("e1")); },
          R"({"id":"e1"})"),
      row<messages::PodEpisodesDelete>([](PartnerApi& a) { return code_of(a.pod_episodes_delete("e2")); },
          R"({"id":"e2"})"),
      row<messages::PodTimelineGet>([](PartnerApi& a) { return code_of(a.pod_timeline_get({})); }),
      row<messages::PodTimelineSet>([](PartnerApi& a) { return code_of(a.pod_timeline_set({})); }),
      row<messages::PodTimelineDelete>([](PartnerApi& a) { return code_of(a.pod_timeline_delete({})); }),
      row<messages::ConnectCluster>([](PartnerApi& a) { return code_of(a.connect_cluster()); }),
      row<messages::ConnectTransfer>([](PartnerApi& a) { return code_of(a.connect_transfer("d1")); },
          R"({"device_id":"d1"})"),
      row<messages::ConnectSetVolume>([](PartnerApi& a) { return code_of(a.connect_set_volume("d2", 30)); },
          R"({"device_id":"d2","volume":30})"),
      row<messages::ConnectDeviceInfo>([](PartnerApi& a) { return code_of(a.connect_device_info("d3")); },
          R"({"device_id":"d3"})"),
      row<messages::ChatList>([](PartnerApi& a) { return code_of(a.chat_list()); }),
      row<messages::ChatRead>([](PartnerApi& a) { return code_of(a.chat_read({})); }),
      row<messages::ChatSend>([](PartnerApi& a) { return code_of(a.chat_send({})); }),
      row<messages::ChatSubscribe>([](PartnerApi& a) { return code_of(a.chat_subscribe()); }),
      row<messages::LibraryList>([](PartnerApi& a) { return code_of(a.library_list({})); }),
      row<messages::LibraryContains>([](PartnerApi& a) { return code_of(a.library_contains({"u1", "u2"})); },
          R"({"uris":["u1","u2"]})"),
      row<messages::LibraryAdd>([](PartnerApi& a) { return code_of(a.library_add({"u3"})); }, R"({"uris":["u3"]})"),
      row<messages::LibraryRemove>([](PartnerApi& a) { return code_of(a.library_remove({})); }, R"({"uris":[]})"),
      row<messages::PlaylistGet>([](PartnerApi& a) { return code_of(a.playlist_get({})); }),
      row<messages::PlaylistCreate>([](PartnerApi& a) { return code_of(a.playlist_create({})); }),
      row<messages::PlaylistUpdate>([](PartnerApi& a) { return code_of(a.playlist_update({})); }),
      row<messages::PlaylistAddTracks>([](PartnerApi& a) { return code_of(a.playlist_add_tracks({})); }),
      row<messages::PlaylistRemoveTracks>([](PartnerApi& a) { return code_of(a.playlist_remove_tracks({})); }),
      row<messages::FolderList>([](PartnerApi& a) { return code_of(a.folder_list({})); }),
      row<messages::FolderCreate>([](PartnerApi& a) { return code_of(a.folder_create({})); }),
      row<messages::FolderRename>([](PartnerApi& a) { return code_of(a.folder_rename({})); }),
      row<messages::FolderMove>([](PartnerApi& a) { return code_of(a.folder_move({})); }),
      row<messages::FolderRemove>([](PartnerApi& a) { return code_of(a.folder_remove({})); }),
      row<messages::QueueList>([](PartnerApi& a) { return code_of(a.queue_list()); }),
      row<messages::QueueAdd>([](PartnerApi& a) { return code_of(a.queue_add("orvanta:track:9")); },
          R"({"uri":"orvanta:track:9"})"),
      row<messages::QueueRemove>([](PartnerApi& a) { return code_of(a.queue_remove(4)); }, R"({"position":4})"),
      row<messages::QueueMove>([](PartnerApi& a) { return code_of(a.queue_move({})); }),
      row<messages::RondoStatus>([](PartnerApi& a) { return code_of(a.rondo_status()); }),
      row<messages::RondoCreate>([](PartnerApi& a) { return code_of(a.rondo_create({})); }),
      row<messages::RondoLeave>([](PartnerApi& a) { return code_of(a.rondo_leave()); }),
      row<messages::RondoEnd>([](PartnerApi& a) { return code_of(a.rondo_end()); }),
      row<messages::RondoKick>([](PartnerApi& a) { return code_of(a.rondo_kick("m1")); }, R"({"member_id":"m1"})"),
      row<messages::RondoPermissions>([](PartnerApi& a) { return code_of(a.rondo_permissions({})); }),
      row<messages::BrowserNew>([](PartnerApi& a) { return code_of(a.browser_new({})); }),
      row<messages::BrowserList>([](PartnerApi& a) { return code_of(a.browser_list()); }),
      row<messages::BrowserClose>([](PartnerApi& a) { return code_of(a.browser_close({})); }),
      row<messages::BrowserSnapshot>([](PartnerApi& a) { return code_of(a.browser_snapshot({})); }),
      row<messages::BrowserNavigate>([](PartnerApi& a) { return code_of(a.browser_navigate({})); }),
      row<messages::BrowserClick>([](PartnerApi& a) { return code_of(a.browser_click({})); }),
      row<messages::BrowserType>([](PartnerApi& a) { return code_of(a.browser_type({})); }),
      row<messages::BrowserScroll>([](PartnerApi& a) { return code_of(a.browser_scroll({})); }),
      row<messages::BrowserEvaluate>([](PartnerApi& a) { return code_of(a.browser_evaluate({})); }),
      row<messages::PermissionsGrant>([](PartnerApi& a) { return code_of(a.permissions_grant({})); }),
      row<messages::PermissionsCurrent>([](PartnerApi& a) { return code_of(a.permissions_current()); }),
      row<messages::PermissionsSubscribe>([](PartnerApi& a) { return code_of(a.permissions_subscribe()); }),
      row<messages::PermissionsResolve>([](PartnerApi& a) { return code_of(a.permissions_resolve({})); }),
      row<messages::ShowToast>([](PartnerApi& a) { return code_of(a.show_toast({})); }),
      row<messages::CollectLogsSubscription>([](PartnerApi& a) { return code_of(a.collect_logs_subscription()); }),
  };
}

TEST(Operations, OneRowPerWireMethodInCatalogueOrder) {
  auto rows = all_operations();
  ASSERT_EQ(rows.size(), messages::operation_names.size());
  for (std::size_t i = 0; i < rows.size(); ++i) EXPECT_EQ(rows[i].method, messages::operation_names[i]) << i;
}

using AllOperations = LinkTest;

TEST_F(AllOperations, AreRefusedWhileDisconnected) {
  for (auto& r : all_operations()) {
    EXPECT_EQ(await(r.call(*client)), DesktopApiError::client_not_connected) << r.method;
  }
  EXPECT_TRUE(log_lines.empty());
}

// The peer refuses each method with "method not yet implemented", which the
// client hands back as it is.
TEST_F(AllOperations, SendTheirMethodAndParameters) {
  connect_client();
  for (auto& r : all_operations()) {
    std::optional<PeerRequest> seen;
    serve([](LinkTest* t, std::optional<PeerRequest>* out) -> asio::awaitable<void> {
      auto request = co_await t->next_request();
      *out = request;
      co_await t->peer.write_frame(orvanta::testing::error_reply(request.id, 15, "desktop_api"));
    }(this, &seen));
    EXPECT_EQ(await(r.call(*client)), DesktopApiError::method_not_yet_implemented) << r.method;
    ASSERT_TRUE(seen.has_value()) << r.method;
    EXPECT_EQ(seen->method, r.method);
    EXPECT_EQ(seen->params, r.params) << r.method;
  }
  EXPECT_EQ(errors.size(), messages::operation_names.size());
}

}  // namespace
