#include "messages/podroom.hpp"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "record_check.hpp"

namespace orvanta::messages {
namespace {

using test::runner;
using test::WireCase;

constexpr std::string_view kUpload =
    R"({"file_path":"/tmp/ep.mp3","title":"Ep 1","description":"First","show_id":"s1","new_show":"My Show",)"
    R"("image":"/tmp/cover.png","language":"en"})";

constexpr std::string_view kEpisode =
    R"({"episode_uri":"orvanta:episode:e1","title":"Ep 1","language":"en","media_type":"audio",)"
    R"("status":"published","created_at":"2024-01-02T03:04:05Z"})";

TEST(PodroomRecords, WireTable) {
  const std::string show =
      R"({"show_uri":"orvanta:show:s1","title":"Show","language":"en","created_at":"2024-01-02T03:04:05Z",)"
      R"("last_episode_uploaded_at":"2024-02-03T00:00:00Z"})";
  const std::string shows = R"({"shows":[)" + show +
                            R"(,{"show_uri":"orvanta:show:s2","title":"Two","language":"de","created_at":"t"}]})";
  const std::string episodes = R"({"episodes":[)" + std::string(kEpisode) + "]}";
  const WireCase cases[] = {
      {"PodUploadRequest", runner(pod_upload_request_codec), kUpload, "file_path title"},
      {"PodUploadResponse", runner(pod_upload_response_codec),
       R"({"episode_uri":"orvanta:episode:e1","title":"Ep 1","status":"processing"})", "status"},
      {"PodShow", runner(pod_show_codec), show, "created_at"},
      {"PodShowsListResponse", runner(pod_shows_list_response_codec), shows, "shows"},
      {"PodShowsCreateRequest", runner(pod_shows_create_request_codec),
       R"({"title":"Show","description":"About","image":"/tmp/cover.png","language":"en"})", "title"},
      {"PodShowsCreateResponse", runner(pod_shows_create_response_codec), R"({"show_uri":"orvanta:show:s2"})",
       "show_uri"},
      {"PodShowsDeleteRequest", runner(pod_shows_delete_request_codec), R"({"id":"s2"})", "id"},
      {"PodShowsDeleteResponse", runner(pod_shows_delete_response_codec), R"({"status":"deleted","show_id":"s2"})",
       "show_id"},
      {"PodEpisodesListRequest", runner(pod_episodes_list_request_codec), R"({"show_id":"s1"})"},
      {"PodEpisode", runner(pod_episode_codec), kEpisode, "media_type"},
      {"PodEpisodesListResponse", runner(pod_episodes_list_response_codec), episodes, "episodes"},
      {"PodEpisodesCreateRequest", runner(pod_episodes_create_request_codec),
       R"({"title":"Ep 2","file":"/tmp/ep2.mp3","description":"Second","show_id":"s1","image":"/tmp/c.png",)"
       R"("language":"de"})",
       "description"},
      {"PodEpisodesCreateResponse", runner(pod_episodes_create_response_codec),
       R"({"episode_uri":"orvanta:episode:e2","status":"processing"})", "episode_uri"},
      {"PodEpisodesStatusRequest", runner(pod_episodes_status_request_codec), R"({"id":"e2"})", "id"},
      {"PodEpisodesStatusResponse", runner(pod_episodes_status_response_codec),
       R"({"episode_uri":"orvanta:episode:e2","readiness":"ready"})", "readiness"},
      {"PodEpisodesDeleteRequest", runner(pod_episodes_delete_request_codec), R"({"id":"e2"})", "id"},
      {"PodEpisodesDeleteResponse", runner(pod_episodes_delete_response_codec),
       R"({"status":"deleted","episode_id":"e2"})", "episode_id"},
  };
  test::check_wire_table(cases);
}

// Seven string members, five of them optional: each value must land under
// its own key.
TEST(PodroomRecords, FilledUploadRequestEncodesAsTheTable) {
  PodUploadRequest request;
  request.file_path = "/tmp/ep.mp3";
  request.title = "Ep 1";
  request.description = "First";
  request.show_id = "s1";
  request.new_show = "My Show";
  request.image = "/tmp/cover.png";
  request.language = "en";
  EXPECT_EQ(json::encode(pod_upload_request_codec(), request), kUpload);
}

TEST(PodroomRecords, FilledEpisodeEncodesAsTheTable) {
  const PodEpisode episode{"orvanta:episode:e1", "Ep 1",      "en", "audio",
                           "published",          "2024-01-02T03:04:05Z"};
  EXPECT_EQ(json::encode(pod_episode_codec(), episode), kEpisode);
}

}  // namespace
}  // namespace orvanta::messages
