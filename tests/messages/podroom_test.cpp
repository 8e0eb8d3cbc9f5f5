// The show and episode lists, the status answer and the upload's own keys
// are pinned byte for byte by the pod command tests (tests/commands); here
// every member of the upload and the keys those never show.
#include "messages/podroom.hpp"

#include <gtest/gtest.h>

#include "record_check.hpp"

namespace orvanta::messages {
namespace {

using test::check_record;

TEST(PodroomRecords, WireForms) {
  check_record(pod_upload_request_codec,
               {.file_path = "/tmp/ep.mp3", .title = "Ep 1", .description = "First", .show_id = "s1",
                .new_show = "My Show", .image = "/tmp/cover.png", .language = "en"},
               R"({"file_path":"/tmp/ep.mp3","title":"Ep 1","description":"First","show_id":"s1",)"
               R"("new_show":"My Show","image":"/tmp/cover.png","language":"en"})");
  check_record(pod_shows_create_request_codec,
               {.title = "Show", .description = "About", .image = "/tmp/cover.png", .language = "en"},
               R"({"title":"Show","description":"About","image":"/tmp/cover.png","language":"en"})");
  check_record(pod_episodes_create_request_codec,
               {.title = "Ep 2", .file = "/tmp/ep2.mp3", .description = "Second", .show_id = "s1",
                .image = "/tmp/c.png", .language = "de"},
               R"({"title":"Ep 2","file":"/tmp/ep2.mp3","description":"Second","show_id":"s1","image":"/tmp/c.png",)"
               R"("language":"de"})");
  check_record(pod_episode_codec,
               {.episode_uri = "orvanta:episode:e1", .title = "Ep 1", .language = "en", .media_type = "audio",
                .status = "published", .created_at = "2024-01-02T03:04:05Z"},
               R"({"episode_uri":"orvanta:episode:e1","title":"Ep 1","language":"en","media_type":"audio",)"
               R"("status":"published","created_at":"2024-01-02T03:04:05Z"})", "media_type");
}

}  // namespace
}  // namespace orvanta::messages
